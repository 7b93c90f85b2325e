// The open pop-ups are a chain: the bar (or the free pop-up) first, each next one opened by the
// highlighted row of the one before. Everything that happens moves a highlight at some depth, and
// what is deeper closes.

#include "toolkit/menus/interaction.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/menus/accelerators.hpp"
#include "toolkit/menus/drawing.hpp"
#include "toolkit/menus/tooltips.hpp"
#include "toolkit/messages/snapshots.hpp"
#include "toolkit/windows/gl_target.hpp"

#include <X11/StringDefs.h>
#include <X11/keysym.h>

#include <algorithm>
#include <utility>

namespace tesserakit {

constinit int iCurMenuItem = -1;

namespace {

struct OpenPopUp {
    int popup = 0;
    int row = -1;  // highlighted
};

struct State {
    std::vector<OpenPopUp> chain;
    bool iMenuAutoPop = false;  // a free pop-up waits for the release of what brought it up
    int iTopItemPress = -1;     // row of the bar under the press
    bool closes = false;        // that press was on the row that is pulled down
    bool iGrabPointer = false;
    bool mended = false;  // a pop-up has closed, and what it covered was mended from a copy
    Place pointer;        // last seen: a pop-up that comes up below it isn't entered
    Window focus = 0;     // before the menu
    int revert_to = RevertToParent;
    Box owner;  // the bar on the screen, and its shell's size
};
State& state = *new State;

Window main_window(const Menu& menu) { return menu.popup(0).window; }

int deepest() { return static_cast<int>(state.chain.size()) - 1; }
OpenPopUp& open_at(int depth) { return state.chain[static_cast<std::size_t>(depth)]; }

int depth_of(int popup) {
    const auto found = std::ranges::find(state.chain, popup, &OpenPopUp::popup);
    return found == state.chain.end() ? -1 : static_cast<int>(found - state.chain.begin());
}

void note_current() {
    iCurMenuItem = -1;
    for (const OpenPopUp& open : state.chain)
        if (open.row >= 0) iCurMenuItem = open.row;
}

/// The status bar says what the current item does; blank over an item without a prompt.
void show_prompt(const Menu& menu) {
    const auto& bar = window_slot(menu.window).status_bar;
    if (!bar || menu.record.prompts.empty()) return;
    std::string_view prompt;
    if (iCurMenuItem >= 0)
        prompt = menu.record.prompt_of(menu.record.item(iCurMenuItem).identifier);
    yyStatusBarHelp(*bar, prompt.empty() ? std::string_view(" ") : prompt);
}

void end_prompt(const Menu& menu) {
    if (const auto& bar = window_slot(menu.window).status_bar) yyStatusBarHelp(*bar, "");
}

/// Closes what is deeper than `depth`.
void close_below(int depth) {
    while (deepest() > depth) {
        const OpenPopUp& last = state.chain.back();
        if (last.row >= 0) yymninvert(*pwActiveMenu, last.row, false);
        hide_popup(*pwActiveMenu, last.popup);
        state.mended = true;
        state.chain.pop_back();
    }
    note_current();
}

void note_pointer() {
    Window ignored = 0;
    int x = 0;
    int y = 0;
    unsigned buttons = 0;
    XQueryPointer(yydisplay.display, yydisplay.root, &ignored, &ignored, &state.pointer.x,
                  &state.pointer.y, &x, &y, &buttons);
}

void highlight(int depth, int row) {
    OpenPopUp& open = open_at(depth);
    if (open.row != row) {
        if (open.row >= 0) yymninvert(*pwActiveMenu, open.row, false);
        if (row >= 0) yymninvert(*pwActiveMenu, row, true);
        open.row = row;
        // What comes to lie under the pointer isn't entered by it.
        if (row >= 0 && bring_into_view(*pwActiveMenu, row)) note_pointer();
    }
    note_current();
    show_prompt(*pwActiveMenu);
}

void open_popup_of(int row) {
    const int popup = pwActiveMenu->record.popup_below(row);
    if (popup < 0 || pwActiveMenu->record.item(row).is_greyed()) return;
    yymnpositionroot(*pwActiveMenu, popup);
    // Its exposures come behind what the application draws between two polls.
    yymndrawpopup(*pwActiveMenu, popup);
    state.chain.push_back({popup, -1});
}

/// Highlights a row, with its pop-up open below it.
void point_at(int depth, int row) {
    if (open_at(depth).row == row && deepest() > depth) {
        close_below(depth + 1);
        highlight(depth + 1, -1);
        return;
    }
    close_below(depth);
    if (row >= 0 && pwActiveMenu->record.item(row).is_separator()) row = -1;
    highlight(depth, row);
    if (row >= 0) open_popup_of(row);
}

/// The same by a key: the pop-up's first item is highlighted.
void descend(int depth, int row) {
    point_at(depth, row);
    if (deepest() == depth + 1)
        highlight(depth + 1, neighbour(pwActiveMenu->record, open_at(depth + 1).popup, -1, false));
}

Window focus_holder() {
    Window focus = 0;
    int revert_to = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert_to);
    return focus;
}

/// Where a menu stands, and the size of its owner.
Box owner_box(const Menu& menu) {
    Box box;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, main_window(menu), yydisplay.root, 0, 0, &box.x,
                          &box.y, &child);
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(window_slot(menu.window).shell_widget, XtNwidth, &width, XtNheight, &height,
                  nullptr);
    box.width = width;
    box.height = height;
    return box;
}

