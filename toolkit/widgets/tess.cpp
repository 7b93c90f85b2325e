#include "toolkit/widgets/tess_p.hpp"

#include <algorithm>
#include <array>

namespace tesserakit {
namespace {

TessRec& record(Widget widget) { return *reinterpret_cast<TessRec*>(widget); }

std::array<XtResource, 3> resources{{
    resource(tessNpixmap, XtRPixmap, sizeof(Pixmap), offsetof(TessRec, tess.pixmap)),
    resource(tessNpixmapWidth, XtRInt, sizeof(int), offsetof(TessRec, tess.pixmap_width)),
    resource(tessNpixmapHeight, XtRInt, sizeof(int), offsetof(TessRec, tess.pixmap_height)),
}};

void initialize(Widget, Widget created, ArgList, Cardinal*) {
    TessRec& self = record(created);
    self.tess.gc = XtGetGC(created, 0, nullptr);
    self.primitive.traversal_on = False;
}

void destroy(Widget widget) { XtReleaseGC(widget, record(widget).tess.gc); }

Boolean set_values(Widget current, Widget, Widget set, ArgList, Cardinal*) {
    const TessPart& before = record(current).tess;
    const TessPart& now = record(set).tess;
    return before.pixmap != now.pixmap || before.pixmap_width != now.pixmap_width ||
           before.pixmap_height != now.pixmap_height;
}

void redisplay(Widget widget, XEvent*, Region) {
    const TessRec& self = record(widget);
    const TessPart& part = self.tess;
    if (!part.pixmap) return;
    // A picture larger than its field shows its middle.
    const int width = std::min<int>(part.pixmap_width, self.core.width);
    const int height = std::min<int>(part.pixmap_height, self.core.height);
    XCopyArea(display_of(widget), part.pixmap, window_of(widget), part.gc,
              (part.pixmap_width - width) / 2, (part.pixmap_height - height) / 2,
              static_cast<unsigned>(width), static_cast<unsigned>(height),
              (self.core.width - width) / 2, (self.core.height - height) / 2);
}

TessClassRec class_record() {
    return {.core_class = core_part({.superclass = xmPrimitiveWidgetClass,
                                     .name = "TessPicture",
                                     .size = sizeof(TessRec),
                                     .resources = resources,
                                     .initialize = initialize,
                                     .destroy = destroy,
                                     .redisplay = redisplay,
                                     .set_values = set_values}),
            .primitive_class = primitive_part(),
            .tess_class = {.extension = nullptr}};
}

TessClassRec tess_class_record = class_record();

}  // namespace

WidgetClass tessWidgetClass = reinterpret_cast<WidgetClass>(&tess_class_record);

}  // namespace tesserakit
