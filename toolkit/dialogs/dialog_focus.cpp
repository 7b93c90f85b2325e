// Who has the focus, what the keys do, and what becomes of a number when the focus leaves it.
//
// Motif tells of the focus by FocusIn on the widget that gets it. Only then is the field that has
// lost it looked at: a bad number marks that field, and the focus goes back to it as soon as the
// event is done with.

#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/dialogs/dialogs.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/widgets/placement.hpp"

#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <Xm/PushB.h>
#include <Xm/Text.h>

#include <algorithm>

namespace tesserakit {
namespace {

constexpr int ok_button = 1;
constexpr int cancel_button = 2;

constexpr FieldTypes typed_fields{FieldType::String, FieldType::Integer, FieldType::Real,
                                  FieldType::Double};

struct State {
    FieldRecord* active = nullptr;    // got the focus last, in any dialog
    FieldRecord* invalid = nullptr;   // holds a bad number
    XtIntervalId give_back = 0;       // takes the focus back to it
    FieldRecord* intruder = nullptr;  // has the focus meanwhile
    bool bFocusChange = false;        // the toolkit moves the focus, not the user
};
State& state = *new State;

// Validation

bool same_window(const FieldRecord& a, const FieldRecord& b) {
    return &outermost(*a.dialog) == &outermost(*b.dialog);
}

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

void hold_invalid(FieldRecord& field) {
    bInvalidField = true;
    state.invalid = &field;
    if (!state.give_back)
        state.give_back = XtAppAddTimeOut(yydisplay.app, 0, give_focus_back, nullptr);
}

void release_invalid(const FieldRecord& field) {
    if (state.invalid && state.invalid != &field) return;
    state.invalid = nullptr;
    bInvalidField = false;
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

// Moves of the focus

void yyDGDefaultButtonMove(FieldRecord& focus) {
    DialogRecord& dialog = *focus.dialog;
    FieldRecord* framed = focus.type == FieldType::Button ? &focus : dialog.default_button;
    if (framed == dialog.framed_button || !dialog.default_button) return;
    if (dialog.framed_button) yyDGDefaultButtonAddRemove(*dialog.framed_button, false);
    if (framed) yyDGDefaultButtonAddRemove(*framed, true);
}

void post_move(const FieldRecord* from, const FieldRecord& to) {
    const bool same_dialog = from && from->dialog == to.dialog;
    yyDGSendTesserakitMessage(&to.dialog->posting,
                              {.type = FieldChanged,
                               .value1 = same_dialog ? from->identifier : to.identifier,
                               .value2 = to.identifier,
                               .value3 = to.type == FieldType::Grid ? 0 : -1,
                               .value4 = -1,
                               .x = -1,
                               .y = -1,
                               .win = to.dialog->identifier});
}

void enter(FieldRecord& field) {
    DialogRecord& dialog = *field.dialog;
    state.active = &field;
    if (dialog.current_field != &field) dialog.previous_field = dialog.current_field;
    dialog.current_field = &field;
    yyDGDefaultButtonMove(field);
}

/// yyDGFieldFocusCB. A move from another window of the desktop is no change inside a dialog: it
/// raises nothing.
void focus_entered(FieldRecord& field) {
    if (!outermost(*field.dialog).shown()) return;
    FieldRecord* from = state.active;
    state.intruder = &field;
    if (state.invalid && state.invalid != &field && !validate(*state.invalid)) return;
    if (from == &field) return;
    if (from && same_window(*from, field) && !validate(*from)) return;
    const bool told = from && same_window(*from, field) && !state.bFocusChange;
    enter(field);
    if (told) post_move(from, field);
}

/// The caret is shown in the field that has the focus only.
void show_caret(const FieldRecord& field, bool show) {
    if (typed_fields.has(field.type))
        XtVaSetValues(field.widget, XmNcursorPositionVisible, show ? True : False, nullptr);
}

void yyDGFieldChangeFocusEH(Widget, XtPointer client, XEvent* event, Boolean*) {
    FieldRecord& field = *static_cast<FieldRecord*>(client);
    // Also the window under the pointer hears when the focus comes to the window around it.
    const int detail = event->xfocus.detail;
    if (detail == NotifyPointer || detail == NotifyPointerRoot) return;
    const bool in = event->type == FocusIn;
    show_caret(field, in && field.state == FieldEnabled);
    if (in) focus_entered(field);
}

/// The radio button of a group that the Tab key goes to: the one that is set.
FieldRecord& tab_target(FieldRecord& field) {
    if (field.type != FieldType::Radio) return field;
    for (FieldRecord* radio : radio_group(field))
        if (toggle_is_set(*radio) && can_focus(*radio)) return *radio;
    return field;
}

/// The fields that the Tab key stops at, and among them `from`, which needs no tab stop: a click
/// gives the focus to any field.
void append_stops(DialogRecord& dialog, const FieldRecord* from, std::vector<FieldRecord*>& stops) {
    for (FieldRecord& field : dialog.fields) {
        const bool here = &field == from && field.type != FieldType::Radio;
        if ((here || field.has_style(field_style::tab_stop)) && can_focus(field))
            stops.push_back(&tab_target(field));
        if (field.type != FieldType::Tab || field.pages.empty()) continue;
        const int slot = field.pages[static_cast<std::size_t>(field.front_page)].slot;
        if (slot >= 0) append_stops(wDialogInfo[static_cast<std::size_t>(slot)], from, stops);
    }
}

/// The field itself, or the button of its group that the Tab key stops at.
bool stands_for(FieldRecord& stop, FieldRecord& field) {
    if (&stop == &field) return true;
    if (stop.type != FieldType::Radio || field.type != FieldType::Radio ||
        stop.dialog != field.dialog)
        return false;
    const std::vector<FieldRecord*> group = radio_group(stop);
    return std::ranges::find(group, &field) != group.end();
}

/// In the order of the resource, the page in front behind its tab, around from the last to the
/// first.
void yyDGNextPreviousField(DialogRecord& dialog, FieldRecord* from, bool forward) {
    std::vector<FieldRecord*> stops;
    append_stops(outermost(dialog), from, stops);
    if (stops.empty()) return;
    if (!forward) std::ranges::reverse(stops);
    auto here = std::ranges::find_if(
        stops, [from](FieldRecord* stop) { return from && stands_for(*stop, *from); });
    if (here == stops.end() || ++here == stops.end()) here = stops.begin();
    XmProcessTraversal((*here)->focus_widget, XmTRAVERSE_CURRENT);
}

void step_radio(FieldRecord& field, bool forward) {
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

// Keys

void activate(const FieldRecord& button, XEvent* event) {
    XtCallActionProc(button.widget, xt_name("ArmAndActivate"), event, nullptr, 0);
}

int focused_identifier(const DialogRecord& dialog, int otherwise) {
    return dialog.current_field ? dialog.current_field->identifier : otherwise;
}

/// Return: the button with the focus, else the default button, else OK.
void press_default(DialogRecord& dialog, FieldRecord* focus, XEvent* event) {
    if (!commit_typing()) return;
    if (focus && focus->type == FieldType::Button) return activate(*focus, event);
    DialogRecord& outer = outermost(dialog);
    for (const DialogRecord* owner : {&dialog, &outer})
        if (owner->default_button && can_focus(*owner->default_button))
            return activate(*owner->default_button, event);
    yyDGFieldButtonMessage(outer, ok_button, focused_identifier(outer, ok_button));
}

FieldRecord* field_with_mnemonic(DialogRecord& dialog, char letter) {
    for (FieldRecord& field : dialog.fields)
        if (field.mnemonic == letter && field.state != FieldHidden) return &field;
    return nullptr;
}

/// yyDGFieldShortCutProc: a button is pressed, a label hands the focus to the next field.
void use_mnemonic(FieldRecord& field, XEvent* event) {
    std::vector<FieldRecord>& fields = field.dialog->fields;
    auto i = static_cast<std::size_t>(&field - fields.data());
    while (i < fields.size() && !can_focus(fields[i])) {
        if (fields[i].focus_widget) return;  // greyed
        ++i;
    }
    if (i == fields.size()) return;
    XmProcessTraversal(tab_target(fields[i]).focus_widget, XmTRAVERSE_CURRENT);
    if (fields[i].type == FieldType::Button && !bInvalidField) activate(fields[i], event);
}

void shortcut(DialogRecord& dialog, XEvent* event) {
    const KeySym key = XLookupKeysym(&event->xkey, 0);
    if (key == XK_Escape) {
        if (state.active && &outermost(*state.active->dialog) == &outermost(dialog))
            revert(*state.active);
        return cancel_dialog(dialog);
    }
    if (key <= XK_space || key > XK_asciitilde) return;
    char letter = static_cast<char>(key);
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    FieldRecord* field = field_with_mnemonic(dialog, letter);
    if (!field) field = field_with_mnemonic(outermost(dialog), letter);
    if (field) use_mnemonic(*field, event);
}

void edit_text(Widget text, char key, Time time) {
    switch (key) {
        case 'x':
            XmTextCut(text, time);
            break;
        case 'c':
            XmTextCopy(text, time);
            break;
        case 'v':
            XmTextPaste(text);
            break;
        case 'a':
            XmTextSetSelection(text, 0, XmTextGetLastPosition(text), time);
            break;
        case 'R':
        case 'T': {
            if (!XmTextGetEditable(text)) break;
            const XmTextPosition at = XmTextGetInsertionPosition(text);
            XmTextReplace(text, at, at, xt_name(key == 'R' ? "\n" : "\t"));
            XmTextSetInsertionPosition(text, at + 1);
            break;
        }
        case '4':
            XmTextScroll(text, -3);
            break;
        case '5':
            XmTextScroll(text, 3);
            break;
        default:
            break;  // other control keys do nothing
    }
}

void yyDGKeyTrans(Widget widget, XEvent* event, String* parameters, Cardinal* count) {
    if (*count == 0) return;
    DialogRecord* dialog = dialog_around(widget);
    if (!dialog) return;
    FieldRecord* field = field_around(widget);
    // Without a field of its own a key belongs to where the focus was last.
    if (!field) field = dialog->current_field;
    const bool forward = *count > 1 && parameters[1][0] == 'f';
    switch (parameters[0][0]) {
        case 'r':
            return press_default(*dialog, field, event);
        case 't':
            return yyDGNextPreviousField(*dialog, field, forward);
        case 'C':
            if (field && field->type == FieldType::Radio) step_radio(*field, forward);
            return;
        case 's':
            return shortcut(*dialog, event);
        default:
            if (field && typed_fields.has(field->type))
                edit_text(field->widget, parameters[0][0], event->xkey.time);
    }
}

// Translations

constexpr char dialog_keys[] =
    "<Key>Return: yyDGKeyTrans(r)\n"
    "<Key>KP_Enter: yyDGKeyTrans(r)\n"
    "Alt<Key>: yyDGKeyTrans(s)\n"
    "<Key>osfCancel: yyDGKeyTrans(s)\n";

// With Shift the Tab key is ISO_Left_Tab on today's keyboards.
constexpr char field_keys[] =
    "Shift<Key>Tab: yyDGKeyTrans(t,b)\n"
    "Shift<Key>ISO_Left_Tab: yyDGKeyTrans(t,b)\n"
    "<Key>Tab: yyDGKeyTrans(t,f)\n";

constexpr char string_keys[] =
    "Ctrl<Key>x: yyDGKeyTrans(x)\n"
    "Ctrl<Key>c: yyDGKeyTrans(c)\n"
    "Ctrl<Key>v: yyDGKeyTrans(v)\n"
    "Ctrl<Key>a: yyDGKeyTrans(a)\n";

// The cursor and deletion keys keep what Motif gives them with Control held.
constexpr char control_keys[] =
    "Ctrl<Key>osfLeft: backward-word()\n"
    "Ctrl<Key>osfRight: forward-word()\n"
    "Ctrl<Key>: yyDGKeyTrans(i)\n";

constexpr char multi_line_keys[] =
    "Ctrl<Key>Return: yyDGKeyTrans(R)\n"
    "Ctrl<Key>Tab: yyDGKeyTrans(T)\n"
    "<Btn4Down> : yyDGKeyTrans(4)\n"
    "<Btn5Down> : yyDGKeyTrans(5)\n";

constexpr char radio_keys[] =
    "<Key>osfLeft: yyDGKeyTrans(C,b)\n"
    "<Key>osfUp: yyDGKeyTrans(C,b)\n"
    "<Key>osfRight: yyDGKeyTrans(C,f)\n"
    "<Key>osfDown: yyDGKeyTrans(C,f)\n";

/// Keys of a field, the special ones first: in one table the first that matches counts.
std::string keys_of(const FieldRecord& field) {
    std::string keys;
    const bool spinner = (field.third_style & field_style::third_spinner) != 0;
    if (field.type == FieldType::String && field.has_style(field_style::multi_line))
        keys += multi_line_keys;
    if (field.type == FieldType::Radio) keys += radio_keys;
    if (typed_fields.has(field.type)) keys += string_keys;
    keys += std::string(field_keys) + dialog_keys;
    // A spinner's arrow keys take the big step with Control held.
    if (typed_fields.has(field.type) && !spinner) keys += control_keys;
    return keys;
}

void install(Widget widget, const std::string& keys) {
    static const bool known = [] {
        XtActionsRec action{xt_name("yyDGKeyTrans"), yyDGKeyTrans};
        XtAppAddActions(yydisplay.app, &action, 1);
        return true;
    }();
    if (known) XtOverrideTranslations(widget, XtParseTranslationTable(keys.c_str()));
}

}  // namespace

void watch_field(FieldRecord& field) {
    // Where no field of the dialog can have the focus, the keys come to what is under the pointer.
    if (!field.focus_widget) {
        for (const Widget widget : {field.position_widget, field.widget})
            install(widget, std::string(field_keys) + dialog_keys);
        return;
    }
    install(field.focus_widget, keys_of(field));
    XtAddEventHandler(field.focus_widget, FocusChangeMask, False, yyDGFieldChangeFocusEH, &field);
}

void watch_dialog(DialogRecord& dialog) {
    const std::string keys = std::string(field_keys) + dialog_keys;
    install(dialog.widget, keys);
    if (dialog.shell) install(dialog.shell, keys);
}

bool can_focus(const FieldRecord& field) {
    const DialogRecord& dialog = *field.dialog;
    const bool inside = field.box.x < dialog.width && field.box.y < dialog.height;
    return field.focus_widget && inside &&
           (field.state == FieldEnabled || field.state == FieldReadOnly) &&
           XtIsManaged(field.position_widget) && XtIsManaged(dialog.widget);
}

void move_focus(FieldRecord& field) {
    state.bFocusChange = true;
    XmProcessTraversal(field.focus_widget, XmTRAVERSE_CURRENT);
    state.bFocusChange = false;
}

FieldRecord* first_focus(DialogRecord& dialog) {
    std::vector<FieldRecord*> stops;
    append_stops(dialog, nullptr, stops);
    if (!stops.empty()) return stops.front();
    const auto any = std::ranges::find_if(dialog.fields, can_focus);
    return any == dialog.fields.end() ? nullptr : &*any;
}

bool commit_typing() { return !state.active || validate(*state.active); }

void revert_typing(DialogRecord& dialog) {
    FieldRecord* field = state.invalid ? state.invalid : state.active;
    if (!field || &outermost(*field->dialog) != &outermost(dialog) || !field->numeric) return;
    if (!text_is_valid(*field->numeric, widget_text(*field))) revert(*field);
}

void forget_focus(DialogRecord& dialog) {
    if (state.invalid && state.invalid->dialog == &dialog) release_invalid(*state.invalid);
    if (state.active && state.active->dialog == &dialog) state.active = nullptr;
    if (state.intruder && state.intruder->dialog == &dialog) state.intruder = nullptr;
}

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

void yyDGDefaultButtonAddRemove(FieldRecord& button, bool add) {
    XtVaSetValues(button.widget, XmNshowAsDefault, add ? 1 : 0, nullptr);
    button.dialog->framed_button = add ? &button : nullptr;
}

}  // namespace tesserakit
