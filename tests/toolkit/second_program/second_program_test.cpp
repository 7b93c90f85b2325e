#include "tests/support/display_input.hpp"
#include "toolkit/tesserakit.hpp"

#include <gtest/gtest.h>

// Another program than the viewer, with a block of its own: the toolkit asks for nothing of the
// viewer's.

using namespace tesserakit;
using namespace display_input;

namespace {

constexpr int dialog = 501;
constexpr int angstrom = 11;
constexpr int convert_button = 12;
constexpr int answer = 13;

void convert() {
    float length = 0.0f;
    wdialoggetreal(angstrom, length);
    if (infoerror(1) == 0)
        wdialogputstring(answer, std::to_string(static_cast<int>(length * 100.0f)) + " pm");
}

/// The program: until its window is closed; answers what stood in the answer then.
std::string run_converter(const std::function<void()>& user) {
    windowopen2({.dialog = dialog, .title = "Converter"});
    EXPECT_EQ(infoerror(1), 0);
    window_titled("Converter");
    user();
    int type = 0;
    MessageRecord message;
    for (wmessage(type, message); type != CloseRequest; wmessage(type, message))
        if (type == PushButton && message.WIN == dialog && message.VALUE1 == convert_button)
            convert();
    std::string shown;
    wdialogselect(dialog);
    wdialoggetstring(answer, shown);
    windowclose();
    return shown;
}

}  // namespace

TEST(SecondProgram, WorksWithABlockOfItsOwn) {
    const std::string shown = run_converter([] {
        wdialogsetfield(angstrom);
        key("ctrl+a");
        type("2.5");
        key("Return");
        settle();
        close_window("Converter");
    });
    EXPECT_EQ(shown, "250 pm");
}

TEST(SecondProgram, HasTheToolkitsOwnDialogsButNotTheViewers) {
    windowopen2({.title = "Converter"});
    wdialogload(101);
    EXPECT_EQ(infoerror(1), 1007);
    wdialogload(32103);
    EXPECT_EQ(infoerror(1), 0);
}

TEST(SecondProgram, ATabOpensAtThePageThatTheBlockNames) {
    windowopen2({.title = "Converter"});
    wdialogload(502);
    wdialogshow();
    window_titled("Units");
    int page = 0;
    wdialoggettab(20, page);
    EXPECT_EQ(page, 504);
}
