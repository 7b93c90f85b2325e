/// What menus look like.
#pragma once

#include "toolkit/menus/menu_windows.hpp"

namespace tesserakit {

/// Draws an item as it is now: greyed, checked, highlighted.
void yymndrawitem(Menu& menu, int row);
/// Draws the frame of a pop-up or the bar; their items draw themselves.
void yymndrawframe(const Menu& menu, int popup);
/// A pop-up or the bar with its items.
void yymndrawpopup(Menu& menu, int popup);
/// The bar of a window with its items; nothing without one.
void yymndraw(int window);
/// What an X window of a menu shows; nothing for another.
void yymndrawwindow(Window window);
/// Shows an item in the highlight colours (`enter`) or out of them.
void yymninvert(Menu& menu, int row, bool enter);

}  // namespace tesserakit
