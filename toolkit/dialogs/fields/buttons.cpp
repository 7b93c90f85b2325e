#include "toolkit/dialogs/fields/buttons.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/exit.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/PushB.h>
#include <Xm/ToggleB.h>

namespace tesserakit {
namespace {

bool shows_image(FieldRecord& field) {
    if (!field.has_style(field_style::picture)) return false;
    constexpr int frame = 4;  // shadow, highlight and some room
    load_image(field, frame);
    return field.image.pixmap != 0;
}

void pressed(Widget, XtPointer client, XtPointer) {
    FieldRecord& field = field_of(client);
    const DialogRecord& dialog = *field.dialog;
    const FieldRecord* before =
        dialog.current_field == &field ? dialog.previous_field : dialog.current_field;
    yyDGFieldButtonMessage(*field.dialog, field.identifier,
                           before ? before->identifier : field.identifier);
}

}  // namespace

Widget create_button_widget(FieldRecord& field, WidgetClass type, Arguments extra) {
    Arguments args = placed_text(field.box);
    const CompoundText text(field.text);
    args(XmNlabelString, text.get())(XmNmarginHeight, 0)(XmNmarginWidth, 2);
    args(XmNrecomputeSize, False)(XmNhighlightThickness, 1)(XmNtraversalOn, True);
    underline_mnemonic(field, args);
    if (shows_image(field)) args(XmNlabelType, XmPIXMAP)(XmNlabelPixmap, field.image.pixmap);
    for (Cardinal i = 0; i < extra.count(); ++i) args(extra.data()[i].name, extra.data()[i].value);
    field.widget = args.create("button", type, field.dialog->widget);
    field.position_widget = field.widget;
    field.focus_widget = field.widget;
    return field.widget;
}

Arguments toggle_arguments(const FieldRecord& field, bool radio) {
    Arguments extra;
    if (field.has_style(field_style::picture)) {
        extra(XmNindicatorOn, XmINDICATOR_NONE)(XmNshadowThickness, 2)(XmNfillOnSelect, True);
        extra(XmNselectColor, wSchemeCol.select);
    } else {
        extra(XmNindicatorType, radio ? XmONE_OF_MANY_ROUND : XmN_OF_MANY);
        extra(XmNindicatorOn, radio ? XmINDICATOR_FILL : XmINDICATOR_CHECK_BOX);
        extra(XmNindicatorSize, wFonts.dialog.measures.ascent + 2)(XmNshadowThickness, 0);
        extra(XmNdetailShadowThickness, 1);
        extra(XmNselectColor, radio ? wSchemeCol.foreground : wSchemeCol.field);
        extra(XmNunselectColor, wSchemeCol.field);
        extra(XmNalignment, XmALIGNMENT_BEGINNING)(XmNspacing, 4);
    }
    extra(XmNset, field.initially_set ? XmSET : XmUNSET);
    return extra;
}

void set_toggle(FieldRecord& field, bool set) {
    XmToggleButtonSetState(field.widget, set ? True : False, False);
}

bool toggle_is_set(const FieldRecord& field) {
    return XmToggleButtonGetState(field.widget) != False;
}

int toggle_width(const FieldRecord& field) {
    constexpr int indicator_room = 10;
    return text_width(wFonts.dialog, field.text) + 1 + wFonts.dialog.measures.ascent +
           indicator_room;
}

namespace {

void create_push_button(FieldRecord& field) {
    Arguments extra;
    extra(XmNshadowThickness, 2);
    const Widget button = create_button_widget(field, xmPushButtonWidgetClass, extra);
    XtAddCallback(button, XmNactivateCallback, pressed, &field);
    if (field.has_style(field_style::default_button) && !field.dialog->default_button)
        field.dialog->default_button = &field;
}

}  // namespace

const FieldKind button_kind{
    .create = create_push_button,
    .text = label_text,
    .put_text = put_label_text,
    .marks_mnemonic = true,
    .pressed_by_keys = true,
};

}  // namespace tesserakit
