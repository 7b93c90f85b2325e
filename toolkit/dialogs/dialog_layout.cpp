#include "toolkit/dialogs/dialog_resize.hpp"
#include "toolkit/dialogs/dialogs.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/widgets/tab.hpp"

#include <Xm/Xm.h>

#include <algorithm>

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

int closed_combo_height(const FieldRecord& field) {
    return std::min(field.box.height, pixels_down(12));
}

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

void place_pages(FieldRecord& tab) {
    if (!tab.widget || tab.pages.empty()) return;
    Box inside = tab_page_box(tab.widget);
    inside.x += tab.box.x;
    inside.y += tab.box.y;
    for (std::size_t i = 0; i < tab.pages.size(); ++i) {
        const int slot = tab.pages[i].slot;
        if (slot < 0) continue;
        DialogRecord& page = wDialogInfo[static_cast<std::size_t>(slot)];
        configure(page.widget, inside);
        const bool front = static_cast<int>(i) == tab.front_page && tab.state != FieldHidden;
        if (front)
            XtManageChild(page.widget);
        else
            XtUnmanageChild(page.widget);
        page.show_mode = front && outermost(page).shown() ? DialogModeless : -1;
    }
}

void bring_to_front(FieldRecord& tab, int page) {
    tab.front_page = page;
    tab_select(tab.widget, page);
    place_pages(tab);
    const int slot = tab.pages[static_cast<std::size_t>(page)].slot;
    if (slot < 0) return;
    DialogRecord& front = wDialogInfo[static_cast<std::size_t>(slot)];
    if (!XtIsRealized(front.widget)) return;
    XRaiseWindow(display_of(front.widget), window_of(front.widget));
    restack(front);
}

}  // namespace tesserakit
