// An item is drawn in one order: cleared, its separator line, its texts, its check mark, its arrow,
// the line under its mnemonic.

#include "toolkit/menus/drawing.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"

#include <Xm/DrawP.h>

#include <array>
#include <string>

namespace tesserakit {

namespace {

constexpr int right_margin = 12;  // of right-justified text
constexpr int check_x = 3;
constexpr int arrow_margin = 4;
constexpr int popup_shadow = 2;

struct State {
    GC menuGC = nullptr;     // texts and marks
    GC menuGenGC = nullptr;  // lines and dark shadows
    GC light = nullptr;      // light shadows
};
constinit State state{};

GC make_gc() {
    XGCValues values{};
    values.graphics_exposures = False;
    return XCreateGC(yydisplay.display, yydisplay.root, GCGraphicsExposures, &values);
}

void make_gcs() {
    if (state.menuGC) return;
    state.menuGC = make_gc();
    state.menuGenGC = make_gc();
    state.light = make_gc();
}

/// A GC's foreground for one request.
GC with(GC gc, Pixel colour) {
    XSetForeground(yydisplay.display, gc, colour);
    return gc;
}

void draw_separator(const MenuItemWindow& item) {
    const auto line = [&](int y, Pixel colour) {
        XFillRectangle(yydisplay.display, item.window, with(state.menuGenGC, colour), 0, y,
                       static_cast<unsigned>(item.box.width), 1);
    };
    line(3, wSchemeCol.bottom_shadow);
    line(4, wSchemeCol.top_shadow);
}

void draw_underline(const MenuItemWindow& item, int x, int y) {
    const ItemText& text = item.text;
    if (text.mnemonic < 0) return;
    const auto width_up_to = [&](int end) {
        return text_width(wFonts.menu,
                          std::string_view(text.left).substr(0, static_cast<std::size_t>(end)));
    };
    const int left = x + width_up_to(text.mnemonic);
    const int right = x + width_up_to(text.mnemonic_end) - 1;
    XDrawLine(yydisplay.display, item.window, state.menuGC, left, y, right, y);
}

/// The item in one colour, shifted right and down.
void draw_in(const Menu& menu, int row, Pixel colour, int shift) {
    const MenuItemWindow& item = menu.item(row);
    const GC gc = with(state.menuGC, colour);
    const int baseline = yymenubaseline() + shift;
    const auto text = [&](int x, const std::string& value) {
        draw_text(wFonts.menu, item.window, gc, x + shift, baseline, value);
    };
    text(menu_text_x, item.text.left);
    const int popup = menu.record.popup_around(row);
    if (popup > 0 || menu.floating) {
        text(menu.popup(popup).middle_x, item.text.middle);
        text(item.box.width - right_margin - text_width(wFonts.menu, item.text.right),
             item.text.right);
    }
}

/// A tick of seven strokes, three pixels high each.
void draw_check(const MenuItemWindow& item, Pixel colour, int shift) {
    constexpr std::array<int, 7> tops{2, 3, 4, 3, 2, 1, 0};
    std::array<XSegment, tops.size()> segments{};
    const int top = (item.box.height - 7) / 2 + shift;
    for (std::size_t i = 0; i < tops.size(); ++i) {
        const auto x = static_cast<short>(check_x + shift + static_cast<int>(i));
        const auto y = static_cast<short>(top + tops[i]);
        segments[i] = {x, y, x, static_cast<short>(y + 2)};
    }
    XDrawSegments(yydisplay.display, item.window, with(state.menuGC, colour), segments.data(),
                  static_cast<int>(segments.size()));
}

void draw_arrow(const MenuItemWindow& item, Pixel colour) {
    const int size = item.box.height / 5;
    const auto x = static_cast<short>(item.box.width - arrow_margin - size);
    const auto middle = static_cast<short>(item.box.height / 2);
    std::array<XPoint, 3> points{XPoint{x, static_cast<short>(middle - size)},
                                 XPoint{static_cast<short>(x + size), middle},
                                 XPoint{x, static_cast<short>(middle + size)}};
    XFillPolygon(yydisplay.display, item.window, with(state.menuGC, colour), points.data(),
                 static_cast<int>(points.size()), Convex, CoordModeOrigin);
}

Pixel text_colour(const MenuItem& item, bool inverted) {
    // The highlight is the colour of disabled text.
    if (item.is_greyed()) return inverted ? wSchemeCol.background : wSchemeCol.disabled;
    return inverted ? wSchemeCol.highlight_text : wSchemeCol.foreground;
}

}  // namespace

void yymndrawitem(Menu& menu, int row) {
    make_gcs();
    const MenuItemWindow& item = menu.item(row);
    const MenuItem& data = menu.record.item(row);
    XClearWindow(yydisplay.display, item.window);
    if (data.is_separator()) {
        draw_separator(item);
        return;
    }
    const Pixel colour = text_colour(data, item.inverted);
    // Greyed: a light edge below and to the right makes it look engraved.
    if (data.is_greyed() && !item.inverted) draw_in(menu, row, wSchemeCol.white, 1);
    draw_in(menu, row, colour, 0);
    if (data.state == 1) {
        if (data.is_greyed() && !item.inverted) draw_check(item, wSchemeCol.white, 1);
        draw_check(item, colour, 0);
    }
    if (data.has_popup() && (menu.floating || menu.record.popup_around(row) > 0))
        draw_arrow(item, colour);
    XSetForeground(yydisplay.display, state.menuGC, colour);
    draw_underline(item, menu_text_x, yymenuunderline());
}

void yymndrawframe(const Menu& menu, int number) {
    make_gcs();
    const MenuPopUpWindow& popup = menu.popup(number);
    const bool bar = number == 0 && !menu.floating;
    XClearWindow(yydisplay.display, popup.window);
    XmeDrawShadows(yydisplay.display, popup.window, with(state.light, wSchemeCol.top_shadow),
                   with(state.menuGenGC, wSchemeCol.bottom_shadow), 0, 0,
                   static_cast<Dimension>(popup.box.width),
                   static_cast<Dimension>(popup.box.height), bar ? menu_bar_frame : popup_shadow,
                   XmSHADOW_OUT);
}

void yymndrawpopup(Menu& menu, int popup) {
    yymndrawframe(menu, popup);
    for (const int row : menu.record.rows_of(popup)) yymndrawitem(menu, row);
}

void yymndraw(int window) {
    if (Menu* menu = menu_of(window)) yymndrawpopup(*menu, 0);
}

void yymndrawwindow(Window window) {
    const MenuSpot spot = yymnmatchmenu(window);
    if (!spot.menu) return;
    if (spot.row >= 0) {
        yymndrawitem(*spot.menu, spot.row);
    } else {
        yymndrawframe(*spot.menu, spot.popup);
    }
}

void yymninvert(Menu& menu, int row, bool enter) {
    MenuItemWindow& item = menu.item(row);
    if (menu.record.item(row).is_separator() || item.inverted == enter) return;
    item.inverted = enter;
    XSetWindowBackground(yydisplay.display, item.window,
                         enter ? wSchemeCol.highlight : wSchemeCol.background);
    yymndrawitem(menu, row);
}

}  // namespace tesserakit
