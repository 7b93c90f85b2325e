#include "toolkit/widgets/numeric_field.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tesserakit;

namespace {

NumericField field_with_range(NumericType type, double low, double high) {
    NumericField field;
    field.type = type;
    field.low = low;
    field.high = high;
    return field;
}

bool typed(NumericField& field, std::string_view text) {
    field.text_changed = true;
    return accept_text(field, text);
}

}  // namespace

TEST(NumericField, RangeCountsOnlyWhenLowIsBelowHigh) {
    EXPECT_FALSE(yyDGNumericOutOfRange(1.0, -1.0, 1e30));
    EXPECT_FALSE(yyDGNumericOutOfRange(2.0, 2.0, 5.0));
    EXPECT_FALSE(yyDGNumericOutOfRange(-50, 50, -50));
    EXPECT_FALSE(yyDGNumericOutOfRange(-50, 50, 50));
    EXPECT_TRUE(yyDGNumericOutOfRange(-50, 50, 50.01));
    EXPECT_TRUE(yyDGNumericOutOfRange(-50, 50, -std::numeric_limits<double>::infinity()));
}

TEST(NumericField, TextIsReadByTheTypeOfTheField) {
    EXPECT_EQ(number_of(NumericType::Integer, " 12 "), 12.0);
    EXPECT_FALSE(number_of(NumericType::Integer, "12.5"));
    EXPECT_FALSE(number_of(NumericType::Integer, "99999999999"));
    // A 32-bit field rounds the text to its own nearest value.
    EXPECT_EQ(number_of(NumericType::Real, "0.1"), static_cast<double>(0.1f));
    EXPECT_EQ(number_of(NumericType::Double, "0.1"), 0.1);
    EXPECT_FALSE(number_of(NumericType::Real, "1e39"));
    EXPECT_EQ(number_of(NumericType::Double, "1d39"), 1e39);
    for (const char* bad : {"", "  ", "1,5", "1.5 x", "nan", "--1", "1.2.3"})
        EXPECT_FALSE(number_of(NumericType::Real, bad)) << bad;
}

TEST(NumericField, PutShowsTheFormatAndKeepsTheValueInFull) {
    NumericField field;
    EXPECT_EQ(put_number(field, static_cast<double>(1.23456f), "(f7.2)"), "1.23");
    EXPECT_EQ(current_value(field, "1.23"), static_cast<double>(1.23456f));
    // The format stays with the field.
    EXPECT_EQ(put_number(field, 7.0, "  "), "7.00");
    EXPECT_EQ(field.format, "(f7.2)");
    // Once the user has typed, the text counts.
    field.text_changed = true;
    EXPECT_EQ(current_value(field, "1.23"), static_cast<double>(1.23f));
}

TEST(NumericField, WithoutAFormatFiveDigitsAreShown) {
    NumericField field;
    EXPECT_EQ(put_number(field, 2.5, ""), "2.5000");
    EXPECT_EQ(put_number(field, 1.5e10, ""), "0.15000E+11");
    EXPECT_EQ(put_number(field, 2.5, "no format"), "2.5000");
    NumericField integer = field_with_range(NumericType::Integer, 1, -1);
    EXPECT_EQ(put_number(integer, 42, ""), "42");
}

TEST(NumericField, PutOutsideTheRangeChangesNothing) {
    NumericField field = field_with_range(NumericType::Real, -50, 50);
    ASSERT_TRUE(put_number(field, 3.0, "(f6.1)"));
    EXPECT_FALSE(put_number(field, 51.0, "(f9.4)"));
    EXPECT_EQ(field.last_valid, 3.0);
    EXPECT_EQ(field.format, "(f6.1)");
}

TEST(NumericField, NegativeZeroIsShownAndReadAsZero) {
    NumericField field;
    ASSERT_EQ(put_number(field, -0.0, "(f5.1)"), "0.0");
    EXPECT_FALSE(std::signbit(*current_value(field, "0.0")));
}

TEST(NumericField, EmptyTextStandsWithoutARangeOrBeforeAnyValue) {
    NumericField bounded = field_with_range(NumericType::Real, 0, 20);
    EXPECT_TRUE(text_is_valid(bounded, " "));
    ASSERT_TRUE(put_number(bounded, 1.0, ""));
    EXPECT_FALSE(text_is_valid(bounded, ""));
    NumericField free;
    ASSERT_TRUE(put_number(free, 1.0, ""));
    ASSERT_TRUE(typed(free, ""));
    EXPECT_FALSE(current_value(free, ""));
    EXPECT_FALSE(free.defined);
}

TEST(NumericField, BadTextIsRefusedAndRevertBringsTheLastValueBack) {
    NumericField field = field_with_range(NumericType::Real, -50, 50);
    ASSERT_TRUE(put_number(field, 0.25, "(f7.2)"));
    for (const char* bad : {"99", "abc", "1,5", ""}) EXPECT_FALSE(typed(field, bad)) << bad;
    EXPECT_EQ(yyDGFieldRevertToValid(field), "0.25");
    EXPECT_FALSE(field.text_changed);
    EXPECT_EQ(current_value(field, "0.25"), 0.25);
    ASSERT_TRUE(typed(field, " -7.5 "));
    EXPECT_EQ(yyDGFieldRevertToValid(field), "-7.50");
    NumericField never;
    never.text_changed = true;
    EXPECT_EQ(yyDGFieldRevertToValid(never), "");
}

TEST(NumericField, StepsStayOnTheGridOfTheStepAndInsideTheLimits) {
    EXPECT_EQ(decimals_of_step(1.0), 0);
    EXPECT_EQ(decimals_of_step(10.0), 0);
    EXPECT_EQ(decimals_of_step(static_cast<double>(0.05f)), 2);
    EXPECT_EQ(decimals_of_step(0.25), 2);
    EXPECT_EQ(decimals_of_step(0.1), 1);
    double value = 0.0;
    for (int i = 0; i < 10; ++i) value = stepped(value, static_cast<double>(0.1f), 1, -1);
    EXPECT_EQ(value, 1.0);
    EXPECT_EQ(stepped(19.98, 0.05, 0, 20), 20.0);
    EXPECT_EQ(stepped(0.02, -0.05, 0, 20), 0.0);
    EXPECT_EQ(stepped(1e30, 0.1, 1, -1), 1e30);
}
