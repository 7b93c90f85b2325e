/// Opening and closing of windows; the slots they stand in are in window_slots.hpp.
#pragma once

#include <X11/Intrinsic.h>

#include <string_view>

namespace tesserakit {

void yyclosechild(int window);

/// Shows a name in the title bar of a window.
void yywindowtitle(int window, std::string_view title);

/// Puts a shown window in front of all others, out of its icon if it is minimised; nothing for a
/// hidden one.
void yywindowtofront(int window);

/// The shell that a dialog belonging to `window` hangs on, and stays in front of: the window's
/// while it is shown, else the root's, else the hidden one. It takes the dialog's widgets along
/// when it closes.
Widget yydialogparent(int window = 0);

/// Lets a child of the MainWindow take the place of a window's ClientWindow: it is placed as the
/// client area is from now on, and is destroyed with the window. Destroyed before, or with null, it
/// gives the place back. A window that carries a dialog takes none.
void yywindowcontent(int window, Widget content);

}  // namespace tesserakit
