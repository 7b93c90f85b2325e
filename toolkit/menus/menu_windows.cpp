#include "toolkit/menus/menu_windows.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"

#include <algorithm>
#include <utility>

namespace tesserakit {

// Never destroyed: at exit the display may be gone.
std::array<std::unique_ptr<Menu>, window_slots>& pwRootMenuSub =
    *new std::array<std::unique_ptr<Menu>, window_slots>;
std::unique_ptr<Menu>& pwFloatMenu = *new std::unique_ptr<Menu>;
constinit Menu* pwActiveMenu = nullptr;

namespace {

constexpr int beside_text = 7;  // of a row's height
constexpr int above_text = 3;
constexpr int below_baseline = 2;
constexpr int separator_height = 8;

// No motion and no crossings: they are asked for only while a menu is active.
constexpr long idle_events =
    KeyPressMask | ButtonPressMask | ButtonReleaseMask | ExposureMask | OwnerGrabButtonMask;
constexpr long ActiveMenuEvents = EnterWindowMask | LeaveWindowMask;

MenuMetrics metrics() { return {yymenuheight(), separator_height}; }

Box screen_box() { return {0, 0, yydisplay.width, yydisplay.height}; }

unsigned extent(int value) { return static_cast<unsigned>(std::max(value, 1)); }

Window create_window(Window parent, const Box& box, bool on_screen) {
    XSetWindowAttributes attributes{};
    attributes.background_pixel = wSchemeCol.background;
    attributes.bit_gravity = StaticGravity;
    attributes.backing_store = Always;
    attributes.event_mask = idle_events;
    attributes.override_redirect = on_screen ? True : False;
    attributes.save_under = on_screen ? True : False;
    return XCreateWindow(yydisplay.display, parent, box.x, box.y, extent(box.width),
                         extent(box.height), 0, CopyFromParent, InputOutput, nullptr,
                         CWBackPixel | CWBitGravity | CWBackingStore | CWEventMask |
                             CWOverrideRedirect | CWSaveUnder,
                         &attributes);
}

void place_window(Window window, const Box& box) {
    XMoveResizeWindow(yydisplay.display, window, box.x, box.y, extent(box.width),
                      extent(box.height));
}

ItemWidths widths_of(const MenuItem& item, const ItemText& text) {
    if (item.is_separator()) return {.separator = true};
    return {.left = text_width(wFonts.menu, text.left),
            .middle = text_width(wFonts.menu, text.middle),
            .right = text_width(wFonts.menu, text.right)};
}

void lay_out_popup(Menu& menu, int number) {
    const std::vector<int> rows = menu.record.rows_of(number);
    std::vector<ItemWidths> widths;
    widths.reserve(rows.size());
    for (const int row : rows)
        widths.push_back(widths_of(menu.record.item(row), menu.item(row).text));
    const PopUpLayout layout = yymnpopupwidth(widths, metrics());
    MenuPopUpWindow& popup = menu.popup(number);
    popup.box.width = layout.width;
    popup.box.height = layout.height;
    popup.middle_x = layout.middle_x;
    place_window(popup.window, popup.box);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        menu.item(rows[i]).box = layout.items[i];
        place_window(menu.item(rows[i]).window, layout.items[i]);
    }
}

BarLayout bar_layout(const MenuRecord& record, int width) {
    std::vector<int> widths;
    for (const int row : record.rows_of(0))
        widths.push_back(yymntopitemresize(
            text_width(wFonts.menu, yymnitemtextinfo(record.item(row).label).left)));
    return lay_out_bar(widths, width, yymenuheight());
}

void lay_out_bar_items(Menu& menu) {
    const std::vector<int> rows = menu.record.rows_of(0);
    const BarLayout layout = bar_layout(menu.record, menu.popup(0).box.width);
    menu.bar_rows = layout.rows;
    menu.popup(0).box.height = layout.rows * yymenuheight();
    place_window(menu.popup(0).window, menu.popup(0).box);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        menu.item(rows[i]).box = layout.items[i];
        place_window(menu.item(rows[i]).window, layout.items[i]);
    }
}

bool is_bar(const Menu& menu, int popup) { return popup == 0 && !menu.floating; }

std::unique_ptr<Menu> build(std::unique_ptr<MenuRecord> record, int window, bool floating) {
    auto menu = std::make_unique<Menu>();
    menu->record = std::move(*record);
    menu->window = window;
    menu->floating = floating;
    menu->items.resize(menu->record.items.size());
    menu->popups.resize(menu->record.popups.size());
    for (int row = 0; row < menu->record.item_count(); ++row)
        menu->item(row).text = yymnitemtextinfo(menu->record.item(row).label);
    for (int number = 0; number < menu->record.popup_count(); ++number) {
        const bool bar = is_bar(*menu, number);
        MenuPopUpWindow& popup = menu->popup(number);
        popup.window = create_window(bar ? window_slot(window).window : yydisplay.root,
                                     {0, 0, 1, yymenuheight()}, !bar);
        for (const int row : menu->record.rows_of(number))
            menu->item(row).window = create_window(popup.window, {}, false);
        XMapSubwindows(yydisplay.display, popup.window);
        if (bar) {
            popup.box.width = yydisplay.width;
            lay_out_bar_items(*menu);
            XMapWindow(yydisplay.display, popup.window);
        } else {
            lay_out_popup(*menu, number);
        }
    }
    return menu;
}

