/// The toolbars of a window: strips of buttons with pictures, one on each side at most.
#pragma once

#include "toolkit/menus/button_pictures.hpp"
#include "toolkit/windows/window_layout.hpp"

#include <X11/Intrinsic.h>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace tesserakit {

struct ToolbarButton {
    int identifier = 0;
    Widget widget = nullptr;
    bool checkable = false;  ///< stays pressed until the program says otherwise
    bool on = false;
    int window = 0;  ///< slot of the toolbar's owner
};

struct Toolbar {
    int identifier = 0;
    int side = 0;
    Widget widget = nullptr;
    int thickness = 0;  ///< picture height and 12 (top, bottom) or width and 10 (left, right)
    std::vector<std::unique_ptr<ToolbarButton>> buttons;  ///< without gaps
    ButtonStrip strip;
};

/// Thickness of a toolbar on a side in pixels, 0 when the resource has none of that identifier.
int yymntbarthickness(int side, int toolbar);
/// Builds a window's toolbar on a side, with the tooltips of the string table; nothing for a
/// toolbar that doesn't exist. A button of an item of the window's menu begins as that item.
void yymntbar(int side, int toolbar, int window);
/// Thickness of a window's toolbar, 0 without one.
int yymntbarthicknessnow(int side, int window);
void yymntbarresize(int side, int window, const Box& box);
void yymntbardestroy(int side, int window);

/// A button of a toolbar that a unit builds by itself.
struct DynamicToolbarRow {
    int identifier = 0;  ///< 0 for a gap
    std::string_view tooltip{};
    bool greyed = false;
    bool checkable = false;
};
/// Builds a toolbar from rows; its pictures are those of the strip, in the rows' order.
void yymnloaddynamictoolbar(int side, int strip, int width, int height,
                            std::span<const DynamicToolbarRow> rows, int window);

/// State of all buttons of an identifier in a window's toolbars; false when there is none. A button
/// whose check is set or cleared is checkable from then on.
bool check_button(int identifier, bool on, int window);
bool grey_button(int identifier, bool greyed, int window);
bool has_button(int identifier, int window);

/// The pointer enters or leaves a window, a button's perhaps, whose tooltip comes or goes.
void yymnChangeFocusEH(const XCrossingEvent& event);

/// Where the buttons of a toolbar stand in it; gaps have no box. No X here.
std::vector<Box> place_buttons(int side, std::span<const int> identifiers, int width, int height);

}  // namespace tesserakit