/// The owner is moved, sized, unmapped or loses the focus to another window: the window manager
/// asks nobody before it does that, and a pop-up on the root would stay where it is.
void owner_changed(Widget, XtPointer, XEvent* event, Boolean*) {
    if (!pwActiveMenu) return;
    const auto leaves = [](const XFocusChangeEvent& focus) {
        return (focus.mode == NotifyNormal || focus.mode == NotifyWhileGrabbed) &&
               focus.detail != NotifyInferior && focus.detail != NotifyPointer &&
               focus_holder() != main_window(*pwActiveMenu);
    };
    const bool gone = event->type == UnmapNotify ||
                      (event->type == FocusOut && leaves(event->xfocus)) ||
                      (event->type == ConfigureNotify && owner_box(*pwActiveMenu) != state.owner);
    if (gone) yymndeactivate();
}

void watch_owner(const Menu& menu, bool watch) {
    const Widget shell = window_slot(menu.window).shell_widget;
    constexpr EventMask events = StructureNotifyMask | FocusChangeMask;
    if (!shell) return;
    if (watch) {
        state.owner = owner_box(menu);
        XtAddEventHandler(shell, events, False, owner_changed, nullptr);
    } else {
        XtRemoveEventHandler(shell, events, False, owner_changed, nullptr);
    }
}

void take_focus(const Menu& menu) {
    XGetInputFocus(yydisplay.display, &state.focus, &state.revert_to);
    XSetInputFocus(yydisplay.display, main_window(menu), RevertToParent, CurrentTime);
}

/// Unless another window has taken the focus meanwhile. The one that had it may be gone.
void give_focus_back(const Menu& menu) {
    if (focus_holder() != main_window(menu) || state.focus == main_window(menu)) return;
    ErrorTrap trap;
    XSetInputFocus(yydisplay.display, state.focus, state.revert_to, CurrentTime);
    trap.error();
}

void grab(const Menu& menu) {
    constexpr unsigned events =
        ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask;
    state.iGrabPointer =
        XGrabPointer(yydisplay.display, main_window(menu), True, events, GrabModeSync,
                     GrabModeAsync, 0, 0, CurrentTime) == GrabSuccess;
}

void expose_all(Widget widget) {
    XWindowAttributes attributes;
    const Window window = widget ? XtWindowOfObject(widget) : 0;
    if (window == 0 || !XGetWindowAttributes(yydisplay.display, window, &attributes)) return;
    XEvent event{};
    event.xexpose.type = Expose;
    event.xexpose.window = window;
    event.xexpose.width = attributes.width;
    event.xexpose.height = attributes.height;
    XSendEvent(yydisplay.display, window, False, ExposureMask, &event);
}

