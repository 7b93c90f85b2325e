/// Pictures of the resource that are larger than their field.
#pragma once

#include "toolkit/base/resource_pixmap.hpp"

namespace tesserakit {

/// Replaces the image's pixmap by a smaller one in the same proportions where it doesn't fit into
/// width by height pixels; otherwise, or when the server has no room, nothing changes. On screens
/// without direct colours every new pixel is one of the old ones, on others their mean.
void shrink_to_fit(ResourcePixmap& image, int width, int height);

}  // namespace tesserakit
