/// Combos.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// A combo's height in the resource is that of its opened list; closed it takes one line of it.
int closed_combo_height(const FieldRecord& field);

}  // namespace tesserakit