/// Pop-ups leave holes in pictures that only the application can draw, and it is told of none while
/// the menu is open: copies mend them meanwhile. What it has drawn since is newer than the copies,
/// so at the end of a menu in which that has happened it draws once.
void forget_pictures(bool mended) {
    yygetwindowbitmap(false);
    if (!mended) return;
    expose_all(gl_field_widget());
    for (const WindowSlot& slot : windows)
        if (slot.open() && slot.dialog < 0) expose_all(slot.client_widget);
}

// Pointer

MenuAnswer taken() { return {.consumed = true}; }

MenuAnswer selected(int row) {
    const int item = yymnselect(row);
    if (item < 0) return taken();
    yymndeactivate();
    return {.consumed = true, .item = item};
}

bool counts(const XButtonEvent& event) { return event.button == Button1; }

/// A press on a row of a bar; in the bar of another window it first closes what is open.
MenuAnswer press_on_top(const XButtonEvent& event, const MenuSpot& spot) {
    if (pwActiveMenu != spot.menu) yymndeactivate();
    if (!counts(event)) return taken();
    const MenuItem& item = spot.menu->record.item(spot.row);
    state.iTopItemPress = spot.row;
    state.closes = pwActiveMenu && open_at(0).row == spot.row;
    if (item.is_separator() || item.is_greyed()) return taken();
    if (!pwActiveMenu) {
        yymnactivate(spot.row, *spot.menu);
    } else if (!state.closes) {
        point_at(0, spot.row);
    }
    return taken();
}

MenuAnswer press(const XButtonEvent& event, const MenuSpot& spot) {
    if (spot.row >= 0 && spot.popup == 0 && !spot.menu->floating) return press_on_top(event, spot);
    if (spot.row >= 0 || spot.part == MenuPart::PopUp) {
        const int depth = pwActiveMenu == spot.menu ? depth_of(spot.popup) : -1;
        if (depth >= 0 && spot.row >= 0 && open_at(depth).row != spot.row && counts(event))
            point_at(depth, spot.row);
        return taken();
    }
    if (!pwActiveMenu) return {.consumed = spot.part == MenuPart::Bar};
    yymndeactivate();
    return taken();
}

MenuAnswer release(const XButtonEvent& event, const MenuSpot& spot) {
    if (!pwActiveMenu) return {.consumed = spot.part != MenuPart::Nothing};
    const bool floating = pwActiveMenu->floating;
    if (!counts(event) && !(floating && state.iMenuAutoPop)) return taken();
    const int pressed = std::exchange(state.iTopItemPress, -1);
    const bool stays = std::exchange(state.iMenuAutoPop, false);
    const int row = spot.menu == pwActiveMenu && spot.row == iCurMenuItem ? spot.row : -1;
    if (yymnselect(row) >= 0) return selected(row);
    // The button that brought a free pop-up up is released beside its items: a click.
    if (floating && stays) return taken();
    const bool on_pressed = pressed >= 0 && spot.row == pressed && spot.menu == pwActiveMenu;
    if (on_pressed && state.closes) {
        yymndeactivate();
        return taken();
    }
    const bool opens = spot.menu == pwActiveMenu && spot.row >= 0 &&
                       spot.menu->record.item(spot.row).has_popup() &&
                       !spot.menu->record.item(spot.row).is_greyed();
    if (!opens) yymndeactivate();
    return taken();
}

// Keys

bool closes_menu(KeySym key) {
    constexpr std::array keys{XK_F10, XK_Escape, XK_Alt_L, XK_Alt_R, XK_Meta_L, XK_Meta_R};
    return std::ranges::count(keys, static_cast<int>(key)) > 0;
}

