/// Opening and closing of windows; the slots they stand in are in window_slots.hpp.
#pragma once

#include <X11/Intrinsic.h>

#include <string_view>

namespace tesserakit {

void yyclosechild(int window);

/// Shows a name in the title bar of a window.
void yywindowtitle(int window, std::string_view title);

/// The shell that new dialogs hang on: the root window's while it is shown, else the hidden one.
Widget yydialogparent();

}  // namespace tesserakit
