#include "toolkit/menus/menus.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/DrawP.h>

#include <algorithm>

namespace tesserakit {

namespace {

constexpr int beside_text = 7;  // of a row's height
constexpr int shadow_thickness = 1;

MenuBar* bar_of(int window) {
    if (window < 0 || window >= window_slots) return nullptr;
    return windows[static_cast<std::size_t>(window)].menu.get();
}

bool in_resource(int menu) {
    int items = 0;
    int size = 0;
    yyrcmenucheck(menu, items, size);
    return items >= 0;
}

}  // namespace

int yymenuheight() { return wFonts.menu.height() + beside_text; }

int yymnheightof(int menu) { return menu != 0 && in_resource(menu) ? yymenuheight() : 0; }

void yymncreate(int menu, int window) {
    if (menu == 0) return;
    if (!in_resource(menu)) {
        yyerror(MenuNotLoaded, "WindowOpen");
        return;
    }
    WindowSlot& slot = windows[static_cast<std::size_t>(window)];
    slot.menu = std::make_unique<MenuBar>();
    slot.menu->identifier = menu;
    slot.menu->window =
        XCreateSimpleWindow(yydisplay.display, slot.window, 0, 0, 1,
                            static_cast<unsigned>(yymenuheight()), 0, 0, wSchemeCol.background);
    XSelectInput(yydisplay.display, slot.menu->window, ExposureMask | ButtonPressMask);
    XMapWindow(yydisplay.display, slot.menu->window);
}

void yymndestroy(int window) {
    if (!bar_of(window)) return;
    XDestroyWindow(yydisplay.display, bar_of(window)->window);
    windows[static_cast<std::size_t>(window)].menu.reset();
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
int yymninterpretkey(KeySym, int, unsigned) { return 0; }
int yyacinterpretkey(KeySym, int, unsigned) { return 0; }

bool yymninterpretbutton(const XButtonEvent& event, int window) {
    const MenuBar* bar = bar_of(window);
    return bar && event.window == bar->window;
}

}  // namespace tesserakit
