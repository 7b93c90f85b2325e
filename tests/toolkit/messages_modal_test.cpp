// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "tests/support/display_input.hpp"
#include "tests/support/modal_visit.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/interpreters.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/modal_loop.hpp"
#include "toolkit/messages/snapshots.hpp"
#include "toolkit/messages/timers.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/MessageB.h>

#include <GL/gl.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace tesserakit;
using namespace display_input;

namespace {

using Visit = ModalVisit;

std::vector<int> types_of(const std::vector<Received>& received) {
    std::vector<int> types;
    for (const Received& one : received) types.push_back(one.type);
    return types;
}

Rectangle open_root() {
    windowopen2({.x = 100, .y = 100, .width = 500, .height = 400, .title = "Root"});
    const Rectangle area = window_titled("Root");
    drain();
    return area;
}

bool has_keyboard(Widget shell) {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    const Widget widget =
        focus > PointerRoot ? XtWindowToWidget(yydisplay.display, focus) : nullptr;
    return widget && shell_around(widget) == shell;
}

Widget dialog_shell(int dialog) {
    return shell_around(dialog_hooks.widget(dialog_hooks.slot(dialog)));
}

/// A message box as the common dialogs make them: its shell is Motif's, unknown to the toolkit.
struct MessageBox {
    Widget widget = nullptr;
    std::string name;
    static std::vector<std::string> pressed;

    MessageBox(const char* title, int x, int y) : name(title) {
        widget = XmCreateMessageDialog(window_slot(0).shell_widget, const_cast<char*>(title),
                                       nullptr, 0);
        XtVaSetValues(XtParent(widget), XmNtitle, title, nullptr);
        XtVaSetValues(widget, XmNdefaultPosition, False, XmNx, x, XmNy, y, nullptr);
        XtAddCallback(
            widget, XmNokCallback,
            [](Widget, XtPointer box, XtPointer) {
                pressed.push_back(static_cast<MessageBox*>(box)->name);
                bModalMessageLoop = false;
            },
            this);
    }

    void run() const {
        XtManageChild(widget);
        yyMSModalMessageLoop(widget, -1);
        XtDestroyWidget(XtParent(widget));
    }

    Point ok() const { return middle_of(XmMessageBoxGetChild(widget, XmDIALOG_OK_BUTTON)); }
};
std::vector<std::string> MessageBox::pressed;

}  // namespace

TEST(ModalLoopDisplay, ALoopInsideADispatchLeavesTheOuterMessageAsItWas) {
    const Rectangle root = open_root();
    wmessageenable(FieldChanged, 1);
    wdialogload(103);
    static int presses_seen;
    presses_seen = 0;
    XtAddEventHandler(
        window_slot(0).client_widget, ButtonPressMask, False,
        [](Widget, XtPointer, XEvent* event, Boolean*) {
            presses_seen += event->type == ButtonPress && event->xbutton.button == 3 ? 1 : 0;
        },
        nullptr);
    drain();
    interpreters.editor_event = [](XEvent& event) {
        if (event.type != ButtonPress || event.xbutton.window != window_slot(0).client)
            return Outcome::GoesOn;
        const Visit visit(
            {[] { return is_shown("Box limits...") && has_keyboard(dialog_shell(103)); },
             [] {
                 key("Tab");
                 close_window("Box limits...");
                 return true;
             }});
        wdialogselect(103);
        wdialogshow(dialog_centred, dialog_centred, 0, 1);
        return Outcome::GoesOn;
    };
    click({root.x + 400, root.y + 300}, 3);
    std::vector<Received> told = drain();
    interpreters = {};
    std::erase_if(told, [](const Received& one) { return one.type == ExposeMessage; });
    ASSERT_EQ(types_of(told), (std::vector<int>{MouseButDown}));
    EXPECT_EQ(told[0].record.VALUE1, 3);
    EXPECT_EQ(told[0].record.WIN, 0);
    EXPECT_EQ(presses_seen, 1)
        << "the outer event goes on to the widgets, not the inner loop's last";
    EXPECT_EQ(winfodialog(1), 2);
}

