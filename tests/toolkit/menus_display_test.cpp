#include "tests/support/display_input.hpp"
#include "toolkit/tesserakit.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/menus/interaction.hpp"
#include "toolkit/menus/menus.hpp"
#include "toolkit/menus/toolbars.hpp"
#include "toolkit/menus/tooltips.hpp"
#include "toolkit/windows/window_placing.hpp"

#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>

// A user in the menus, with a block of their own.

using namespace tesserakit;
using namespace display_input;
using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr int file = 10, new_item = 11, open_item = 12, exit_item = 13;
constexpr int view = 20, zoom = 21, zoom_in = 22, grid = 24, greyed = 25, axes = 26;
constexpr int help = 30;
constexpr int counting = 40;  // on the toolbar only
constexpr int none = -1;

Menu& menu(int window = 0) { return *menu_of(window); }
int row(int item) { return menu().record.row_of(item); }

Point middle(const Box& box) { return {box.x + box.width / 2, box.y + box.height / 2}; }
Point place(int item) { return middle(yymngetposabsolute(menu(), row(item))); }
/// The separator before an item.
Point separator_above(int item) {
    const Box box = yymngetposabsolute(menu(), row(item));
    return {box.x + 20, box.y - 4};
}

bool viewable(Window window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(yydisplay.display, window, &attributes) &&
           attributes.map_state == IsViewable;
}
bool pulled_down(int item) {
    return viewable(menu().popup(menu().record.popup_below(row(item))).window);
}
int current() {
    return iCurMenuItem < 0 ? none : pwActiveMenu->record.item(iCurMenuItem).identifier;
}

/// What an earlier menu has covered may still be told meanwhile.
void reach(const std::function<bool()>& state) {
    EXPECT_THAT(poll_until(state), Each(int{ExposeMessage}));
}
void point_to(int item) {
    move_to(place(item));
    reach([=] { return current() == item; });
}
void open(int item) {
    click(place(item));
    reach([=] { return pulled_down(item); });
    drain();
}
void press_key(const std::string& name, int then_current) {
    SCOPED_TRACE(name);
    key(name);
    reach([=] { return current() == then_current; });
}

Window focus_holder() {
    Window focus = 0;
    int revert_to = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert_to);
    return focus;
}

/// Another program can have the pointer: no grab is left.
bool pointer_is_free() {
    Display* other = XOpenDisplay(nullptr);
    const int status = XGrabPointer(other, DefaultRootWindow(other), False, 0, GrabModeAsync,
                                    GrabModeAsync, 0, 0, CurrentTime);
    XCloseDisplay(other);
    return status == GrabSuccess;
}

std::vector<int> types(const std::vector<Received>& messages) {
    std::vector<int> found;
    for (const Received& message : messages) found.push_back(message.type);
    return found;
}

/// After whatever happened: nothing is on the screen, the pointer is free, and the menu works.
void expect_closed_and_working() {
    drain();
    EXPECT_FALSE(pwActiveMenu);
    for (const MenuPopUpWindow& popup : menu().popups)
        EXPECT_TRUE(&popup == &menu().popups[0] || !viewable(popup.window));
    EXPECT_TRUE(pointer_is_free());
    open(file);
    click(place(open_item));
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, open_item);
    EXPECT_FALSE(pwActiveMenu);
    EXPECT_TRUE(pointer_is_free());
}

struct MenusDisplay : testing::Test {
    void SetUp() override {
        windowopen2({.flags = 7 | 32,
                     .x = 300,
                     .y = 200,
                     .width = 400,
                     .height = 300,
                     .menu = 1,
                     .toolbars = {2, 0, 0, 0},
                     .title = "Menus"});
        ASSERT_EQ(infoerror(1), 0);
        window = window_titled("Menus");
        wmessageenable(MouseButUp, 1);
        drain();
    }
    Point client() const { return {window.x + 200, window.y + window.height - 100}; }
    Rectangle window;
};

}  // namespace

