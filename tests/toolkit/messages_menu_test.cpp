// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "tests/support/display_input.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/focus.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/modifier_masks.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/keysym.h>

#include <chrono>

using namespace tesserakit;
using namespace display_input;

namespace {

/// A menu of one item, in place of the menus: a small window of its own on the screen, with the
/// grab of an open menu. Alt+f opens it, Escape closes it, Ctrl+n is the accelerator of item 7.
namespace one_item_menu {

constexpr Rectangle place{1000, 700, 80, 40};  // beside the root window
constexpr int item = 30;
constexpr int accelerated = 7;

struct State {
    Window popup = 0;
    bool open = false;
    int drawn = 0;
    int entered = 0;
    int left = 0;
    int tooltips_ended = 0;
};
State state;

void open() {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.event_mask = ExposureMask | EnterWindowMask | LeaveWindowMask | KeyPressMask;
    state.popup = XCreateWindow(yydisplay.display, yydisplay.root, place.x, place.y, place.width,
                                place.height, 0, CopyFromParent, InputOutput, nullptr,
                                CWOverrideRedirect | CWEventMask, &attributes);
    XMapRaised(yydisplay.display, state.popup);
    XGrabPointer(yydisplay.display, state.popup, True,
                 ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask,
                 GrabModeSync, GrabModeAsync, 0, 0, CurrentTime);
    XAllowEvents(yydisplay.display, SyncPointer, CurrentTime);
    lend_focus(state.popup);
    XSync(yydisplay.display, False);
    state.open = true;
}

void close() {
    if (!state.open) return;
    state.open = false;
    return_focus();
    XUngrabPointer(yydisplay.display, CurrentTime);
    XDestroyWindow(yydisplay.display, state.popup);
    XSync(yydisplay.display, False);
}

MenuAnswer key(KeySym key, int, unsigned modifiers) {
    if (state.open) {
        if (key != XK_Escape) return {};  // has no use for it, and still it goes no further
        close();
        return {.consumed = true};
    }
    if (key != XK_f || (modifiers & AltMask) == 0) return {};
    open();
    return {.consumed = true};
}

MenuAnswer button(const XButtonEvent& event, int) {
    if (!state.open || event.window != state.popup) return {};
    const bool inside =
        event.x >= 0 && event.y >= 0 && event.x < place.width && event.y < place.height;
    if (!inside) return {};
    if (event.type == ButtonPress) return {.consumed = true};
    close();
    return {.consumed = true, .item = item};
}

void install() {
    menu_hooks.active = [] { return state.open; };
    menu_hooks.deactivate = close;
    menu_hooks.next_event = [] { XAllowEvents(yydisplay.display, SyncPointer, CurrentTime); };
    menu_hooks.find = [](Window window) {
        const bool ours = state.open && window == state.popup;
        return ours ? MenuWindow{MenuPart::Item, 0} : MenuWindow{};
    };
    menu_hooks.draw = [](Window part) { state.drawn += part == state.popup ? 1 : 0; };
    menu_hooks.interpret_key = key;
    menu_hooks.interpret_button = button;
    menu_hooks.interpret_accelerator = [](KeySym key, int, unsigned modifiers) {
        return key == XK_n && (modifiers & ControlMask) != 0 ? accelerated : 0;
    };
    menu_hooks.crossing = [](const XCrossingEvent& event) {
        // Of the item, and not the grab's own.
        if (event.mode != NotifyNormal || event.window != state.popup) return;
        ++(event.type == EnterNotify ? state.entered : state.left);
    };
    menu_hooks.end_tooltip = [] { ++state.tooltips_ended; };
}

}  // namespace one_item_menu

class MenuSeamsDisplay : public testing::Test {
protected:
    Rectangle root;

    void SetUp() override {
        windowopen2({.x = 100, .y = 100, .width = 500, .height = 500, .title = "Root"});
        root = window_titled("Root");
        one_item_menu::install();
        wmessageenable(MouseButUp, 1);
        wmessageenable(MouseMove, 1);
        drain();
    }

