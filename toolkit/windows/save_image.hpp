/// Saving what the selected drawable shows.
#pragma once

#include "toolkit/base/box.hpp"

#include <string>
#include <string_view>

namespace tesserakit {

enum class ImageFormat { Clipboard = 0, Bmp = 1, Pcx = 2, Png = 15 };

/// By the last four characters of a name: ".BMP" and ".PNG" in any case, PCX for anything else.
/// The clipboard for an empty name.
ImageFormat image_format(std::string_view name);

/// `status` is 0 or an error code, with the detail told at igrsaveimage; `reason` a sentence for
/// the user.
struct ImageOutcome {
    int status = 0;
    int detail = 0;
    std::string reason;
};

/// Saves an area of the selected drawable, in pixels from its upper left corner, which it lies in.
/// An old file at `path` stays until the new one is whole.
ImageOutcome yysaveimage(ImageFormat format, const Box& area, const std::string& path);

}  // namespace tesserakit
