/// The picture class: shows a pixmap in the middle of its area, or its background alone.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern WidgetClass tessWidgetClass;

/// Pixmap of the widget's depth, 0 for none; stays its owner's.
inline constexpr char tessNpixmap[] = "tessPixmap";
/// Its size in pixels (XtRInt).
inline constexpr char tessNpixmapWidth[] = "tessPixmapWidth";
inline constexpr char tessNpixmapHeight[] = "tessPixmapHeight";

}  // namespace tesserakit
