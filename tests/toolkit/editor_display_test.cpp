// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "tests/support/display_input.hpp"
#include "tests/support/modal_visit.hpp"
#include "tests/support/temp_file.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/editor/editor_record.hpp"
#include "toolkit/editor/text_area.hpp"
#include "toolkit/menus/menu_windows.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/MessageB.h>
#include <Xm/Text.h>

#include <poll.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

using namespace tesserakit;
using namespace display_input;

namespace {

const std::string plain = "one two\nthree\nfour five six\n";

/// Another program on the display, with a selection of its own or a look at one.
class OtherClient {
public:
    OtherClient()
        : display_(XOpenDisplay(nullptr)),
          window_(XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0)) {
    }
    ~OtherClient() {
        server_ = {};
        XCloseDisplay(display_);
    }
    OtherClient(const OtherClient&) = delete;
    OtherClient& operator=(const OtherClient&) = delete;

    /// What a selection holds, the program under test being polled meanwhile.
    std::string text_of(const char* selection, const char* target = "UTF8_STRING") {
        XConvertSelection(display_, atom(selection), atom(target), atom("ANSWER"), window_,
                          CurrentTime);
        XFlush(display_);
        XEvent event;
        poll_until([&] {
            return XCheckTypedWindowEvent(display_, window_, SelectionNotify, &event) != 0;
        });
        Atom type = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display_, window_, atom("ANSWER"), 0, 1 << 20, True, AnyPropertyType,
                           &type, &format, &count, &rest, &data);
        std::string text(reinterpret_cast<char*>(data), data ? count : 0);
        if (data) XFree(data);
        return text;
    }
    /// Owns it from now on, and answers who asks: Motif waits for the answer.
    void own(const char* selection, const std::string& text) {
        server_ = {};
        text_ = text;
        XSetSelectionOwner(display_, atom(selection), window_, CurrentTime);
        XSync(display_, False);
        server_ = std::jthread([this](const std::stop_token& stop) { serve(stop); });
    }

private:
    Atom atom(const char* name) const { return XInternAtom(display_, name, False); }

    void serve(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            XEvent event;
            pollfd connection{ConnectionNumber(display_), POLLIN, 0};
            if (XPending(display_) == 0) poll(&connection, 1, 10);
            if (!XCheckTypedWindowEvent(display_, window_, SelectionRequest, &event)) continue;
            answer(event.xselectionrequest);
            XFlush(display_);
        }
    }

    void answer(const XSelectionRequestEvent& request) {
        const Atom utf8 = atom("UTF8_STRING");
        const Atom targets = atom("TARGETS");
        XEvent notice{};
        notice.xselection = {SelectionNotify,
                             0,
                             True,
                             display_,
                             request.requestor,
                             request.selection,
                             request.target,
                             request.property,
                             request.time};
        if (request.target == targets) {
            const std::array offered{targets, utf8};
            XChangeProperty(display_, request.requestor, request.property, XA_ATOM, 32,
                            PropModeReplace, reinterpret_cast<const unsigned char*>(offered.data()),
                            static_cast<int>(offered.size()));
        } else if (request.target == utf8) {
            XChangeProperty(display_, request.requestor, request.property, utf8, 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(text_.data()),
                            static_cast<int>(text_.size()));
        } else {
            notice.xselection.property = 0;
        }
        XSendEvent(display_, request.requestor, False, 0, &notice);
    }

    Display* display_;
    Window window_;
    std::string text_;
    std::jthread server_;
};

bool has_keyboard(Widget shell) {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    const Widget widget =
        focus > PointerRoot ? XtWindowToWidget(yydisplay.display, focus) : nullptr;
    return widget && shell_around(widget) == shell;
}

/// A box is up, and takes keys.
bool box_takes_keys() {
    const Widget box = top_modal_widget();
    return box && has_keyboard(shell_around(box)) && XmGetFocusWidget(box);
}

