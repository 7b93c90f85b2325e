#include "toolkit/dialogs/layout.hpp"

#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/resize.hpp"
#include "toolkit/widgets/placement.hpp"

#include <Xm/Xm.h>

#include <algorithm>
#include <vector>

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

void restack(DialogRecord& dialog) {
    std::vector<FieldRecord*> behind;
    for (FieldRecord& field : dialog.fields)
        if (kind_of(field).behind && field.position_widget && XtIsRealized(field.position_widget))
            behind.push_back(&field);
    // Each is lowered below all others, so the largest comes last.
    const auto area = [](const FieldRecord* field) { return field->box.width * field->box.height; };
    std::ranges::sort(behind, {}, area);
    for (FieldRecord* field : behind)
        XLowerWindow(display_of(field->position_widget), window_of(field->position_widget));
}

void restack_all(DialogRecord& dialog) {
    restack(dialog);
    for (FieldRecord& field : dialog.fields)
        for (const TabPage& page : field.pages)
            if (page.slot >= 0) restack(dialog_slot(page.slot));
}

}  // namespace tesserakit