    Point at(int x, int y) const { return {root.x + x, root.y + y}; }

    /// The pointer stands where it goes, so that no move is left to be told.
    void point(Point to) const {
        move_to(to);
        drain();
    }
};

std::vector<int> types_of(const std::vector<Received>& received) {
    std::vector<int> types;
    for (const Received& one : received) types.push_back(one.type);
    return types;
}

constexpr Point on_item{one_item_menu::place.x + 10, one_item_menu::place.y + 10};

int key_presses = 0;
void count_key(Widget, XtPointer, XEvent*, Boolean*) { ++key_presses; }

}  // namespace

TEST_F(MenuSeamsDisplay, NothingThatTheUserDoesInAnOpenMenuReachesTheApplication) {
    point(at(30, 30));
    one_item_menu::open();
    move_to(at(40, 40));
    type("a");
    move_to(on_item);
    press();
    release(3);  // of a button that isn't held
    EXPECT_TRUE(drain().empty());
    ASSERT_TRUE(one_item_menu::state.open);
    EXPECT_EQ(one_item_menu::state.entered, 1);
    move_to(at(30, 30));
    EXPECT_TRUE(drain().empty());
    EXPECT_EQ(one_item_menu::state.left, 1);
    key("Escape");
    EXPECT_TRUE(drain().empty()) << "the key that closes it";
    EXPECT_FALSE(one_item_menu::state.open);
    release();
    drain();
    type("b");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'b');
}

TEST_F(MenuSeamsDisplay, WhatTheServerTellsMeanwhileComesAfterTheMenuHasClosed) {
    point(at(30, 30));
    one_item_menu::open();
    cover_and_uncover({root.x + 20, root.y + 30, 40, 50});
    EXPECT_TRUE(drain().empty());
    cover_and_uncover({root.x + 10, root.y + 60, 10, 10});
    EXPECT_TRUE(drain().empty());
    close_window("Root");
    EXPECT_TRUE(drain().empty());
    key("Escape");
    const std::vector<Received> told = drain();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told[0].type, ExposeMessage);
    EXPECT_EQ(told[1].type, CloseRequest);
    // From 10, 30 to 60, 80, in 1/9999 of 499 pixels.
    EXPECT_EQ(told[0].record.X, 10 * 9999 / 499);
    EXPECT_EQ(told[0].record.Y, 30 * 9999 / 499);
    EXPECT_EQ(told[0].record.VALUE1, 59 * 9999 / 499 - 10 * 9999 / 499);
    EXPECT_EQ(told[0].record.VALUE2, 79 * 9999 / 499 - 30 * 9999 / 499);
}

TEST_F(MenuSeamsDisplay, ANewSizeUnderAnOpenMenuIsToldOnceWithTheLastOne) {
    one_item_menu::open();
    resize_window("Root", 400, 450);
    EXPECT_TRUE(drain().empty());
    resize_window("Root", 420, 430);
    EXPECT_TRUE(drain().empty());
    one_item_menu::close();
    std::vector<Received> told = drain();
    std::erase_if(told, [](const Received& one) { return one.type != Resize; });
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].record.VALUE1, 420);
    EXPECT_EQ(told[0].record.VALUE2, 430);
}

TEST_F(MenuSeamsDisplay, TheItemComesBehindWhatWasKept) {
    point(on_item);
    one_item_menu::open();
    cover_and_uncover({root.x + 20, root.y + 30, 40, 50});
    EXPECT_TRUE(drain().empty());
    click(on_item);
    const std::vector<Received> told = drain();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told[0].type, ExposeMessage);
    EXPECT_EQ(told[1].type, MenuSelect);
    EXPECT_EQ(told[1].record.VALUE1, one_item_menu::item);
    EXPECT_EQ(told[1].record.WIN, 0);
    EXPECT_EQ(told[1].record.X, 0);
    EXPECT_FALSE(one_item_menu::state.open);
}