TEST_F(MenusDisplay, AClickLeavesAMenuOpenAndTheNextClosesIt) {
    open(file);
    EXPECT_THAT(drain(), IsEmpty());
    EXPECT_TRUE(pulled_down(file));
    click(place(file));
    reach([] { return !pwActiveMenu; });
    EXPECT_FALSE(pulled_down(file));
    expect_closed_and_working();
}

TEST_F(MenusDisplay, AMenuIsWholeOnTheScreenBeforeTheNextPoll) {
    yymnactivate(row(view), menu());
    settle();
    const Box& box = menu().popup(menu().record.popup_below(row(view))).box;
    const Rectangle area{box.x, box.y, box.width, box.height};
    const std::vector<unsigned> at_once = pixels(area);
    drain();
    EXPECT_EQ(at_once, pixels(area));
    yymndeactivate();
    drain();
}

TEST_F(MenusDisplay, ADragSelectsTheItemWhereItEnds) {
    move_to(place(file));
    press();
    poll_until([] { return pulled_down(file); });
    move_to(place(new_item));
    point_to(open_item);
    EXPECT_THAT(drain(), IsEmpty());
    release();
    const MessageRecord message = wait_for(MenuSelect);
    EXPECT_EQ(message.VALUE1, open_item);
    EXPECT_EQ(message.WIN, 0);
    EXPECT_EQ(message.VALUE3, 0);
    EXPECT_FALSE(pwActiveMenu);
    EXPECT_FALSE(pulled_down(file));
    EXPECT_THAT(types(drain()), Not(Contains(int{MouseButUp})));
}

TEST_F(MenusDisplay, ReleasesOnGreyedItemsSeparatorsAndOutsideCloseAndTellNothing) {
    const auto ends = {+[] { return place(greyed); }, +[] { return separator_above(grid); },
                       +[] {
                           return Point{place(help).x + 150, place(help).y};
                       }};
    for (const auto& end : ends) {
        move_to(place(view));
        press();
        reach([] { return pulled_down(view); });
        move_to(end());
        drain();
        release();
        reach([] { return !pwActiveMenu; });
        EXPECT_THAT(types(drain()), Each(int{ExposeMessage}));
    }
    expect_closed_and_working();
}

TEST_F(MenusDisplay, ThePointerMovesTheHighlightAndOpensSubMenus) {
    open(file);
    point_to(new_item);
    point_to(view);
    EXPECT_FALSE(pulled_down(file));
    EXPECT_TRUE(pulled_down(view));
    point_to(zoom);
    poll_until([] { return pulled_down(zoom); });
    point_to(zoom_in);
    const Box zoom_box = yymngetposabsolute(menu(), row(zoom));
    EXPECT_EQ(menu().popup(menu().record.popup_below(row(zoom))).box.x, zoom_box.x + zoom_box.width)
        << "beside it";
    EXPECT_TRUE(pulled_down(zoom)) << "its item stays highlighted";
    EXPECT_TRUE(menu().item(row(zoom)).inverted);
    point_to(axes);
    EXPECT_FALSE(pulled_down(zoom));
    EXPECT_FALSE(menu().item(row(zoom)).inverted);
    point_to(zoom);
    click(place(zoom));
    EXPECT_THAT(types(drain()), IsEmpty()) << "a click on it opens it";
    EXPECT_TRUE(pulled_down(zoom));
    point_to(zoom_in);
    click(place(zoom_in));
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, zoom_in);
    EXPECT_FALSE(pulled_down(view));
}

TEST_F(MenusDisplay, WhatThePointerLeavesIsNotSelected) {
    open(file);
    point_to(open_item);
    move_to(separator_above(exit_item));
    reach([] { return current() == file; });
}

