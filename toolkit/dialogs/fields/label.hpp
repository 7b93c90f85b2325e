/// Labels.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Lines of text that a label has room for.
int label_lines(const FieldRecord& field);

}  // namespace tesserakit
