/// The keyboard's way to the windows: client windows, and menus while they are open.
#pragma once

#include "toolkit/windows/window_slots.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Gives the keyboard to a window's client area.
void take_focus(const WindowSlot& slot, Time time);
/// yyFocusToSubWin: the window manager gives the keyboard to the shell, keys are read in the
/// client.
void yyfocustosubwin(const XFocusChangeEvent& event);

/// Gives the keyboard to an X window of a menu that opens, and remembers who had it.
void lend_focus(Window menu);
/// Gives it back when the menu closes, unless somebody else has taken it meanwhile. Before the
/// menu's windows go.
void return_focus();

/// A window that was clicked while a dialog or box locked it out has the focus of the display, but
/// its widgets haven't heard of it: the news was held back as all input is. This repeats it, after
/// the dialog or box (`leaving`, its shell or widget) has gone.
void repeat_focus(Widget leaving);

}  // namespace tesserakit
