/// A picture as the writers of image files take it: row by row, so that it need not be there whole.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace tesserakit {

struct PictureRows {
    int width = 0;  ///< pixels, 1 at least
    int height = 0;
    bool indexed = false;  ///< is written as one byte a pixel, with a palette; else 24 bits a pixel
    /// Red, green and blue of each pixel of a row, 8 bits each, left to right; row 0 is the
    /// uppermost. A row is asked for once and used before the next one is, in the file's order.
    std::function<std::span<const std::uint8_t>(int row)> row;
};

}  // namespace tesserakit