TEST(ModalLoopDisplay, ABoxOverABoxLocksTheLowerOne) {
    open_root();
    MessageBox lower("Lower", 100, 100);
    MessageBox upper("Upper", 700, 500);
    // A box may move until the window manager has placed it: one click may miss.
    const auto press_lower = [&] {
        click(lower.ok());
        return false;
    };
    const auto passes = [](const MessageBox& box) {
        XEvent press{};
        press.type = ButtonPress;
        press.xany.window = XtWindow(box.widget);
        return yyMSCheckWinDiag(press);
    };
    const auto press_both = [&] {
        EXPECT_FALSE(passes(lower));
        EXPECT_TRUE(passes(upper));
        click(lower.ok());
        click(upper.ok());
        return false;
    };
    const auto open_upper = [&] {
        if (!is_shown("Lower")) return false;
        const Visit above({[] { return is_shown("Upper"); }, press_both});
        upper.run();
        return true;
    };
    const Visit visit({open_upper, press_lower});
    lower.run();
    EXPECT_EQ(MessageBox::pressed, (std::vector<std::string>{"Upper", "Lower"}));
    EXPECT_EQ(nModalWindows, 0);
}

TEST(ModalLoopDisplay, AMenuOfTheModalWindowPassesAndThatOfAnotherDoesNot) {
    open_root();
    const int editor =
        windowopenchild2({.x = 700, .y = 500, .width = 200, .height = 100, .title = "Editor"});
    static Window of_editor, of_root;
    const auto bar_in = [](int window) {
        return XCreateSimpleWindow(yydisplay.display, window_slot(window).window, 0, 0, 10, 10, 0,
                                   0, 0);
    };
    of_editor = bar_in(editor);
    of_root = bar_in(0);
    menu_hooks.find = [](Window window) {
        if (window == of_editor) return MenuWindow{MenuPart::Bar, 1};
        return window == of_root ? MenuWindow{MenuPart::Bar, 0} : MenuWindow{};
    };
    ASSERT_EQ(editor, 1);
    yyMSModalAddRemove(window_slot(editor).client_widget, -1, true);
    XEvent press{};
    press.type = ButtonPress;
    press.xany.window = of_editor;
    EXPECT_TRUE(yyMSCheckWinDiag(press));
    press.xany.window = of_root;
    EXPECT_FALSE(yyMSCheckWinDiag(press));
    drain();
    const SizeLimits root_limits = size_limits("Root");
    EXPECT_EQ(root_limits.min_width, root_limits.max_width);
    EXPECT_NE(root_limits.min_width, 0);
    EXPECT_EQ(size_limits("Editor").max_width, 0) << "the modal window itself may be resized";
    yyMSModalAddRemove(nullptr, -1, false);
}

TEST(ModalLoopDisplay, DamageOfOtherWindowsOutlivesTheLoop) {
    const Rectangle root = open_root();
    const int child =
        windowopenchild2({.x = 700, .y = 500, .width = 200, .height = 100, .title = "Child"});
    const Rectangle area = window_titled("Child");
    drain();
    const Visit visit({[&] {
                           cover_and_uncover({area.x + 10, area.y + 10, 20, 20});
                           cover_and_uncover({root.x + 10, root.y + 10, 20, 20});
                           return true;
                       },
                       [] {
                           bModalMessageLoop = false;
                           return true;
                       }});
    yyMSModalMessageLoop(window_slot(child).client_widget, -1);
    const std::vector<Received> told = drain();
    ASSERT_EQ(types_of(told), (std::vector<int>{ExposeMessage}));
    EXPECT_EQ(told[0].record.WIN, 0) << "the loop's own window is its own to draw";
}

TEST(ModalLoopDisplay, ALoopClosesAnOpenMenu) {
    open_root();
    static bool open;
    open = true;
    menu_hooks.active = [] { return open; };
    menu_hooks.deactivate = [] { open = false; };
    MessageBox box("Box", 100, 100);
    const Visit visit({[&] {
        if (!is_shown("Box")) return false;
        EXPECT_FALSE(open);
        click(box.ok());
        return false;
    }});
    box.run();
}

TEST(ModalLoopDisplay, ABoxHangsOnAShellThatIsOnTheScreen) {
    open_root();
    EXPECT_EQ(yyMSReturnCurrentUserWidget(), window_slot(0).shell_widget);
    const int child =
        windowopenchild2({.x = 700, .y = 100, .width = 200, .height = 100, .title = "Child"});
    const Rectangle child_area = window_titled("Child");
    windowselect(0);
    click({child_area.x + 10, child_area.y + 10});
    wait_for(MouseButDown);
    EXPECT_EQ(yyMSReturnCurrentUserWidget(), window_slot(child).shell_widget)
        << "where the user is at work";
    yyMSModalAddRemove(window_slot(0).client_widget, -1, true);
    EXPECT_EQ(yyMSReturnCurrentUserWidget(), window_slot(0).client_widget)
        << "before it what has all input";
    yyMSModalAddRemove(nullptr, -1, false);
    XIconifyWindow(yydisplay.display, window_slot(child).shell, yydisplay.screen_number);
    poll_until([] { return !is_shown("Child"); });
    EXPECT_EQ(yyMSReturnCurrentUserWidget(), window_slot(0).shell_widget);
    wdialogload(103);
    wdialogshow(dialog_centred, dialog_centred, 0, 2);
    window_titled("Box limits...");
    close_window("Box limits...");
    wait_for(PushButton);
    EXPECT_EQ(yyMSReturnCurrentUserWidget(), dialog_shell(103));
    wdialogselect(103);
    wdialogunload();
    windowselect(child);
    EXPECT_EQ(yyMSReturnCurrentUserWidget(), window_slot(0).shell_widget)
        << "a dialog that is gone, an icon";
}

