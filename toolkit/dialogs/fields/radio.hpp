/// Groups of radio buttons.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// The radio buttons of the group that a radio button belongs to, in order.
std::vector<FieldRecord*> radio_group(FieldRecord& radio);
/// Sets one and clears the others.
void set_radio(FieldRecord& radio);

}  // namespace tesserakit