bool box_is_up() {
    return box_takes_keys() && XtName(top_modal_widget()) == std::string("messageBox");
}

bool dialog_has_keys(int dialog) {
    const int slot = yyDGslot(dialog);
    return slot >= 0 && has_keyboard(dialog_slot(slot).shell) &&
           XmGetFocusWidget(dialog_slot(slot).widget);
}

std::string box_title() {
    String title = nullptr;
    XtVaGetValues(shell_around(top_modal_widget()), XtNtitle, &title, nullptr);
    return title;
}

/// Without its line breaks.
std::string box_text() {
    XmString text = nullptr;
    XtVaGetValues(top_modal_widget(), XmNmessageString, &text, nullptr);
    std::string plain_message = plain_text(text);
    XmStringFree(text);
    return plain_message;
}

class Editor : public testing::Test {
protected:
    void SetUp() override {
        winitialise();
        windowopen2({.x = 600, .y = 500, .width = 200, .height = 100, .title = "Root"});
        window_titled("Root");
        drain();
    }

    /// A window with an editor that has the keyboard.
    int open(const std::string& name, const EditorRequest& request = {}) {
        window_ = windowopenchild2(
            {.flags = 39, .x = 60, .y = 60, .width = 700, .height = 420, .title = "Text"}, 0);
        weditfile(name, request);
        if (request.mode == DialogModeless) poll_until([this] { return has_keys(); });
        return window_;
    }
    bool has_keys() const {
        const Widget shell = window_slot(window_).shell_widget;
        return has_keyboard(shell) && XmGetFocusWidget(shell) == editor().text;
    }
    EditorRecord& editor() const { return *editor_of(window_); }
    static std::string text() {
        std::string all;
        weditgettext1(all);
        return all;
    }
    std::string status(std::size_t part) const {
        return window_slot(window_).status_bar->parts[part - 1].text;
    }
    void keys(const std::vector<std::string>& names) const {
        for (const std::string& name : names) key(name);
        settle();
        drain();
    }
    /// An item of the right button's menu over the text.
    void choose_in_popup(int item) const {
        click(middle_of(editor().text), Button3);
        poll_until([] { return pwActiveMenu != nullptr; });
        const int row = pwFloatMenu->record.row_of(item);
        const MenuPopUpWindow& popup = pwFloatMenu->popup(0);
        const Box& box = pwFloatMenu->item(row).box;
        click({popup.box.x + box.x + box.width / 2, popup.box.y + box.y + box.height / 2});
        poll_until([] { return pwActiveMenu == nullptr; });
        drain();
    }
    /// Closes as the window manager does, and answers the question by a key; "" for none.
    void close_with(const std::string& answer) {
        std::vector<ModalVisit::Step> steps;
        if (!answer.empty())
            steps.push_back([answer] {
                if (!box_is_up()) return false;
                key(answer);
                return true;
            });
        const ModalVisit visit(steps);
        close_window("Text - [" + std::string(shown_name_) + "]");
        settle();
        drain();
        EXPECT_TRUE(visit.over());
    }

    int window_ = 0;
    std::string shown_name_;
    TempDirectory folder_;
};

}  // namespace

TEST_F(Editor, WhatIsTypedIsSavedAndTheBarsFollow) {
    const std::string name = folder_.file("a.txt", plain);
    open(name);
    EXPECT_TRUE(is_shown("Text - [" + name + "]"));
    EXPECT_EQ(status(2), "INS");
    EXPECT_EQ(status(3), "Line: 1  Col: 1");
    keys({"Down", "End", "x", "Return", "y"});
    EXPECT_EQ(status(3), "Line: 3  Col: 2");
    keys({"ctrl+t", "Insert", "Home", "z"});  // a control key types nothing
    EXPECT_EQ(status(2), "OVR");
    EXPECT_EQ(content_of(name), plain) << "not before it is saved";
    keys({"ctrl+s"});
    EXPECT_EQ(content_of(name), "one two\nthreex\nz\nfour five six\n");
    shown_name_ = name;
    close_with("");
    EXPECT_EQ(editor_of(window_), nullptr) << "nothing to ask";
}

