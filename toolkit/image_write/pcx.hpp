#pragma once

#include "toolkit/image_write/picture_rows.hpp"

#include <string>

namespace tesserakit {

/// The bytes of a PCX file. `left` and `top` say where the picture lay in what it was taken from:
/// the header tells them.
std::string pcx_file(const PictureRows& picture, int left, int top);

}  // namespace tesserakit
