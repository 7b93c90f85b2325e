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

Widget widget_with_keys() {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    return focus > PointerRoot ? XtWindowToWidget(yydisplay.display, focus) : nullptr;
}

/// The innermost box is of this kind ("messageBox", "FSelectionBox", "TessDialog"), and the keys
/// go to it.
bool ready(const std::string& kind) {
    const Widget box = top_modal_widget();
    if (!box || XtName(box) != kind) return false;
    const Widget widget = widget_with_keys();
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
    };
    const auto press_no = [] {
        const Point no =
            middle_of(XmMessageBoxGetChild(top_modal_widget(), XmDIALOG_CANCEL_BUTTON));
        // The window manager may be at raising the window that was clicked.
        if (title_at(no) != "Save") return false;
        click(no);
        return true;
    };
    EXPECT_EQ(message(3, 1, {in_message(press_outside), press_no}), 2);
    for (const Received& received : drain())
        EXPECT_TRUE(received.type == ExposeMessage || received.type == MouseMove) << received.type;
    EXPECT_EQ(nModalWindows, 0);
}

namespace {

constexpr int open_flags = FileKeepDirectory | FilePrompting | FileMustExist;
constexpr int save_flags = FileKeepDirectory | FilePrompting | FileSaving;

Widget file_part(unsigned char which) {
    return XmFileSelectionBoxGetChild(top_modal_widget(), which);
}
Widget file_text() { return file_part(XmDIALOG_TEXT); }
Widget file_list() { return file_part(XmDIALOG_LIST); }
Widget directory_list() { return file_part(XmDIALOG_DIR_LIST); }

std::string name_in_box() { return taken(XmTextFieldGetString(file_text())); }

std::vector<std::string> items(Widget list) {
    std::vector<std::string> names;
    for (int i = 1; i <= item_count(list); ++i) names.push_back(item_text(list, i));
    return names;
}

Step in_files(const std::function<void()>& act) { return in("FSelectionBox", act); }

/// Types over what stands in the name, which a click has given the keys.
Step name_and_return(const std::string& name) {
    return [name] {
        if (!ready("FSelectionBox")) return false;
        if (XmGetFocusWidget(top_modal_widget()) != file_text()) {
            click(middle_of(file_text()));
            return false;
        }
        key("ctrl+slash");
        type(name);
        key("Return");
        return true;
    };
}

/// Waits until the directory list begins so, then acts.
Step when_listed(const std::vector<std::string>& directories, const std::function<void()>& act) {
    return [directories, act] {
        if (!ready("FSelectionBox") || items(directory_list()) != directories) return false;
        act();
        return true;
    };
}

/// The menu of filters has the keys.
Step in_menu(const std::function<void()>& act) {
    return [act] {
        Widget menu = nullptr;
        XtVaGetValues(XtNameToWidget(top_modal_widget(), "filterMenu"), XmNsubMenuId, &menu,
                      nullptr);
        const Widget focus = widget_with_keys();
        if (!focus || shell_around(focus) != shell_around(menu)) return false;
        act();
        return true;
    };
}

class FileDialogs : public CommonDialogs {
protected:
    void SetUp() override {
        CommonDialogs::SetUp();
        former_ = std::filesystem::current_path();
        for (const char* name : {"hematite.gwr", "uo2.gwr", "notes.txt", ".hidden.gwr"})
            folder_.file(name, "");
        for (const char* name : {"sub", "sub/deeper"})
            std::filesystem::create_directory(folder_.path() / name);
        folder_.file("sub/inner.gwr", "");
        std::filesystem::current_path(folder_.path());
    }
    void TearDown() override { std::filesystem::current_path(former_); }

    std::string whole(const std::string& name) const { return folder_.name(name); }

    /// Status; the name goes in and comes out.
    int select(int flags, std::string& name, const std::vector<Step>& steps,
               const std::string& filter = "Structure|*.gwr|") {
        const ModalVisit visit(steps);
        wselectfile2(filter, flags, name, "Files", &type_);
        EXPECT_TRUE(visit.over());
        EXPECT_EQ(infoerror(1), 0);
        return winfodialog(4);
    }

    TempDirectory folder_;
    int type_ = 1;
    std::filesystem::path former_;
};

}  // namespace

