/// Loops of a modal dialog or common dialog.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Runs a loop of its own for `widget` (a dialog's or common dialog's) until bModalMessageLoop is
/// cleared. `index` is its dialog slot, -1 for a common dialog. Messages meanwhile are dropped, but
/// for damage and new sizes of other windows, which come after the loop; a message that waits when
/// the loop begins is there when it ends. An open menu is closed.
void yyMSModalMessageLoop(Widget widget, int index);

}  // namespace tesserakit
