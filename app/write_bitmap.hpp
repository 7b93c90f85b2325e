/// The export of the picture. The OpenGL context leaves the window for it, and comes back behind
/// it: wcfgl_display::leave_context, write_bitmap, return_to_window.
#pragma once

#include <string>
#include <string_view>

namespace gemwright {

/// Draws the scene, 600 by 480 pixels whatever the window's size and in full quality, and saves it
/// in the format of the file's extension. What is shifted in the window is shifted by the same
/// share of the picture. Returns why nothing was saved, in a sentence for the user; empty when all
/// is well. The OpenGL context is on nothing afterwards: return_to_window follows.
std::string write_bitmap(std::string_view file_name);

/// Puts the context on the window's picture, which is in the next frame as it was before.
void return_to_window();

}  // namespace gemwright
