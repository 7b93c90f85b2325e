/// The modal stack, the semi-modal chain, and which events may pass meanwhile. The loops themselves
/// run in modal_loop.hpp.
#pragma once

#include "toolkit/base/mailbox.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Types of objects in the semi-modal chain.
inline constexpr int window_object = 1;
inline constexpr int dialog_object = 2;

extern bool bModalMessageLoop;  ///< cleared by the button that ends the innermost loop
extern int nModalWindows;       ///< loops that are running
extern int wObjCur;             ///< object of the semi-modal state
extern int wObjCurType;         ///< 0 none, 1 window slot, 2 dialog slot

/// The modal stack: adds the widget of a loop that begins, or takes away the innermost entry.
/// `index` is its dialog slot, -1 for a common dialog.
void yyMSModalAddRemove(Widget widget, int index, bool add);

/// Direction 1 enters semi-modal state with an object (type 1 window slot, 2 dialog slot), -1
/// leaves it; objects may leave in any order.
void yyMSSemiAddRemove(int direction, int object_type, int object);

/// Whether an event may go on: false for input to what a modal or semi-modal object locks out.
bool yyMSCheckWinDiag(XEvent& event);

/// The widget of the innermost modal loop, null without one.
Widget top_modal_widget();
/// Whether a widget stands in the shell of any loop that runs, or on one that hangs on it.
bool in_modal_stack(Widget widget);

/// Remembers where the user is at work: the window or dialog that a message comes from.
void note_command(const Mail& mail);
/// The widget that common dialogs hang on, always one that is on the screen if any is: the top
/// modal one, else the shell that the last command came from, the current window's, any window's.
Widget yyMSReturnCurrentUserWidget();

}  // namespace tesserakit
