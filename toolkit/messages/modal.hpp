/// Modal loops, the semi-modal chain, and which events may pass meanwhile.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern bool bModalMessageLoop;  ///< cleared by the button that ends the innermost loop
extern int nModalWindows;       ///< loops that are running
extern int wObjCur;             ///< object of the semi-modal state
extern int wObjCurType;         ///< 0 none, 1 window slot, 2 dialog slot

/// Runs a loop of its own for `widget` (a dialog's or common dialog's) until bModalMessageLoop is
/// cleared. `index` is its dialog slot, -1 for a common dialog. Messages meanwhile are dropped.
void yyMSModalMessageLoop(Widget widget, int index);

/// Direction 1 enters semi-modal state with an object (type 1 window slot, 2 dialog slot), -1
/// leaves it; objects may leave in any order.
void yyMSSemiAddRemove(int direction, int object_type, int object);

/// Whether an event may go on: false for input to what a modal or semi-modal object locks out.
bool yyMSCheckWinDiag(XEvent& event);

/// The widget of the innermost modal loop, null without one.
Widget top_modal_widget();

/// Copies what the client areas show (true), so that the toolkit can repair them during a modal
/// loop, and drops the copies again (false). Calls nest. When the server lacks room an error is
/// left, and the areas stay blank until the application draws them.
void yygetwindowbitmap(bool take);
/// wBlitOn: repairs a client area or user-drawn field from its copy; false if there is none.
bool repair_from_snapshot(Window window, const XExposeEvent& event);

}  // namespace tesserakit
