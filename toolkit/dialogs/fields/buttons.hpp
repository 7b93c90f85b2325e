/// What push buttons, check boxes and radio buttons have in common.
#pragma once

#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// The widget with its text or picture, at its place.
Widget create_button_widget(FieldRecord& field, WidgetClass type, Arguments extra);
/// Arguments of a check box or a radio button.
Arguments toggle_arguments(const FieldRecord& field, bool radio);
/// Width of the text and the indicator.
int toggle_width(const FieldRecord& field);
void set_toggle(FieldRecord& field, bool set);
bool toggle_is_set(const FieldRecord& field);

}  // namespace tesserakit
