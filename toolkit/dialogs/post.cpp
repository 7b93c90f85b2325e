#include "toolkit/dialogs/post.hpp"

namespace tesserakit {
namespace {

struct State {
    int last_exit_dialog = 0;  // identifier
    std::optional<int> common_exit;
};
constinit State state{};

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

void note_exit(const DialogRecord& dialog) {
    state.last_exit_dialog = dialog.identifier;
    state.common_exit.reset();
}

void note_common_exit(int button) { state.common_exit = button; }

std::optional<int> common_exit() { return state.common_exit; }

int last_exit_dialog() { return state.last_exit_dialog; }

}  // namespace tesserakit
