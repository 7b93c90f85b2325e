#include "toolkit/menus/menus.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/menus/accelerators.hpp"
#include "toolkit/menus/drawing.hpp"
#include "toolkit/menus/interaction.hpp"
#include "toolkit/menus/toolbars.hpp"
#include "toolkit/menus/tooltips.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/windows/menu_hooks.hpp"

#include <utility>

namespace tesserakit {

namespace {

/// The menu is open no longer when its windows go, or when what it shows changes size.
void close_if_open(const Menu* menu) {
    if (menu && menu == pwActiveMenu) yymndeactivate();
}

/// The row of an item in a window's menu, -1 for none.
int row_in(const Menu* menu, int item) { return menu ? menu->record.row_of(item) : -1; }

bool is_window(int window) { return window >= 0 && window < window_slots; }

void set_flag(int& flags, int flag, bool on) { flags = on ? flags | flag : flags & ~flag; }

}  // namespace

void yymncreate(int menu, int type, int window) {
    if (menu == 0 || type != bar_menu) return;
    std::unique_ptr<MenuRecord> record;
    yymnrcload(menu, record);
    if (!record) {
        yyerror(MenuNotLoaded, "WindowOpen", menu);
        return;
    }
    yymenuchange(std::move(record), window);
}

void yymenuchange(std::unique_ptr<MenuRecord> record, int window) {
    yymndestroy(window);
    if (record) yymncreateitems(std::move(record), window);
}

void yymndestroy(int window) {
    if (!is_window(window)) return;
    if (pwFloatMenu && pwFloatMenu->window == window) {
        close_if_open(pwFloatMenu.get());
        yymndestroywindows(pwFloatMenu);
    }
    close_if_open(menu_of(window));
    yymndestroywindows(pwRootMenuSub[static_cast<std::size_t>(window)]);
}

void yymnchck(int item, int state, int window) {
    if (!is_window(window)) return;
    Menu* menu = menu_of(window);
    const int row = row_in(menu, item);
    const bool button = item != 0 && check_button(item, state == 1, window);
    if (row >= 0) {
        menu->record.item(row).state = state == 1 ? 1 : 0;
        yymndrawitem(*menu, row);
    } else if (!button) {
        yyerror(InvalidMenuItem, "yymnchck", item);
    }
}

void yymngrey(int item, int state, int window) {
    if (!is_window(window)) return;
    Menu* menu = menu_of(window);
    const int row = row_in(menu, item);
    const bool button = item != 0 && grey_button(item, state == 1, window);
    if (row >= 0) {
        set_flag(menu->record.item(row).flags, menu_flag::disabled, state == 1);
        yymndrawitem(*menu, row);
    } else if (!button) {
        yyerror(InvalidMenuItem, "yymngrey", item);
    }
}

void yymntext(int item, std::string_view text, int window) {
    if (!is_window(window)) return;
    Menu* menu = menu_of(window);
    const int row = row_in(menu, item);
    if (row >= 0) {
        close_if_open(menu);
        menu->record.item(row).label = text;
        yymnlayoutaround(*menu, row);
        yymndrawitem(*menu, row);
    } else if (item != 0 && has_button(item, window)) {
        yytooltip(item, text, window);
    } else {
        yyerror(InvalidMenuItem, "yymntext", item);
    }
}

void install_menus() {
    menu_hooks = {
        .height_of = yymnheightof,
        .create = [](int menu, int window) { yymncreate(menu, bar_menu, window); },
        .destroy =
            [](int window) {
                yymndestroy(window);
                forget_tooltips(window);
            },
        .resize =
            [](int window, int width) {
                const int height = yymnresize(window, width);
                yymndraw(window);
                return height;
            },
        .height = yymnheight,
        .draw = yymndrawwindow,
        .find =
            [](Window window) {
                const MenuSpot spot = yymnmatchmenu(window);
                return MenuWindow{spot.part, spot.menu ? spot.menu->window : -1};
            },
        .active = [] { return pwActiveMenu != nullptr; },
        .deactivate = yymndeactivate,
        .next_event = yymngrabmaintain,
        .interpret_key = yymninterpretkey,
        .interpret_accelerator = yyacinterpretkey,
        .interpret_button = yymninterpretbutton,
        .crossing =
            [](const XCrossingEvent& event) {
                yymnChangeFocusEH(event);
                yymninterpretcrossing(event);
            },
        .end_tooltip = yymnHideTooltip,
        .toolbar_thickness_of = yymntbarthickness,
        .toolbar_create = yymntbar,
        .toolbar_resize = yymntbarresize,
        .toolbar_destroy = yymntbardestroy,
        .toolbar_thickness = yymntbarthicknessnow,
    };
}

}  // namespace tesserakit
