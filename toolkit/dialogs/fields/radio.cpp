#include "toolkit/dialogs/fields/radio.hpp"

#include "toolkit/dialogs/fields/buttons.hpp"
#include "toolkit/dialogs/fields/create.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/post.hpp"

#include <Xm/ToggleB.h>

#include <algorithm>

namespace tesserakit {
namespace {

/// yyDGIsStartRadioGroup
bool starts_group(const std::vector<FieldRecord>& fields, std::size_t i) {
    return i == 0 || fields[i].has_style(field_style::group_start) ||
           fields[i - 1].type != FieldType::Radio;
}

/// A click on the button that is set leaves it set.
void radio_pressed(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    const bool newly_set = static_cast<XmToggleButtonCallbackStruct*>(call)->set == XmSET;
    set_radio(field);
    if (newly_set) post_changed(field);
}

}  // namespace

std::vector<FieldRecord*> radio_group(FieldRecord& radio) {
    std::vector<FieldRecord>& fields = radio.dialog->fields;
    auto i = static_cast<std::size_t>(&radio - fields.data());
    while (!starts_group(fields, i)) --i;
    std::vector<FieldRecord*> group{&fields[i]};
    while (++i < fields.size() && fields[i].type == FieldType::Radio && !starts_group(fields, i))
        group.push_back(&fields[i]);
    return group;
}

void set_radio(FieldRecord& radio) {
    for (FieldRecord* other : radio_group(radio)) set_toggle(*other, other == &radio);
}

void create_radio(FieldRecord& field) {
    create_button_widget(field, xmToggleButtonWidgetClass, toggle_arguments(field, true));
    XtAddCallback(field.widget, XmNvalueChangedCallback, radio_pressed, &field);
}

void wdialoggetradiobutton(int identifier, int& ordinal) {
    FieldRecord* field = current_field(identifier, FieldType::Radio, "WDialogGetRadioButton");
    if (!field) return;
    const std::vector<FieldRecord*> group = radio_group(*field);
    const auto set = std::ranges::find_if(group, [](auto* radio) { return toggle_is_set(*radio); });
    ordinal = set == group.end() ? 0 : static_cast<int>(set - group.begin()) + 1;
}

void wdialogputradiobutton(int identifier) {
    FieldRecord* field = current_field(identifier, FieldType::Radio, "WDialogPutRadioButton");
    if (field) set_radio(*field);
}

}  // namespace tesserakit