TEST_F(MenusDisplay, NothingReachesTheApplicationWhileAMenuIsOpen) {
    open(file);
    type("q");
    move_to(client());
    cover_and_uncover({window.x, window.y, window.width, window.height});
    EXPECT_THAT(drain(), IsEmpty());
    key("Escape");
    const auto later = poll_until([] { return !pwActiveMenu; });
    EXPECT_THAT(later, Each(int{ExposeMessage}));
    EXPECT_THAT(types(drain()), Each(int{ExposeMessage}));
    EXPECT_TRUE(pointer_is_free());
}

TEST_F(MenusDisplay, WhatAPopUpCoveredIsThereAgainAtOnceAndIsDrawnAfterTheMenu) {
    XGCValues values{};
    values.foreground = wSchemeCol.highlight;
    const GC gc = XCreateGC(yydisplay.display, window_slot(0).client, GCForeground, &values);
    XFillRectangle(yydisplay.display, window_slot(0).client, gc, 0, 0, 400, 300);
    XFreeGC(yydisplay.display, gc);
    drain();
    // The application draws nothing while the menu is open, as it is told nothing.
    const Rectangle below{place(view).x, place(view).y + 60, 40, 40};
    const std::vector<unsigned> before = pixels(below);
    EXPECT_THAT(before, Each(static_cast<unsigned>(wSchemeCol.highlight & 0xffffffU)));
    open(view);
    EXPECT_NE(pixels(below), before);
    point_to(help);
    drain();
    EXPECT_EQ(pixels(below), before);
    key("Escape");
    constexpr int whole_width = 9999;
    while (wait_for(ExposeMessage).VALUE1 != whole_width && !HasFailure()) continue;
}

TEST_F(MenusDisplay, APressOutsideClosesAndIsNotDelivered) {
    open(file);
    click(client());
    reach([] { return !pwActiveMenu; });
    EXPECT_THAT(types(drain()), Each(int{ExposeMessage}));
    click(client());
    EXPECT_EQ(wait_for(MouseButDown).WIN, 0);
    wait_for(MouseButUp);
    expect_closed_and_working();
}

TEST_F(MenusDisplay, TheKeyboardReachesEveryItem) {
    click(client());
    drain();
    const Window focus = focus_holder();
    press_key("F10", new_item);
    EXPECT_NE(focus_holder(), focus);
    press_key("Down", open_item);
    press_key("Down", exit_item);
    press_key("Down", new_item);
    press_key("Up", exit_item);
    press_key("Home", new_item);
    press_key("Right", zoom);
    EXPECT_FALSE(pulled_down(file));
    press_key("Right", zoom_in);
    press_key("Left", zoom);
    EXPECT_FALSE(pulled_down(zoom));
    press_key("Left", new_item);
    press_key("Left", 31);
    EXPECT_TRUE(pulled_down(help)) << "around the end";
    press_key("Right", new_item);
    press_key("KP_Down", open_item);
    key("Return");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, open_item);
    for (const char* closing : {"Escape", "F10", "Alt_L"}) {
        press_key("F10", new_item);
        key(closing);
        reach([] { return !pwActiveMenu; });
    }
    key("a");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'a');
    EXPECT_EQ(focus_holder(), focus) << "it is back";
    EXPECT_TRUE(pointer_is_free());
}

TEST_F(MenusDisplay, KeysGoOnWhereThePointerLeftOff) {
    open(view);
    press_key("Down", zoom);
    point_to(zoom);
    reach([] { return pulled_down(zoom); });
    point_to(zoom_in);
    point_to(zoom);
    press_key("Right", zoom_in);
    point_to(axes);
    point_to(zoom);
    press_key("Down", grid);
    EXPECT_FALSE(pulled_down(zoom));
    press_key("Right", 31);
    key("Escape");
    reach([] { return !pwActiveMenu; });
}