MenuSpot spot_in(Menu& menu, Window window) {
    for (int number = 0; number < menu.record.popup_count(); ++number)
        if (menu.popup(number).window == window)
            return {&menu, is_bar(menu, number) ? MenuPart::Bar : MenuPart::PopUp, number, -1};
    for (int row = 0; row < menu.record.item_count(); ++row)
        if (menu.item(row).window == window)
            return {&menu, MenuPart::Item, menu.record.popup_around(row), row};
    return {};
}

void show_at(Menu& menu, int number, const Place& place) {
    MenuPopUpWindow& popup = menu.popup(number);
    popup.box.x = place.x;
    popup.box.y = place.y;
    place_window(popup.window, popup.box);
    XMapRaised(yydisplay.display, popup.window);
}

}  // namespace

Menu* menu_of(int window) {
    if (window < 0 || window >= window_slots) return nullptr;
    return pwRootMenuSub[static_cast<std::size_t>(window)].get();
}

int window_with_menu(int window) {
    while (window >= 0 && !menu_of(window)) window = window_slot(window).parent;
    return window;
}

int yymenuheight() { return wFonts.menu.height() + beside_text; }
int yymenubaseline() { return wFonts.menu.measures.ascent + above_text; }
int yymenuunderline() { return yymenubaseline() + below_baseline; }

int yymnheightof(int menu, int width) {
    std::unique_ptr<MenuRecord> record;
    yymnrcload(menu, record);
    return record ? bar_layout(*record, width).rows * yymenuheight() : 0;
}

void yymncreateitems(std::unique_ptr<MenuRecord> record, int window) {
    auto& menu = pwRootMenuSub[static_cast<std::size_t>(window)];
    yymndestroywindows(menu);
    menu = build(std::move(record), window, false);
}

void yymncreatefloat(std::unique_ptr<MenuRecord> record, int window) {
    yymndestroywindows(pwFloatMenu);
    pwFloatMenu = build(std::move(record), window, true);
}

void yymndestroywindows(std::unique_ptr<Menu>& menu) {
    if (!menu) return;
    for (const MenuPopUpWindow& popup : menu->popups)
        XDestroyWindow(yydisplay.display, popup.window);
    menu.reset();
}

int yymnresize(int window, int width) {
    Menu* menu = menu_of(window);
    if (!menu) return 0;
    menu->popup(0).box.width = std::max(width, 1);
    lay_out_bar_items(*menu);
    return yymnheight(window);
}

int yymnheight(int window) {
    const Menu* menu = menu_of(window);
    return menu ? menu->bar_rows * yymenuheight() : 0;
}

void yymnlayoutaround(Menu& menu, int row) {
    menu.item(row).text = yymnitemtextinfo(menu.record.item(row).label);
    const int number = menu.record.popup_around(row);
    if (number < 0) return;
    if (is_bar(menu, number)) {
        lay_out_bar_items(menu);
    } else {
        lay_out_popup(menu, number);
    }
}

void select_item_events(const Menu& menu, bool active) {
    for (const MenuItemWindow& item : menu.items)
        XSelectInput(yydisplay.display, item.window,
                     active ? idle_events | ActiveMenuEvents : idle_events);
}

MenuSpot yymnmatchmenu(Window window) {
    if (window == 0) return {};
    for (const auto& menu : pwRootMenuSub) {
        if (!menu) continue;
        if (const MenuSpot spot = spot_in(*menu, window); spot.menu) return spot;
    }
    return pwFloatMenu ? spot_in(*pwFloatMenu, window) : MenuSpot{};
}

Box yymngetposabsolute(const Menu& menu, int row) {
    Box box = menu.item(row).box;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, menu.item(row).window, yydisplay.root, 0, 0, &box.x,
                          &box.y, &child);
    return box;
}

void yymnpositionroot(Menu& menu, int number) {
    const Box& popup = menu.popup(number).box;
    const int parent = menu.record.popups[static_cast<std::size_t>(number)].parent;
    const Box item = yymngetposabsolute(menu, parent);
    const bool from_bar = is_bar(menu, menu.record.popup_around(parent));
    show_at(menu, number,
            from_bar ? place_below(item, popup.width, popup.height, screen_box())
                     : place_beside(item, popup.width, popup.height, screen_box()));
}

void yymnpositionroot(Menu& menu, int x, int y) {
    const Box& popup = menu.popup(0).box;
    show_at(menu, 0, place_at(x, y, popup.width, popup.height, screen_box()));
}

bool bring_into_view(Menu& menu, int row) {
    const int number = menu.record.popup_around(row);
    if (number < 0 || is_bar(menu, number)) return false;
    Box& popup = menu.popup(number).box;
    const int y = y_with_item(popup, menu.item(row).box, screen_box());
    if (y == popup.y) return false;
    popup.y = y;
    place_window(menu.popup(number).window, popup);
    return true;
}

void hide_popup(const Menu& menu, int number) {
    XUnmapWindow(yydisplay.display, menu.popup(number).window);
}

}  // namespace tesserakit
