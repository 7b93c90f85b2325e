#pragma once

#include "toolkit/image_write/picture_rows.hpp"

#include <string>

namespace tesserakit {

/// Puts the bytes of a PNG file into `file`. Returns 0, or what zlib returned when it couldn't
/// compress; `file` is of no use then.
int png_file(const PictureRows& picture, std::string& file);

}  // namespace tesserakit
