/// A menu that is pulled down: what the pointer and the keys do in it.
///
/// No loop of its own: an open menu is a state of the message pump, which hands it every event and
/// goes on polling for the application. The pointer is grabbed in synchronous mode meanwhile, so
/// that the server doesn't run ahead of what is shown: a pop-up is on the screen before the pointer
/// is said to enter it.
#pragma once

#include "toolkit/menus/menu_windows.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

extern int iCurMenuItem;  ///< row highlighted deepest in it, -1 for none

/// Pulls a menu down from a row of its bar (or shows the free pop-up, with row -1). The focus goes
/// to the menu; without a grab, as another program holds one, it works all the same.
void yymnactivate(int row, Menu& menu);
/// Closes the menu that is pulled down, if any: pop-ups off the screen, grab and focus given back.
void yymndeactivate();
/// Lets the server send the next event of the grab.
void yymngrabmaintain();

/// The identifier that selecting a row means; -1 for none, a greyed item, a separator, and an item
/// with a pop-up.
int yymnselect(int row);
/// Moves in the pop-up at a depth of the open ones (the bar is 0), or between them.
void yymnnavigatedir(MenuDirection direction, int depth);

/// A press or release anywhere, and a key: in an open menu, or to open one. `window` is the slot
/// that the event belongs to, -1 for none.
MenuAnswer yymninterpretbutton(const XButtonEvent& event, int window);
MenuAnswer yymninterpretkey(KeySym key, int window, unsigned state);
void yymninterpretcrossing(const XCrossingEvent& event);

/// Shows a menu of the resource, or one built by the program, as a pop-up at a point of the screen;
/// its MenuSelect comes from `window`. Nothing for a menu that doesn't exist.
void yymnflot(int menu, int x, int y, int window);
void yymnflot(std::unique_ptr<MenuRecord> record, int x, int y, int window);

}  // namespace tesserakit