TEST_F(FileDialogs, ANameIsTypedAndComesBackWhole) {
    std::string name = "   ";
    EXPECT_EQ(
        select(open_flags, name, {in_files([] {
                   EXPECT_EQ(XmGetFocusWidget(top_modal_widget()), file_text());
                   EXPECT_EQ(items(directory_list()), (std::vector<std::string>{"..", "sub"}));
                   EXPECT_EQ(items(file_list()),
                             (std::vector<std::string>{"hematite.gwr", "uo2.gwr"}));
                   type("sub/inner.gwr ");
                   key("Return");
               })}),
        1);
    EXPECT_EQ(name, whole("sub/inner.gwr"));
    EXPECT_EQ(std::filesystem::current_path(), whole("sub")) << "kept";
    // The name that is given is where the box begins.
    EXPECT_EQ(select(0, name, {in_files([] {
                         EXPECT_EQ(name_in_box(), "inner.gwr");
                         key("ctrl+slash");
                         type("../uo2.gwr");
                         key("Return");
                     })}),
              1);
    EXPECT_EQ(name, whole("uo2.gwr"));
    EXPECT_EQ(std::filesystem::current_path(), whole("sub")) << "not kept";
    // In its own folder, too; a filter that isn't there is the first.
    type_ = 9;
    EXPECT_EQ(select(0, name, {when_listed({"..", "sub"}, keys({"Return"}))}), 1);
    EXPECT_EQ(name, whole("uo2.gwr"));
    EXPECT_EQ(type_, 1);
}

TEST_F(FileDialogs, CancelLeavesNameAndDirectoryAsTheyWere) {
    const std::vector<std::function<void()>> ways{
        keys({"Escape"}), [] { close_window("Files"); },
        [] { click(middle_of(file_part(XmDIALOG_CANCEL_BUTTON))); },
        // From the lists, too.
        keys({"shift+Tab", "Escape"}), keys({"shift+Tab", "shift+Tab", "Escape"})};
    for (const auto& way : ways) {
        std::string name = "uo2.gwr";
        type_ = 1;
        EXPECT_EQ(
            select(open_flags, name, {name_and_return("sub"), when_listed({"..", "deeper"}, way)}),
            2);
        EXPECT_EQ(name, "uo2.gwr");
        EXPECT_EQ(type_, 1);
        EXPECT_EQ(std::filesystem::current_path(), folder_.path());
    }
}

TEST_F(FileDialogs, PatternsAndDirectoriesAreFollowed) {
    std::string name;
    const auto expect_files = [](const std::vector<std::string>& wanted) {
        return [wanted] { return ready("FSelectionBox") && items(file_list()) == wanted; };
    };
    EXPECT_EQ(
        select(open_flags, name,
               {name_and_return("*.txt"), expect_files({"notes.txt"}),
                in_files([] { EXPECT_EQ(name_in_box(), "*.txt"); }), name_and_return("sub/*.gwr"),
                expect_files({"inner.gwr"}), name_and_return(".."),
                expect_files({"hematite.gwr", "uo2.gwr"}), in_files([] {
                    EXPECT_EQ(name_in_box(), "");
                    const Point at = middle_of(XtParent(directory_list()));
                    Dimension height = 0;
                    XtVaGetValues(XtParent(directory_list()), XmNheight, &height, nullptr);
                    // The second line: a list of twelve.
                    const Point second{at.x, at.y - height / 2 + height * 3 / 24};
                    click(second);
                    click(second);
                }),
                expect_files({"inner.gwr"}), name_and_return("inner.gwr")}),
        1);
    EXPECT_EQ(name, whole("sub/inner.gwr"));
}

TEST_F(FileDialogs, FilesAndDirectoriesAreChosenByKeys) {
    std::string name;
    // From the name backwards: files, then directories. Return enters or takes.
    EXPECT_EQ(select(open_flags, name,
                     {in_files(keys({"shift+Tab", "shift+Tab", "Down", "Return"})),
                      when_listed({"..", "deeper"}, keys({"Tab", "Return"}))}),
              1);
    EXPECT_EQ(name, whole("sub/inner.gwr"));
    // A directory is entered, whatever name stands there.
    name = whole("uo2.gwr");
    EXPECT_EQ(select(save_flags, name,
                     {in_files(keys({"shift+Tab", "shift+Tab", "Down", "Return"})),
                      when_listed({"..", "deeper"}, keys({"Escape"}))}),
              2);
    // Over an existing file the question comes once.
    name = folder_.path().string() + "/";
    EXPECT_EQ(select(save_flags, name,
                     {in_files(keys({"shift+Tab", "Down", "Return"})), in_message(keys({"Return"})),
                      in_files([] {
                          EXPECT_EQ(name_in_box(), "uo2.gwr");
                          key("Escape");
                      })}),
              2);
}

