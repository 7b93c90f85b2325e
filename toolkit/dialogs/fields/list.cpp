#include "toolkit/base/colours.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/create.hpp"
#include "toolkit/dialogs/fields/menu.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/List.h>
#include <Xm/ScrolledW.h>

namespace tesserakit {

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

}  // namespace tesserakit