TEST_F(MenusDisplay, ADialogShownOverAMenuClosesItAtOnce) {
    constexpr int dialog = 9;
    wdialogload(dialog);
    ASSERT_EQ(infoerror(1), 0);
    for (const int mode : {DialogModeless, DialogSemiModal}) {
        open(file);
        wdialogshow(600, 600, 0, mode);
        EXPECT_FALSE(pwActiveMenu) << mode;
        EXPECT_FALSE(pulled_down(file));
        EXPECT_TRUE(pointer_is_free());
        window_titled("Over");
        drain();
        wdialoghide();
        expect_closed_and_working();
    }
}

TEST_F(MenusDisplay, MnemonicsOpenAndSelect) {
    click(client());
    drain();
    press_key("alt+v", zoom);
    press_key("z", zoom_in);
    key("o");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, 23);
    press_key("alt+v", zoom);
    press_key("r", zoom);
    EXPECT_TRUE(pulled_down(view)) << "a greyed item's mnemonic does nothing";
    key("g");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, grid);
    key("v");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'v') << "without Alt it is a key";
}

TEST_F(MenusDisplay, ThePointerThatRestsUnderAMenuOpenedByKeysHasNoSay) {
    open(file);
    const Point under = place(exit_item);
    key("Escape");
    click(client());
    drain();
    move_to(under);
    drain();
    press_key("F10", new_item);
    drain();
    EXPECT_EQ(current(), new_item);
    key("Escape");
    drain();
}

TEST_F(MenusDisplay, AcceleratorsAndPromptsComeFromTables) {
    constexpr std::array<DynamicMenuRow, 4> rows{{
        {.label = "File", .mnemonic = 0, .prompt = "Files", .identifier = file},
        {.depth = 1,
         .label = "New\tCtrl+N",
         .prompt = "A new structure",
         .identifier = new_item,
         .modifiers = AcceleratorControl,
         .keysym = XK_n},
        {.depth = 1, .label = "Open", .identifier = open_item, .keysym = XK_F3},
        {.depth = 1,
         .label = "Exit",
         .identifier = exit_item,
         .modifiers = AcceleratorAlt,
         .keysym = XK_f},
    }};
    auto record = yymnloaddynamicmenu(rows, [](int) { return true; });
    yymnloaddynamicaccel(*record, rows);
    open(view);
    yymenuchange(std::move(record), 0);
    EXPECT_FALSE(pwActiveMenu);
    EXPECT_TRUE(pointer_is_free());
    yywindowreplace(0);
    click(client());
    drain();
    key("ctrl+n");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, new_item);
    key("F3");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, open_item);
    key("alt+f");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, exit_item) << "before the mnemonic of File";
    key("n");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'n');
    yymngrey(new_item, 1);
    key("ctrl+n");
    EXPECT_THAT(types(drain()), Not(Contains(int{MenuSelect})));
    yymngrey(new_item, 0);

    const std::string& prompt = window_slot(0).status_bar->help;
    open(file);
    EXPECT_EQ(prompt, "Files");
    point_to(new_item);
    EXPECT_EQ(prompt, "A new structure");
    point_to(open_item);
    EXPECT_EQ(prompt, " ") << "one without a prompt";
    key("F3");
    EXPECT_THAT(drain(), IsEmpty()) << "no accelerators in an open menu";
    key("Escape");
    reach([] { return !pwActiveMenu; });
    EXPECT_EQ(prompt, "");
}

