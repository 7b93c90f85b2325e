#include "toolkit/base/errors.hpp"

#include <gtest/gtest.h>

using namespace tesserakit;

TEST(Errors, AReadClearsTheCodeAndEachDetailByItself) {
    yyerror(InvalidDrawable, "IGrSelect", 7, 9);
    EXPECT_EQ(infoerror(1), 1019);
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(infoerror(3), 9);
    EXPECT_EQ(infoerror(2), 7);
    EXPECT_EQ(infoerror(2), 0);
    EXPECT_EQ(infoerror(0), 0);
    EXPECT_EQ(infoerror(4), 0);
}

TEST(Errors, TheLastErrorStands) {
    yyerror(OpenGLNotEnabled, "WglSelect", 2);
    yyerror(InvalidField, "WDialogPutReal");
    EXPECT_EQ(infoerror(1), 1006);
    EXPECT_EQ(infoerror(2), 0);
}

TEST(Errors, EachCodeOfACallHasItsText) {
    EXPECT_EQ(winfoerrormessage(1019), "Invalid target drawing surface");
    EXPECT_EQ(winfoerrormessage(1035), "Failed to enable OpenGL graphics");
    EXPECT_EQ(winfoerrormessage(1045),
              "Specified dialog has wrong style to be combined with a window");
    for (int code = 1001; code <= 1022; ++code) {
        SCOPED_TRACE(code);
        EXPECT_FALSE(winfoerrormessage(code).empty());
    }
    EXPECT_EQ(winfoerrormessage(0), "");
    EXPECT_EQ(winfoerrormessage(999), "");
}

TEST(Errors, TheDebugLevelDecidesWhereTheTextGoes) {
    static std::string shown;
    error_display = [](std::string_view text) { shown = text; };
    testing::internal::CaptureStderr();
    yyerror(InvalidWindow, "WindowSelect");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    idebuglevel = 1;
    testing::internal::CaptureStderr();
    yyerror(InvalidWindow, "WindowSelect");
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_NE(printed.find("WindowSelect"), std::string::npos);
    EXPECT_NE(printed.find("Invalid window handle"), std::string::npos);
    EXPECT_EQ(shown, "");

    idebuglevel = 2;
    testing::internal::CaptureStderr();
    yyerror(InvalidWindow, "yyopen");
    EXPECT_TRUE(testing::internal::GetCapturedStderr().starts_with("Internal routine:"));
    EXPECT_NE(shown.find("Invalid window handle"), std::string::npos);
}
