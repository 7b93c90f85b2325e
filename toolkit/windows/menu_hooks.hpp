/// What windows and messages ask of menus and toolbars, which stand above them: a record of
/// functions that the menus fill at the start (toolkit/winitialise.cpp). Until then no window has
/// any.
#pragma once

#include "toolkit/base/box.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// What an X window of a menu is, and the window slot that the menu belongs to.
enum class MenuPart { Nothing, Bar, PopUp, Item };
struct MenuWindow {
    MenuPart part = MenuPart::Nothing;
    int window = -1;
};

/// What a key or a button of the mouse was to the menus.
struct MenuAnswer {
    bool consumed = false;  ///< nothing else may see the event
    int item = 0;           ///< selected by it, 0 for none; the menu has closed then
};

struct MenuHooks {
    /// Height of the bar of a menu that is about to be built in a window of this width, whose items
    /// may take several rows; 0 for none, or one that isn't in the resource.
    int (*height_of)(int menu, int width) = [](int, int) { return 0; };
    /// Builds the bar of `menu` for a window, at the top of its MainWindow. Without such a menu in
    /// the resource: error 1002, and no bar.
    void (*create)(int menu, int window) = [](int, int) {};
    void (*destroy)(int window) = [](int) {};
    /// Gives the bar its width; answers the height that it takes.
    int (*resize)(int window, int width) = [](int, int) { return 0; };
    /// Height that the bar of a window takes, 0 without one.
    int (*height)(int window) = [](int) { return 0; };
    /// Draws an X window of a menu again: a bar, a pop-up or an item.
    void (*draw)(Window part) = [](Window) {};
    /// What an X window is to the menus; asked for every event of a window without a widget.
    MenuWindow (*find)(Window window) = [](Window) { return MenuWindow{}; };

    /// A menu is pulled down, and has all input; closes it.
    bool (*active)() = [] { return false; };
    void (*deactivate)() = [] {};
    /// Lets the server send the next event of an active menu's grab. Called after each event while
    /// a menu is active, whatever became of the event.
    void (*next_event)() = [] {};
    /// A key in a window: in an open menu, or a mnemonic that opens one. `window` is -1 when an
    /// open menu gets a key of a window without a slot.
    MenuAnswer (*interpret_key)(KeySym key, int window, unsigned state) =
        [](KeySym, int, unsigned) { return MenuAnswer{}; };
    /// An accelerator's item, 0 for a key that is none's.
    int (*interpret_accelerator)(KeySym key, int window,
                                 unsigned state) = [](KeySym, int, unsigned) { return 0; };
    /// A press or release, in or out of the menu. `window` is the slot of the event's window, -1
    /// for none.
    MenuAnswer (*interpret_button)(const XButtonEvent& event, int window) =
        [](const XButtonEvent&, int) { return MenuAnswer{}; };
    /// The pointer enters or leaves a window: of a menu, or a toolbar's button.
    void (*crossing)(const XCrossingEvent& event) = [](const XCrossingEvent&) {};

    /// Takes away the tooltip that is shown, if any; called when something has happened.
    void (*end_tooltip)() = [] {};

    /// Thickness of a toolbar that is about to be built on a side, in pixels; 0 when the resource
    /// has none of that identifier.
    int (*toolbar_thickness_of)(int side, int toolbar) = [](int, int) { return 0; };
    void (*toolbar_create)(int side, int toolbar, int window) = [](int, int, int) {};
    void (*toolbar_resize)(int side, int window, const Box& box) = [](int, int, const Box&) {};
    void (*toolbar_destroy)(int side, int window) = [](int, int) {};
    /// Thickness of a window's toolbar, 0 without one.
    int (*toolbar_thickness)(int side, int window) = [](int, int) { return 0; };
};
extern MenuHooks menu_hooks;

}  // namespace tesserakit