struct DirectionKey {
    KeySym key;
    KeySym keypad;
    MenuDirection direction;
};
constexpr std::array direction_keys{
    DirectionKey{XK_Up, XK_KP_Up, MenuUp},       DirectionKey{XK_Down, XK_KP_Down, MenuDown},
    DirectionKey{XK_Left, XK_KP_Left, MenuLeft}, DirectionKey{XK_Right, XK_KP_Right, MenuRight},
    DirectionKey{XK_Home, XK_KP_Home, MenuHome},
};

/// Return on the current item, or its mnemonic.
MenuAnswer choose(int depth, int row) {
    if (row < 0) return taken();
    if (is_selectable(pwActiveMenu->record, row)) return selected(row);
    if (pwActiveMenu->record.item(row).has_popup()) descend(depth, row);
    return taken();
}

/// Depth of the current item: of the bar while the pop-up below it has no highlight yet.
int current_depth() {
    int depth = deepest();
    while (depth > 0 && open_at(depth).row < 0) --depth;
    return depth;
}

MenuAnswer key_in_menu(KeySym key) {
    if (closes_menu(key)) {
        yymndeactivate();
        return taken();
    }
    const auto direction = std::ranges::find_if(direction_keys, [key](const DirectionKey& row) {
        return row.key == key || row.keypad == key;
    });
    if (direction != direction_keys.end()) {
        yymnnavigatedir(direction->direction, current_depth());
        return taken();
    }
    if (key == XK_Return || key == XK_KP_Enter) return choose(current_depth(), iCurMenuItem);
    const int depth = deepest();
    return choose(
        depth, yymnkey2item(pwActiveMenu->record, open_at(depth).popup, open_at(depth).row, key));
}

/// Pulls down by a key: the pop-up's first item is highlighted, and the pointer, wherever it rests,
/// has no say until it moves.
MenuAnswer open_by_key(Menu& menu, int row) {
    if (row < 0) return {};
    if (is_selectable(menu.record, row))
        return {.consumed = true, .item = menu.record.item(row).identifier};
    note_pointer();
    yymnactivate(row, menu);
    descend(0, row);
    return taken();
}

/// Moves along the bar, with the neighbour's pop-up open.
void move_in_bar(bool backwards) {
    const int row = neighbour(pwActiveMenu->record, 0, open_at(0).row, backwards);
    if (row >= 0) descend(0, row);
}

}  // namespace

void yymnactivate(int row, Menu& menu) {
    yymndeactivate();
    yymnDestroyCurrentTooltip();
    pwActiveMenu = &menu;
    yygetwindowbitmap(true);
    state.mended = false;
    state.chain = {{0, -1}};
    note_current();
    show_prompt(menu);
    watch_owner(menu, true);
    take_focus(menu);
    grab(menu);
    select_item_events(menu, true);
    if (row >= 0) point_at(0, row);
    // Last, so that the server first has the pop-up on the screen.
    yymngrabmaintain();
}

void yymndeactivate() {
    if (!pwActiveMenu) return;
    Menu& menu = *pwActiveMenu;
    const bool mended = state.mended;
    close_below(0);
    highlight(0, -1);
    pwActiveMenu = nullptr;
    state.chain.clear();
    state.iMenuAutoPop = false;
    state.iTopItemPress = -1;
    iCurMenuItem = -1;
    select_item_events(menu, false);
    end_prompt(menu);
    watch_owner(menu, false);
    if (std::exchange(state.iGrabPointer, false)) XUngrabPointer(yydisplay.display, CurrentTime);
    // Before its window goes: the server would give the focus to the screen.
    give_focus_back(menu);
    if (menu.floating) hide_popup(menu, 0);
    forget_pictures(mended);
    XFlush(yydisplay.display);
}

void yymngrabmaintain() {
    if (!pwActiveMenu) return;
    if (state.iGrabPointer) XAllowEvents(yydisplay.display, SyncPointer, CurrentTime);
    // What the menu shows doesn't wait for the application's next frame.
    XFlush(yydisplay.display);
}

