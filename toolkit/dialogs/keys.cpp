#include "toolkit/dialogs/keys.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/fields/radio.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/post.hpp"

#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <Xm/Text.h>

#include <algorithm>

namespace tesserakit {
namespace {

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

constexpr int ok_button = 1;

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
