#pragma once

#include "toolkit/image_write/picture_rows.hpp"

#include <string>

namespace tesserakit {

/// The bytes of a BMP file. Width and height are told in 16 bits and the file's size in 24,
/// whatever they are: readers take a picture of up to 65535 pixels each way, and most don't look at
/// the size.
std::string bmp_file(const PictureRows& picture);

}  // namespace tesserakit
