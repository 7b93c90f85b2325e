/// Class records of the toolkit's widgets: what a class doesn't say itself it inherits from Motif.
///
/// Every member of the records is named here once; a class names only what it does.
#pragma once

#include "toolkit/base/motif_text.hpp"
#include "toolkit/widgets/placement.hpp"

#include <X11/IntrinsicP.h>

#include <X11/CompositeP.h>
#include <X11/ConstrainP.h>
#include <X11/CoreP.h>
#include <Xm/DrawP.h>
#include <Xm/ManagerP.h>
#include <Xm/PrimitiveP.h>
#include <Xm/XmP.h>

#include <cstddef>
#include <span>

namespace tesserakit {

/// A frame of `thickness` pixels just inside a rectangle; `type` is XmSHADOW_IN and the like.
inline void draw_shadows(Widget widget, GC top, GC bottom, int x, int y, int width, int height,
                         int thickness, int type) {
    if (width <= 0 || height <= 0) return;
    XmeDrawShadows(display_of(widget), window_of(widget), top, bottom, static_cast<Position>(x),
                   static_cast<Position>(y), static_cast<Dimension>(width),
                   static_cast<Dimension>(height), static_cast<Dimension>(thickness),
                   static_cast<unsigned>(type));
}

/// A resource whose default is the immediate value `value`.
inline XtResource resource(const char* name, const char* type, Cardinal size, std::size_t offset,
                           long value = 0) {
    return {.resource_name = xt_name(name),
            .resource_class = xt_name(name),
            .resource_type = xt_name(type),
            .resource_size = size,
            .resource_offset = static_cast<Cardinal>(offset),
            .default_type = xt_name(XtRImmediate),
            .default_addr = reinterpret_cast<XtPointer>(value)};
}

/// What a widget class does by itself.
struct WidgetMethods {
    WidgetClass superclass = nullptr;
    const char* name = nullptr;
    Cardinal size = 0;
    std::span<XtResource> resources{};
    std::span<XtActionsRec> actions{};
    const char* translations = nullptr;  ///< null: the superclass's
    XtInitProc initialize = nullptr;
    XtWidgetProc destroy = nullptr;
    XtWidgetProc resize = nullptr;
    XtExposeProc redisplay = nullptr;
    XtSetValuesFunc set_values = nullptr;
    XtGeometryHandler query_geometry = XtInheritQueryGeometry;
};

inline CoreClassPart core_part(const WidgetMethods& methods) {
    return {
        .superclass = methods.superclass,
        .class_name = xt_name(methods.name),
        .widget_size = methods.size,
        .class_initialize = nullptr,
        .class_part_initialize = nullptr,
        .class_inited = False,
        .initialize = methods.initialize,
        .initialize_hook = nullptr,
        .realize = XtInheritRealize,
        .actions = methods.actions.data(),
        .num_actions = static_cast<Cardinal>(methods.actions.size()),
        .resources = methods.resources.data(),
        .num_resources = static_cast<Cardinal>(methods.resources.size()),
        .xrm_class = NULLQUARK,
        .compress_motion = True,
        .compress_exposure = XtExposeCompressMaximal,
        .compress_enterleave = True,
        .visible_interest = False,
        .destroy = methods.destroy,
        .resize = methods.resize ? methods.resize : XtInheritResize,
        .expose = methods.redisplay ? methods.redisplay : XtInheritExpose,
        .set_values = methods.set_values,
        .set_values_hook = nullptr,
        .set_values_almost = XtInheritSetValuesAlmost,
        .get_values_hook = nullptr,
        .accept_focus = XtInheritAcceptFocus,
        .version = XtVersion,
        .callback_private = nullptr,
        .tm_table = methods.translations ? xt_name(methods.translations) : XtInheritTranslations,
        .query_geometry = methods.query_geometry,
        .display_accelerator = nullptr,
        .extension = nullptr};
}

inline CompositeClassPart composite_part(XtGeometryHandler geometry_manager,
                                         XtWidgetProc change_managed) {
    return {.geometry_manager = geometry_manager,
            .change_managed = change_managed,
            .insert_child = XtInheritInsertChild,
            .delete_child = XtInheritDeleteChild,
            .extension = nullptr};
}

inline ConstraintClassPart constraint_part() {
    return {.resources = nullptr,
            .num_resources = 0,
            .constraint_size = sizeof(XmManagerConstraintRec),
            .initialize = nullptr,
            .destroy = nullptr,
            .set_values = nullptr,
            .extension = nullptr};
}

inline XmManagerClassPart manager_part() {
    return {.translations = XtInheritTranslations,
            .syn_resources = nullptr,
            .num_syn_resources = 0,
            .syn_constraint_resources = nullptr,
            .num_syn_constraint_resources = 0,
            .parent_process = XmInheritParentProcess,
            .extension = nullptr};
}

/// Without Motif's traversal keys: they would come on top of what a class does with the arrow keys.
inline XmPrimitiveClassPart primitive_part() {
    return {.border_highlight = XmInheritBorderHighlight,
            .border_unhighlight = XmInheritBorderUnhighlight,
            .translations = nullptr,
            .arm_and_activate = nullptr,
            .syn_resources = nullptr,
            .num_syn_resources = 0,
            .extension = nullptr};
}

/// Geometry handler of managers whose children stay where the toolkit puts them.
inline XtGeometryResult refuse_geometry(Widget, XtWidgetGeometry*, XtWidgetGeometry*) {
    return XtGeometryNo;
}

}  // namespace tesserakit