TEST_F(MenusDisplay, ItemsAndButtonsOfOneIdentifierChangeTogether) {
    const Box strip{window.x, window.y + yymnheight(0), window.width, 28};
    const auto button = [&](int number) { return Point{strip.x + 14 + number, strip.y + 14}; };
    const Point grid_button = button(0), greyed_button = button(28), count_button = button(50);
    const Rectangle count_face{count_button.x - 8, count_button.y - 8, 16, 16};
    const std::vector<unsigned> at_rest = pixels(count_face);
    click(count_button);
    const MessageRecord message = wait_for(MenuSelect);
    drain();
    EXPECT_EQ(pixels(count_face), at_rest) << "it springs back";
    EXPECT_EQ(message.VALUE1, counting);
    EXPECT_EQ(message.WIN, 0);
    click(greyed_button);
    EXPECT_THAT(types(drain()), Not(Contains(int{MenuSelect}))) << "greyed as its item is";
    yymngrey(greyed, 0);
    click(greyed_button);
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, greyed);
    open(view);
    click(place(greyed));
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, greyed);

    const Rectangle face{grid_button.x - 10, grid_button.y - 10, 20, 20};
    move_to(client());
    drain();
    const std::vector<unsigned> pressed = pixels(face);
    yymnchck(grid, 0);
    drain();
    EXPECT_NE(pixels(face), pressed) << "the item began checked, and so did its button";
    EXPECT_EQ(menu().record.item(row(grid)).state, 0);
    click(grid_button);
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, grid);
    move_to(client());
    drain();
    EXPECT_EQ(pixels(face), pressed) << "a checkable button stays";
    yymngrey(counting, 1);
    click(count_button);
    EXPECT_THAT(types(drain()), Not(Contains(int{MenuSelect})));
    EXPECT_EQ(infoerror(1), 0);
    for (const auto& unknown :
         {+[] { yymnchck(99, 1); }, +[] { yymngrey(0, 1); }, +[] { yymntext(99, "x"); }}) {
        unknown();
        EXPECT_EQ(infoerror(1), 1001);
    }
}

TEST_F(MenusDisplay, ANewTextMakesItsPopUpFit) {
    const int before = menu().popup(menu().record.popup_below(row(file))).box.width;
    yymntext(open_item, "Open one of the files that were shown before");
    EXPECT_GT(menu().popup(menu().record.popup_below(row(file))).box.width, before + 100);
    yymntext(file, "All the files");
    EXPECT_GT(place(view).x, place(file).x + 60);
    expect_closed_and_working();
}

TEST_F(MenusDisplay, AMenuClosesWithWhatHappensToItsWindow) {
    Display* other = XOpenDisplay(nullptr);
    open(file);
    resize_window("Menus", 500, 400);
    wait_for(Resize);
    EXPECT_FALSE(pwActiveMenu);
    expect_closed_and_working();
    open(file);
    XMoveWindow(other, window_slot(0).shell, 350, 250);
    XSync(other, False);
    reach([] { return !pwActiveMenu; });
    expect_closed_and_working();
    open(file);
    XIconifyWindow(other, window_slot(0).shell, DefaultScreen(other));
    XSync(other, False);
    reach([] { return !pwActiveMenu; });
    XMapWindow(other, window_slot(0).shell);
    XSync(other, False);
    window_titled("Menus");
    expect_closed_and_working();
    XCloseDisplay(other);
}

TEST_F(MenusDisplay, AWindowThatClosesTakesItsOpenMenuAlong) {
    const int child = windowopenchild2(
        {.x = 800, .y = 500, .width = 200, .height = 100, .menu = 1, .title = "Child"});
    window_titled("Child");
    drain();
    const Box top = yymngetposabsolute(menu(child), 0);
    click(middle(top));
    reach([] { return pwActiveMenu != nullptr; });
    const Window popup = menu(child).popup(1).window;
    EXPECT_TRUE(viewable(popup));
    close_window("Child");
    EXPECT_THAT(drain(), IsEmpty()) << "while the menu is open";
    windowclosechild(child);
    EXPECT_FALSE(pwActiveMenu);
    XWindowAttributes attributes;
    EXPECT_FALSE(XGetWindowAttributes(yydisplay.display, popup, &attributes));
    expect_closed_and_working();
}

