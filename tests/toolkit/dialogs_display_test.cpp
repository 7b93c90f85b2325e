#include "tests/support/display_input.hpp"
#include "tests/support/temp_file.hpp"

#include <gtest/gtest.h>

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/build.hpp"
#include "toolkit/dialogs/fields/buttons.hpp"
#include "toolkit/dialogs/fields/combo.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/load.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/widgets/combo.hpp"
#include "toolkit/widgets/progress.hpp"
#include "toolkit/widgets/spin.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/List.h>
#include <Xm/Text.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>

using namespace tesserakit;
using namespace display_input;

namespace {

constexpr std::array all_dialogs{102, 103, 104, 105, 106, 107, 108, 110,
                                 111, 112, 117, 118, 119, 120, 121, 32103};

DialogRecord& record(int dialog) { return wDialogInfo[static_cast<std::size_t>(yyDGslot(dialog))]; }

FieldRecord& field(int dialog, int identifier) { return *find_field(record(dialog), identifier); }

/// A place in a field on the screen: its middle, moved by so many pixels.
Point spot(int dialog, int identifier, int dx = 0, int dy = 0) {
    wdialogselect(dialog);
    const Box& box = field(dialog, identifier).box;
    return {winfodialog(6) + box.x + box.width / 2 + dx,
            winfodialog(7) + box.y + box.height / 2 + dy};
}

class DialogsDisplay : public testing::Test {
protected:
    void SetUp() override {
        winitialise();
        windowopen2({.dialog = 101, .title = "Root"});
        ASSERT_EQ(infoerror(1), 0);
        window_titled("Root");
        for (const int type : {FieldChanged, TabChanged}) wmessageenable(type, 1);
        wmessageenable(ExposeMessage, 0);
        wmessageenable(Resize, 0);
    }

    /// Loads and shows a dialog, and waits until the focus is where it belongs.
    static void show(int dialog) {
        wdialogload(dialog);
        wdialogshow();
        ASSERT_EQ(infoerror(1), 0) << dialog;
        window_titled(record(dialog).title);
        // The window manager's focus reaches the dialog with a delay of its own.
        poll_until([dialog] {
            const FieldRecord* current = record(dialog).current_field;
            return !first_focus(record(dialog)) ||
                   (current && XmGetFocusWidget(record(dialog).shell) == current->focus_widget);
        });
        settle();
        drain();
    }

    static void expect_move(int dialog, int from, int to) {
        const MessageRecord message = wait_for(FieldChanged);
        EXPECT_EQ(message.WIN, dialog);
        EXPECT_EQ(message.VALUE1, from);
        EXPECT_EQ(message.VALUE2, to);
    }

    static void expect_button(int dialog, int button) {
        const MessageRecord message = wait_for(PushButton);
        EXPECT_EQ(message.WIN, dialog);
        EXPECT_EQ(message.VALUE1, button);
    }

    static std::string text_of(int dialog, int identifier) {
        std::string text;
        wdialogselect(dialog);
        wdialoggetstring(identifier, text);
        return text;
    }

