#include "toolkit/dialogs/layout.hpp"

#include "toolkit/dialogs/resize.hpp"
#include "toolkit/widgets/placement.hpp"

#include <Xm/Xm.h>

#include "toolkit/dialogs/fields/field_kind.hpp"
namespace tesserakit {
namespace {

void configure(Widget widget, const Box& box) {
    place(widget, box.x, box.y, box.width, box.height);
}

Box widget_box(const FieldRecord& field) {
    Box box = field.box;
    if (const auto height = kind_of(field).height) box.height = height(field);
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
        if (const auto fit = kind_of(field).fit; fit && field.widget) fit(field);
    }
}

}  // namespace tesserakit
