/// Text in an OpenGL scene: one display list a character.
#pragma once

namespace tesserakit {

/// First of the 224 lists of the characters 32 to 255; all ones while there are none.
extern unsigned glFontList;

/// Justification of wgltextstring: 0 left, 1 centred, 2 right; other values change nothing.
void wgltextorientation(int justification);
/// Back to the state before the first wgltextfont, at the first wglselect.
void reset_gl_text();

}  // namespace tesserakit
