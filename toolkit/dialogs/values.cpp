// The calls on the texts and states of fields of any kind.

#include "common/fixed_text.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/dialogs/validity.hpp"
#include "toolkit/tesserakit.hpp"

namespace tesserakit {

namespace {

bool shows_text(const FieldKind& kind) { return kind.text != nullptr; }

}  // namespace

void wdialoggetstring(int identifier, std::string& text) {
    const FieldRecord* field = current_field_with(identifier, shows_text, "WDialogGetString");
    if (field) text = without_trailing_blanks(widget_text(*field));
}

void wdialoggetstringlength(int identifier, int& length) {
    const FieldRecord* field = current_field_with(identifier, shows_text, "WDialogGetStringLen");
    if (field) length = static_cast<int>(trimmed_length(widget_text(*field)));
}

void wdialogputstring(int identifier, std::string_view text) {
    FieldRecord* field = current_field_with(identifier, shows_text, "WDialogPutString");
    if (!field) return;
    const Suppression quiet(*field->dialog);
    set_widget_text(*field, std::string(without_trailing_blanks(text)));
    if (field->numeric) field->numeric->text_changed = true;
    release_invalid(*field);
}

void wdialogfieldstate(int identifier, int state) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), "WDialogFieldState");
    if (!field || state < FieldDisabled || state > FieldHidden) return;
    const Suppression quiet(*field->dialog);
    apply_state(*field, state);
    if (kind_of(*field).fit) kind_of(*field).fit(*field);
    restack(*field->dialog);
}

}  // namespace tesserakit
