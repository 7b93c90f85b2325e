#include "toolkit/menus/menus.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/menus/toolbars.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/DrawP.h>

#include <algorithm>
#include <array>
#include <memory>

namespace tesserakit {

namespace {

constexpr int beside_text = 7;  // of a row's height
constexpr int shadow_thickness = 1;

struct State {
    std::array<std::unique_ptr<MenuBar>, window_slots> bars;  ///< pwRootMenuSub, by window
};
State& state = *new State;  // never destroyed: at exit the display may be gone

MenuBar* bar_of(int window) {
    if (window < 0 || window >= window_slots) return nullptr;
    return state.bars[static_cast<std::size_t>(window)].get();
}

MenuWindow yymnfind(Window window) {
    const auto found = std::ranges::find_if(
        state.bars, [window](const auto& bar) { return bar && bar->window == window; });
    if (found == state.bars.end()) return {};
    return {MenuPart::Bar, static_cast<int>(found - state.bars.begin())};
}

bool in_resource(int menu) {
    int items = 0;
    int size = 0;
    yyrcmenucheck(menu, items, size);
    return items >= 0;
}

}  // namespace

int yymenuheight() { return wFonts.menu.height() + beside_text; }

int yymnheightof(int menu, int) { return menu != 0 && in_resource(menu) ? yymenuheight() : 0; }

void yymncreate(int menu, int window) {
    if (menu == 0) return;
    if (!in_resource(menu)) {
        yyerror(MenuNotLoaded, "WindowOpen");
        return;
    }
    auto& bar = state.bars[static_cast<std::size_t>(window)];
    bar = std::make_unique<MenuBar>();
    bar->identifier = menu;
    bar->window =
        XCreateSimpleWindow(yydisplay.display, window_slot(window).window, 0, 0, 1,
                            static_cast<unsigned>(yymenuheight()), 0, 0, wSchemeCol.background);
    XSelectInput(yydisplay.display, bar->window, ExposureMask | ButtonPressMask);
    XMapWindow(yydisplay.display, bar->window);
}

void yymndestroy(int window) {
    if (!bar_of(window)) return;
    XDestroyWindow(yydisplay.display, bar_of(window)->window);
    state.bars[static_cast<std::size_t>(window)].reset();
}

int yymnresize(int window, int width) {
    const MenuBar* bar = bar_of(window);
    if (!bar) return 0;
    XResizeWindow(yydisplay.display, bar->window, static_cast<unsigned>(std::max(width, 1)),
                  static_cast<unsigned>(yymnheight(window)));
    yymndraw(window);
    return yymnheight(window);
}

void yymndraw(int window) {
    const MenuBar* bar = bar_of(window);
    if (!bar) return;
    Display* display = yydisplay.display;
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display, bar->window, &attributes)) return;
    XGCValues values{};
    values.foreground = wSchemeCol.top_shadow;
    const GC top = XCreateGC(display, bar->window, GCForeground, &values);
    values.foreground = wSchemeCol.bottom_shadow;
    const GC bottom = XCreateGC(display, bar->window, GCForeground, &values);
    XClearWindow(display, bar->window);
    XmeDrawShadows(display, bar->window, top, bottom, 0, 0,
                   static_cast<Dimension>(attributes.width),
                   static_cast<Dimension>(attributes.height), shadow_thickness, XmSHADOW_OUT);
    XFreeGC(display, top);
    XFreeGC(display, bottom);
}

int yymnheight(int window) {
    const MenuBar* bar = bar_of(window);
    return bar ? bar->rows * yymenuheight() : 0;
}

// Without items there is nothing to pull down.
bool yymenuactive() { return false; }
void yymndeactivate() {}
MenuAnswer yymninterpretkey(KeySym, int, unsigned) { return {}; }
int yyacinterpretkey(KeySym, int, unsigned) { return 0; }

MenuAnswer yymninterpretbutton(const XButtonEvent& event, int window) {
    const MenuBar* bar = bar_of(window);
    return {.consumed = bar && event.window == bar->window};
}

void install_menus() {
    menu_hooks = {
        .height_of = yymnheightof,
        .create = yymncreate,
        .destroy = yymndestroy,
        .resize = yymnresize,
        .height = yymnheight,
        .draw = [](Window part) { yymndraw(yymnfind(part).window); },
        .find = yymnfind,
        .active = yymenuactive,
        .deactivate = yymndeactivate,
        .interpret_key = yymninterpretkey,
        .interpret_accelerator = yyacinterpretkey,
        .interpret_button = yymninterpretbutton,
        .toolbar_thickness_of = yymntbarthickness,
        .toolbar_create = yymntbar,
        .toolbar_resize = yymntbarresize,
        .toolbar_destroy = yymntbardestroy,
        .toolbar_thickness = yymntbarthicknessnow,
    };
}

}  // namespace tesserakit