TEST_F(FileDialogs, WhatIsMissingIsTold) {
    std::string name;
    EXPECT_EQ(select(open_flags, name,
                     {name_and_return("none.gwr"), in_message(keys({"Return"})),
                      in_files([] { EXPECT_EQ(name_in_box(), "none.gwr") << "for a correction"; }),
                      name_and_return("none/uo2.gwr"), in_message(keys({"Escape"})),
                      name_and_return("/" + std::string(256, 'a')), in_message(keys({"Return"})),
                      in_files(keys({"Escape"}))}),
              2);
    EXPECT_EQ(name, "");
    // Without must-exist it is offered.
    EXPECT_EQ(select(FilePrompting, name,
                     {name_and_return("new.gwr"), in_message(keys({"Tab", "Return"})),
                      in_files(keys({"Return"})), in_message(keys({"Return"}))}),
              1);
    EXPECT_EQ(name, whole("new.gwr"));
    EXPECT_FALSE(std::filesystem::exists(name)) << "only the name was asked for";
}

TEST_F(FileDialogs, AFileIsOverwrittenOnlyByYes) {
    std::string name = whole("uo2.gwr");
    static std::string question;
    const auto note_question = [] {
        XmString text = nullptr;
        XtVaGetValues(top_modal_widget(), XmNmessageString, &text, nullptr);
        question = plain_text(text);
        XmStringFree(text);
    };
    static Point cancel;
    const auto press_cancel_below = [note_question] {
        note_question();
        // The box below is locked: its own Cancel does nothing.
        click(cancel);
        click(middle_of(XmMessageBoxGetChild(top_modal_widget(), XmDIALOG_CANCEL_BUTTON)));
    };
    EXPECT_EQ(select(save_flags, name,
                     {in_files([] {
                          cancel = middle_of(file_part(XmDIALOG_CANCEL_BUTTON));
                          key("Return");
                      }),
                      in_message(press_cancel_below), in_files(keys({"Return"})),
                      in_message(keys({"Escape"})), in_files(keys({"Return"})),
                      in_message(keys({"Left", "Return"}))}),
              1);
    EXPECT_EQ(name, whole("uo2.gwr"));
    EXPECT_EQ(question, name + " already exists.Do you want to replace it?") << "on two lines";
}

TEST_F(FileDialogs, AnotherFilterIsChosen) {
    std::string name;
    type_ = 1;
    EXPECT_EQ(select(open_flags, name,
                     {in_files(keys({"Tab", "space"})), in_menu(keys({"Down"})),
                      in_menu(keys({"Return"})), [] { return item_count(file_list()) == 1; },
                      name_and_return("notes.txt")},
                     " Structure | *.gwr | Notes|*.txt|"),
              1);
    EXPECT_EQ(name, whole("notes.txt"));
    EXPECT_EQ(type_, 2);
}

TEST_F(FileDialogs, NamesThatAreNoTextComeBackByteForByte) {
    for (const std::string odd : {"m\xfcller.gwr", "M\u00fcller \u03b1.gwr", "two\nlines.gwr"}) {
        folder_.file("odd/" + odd, "");
        std::filesystem::create_directory(whole("odd"));
        folder_.file("odd/" + odd, "");
        std::string name = whole("odd/");
        EXPECT_EQ(select(open_flags, name, {in_files([] {
                             EXPECT_EQ(item_count(file_list()), 1);
                             for (const char* way : {"shift+Tab", "space", "Tab", "Return"})
                                 key(way);
                         })}),
                  1);
        EXPECT_EQ(name, whole("odd/" + odd));
        std::filesystem::remove_all(whole("odd"));
    }
}

