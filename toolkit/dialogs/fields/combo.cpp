#include "toolkit/dialogs/fields/combo.hpp"

#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/menu.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/units.hpp"
#include "toolkit/widgets/combo.hpp"

#include <Xm/ComboBox.h>
#include <Xm/Text.h>

#include <algorithm>

namespace tesserakit {
int closed_combo_height(const FieldRecord& field) {
    return std::min(field.box.height, pixels_down(12));
}

namespace {

void create_combo(FieldRecord& field) {
    Arguments args = placed_text(field.box);
    const bool fixed = (field.style & field_style::drop_down_list) == field_style::drop_down_list;
    args(XmNcomboBoxType, fixed ? XmDROP_DOWN_LIST : XmDROP_DOWN_COMBO_BOX);
    constexpr int arrow = 16;
    args(XmNmarginHeight, 0)(XmNmarginWidth, 0)(XmNshadowThickness, 1)(XmNhighlightThickness, 1);
    args(XmNarrowSize, arrow)(XmNarrowSpacing, 0);
    field.position_widget = args.create("combo", comboWidgetClass, field.dialog->widget);
    field.widget = field.position_widget;
    field.focus_widget = combo_text(field.widget);
    constexpr int frames = 3;  // of the combo and of its text
    XtVaSetValues(combo_text(field.widget), XmNrenderTable, wFonts.dialog.table, XmNmarginHeight,
                  text_margin(closed_combo_height(field), frames), XmNmarginWidth, 2,
                  XmNcursorPositionVisible, False, nullptr);
    XtVaSetValues(combo_list(field.widget), XmNrenderTable, wFonts.dialog.table, nullptr);
    fill_menu(field);
    XtAddCallback(field.widget, XmNselectionCallback, changed, &field);
}

std::string shown_option(Widget combo) { return taken(XmTextGetString(combo_text(combo))); }

std::string combo_shown_text(const FieldRecord& field) { return shown_option(field.widget); }

void put_combo_text(FieldRecord& field, const std::string& text) {
    XmTextSetString(combo_text(field.widget), xt_name(to_locale(text)));
}

constexpr MenuOperations combo_menu{combo_set_options, combo_count, combo_selected, combo_select,
                                    shown_option};

}  // namespace

const FieldKind combo_kind{
    .create = create_combo,
    .text = combo_shown_text,
    .put_text = put_combo_text,
    .height = closed_combo_height,
    .menu = &combo_menu,
};

}  // namespace tesserakit
