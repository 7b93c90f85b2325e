/// The colours of what the toolkit draws by itself.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Colours of everything that the toolkit draws by itself, from the X resource "background" and
/// the shades that Motif derives from it.
struct ColourScheme {
    Pixel background = 0;
    Pixel foreground = 0;
    Pixel top_shadow = 0;
    Pixel bottom_shadow = 0;
    Pixel select = 0;     ///< armed buttons and toggles
    Pixel disabled = 0;   ///< greyed text
    Pixel highlight = 0;  ///< background of the item under the pointer
    Pixel highlight_text = 0;
    Pixel field = 0;  ///< background of text fields and lists
    Pixel tooltip = 0;
    Pixel black = 0;
    Pixel white = 0;
};
extern ColourScheme wSchemeCol;
/// Fills wSchemeCol. Needs the display.
void yycolorschemeinit();

}  // namespace tesserakit
