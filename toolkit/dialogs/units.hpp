/// Dialog units: a quarter of a character's width across, an eighth of a line's height down.
#pragma once

namespace tesserakit {

/// In pixels of the dialog font, cut.
int pixels_across(int units);
int pixels_down(int units);

}  // namespace tesserakit
