#include "toolkit/widgets/diag_p.hpp"

#include <array>

namespace tesserakit {
namespace {

DiagRec& record(Widget widget) { return *reinterpret_cast<DiagRec*>(widget); }

std::array<XtResource, 1> resources{{
    resource(diagNresizeCallback, XtRCallback, sizeof(XtCallbackList),
             offsetof(DiagRec, diag.resize_callback)),
}};

void resize(Widget widget) {
    XtCallCallbackList(widget, record(widget).diag.resize_callback, nullptr);
}

/// Motif must hear of children that come and go, or the focus could stay on a hidden one.
void change_managed(Widget widget) { XmeNavigChangeManaged(widget); }

DiagClassRec class_record() {
    return {.core_class = core_part({.superclass = xmManagerWidgetClass,
                                     .name = "TessDiag",
                                     .size = sizeof(DiagRec),
                                     .resources = resources,
                                     .resize = resize}),
            .composite_class = composite_part(refuse_geometry, change_managed),
            .constraint_class = constraint_part(),
            .manager_class = manager_part(),
            .diag_class = {.extension = nullptr}};
}

DiagClassRec diag_class_record = class_record();

}  // namespace

WidgetClass diagWidgetClass = reinterpret_cast<WidgetClass>(&diag_class_record);

}  // namespace tesserakit
