#include "toolkit/dialogs/values.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/build.hpp"
#include "toolkit/dialogs/fields/tab.hpp"
#include "toolkit/dialogs/fields/text.hpp"
#include "toolkit/widgets/combo.hpp"
#include "toolkit/widgets/grid.hpp"

#include <Xm/Label.h>
#include <Xm/Text.h>

namespace tesserakit {
namespace {

constexpr FieldTypes labelled_fields{FieldType::Label, FieldType::Group, FieldType::Button,
                                     FieldType::Check, FieldType::Radio};
constexpr FieldTypes text_fields{
    FieldType::String, FieldType::Integer, FieldType::Real,  FieldType::Double, FieldType::Label,
    FieldType::Group,  FieldType::Button,  FieldType::Check, FieldType::Radio,  FieldType::Combo};

void set_label(FieldRecord& field, const std::string& text) {
    // A group without a title label has its frame alone.
    if (!XmIsLabel(field.widget)) return;
    const CompoundText label(text);
    XtVaSetValues(field.widget, XmNlabelString, label.get(), nullptr);
}

}  // namespace

std::string widget_text(const FieldRecord& field) {
    if (!field.password.empty()) return field.password;
    if (typed_fields.has(field.type)) return taken(XmTextGetString(field.widget));
    if (field.type == FieldType::Combo) return taken(XmTextGetString(combo_text(field.widget)));
    return field.text;
}

void set_widget_text(FieldRecord& field, const std::string& text) {
    char* const value = xt_name(text);
    if (typed_fields.has(field.type))
        XmTextSetString(field.widget, value);
    else if (field.type == FieldType::Combo)
        XmTextSetString(combo_text(field.widget), value);
    else
        set_label(field, text);
    if (labelled_fields.has(field.type)) field.text = text;
}

void apply_state(FieldRecord& field, int state) {
    // A greyed grid can still be scrolled: its scrolled window stays as it is.
    const Widget greyed = field.type == FieldType::Grid ? field.widget : field.position_widget;
    if (!greyed) return;
    XtSetSensitive(greyed, state == FieldDisabled ? False : True);
    const bool read_only = state == FieldReadOnly;
    if (typed_fields.has(field.type)) XmTextSetEditable(field.widget, read_only ? False : True);
    if (field.type == FieldType::Grid) grid_set_read_only(field.widget, read_only);
    if (state == FieldHidden)
        XtUnmanageChild(field.position_widget);
    else
        XtManageChild(field.position_widget);
    field.state = state;
}

void wdialoggetstring(int identifier, std::string& text) {
    const FieldRecord* field = current_field(identifier, text_fields, "WDialogGetString");
    if (field) text = without_trailing_blanks(widget_text(*field));
}

void wdialoggetstringlength(int identifier, int& length) {
    const FieldRecord* field = current_field(identifier, text_fields, "WDialogGetStringLen");
    if (field) length = static_cast<int>(trimmed_length(widget_text(*field)));
}

void wdialogputstring(int identifier, std::string_view text) {
    FieldRecord* field = current_field(identifier, text_fields, "WDialogPutString");
    if (!field) return;
    const Suppression quiet(*field->dialog);
    field->password.clear();
    set_widget_text(*field, std::string(without_trailing_blanks(text)));
    if (field->numeric) field->numeric->text_changed = true;
    forget_typing(*field);
}

void wdialogfieldstate(int identifier, int state) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), "WDialogFieldState");
    if (!field || state < FieldDisabled || state > FieldHidden) return;
    const Suppression quiet(*field->dialog);
    apply_state(*field, state);
    if (field->type == FieldType::Tab) place_pages(*field);
    restack(*field->dialog);
}

}  // namespace tesserakit