TEST_F(MenuSeamsDisplay, APressOutsideAnOpenMenuClosesItAndIsNotTold) {
    point(at(30, 30));
    one_item_menu::open();
    click(at(30, 30));
    EXPECT_TRUE(drain().empty()) << "neither the press nor its release";
    EXPECT_FALSE(one_item_menu::state.open);
    press();
    release();
    EXPECT_EQ(types_of(drain()), (std::vector<int>{MouseButDown, MouseButUp}));
}

TEST_F(MenuSeamsDisplay, APressOnWhatIsLockedOutClosesTheMenuToo) {
    const int child =
        windowopenchild2({.x = 700, .y = 100, .width = 200, .height = 100, .title = "Child"});
    window_titled("Child");
    yyMSSemiAddRemove(1, window_object, child);
    point(at(30, 30));
    one_item_menu::open();
    press();
    release();
    EXPECT_TRUE(drain().empty());
    EXPECT_FALSE(one_item_menu::state.open);
}

TEST_F(MenuSeamsDisplay, APressOutsideAnOpenMenuPressesNoButton) {
    wdialogload(103);
    wdialogshow(700, 300, 0, 2);
    const Rectangle dialog = window_titled("Box limits...");
    const Widget shell = shell_around(dialog_hooks.widget(dialog_hooks.slot(103)));
    static int presses;
    presses = 0;
    const auto count = [](Widget, XtPointer, XEvent*, Boolean*) { ++presses; };
    XtInsertEventHandler(dialog_hooks.widget(dialog_hooks.slot(103)), ButtonPressMask, False, count,
                         nullptr, XtListHead);
    ASSERT_NE(shell, nullptr);
    const Point corner{dialog.x + 2, dialog.y + 2};
    point(corner);
    one_item_menu::open();
    click(corner);
    drain();
    EXPECT_FALSE(one_item_menu::state.open);
    EXPECT_EQ(presses, 0);
    click(corner);
    drain();
    EXPECT_EQ(presses, 1);
}

TEST_F(MenuSeamsDisplay, AKeyOfAMenuIsSeenByNothingElse) {
    click(at(30, 30));
    drain();
    XtAddEventHandler(window_slot(0).client_widget, KeyPressMask, False, count_key, nullptr);
    key("a");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'a');
    EXPECT_EQ(key_presses, 1);
    key("ctrl+n");
    const std::vector<Received> told = drain();
    ASSERT_EQ(types_of(told), (std::vector<int>{MenuSelect}));
    EXPECT_EQ(told[0].record.VALUE1, one_item_menu::accelerated);
    EXPECT_EQ(told[0].record.WIN, 0);
    EXPECT_NE(told[0].record.TIME, 0);
    const int after_accelerator = key_presses;  // Ctrl itself is a key of nobody's
    key("alt+f");
    EXPECT_TRUE(drain().empty());
    EXPECT_TRUE(one_item_menu::state.open);
    key("ctrl+n");
    EXPECT_TRUE(drain().empty()) << "an open menu leaves no key to the accelerators";
    key("Escape");
    EXPECT_TRUE(drain().empty()) << "nor for afterwards";
    EXPECT_EQ(after_accelerator, 2);
    EXPECT_EQ(key_presses, 3) << "Alt, and what it opened nothing more";
    EXPECT_FALSE(one_item_menu::state.open);
}

TEST(MenuSeamsInDialogDisplay, AnOpenMenuIsNotAskedForHelp) {
    windowopen2({.dialog = 101, .title = "Root"});
    window_titled("Root");
    one_item_menu::install();
    drain();
    one_item_menu::open();
    key("F1");
    EXPECT_TRUE(drain().empty());
    EXPECT_TRUE(one_item_menu::state.open);
    key("Escape");
    EXPECT_TRUE(drain().empty()) << "nor afterwards";
    key("F1");
    EXPECT_EQ(wait_for(PushButton).VALUE1, 9);
}

