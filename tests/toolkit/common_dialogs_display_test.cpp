// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "tests/support/display_input.hpp"
#include "tests/support/modal_visit.hpp"
#include "tests/support/temp_file.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/common_dialogs/message_box.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/widgets/list_items.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/FileSB.h>
#include <Xm/MessageB.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

using namespace tesserakit;
using namespace display_input;

namespace {

using Step = ModalVisit::Step;

/// The innermost box is of this kind ("messageBox", "FSelectionBox", "TessDialog"), and the keys
/// go to it.
bool ready(const std::string& kind) {
    const Widget box = top_modal_widget();
    if (!box || XtName(box) != kind) return false;
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    const Widget widget =
        focus > PointerRoot ? XtWindowToWidget(yydisplay.display, focus) : nullptr;
    return widget && shell_around(widget) == shell_around(box) && XmGetFocusWidget(box);
}

Step in(const std::string& kind, const std::function<void()>& act) {
    return [kind, act] {
        if (!ready(kind)) return false;
        act();
        return true;
    };
}

Step in_message(const std::function<void()>& act) { return in("messageBox", act); }

std::function<void()> keys(const std::vector<std::string>& names) {
    return [names] {
        for (const std::string& name : names) key(name);
    };
}

Point middle_of(Widget widget) {
    Position x = 0;
    Position y = 0;
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(widget, XmNx, &x, XmNy, &y, XmNwidth, &width, XmNheight, &height, nullptr);
    Point at;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, XtWindow(XtParent(widget)), yydisplay.root,
                          x + width / 2, y + height / 2, &at.x, &at.y, &child);
    return at;
}

class CommonDialogs : public testing::Test {
protected:
    void SetUp() override {
        winitialise();
        windowopen2({.dialog = 101, .title = "Root"});
        window_titled("Root");
        drain();
    }

    static int message(int buttons, int standard, const std::vector<Step>& steps,
                       const std::string& text = "Do you want to save the changes ?",
                       const std::string& title = "Save") {
        const ModalVisit visit(steps);
        wmessagebox(buttons, MessageQuestion, standard, text, title);
        EXPECT_TRUE(visit.over());
        EXPECT_EQ(winfodialog(1), winfodialog(4));
        return winfodialog(4);
    }
};

struct ButtonSet {
    std::vector<std::string> labels;
    std::vector<int> numbers;
};
const std::vector<ButtonSet> button_sets{
    {{"OK"}, {1}},
    {{"OK", "Cancel"}, {1, 2}},
    {{"Retry", "Cancel"}, {1, 2}},
    {{"Yes", "No"}, {1, 2}},
    {{"Yes", "No", "Cancel"}, {1, 2, 3}},
    {{"Abort", "Retry", "Ignore"}, {2, 1, 3}},
};

/// Labels of the innermost box from left to right.
std::vector<std::string> labels_shown() {
    std::map<int, std::string> by_place;
    for (const unsigned char which :
         {XmDIALOG_OK_BUTTON, XmDIALOG_CANCEL_BUTTON, XmDIALOG_HELP_BUTTON}) {
        const Widget button = XmMessageBoxGetChild(top_modal_widget(), which);
        if (!XtIsManaged(button)) continue;
        XmString label = nullptr;
        XtVaGetValues(button, XmNlabelString, &label, nullptr);
        by_place[middle_of(button).x] = plain_text(label);
        XmStringFree(label);
    }
    std::vector<std::string> labels;
    for (const auto& [x, label] : by_place) labels.push_back(label);
    return labels;
}

}  // namespace

