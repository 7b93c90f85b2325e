/// The toolbars of a window.
#pragma once

#include "toolkit/windows/window_layout.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// For now a strip without buttons: it has its place and its thickness.
struct Toolbar {
    int identifier = 0;
    Widget widget = nullptr;
    int thickness = 0;  ///< button height and 12 (top, bottom) or width and 10 (left, right)
};

/// Thickness of a toolbar on a side in pixels, 0 when the resource has none of that identifier.
int yymntbarthickness(int side, int toolbar);
/// Builds a window's toolbar on a side; nothing for a toolbar that doesn't exist.
void yymntbar(int side, int toolbar, int window);
/// Thickness of a window's toolbar, 0 without one.
int yymntbarthicknessnow(int side, int window);
void yymntbarresize(int side, int window, const Box& box);
void yymntbardestroy(int side, int window);

}  // namespace tesserakit
