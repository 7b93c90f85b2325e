#include "toolkit/dialogs/post.hpp"

#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/messages/modal.hpp"

namespace tesserakit {
namespace {

constexpr int cancel_button = 2;

struct State {
    int last_exit_dialog = 0;  // identifier
    std::optional<int> common_exit;
};
constinit State state{};

int focused_identifier(const DialogRecord& dialog, int otherwise) {
    return dialog.current_field ? dialog.current_field->identifier : otherwise;
}

}  // namespace

Mail dialog_mail(int type, const DialogRecord& dialog, int value1, int value2) {
    return {.type = type,
            .value1 = value1,
            .value2 = value2,
            .value3 = -1,
            .value4 = -1,
            .x = -1,
            .y = -1,
            .win = dialog.identifier};
}

void post(DialogRecord& dialog, const Mail& mail) {
    yyDGSendTesserakitMessage(&dialog.posting, mail);
}

void post_changed(FieldRecord& field) {
    post(*field.dialog,
         dialog_mail(FieldChanged, *field.dialog, field.identifier, field.identifier));
}

void yyDGFieldButtonMessage(DialogRecord& dialog, int button, int field) {
    post(dialog, dialog_mail(PushButton, dialog, button, field));
    if (bInvalidField && button != invalid_field_help_button) return;
    state.last_exit_dialog = dialog.identifier;
    state.common_exit.reset();
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

void note_common_exit(int button) { state.common_exit = button; }

std::optional<int> common_exit() { return state.common_exit; }

int last_exit_dialog() { return state.last_exit_dialog; }

}  // namespace tesserakit
