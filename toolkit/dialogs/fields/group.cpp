#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/Frame.h>
#include <Xm/Label.h>

namespace tesserakit {
namespace {

void create_group(FieldRecord& field) {
    Arguments args = placed(field.box);
    args(XmNshadowThickness, 2)(XmNshadowType, XmSHADOW_ETCHED_IN);
    field.position_widget = args.create("group", xmFrameWidgetClass, field.dialog->widget);
    field.widget = field.position_widget;
    if (field.text.empty()) return;
    const CompoundText text(field.text);
    Arguments title;
    title(XmNrenderTable, wFonts.dialog.table)(XmNlabelString, text.get());
    title(XmNframeChildType, XmFRAME_TITLE_CHILD)(XmNmarginHeight, 0)(XmNmarginWidth, 2);
    title(XmNchildVerticalAlignment, XmALIGNMENT_CENTER)(XmNchildHorizontalSpacing, 4);
    underline_mnemonic(field, title);
    field.widget = title.create("title", xmLabelWidgetClass, field.position_widget);
    XtManageChild(field.widget);
}

}  // namespace

const FieldKind group_kind{
    .create = create_group,
    .text = label_text,
    .put_text = put_label_text,
    .marks_mnemonic = true,
    .behind = true,
};

}  // namespace tesserakit
