#include "toolkit/dialogs/post.hpp"

#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/messages/modal.hpp"

namespace tesserakit {
namespace {

constexpr int cancel_button = 2;

struct State {
    int last_exit_dialog = 0;  // identifier
};
constinit State state{};

int focused_identifier(const DialogRecord& dialog, int otherwise) {
    return dialog.current_field ? dialog.current_field->identifier : otherwise;
}

}  // namespace

void post_changed(FieldRecord& field) {
    yyDGSendTesserakitMessage(&field.dialog->posting, {.type = FieldChanged,
                                                       .value1 = field.identifier,
                                                       .value2 = field.identifier,
                                                       .value3 = -1,
                                                       .value4 = -1,
                                                       .x = -1,
                                                       .y = -1,
                                                       .win = field.dialog->identifier});
}

void yyDGFieldButtonMessage(DialogRecord& dialog, int button, int field) {
    yyDGSendTesserakitMessage(&dialog.posting, {.type = PushButton,
                                                .value1 = button,
                                                .value2 = field,
                                                .value3 = -1,
                                                .value4 = -1,
                                                .x = -1,
                                                .y = -1,
                                                .win = dialog.identifier});
    if (bInvalidField && button != invalid_field_help_button) return;
    state.last_exit_dialog = dialog.identifier;
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

int last_exit_dialog() { return state.last_exit_dialog; }

}  // namespace tesserakit