TEST_F(MenuSeamsDisplay, TheOverflowWaitsUntilTheMenuHasClosed) {
    one_item_menu::open();
    wXtMesg2 = {.type = MenuSelect, .value1 = 5};
    EXPECT_TRUE(drain().empty());
    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    wmessagewait(10);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(9)) << "nothing for the next poll";
    one_item_menu::close();
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, 5);
    drain();
    wXtMesg2 = {.type = MenuSelect, .value1 = 6};
    start = Clock::now();
    wmessagewait(4000);
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(3000)) << "there without any event";
    EXPECT_EQ(wait_for(MenuSelect).VALUE1, 6);
}

TEST_F(MenuSeamsDisplay, AnItemIsDrawnByTheMenus) {
    one_item_menu::open();
    poll_until([] { return one_item_menu::state.drawn == 1; });
    cover_and_uncover(one_item_menu::place);
    EXPECT_TRUE(drain().empty());
    EXPECT_EQ(one_item_menu::state.drawn, 2);
}

TEST_F(MenuSeamsDisplay, AMessageEndsATooltipAndAnEmptyPollDoesNot) {
    point(at(30, 30));
    one_item_menu::state.tooltips_ended = 0;
    drain();
    EXPECT_EQ(one_item_menu::state.tooltips_ended, 0);
    press();
    wait_for(MouseButDown);
    EXPECT_EQ(one_item_menu::state.tooltips_ended, 1);
    release();
    drain();
}

namespace {

Window keyboard() {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    return focus;
}

}  // namespace

TEST_F(MenuSeamsDisplay, TheKeyboardGoesToTheMenuAndBack) {
    click(at(30, 30));
    drain();
    const Window before = keyboard();
    one_item_menu::open();
    EXPECT_EQ(keyboard(), one_item_menu::state.popup);
    lend_focus(one_item_menu::state.popup);  // the lender stays who it was
    key("Escape");
    drain();
    EXPECT_EQ(keyboard(), before);
    const int child =
        windowopenchild2({.x = 700, .y = 100, .width = 200, .height = 100, .title = "Child"});
    window_titled("Child");
    drain();
    one_item_menu::open();
    XSetInputFocus(yydisplay.display, window_slot(0).client, RevertToParent, CurrentTime);
    one_item_menu::close();
    EXPECT_EQ(keyboard(), window_slot(0).client) << "somebody took it meanwhile";
    XSetInputFocus(yydisplay.display, window_slot(child).client, RevertToParent, CurrentTime);
    one_item_menu::open();
    windowclosechild(child);
    one_item_menu::close();  // nobody to give it back to
    click(at(30, 30));
    drain();
    type("b");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'b');
}

TEST_F(MenuSeamsDisplay, AltIsTheModifierThatTheKeyboardSays) {
    EXPECT_EQ(AltMask, Mod1Mask);
    XModifierKeymap* map = XGetModifierMapping(yydisplay.display);
    const KeyCode alt = XKeysymToKeycode(yydisplay.display, XK_Alt_L);
    for (int i = 0; i < map->max_keypermod; ++i)
        map->modifiermap[Mod1MapIndex * map->max_keypermod + i] = 0;
    map->modifiermap[Mod3MapIndex * map->max_keypermod] = alt;
    ASSERT_EQ(XSetModifierMapping(yydisplay.display, map), MappingSuccess);
    poll_until([] { return AltMask != Mod1Mask; });
    EXPECT_EQ(AltMask, Mod3Mask);
    // Control and Shift never count as Alt, whatever the keyboard says.
    map->modifiermap[Mod3MapIndex * map->max_keypermod] = 0;
    map->modifiermap[ControlMapIndex * map->max_keypermod] = alt;
    ASSERT_EQ(XSetModifierMapping(yydisplay.display, map), MappingSuccess);
    poll_until([] { return AltMask == 0; });
    XFreeModifiermap(map);
}
