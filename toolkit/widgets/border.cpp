#include "toolkit/widgets/border_p.hpp"

#include <algorithm>
#include <array>

namespace tesserakit {
namespace {

BorderRec& record(Widget widget) { return *reinterpret_cast<BorderRec*>(widget); }

std::array<XtResource, 5> resources{{
    resource(borderNborder, XtRBoolean, sizeof(Boolean), offsetof(BorderRec, border.border)),
    resource(borderNsunken, XtRBoolean, sizeof(Boolean), offsetof(BorderRec, border.sunken)),
    resource(borderNclient, XtRBoolean, sizeof(Boolean), offsetof(BorderRec, border.client)),
    resource(borderNstatic, XtRBoolean, sizeof(Boolean), offsetof(BorderRec, border.fixed)),
    resource(borderNmodal, XtRBoolean, sizeof(Boolean), offsetof(BorderRec, border.modal)),
}};

int sunken_width(const BorderPart& part) {
    return (part.client ? 2 : 0) + (part.sunken || part.fixed ? 1 : 0);
}

int frame_width(const BorderPart& part) {
    return (part.border ? 1 : 0) + (part.modal ? 2 : 0) + sunken_width(part);
}

void fit_child(Widget widget) {
    const BorderRec& self = record(widget);
    if (self.composite.num_children == 0) return;
    const int frame = frame_width(self.border);
    const int width = std::max(1, self.core.width - 2 * frame);
    const int height = std::max(1, self.core.height - 2 * frame);
    place(self.composite.children[0], frame, frame, width, height);
}

void initialize(Widget, Widget created, ArgList, Cardinal*) {
    BorderRec& self = record(created);
    XGCValues values{};
    values.foreground = self.manager.foreground;
    self.border.line = XtGetGC(created, GCForeground, &values);
    if (self.core.width == 0) self.core.width = 1;
    if (self.core.height == 0) self.core.height = 1;
}

void destroy(Widget widget) { XtReleaseGC(widget, record(widget).border.line); }

void change_managed(Widget widget) {
    fit_child(widget);
    XmeNavigChangeManaged(widget);
}

void redisplay(Widget widget, XEvent*, Region) {
    const BorderRec& self = record(widget);
    const BorderPart& part = self.border;
    int inset = 0;
    const auto ring = [&](int thickness, int type) {
        if (thickness == 0) return;
        draw_shadows(widget, self.manager.top_shadow_GC, self.manager.bottom_shadow_GC, inset,
                     inset, self.core.width - 2 * inset, self.core.height - 2 * inset, thickness,
                     type);
        inset += thickness;
    };
    if (part.border) {
        XDrawRectangle(display_of(widget), window_of(widget), part.line, 0, 0,
                       static_cast<unsigned>(self.core.width - 1),
                       static_cast<unsigned>(self.core.height - 1));
        inset = 1;
    }
    ring(part.modal ? 2 : 0, XmSHADOW_OUT);
    ring(sunken_width(part), XmSHADOW_IN);
}

BorderClassRec class_record() {
    return {.core_class = core_part({.superclass = xmManagerWidgetClass,
                                     .name = "TessBorder",
                                     .size = sizeof(BorderRec),
                                     .resources = resources,
                                     .initialize = initialize,
                                     .destroy = destroy,
                                     .resize = fit_child,
                                     .redisplay = redisplay}),
            .composite_class = composite_part(refuse_geometry, change_managed),
            .constraint_class = constraint_part(),
            .manager_class = manager_part(),
            .border_class = {.extension = nullptr}};
}

BorderClassRec border_class_record = class_record();

}  // namespace

WidgetClass borderWidgetClass = reinterpret_cast<WidgetClass>(&border_class_record);

}  // namespace tesserakit
