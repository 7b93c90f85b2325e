/// The translation of X events into messages.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern bool bPointerGrabbed;  ///< a button is held

/// Modifier bits of a message from the state word of an X event.
int yymousemodifiers(unsigned state);

/// Queues removed: further exposures of the event's window, with `event` widened to their clip box
/// (accumulating); or all but the last ConfigureNotify, which replaces `event`.
void yyclearevents(XExposeEvent& event);
void yyclearevents(XConfigureEvent& event);

/// Whether an event goes on to the next step of its interpretation, and in the end to the
/// widgets. Either way a message may have come of it, in wXtMesg.
enum class Outcome { GoesOn, Consumed };

/// The translation by X event type (event_core.cpp). The first handles windows, menus and keys;
/// the second user-drawn dialog fields.
Outcome yyMSInterpretMessageCore(XEvent& event);
Outcome yyDGInterpretToolkit(XEvent& event);

}  // namespace tesserakit
