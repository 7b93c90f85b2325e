/// The OpenGL context and what it draws on.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Which target the context is on.
enum class GlTarget { Nothing = 0, Window = 1, Bitmap = 2, Field = 3 };

/// The widget of the picture field that the context is on, null when it is on no field.
Widget gl_field_widget();

/// Waits until what was drawn stands where X reads it.
void gl_finish();

/// Unbinds the context from a window, bitmap or dialog that is about to go away.
void gl_forget_window(int window);
void gl_forget_bitmap(int handle);
void gl_forget_dialog(int dialog_slot);
/// Ends OpenGL with the display.
void gl_shutdown();

}  // namespace tesserakit
