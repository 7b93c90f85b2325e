/// The X windows of menus: the bar and its items inside the owner's MainWindow, every pop-up with
/// its items on the screen's root. All are made with the menu, so that opening is only mapping.
#pragma once

#include "toolkit/menus/menu_record.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/Intrinsic.h>

#include <array>
#include <memory>
#include <vector>

namespace tesserakit {

struct MenuItemWindow {
    Window window = 0;
    Box box;  ///< in its pop-up or the bar
    ItemText text;
    bool inverted = false;  ///< shown in the highlight colours
};

struct MenuPopUpWindow {
    Window window = 0;
    Box box;           ///< on the screen; the bar's in its MainWindow
    int middle_x = 0;  ///< column of the middle texts
};

struct Menu {
    MenuRecord record;
    int window = -1;                      ///< slot of the owner
    bool floating = false;                ///< a pop-up without a bar: pop-up 0 is the pop-up itself
    int bar_rows = 1;                     ///< that the bar takes at its width
    std::vector<MenuPopUpWindow> popups;  ///< in the order of the record's
    std::vector<MenuItemWindow> items;    ///< likewise

    MenuItemWindow& item(int row) { return items[static_cast<std::size_t>(row)]; }
    const MenuItemWindow& item(int row) const { return items[static_cast<std::size_t>(row)]; }
    MenuPopUpWindow& popup(int number) { return popups[static_cast<std::size_t>(number)]; }
    const MenuPopUpWindow& popup(int number) const {
        return popups[static_cast<std::size_t>(number)];
    }
};
extern std::array<std::unique_ptr<Menu>, window_slots>& pwRootMenuSub;  ///< by window slot
extern std::unique_ptr<Menu>& pwFloatMenu;  ///< the pop-up that stands free of any bar
extern Menu* pwActiveMenu;                  ///< the menu that is pulled down, null for none

/// The menu of a window slot; null without one, and for a number that is no slot.
Menu* menu_of(int window);
/// The nearest window up the chain of parents that has a menu; -1 for none.
int window_with_menu(int window);

/// iMenuHeight: height of one row of a menu, ascent, descent and 7.
int yymenuheight();
/// iVertTxt and iVertUnd: baseline of an item's text, and the line under its mnemonic.
int yymenubaseline();
int yymenuunderline();

/// Height of the bar of a menu that is about to be built in a window of this width; 0 for none, or
/// one not in the resource.
int yymnheightof(int menu, int width);
/// Builds a menu's windows for a window slot, the bar at the top of its MainWindow; a menu that it
/// had goes.
void yymncreateitems(std::unique_ptr<MenuRecord> record, int window);
/// The same for a pop-up without a bar, which becomes pwFloatMenu.
void yymncreatefloat(std::unique_ptr<MenuRecord> record, int window);
void yymndestroywindows(std::unique_ptr<Menu>& menu);

/// Gives the bar its width; answers the height that it takes, 0 without one.
int yymnresize(int window, int width);
int yymnheight(int window);
/// A row's text has changed: its pop-up, or the bar, is laid out anew.
void yymnlayoutaround(Menu& menu, int row);

/// Whether its items tell of the pointer that enters and leaves them.
void select_item_events(const Menu& menu, bool active);

/// What an X window is to the menus.
struct MenuSpot {
    Menu* menu = nullptr;
    MenuPart part = MenuPart::Nothing;
    int popup = -1;  ///< of a pop-up, the bar (0) or the one that an item stands in
    int row = -1;    ///< of an item
};
MenuSpot yymnmatchmenu(Window window);

/// Where an item stands on the screen.
Box yymngetposabsolute(const Menu& menu, int row);
/// Shows the pop-up of a row beside it, within the screen.
void yymnpositionroot(Menu& menu, int popup);
/// Shows a free pop-up at a point of the screen.
void yymnpositionroot(Menu& menu, int x, int y);
/// Moves the open pop-up around a row so that the row is on the screen; false when it is already.
bool bring_into_view(Menu& menu, int row);
void hide_popup(const Menu& menu, int popup);

}  // namespace tesserakit