TEST_F(Editor, ThePopUpChangesLines) {
    open(folder_.file("a.txt", "\xc3\xa4one\ntwo\n\nlast"));
    keys({"Home"});
    choose_in_popup(45013);  // Comment
    EXPECT_EQ(text(), "!\xc3\xa4one\ntwo\n\nlast");
    choose_in_popup(45021);  // Upper Case
    choose_in_popup(45014);  // Uncomment
    EXPECT_EQ(text(), "\xc3\x84ONE\ntwo\n\nlast");
    keys({"Down"});
    choose_in_popup(45003);  // Transpose Lines
    EXPECT_EQ(text(), "two\n\xc3\x84ONE\n\nlast");
    keys({"ctrl+End"});
    choose_in_popup(45001);  // Delete Line
    EXPECT_EQ(text(), "two\n\xc3\x84ONE\n");
    choose_in_popup(32126);  // Select All
    keys({"Delete"});
    choose_in_popup(45002);  // Join Lines, in an empty text
    EXPECT_EQ(text(), "");
    EXPECT_EQ(status(3), "Line: 1  Col: 1");
}

TEST_F(Editor, ExchangesTextWithOtherPrograms) {
    open(folder_.file("a.txt", "\xce\xb1\xce\xb2 two\n"));
    OtherClient other;
    keys({"shift+End"});
    EXPECT_EQ(other.text_of("PRIMARY"), "\xce\xb1\xce\xb2 two");
    keys({"ctrl+x"});
    EXPECT_EQ(other.text_of("CLIPBOARD"), "\xce\xb1\xce\xb2 two");
    EXPECT_EQ(text(), "\n");
    other.own("CLIPBOARD", "\xc2\xb5\xe2\x82\xac");
    key("ctrl+v");
    poll_until([] { return text() == "\xc2\xb5\xe2\x82\xac\n"; });
    EXPECT_EQ(status(3), "Line: 1  Col: 3");
    other.own("PRIMARY", "mid");
    click(middle_of(editor().text), Button2);
    poll_until([] { return text().find("mid") != std::string::npos; });
    keys({"ctrl+a", "ctrl+c"});
    const std::string copied = text();
    windowclosechild(window_);
    EXPECT_EQ(other.text_of("CLIPBOARD"), copied) << "it outlives the window";
    EXPECT_EQ(other.text_of("CLIPBOARD", "STRING").substr(0, 1), "\xb5") << "of Latin-1";
    EXPECT_NE(other.text_of("CLIPBOARD", "COMPOUND_TEXT").find("mid"), std::string::npos);
}

