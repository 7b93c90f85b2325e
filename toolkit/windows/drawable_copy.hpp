/// What the selected drawable shows, to be read or handed on.
#pragma once

#include "toolkit/base/box.hpp"

#include <X11/Intrinsic.h>

#include <cstdint>
#include <vector>

namespace tesserakit {

/// A rectangle of the selected drawable as it is at one moment, kept by the server: what is drawn
/// later doesn't show in it. Of a window or a field it is what the screen shows: parts under other
/// windows or outside the screen are undefined.
class DrawableCopy {
public:
    /// `area` in pixels from the upper left corner of the drawable, which it lies in. Without a
    /// drawable, or when the server can't, the copy is none.
    explicit DrawableCopy(const Box& area);
    ~DrawableCopy();
    DrawableCopy(const DrawableCopy&) = delete;
    DrawableCopy& operator=(const DrawableCopy&) = delete;

    explicit operator bool() const { return pixmap_ != 0; }
    /// `count` rows from row `top` of the area on (0 is the uppermost): red, green and blue of each
    /// pixel, 8 bits each, left to right, with nothing between the rows. Empty when the server
    /// can't give them.
    std::vector<std::uint8_t> rows(int top, int count) const;
    /// The copy as the caller's own.
    Pixmap release();

private:
    Pixmap pixmap_ = 0;
    int width_ = 0;
    Visual* visual_ = nullptr;
    Colormap colormap_ = 0;
};

}  // namespace tesserakit
