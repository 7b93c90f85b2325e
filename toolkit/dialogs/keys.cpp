#include "toolkit/dialogs/keys.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/exit.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/focus.hpp"

#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <string>

namespace tesserakit {
namespace {

constexpr int ok_button = 1;

void activate(const FieldRecord& button, XEvent* event) {
    XtCallActionProc(button.widget, xt_name("ArmAndActivate"), event, nullptr, 0);
}

/// Return: the button with the focus, else the default button, else OK.
void press_default(DialogRecord& dialog, FieldRecord* focus, XEvent* event) {
    if (!commit_typing()) return;
    if (focus && kind_of(*focus).pressed_by_keys) return activate(*focus, event);
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
    if (i == fields.size() || !commit_typing()) return;
    enter_by_key(tab_target(fields[i]));
    if (kind_of(fields[i]).pressed_by_keys) activate(fields[i], event);
}

void shortcut(DialogRecord& dialog, XEvent* event) {
    const KeySym key = XLookupKeysym(&event->xkey, 0);
    if (key == XK_Escape) {
        revert_focused(dialog);
        return cancel_dialog(dialog);
    }
    if (key <= XK_space || key > XK_asciitilde) return;
    char letter = static_cast<char>(key);
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    FieldRecord* field = field_with_mnemonic(dialog, letter);
    if (!field) field = field_with_mnemonic(outermost(dialog), letter);
    if (field) use_mnemonic(*field, event);
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
        case 's':
            return shortcut(*dialog, event);
        default:
            if (field && kind_of(*field).key)
                kind_of(*field).key(*field, parameters[0][0], forward, *event);
    }
}

// Motif gives the Enter key of the keypad its own name.
constexpr char dialog_keys[] =
    "<Key>Return: yyDGKeyTrans(r)\n"
    "<Key>KP_Enter: yyDGKeyTrans(r)\n"
    "<Key>osfActivate: yyDGKeyTrans(r)\n"
    "Alt<Key>: yyDGKeyTrans(s)\n"
    "<Key>osfCancel: yyDGKeyTrans(s)\n";

// With Shift the Tab key is ISO_Left_Tab on today's keyboards.
constexpr char field_keys[] =
    "Shift<Key>Tab: yyDGKeyTrans(t,b)\n"
    "Shift<Key>ISO_Left_Tab: yyDGKeyTrans(t,b)\n"
    "<Key>Tab: yyDGKeyTrans(t,f)\n";

/// Keys of a field, the special ones first: in one table the first that matches counts.
std::string keys_of(const FieldRecord& field) {
    const auto keys = kind_of(field).keys;
    return (keys ? keys(field) : std::string()) + field_keys + dialog_keys;
}

void install(Widget widget, const std::string& keys) {
    XtOverrideTranslations(widget, XtParseTranslationTable(keys.c_str()));
}

}  // namespace

void register_keys() {
    XtActionsRec action{xt_name("yyDGKeyTrans"), yyDGKeyTrans};
    XtAppAddActions(yydisplay.app, &action, 1);
}

void install_keys(FieldRecord& field) {
    // Where no field of the dialog can have the focus, the keys come to what is under the pointer.
    if (!field.focus_widget) {
        for (const Widget widget : {field.position_widget, field.widget})
            install(widget, std::string(field_keys) + dialog_keys);
        return;
    }
    install(field.focus_widget, keys_of(field));
}

void install_keys(DialogRecord& dialog) {
    const std::string keys = std::string(field_keys) + dialog_keys;
    install(dialog.widget, keys);
    if (dialog.shell) install(dialog.shell, keys);
}

}  // namespace tesserakit
