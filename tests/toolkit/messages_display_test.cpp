// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "tests/support/display_input.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/timers.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <algorithm>
#include <chrono>

#include <GL/gl.h>

using namespace tesserakit;
using namespace display_input;

namespace {

Rectangle open_root(int width = 400, int height = 300) {
    windowopen2({.width = width, .height = height, .title = "Root"});
    const Rectangle area = window_titled("Root");
    drain();
    return area;
}

std::vector<int> types_of(const std::vector<Received>& received) {
    std::vector<int> types;
    for (const Received& one : received) types.push_back(one.type);
    return types;
}

Point inside(const Rectangle& area, int x, int y) { return {area.x + x, area.y + y}; }

}  // namespace

TEST(MessagesDisplay, AnEmptyPollIsAllMinusOneButTheGraphicsWords) {
    open_root();
    int type = 0;
    MessageRecord record{.GW = 7, .GH = 8, .GX = 9, .GY = 10};
    wmessagepeek(type, record);
    EXPECT_EQ(type, NoMessage);
    for (const int word : {record.WIN, record.VALUE1, record.VALUE2, record.VALUE3, record.VALUE4,
                           record.X, record.Y, record.TIME})
        EXPECT_EQ(word, -1);
    EXPECT_EQ(record.GW, 7);
    EXPECT_EQ(record.GH, 8);
    EXPECT_EQ(record.GX, 9);
    EXPECT_EQ(record.GY, 10);
}

TEST(MessagesDisplay, APressTellsItsPlaceInUnitsOfTheWindow) {
    const Rectangle area = open_root(401, 301);
    click(inside(area, 100, 75), 3);
    const MessageRecord press = wait_for(MouseButDown);
    EXPECT_EQ(press.WIN, 0);
    EXPECT_EQ(press.VALUE1, 3);
    EXPECT_EQ(press.VALUE2, 0);
    EXPECT_EQ(press.VALUE3, SourceWindow);
    EXPECT_EQ(press.X, 2499);  // 100 of 400 pixels, cut
    EXPECT_EQ(press.Y, 2499);  // 75 of 300 pixels
    EXPECT_FLOAT_EQ(graphics_value(press.GX), 0.25f);
    EXPECT_FLOAT_EQ(graphics_value(press.GY), 0.75f) << "graphics units count from below";
    EXPECT_NE(press.TIME, 0);
}

TEST(MessagesDisplay, ReleasesAndMovesComeWhenEnabled) {
    const Rectangle area = open_root();
    drag(inside(area, 50, 50), inside(area, 90, 50), 4);
    EXPECT_EQ(types_of(drain()), (std::vector<int>{MouseButDown}));
    wmessageenable(MouseButUp, 1);
    wmessageenable(MouseMove, 1);
    drain();
    drag(inside(area, 50, 60), inside(area, 90, 60), 4);
    const std::vector<Received> received = drain();
    EXPECT_EQ(types_of(received), (std::vector<int>{MouseMove, MouseButDown, MouseMove, MouseMove,
                                                    MouseMove, MouseMove, MouseButUp}));
    EXPECT_EQ(received[2].record.VALUE2, ModifierButton1);
    EXPECT_EQ(received.back().record.VALUE1, 1);
}

TEST(MessagesDisplay, ADragGoesOnOutsideTheWindow) {
    const Rectangle area = open_root();
    wmessageenable(MouseButUp, 1);
    drain();
    drag(inside(area, 50, 50), {area.x - 40, area.y - 60}, 2);
    wait_for(MouseButDown);
    const MessageRecord up = wait_for(MouseButUp);
    EXPECT_LT(up.X, 0);
    EXPECT_LT(up.Y, 0);
}

TEST(MessagesDisplay, FurtherPressesOfOneButtonAreDoubleClicks) {
    const Rectangle area = open_root();
    const Point at = inside(area, 50, 50);
    for (int i = 0; i < 2; ++i) click(at);
    EXPECT_EQ(types_of(drain()), (std::vector<int>{MouseButDown, MouseButDown}));
    wmessageenable(MouseButDblClick, 1);
    click(at, 3);
    for (int i = 0; i < 3; ++i) click(at);
    EXPECT_EQ(types_of(drain()),
              (std::vector<int>{MouseButDown, MouseButDown, MouseButDblClick, MouseButDblClick}));
}

TEST(MessagesDisplay, KeysOfAPlainWindow) {
    const Rectangle area = open_root();
    click(inside(area, 50, 50));
    wait_for(MouseButDown);
    type("aQ");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'a');
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 'Q') << "Shift itself raises nothing";
    key("ctrl+c");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 3);
    key("shift+Up");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 262);
    key("F1");
    EXPECT_EQ(wait_for(KeyDown).VALUE1, 301);
    wmessageenable(KeyDown, 0);
    drain();
    key("b");
    EXPECT_TRUE(drain().empty());
}

