/// The pump: X events in, messages out. Dialog callbacks post by yyDGSendTesserakitMessage
/// (mailbox.hpp); modal loops and the semi-modal chain stand in modal.hpp, timers in timers.hpp.
#pragma once

#include "toolkit/mailbox.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

extern XEvent iEvent;         ///< the event now being interpreted
extern bool bPointerGrabbed;  ///< a button is held

/// The switch of a type; 0 for types outside 1 to 16.
void yyinfomessage(int type, int& state);

/// Selects on a widget what the enabled messages need. With `all` false key presses, key releases
/// and plain motion are left out: a user-drawn field that asks for no motion. Exposures of
/// widgets that paint themselves stay as they are.
void apply_message_mask(Widget widget, bool all = true);

/// Takes one event off the queue and interprets it: the type of the message that it left in
/// wXtMesg, or 0. Blocks when there is none.
int yyinterpretmessage();
/// True when yyinterpretmessage has an event to take; due timers are run on the way.
bool event_waiting();

/// Modifier bits of a message from the state word of an X event.
int yymousemodifiers(unsigned state);

/// Takes further exposures of a window off the queue and widens `event` to their clip box.
void gather_exposures(XExposeEvent& event);

}  // namespace tesserakit
