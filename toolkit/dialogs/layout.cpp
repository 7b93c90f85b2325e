#include "toolkit/dialogs/layout.hpp"

#include "toolkit/dialogs/fields/combo.hpp"
#include "toolkit/dialogs/fields/tab.hpp"
#include "toolkit/dialogs/resize.hpp"
#include "toolkit/widgets/placement.hpp"

#include <Xm/Xm.h>

namespace tesserakit {
namespace {

void configure(Widget widget, const Box& box) {
    place(widget, box.x, box.y, box.width, box.height);
}

Box widget_box(const FieldRecord& field) {
    Box box = field.box;
    if (field.type == FieldType::Combo) box.height = closed_combo_height(field);
    return box;
}

}  // namespace

void lay_out_fields(DialogRecord& dialog) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(dialog.widget, XmNwidth, &width, XmNheight, &height, nullptr);
    dialog.width = width;
    dialog.height = height;
    for (FieldRecord& field : dialog.fields) {
        field.box = resized_box(field.loaded_box, field.right_margin, field.bottom_margin,
                                field.resize_mask, width, height);
        if (field.position_widget) configure(field.position_widget, widget_box(field));
        if (field.type == FieldType::Tab) place_pages(field);
    }
}

}  // namespace tesserakit
