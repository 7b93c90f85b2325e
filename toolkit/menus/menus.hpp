/// The menu bar of a window.
#pragma once

#include "toolkit/windows/menu_hooks.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// For now a bar without items: it has its place, its height and its look.
struct MenuBar {
    int identifier = 0;  ///< of the menu in the resource
    Window window = 0;   ///< child of the MainWindow
    int rows = 1;        ///< of the bar; each is yymenuheight() high
};

/// iMenuHeight: height of one row of a menu, ascent, descent and 7.
int yymenuheight();

/// Height of the bar of a menu that is about to be built at this width; 0 for none, or one not in
/// the resource.
int yymnheightof(int menu, int width);
/// Builds the bar of `menu` for a window, at the top of its MainWindow. Without such a menu in
/// the resource: error 1002, and no bar.
void yymncreate(int menu, int window);
void yymndestroy(int window);
/// Fills the record of what windows and messages ask of menus and toolbars.
void install_menus();
/// Gives the bar its width; answers the height that it takes.
int yymnresize(int window, int width);
void yymndraw(int window);
/// Height that the bar takes at this width, 0 without one.
int yymnheight(int window);

/// pwActiveMenu: a menu is pulled down, and has all input.
bool yymenuactive();
void yymndeactivate();

/// What a key is to the menus, and an accelerator's item; 0 for a key that is none's.
MenuAnswer yymninterpretkey(KeySym key, int window, unsigned state);
int yyacinterpretkey(KeySym key, int window, unsigned state);
/// A press or release in or out of the menu.
MenuAnswer yymninterpretbutton(const XButtonEvent& event, int window);

}  // namespace tesserakit
