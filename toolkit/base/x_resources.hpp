/// The X resources of the application class Tess that the toolkit reads.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// What an application-defaults file or the user's resources may change.
struct ResourceValues {
    String dialog_font;
    String symbol_font;
    String menu_font;
    String status_font;
    String fixed_font;
    Pixel background;
    Pixel foreground;
    Pixel field;
    Pixel tooltip;
};

/// As the user's resources say, else the toolkit's own. Needs the display.
ResourceValues resource_values();

}  // namespace tesserakit
