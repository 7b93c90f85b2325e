#include "toolkit/menus/toolbars.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/IntrinsicP.h>
#include <Xm/DrawingA.h>

#include <array>
#include <memory>

namespace tesserakit {

namespace {

constexpr int beside_height = 12;  // of a button, in a toolbar at the top or bottom
constexpr int beside_width = 10;   // at the left or right

bool lies(int side) { return side == TopSide || side == BottomSide; }

using Toolbars = std::array<std::unique_ptr<Toolbar>, 4>;  // top, left, right, bottom

struct State {
    std::array<Toolbars, window_slots> toolbars;  ///< pwToolbar, by window
};
State& state = *new State;  // never destroyed: at exit the display may be gone

std::unique_ptr<Toolbar>& toolbar_of(int side, int window) {
    return state.toolbars[static_cast<std::size_t>(window)][static_cast<std::size_t>(side)];
}

}  // namespace

int yymntbarthickness(int side, int toolbar) {
    if (toolbar == 0) return 0;
    int buttons = 0;
    int width = 0;
    int height = 0;
    yyrctoolbarcheck(toolbar, buttons, width, height);
    if (buttons < 0) return 0;
    return lies(side) ? height + beside_height : width + beside_width;
}

void yymntbar(int side, int toolbar, int window) {
    const int thickness = yymntbarthickness(side, toolbar);
    if (thickness == 0) return;
    auto& bar = toolbar_of(side, window);
    bar = std::make_unique<Toolbar>();
    bar->identifier = toolbar;
    bar->thickness = thickness;
    // With a resize policy the strip would shrink to its buttons, away from where it was put.
    bar->widget = XtVaCreateManagedWidget(
        "Toolbar", xmDrawingAreaWidgetClass, window_slot(window).window_widget, XmNmarginWidth, 0,
        XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE, XmNtraversalOn, False, XmNbackground,
        wSchemeCol.background, XmNwidth, lies(side) ? 1 : thickness, XmNheight,
        lies(side) ? thickness : 1, nullptr);
}

int yymntbarthicknessnow(int side, int window) {
    const auto& bar = toolbar_of(side, window);
    return bar ? bar->thickness : 0;
}

void yymntbarresize(int side, int window, const Box& box) {
    const auto& bar = toolbar_of(side, window);
    if (!bar) return;
    XtConfigureWidget(bar->widget, static_cast<Position>(box.x), static_cast<Position>(box.y),
                      static_cast<Dimension>(box.width), static_cast<Dimension>(box.height), 0);
}

void yymntbardestroy(int side, int window) {
    auto& bar = toolbar_of(side, window);
    if (!bar) return;
    XtDestroyWidget(bar->widget);
    bar.reset();
}

}  // namespace tesserakit