TEST_F(CommonDialogs, EachSetOfButtonsIsReachedByKeys) {
    for (int set = 0; set < 6; ++set) {
        const auto& [labels, numbers] = button_sets[static_cast<std::size_t>(set)];
        SCOPED_TRACE(set);
        EXPECT_EQ(message(set, 1, {in_message([&labels = labels] {
                              EXPECT_EQ(labels_shown(), labels);
                              key("Escape");
                          })}),
                  numbers.back());
        EXPECT_EQ(message(set, 1, {in_message([] { close_window("Save"); })}), numbers.back());
        for (const int number : numbers)
            EXPECT_EQ(message(set, number, {in_message(keys({"Return"}))}), number);
        EXPECT_EQ(message(set, 9, {in_message(keys({"Return"}))}), numbers.back())
            << "no such button";
        // From the first button on, by Tab.
        const std::size_t last = numbers.size() - 1;
        std::vector<std::string> way(last, "Tab");
        way.push_back("Return");
        EXPECT_EQ(message(set, numbers.front(), {in_message(keys(way))}), numbers.back());
    }
}

TEST_F(CommonDialogs, AMessageBoxStandsInTheMiddleUnderItsTitle) {
    message(3, 1, {in_message([] {
                const Rectangle box = window_titled("A title");
                EXPECT_NEAR(box.x + box.width / 2, yydisplay.width / 2, 10);
                EXPECT_NEAR(box.y + box.height / 2, yydisplay.height / 2, 25);
                key("Return");
            })},
            "x", "A title");
    message(3, 1, {in_message([] {
                EXPECT_TRUE(is_shown(" ")) << "not the program's name";
                key("Return");
            })},
            "x", "");
}

TEST_F(CommonDialogs, ALongNameStaysOnTheScreen) {
    const std::string name = "/" + std::string(400, 'W') + "/" + std::string(200, 'm') + "\xff";
    message(3, 2, {in_message([] {
                const Rectangle box = window_titled("Save");
                EXPECT_GE(box.x, 0);
                EXPECT_LE(box.x + box.width, yydisplay.width);
                for (const unsigned char which : {XmDIALOG_OK_BUTTON, XmDIALOG_CANCEL_BUTTON}) {
                    const Point at = middle_of(XmMessageBoxGetChild(top_modal_widget(), which));
                    EXPECT_TRUE(at.x > 0 && at.x < yydisplay.width) << at.x;
                }
                key("Return");
            })},
            name + " already exists.\nDo you want to replace it?");
}

TEST_F(CommonDialogs, NothingOfABoxReachesTheApplication) {
    for (const int type : {MouseButUp, MouseMove, FieldChanged, TabChanged})
        wmessageenable(type, 1);
    drain();
    const Rectangle root = window_titled("Root");
    const Point outside{root.x + 20, root.y + root.height - 60};
    const auto press_outside = [outside] {
        click(outside);
        type("a");
        click(middle_of(XmMessageBoxGetChild(top_modal_widget(), XmDIALOG_CANCEL_BUTTON)));
    };
    EXPECT_EQ(message(3, 1, {in_message(press_outside)}), 2);
    for (const Received& received : drain())
        EXPECT_TRUE(received.type == ExposeMessage || received.type == MouseMove) << received.type;
    EXPECT_EQ(nModalWindows, 0);
}

TEST(MessageText, LinesAreBrokenAtBlanksAndSlashes) {
    const auto letters = [](std::string_view text) { return static_cast<int>(text.size()); };
    EXPECT_EQ(broken_to_width("one two three", 7, letters), "one two\nthree");
    EXPECT_EQ(broken_to_width("/home/me/long", 8, letters), "/home/\nme/long");
    EXPECT_EQ(broken_to_width("abcdefgh", 3, letters), "abc\ndef\ngh");
    EXPECT_EQ(broken_to_width("ab\n\ncd ef", 5, letters), "ab\n\ncd ef");
    EXPECT_EQ(broken_to_width("\u00fc\u00fc\u00fc", 3, letters), "\u00fc\n\u00fc\n\u00fc");
    EXPECT_EQ(broken_to_width("ab", 0, letters), "a\nb");
    EXPECT_EQ(broken_to_width("", 5, letters), "");
}
