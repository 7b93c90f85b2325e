/// The buttons that end a dialog.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Identifier of the field that has or had the focus, `otherwise` without one.
int focused_identifier(const DialogRecord& dialog, int otherwise);
/// A button was pressed: PushButton, and the end of a modal dialog.
void yyDGFieldButtonMessage(DialogRecord& dialog, int button, int field);
/// The window manager's close, and Escape.
void cancel_dialog(DialogRecord& dialog);

}  // namespace tesserakit
