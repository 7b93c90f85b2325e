/// The pump: X events in, messages out. Dialog callbacks post by yyDGSendTesserakitMessage
/// (mailbox.hpp); modal loops and the semi-modal chain stand in modal.hpp, timers in timers.hpp.
#pragma once

#include "toolkit/messages/mailbox.hpp"

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

/// Whether the application draws this window itself: a client window or a user-drawn field. Makes
/// no request, so that it may be asked while the event queue is being searched.
bool draws_for_application(Display* display, Window window);

/// Takes one event off the queue and interprets it: the type of the message that it left in
/// wXtMesg, or 0. Blocks when there is none.
int yyinterpretmessage();
/// True when yyinterpretmessage has an event to take; due timers are run on the way.
bool event_waiting();

/// Modifier bits of a message from the state word of an X event.
int yymousemodifiers(unsigned state);

/// Queues removed: further exposures of the event's window, with `event` widened to their clip box
/// (accumulating); or all but the last ConfigureNotify, which replaces `event`.
void yyclearevents(XExposeEvent& event);
void yyclearevents(XConfigureEvent& event);

/// The translation by X event type (event_core.cpp): fills wXtMesg and answers the type, 0 for
/// none. The first handles windows, menus and keys; the second user-drawn dialog fields.
int yyMSInterpretMessageCore(XEvent& event);
int yyDGInterpretToolkit(XEvent& event);

}  // namespace tesserakit