TEST(ModalLoopDisplay, AnEditorsMessagesAndCloseAreItsOwn) {
    const Rectangle root = open_root();
    const int child =
        windowopenchild2({.x = 700, .y = 100, .width = 200, .height = 100, .title = "Child"});
    window_titled("Child");
    drain();
    static std::vector<int> asked;
    interpreters.close = [](int window) {
        asked.push_back(window);
        return true;
    };
    interpreters.editor_message = [](Mail& mail) { return mail.type == MouseButDown; };
    interpreters.grid_message = [](Mail& mail) {
        if (mail.type == TimerExpired) mail.value1 = 8;
        return mail.type == MenuSelect;
    };
    wXtMesg2 = {.type = MenuSelect, .value1 = 5};
    click({root.x + 10, root.y + 10});
    close_window("Child");
    close_window("Root");
    const std::vector<Received> told = drain();
    EXPECT_EQ(types_of(told), (std::vector<int>{CloseRequest, CloseRequest}))
        << "the press and the overflow end with their interpreters, plain windows ask for their "
           "close";
    yysettimer(1, 7, 0);
    EXPECT_EQ(wait_for(TimerExpired).VALUE1, 8);
    static bool changed;
    changed = false;
    interpreters.grid_message = [](Mail& mail) {
        changed = mail.type == TimerExpired;
        if (changed) mail.type = MouseMove;
        return false;
    };
    yysettimer(1, 7, 0);
    EXPECT_TRUE(poll_until([] { return changed; }).empty()) << "changed to what isn't enabled";
    EXPECT_TRUE(asked.empty());
    resize_window("Child", 210, 110);
    EXPECT_EQ(wait_for(Resize).WIN, child);
    drain();
    window_slot(child).type = WindowType::Editor;
    resize_window("Child", 220, 120);
    const std::vector<int> types = poll_until([&] { return window_slot(child).width == 220; });
    EXPECT_EQ(std::ranges::count(types, Resize), 0) << "an editor's size is its own";
    drain();
    close_window("Child");
    EXPECT_TRUE(drain().empty());
    EXPECT_EQ(asked, (std::vector<int>{child}));
    interpreters.close = [](int) { return false; };
    close_window("Child");
    EXPECT_EQ(wait_for(CloseRequest).WIN, child);
    interpreters.editor_event = [](XEvent& event) {
        return event.type == KeyPress ? Outcome::Consumed : Outcome::GoesOn;
    };
    windowclosechild(child);
    drain();
    type("a");
    EXPECT_EQ(types_of(drain()), (std::vector<int>{KeyDown})) << "what it leaves is still told";
    interpreters = {};
}

namespace {

constexpr unsigned drawn_red = 0xff0000;

void draw_red() {
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    wglswapbuffers();
}

/// The root window with the view, all red.
Rectangle open_view() {
    windowopen2({.x = 100, .y = 100, .width = 600, .height = 500, .dialog = 101, .title = "Root"});
    const Rectangle area = window_titled("Root");
    wglselect(3, 1001, 2);
    drain();
    draw_red();
    drain();
    return area;
}

}  // namespace

TEST(ModalLoopDisplay, TheViewIsRepairedWhereAModalDialogHasMovedAway) {
    open_view();
    const Point at{620, 500};  // in the view, under the middle of the screen
    ASSERT_EQ(pixel(at), drawn_red);
    wdialogload(103);
    const Visit visit({[&] { return is_shown("Box limits...") && title_at(at) == "Box limits..."; },
                       [&] {
                           XMoveWindow(yydisplay.display, XtWindow(dialog_shell(103)), 1100, 950);
                           return true;
                       },
                       [&] { return title_at(at) == "Root" && pixel(at) == drawn_red; },
                       [&] {
                           close_window("Box limits...");
                           return true;
                       }});
    wdialogshow(dialog_centred, dialog_centred, 0, 1);
    EXPECT_TRUE(visit.over());
}