TEST_F(MenusDisplay, AnotherProgramsGrabAndFocusDoNoHarm) {
    Display* other = XOpenDisplay(nullptr);
    click(client());
    drain();
    ASSERT_EQ(XGrabPointer(other, DefaultRootWindow(other), False, 0, GrabModeAsync, GrabModeAsync,
                           0, 0, CurrentTime),
              GrabSuccess);
    press_key("F10", new_item);
    press_key("Down", open_item);
    key("Return");
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, open_item);
    press_key("F10", new_item);
    XUngrabPointer(other, CurrentTime);
    // The focus goes to another program.
    const Window elsewhere =
        XCreateSimpleWindow(other, DefaultRootWindow(other), 10, 10, 50, 50, 0, 0, 0);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    XChangeWindowAttributes(other, elsewhere, CWOverrideRedirect, &attributes);
    XMapRaised(other, elsewhere);
    XSync(other, False);
    XSetInputFocus(other, elsewhere, RevertToParent, CurrentTime);
    XSync(other, False);
    reach([] { return !pwActiveMenu; });
    XCloseDisplay(other);
    expect_closed_and_working();
}

TEST_F(MenusDisplay, AProgramThatPollsLateLeavesThePointerFree) {
    move_to(place(file));
    press();
    move_to({place(file).x, place(file).y + 60});
    release();
    click(client());
    expect_closed_and_working();
}

TEST_F(MenusDisplay, PopUpsStayOnTheScreen) {
    Display* other = XOpenDisplay(nullptr);
    XMoveWindow(other, window_slot(0).shell, 1000, 980);
    XSync(other, False);
    poll_until([] { return place(file).y > 900; });
    drain();
    open(view);
    const Box& popup = menu().popup(menu().record.popup_below(row(view))).box;
    EXPECT_LE(popup.x + popup.width, 1280);
    EXPECT_LE(popup.y + popup.height, 1024);
    EXPECT_LE(popup.y + popup.height, place(view).y) << "upward";
    point_to(zoom);
    poll_until([] { return pulled_down(zoom); });
    const Box& sub = menu().popup(menu().record.popup_below(row(zoom))).box;
    EXPECT_LE(sub.x + sub.width, 1280);
    EXPECT_LE(sub.y + sub.height, 1024);
    key("Escape");
    drain();
    XCloseDisplay(other);
}

TEST_F(MenusDisplay, ANarrowWindowShowsItsBarInMoreRows) {
    const int one_row = yymnheight(0);
    const int client_height = winfowindow(3);
    resize_window("Menus", 110, window.height);
    wait_for(Resize);
    EXPECT_GT(yymnheight(0), one_row);
    EXPECT_EQ(winfowindow(3), client_height - (yymnheight(0) - one_row));
    EXPECT_GT(place(help).y, place(file).y);
    open(help);
    click(place(31));
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, 31);
}

TEST_F(MenusDisplay, AFreePopUpSelectsAndCloses) {
    yymnflot(5, 500, 400, 0);
    ASSERT_TRUE(pwFloatMenu);
    const auto at = [](int item) {
        return middle(yymngetposabsolute(*pwFloatMenu, pwFloatMenu->record.row_of(item)));
    };
    const auto point_at = [&](int item) {
        move_to(at(item));
        poll_until([=] { return current() == item; });
    };
    EXPECT_EQ(pwFloatMenu->popup(0).box.x, 500);
    EXPECT_TRUE(viewable(pwFloatMenu->popup(0).window));
    point_at(52);
    point_at(53);
    click(at(53));
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, 53);
    EXPECT_FALSE(viewable(pwFloatMenu->popup(0).window));
    yymnflot(5, 500, 400, 0);
    press_key("Down", 50);
    press_key("Up", 52);
    key("Escape");
    reach([] { return !pwActiveMenu; });
    yymnflot(5, 500, 400, 0);
    click(client());
    reach([] { return !pwActiveMenu; });
    yymnflot(99, 500, 400, 0);
    EXPECT_FALSE(pwActiveMenu) << "no such menu";
    expect_closed_and_working();
}

