// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "toolkit/base/fonts.hpp"
#include "toolkit/tesserakit.hpp"

#include <cstdlib>
#include <tuple>

using namespace tesserakit;

TEST(Start, WithoutADisplayItSaysSoAndEnds) {
    setenv("DISPLAY", ":9876", 1);
    EXPECT_EXIT(winitialise(), testing::ExitedWithCode(1),
                "Cannot open X display. Check DISPLAY environment variable.");
    unsetenv("DISPLAY");
    EXPECT_EXIT(windowopen2(), testing::ExitedWithCode(1), "Cannot open X display.");
}

TEST(Start, BeforeADisplayCallsFailQuietly) {
    int type = 0;
    MessageRecord record;
    wmessagepeek(type, record);
    EXPECT_EQ(type, NoMessage);
    wmessage(type, record);
    EXPECT_EQ(type, NoMessage);
    wmessagewait(5);
    ioswait(5);
    wmessageenable(MouseMove, 1);
    windowoutstatusbar(1, "text");
    wglswapbuffers();
    windowclose();
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(winfodrawable(4), 0);
    EXPECT_EQ(windowopenchild2(), -5);
    wglselect(1, 0, 2);
    EXPECT_EQ(infoerror(1), 1019);
    EXPECT_EQ(wbitmapcreate(10, 10), 0);
    EXPECT_EQ(infoerror(1), 1020);
    windowselect(0);
    EXPECT_EQ(infoerror(1), 1003);
}

TEST(Start, AFontNameHasASizeWhereANumberStandsBehindItsLastDash) {
    const auto read = [](const char* name) {
        const FontName font = font_name(name);
        return std::tuple{font.scalable, font.family, font.size, font.style};
    };
    EXPECT_EQ(read("Sans-14"), (std::tuple{true, "Sans", 14, ""}));
    EXPECT_EQ(read("DejaVu Sans-12:bold"), (std::tuple{true, "DejaVu Sans", 12, "bold"}));
    EXPECT_EQ(read("DejaVu-Sans"), (std::tuple{true, "DejaVu-Sans", 10, ""}));
    EXPECT_EQ(read("DejaVu-Sans-9:oblique-2"), (std::tuple{true, "DejaVu-Sans", 9, "oblique-2"}));
    EXPECT_EQ(read("DejaVu-Sans:bold"), (std::tuple{true, "DejaVu-Sans", 10, "bold"}));
    EXPECT_EQ(read("Sans-1"), (std::tuple{true, "Sans", 4, ""}));
    EXPECT_EQ(read("Sans-9999"), (std::tuple{true, "Sans", 200, ""}));
    EXPECT_EQ(read("9x15"), (std::tuple{false, "9x15", 10, ""}));
    EXPECT_EQ(read("-*-helvetica-medium-r-*-12"),
              (std::tuple{false, "-*-helvetica-medium-r-*-12", 10, ""}));
}

TEST(Start, DialogUnitsAreFontMeasuresAndATenthCutToPixels) {
    const auto units = [](int ascent, int descent, int smallest, int largest) {
        const DialogUnits result = dialog_units_of({ascent, descent, smallest, largest});
        return std::pair{result.horizontal, result.vertical};
    };
    EXPECT_EQ(units(11, 3, 3, 11), (std::pair{7, 15}));     // 7.7 and 15.4
    EXPECT_EQ(units(10, 10, 10, 10), (std::pair{11, 22}));  // exactly
    EXPECT_EQ(units(0, 0, 0, 0), (std::pair{1, 1}));
}
