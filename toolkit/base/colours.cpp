#include "toolkit/base/colours.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/x_resources.hpp"

#include <Xm/Xm.h>

namespace tesserakit {

constinit ColourScheme wSchemeCol{};

void yycolorschemeinit() {
    const ResourceValues values = resource_values();
    ColourScheme& scheme = wSchemeCol;
    scheme.background = values.background;
    scheme.foreground = values.foreground;
    scheme.field = values.field;
    scheme.tooltip = values.tooltip;
    scheme.black = BlackPixelOfScreen(yydisplay.screen);
    scheme.white = WhitePixelOfScreen(yydisplay.screen);
    Pixel unused = 0;
    XmGetColors(yydisplay.screen, yydisplay.colormap, scheme.background, &unused,
                &scheme.top_shadow, &scheme.bottom_shadow, &scheme.select);
    scheme.disabled = scheme.bottom_shadow;
    scheme.highlight = scheme.bottom_shadow;
    scheme.highlight_text = scheme.white;
}

}  // namespace tesserakit
