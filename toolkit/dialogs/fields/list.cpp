#include "toolkit/base/colours.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/menu.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/widgets/list_items.hpp"

#include <Xm/List.h>
#include <Xm/ScrolledW.h>

#include <algorithm>

namespace tesserakit {
namespace {

void create_list(FieldRecord& field) {
    Arguments frame = placed(field.box);
    frame(XmNscrollingPolicy, XmAPPLICATION_DEFINED)(XmNvisualPolicy, XmVARIABLE);
    frame(XmNscrollBarDisplayPolicy, XmAS_NEEDED)(XmNspacing, 1);
    field.position_widget =
        frame.create("scrolled", xmScrolledWindowWidgetClass, field.dialog->widget);
    Arguments args;
    args(XmNrenderTable, wFonts.dialog.table)(XmNselectionPolicy, XmBROWSE_SELECT);
    args(XmNlistSizePolicy, XmCONSTANT)(XmNscrollBarDisplayPolicy, XmAS_NEEDED);
    args(XmNhighlightThickness, 1)(XmNbackground, wSchemeCol.field);
    field.widget = args.create("list", xmListWidgetClass, field.position_widget);
    field.focus_widget = field.widget;
    XtManageChild(field.widget);
    if (field.type == FieldType::List) fill_menu(field);
    XtAddCallback(field.widget, XmNbrowseSelectionCallback, changed, &field);
}

}  // namespace

namespace {

/// Scrolls so far that the selected item is in sight and no line stays empty that an item could
/// fill. Before the list has its size it shows a line or two, and scrolls too far.
void show_selected(FieldRecord& field) {
    int top = 0;
    int visible = 0;
    XtVaGetValues(field.widget, XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, nullptr);
    if (visible < 1) return;
    const int option = selected_item(field.widget);
    int wanted = option > 0 ? std::clamp(top, std::max(1, option - visible + 1), option) : top;
    wanted = std::min(wanted, std::max(1, item_count(field.widget) - visible + 1));
    if (wanted != top) XmListSetPos(field.widget, wanted);
}

std::string selected_text(Widget list) { return item_text(list, selected_item(list)); }

constexpr MenuOperations list_menu{set_items, item_count, selected_item, select_item,
                                   selected_text};

}  // namespace

const FieldKind list_kind{
    .create = create_list,
    .fit = show_selected,
    .menu = &list_menu,
};

}  // namespace tesserakit