TEST_F(Editor, FindsAndReplaces) {
    open(folder_.file("a.txt", "Fe fe ofe\nFE x\n"));
    keys({"F3"});  // nothing to search for yet: the dialog comes
    poll_until([] { return yyDGslot(32103) >= 0 && dialog_slot(yyDGslot(32103)).shown(); });
    poll_until([] { return dialog_has_keys(32103); });
    type("fe");
    click(middle_of(find_field(dialog_slot(yyDGslot(32103)), 1003)->widget));  // whole word
    const auto found = [&](std::size_t begin) {
        return selection_of(editor()) == TextSelection{begin, begin + 2};
    };
    key("Return");
    poll_until([&] { return found(0); });
    key("Return");
    poll_until([&] { return found(3); });
    key("Return");
    poll_until([&] { return found(10); });
    bool told = false;
    {
        const ModalVisit visit({[&told] {
            if (!box_is_up()) return false;
            told = box_title() == "Find fe" && box_text() == "End of text reached";
            key("Return");
            return true;
        }});
        key("Return");
        poll_until([&] { return visit.over() && nModalWindows == 0 && dialog_has_keys(32103); });
    }
    EXPECT_TRUE(told);
    // Upwards, with the selection of the display in another program's hand.
    click(middle_of(find_field(dialog_slot(yyDGslot(32103)), 1214)->widget));
    OtherClient().own("PRIMARY", "elsewhere");
    poll_until([this] { return selection_of(editor()) == TextSelection{12, 12}; });
    key("Return");
    poll_until([&] { return found(3); });
    key("Escape");
    poll_until([] { return !dialog_slot(yyDGslot(32103)).shown(); });

    poll_until([this] { return has_keys(); });
    keys({"ctrl+Home", "ctrl+h"});
    poll_until([] { return yyDGslot(32104) >= 0 && dialog_slot(yyDGslot(32104)).shown(); });
    poll_until([] { return dialog_has_keys(32104); });
    DialogRecord& replace = dialog_slot(yyDGslot(32104));
    click(middle_of(find_field(replace, 1006)->widget));
    type("Mn");
    click(middle_of(find_field(replace, 1004)->widget));  // match case: as well as the whole word
    click(middle_of(find_field(replace, 1009)->widget));  // all
    drain();
    EXPECT_EQ(text(), "Fe Mn ofe\nFE x\n");
    // One by one: the match that is selected gives way, and the next is selected.
    click(middle_of(find_field(replace, 1003)->widget));
    click(middle_of(find_field(replace, 1007)->widget));
    poll_until([&] { return found(7); });
    const ModalVisit visit({[] {
        if (!box_is_up()) return false;
        key("Return");
        return true;
    }});
    click(middle_of(find_field(replace, 1007)->widget));
    poll_until([&] { return visit.over() && nModalWindows == 0; });
    EXPECT_EQ(text(), "Fe Mn oMn\nFE x\n");
}

