#include "toolkit/widgets/combo_p.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/widgets/list_items.hpp"

#include <Xm/List.h>
#include <Xm/TextF.h>

#include <algorithm>
#include <array>

namespace tesserakit {
namespace {

ComboRec& record(Widget widget) { return *reinterpret_cast<ComboRec*>(widget); }

/// Motif's arrow is a sliver of shadows at this size: ours is drawn over it.
void redisplay(Widget widget, XEvent* event, Region region) {
    xmComboBoxWidgetClass->core_class.expose(widget, event, region);
    const ComboRec& self = record(widget);
    const XRectangle& box = self.combo_box.hit_rect;
    XFillRectangle(display_of(widget), window_of(widget), self.manager.background_GC, box.x, box.y,
                   box.width, box.height);
    draw_shadows(widget, self.manager.top_shadow_GC, self.manager.bottom_shadow_GC, box.x, box.y,
                 box.width, box.height, 1, XmSHADOW_OUT);
    const int x = box.x + box.width / 2;
    const int y = box.y + box.height / 2;
    std::array<XPoint, 3> corners{{{static_cast<short>(x - 4), static_cast<short>(y - 2)},
                                   {static_cast<short>(x + 4), static_cast<short>(y - 2)},
                                   {static_cast<short>(x), static_cast<short>(y + 2)}}};
    const ComboPart& part = self.combo;
    XFillPolygon(display_of(widget), window_of(widget),
                 XtIsSensitive(widget) ? part.ink : part.grey, corners.data(),
                 static_cast<int>(corners.size()), Convex, CoordModeOrigin);
}

void initialize(Widget, Widget created, ArgList, Cardinal*) {
    ComboPart& part = record(created).combo;
    XGCValues values{};
    values.foreground = record(created).manager.foreground;
    part.ink = XtGetGC(created, GCForeground, &values);
    values.foreground = wSchemeCol.disabled;
    part.grey = XtGetGC(created, GCForeground, &values);
}

void destroy(Widget widget) {
    XtReleaseGC(widget, record(widget).combo.ink);
    XtReleaseGC(widget, record(widget).combo.grey);
}

ComboClassRec class_record() {
    return {.core_class = core_part({.superclass = xmComboBoxWidgetClass,
                                     .name = "TessCombo",
                                     .size = sizeof(ComboRec),
                                     .initialize = initialize,
                                     .destroy = destroy,
                                     .redisplay = redisplay}),
            .composite_class = composite_part(XtInheritGeometryManager, XtInheritChangeManaged),
            .constraint_class = constraint_part(),
            .manager_class = manager_part(),
            .combo_box_class = {.extension = nullptr},
            .combo_class = {.extension = nullptr}};
}

ComboClassRec combo_class_record = class_record();

}  // namespace

WidgetClass comboWidgetClass = reinterpret_cast<WidgetClass>(&combo_class_record);

Widget combo_text(Widget combo) { return record(combo).combo_box.edit_box; }
Widget combo_list(Widget combo) { return record(combo).combo_box.list; }

void combo_set_options(Widget combo, std::span<const std::string> options) {
    const Widget list = combo_list(combo);
    set_items(list, options);
    constexpr int most_shown = 8;
    const int shown = std::clamp(static_cast<int>(options.size()), 1, most_shown);
    XtVaSetValues(list, XmNvisibleItemCount, shown, nullptr);
    combo_select(combo, 0);
}

void combo_select(Widget combo, int option) {
    select_item(combo_list(combo), option);
    // XmComboBoxUpdate leaves the text of a combo that was never opened as it was.
    XmTextFieldSetString(combo_text(combo),
                         xt_name(to_locale(item_text(combo_list(combo), option))));
}

int combo_selected(Widget combo) { return selected_item(combo_list(combo)); }

int combo_count(Widget combo) { return item_count(combo_list(combo)); }

}  // namespace tesserakit