TEST(MessagesDisplay, OutstandingDamageIsOneExposure) {
    const Rectangle area = open_root(500, 500);
    for (int i = 0; i < 10; ++i) cover_and_uncover({area.x + 20 * i, area.y + 10 * i, 100, 50});
    const std::vector<Received> received = drain();
    ASSERT_EQ(types_of(received), (std::vector<int>{ExposeMessage}));
    const MessageRecord& damage = received[0].record;
    // 280 by 140 pixels from the upper left, in 1/9999 of 499 pixels.
    EXPECT_EQ(damage.X, 0);
    EXPECT_EQ(damage.Y, 0);
    EXPECT_EQ(damage.VALUE1, 279 * 9999 / 499);
    EXPECT_EQ(damage.VALUE2, 139 * 9999 / 499);
    EXPECT_EQ(damage.TIME, 0);
}

TEST(MessagesDisplay, ANewSizeIsToldInPixelsOfTheClientArea) {
    open_root(400, 300);
    resize_window("Root", 500, 320);
    const MessageRecord resize = wait_for(Resize);
    EXPECT_EQ(resize.WIN, 0);
    EXPECT_EQ(resize.VALUE1, 500);
    EXPECT_EQ(resize.VALUE2, 320);
    EXPECT_EQ(winfodrawable(4), 500);
    EXPECT_EQ(winfowindow(3), 320);
}

TEST(MessagesDisplay, TheWindowManagersCloseIsARequest) {
    open_root();
    const int child = windowopenchild2({.width = 200, .height = 100, .title = "Child"});
    close_window("Child");
    EXPECT_EQ(wait_for(CloseRequest).WIN, child);
    close_window("Root");
    const MessageRecord request = wait_for(CloseRequest);
    EXPECT_EQ(request.WIN, 0);
    EXPECT_EQ(request.TIME, 0);
    EXPECT_TRUE(is_shown("Root")) << "the application decides";
}

TEST(MessagesDisplay, ASemiModalWindowLocksTheOthersButNotTheirDamage) {
    const Rectangle area = open_root();
    const int child =
        windowopenchild2({.x = 900, .y = 700, .width = 200, .height = 100, .title = "Child"});
    const Rectangle child_area = window_titled("Child");
    drain();
    yyMSSemiAddRemove(1, 1, child);
    click(inside(area, 20, 20));
    EXPECT_TRUE(drain().empty());
    cover_and_uncover({area.x + 10, area.y + 10, 20, 20});
    EXPECT_EQ(wait_for(ExposeMessage).WIN, 0);
    click(inside(child_area, 20, 20));
    EXPECT_EQ(wait_for(MouseButDown).WIN, child);
    yyMSSemiAddRemove(-1, 1, child);
    click(inside(area, 30, 30));
    EXPECT_EQ(wait_for(MouseButDown).WIN, 0);
}

TEST(MessagesDisplay, SemiModalWindowsMayLeaveInAnyOrder) {
    open_root();
    const int first = windowopenchild2({.flags = 128, .width = 20, .height = 20});
    const int second = windowopenchild2({.flags = 128, .width = 20, .height = 20});
    const int third = windowopenchild2({.flags = 128, .width = 20, .height = 20});
    for (const int window : {first, second, third}) yyMSSemiAddRemove(1, 1, window);
    yyMSSemiAddRemove(-1, 1, second);
    EXPECT_EQ(wObjCur, third);
    windowclosechild(third);
    EXPECT_EQ(wObjCur, first);
    yyMSSemiAddRemove(-1, 1, first);
    EXPECT_EQ(wObjCurType, 0);
    for (const int window : {first, second, first}) yyMSSemiAddRemove(1, 1, window);
    yyMSSemiAddRemove(-1, 1, first);
    EXPECT_EQ(wObjCur, second);
    yyMSSemiAddRemove(-1, 1, second);
    EXPECT_EQ(wObjCurType, 0) << "one that came twice locks nothing for good";
}

namespace {

/// Until the window manager has given the keyboard to a shell; the program polls nothing meanwhile.
bool comes_to_have_keyboard(Window shell) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(deadline_ms);
    while (std::chrono::steady_clock::now() < end) {
        Window focus = 0;
        int revert = 0;
        XGetInputFocus(yydisplay.display, &focus, &revert);
        if (focus == shell) return true;
    }
    return false;
}

}  // namespace

