/// A frame: the model's display lists turned into a picture.
#pragma once

#include "common/vec.hpp"

#include <array>

namespace wcfgl_display {

extern float current_zoomfactor;                ///< on the half width of the viewing volume
extern std::array<int, 2> current_centroffset;  ///< picture offset in pixels: x, y upward
extern int current_screen_width;                ///< pixels of the drawable; set before display
extern int current_screen_height;

extern Colour background_colour;
extern std::array<float, 4> lamp_position;  ///< of GL_LIGHT0; last component 0: directional
extern Colour lamp_colour;                  ///< diffuse
extern Colour specular_colour;              ///< of the front material
extern int shininess;                       ///< of the front material, 0 to 128

/// Sets OpenGL up once, with the context current, and the model upright. Zoom, offset and the frame
/// of a box that is defined already stay.
void display_init();

/// The part of display_init that belongs to a context: to be called again when another one has
/// become current. The view stays. `back_buffer`: the frame is drawn where wglswapbuffers shows it
/// from; a bitmap has no such buffer, and keeps the one that the toolkit has chosen.
void init_context(bool back_buffer = true);

/// To be called before the context of the last frame goes away: what that frame leaves to the next
/// one, the context that init_context sets up then has.
void leave_context();

/// Draws and shows a whole frame, rebuilding lists that are stale, and clears the change flags of
/// wcfgl_metrix.
void display();

/// Moves the picture along with the pointer; pixels, y downward.
void calculate_offset(int old_x, int old_y, int new_x, int new_y);

}  // namespace wcfgl_display
