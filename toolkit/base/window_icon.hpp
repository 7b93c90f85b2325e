/// The program's icon, from the resource's 32x32 picture.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Gives a shell the program's icon in the two ways that window managers read; nothing when the
/// resource has no icon. The shell is realized.
void set_window_icon(Widget shell);

}  // namespace tesserakit
