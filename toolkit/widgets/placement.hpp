/// Xt's placing of widgets in plain integers, and its functions that are macros as well.
#pragma once

#include <X11/IntrinsicP.h>

#include <algorithm>

namespace tesserakit {

// The macros of these names cast in C's way; these are the functions behind them.
inline Display* display_of(Widget widget) { return (XtDisplay)(widget); }
inline Window window_of(Widget widget) { return (XtWindow)(widget); }

/// Pixels in the parent; extents below 1 count as 1.
inline void place(Widget widget, int x, int y, int width, int height) {
    XtConfigureWidget(widget, static_cast<Position>(x), static_cast<Position>(y),
                      static_cast<Dimension>(std::max(1, width)),
                      static_cast<Dimension>(std::max(1, height)), 0);
}

}  // namespace tesserakit