    static float real_of(int dialog, int identifier) {
        float value = 0;
        wdialogselect(dialog);
        wdialoggetreal(identifier, value);
        return value;
    }
};

/// Pixels that a field needs for its text, beside the text itself.
int room_for_indicator(const FieldRecord& field) {
    if (field.type == FieldType::Label) return 0;
    return field.type == FieldType::Button ? 6 : wFonts.dialog.measures.ascent + 8;
}

/// An installed locale, or else one made for the test: C's, but for the numbers.
bool use_comma_locale(const TempDirectory& folder) {
    if (std::setlocale(LC_ALL, "de_DE.UTF-8")) return true;
    std::string source = "LC_NUMERIC\ncopy \"de_DE\"\nEND LC_NUMERIC\n";
    for (const std::string category :
         {"LC_CTYPE", "LC_COLLATE", "LC_MONETARY", "LC_TIME", "LC_MESSAGES", "LC_PAPER", "LC_NAME",
          "LC_ADDRESS", "LC_TELEPHONE", "LC_MEASUREMENT", "LC_IDENTIFICATION"})
        source += category + "\ncopy \"POSIX\"\nEND " + category + "\n";
    const std::string make = "localedef -c -i " + folder.file("source", source) + " -f UTF-8 " +
                             folder.name("comma") + " 2>/dev/null";
    ::setenv("LOCPATH", folder.path().c_str(), 1);
    return std::system(make.c_str()) >= 0 && std::setlocale(LC_ALL, "comma");
}

/// A dialog whose records are changed before it has widgets: for kinds of field that no dialog of
/// the block has.
template <class Change>
void load_changed(int dialog, Change change) {
    DialogRecord& loaded = dialog_slot(50);
    load_records(loaded, dialog);
    change(loaded);
    create_widgets(loaded, nullptr);
    wdialogselect(dialog);
}

bool overlap(const Box& a, const Box& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

}  // namespace

TEST_F(DialogsDisplay, NoTextOfAnyDialogIsCut) {
    for (const int dialog : all_dialogs) {
        wdialogload(dialog);
        ASSERT_EQ(infoerror(1), 0) << dialog;
    }
    int texts = 0;
    constexpr FieldTypes shown{FieldType::Label, FieldType::Button, FieldType::Check,
                               FieldType::Radio};
    for (DialogRecord& dialog : wDialogInfo)
        for (const FieldRecord& one : dialog.fields) {
            if (!shown.has(one.type) || one.text.empty()) continue;
            SCOPED_TRACE(std::to_string(dialog.identifier) + " " + one.text);
            const int lines = std::max(1, one.box.height / wFonts.dialog.height());
            const int wanted = text_width(wFonts.dialog, one.text) + room_for_indicator(one);
            // Where there are several lines a break at a blank costs some of the width.
            EXPECT_LE(wanted, lines * one.box.width * (lines > 1 ? 0.9 : 1.0));
            ++texts;
        }
    EXPECT_GT(texts, 100);
}

TEST_F(DialogsDisplay, FieldsOfOneDialogDoNotCoverEachOther) {
    for (const int dialog : all_dialogs) wdialogload(dialog);
    for (DialogRecord& dialog : wDialogInfo)
        for (const FieldRecord& a : dialog.fields)
            for (const FieldRecord& b : dialog.fields) {
                if (&a >= &b || a.type == FieldType::Group || b.type == FieldType::Group) continue;
                if (a.type == FieldType::Combo || b.type == FieldType::Combo) continue;
                // Fields of one row may touch; in dialog 114 and 103 labels reach into the gap.
                Box inner = a.box;
                inner.x += 2;
                inner.y += 2;
                inner.width -= 4;
                inner.height -= 4;
                EXPECT_FALSE(overlap(inner, b.box))
                    << dialog.identifier << ": " << a.identifier << ", " << b.identifier;
            }
}

TEST_F(DialogsDisplay, PicturesAreShrunkIntoTheirFieldsInProportion) {
    wdialogload(108);
    wdialogload(119);
    for (const auto& [dialog, identifier] : {std::pair{108, 1054}, std::pair{119, 1199}}) {
        const FieldRecord& picture = field(dialog, identifier);
        int width = 0, height = 0, reserved = 0;
        yyrcimagecheck(identifier, image_kind::bitmap, width, height, reserved, reserved);
        ASSERT_GT(width, picture.box.width);
        EXPECT_LE(picture.image.width, picture.box.width);
        EXPECT_LE(picture.image.height, picture.box.height);
        // One pixel of rounding in either extent.
        EXPECT_NEAR(picture.image.width * height, picture.image.height * width, width + height);
    }
}

TEST_F(DialogsDisplay, EveryKindOfFieldTakesAndGivesItsValue) {
    wdialogload(103);
    wdialogputreal(1015, 0.333333333f, "(f7.2)");
    EXPECT_EQ(text_of(103, 1015), "0.33");
    EXPECT_EQ(real_of(103, 1015), 0.333333333f) << "in full, not as shown";
    wdialogputreal(1015, 51.0f);
    EXPECT_EQ(infoerror(1), 1009);
    EXPECT_EQ(text_of(103, 1015), "0.33");
    wdialogload(107);
    const std::vector<std::string> atoms{"Fe1", "O1   ", "-New atom-"};
    wdialogputmenu1(1069, atoms, 2);
    int option = 0;
    std::string text;
    wdialoggetmenu1(1069, option);
    wdialoggetmenu2(1069, text);
    EXPECT_EQ(option, 2);
    EXPECT_EQ(text, "O1");
    wdialogselect(109);
    wdialogputinteger(1085, 24);
    int number = 0;
    wdialoggetinteger(1085, number);
    EXPECT_EQ(number, 24);
    wdialogputstring(1080, "Mn2       ");
    EXPECT_EQ(text_of(109, 1080), "Mn2");
    wdialogselect(114);
    wdialogputcheckbox(1101, 1);
    int state = 0;
    wdialoggetcheckbox(1101, state);
    EXPECT_EQ(state, 1);
    wdialogputradiobutton(1108);
    int ordinal = 0;
    wdialoggetradiobutton(1107, ordinal);
    EXPECT_EQ(ordinal, 2);
    wdialogputtrackbar(1105, 250);
    int value = 0;
    wdialoggettrackbar(1105, value);
    EXPECT_EQ(value, 100) << "moved into the range";
    wdialogload(110);
    wdialogputoption1(1110, 7);
    wdialoggetmenu2(1110, text);
    EXPECT_EQ(text, "F");
    wdialogload(102);
    wgridrows(1012, 192);
    wgridputcellstring(1012, 1, 192, "z,x,y");
    wgridgetcellstring(1012, 1, 192, text);
    EXPECT_EQ(text, "z,x,y");
    EXPECT_EQ(infoerror(1), 0);
}

TEST_F(DialogsDisplay, FailuresLeaveTheirCodeAndChangeNothing) {
    const auto error_of = [](auto call) {
        call();
        return infoerror(1);
    };
    float real = 3.0f;
    int number = 5;
    dialog_hooks.make_current(-1);
    EXPECT_EQ(error_of([&] { wdialoggetreal(1015, real); }), 1005);
    EXPECT_EQ(error_of([] { wdialogload(4711); }), 1007);
    EXPECT_EQ(error_of([] { wdialogselect(103); }), 1008);
    wdialogload(103);
    EXPECT_EQ(error_of([&] { wdialoggetreal(999, real); }), 1006);
    EXPECT_EQ(error_of([&] { wdialoggetcheckbox(1015, number); }), 1006) << "of another type";
    EXPECT_EQ(real, 3.0f);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(error_of([] { wdialogshow(-1, -1, 0, 4); }), 1014);
    wdialogload(107);
    const std::vector<std::string> two{"a", "b"};
    wdialogputmenu1(1069, two, 1);
    EXPECT_EQ(error_of([] { wdialogputoption1(1069, 3); }), 1011);
    EXPECT_EQ(error_of([] { wdialogputoption1(1069, 0); }), 1011);
    wdialoggetmenu1(1069, number);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(error_of([] { wdialogputtab(1072, 116); }), 1012);
    wdialogselect(114);
    EXPECT_EQ(error_of([] { wdialogputtrackbar(1105, 5, 10, 10); }), 1009);
    EXPECT_EQ(error_of([] { wdialoghide(); }), SubDialogNotHidden);
    wdialogload(102);
    EXPECT_EQ(error_of([] { wgridrows(1012, 0); }), 1018);
    EXPECT_EQ(error_of([] { wgridrows(1012, 193); }), 1018);
    EXPECT_EQ(error_of([] { wgridputcellstring(1012, 1, 192, "x,y,z"); }), 0)
        << "a row count beyond the capacity sets the capacity";
    EXPECT_EQ(error_of([] { wgridputcellstring(1012, 2, 1, "x"); }), 1017);
    wdialogselect(101);
    EXPECT_EQ(error_of([] { wdialoghide(); }), 1047);
}

TEST_F(DialogsDisplay, AnEmptyNumberIsUndefined) {
    wdialogload(105);
    wdialogputstring(1029, "");
    EXPECT_EQ(real_of(105, 1029), undefined_real);
    EXPECT_EQ(infoerror(1), 1010);
}

TEST_F(DialogsDisplay, TheTypedTextIsWhatStandsInTheField) {
    wdialogload(105);
    wdialogputreal(1029, 5.43f, "(f8.2)");
    EXPECT_EQ(wdialoggettypedtext(1029), "5.43");
    for (const auto& [typed, wanted] : {std::pair{" -", "-"}, std::pair{"1,5 x ", "1,5 x"}}) {
        wdialogputstring(1029, typed);
        EXPECT_EQ(wdialoggettypedtext(1029), wanted) << "no number";
    }
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(wdialoggettypedtext(1028), "") << "a label";
    EXPECT_EQ(infoerror(1), 1006);
    dialog_hooks.make_current(-1);
    EXPECT_EQ(wdialoggettypedtext(1029), "");
    EXPECT_EQ(infoerror(1), 1005);
}

TEST_F(DialogsDisplay, ALoadedDialogKeepsItsValues) {
    wdialogload(105);
    wdialogputreal(1029, 5.43f);
    wdialogfieldstate(1029, FieldDisabled);
    wdialogputreal(1031, 6.5f);
    show(105);
    wdialoghide();
    wdialogputreal(1029, 7.25f);
    wdialogload(105);
    EXPECT_EQ(real_of(105, 1029), 7.25f);
    EXPECT_EQ(real_of(105, 1031), 6.5f);
}

TEST_F(DialogsDisplay, TabGoesAroundTheFields) {
    show(105);
    constexpr std::array order{1029, 1031, 1033, 1035, 1037, 1039, 1029};
    for (std::size_t i = 1; i < order.size(); ++i) {
        key("Tab");
        expect_move(105, order[i - 1], order[i]);
    }
    key("shift+Tab");
    expect_move(105, 1029, 1039);
}

TEST_F(DialogsDisplay, TabGoesOnFromAFieldThatIsNoStop) {
    wdialogselect(101);
    wdialogsetfield(1006);
    drain();
    key("Tab");
    expect_move(101, 1006, 1208);
}

TEST_F(DialogsDisplay, AFieldThatCannotHaveTheFocusLeavesItToTheFirst) {
    wdialogload(105);
    wdialogshow(-1, -1, 1028);
    window_titled("Cell parameters...");
    poll_until([] { return winfodialog(2) == 1029; });
}

TEST_F(DialogsDisplay, AReadOnlySpinnerDoesNotStep) {
    show(103);
    wdialogfieldstate(1015, FieldReadOnly);
    const Box& spin = field(103, 1015).box;
    click(spot(103, 1015, spin.width / 2 - 7, -spin.height / 4));
    key("Up");
    settle();
    drain();
    EXPECT_EQ(text_of(103, 1015), "0.00");
}

TEST_F(DialogsDisplay, TabReachesThePageInFrontAndStopsAtTheSetRadio) {
    wdialogload(107);
    wdialogputtab(1072, 114);
    wdialogselect(114);
    wdialogputradiobutton(1108);
    show(107);
    std::vector<int> reached;
    for (int i = 0; i < 11; ++i) {
        key("Tab");
        reached.push_back(wait_for(FieldChanged).VALUE2);
    }
    // The list, which has the focus first, comes last; the button below the page's edge never.
    const std::vector<int> expected{1071, 1070, 1072, 1101, 1103, 1105,
                                    1126, 1125, 1124, 1108, 1069};
    EXPECT_EQ(reached, expected);
}

TEST_F(DialogsDisplay, ReturnIsOkEscapeAndCloseAreCancel) {
    show(103);
    for (const char* name : {"Return", "KP_Enter"}) {
        key(name);
        expect_button(103, 1);
    }
    key("Escape");
    expect_button(103, 2);
    close_window("Box limits...");
    expect_button(103, 2);
    show(107);
    key("Tab");
    wait_for(FieldChanged);
    key("Return");  // on a button presses it
    expect_button(107, 1071);
    // In a page they are the whole dialog's.
    click(spot(109, 1080));
    wait_for(FieldChanged);
    key("Escape");
    expect_button(107, 2);
    show(108);  // a dialog without anything that could have the focus
    key("Escape");
    expect_button(108, 2);
}

TEST_F(DialogsDisplay, ADialogWithNothingToFocusTakesReturnAndEscape) {
    show(108);
    for (const int under_pointer : {1045, 1048, 1054}) {
        move_to(spot(108, under_pointer));
        key("Return");
        expect_button(108, 1);
        key("Escape");
        expect_button(108, 2);
    }
}

TEST_F(DialogsDisplay, TheDefaultButtonTakesReturn) {
    show(32103);
    type("Fe");
    key("Return");
    expect_button(32103, 1);
    EXPECT_EQ(text_of(32103, 1002), "Fe");
    EXPECT_EQ(winfodialog(4), 1002);
}

TEST_F(DialogsDisplay, AMnemonicMovesTheFocusOrPresses) {
    wdialogload(32103);
    field(32103, 1001).mnemonic = 'w';  // label: hands on to the text
    field(32103, 2).mnemonic = 'c';
    show(32103);
    key("Tab");
    wait_for(FieldChanged);
    key("alt+w");
    EXPECT_EQ(wait_for(FieldChanged).VALUE2, 1002);
    key("alt+c");
    expect_button(32103, 2);
}

TEST_F(DialogsDisplay, TypingBehindTheTabKeyReplacesTheText) {
    show(103);
    wdialogputreal(1017, 2.01f, "(f7.2)");
    key("Tab");
    wait_for(FieldChanged);
    key("3");
    poll_until([] { return text_of(103, 1017) != "2.01"; });
    EXPECT_EQ(text_of(103, 1017), "3");
}

TEST_F(DialogsDisplay, APasswordShowsAsterisks) {
    load_changed(32103, [](DialogRecord& dialog) {
        find_field(dialog, 1002)->style |= field_style::password;
    });
    show(32103);
    type("abc");
    key("BackSpace");
    poll_until([] { return text_of(32103, 1002) == "ab"; });
    EXPECT_EQ(taken(XmTextGetString(field(32103, 1002).widget)), "**");
}

TEST_F(DialogsDisplay, ControlReturnBreaksTheLineOfAMultiLineText) {
    load_changed(32103, [](DialogRecord& dialog) {
        find_field(dialog, 1002)->style |= field_style::multi_line;
    });
    show(32103);
    type("a");
    key("ctrl+Return");
    type("b");
    poll_until([] { return text_of(32103, 1002) == "a\nb"; });
    key("Return");
    expect_button(32103, 1);
}

TEST_F(DialogsDisplay, AProgressBarKeepsItsValueInsideItsRange) {
    load_changed(
        32103, [](DialogRecord& dialog) { find_field(dialog, 1001)->type = FieldType::Progress; });
    const auto shown = [] {
        int value = 0;
        XtVaGetValues(field(32103, 1001).widget, progressNvalue, &value, nullptr);
        return value;
    };
    wdialogputprogressbar(1001, 200);
    EXPECT_EQ(shown(), 100);
    wdialograngeprogressbar(1001, 10, 10);
    EXPECT_EQ(infoerror(1), 1013);
    wdialograngeprogressbar(1001, 200, 300);
    wdialogputprogressbar(1001, 5);
    EXPECT_EQ(shown(), 200);
}

TEST_F(DialogsDisplay, HelpIsAskedForTheFieldWithTheFocus) {
    show(103);
    wdialogsetfield(1017);
    move_to(spot(103, 1021));
    drain();
    key("F1");
    const MessageRecord message = wait_for(PushButton);
    EXPECT_EQ(message.VALUE1, 9);
    EXPECT_EQ(message.VALUE2, 1017);
}

TEST_F(DialogsDisplay, TheLetterOfAMnemonicIsUnderlined) {
    const auto ink = [](int style) {
        load_changed(103, [style](DialogRecord& dialog) {
            FieldRecord& label = *find_field(dialog, 1014);
            label.text = "Xmin";
            label.underlined = style;
        });
        wdialogshow();
        window_titled("Box limits...");
        const FieldRecord& label = field(103, 1014);
        const Point corner = spot(103, 1014, -label.box.width / 2, -label.box.height / 2);
        drain();
        const auto colours = pixels({corner.x, corner.y, label.box.width, label.box.height});
        wdialogunload();
        return std::ranges::count(colours, 0U);
    };
    EXPECT_GT(ink(0), ink(-1) + 3);
}

TEST_F(DialogsDisplay, AMinimisedDialogComesBackWhenItIsShown) {
    show(103);
    const Window shell = XtWindow(record(103).shell);
    XIconifyWindow(yydisplay.display, shell, yydisplay.screen_number);
    const auto is = [shell](int state) {
        XWindowAttributes attributes{};
        return XGetWindowAttributes(yydisplay.display, shell, &attributes) != 0 &&
               attributes.map_state == state;
    };
    poll_until([&] { return is(IsUnmapped); });
    wdialogselect(103);
    wdialogshow();
    poll_until([&] { return is(IsViewable); });
}

TEST_F(DialogsDisplay, ADialogStaysAboveTheWindowThatOpenedIt) {
    const auto above = [] { return property("Box limits...", "WM_TRANSIENT_FOR").at(0); };
    const int child = windowopenchild2({.width = 200, .height = 100, .title = "Child"});
    ASSERT_GT(child, 0);
    window_titled("Child");
    show(103);
    EXPECT_EQ(above(), windows[static_cast<std::size_t>(child)].shell);
    wdialoghide();
    windowclosechild(child);
    show(103);
    EXPECT_EQ(above(), windows[0].shell);
    wdialoghide();
    wdialogload(105);
    show(105);
    open_dialogs_from(record(105).shell);
    show(103);
    EXPECT_EQ(above(), XtWindow(record(105).shell));
    open_dialogs_from(nullptr);
}

TEST_F(DialogsDisplay, ADialogIsPlacedInWindowUnitsOfItsParent) {
    const Rectangle parent = window_titled("Root");
    wdialogload(103);
    wdialogshow(5000, 2500);
    const Rectangle at = window_titled("Box limits...");
    // The frame comes between: some ten pixels, a title bar's height more downwards.
    EXPECT_NEAR(at.x, parent.x + parent.width / 2, 20);
    EXPECT_NEAR(at.y, parent.y + parent.height / 4, 45);
}

TEST_F(DialogsDisplay, InformationWithoutADialogIsAnErrorButForCommonDialogs) {
    dialog_hooks.make_current(-1);
    EXPECT_EQ(winfodialog(4), 0);
    EXPECT_EQ(infoerror(1), 1005);
    note_common_exit(2);
    EXPECT_EQ(winfodialog(4), 2);
    EXPECT_EQ(winfodialog(1), 2);
    EXPECT_EQ(infoerror(1), 0);
    show(103);
    key("Return");
    expect_button(103, 1);
    EXPECT_EQ(winfodialog(4), 1015) << "a dialog's button was the last";
    EXPECT_EQ(winfodialog(1), 1);
}

TEST_F(DialogsDisplay, ATypedNumberCountsWhenTheFocusLeaves) {
    show(103);
    key("ctrl+a");
    type("-2.5");
    key("Tab");
    expect_move(103, 1015, 1015);  // its value
    expect_move(103, 1015, 1017);
    EXPECT_EQ(real_of(103, 1015), -2.5f);
}

TEST_F(DialogsDisplay, ABadNumberHoldsTheFocusUntilItIsGood) {
    show(103);
    wdialogputreal(1015, 0.25f, "(f7.2)");
    key("ctrl+a");
    type("99");
    key("Tab");
    poll_until([] { return bInvalidField; });
    drain();
    EXPECT_EQ(XmGetFocusWidget(record(103).shell), field(103, 1015).focus_widget);
    key("Return");
    click(spot(103, 1021));
    settle();
    EXPECT_TRUE(drain().empty()) << "nothing is told while the number is bad";
    key("F1");
    expect_button(103, 9);
    key("Escape");
    expect_button(103, 2);
    EXPECT_EQ(text_of(103, 1015), "0.25");
    EXPECT_FALSE(bInvalidField);
}

TEST_F(DialogsDisplay, WhatABadNumberLocksOutDoesNotMove) {
    wdialogload(110);
    wdialogputoption1(1110, 1);
    wdialogshow(0, 0);
    wdialogload(107);
    wdialogputmenu1(1069, std::vector<std::string>{"Fe1", "O1", "O2"}, 1);
    wdialogputtab(1072, 114);
    show(107);
    const auto picture = [](int dialog, int identifier) {
        const Box& box = field(dialog, identifier).box;
        const Point corner = spot(dialog, identifier, -box.width / 2, -box.height / 2);
        return pixels({corner.x, corner.y, box.width, box.height});
    };
    click(spot(114, 1103, -10));
    wait_for(FieldChanged);
    drain();
    key("ctrl+a");
    type("-1");
    poll_until([] { return text_of(114, 1103) == "-1"; });
    struct Press {
        int dialog, identifier, dx, dy;
    };
    const Box& list = field(107, 1069).box;
    const Box& combo = field(110, 1110).box;
    for (const auto& [dialog, identifier, dx, dy] :
         {Press{107, 1069, 0, -list.height / 2 + 26}, Press{114, 1101, -20, 0},
          Press{114, 1108, -20, 0}, Press{114, 1105, 15, 0},
          Press{110, 1110, combo.width / 2 - 8, -combo.height / 2 + 8}}) {
        SCOPED_TRACE(identifier);
        const auto before = picture(dialog, identifier);
        click(spot(dialog, identifier, dx, dy));
        EXPECT_TRUE(drain().empty());
        EXPECT_TRUE(bInvalidField);
        // The window manager may lend the dialog the focus, whose frame then goes again.
        poll_until([&] { return picture(dialog, identifier) == before; });
    }
    // Once it is good they move again.
    key("ctrl+a");
    type("1");
    click(spot(114, 1101, -20));
    poll_until([] { return toggle_is_set(field(114, 1101)); });
    EXPECT_FALSE(bInvalidField);
    EXPECT_EQ(real_of(114, 1103), 1.0f);
}

TEST_F(DialogsDisplay, ANumberIsTakenWhereverTheFocusGoes) {
    show(103);
    key("ctrl+a");
    type("-2.5");
    const Rectangle main_window = window_titled("Root");
    click({main_window.x + main_window.width / 2, main_window.y - 5});  // its title
    expect_move(103, 1015, 1015);
    EXPECT_EQ(real_of(103, 1015), -2.5f);
    click(spot(103, 1015));
    // Its caret shows once it has the focus again.
    poll_until([] {
        Boolean caret = False;
        XtVaGetValues(field(103, 1015).widget, XmNcursorPositionVisible, &caret, nullptr);
        return caret == True;
    });
    key("ctrl+a");
    type("99");
    poll_until([] { return text_of(103, 1015) == "99"; });
    click({main_window.x + main_window.width / 2, main_window.y - 5});
    poll_until([] { return bInvalidField; });
}

TEST_F(DialogsDisplay, ASpinnerLeavesTheBadNumberOfAnotherField) {
    show(103);
    wdialogputreal(1017, 1.0f, "(f7.2)");
    key("ctrl+a");
    type("99");
    poll_until([] { return text_of(103, 1015) == "99"; });
    const Box& box = field(103, 1017).box;
    click(spot(103, 1017, box.width / 2 - 6, -box.height / 4));
    poll_until([] { return bInvalidField; });
    EXPECT_TRUE(drain().empty());
    spin_step(field(103, 1017).position_widget, 1, false);  // as by a key on its way
    EXPECT_TRUE(bInvalidField);
    wdialogselect(103);
    wdialogputreal(1017, 2.0f);
    EXPECT_TRUE(bInvalidField) << "a put into another field";
    wdialogputreal(1015, 2.0f);
    EXPECT_FALSE(bInvalidField);
}

TEST_F(DialogsDisplay, SpinnerArrowsStepAndStayInTheRange) {
    wdialogload(107);
    wdialogputtab(1072, 114);
    wdialogselect(114);
    wdialogspinnerstep2(1103, 0.25f, 1.0f);
    ASSERT_EQ(infoerror(1), 0);
    wdialogputreal(1103, 0.5f, "(f7.2)");
    show(107);
    const Box& box = field(114, 1103).box;
    const Point up = spot(114, 1103, box.width / 2 - 6, -box.height / 4);
    const Point down = spot(114, 1103, box.width / 2 - 6, box.height / 4);
    click(up);
    wait_for(FieldChanged);  // the focus
    expect_move(114, 1103, 1103);
    EXPECT_EQ(text_of(114, 1103), "0.75");
    for (int i = 0; i < 4; ++i) {
        click(down);
        expect_move(114, 1103, 1103);
    }
    EXPECT_EQ(text_of(114, 1103), "0.00") << "stops at the low limit";
    key("ctrl+Up");
    expect_move(114, 1103, 1103);
    EXPECT_EQ(real_of(114, 1103), 1.0f);
}

TEST_F(DialogsDisplay, AClickOnAnArrowIsOneStepHoweverBusyTheProgram) {
    show(103);
    const Box& box = field(103, 1015).box;
    click(spot(103, 1015, box.width / 2 - 6, -box.height / 4));
    expect_move(103, 1015, 1015);
    ioswait(600);  // the repeat falls due while the release still waits
    drain();
    EXPECT_EQ(text_of(103, 1015), "0.10");
}

TEST_F(DialogsDisplay, AHeldArrowRepeats) {
    show(103);
    const Box& box = field(103, 1015).box;
    move_to(spot(103, 1015, box.width / 2 - 6, -box.height / 4));
    press();
    for (int i = 0; i < 3; ++i) expect_move(103, 1015, 1015);
    release();
    settle();
    drain();
    const float stopped = real_of(103, 1015);
    EXPECT_GE(stopped, 0.3f - 1e-6f);
    drain();
    EXPECT_EQ(real_of(103, 1015), stopped);
}

TEST_F(DialogsDisplay, TrackbarsRadiosAndChecksTellOfTheirValue) {
    show(117);
    key("Right");
    expect_move(117, 1171, 1171);
    int value = 0;
    wdialoggettrackbar(1171, value);
    EXPECT_EQ(value, 1);
    show(106);
    int ordinal = 0;
    click(spot(106, 1067, -20));
    wait_for(FieldChanged);
    expect_move(106, 1067, 1067);
    wdialoggetradiobutton(1066, ordinal);
    EXPECT_EQ(ordinal, 2);
    key("Up");
    wait_for(FieldChanged);
    expect_move(106, 1066, 1066);
    wdialoggetradiobutton(1067, ordinal);
    EXPECT_EQ(ordinal, 1);
    wdialogfieldstate(1067, FieldDisabled);
    key("Down");
    drain();
    wdialoggetradiobutton(1066, ordinal);
    EXPECT_EQ(ordinal, 1) << "a greyed one isn't set by keys";
    click(spot(106, 1064));
    wait_for(FieldChanged);
    expect_move(106, 1064, 1064);
    int state = 0;
    wdialoggetcheckbox(1064, state);
    EXPECT_EQ(state, 1);
}

TEST_F(DialogsDisplay, ATrackbarMovesByItsLineAndItsPage) {
    wdialogload(117);
    wdialogputtrackbar(1171, 10, 0, 30);
    field(117, 1171).line_step = 2;
    field(117, 1171).page_step = 50;
    wdialogputtrackbar(1171, 10, 0, 40);
    int page = 0;
    XtVaGetValues(field(117, 1171).widget, XmNscaleMultiple, &page, nullptr);
    EXPECT_EQ(page, 40) << "no page beyond the range";
    show(117);
    int value = 0;
    for (const auto& [name, wanted] : {std::pair{"Right", 12}, std::pair{"Left", 10},
                                       std::pair{"Page_Up", 40}, std::pair{"Page_Down", 0}}) {
        key(name);
        expect_move(117, 1171, 1171);
        wdialoggettrackbar(1171, value);
        EXPECT_EQ(value, wanted) << name;
    }
}

TEST_F(DialogsDisplay, ATrackbarTellsOfItsValueWhileItIsDragged) {
    show(117);
    const int left = -field(117, 1171).box.width / 2;
    const auto value = [] {
        int shown = 0;
        wdialogselect(117);
        wdialoggettrackbar(1171, shown);
        return shown;
    };
    move_to(spot(117, 1171, left + 12));
    press();
    drain();
    ASSERT_EQ(value(), 0) << "the slider is held";
    move_to(spot(117, 1171, left + 60));
    expect_move(117, 1171, 1171);
    EXPECT_GT(value(), 0);
    release();
}

TEST_F(DialogsDisplay, ADisabledTrackbarIsQuieterAndStands) {
    show(117);
    wdialogfieldstate(1175, FieldDisabled);
    drain();
    const auto contrast = [](int identifier) {
        const Box& box = field(117, identifier).box;
        const Point corner = spot(117, identifier, -box.width / 2, -box.height / 2);
        long sum = 0;
        for (const unsigned pixel : pixels({corner.x, corner.y, box.width, box.height}))
            sum += std::abs(static_cast<long>(pixel & 0xff) -
                            static_cast<long>(wSchemeCol.background & 0xff));
        return sum;
    };
    EXPECT_LT(2 * contrast(1175), contrast(1171));
    click(spot(117, 1175, 20));
    key("Right");
    expect_move(117, 1171, 1171);  // the focus hasn't moved
    int value = 0;
    wdialoggettrackbar(1175, value);
    EXPECT_EQ(value, 0);
    wdialogfieldstate(1175, FieldEnabled);
    click(spot(117, 1175, 20));
    poll_until([&] {
        wdialoggettrackbar(1175, value);
        return value > 0;
    });
}

TEST_F(DialogsDisplay, AListIsFullAndShowsItsSelection) {
    std::vector<std::string> atoms;
    for (int i = 1; i <= 60; ++i) atoms.push_back("Fe" + std::to_string(i));
    const auto expect_full = [](int selected) {
        const Widget list = field(107, 1069).widget;
        int top = 0, visible = 0;
        XtVaGetValues(list, XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, nullptr);
        ASSERT_GT(visible, 3);
        EXPECT_LE(top + visible - 1, 60);
        EXPECT_LE(top, selected);
        EXPECT_GE(top + visible - 1, selected);
    };
    wdialogload(107);
    wdialogputmenu1(1069, atoms, 60);  // before it has its size
    show(107);
    expect_full(60);
    wdialogputmenu2(1069, 1);
    expect_full(1);
    wdialoghide();
    wdialogputmenu1(1069, atoms, 30);
    show(107);
    expect_full(30);
}

TEST_F(DialogsDisplay, TheWheelScrollsAGrid) {
    show(102);
    wgridrows(1012, 192);
    const Widget grid = field(102, 1012).widget;
    const auto top = [grid] {
        Position y = 0;
        XtVaGetValues(grid, XmNy, &y, nullptr);
        return y;
    };
    const int before = top();
    click(spot(102, 1012), 5);
    poll_until([&] { return top() < before; });
    click(spot(102, 1012), 4);
    poll_until([&] { return top() == before; });
}

TEST_F(DialogsDisplay, ListsAndCombosTellOfTheirSelection) {
    wdialogload(107);
    const std::vector<std::string> atoms{"Fe1", "O1", "O2"};
    wdialogputmenu1(1069, atoms, 1);
    show(107);
    key("Down");
    expect_move(107, 1069, 1069);
    int option = 0;
    wdialoggetmenu1(1069, option);
    EXPECT_EQ(option, 2);
    wdialogload(110);
    wdialogputoption1(1110, 1);
    show(110);
    key("Down");
    expect_move(110, 1110, 1110);
    wdialogselect(110);
    wdialoggetmenu1(1110, option);
    EXPECT_EQ(option, 2);
}

TEST_F(DialogsDisplay, AComboOpensItsListAndTakesTheChoice) {
    wdialogload(110);
    wdialogputoption1(1110, 1);
    show(110);
    const FieldRecord& combo = field(110, 1110);
    // Its box has the room for the open list.
    Dimension closed = 0;
    XtVaGetValues(combo.position_widget, XmNheight, &closed, nullptr);
    EXPECT_LT(2 * closed, combo.box.height);
    click(spot(110, 1110, combo.box.width / 2 - 8,
               (closed_combo_height(combo) - combo.box.height) / 2));
    const Widget list = combo_list(combo.widget);
    poll_until([list] {
        XWindowAttributes attributes{};
        return XGetWindowAttributes(yydisplay.display, XtWindow(list), &attributes) &&
               attributes.map_state == IsViewable;
    });
    Position x = 0, y = 0, left = 0, top = 0;
    Dimension width = 0, height = 0;
    ASSERT_TRUE(XmListPosToBounds(list, 4, &x, &y, &width, &height));
    XtTranslateCoords(list, x, y, &left, &top);
    click({left + 10, top + height / 2});
    expect_move(110, 1110, 1110);
    std::string text;
    wdialogselect(110);
    wdialoggetmenu2(1110, text);
    EXPECT_EQ(text, "C");
}

TEST_F(DialogsDisplay, ATabChangesItsPageUnlessANumberIsBad) {
    show(107);
    const Box& tab = field(107, 1072).box;
    const Point display = spot(107, 1072, 0, -tab.height / 2 + 10);
    click(display);
    const MessageRecord message = wait_for(TabChanged);
    EXPECT_EQ(message.WIN, 107);
    EXPECT_EQ(message.VALUE1, 1072);
    EXPECT_EQ(message.VALUE2, 114);
    click(spot(114, 1103, -20));
    key("ctrl+a");
    type("-1");
    settle();
    drain();
    click(spot(107, 1072, -tab.width / 2 + 20, -tab.height / 2 + 10));
    settle();
    drain();
    int page = 0;
    wdialogselect(107);
    wdialoggettab(1072, page);
    EXPECT_EQ(page, 114);
    EXPECT_TRUE(bInvalidField);
}

TEST_F(DialogsDisplay, ArrowKeysChangeThePageOfATabAndTheCellOfAGrid) {
    show(107);
    wdialogsetfield(1072);
    drain();
    key("Left");
    EXPECT_EQ(wait_for(TabChanged).VALUE2, 113) << "around to the last";
    key("Right");
    EXPECT_EQ(wait_for(TabChanged).VALUE2, 109);

    show(102);
    wgridrows(1012, 3);
    wdialogsetfield(1012);
    drain();
    key("Down");
    const MessageRecord message = wait_for(FieldChanged);
    EXPECT_EQ(message.VALUE1, 1012);
    EXPECT_EQ(message.VALUE2, 1012);
    EXPECT_EQ(message.X, (1 << 18) | 1) << "first row";
    EXPECT_EQ(message.Y, (2 << 18) | 1) << "second row";
    EXPECT_EQ(message.VALUE3, 0) << "a move";
}

TEST_F(DialogsDisplay, TypingEditsTheCellOfAGridUnlessItIsReadOnly) {
    show(102);
    wgridrows(1012, 3);
    wgridputcellstring(1012, 1, 1, "x,y");
    wdialogsetfield(1012);
    drain();
    const auto cell = [] {
        std::string text;
        wgridgetcellstring(1012, 1, 1, text);
        return text;
    };
    key("z");
    EXPECT_EQ(wait_for(FieldChanged).VALUE3, -1) << "no move";
    EXPECT_EQ(cell(), "x,yz");
    key("BackSpace");
    wait_for(FieldChanged);
    EXPECT_EQ(cell(), "x,y");
    wdialogfieldstate(1012, FieldReadOnly);
    key("z");
    settle();
    drain();
    EXPECT_EQ(cell(), "x,y");
}

TEST_F(DialogsDisplay, AModalDialogReturnsItsButton) {
    wdialogload(103);
    // The dialog's own loop runs in the call: the user acts as soon as it has the keyboard.
    XtAddEventHandler(
        field(103, 1015).focus_widget, FocusChangeMask, False,
        [](Widget, XtPointer, XEvent* event, Boolean*) {
            if (event->type == FocusIn && is_shown("Box limits...")) key("Return");
        },
        nullptr);
    wdialogshow(-1, -1, 0, DialogModal);
    EXPECT_EQ(winfodialog(1), 1);
    EXPECT_EQ(winfodialog(5), 103);
    EXPECT_EQ(winfodialog(10), 0) << "hidden";
}

TEST_F(DialogsDisplay, ASemiModalDialogLocksTheOthersOut) {
    show(105);
    wdialogload(103);
    wdialogshow(0, 0, 0, DialogSemiModal);
    window_titled("Box limits...");
    drain();
    click(spot(105, 1037));
    settle();
    EXPECT_TRUE(drain().empty());
    wdialogselect(105);
    EXPECT_NE(winfodialog(2), 1037);
    wdialogload(118);
    wdialogshow();
    EXPECT_EQ(infoerror(1), 1014);
    EXPECT_EQ(winfodialog(10), DialogSemiModal);
    wdialoghide();
    wdialogselect(103);
    wdialoghide();
    // The window manager takes their frames away in its own time; one of them lies over the field.
    const Point field_at = spot(105, 1037);
    poll_until([&] { return title_at(field_at) == "Cell parameters..."; });
    // The window manager may keep a click for itself while it gives the keyboard back.
    wdialogselect(105);
    for (int clicks = 0; clicks < 5 && winfodialog(2) != 1037; ++clicks) {
        click(field_at);
        drain();
    }
    EXPECT_EQ(winfodialog(2), 1037);
}

TEST_F(DialogsDisplay, TheMainDialogGrowsWithItsWindow) {
    const Rectangle before = window_titled("Root");
    const Box picture = field(101, 1001).box;
    const Box information = field(101, 1006).box;
    const Box radio = field(101, 1002).box;
    resize_window("Root", before.width + 120, before.height + 90);
    poll_until([&] { return field(101, 1001).box.width != picture.width; });
    EXPECT_EQ(field(101, 1001).box,
              (Box{picture.x, picture.y, picture.width + 120, picture.height + 90}));
    EXPECT_EQ(field(101, 1006).box.y, information.y + 90);
    EXPECT_EQ(field(101, 1006).box.width, information.width);
    EXPECT_EQ(field(101, 1002).box, radio);
}

TEST_F(DialogsDisplay, ACommaLocaleChangesNothing) {
    const TempDirectory folder;
    if (!use_comma_locale(folder)) GTEST_SKIP() << "no comma locale, and no means to make one";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    show(105);
    wdialogputreal(1029, 5.4309f, "(f8.4)");
    EXPECT_EQ(text_of(105, 1029), "5.4309");
    key("ctrl+a");
    type("6.25");
    key("Tab");
    wait_for(FieldChanged);
    EXPECT_EQ(real_of(105, 1029), 6.25f);
    key("shift+Tab");
    key("ctrl+a");
    type("6,5");
    key("Tab");
    poll_until([] { return bInvalidField; });
    std::setlocale(LC_ALL, "C");
}

TEST_F(DialogsDisplay, AnUnloadedDialogCanBeLoadedAgainAsNew) {
    show(107);
    wdialogputmenu1(1069, std::vector<std::string>{"Fe1"}, 1);
    wdialogunload();
    EXPECT_EQ(yyDGslot(107), -1);
    EXPECT_EQ(yyDGslot(114), -1) << "its pages go with it";
    show(107);
    int option = 7;
    wdialoggetmenu1(1069, option);
    EXPECT_EQ(option, 0);
    windowclose();
}

// Without the fixture: the resources are read at the start.
TEST(DialogsDisplayFonts, ServerFontsShowTheAnglesInLatinLetters) {
    const TempDirectory folder;
    ::setenv("XENVIRONMENT",
             folder.file("resources", "Tess*dialogFont: fixed\nTess*symbolFont: fixed\n").c_str(),
             1);
    winitialise();
    wdialogload(105);
    std::string text;
    wdialoggetstring(1038, text);
    EXPECT_EQ(text, "ga:");
    EXPECT_EQ(wFonts.dialog.measures.smallest_width, wFonts.dialog.measures.largest_width)
        << "the user's font is taken";
}

TEST(DialogsDisplayFonts, GreekLettersGrowWithTheDialogFont) {
    const TempDirectory folder;
    ::setenv("XENVIRONMENT", folder.file("resources", "Tess*dialogFont: Sans-20\n").c_str(), 1);
    winitialise();
    EXPECT_EQ(wFonts.symbol.height(), wFonts.dialog.height());
    wdialogload(105);
    const FieldRecord& gamma = field(105, 1038);
    EXPECT_EQ(gamma.text, "\u03b3:");
    XmRenderTable table = nullptr;
    XtVaGetValues(gamma.widget, XmNrenderTable, &table, nullptr);
    const CompoundText text(gamma.text);
    EXPECT_EQ(XmStringHeight(table, text.get()), wFonts.dialog.height());
}

TEST(DialogsDisplayFonts, SmallPicturesGrowByAWholeNumber) {
    const TempDirectory folder;
    ::setenv("XENVIRONMENT", folder.file("resources", "Tess*dialogFont: Sans-20\n").c_str(), 1);
    winitialise();
    windowopen2({.dialog = 101, .title = "Root"});
    for (const int identifier : {1002, 1003, 1004, 1005, 1208}) {
        const FieldRecord& button = field(101, identifier);
        EXPECT_EQ(button.image.width % 16, 0);
        EXPECT_EQ(button.image.width, button.image.height);
        EXPECT_GE(button.image.width, 32);
        EXPECT_LT(button.image.width, button.box.width - 4);
    }
}
