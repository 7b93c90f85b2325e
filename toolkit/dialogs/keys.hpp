/// What the keys do in dialogs.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Installs the keys of a field on its widgets, and those of a dialog on it and its shell.
void install_keys(FieldRecord& field);
void install_keys(DialogRecord& dialog);

}  // namespace tesserakit
