#include "toolkit/dialogs/fields/text.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/ScrolledW.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include <algorithm>

namespace tesserakit {
namespace {

/// Keeps what is typed, and lets asterisks through.
void hide_password(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    auto& change = *static_cast<XmTextVerifyCallbackStruct*>(call);
    const auto size = static_cast<long>(field.password.size());
    const auto start = static_cast<std::size_t>(std::clamp(change.startPos, 0L, size));
    const auto end = static_cast<std::size_t>(std::clamp(change.endPos, 0L, size));
    const auto length = static_cast<std::size_t>(std::max(0, change.text->length));
    field.password.replace(start, end - start, change.text->ptr ? change.text->ptr : "", length);
    if (change.text->ptr) std::fill_n(change.text->ptr, length, '*');
}

void create_multi_line(FieldRecord& field) {
    Arguments frame = placed(field.box);
    frame(XmNscrollingPolicy, XmAPPLICATION_DEFINED)(XmNscrollBarDisplayPolicy, XmSTATIC);
    frame(XmNvisualPolicy, XmVARIABLE);
    field.position_widget =
        frame.create("scrolled", xmScrolledWindowWidgetClass, field.dialog->widget);
    Arguments args = text_arguments(field);
    args(XmNeditMode, XmMULTI_LINE_EDIT);
    args(XmNscrollHorizontal, field.has_style(field_style::horizontal_scroll));
    args(XmNwordWrap, !field.has_style(field_style::horizontal_scroll));
    field.widget = args.create("text", xmTextWidgetClass, field.position_widget);
    XtManageChild(field.widget);
}

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

}  // namespace

void typed(Widget, XtPointer client, XtPointer) {
    FieldRecord& field = field_of(client);
    if (!field.numeric || field.dialog->posting.suppression > 0) return;
    field.numeric->text_changed = true;
}

Arguments text_arguments(const FieldRecord& field) {
    constexpr int frame = 2;
    Arguments args;
    args(XmNrenderTable, wFonts.dialog.table)(XmNshadowThickness, frame);
    args(XmNhighlightThickness, 0)(XmNmarginWidth, 3)(XmNcursorPositionVisible, False);
    args(XmNmarginHeight, text_margin(field.box.height, frame));
    if (field.has_style(field_style::read_only)) {
        args(XmNeditable, False);
        args(XmNbackground, wSchemeCol.background);
    } else {
        args(XmNbackground, wSchemeCol.field);
    }
    int length = 0;
    yyrcfieldlength(field.dialog->identifier, field.identifier, length);
    if (length > 0) args(XmNmaxLength, length);
    return args;
}

void create_text(FieldRecord& field) {
    if (field.type == FieldType::String && field.has_style(field_style::multi_line)) {
        create_multi_line(field);
    } else {
        Arguments args = text_arguments(field);
        args(XmNx, field.box.x)(XmNy, field.box.y);
        args(XmNwidth, field.box.width)(XmNheight, field.box.height);
        field.widget = args.create("text", xmTextFieldWidgetClass, field.dialog->widget);
        field.position_widget = field.widget;
    }
    field.focus_widget = field.widget;
    if (field.type == FieldType::String && field.has_style(field_style::password))
        XtAddCallback(field.widget, XmNmodifyVerifyCallback, hide_password, &field);
    XtAddCallback(field.widget, XmNvalueChangedCallback, typed, &field);
    const Suppression quiet(*field.dialog);
    set_widget_text(field, field.text);
}

std::string typed_text(const FieldRecord& field) {
    return field.password.empty() ? taken(XmTextGetString(field.widget)) : field.password;
}

void put_typed_text(FieldRecord& field, const std::string& text) {
    field.password.clear();
    XmTextSetString(field.widget, xt_name(to_locale(text)));
}

void set_text_read_only(FieldRecord& field, bool read_only) {
    XmTextSetEditable(field.widget, read_only ? False : True);
}

void select_text(FieldRecord& field) {
    if (field.has_style(field_style::multi_line) && field.type == FieldType::String) return;
    const XmTextPosition end = XmTextGetLastPosition(field.widget);
    XmTextSetInsertionPosition(field.widget, end);
    XmTextSetSelection(field.widget, 0, end, XtLastTimestampProcessed(yydisplay.display));
}

std::string text_keys(const FieldRecord& field) {
    std::string keys;
    if (field.type == FieldType::String && field.has_style(field_style::multi_line))
        keys += multi_line_keys;
    keys += string_keys;
    // A spinner's arrow keys take the big step with Control held.
    if ((field.third_style & field_style::third_spinner) == 0) keys += control_keys;
    return keys;
}

void edit_by_key(FieldRecord& field, char key, bool, const XEvent& event) {
    const Widget text = field.widget;
    const Time time = event.xkey.time;
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

const FieldKind string_kind{
    .create = create_text,
    .text = typed_text,
    .put_text = put_typed_text,
    .set_read_only = set_text_read_only,
    .entered_by_key = select_text,
    .keys = text_keys,
    .key = edit_by_key,
};

}  // namespace tesserakit
