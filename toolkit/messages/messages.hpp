/// The pump: X events in, messages out. Dialog callbacks post by yyDGSendTesserakitMessage
/// (base/mailbox.hpp); modal loops and the semi-modal chain stand in modal.hpp, timers in
/// timers.hpp.
#pragma once

#include "toolkit/base/mailbox.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// The switch of a type; 0 for types outside 1 to 16.
void yyinfomessage(int type, int& state);

/// Fills the record of what windows ask of the messages.
void install_messages();

/// Takes one event off the queue and interprets it: the message that came of it, or one of type 0.
/// Blocks when there is no event.
Mail yyinterpretmessage();
/// True when yyinterpretmessage has an event to take; due timers are run on the way.
bool event_waiting();
/// One step of the pump, for polls and for modal loops: the overflow, what a timer posted, or one
/// event. Answers a message, one of type 0 to go on, or without `wait` NoMessage when there is
/// nothing; with `wait` it waits a tick then.
Mail yymessagestep(bool wait);
/// True when the next poll has a message without any event.
bool message_waiting();

}  // namespace tesserakit
