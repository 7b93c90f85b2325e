/// The menus of the windows, as the other units call them: building, and the state of items.
#pragma once

#include "toolkit/menus/menu_record.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <memory>
#include <string_view>

namespace tesserakit {

/// What yymncreate builds.
inline constexpr int bar_menu = 4;

/// Builds a menu of the resource for a window; 0 is none. Without such a menu in the resource:
/// error 1002, and no bar.
void yymncreate(int menu, int type, int window);
/// Gives a window another menu, or its first; null takes it away. The window's parts are placed
/// anew by the caller (yywindowreplace).
void yymenuchange(std::unique_ptr<MenuRecord> record, int window);
/// Closes the menu if it is open, and destroys it; nothing for a window without one.
void yymndestroy(int window);

/// Check mark (0 or 1), greying (0 or 1) and text of an item, in the window's menu and on its
/// toolbars alike. Error 1001 when neither has the item.
void yymnchck(int item, int state, int window = wCurrentWindow);
void yymngrey(int item, int state, int window = wCurrentWindow);
void yymntext(int item, std::string_view text, int window = wCurrentWindow);

/// Fills the record of what windows and messages ask of menus and toolbars.
void install_menus();

}  // namespace tesserakit