TEST(ModalLoopDisplay, WhatWasCoveredBeforeAModalLoopIsDrawnAfterIt) {
    open_view();
    const Point at{620, 500};  // in the view, under the middle of the screen
    wdialogload(106);
    wdialogshow(dialog_centred, dialog_centred, 0, 2);
    poll_until([&] { return title_at(at) != "Root"; });
    drain();
    wdialogload(103);
    const Visit visit({[&] {
                           if (!is_shown("Box limits...")) return false;
                           XUnmapWindow(yydisplay.display, XtWindow(dialog_shell(106)));
                           XMoveWindow(yydisplay.display, XtWindow(dialog_shell(103)), 1100, 950);
                           return true;
                       },
                       [&] { return title_at(at) == "Root"; },
                       [&] {
                           close_window("Box limits...");
                           return true;
                       }});
    wdialogshow(dialog_centred, dialog_centred, 0, 1);
    EXPECT_TRUE(visit.over());
    const MessageRecord damage = wait_for(ExposeMessage);
    EXPECT_EQ(damage.WIN, 101);
    EXPECT_EQ(damage.VALUE4, 1001);
    const Widget view = dialog_hooks.picture(dialog_hooks.slot(101), 1001).widget;
    const Point middle = middle_of(view);
    wdialogselect(101);
    igrselect(3, 1001);
    const int left = middle.x - winfodrawable(4) / 2 + damage.X;
    const int top = middle.y - winfodrawable(5) / 2 + damage.Y;
    EXPECT_TRUE(left <= at.x && at.x < left + damage.VALUE1) << left;
    EXPECT_TRUE(top <= at.y && at.y < top + damage.VALUE2) << top;
}

TEST(ModalLoopDisplay, SnapshotsServeUntilTheOutermostIsDropped) {
    const Rectangle root = open_view();
    yygetwindowbitmap(true);
    yygetwindowbitmap(true);
    yygetwindowbitmap(false);
    const Rectangle hole{root.x + 300, root.y + 250, 20, 20};
    cover_and_uncover(hole);
    EXPECT_TRUE(drain().empty()) << "repaired, not told";
    EXPECT_EQ(pixel({hole.x + 5, hole.y + 5}), drawn_red);
    yygetwindowbitmap(false);
    cover_and_uncover(hole);
    EXPECT_EQ(types_of(drain()), (std::vector<int>{ExposeMessage}));
    yygetwindowbitmap(false);  // one too many
    yygetwindowbitmap(true);
    cover_and_uncover(hole);
    EXPECT_TRUE(drain().empty());
}

TEST(ModalLoopDisplay, ASnapshotRepairsWithWhatItHas) {
    const Rectangle root = open_view();
    const Widget view = dialog_hooks.picture(dialog_hooks.slot(101), 1001).widget;
    const Rectangle hole{root.x + 300, root.y + 250, 20, 20};
    const Rectangle around{hole.x - 20, hole.y - 20, 60, 60};
    const Point in_hole{hole.x + 10, hole.y + 10}, beside{hole.x - 10, hole.y - 10};
    constexpr unsigned long stale_green = 0x00ff00, lost_blue = 0x0000ff;
    const auto fill = [&](Rectangle area, unsigned long colour) {
        int x = 0, y = 0;
        Window child = 0;
        XTranslateCoordinates(yydisplay.display, yydisplay.root, XtWindow(view), area.x, area.y, &x,
                              &y, &child);
        const GC gc = XCreateGC(yydisplay.display, XtWindow(view), 0, nullptr);
        XSetForeground(yydisplay.display, gc, colour);
        XFillRectangle(yydisplay.display, XtWindow(view), gc, x, y,
                       static_cast<unsigned>(area.width), static_cast<unsigned>(area.height));
        XFreeGC(yydisplay.display, gc);
        XSync(yydisplay.display, False);
    };
    // The hole is told of, but not yet drawn again when the picture is taken.
    cover_and_uncover(hole);
    fill(hole, stale_green);
    yygetwindowbitmap(true);
    EXPECT_EQ(types_of(drain()), (std::vector<int>{ExposeMessage})) << "still the application's";
    fill(around, lost_blue);
    cover_and_uncover(around);
    EXPECT_EQ(types_of(drain()), (std::vector<int>{ExposeMessage}));
    EXPECT_EQ(pixel(beside), drawn_red);
    EXPECT_NE(pixel(in_hole), stale_green);
    yygetwindowbitmap(false);
}
