#include "common/number_field.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace {

using number_field::by_format;
using number_field::fixed;
using number_field::general;
using number_field::integer;

TEST(NumberField, FixedFieldsAreJustifiedRoundedAndOverflowToAsterisks) {
    EXPECT_EQ(fixed(5.43, 10, 4), "    5.4300");
    EXPECT_EQ(fixed(-0.0004, 7, 3), "  0.000");
    EXPECT_EQ(fixed(-12.5, 6, 3), "******");
    EXPECT_EQ(fixed(-0.5, 5, 3), "-.500");
    EXPECT_EQ(fixed(0.5, 4, 3), ".500");
    EXPECT_EQ(fixed(3.0, 3, 0), " 3.");
    EXPECT_EQ(fixed(0.0, 1, 0), "*");
    EXPECT_EQ(fixed(2.25, 0, 1), "2.2");
    EXPECT_EQ(fixed(1e300, 12, 4), std::string(12, '*'));
    EXPECT_EQ(fixed(std::numeric_limits<double>::quiet_NaN(), 6, 2), "   NaN");
    EXPECT_EQ(fixed(-std::numeric_limits<double>::infinity(), 3, 2), "***");
    EXPECT_EQ(integer(-42, 5), "  -42");
    EXPECT_EQ(integer(123456, 5), "*****");
}

// Checked against gfortran's output of the same values with the format (G15.5E2).
TEST(NumberField, GeneralFieldsTurnToExponentsOutsideTheirDigits) {
    EXPECT_EQ(general(1.0, 15, 5, 2), "     1.0000    ");
    EXPECT_EQ(general(0.1, 15, 5, 2), "    0.10000    ");
    EXPECT_EQ(general(99999.0, 15, 5, 2), "     99999.    ");
    EXPECT_EQ(general(99999.6, 15, 5, 2), "    0.10000E+06");
    EXPECT_EQ(general(-0.0123456, 15, 5, 2), "   -0.12346E-01");
    EXPECT_EQ(general(0.0, 15, 5, 2), "     0.0000    ");
}

TEST(NumberField, FormatsAreReadInAnyCaseAndOthersRefused) {
    EXPECT_EQ(by_format(1.5, "(f7.2)"), "   1.50");
    EXPECT_EQ(by_format(7.9, " (I3) "), "  7");
    EXPECT_EQ(by_format(1.0, "(g15.5e2)"), general(1.0, 15, 5, 2));
    EXPECT_EQ(by_format(1.0, "(E12.4)"), "  0.1000E+01");
    for (const char* bad : {"", "f7.2", "(f7)", "(x7.2)", "(f.2)", "(f7.2", "(f7.2x)", "(f999.2)"})
        EXPECT_FALSE(by_format(1.0, bad)) << bad;
    EXPECT_EQ(by_format(1e30, "(I4)"), "****");
}

TEST(NumberField, ReadsWholeTextsOnly) {
    EXPECT_EQ(number_field::to_float(" 1.5 "), 1.5f);
    EXPECT_EQ(number_field::to_double("-1d2"), -100.0);
    EXPECT_EQ(number_field::to_int(" +12"), 12);
    for (const char* bad : {"", " ", "1 2", "1,5", "nan", "inf", ".", "e5", "1e999"})
        EXPECT_FALSE(number_field::to_double(bad)) << bad;
    EXPECT_FALSE(number_field::to_float("1e39"));
    EXPECT_EQ(number_field::to_float("1e-60"), 0.0f);
    EXPECT_FALSE(number_field::to_int("2147483648"));
}

}  // namespace
