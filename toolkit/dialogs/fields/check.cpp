#include "toolkit/dialogs/fields/buttons.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/ToggleB.h>

namespace tesserakit {
namespace {

void create_check(FieldRecord& field) {
    create_button_widget(field, xmToggleButtonWidgetClass, toggle_arguments(field, false));
    XtAddCallback(field.widget, XmNvalueChangedCallback, changed, &field);
}

}  // namespace

void wdialoggetcheckbox(int identifier, int& state) {
    const FieldRecord* field = current_field(identifier, FieldType::Check, "WDialogGetCheckBox");
    if (field) state = toggle_is_set(*field) ? 1 : 0;
}

void wdialogputcheckbox(int identifier, int state) {
    FieldRecord* field = current_field(identifier, FieldType::Check, "WDialogPutCheckBox");
    if (field) set_toggle(*field, state != 0);
}

const FieldKind check_kind{
    .create = create_check,
    .text = label_text,
    .put_text = put_label_text,
    .wanted_width = toggle_width,
    .marks_mnemonic = true,
};

}  // namespace tesserakit
