#include "toolkit/dialogs/exit.hpp"

#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/messages/modal.hpp"

namespace tesserakit {

namespace {

constexpr int cancel_button = 2;

}  // namespace

int focused_identifier(const DialogRecord& dialog, int otherwise) {
    return dialog.current_field ? dialog.current_field->identifier : otherwise;
}

void yyDGFieldButtonMessage(DialogRecord& dialog, int button, int field) {
    post(dialog, dialog_mail(PushButton, dialog, button, field));
    if (bInvalidField && button != invalid_field_help_button) return;
    note_exit(dialog);
    DialogRecord& outer = outermost(dialog);
    if (outer.show_mode != DialogModal || top_modal_widget() != outer.widget) return;
    hide_dialog_record(outer);
    bModalMessageLoop = false;
}

void cancel_dialog(DialogRecord& dialog) {
    DialogRecord& outer = outermost(dialog);
    revert_typing(outer);
    yyDGFieldButtonMessage(outer, cancel_button, focused_identifier(outer, cancel_button));
}

}  // namespace tesserakit
