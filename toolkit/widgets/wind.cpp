#include "toolkit/widgets/wind_p.hpp"

#include "toolkit/base/motif_text.hpp"

#include <X11/StringDefs.h>

#include <array>

namespace tesserakit {

namespace {

WindRec& record(Widget widget) { return *reinterpret_cast<WindRec*>(widget); }

std::array<XtResource, 3> resources{{
    {xt_name(windNvisual), xt_name("WindVisual"), xt_name(XtRPointer), sizeof(Visual*),
     offsetof(WindRec, wind.visual), xt_name(XtRImmediate), nullptr},
    {xt_name(windNmask), xt_name("WindMask"), xt_name("Long"), sizeof(long),
     offsetof(WindRec, wind.mask), xt_name(XtRImmediate), nullptr},
    {xt_name(windNattributes), xt_name("WindAttributes"), xt_name(XtRPointer),
     sizeof(XSetWindowAttributes*), offsetof(WindRec, wind.attributes), xt_name(XtRImmediate),
     nullptr},
}};

void copy_attributes(XSetWindowAttributes& to, const XSetWindowAttributes& from, long mask) {
    if (mask & CWBackPixmap) to.background_pixmap = from.background_pixmap;
    if (mask & CWBackPixel) to.background_pixel = from.background_pixel;
    if (mask & CWBorderPixel) to.border_pixel = from.border_pixel;
    if (mask & CWBitGravity) to.bit_gravity = from.bit_gravity;
    if (mask & CWWinGravity) to.win_gravity = from.win_gravity;
    if (mask & CWBackingStore) to.backing_store = from.backing_store;
    if (mask & CWSaveUnder) to.save_under = from.save_under;
    if (mask & CWCursor) to.cursor = from.cursor;
    if (mask & CWColormap) to.colormap = from.colormap;
    // The event mask stays Xt's own: it is made up of the widget's event handlers.
}

constexpr long understood = CWBackPixmap | CWBackPixel | CWBorderPixel | CWBitGravity |
                            CWWinGravity | CWBackingStore | CWSaveUnder | CWCursor | CWColormap;

void realize(Widget widget, XtValueMask* mask, XSetWindowAttributes* attributes) {
    const WindPart& part = record(widget).wind;
    if (part.attributes) {
        const long taken = part.mask & understood;
        copy_attributes(*attributes, *part.attributes, taken);
        *mask |= static_cast<XtValueMask>(taken);
        // The server takes the pixel where both are given.
        if (taken & CWBackPixmap) *mask &= ~static_cast<XtValueMask>(CWBackPixel);
        // A background pixmap set by Xt would go before the pixel that was asked for.
        if (taken & CWBackPixel) *mask &= ~static_cast<XtValueMask>(CWBackPixmap);
    }
    XtCreateWindow(widget, InputOutput, part.visual, *mask, attributes);
}

WindClassRec class_record() {
    return {
        .core_class = {.superclass = &coreClassRec,
                       .class_name = xt_name("Wind"),
                       .widget_size = sizeof(WindRec),
                       .class_initialize = nullptr,
                       .class_part_initialize = nullptr,
                       .class_inited = False,
                       .initialize = nullptr,
                       .initialize_hook = nullptr,
                       .realize = realize,
                       .actions = nullptr,
                       .num_actions = 0,
                       .resources = resources.data(),
                       .num_resources = resources.size(),
                       .xrm_class = NULLQUARK,
                       .compress_motion = False,
                       .compress_exposure = XtExposeCompressMultiple,
                       .compress_enterleave = False,
                       .visible_interest = False,
                       .destroy = nullptr,
                       .resize = nullptr,
                       .expose = nullptr,
                       .set_values = nullptr,
                       .set_values_hook = nullptr,
                       .set_values_almost = XtInheritSetValuesAlmost,
                       .get_values_hook = nullptr,
                       .accept_focus = nullptr,
                       .version = XtVersion,
                       .callback_private = nullptr,
                       .tm_table = nullptr,
                       .query_geometry = nullptr,
                       .display_accelerator = nullptr,
                       .extension = nullptr},
        .wind_class = {.extension = nullptr},
    };
}

WindClassRec wind_class_record = class_record();

}  // namespace

WidgetClass windWidgetClass = reinterpret_cast<WidgetClass>(&wind_class_record);

}  // namespace tesserakit
