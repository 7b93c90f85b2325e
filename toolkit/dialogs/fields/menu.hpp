/// Options of combos and lists.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// The options that the resource has for the field.
void fill_menu(FieldRecord& field);

}  // namespace tesserakit