TEST_F(Editor, TellsOfAReplacementThatFindsNoRoom) {
    std::string much;
    for (int i = 0; i < 200'000; ++i) much += "a\n";
    const std::string name = folder_.file("a.txt", much);
    open(name);
    editor().search = {.wanted = L"a", .replacement = std::wstring(200, L'b')};
    keys({"ctrl+h"});
    poll_until([] { return dialog_has_keys(32104); });
    std::string told;
    const ModalVisit visit({[&told] {
        if (!box_is_up()) return false;
        told = box_title() + ": " + box_text();
        return key("Return"), true;
    }});
    click(middle_of(find_field(dialog_slot(yyDGslot(32104)), 1009)->widget));
    poll_until([&] { return visit.over() && nModalWindows == 0; });
    EXPECT_EQ(told, "Allocation Error: " + name + "File too large - not enough memory.");
    EXPECT_TRUE(text() == much);
}

TEST_F(Editor, SavesNothingWhereItsFlagsForbidIt) {
    const std::string name = folder_.file("a.txt", plain);
    {
        open(name, {.flags = 512 + 8192});  // neither Save nor Save As
        keys({"q"});
        const ModalVisit visit({[] { return box_is_up() && (key("Escape"), true); }});
        EXPECT_TRUE(weditclose(window_)) << "nothing to ask";
    }
    open(name, {.flags = 8192});
    keys({"q"});
    const ModalVisit visit({
        [] { return box_is_up() && (key("Return"), true); },
        [] { return box_takes_keys() && box_title() == "Save As" && (key("Escape"), true); },
    });
    EXPECT_FALSE(weditclose(window_));
    EXPECT_TRUE(visit.over());
    EXPECT_EQ(content_of(name), plain);
}

TEST_F(Editor, StandsInsideItsParent) {
    window_ = windowopenchild2(
        {.flags = 39 | WindowInsideParent, .x = 10, .y = 10, .width = 150, .height = 60}, 0);
    weditfile("");
    weditputtext1("a");
    EXPECT_EQ(text(), "a");
    weditfile("");
    EXPECT_EQ(text(), "") << "a further text";
    EXPECT_EQ(infoerror(1), 0);
}

TEST_F(Editor, ClosingAsksWhatBecomesOfChanges) {
    const std::string name = folder_.file("a.txt", plain);
    shown_name_ = name;
    const std::string question = "Do you want to save changes to " + name + "?";
    for (const auto& [answer, closes, saved] :
         {std::tuple{"Escape", false, false}, std::tuple{"n", true, false},
          std::tuple{"Return", true, true}}) {
        SCOPED_TRACE(answer);
        if (!editor_of(window_)) open(name);
        keys({"q"});
        std::string asked;
        const ModalVisit visit({[&, answer = std::string(answer)] {
            if (!box_is_up()) return false;
            asked = box_text();
            // No is behind Yes.
            if (answer == "n") key("Tab");
            key(answer == "n" ? "Return" : answer);
            return true;
        }});
        close_window("Text - [" + name + "]");
        const std::vector<int> types =
            poll_until([&] { return visit.over() && nModalWindows == 0; });
        EXPECT_EQ(asked, question);
        EXPECT_EQ(editor_of(window_) == nullptr, closes);
        EXPECT_EQ(content_of(name), saved ? "q" + plain : plain);
        EXPECT_EQ(std::ranges::count(types, int{CloseRequest}), closes ? 1 : 0);
    }
}

// The program may draw for long before it looks for messages again.
TEST_F(Editor, AKeyIsOnTheScreenOnceThePollIsEmpty) {
    open(folder_.file("a.txt", ""));
    const Rectangle window = window_titled("Text - [" + folder_.name("a.txt") + "]");
    const Rectangle line{window.x + 5, window.y + 50, 100, 60};  // the first one, below the bars
    keys({"a"});
    const std::vector<unsigned> before = pixels(line);
    key("m");
    int type = 0;
    MessageRecord record;
    do wmessagepeek(type, record);
    while (text_length(editor()) < 2 || type != NoMessage);
    // From here on the program sends nothing.
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(deadline_ms);
    while (pixels(line) == before && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    EXPECT_NE(pixels(line), before);
}

TEST_F(Editor, WhatCannotBeLoadedIsToldAndLeavesAnEmptyText) {
    const std::string missing = folder_.name("none.txt");
    std::filesystem::create_directory(folder_.name("folder"));
    for (const auto& [name, told] :
         {std::pair{missing, "File not found.Please verify the correct file name was given"},
          std::pair{folder_.name("folder"), "File is not of a regular type."}}) {
        std::string title;
        std::string said;
        {
            const ModalVisit visit({[&] {
                if (!box_is_up()) return false;
                title = box_title();
                said = box_text();
                key("Return");
                return true;
            }});
            open(name);
            EXPECT_TRUE(visit.over());
        }
        EXPECT_EQ(title, "Open Error");
        EXPECT_EQ(said, name + told);
        EXPECT_TRUE(is_shown("Text - [Untitled]"));
        EXPECT_EQ(status(3), "Line: 1  Col: 1");
        EXPECT_TRUE(weditclose(window_));
    }
}

TEST_F(Editor, AFileThatAnotherProgramChangedIsNotOverwrittenUnasked) {
    const std::string name = folder_.file("a.txt", plain);
    open(name);
    for (const auto& [answer, after] :
         {std::pair{"Return", std::string("theirs")}, std::pair{"Tab", "qq" + plain}}) {
        folder_.file("a.txt", "theirs");
        keys({"q"});
        const ModalVisit visit({[answer = std::string(answer)] {
            if (!box_is_up()) return false;
            if (answer == "Tab") key("Tab");  // No is the one that Return presses
            key("Return");
            return true;
        }});
        key("ctrl+s");
        poll_until([&] { return visit.over() && nModalWindows == 0 && has_keys(); });
        EXPECT_EQ(content_of(name), after);
    }
}

TEST_F(Editor, AnUnsuitableWindowOrRequestIsRefused) {
    const auto error_of = [](const EditorRequest& request) {
        weditfile("", request);
        return infoerror(1);
    };
    EXPECT_EQ(error_of({}), 1022) << "the root window";
    std::string text;
    weditgettext1(text);
    EXPECT_EQ(infoerror(1), 1028);
    windowopenchild2({.title = "Plain"}, 0);
    EXPECT_EQ(error_of({.mode = 4}), 1024);
    EXPECT_EQ(error_of({.mode = DialogModal, .menu = 30001}), 1026);
    const int inside = windowopenchild2({.flags = WindowInsideParent, .title = "Inside"}, 0);
    windowselect(inside);
    EXPECT_EQ(error_of({.menu = 30001}), 1025);
    EXPECT_EQ(winfowindow(6), 0) << "still a plain window";
}

TEST_F(Editor, AModalOneReturnsWhenItsUserLeaves) {
    const std::string name = folder_.file("a.txt", plain);
    int find_next = 0;
    const ModalVisit visit({
        [&] {
            if (nModalWindows == 0 || !editor_of(window_) || !has_keys()) return false;
            key("ctrl+f");
            return true;
        },
        [&] {
            if (nModalWindows != 2 || !dialog_has_keys(32103)) return false;
            type("five");
            key("Return");
            return true;
        },
        [&] {
            if (nModalWindows != 1 || selection_of(editor()) != TextSelection{19, 23}) return false;
            ++find_next;
            close_window("Text - [" + name + "]");
            return true;
        },
    });
    open(name, {.mode = DialogModal});
    EXPECT_TRUE(visit.over());
    EXPECT_EQ(find_next, 1);
    EXPECT_EQ(editor_of(window_), nullptr);
}

TEST_F(Editor, SeveralTextsStandInOneWindow) {
    const std::string first = folder_.file("a.txt", plain);
    const std::string second = folder_.file("b.txt", "b\r\nb\r\n");
    open(first);
    keys({"x", "shift+F2", "ctrl+n"});
    EXPECT_EQ(text(), "");
    weditfile(second);
    EXPECT_EQ(text(), "b\r\nb\r\n");
    EXPECT_TRUE(is_shown("Text - [" + second + "]"));
    keys({"y", "ctrl+s"});
    EXPECT_EQ(content_of(second), "yb\r\nb\r\n");
    const MenuRecord& menu = menu_of(window_)->record;
    EXPECT_EQ(menu.item(menu.row_of(32181)).label, "&1\ta.txt");
    EXPECT_EQ(menu.item(menu.row_of(32182)).state, 1);
    keys({"alt+v", "Return"});  // the first entry
    EXPECT_EQ(text(), "x" + plain);
    keys({"ctrl+End", "F2"});
    EXPECT_EQ(status(3), "Line: 1  Col: 2");
    EXPECT_TRUE(editor().document.modified);
}

// Whatever Motif does to the text, it tells; a key at a time, as no unit without a display can
// know.
TEST_F(Editor, TheLineIsRightAfterAnyKeys) {
    open(folder_.file("a.txt", "one\n\ntwo \xc3\xa4\xe2\x82\xac\nthree\n"));
    const std::vector<std::string> all{
        "a",        "Return",     "BackSpace", "Delete",        "Up",         "Down",
        "End",      "Home",       "Tab",       "shift+Down",    "shift+Left", "ctrl+x",
        "ctrl+v",   "ctrl+c",     "Insert",    "ctrl+Delete",   "ctrl+Home",  "ctrl+BackSpace",
        "ctrl+End", "ctrl+Right", "Page_Up",   "shift+Page_Up", "b"};
    std::mt19937 random(20);
    for (int i = 0; i < 300; ++i) {
        key(all[random() % all.size()]);
        if (i % 10 != 9) continue;
        settle();
        drain();
        const std::wstring before = text_piece(editor(), 0, caret_of(editor()));
        const auto line = std::count(before.begin(), before.end(), L'\n') + 1;
        const std::size_t column = before.size() - (before.rfind(L'\n') + 1) + 1;
        ASSERT_EQ(status(3), "Line: " + std::to_string(line) + "  Col: " + std::to_string(column));
        ASSERT_EQ(editor().lines.length(), text_length(editor()));
    }
}

TEST_F(Editor, ABrowserShowsAndAUsersMenuReachesTheApplication) {
    const std::string name = folder_.file("a.txt", plain);
    constexpr int application_menu = 30001;
    open(name, {.menu = application_menu, .flags = 4});
    keys({"x", "ctrl+v", "BackSpace"});
    EXPECT_EQ(text(), plain);
    const MenuRecord& menu = menu_of(window_)->record;
    EXPECT_EQ(menu.row_of(32103), -1) << "Save";
    keys({"alt+e", "Return"});  // its Edit menu begins with Copy, which is greyed
    EXPECT_FALSE(editor().document.modified);
    key("Escape");
    drain();
    const int row = menu.row_of(40001);
    const Menu& shown = *menu_of(window_);
    const auto click_row = [&shown](int of) {
        const Box box = yymngetposabsolute(shown, of);
        click({box.x + box.width / 2, box.y + box.height / 2});
    };
    click_row(row);
    poll_until([] { return pwActiveMenu != nullptr; });
    click_row(menu.row_of(40002));
    const MessageRecord message = wait_for(MenuSelect);
    EXPECT_EQ(message.VALUE1, 40002);
    EXPECT_EQ(message.WIN, window_);
}

TEST_F(Editor, AProgramReadsWritesAndClosesAtAnyMoment) {
    open(folder_.file("a.txt",
                      "\xce\xb1\xce\xb2"
                      "cd\n"));
    std::string part;
    weditgettextpart(2, 2, part);
    EXPECT_EQ(part,
              "\xce\xb2"
              "c");
    weditgettextpart(4, 99, part);
    EXPECT_EQ(part, "d\n");
    keys({"shift+Right"});
    weditgettext2(part);
    EXPECT_EQ(part, "\xce\xb1");
    weditputtext1("new\r\n");
    EXPECT_EQ(text(), "new\r\n");
    EXPECT_TRUE(editor().document.modified);
    keys({"ctrl+f"});
    poll_until([] { return is_shown("Find"); });
    windowclosechild(window_);
    poll_until([] { return !is_shown("Find"); });
    keys({"F3"});
    EXPECT_EQ(editor_of(window_), nullptr);
}

TEST_F(Editor, ThePictureBelowIsWholeBetweenTwoBoxes) {
    const std::string name = folder_.file("a.txt", plain);
    open(name);
    // What only the program could draw again, in the reach of the first box and not of the second.
    const Point seen{790, 590};
    constexpr unsigned drawn = 0xff0000;
    const Window client = window_slot(0).client;
    const GC gc = XCreateGC(yydisplay.display, client, 0, nullptr);
    XSetForeground(yydisplay.display, gc, drawn);
    XFillRectangle(yydisplay.display, client, gc, 0, 0, 200, 100);
    XFreeGC(yydisplay.display, gc);
    XSync(yydisplay.display, False);
    EXPECT_EQ(pixel(seen), drawn);
    unsigned below = 0;
    const ModalVisit visit({
        [&] {
            if (!box_takes_keys() || box_title() != "Save As" || pixel(seen) == drawn) return false;
            key("ctrl+slash");
            type("/proc/none");
            return key("Return"), true;
        },
        [&] {
            if (!box_is_up()) return false;
            below = pixel(seen);
            return key("Return"), true;
        },
    });
    key("F12");
    poll_until([&] { return visit.over() && nModalWindows == 0; });
    EXPECT_EQ(below, drawn);
    EXPECT_EQ(pixel(seen), drawn);
}
