#include "common/fixed_text.hpp"

#include <gtest/gtest.h>

TEST(FixedText, KeepsItsWidthAndComparesWholeFields) {
    FixedText<4> text = "ab";
    EXPECT_EQ(text.field(), "ab  ");
    EXPECT_EQ(text.trimmed(), "ab");
    EXPECT_EQ(text, FixedText<4>("ab  "));
    EXPECT_FALSE(text == FixedText<4>(" ab"));
    EXPECT_FALSE(text == FixedText<4>("AB"));
    text = "abcdef";
    EXPECT_EQ(text.field(), "abcd");
    text = "";
    EXPECT_TRUE(text.blank());
}

TEST(FixedText, ColumnsCountFromOneAndStopAtTheWidth) {
    const FixedText<6> text = "abcdef";
    EXPECT_EQ(text.columns(2, 4), "bcd");
    EXPECT_EQ(text.columns(5, 20), "ef");
    EXPECT_EQ(text.columns(7, 9), "");
    EXPECT_EQ(text.columns(0, 3), "");
    EXPECT_EQ(text.columns(4, 3), "");
}