TEST_F(FileDialogs, ADirectoryIsSelected) {
    std::string name;
    EXPECT_EQ(select(FileDirectory, name,
                     {in_files([] { EXPECT_FALSE(XtIsManaged(XtParent(file_list()))); }),
                      name_and_return("sub/deeper")}),
              1);
    EXPECT_EQ(name, whole("sub/deeper"));
    EXPECT_EQ(select(FileDirectory, name, {in_files(keys({"Return"}))}), 1) << "the one shown";
    EXPECT_EQ(name, whole("sub/deeper"));
}

TEST_F(FileDialogs, LongNamesLeaveTheBoxOnTheScreen) {
    folder_.file(std::string(250, 'W') + ".gwr", "");
    std::string name;
    EXPECT_EQ(select(open_flags, name, {in_files([] {
                         const Rectangle area = window_titled("Files");
                         EXPECT_GT(area.x, 0);
                         EXPECT_LT(area.x + area.width, yydisplay.width);
                         key("Escape");
                     })}),
              2);
}

namespace {

int number_in(int field) {
    int value = -1;
    wdialoggetinteger(field, value);
    return value;
}

int slider_at(int field) {
    int value = -1;
    wdialoggettrackbar(field, value);
    return value;
}

Point swatch() { return middle_of(find_field(dialog_slot(yyDGslot(32102)), 1001)->widget); }

Step in_colours(const std::function<void()>& act) { return in("TessDialog", act); }

Step until(const std::function<bool()>& holds, const std::function<void()>& act) {
    return [holds, act] {
        if (!holds()) return false;
        act();
        return true;
    };
}

class ColourDialog : public CommonDialogs {
protected:
    static int select(int& colour, const std::vector<Step>& steps) {
        const ModalVisit visit(steps);
        wselectcolour1(colour);
        EXPECT_TRUE(visit.over());
        EXPECT_EQ(infoerror(1), 0);
        return winfodialog(4);
    }
};

}  // namespace

TEST(Colours, AreTakenApartAndPutTogether) {
    EXPECT_EQ(wrgb(255, 0, 0), 255);
    EXPECT_EQ(wrgb(1, 2, 3), 197121);
    int red = -1, green = -1, blue = -1;
    wrgbsplit(197121, &red, nullptr, &blue);
    EXPECT_EQ(red, 1);
    EXPECT_EQ(green, -1) << "not wanted";
    EXPECT_EQ(blue, 3);
    wrgbsplit(wrgb(255, 254, 253), nullptr, &green, nullptr);
    EXPECT_EQ(green, 254);
}

TEST_F(ColourDialog, SlidersNumbersAndSwatchFollowEachOther) {
    wdialogload(103);
    int colour = wrgb(16, 32, 64);
    const auto shows = [](unsigned wanted) {
        return [wanted] { return pixel(swatch()) == wanted; };
    };
    EXPECT_EQ(select(colour, {until([&] { return ready("TessDialog") && shows(0x102040)(); },
                                    [] {
                                        EXPECT_EQ(slider_at(1003), 32);
                                        EXPECT_EQ(number_in(1010), 64);
                                        key("Up");  // red
                                    }),
                              until(shows(0x112040),
                                    [] {
                                        EXPECT_EQ(number_in(1008), 17);
                                        for (const char* name : {"Tab", "Tab", "Tab", "Tab"})
                                            key(name);
                                        key("ctrl+a");
                                        type("200");  // green
                                    }),
                              until(shows(0x11c840),
                                    [] {
                                        EXPECT_EQ(slider_at(1003), 200);
                                        key("ctrl+a");
                                        key("BackSpace");
                                    }),
                              until([] { return wdialoggettypedtext(1009).empty(); },
                                    [] {
                                        EXPECT_EQ(slider_at(1003), 200) << "no number yet";
                                        type("200");
                                        key("Return");
                                    })}),
              1);
    EXPECT_EQ(colour, wrgb(17, 200, 64));
    EXPECT_EQ(winfodialog(3), 103) << "current as before";
}

TEST_F(ColourDialog, CancelKeepsTheColour) {
    const std::vector<std::function<void()>> ways{keys({"Up", "Escape"}), [] {
                                                      key("Up");
                                                      close_window("Colour");
                                                  }};
    for (const auto& way : ways) {
        int colour = wrgb(1, 2, 3);
        EXPECT_EQ(select(colour, {in_colours(way)}), 2);
        EXPECT_EQ(colour, wrgb(1, 2, 3));
    }
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
