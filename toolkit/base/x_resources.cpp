#include "toolkit/base/x_resources.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"

#include <X11/StringDefs.h>

#include <array>
#include <cstddef>

namespace tesserakit {

namespace {

XtResource resource(const char* name, const char* kind, const char* type, std::size_t size,
                    std::size_t offset, const char* standard) {
    return {.resource_name = xt_name(name),
            .resource_class = xt_name(kind),
            .resource_type = xt_name(type),
            .resource_size = static_cast<Cardinal>(size),
            .resource_offset = static_cast<Cardinal>(offset),
            .default_type = xt_name(XtRString),
            .default_addr = xt_name(standard)};
}

XtResource font_resource(const char* name, std::size_t offset, const char* standard) {
    return resource(name, "DialogFont", XtRString, sizeof(String), offset, standard);
}

XtResource colour_resource(const char* name, const char* kind, std::size_t offset,
                           const char* standard) {
    return resource(name, kind, XtRPixel, sizeof(Pixel), offset, standard);
}

}  // namespace

ResourceValues resource_values() {
    using Values = ResourceValues;
    std::array rows{
        font_resource("dialogFont", offsetof(Values, dialog_font), "Sans-10"),
        font_resource("symbolFont", offsetof(Values, symbol_font), ""),
        font_resource("menuFont", offsetof(Values, menu_font), "Sans-10"),
        font_resource("statusFont", offsetof(Values, status_font), "Sans-10"),
        font_resource("fixedFont", offsetof(Values, fixed_font), "Monospace-10"),
        colour_resource("background", "Background", offsetof(Values, background), "#dcdad5"),
        colour_resource("foreground", "Foreground", offsetof(Values, foreground), "black"),
        colour_resource("fieldBackground", "FieldBackground", offsetof(Values, field), "white"),
        colour_resource("tooltipBackground", "TooltipBackground", offsetof(Values, tooltip),
                        "#ffffe1"),
    };
    ResourceValues values{};
    XtGetApplicationResources(yydisplay.root_widget, &values, rows.data(),
                              static_cast<Cardinal>(rows.size()), nullptr, 0);
    return values;
}

}  // namespace tesserakit
