/// The toolkit's calls for OpenGL: binding the context, showing a frame, text in the scene.
///
/// These are all that a drawing layer needs of the toolkit; no X type appears here.
#pragma once

#include <optional>
#include <string_view>

namespace tesserakit {

/// Binds the rendering context. `target` 0: none, `identifier` ignored; 1: the window of that
/// slot; 2: the bitmap of that handle; 3: the picture field of that identifier in the selected
/// dialog. `mode` bits: 1 asks for colour indices instead of RGBA, 2 for double buffering.
/// All contexts share their display lists for as long as the display is open. On failure the
/// toolkit's error is stored and nothing is bound.
void wglselect(int target, int identifier, int mode);

/// Shows the back buffer of the selected target; does nothing without one.
void wglswapbuffers();

/// Chooses the font of wgltextstring; absent arguments keep their value. `font` 1 is the stroke
/// font, 2 the system font as set before, 100 to 104 a system font family (100 by `name`).
/// `spacing` is 0 default, 1 fixed, 2 proportional.
void wgltextfont(std::optional<int> font = {}, std::optional<int> style = {},
                 std::optional<float> depth = {}, std::optional<std::string_view> name = {},
                 std::optional<int> spacing = {});

/// Draws `text` at the current transformation in the current colour. List base, cull face and
/// front face are left as they were.
void wgltextstring(std::string_view text);

}  // namespace tesserakit
