/// What the keys do in dialogs.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Makes yyDGKeyTrans known, so that translations can name it. Needs the display.
void register_keys();
/// Installs the keys of a field on its widgets, and those of a dialog on it and its shell.
void install_keys(FieldRecord& field);
void install_keys(DialogRecord& dialog);

}  // namespace tesserakit
