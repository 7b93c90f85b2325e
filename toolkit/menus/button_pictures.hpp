/// The pictures of toolbar buttons, cut from the strip that the resource holds.
#pragma once

#include "toolkit/base/resource_pixmap.hpp"

#include <X11/Xlib.h>

#include <vector>

namespace tesserakit {

/// A picture in its three looks.
struct ButtonPictures {
    Pixmap plain = 0;
    Pixmap greyed = 0;
    Pixmap armed = 0;
};

/// The pictures of a strip from the left, and the colours that they hold.
struct ButtonStrip {
    std::vector<ButtonPictures> buttons;
    ResourcePixmap image;  ///< without its pixmap
};

/// How often a picture of this height is enlarged each way, so that it doesn't fall behind the
/// dialogs' font: as long as it isn't higher than a line of it.
int button_enlargement(int picture_height, int line_height);

/// Cuts a strip into pictures of this size, each then enlarged; none without the strip.
ButtonStrip load_button_strip(int strip, int width, int height, int enlargement);
/// Gives pixmaps and colours back.
void free_button_strip(ButtonStrip& strip);

}  // namespace tesserakit