TEST(MessagesDisplay, WindowsDoNotFightForTheKeyboard) {
    windowopen2({.x = 100, .y = 100, .width = 300, .height = 200, .title = "Root"});
    const int child =
        windowopenchild2({.x = 600, .y = 100, .width = 300, .height = 200, .title = "Child"});
    const Rectangle root = window_titled("Root");
    const Rectangle other = window_titled("Child");
    drain();
    // Both title bars while the program is busy.
    click({root.x + 150, root.y - 8});
    ASSERT_TRUE(comes_to_have_keyboard(window_slot(0).shell));
    click({other.x + 150, other.y - 8});
    ASSERT_TRUE(comes_to_have_keyboard(window_slot(child).shell));
    drain();
    type("a");
    EXPECT_EQ(wait_for(KeyDown).WIN, child);
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    EXPECT_EQ(focus, window_slot(child).client);
}

TEST(MessagesDisplay, TimersComeThroughTheQueue) {
    open_root();
    yysettimer(5, 42, 1);
    yysettimer(1, 7, 0);
    EXPECT_EQ(wait_for(TimerExpired).VALUE1, 7);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(wait_for(TimerExpired).VALUE1, 42);
    yysettimer(0, 42, 0);
    drain();  // what it had sent before
    // Nothing of it is left that a second one of its number could be taken for.
    yysettimer(20, 8, 0);
    yysettimer(1, 42, 1);
    yysettimer(0, 42, 0);
    int type = 0;
    MessageRecord told;
    wmessage(type, told);
    EXPECT_EQ(type, TimerExpired);
    EXPECT_EQ(told.VALUE1, 8) << "the first to come";
}

TEST(MessagesDisplay, ANewRootBeginsWithAllSwitchesAsTheyWere) {
    open_root();
    wmessageenable(MouseMove, 1);
    wmessageenable(TimerExpired, 0);
    windowclose();
    const Rectangle area = open_root();
    drag(inside(area, 50, 60), inside(area, 90, 60), 2);
    EXPECT_EQ(types_of(drain()), (std::vector<int>{MouseButDown}));
    yysettimer(1, 7, 0);
    EXPECT_EQ(wait_for(TimerExpired).VALUE1, 7);
}

TEST(MessagesDisplay, AWaitEndsWithAnEventAndOtherwiseInTime) {
    const Rectangle area = open_root();
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    wmessagewait(10);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(9));
    click(inside(area, 20, 20));
    const auto second = Clock::now();
    wmessagewait(4000);
    EXPECT_LT(Clock::now() - second, std::chrono::milliseconds(3000));
    wait_for(MouseButDown);
}

TEST(MessagesDisplay, WaitingKeepsInputForTheNextPoll) {
    const Rectangle area = open_root();
    click(inside(area, 20, 20));
    cover_and_uncover({area.x + 10, area.y + 10, 20, 20});
    const auto start = std::chrono::steady_clock::now();
    ioswait(50);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
    EXPECT_EQ(types_of(drain()), (std::vector<int>{MouseButDown, ExposeMessage}));
}

namespace {

/// What a user does while a modal dialog is up, a step a tick, as the program is in its loop.
struct ModalVisit {
    Rectangle root;
    int step = 0;
    int ticks = 0;
    bool repaired = false;

    Point place() const { return {root.x + root.width - 40, root.y + root.height - 80}; }
};

constexpr unsigned drawn_red = 0xff0000;

void visit(XtPointer closure, XtIntervalId*) {
    ModalVisit& state = *static_cast<ModalVisit*>(closure);
    const Point at = state.place();
    if (state.step == 0 && is_shown("Box limits...")) {
        click(at);
        cover_and_uncover({at.x - 10, at.y - 10, 20, 20});
        state.step = 1;
    } else if (state.step == 1) {
        state.repaired = pixel(at) == drawn_red;
        if (state.repaired || ++state.ticks > 100) {
            // The click has taken the keyboard to the root window.
            close_window("Box limits...");
            return;
        }
    }
    XtAppAddTimeOut(yydisplay.app, 10, visit, closure);
}

}  // namespace

TEST(ModalDisplay, WhatIsCoveredIsRepairedAndWhatIsClickedIsNot) {
    windowopen2({.dialog = 101, .title = "Root"});
    ModalVisit state{.root = window_titled("Root")};
    wglselect(3, 1001, 2);
    drain();
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    wglswapbuffers();
    drain();
    ASSERT_EQ(pixel(state.place()), drawn_red);
    wdialogload(103);
    XtAppAddTimeOut(yydisplay.app, 10, visit, &state);
    wdialogshow(0, 0, 0, 1);
    EXPECT_TRUE(state.repaired) << "the application isn't running and can't draw";
    EXPECT_EQ(winfodialog(1), 2);
    for (const Received& one : drain()) EXPECT_NE(one.type, MouseButDown);
    EXPECT_EQ(nModalWindows, 0);
    click(state.place());
    EXPECT_EQ(wait_for(MouseButDown).WIN, 101);
}
