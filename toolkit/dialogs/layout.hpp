/// Where the fields of a dialog stand.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yyDGFieldUpdateSize: places the fields for the present size of the dialog's widget.
void lay_out_fields(DialogRecord& dialog);

}  // namespace tesserakit
