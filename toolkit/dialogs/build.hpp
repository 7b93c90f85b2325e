/// The widgets of a dialog.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yyDGDialogCreate: the widget of a dialog (and its shell, without a `parent`) and of its fields.
void create_widgets(DialogRecord& dialog, Widget parent);
/// Destroys them, unless a window has taken them along already.
void destroy_widgets(DialogRecord& dialog);

}  // namespace tesserakit
