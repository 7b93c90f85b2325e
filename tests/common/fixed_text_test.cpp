#include "common/fixed_text.hpp"

#include "common/letter_case.hpp"

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

TEST(Blanks, GoAtTheAskedEndsAndNothingElseDoes) {
    EXPECT_EQ(without_leading_blanks("  a b "), "a b ");
    EXPECT_EQ(without_blanks_around("  a b "), "a b");
    EXPECT_EQ(without_blanks_around(" \ta\n "), "\ta\n");
    EXPECT_EQ(without_leading_blanks("   "), "");
    EXPECT_EQ(without_blanks_around(""), "");
}

TEST(LetterCase, OtherLettersThanEnglishOnesAndTheirNeighboursStay) {
    EXPECT_EQ(letter_case::in_capitals("azAZ`{@[19 m\u00fc\xe9"), "AZAZ`{@[19 M\u00fc\xe9");
    EXPECT_EQ(letter_case::lowered('Z'), 'z');
    EXPECT_EQ(letter_case::lowered('['), '[');
}
