// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "tests/support/display_input.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/interpreters.hpp"
#include "toolkit/messages/timers.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <vector>

using namespace tesserakit;
using namespace display_input;

namespace {

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

}  // namespace

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
    EXPECT_TRUE(asked.empty());
    window_slot(child).type = WindowType::Editor;
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
