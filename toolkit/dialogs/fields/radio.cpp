#include "toolkit/dialogs/fields/radio.hpp"

#include "toolkit/dialogs/fields/buttons.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/focus.hpp"
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

namespace {

void create_radio(FieldRecord& field) {
    create_button_widget(field, xmToggleButtonWidgetClass, toggle_arguments(field, true));
    XtAddCallback(field.widget, XmNvalueChangedCallback, radio_pressed, &field);
}

/// The button that the Tab key stops at: the one that is set.
FieldRecord& set_radio_of(FieldRecord& field) {
    const std::vector<FieldRecord*> group = radio_group(field);
    for (FieldRecord* radio : group)
        if (toggle_is_set(*radio) && can_focus(*radio)) return *radio;
    return field;
}

constexpr char radio_keys[] =
    "<Key>osfLeft: yyDGKeyTrans(C,b)\n"
    "<Key>osfUp: yyDGKeyTrans(C,b)\n"
    "<Key>osfRight: yyDGKeyTrans(C,f)\n"
    "<Key>osfDown: yyDGKeyTrans(C,f)\n";

std::string radio_keys_of(const FieldRecord&) { return radio_keys; }

void step_by_key(FieldRecord& field, char, bool forward, const XEvent&) {
    const std::vector<FieldRecord*> group = radio_group(field);
    const std::size_t count = group.size();
    auto i = static_cast<std::size_t>(std::ranges::find(group, &field) - group.begin());
    for (std::size_t steps = 1; steps < count; ++steps) {
        i = (i + (forward ? 1 : count - 1)) % count;
        if (!can_focus(*group[i])) continue;
        XmProcessTraversal(group[i]->focus_widget, XmTRAVERSE_CURRENT);
        set_radio(*group[i]);
        return post_changed(*group[i]);
    }
}

}  // namespace

const FieldKind radio_kind{
    .create = create_radio,
    .text = label_text,
    .put_text = put_label_text,
    .wanted_width = toggle_width,
    .tab_stop = set_radio_of,
    .keys = radio_keys_of,
    .key = step_by_key,
    .marks_mnemonic = true,
};

}  // namespace tesserakit