int yymnselect(int row) {
    return pwActiveMenu && is_selectable(pwActiveMenu->record, row)
               ? pwActiveMenu->record.item(row).identifier
               : -1;
}

void yymnnavigatedir(MenuDirection direction, int depth) {
    const MenuRecord& record = pwActiveMenu->record;
    const bool bar = depth == 0 && !pwActiveMenu->floating;
    const int row = open_at(depth).row;
    switch (direction) {
        case MenuUp:
        case MenuDown:
            if (bar) {
                if (row >= 0) descend(0, row);
                return;
            }
            close_below(depth);
            highlight(depth, neighbour(record, open_at(depth).popup, row, direction == MenuUp));
            return;
        case MenuHome:
            if (bar) return;
            close_below(depth);
            highlight(depth, neighbour(record, open_at(depth).popup, -1, false));
            return;
        case MenuRight:
            if (!bar && row >= 0 && record.item(row).has_popup() && !record.item(row).is_greyed()) {
                descend(depth, row);
            } else if (!pwActiveMenu->floating) {
                move_in_bar(false);
            }
            return;
        case MenuLeft:
            // The first pop-up of a bar gives way to that of the item before.
            if (depth > 1 || (depth == 1 && pwActiveMenu->floating)) {
                close_below(depth - 1);
                show_prompt(*pwActiveMenu);
            } else if (!pwActiveMenu->floating) {
                move_in_bar(true);
            }
            return;
    }
}

MenuAnswer yymninterpretbutton(const XButtonEvent& event, int) {
    yymnDestroyCurrentTooltip();
    state.pointer = {event.x_root, event.y_root};
    const MenuSpot spot = yymnmatchmenu(event.window);
    return event.type == ButtonPress ? press(event, spot) : release(event, spot);
}

void yymninterpretcrossing(const XCrossingEvent& event) {
    if (!pwActiveMenu || event.mode != NotifyNormal) return;
    const MenuSpot spot = yymnmatchmenu(event.window);
    const int depth = spot.menu == pwActiveMenu && spot.row >= 0 ? depth_of(spot.popup) : -1;
    if (depth < 0) return;
    if (event.type == LeaveNotify) {
        if (depth == deepest() && open_at(depth).row == spot.row) highlight(depth, -1);
        return;
    }
    const Place pointer{event.x_root, event.y_root};
    if (std::exchange(state.pointer, pointer) == pointer) return;
    const int y = pwActiveMenu->popup(spot.popup).box.y;
    point_at(depth, spot.row);
    // At the edge of the screen a pop-up taller than that runs on under the pointer.
    if (pwActiveMenu->popup(spot.popup).box.y != y) state.pointer = {-1, -1};
}

MenuAnswer yymninterpretkey(KeySym key, int window, unsigned modifiers) {
    if (pwActiveMenu) return key_in_menu(key);
    Menu* menu = menu_of(window_with_menu(window));
    if (!menu) return {};
    const int bits = yyacmodifiers(modifiers);
    // An accelerator of the menu's own comes first.
    if (accelerator_item(menu->record, key, bits) != 0) return {};
    if (key == XK_F10 && bits == 0)
        return open_by_key(*menu, neighbour(menu->record, 0, -1, false));
    if (bits == AcceleratorAlt) return open_by_key(*menu, yymnkey2item(menu->record, 0, -1, key));
    return {};
}

void yymnflot(std::unique_ptr<MenuRecord> record, int x, int y, int window) {
    yymndeactivate();
    if (!record || record->items.empty() || !window_slot(window).open()) return;
    yymncreatefloat(std::move(record), window);
    note_pointer();
    yymnpositionroot(*pwFloatMenu, x, y);
    yymnactivate(-1, *pwFloatMenu);
    state.iMenuAutoPop = true;
}

void yymnflot(int menu, int x, int y, int window) {
    std::unique_ptr<MenuRecord> record;
    yymnrcload(menu, record);
    yymnflot(std::move(record), x, y, window);
}

}  // namespace tesserakit
