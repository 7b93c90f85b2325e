/// Where the fields of a dialog stand.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yyDGFieldUpdateSize: places the fields for the present size of the dialog's widget.
void lay_out_fields(DialogRecord& dialog);
/// Puts group boxes and tabs behind the fields that stand in them. The widgets are realized.
void restack(DialogRecord& dialog);
/// The same for a dialog and the pages of its tabs.
void restack_all(DialogRecord& dialog);

}  // namespace tesserakit