TEST_F(MenusDisplay, APopUpTallerThanTheScreenIsReachedWhole) {
    constexpr int count = 70;
    constexpr int screen_height = 1024;
    std::array<DynamicMenuRow, count> rows{};
    for (int i = 0; i < count; ++i)
        rows[static_cast<std::size_t>(i)] = {.label = "Item", .identifier = 100 + i};
    yymnflot(yymnloaddynamicmenu(rows, [](int) { return true; }), 500, 400, 0);
    const auto box_of = [](int item) {
        return yymngetposabsolute(*pwFloatMenu, pwFloatMenu->record.row_of(item));
    };
    const auto shown = [&](int item) {
        return box_of(item).y >= 0 && box_of(item).y + box_of(item).height <= screen_height;
    };
    EXPECT_TRUE(shown(100));
    press_key("Up", 100 + count - 1);
    EXPECT_TRUE(shown(100 + count - 1));
    press_key("Down", 100);
    EXPECT_TRUE(shown(100));
    // The pointer at the edge takes the rest along.
    const int x = middle(box_of(100)).x;
    move_to({x, screen_height - 1});
    poll_until([&] { return shown(100 + count - 1); });
    move_to({x, 0});
    poll_until([&] { return shown(100); });
    click(middle(box_of(101)));
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, 101);
}

TEST_F(MenusDisplay, AnItemLooksAsItIs) {
    const auto colours_of = [](int item) {
        const Box box = yymngetposabsolute(menu(), row(item));
        return pixels({box.x, box.y, box.width, box.height});
    };
    const auto colour = [](Pixel pixel) { return static_cast<unsigned>(pixel & 0xffffffU); };
    open(view);
    point_to(axes);
    drain();
    EXPECT_EQ(colours_of(axes).front(), colour(wSchemeCol.highlight));
    EXPECT_EQ(colours_of(grid).front(), colour(wSchemeCol.background));
    // Engraved: a light copy below a grey one.
    EXPECT_THAT(colours_of(greyed), Contains(colour(wSchemeCol.white)));
    EXPECT_THAT(colours_of(greyed), Not(Contains(colour(wSchemeCol.foreground))));
    EXPECT_THAT(colours_of(grid), Not(Contains(colour(wSchemeCol.white))));
    // The check mark stands before the text.
    const auto before_text = [&](int item) {
        const Box box = yymngetposabsolute(menu(), row(item));
        return pixels({box.x, box.y, 12, box.height});
    };
    EXPECT_EQ(std::ranges::count(before_text(grid), colour(wSchemeCol.foreground)), 7 * 3);
    key("Escape");
    yymnchck(grid, 0);
    open(view);
    drain();
    EXPECT_EQ(std::ranges::count(before_text(grid), colour(wSchemeCol.foreground)), 0);
    key("Escape");
    drain();
}

TEST_F(MenusDisplay, ATooltipComesAfterARestAndGoesWithTheLeave) {
    Point button{window.x + 14, window.y + yymnheight(0) + 14};
    const auto show = [&] {
        move_to(client());
        drain();
        move_to(button);
        poll_until([] { return bDisplayedTooltip; });
        EXPECT_TRUE(bDisplayedTooltip);
    };
    show();
    move_to(client());
    poll_until([] { return !bDisplayedTooltip; });
    show();
    press();
    poll_until([] { return !bDisplayedTooltip; });
    release();
    wait_for(MenuSelect);
    show();
    key("F10");
    reach([] { return pwActiveMenu != nullptr; });
    EXPECT_FALSE(bDisplayedTooltip);
    key("Escape");
    reach([] { return !pwActiveMenu; });
    show();
    key("a");
    wait_for(KeyDown);
    EXPECT_FALSE(bDisplayedTooltip) << "something has happened";
    button.x += 28;  // greyed
    show();
    press();
    poll_until([] { return !bDisplayedTooltip; });
    release();
    drain();
    EXPECT_EQ(tooltip_of(24, 0), "Shows the grid");
    yytooltip(24, "");
    EXPECT_EQ(tooltip_of(24, 0), "");
}
