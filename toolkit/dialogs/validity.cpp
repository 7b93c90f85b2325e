#include "toolkit/dialogs/validity.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/widgets/placement.hpp"

#include <Xm/Xm.h>

namespace tesserakit {
namespace {

struct State {
    FieldRecord* invalid = nullptr;   // holds a bad number
    XtIntervalId give_back = 0;       // takes the focus back to it
    FieldRecord* intruder = nullptr;  // has the focus meanwhile
};
State& state = *new State;

void give_focus_back(XtPointer, XtIntervalId*) {
    state.give_back = 0;
    if (!state.invalid) return;
    FieldRecord& field = *state.invalid;
    const Widget shell = outermost(*field.dialog).shell;
    if (shell && state.intruder && !same_window(field, *state.intruder)) {
        XRaiseWindow(display_of(shell), window_of(shell));
        XSetInputFocus(display_of(shell), window_of(shell), RevertToParent, CurrentTime);
    }
    state.intruder = nullptr;
    XmProcessTraversal(field.focus_widget, XmTRAVERSE_CURRENT);
}

/// bInvalidField tells the mailbox; nothing else sets it.
void set_invalid(FieldRecord* field) {
    state.invalid = field;
    bInvalidField = field != nullptr;
}

void hold_invalid(FieldRecord& field) {
    set_invalid(&field);
    if (!state.give_back)
        state.give_back = XtAppAddTimeOut(yydisplay.app, 0, give_focus_back, nullptr);
}

}  // namespace

bool same_window(const FieldRecord& a, const FieldRecord& b) {
    return &outermost(*a.dialog) == &outermost(*b.dialog);
}

void release_invalid(const FieldRecord& field) {
    if (state.invalid == &field) set_invalid(nullptr);
}

/// yyDGFieldWidgetValidate
bool validate(FieldRecord& field) {
    if (!field.numeric) return true;
    NumericField& numeric = *field.numeric;
    const bool was_defined = numeric.defined;
    const double before = numeric.last_valid;
    if (!accept_text(numeric, widget_text(field))) {
        hold_invalid(field);
        return false;
    }
    release_invalid(field);
    if (numeric.defined != was_defined || (numeric.defined && numeric.last_valid != before))
        post_changed(field);
    return true;
}

void revert(FieldRecord& field) {
    if (!field.numeric) return;
    const Suppression quiet(*field.dialog);
    set_widget_text(field, yyDGFieldRevertToValid(*field.numeric));
    release_invalid(field);
}

bool locked_out(const FieldRecord& field) { return state.invalid && state.invalid != &field; }

FieldRecord* invalid_field() { return state.invalid; }

void note_intruder(FieldRecord& field) { state.intruder = &field; }

void forget_validity(DialogRecord& dialog) {
    if (state.invalid && state.invalid->dialog == &dialog) release_invalid(*state.invalid);
    if (state.intruder && state.intruder->dialog == &dialog) state.intruder = nullptr;
}

}  // namespace tesserakit
