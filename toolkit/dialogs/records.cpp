#include "toolkit/dialogs/records.hpp"

#include "toolkit/base/errors.hpp"

#include <algorithm>

namespace tesserakit {

// Never destroyed: at exit the display may be gone.
std::array<DialogRecord, dialog_slots>& wDialogInfo = *new std::array<DialogRecord, dialog_slots>;
constinit int wDialog = -1;

DialogRecord& dialog_slot(int slot) { return wDialogInfo[static_cast<std::size_t>(slot)]; }

DialogRecord* loaded_dialog(int slot) {
    if (slot < 0 || slot >= dialog_slots || !dialog_slot(slot).loaded()) return nullptr;
    return &dialog_slot(slot);
}

int free_slot() {
    const auto found =
        std::ranges::find_if(wDialogInfo, [](const DialogRecord& d) { return !d.loaded(); });
    return found == wDialogInfo.end() ? -1 : static_cast<int>(found - wDialogInfo.begin());
}

DialogRecord& outermost(DialogRecord& dialog) {
    return dialog.is_page() ? outermost(*dialog.tab->dialog) : dialog;
}

int slot_of(const DialogRecord& dialog) { return static_cast<int>(&dialog - wDialogInfo.data()); }

DialogRecord* current_dialog(const char* routine) {
    DialogRecord* dialog = loaded_dialog(wDialog);
    if (!dialog) yyerror(NoDialogSelected, routine);
    return dialog;
}

FieldRecord* find_field(DialogRecord& dialog, int identifier) {
    const auto found = std::ranges::find(dialog.fields, identifier, &FieldRecord::identifier);
    return found == dialog.fields.end() ? nullptr : &*found;
}

FieldRecord* current_field(int identifier, FieldTypes allowed, const char* routine) {
    DialogRecord* dialog = current_dialog(routine);
    if (!dialog) return nullptr;
    FieldRecord* field = find_field(*dialog, identifier);
    if (field && field->widget && allowed.has(field->type)) return field;
    yyerror(InvalidField, routine, identifier);
    return nullptr;
}

DialogRecord* dialog_around(Widget widget) {
    for (; widget; widget = (XtParent)(widget)) {
        for (DialogRecord& dialog : wDialogInfo)
            if (dialog.loaded() && (dialog.widget == widget || dialog.shell == widget))
                return &dialog;
        // A list that a combo has opened is a window of its own.
        if (XtIsShell(widget)) return nullptr;
    }
    return nullptr;
}

FieldRecord* field_around(Widget widget) {
    DialogRecord* dialog = dialog_around(widget);
    for (; dialog && widget && widget != dialog->widget; widget = (XtParent)(widget))
        for (FieldRecord& field : dialog->fields)
            if (field.position_widget == widget) return &field;
    return nullptr;
}

int yyDGslot(int identifier) {
    if (identifier == -1) return -1;
    const auto found = std::ranges::find(wDialogInfo, identifier, &DialogRecord::identifier);
    return found == wDialogInfo.end() ? -1 : static_cast<int>(found - wDialogInfo.begin());
}

}  // namespace tesserakit
