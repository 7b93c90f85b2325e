/// Pictures of the resource in fields of another size.
#pragma once

#include "toolkit/base/resource_pixmap.hpp"

namespace tesserakit {

/// Replaces the image's pixmap by one in the same proportions that fits into width by height
/// pixels: a smaller one where it is too large, and one enlarged by the largest whole number where
/// that is 2 or more. Otherwise, or when the server has no room, nothing changes. On screens
/// without direct colours every new pixel is one of the old ones, on others their mean.
void scale_to_fit(ResourcePixmap& image, int width, int height);

}  // namespace tesserakit
