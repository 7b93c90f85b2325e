#include "toolkit/widgets/progress_p.hpp"

#include <algorithm>
#include <array>

namespace tesserakit {
namespace {

constexpr int frame = 2;

ProgressRec& record(Widget widget) { return *reinterpret_cast<ProgressRec*>(widget); }

std::array<XtResource, 3> resources{{
    resource(progressNminimum, XtRInt, sizeof(int), offsetof(ProgressRec, progress.minimum)),
    resource(progressNmaximum, XtRInt, sizeof(int), offsetof(ProgressRec, progress.maximum), 100),
    resource(progressNvalue, XtRInt, sizeof(int), offsetof(ProgressRec, progress.value)),
}};

void initialize(Widget, Widget created, ArgList, Cardinal*) {
    ProgressRec& self = record(created);
    XGCValues values{};
    values.foreground = self.primitive.foreground;
    self.progress.bar = XtGetGC(created, GCForeground, &values);
    self.primitive.traversal_on = False;
}

void destroy(Widget widget) { XtReleaseGC(widget, record(widget).progress.bar); }

Boolean set_values(Widget current, Widget, Widget set, ArgList, Cardinal*) {
    const ProgressPart& before = record(current).progress;
    const ProgressPart& now = record(set).progress;
    return before.minimum != now.minimum || before.maximum != now.maximum ||
           before.value != now.value;
}

int filled_width(const ProgressPart& part, int width) {
    if (part.maximum <= part.minimum) return 0;
    const long long done = std::clamp(part.value, part.minimum, part.maximum);
    return static_cast<int>((done - part.minimum) * width /
                            (static_cast<long long>(part.maximum) - part.minimum));
}

void redisplay(Widget widget, XEvent*, Region) {
    const ProgressRec& self = record(widget);
    draw_shadows(widget, self.primitive.top_shadow_GC, self.primitive.bottom_shadow_GC, 0, 0,
                 self.core.width, self.core.height, frame, XmSHADOW_IN);
    const int height = self.core.height - 2 * frame;
    const int width = filled_width(self.progress, self.core.width - 2 * frame);
    if (width > 0 && height > 0)
        XFillRectangle(display_of(widget), window_of(widget), self.progress.bar, frame, frame,
                       static_cast<unsigned>(width), static_cast<unsigned>(height));
}

ProgressClassRec class_record() {
    return {.core_class = core_part({.superclass = xmPrimitiveWidgetClass,
                                     .name = "TessProgress",
                                     .size = sizeof(ProgressRec),
                                     .resources = resources,
                                     .initialize = initialize,
                                     .destroy = destroy,
                                     .redisplay = redisplay,
                                     .set_values = set_values}),
            .primitive_class = primitive_part(),
            .progress_class = {.extension = nullptr}};
}

ProgressClassRec progress_class_record = class_record();

}  // namespace

WidgetClass progressWidgetClass = reinterpret_cast<WidgetClass>(&progress_class_record);

}  // namespace tesserakit
