/// Sizes and places of a window and its parts.
#pragma once

#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_layout.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// What a window has around its client area, and what one of this request and of this width of its
/// client area will have.
Surroundings surroundings_of(int window);
Surroundings surroundings_of(const WindowRequest& request, int client_width);

/// Places everything inside the MainWindow for a shell of this size in pixels; answers true when
/// the size of the client area changed.
bool yywindowresize(int window, int shell_width, int shell_height);

/// The same for the size that the shell has.
void yywindowreplace(int window);

/// Sets the shell to the size that its client area asks for, and its size hints.
void yywindowfit(int window, int client_width, int client_height);

/// Allows resizing of the windows for which `may_resize` is true, and forbids it for the others.
void yyMSWindowUpdateResize(bool (*may_resize)(int window));

/// An extent as Xt takes it: 1 to 32767.
Dimension dimension(int value);

}  // namespace tesserakit
