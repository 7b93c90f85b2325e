#include "toolkit/dialogs/fields/text.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/create.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/validity.hpp"
#include "toolkit/dialogs/values.hpp"

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

}  // namespace

void typed(Widget, XtPointer client, XtPointer) {
    FieldRecord& field = field_of(client);
    if (!field.numeric || field.dialog->posting.suppression > 0) return;
    field.numeric->text_changed = true;
    field.numeric->user_typed = true;
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

void forget_typing(const FieldRecord& field) {
    if (bInvalidField && field.dialog->current_field == &field) bInvalidField = false;
}

}  // namespace tesserakit
