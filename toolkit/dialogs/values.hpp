/// What the widgets of fields show, of whatever kind. No call here raises a message.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

std::string widget_text(const FieldRecord& field);
void set_widget_text(FieldRecord& field, const std::string& text);
/// FieldDisabled and the like.
void apply_state(FieldRecord& field, int state);

}  // namespace tesserakit
