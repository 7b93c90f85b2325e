#include "crystal/position_text.hpp"

#include "common/number_field.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace {

float read(std::string_view text) {
    return position_text::component(text, number_field::to_float(text).value());
}

TEST(PositionText, ThirdsAndSixthsCutOrRoundedAreTheFraction) {
    EXPECT_EQ(read("0.333"), 1.0f / 3);
    EXPECT_EQ(read(".6667"), 2.0f / 3);
    EXPECT_EQ(read("0.666"), 2.0f / 3);
    EXPECT_EQ(read("0.1667"), 1.0f / 6);
    EXPECT_EQ(read("0.16666"), 1.0f / 6);
    EXPECT_EQ(read("0.8333"), 5.0f / 6);
    EXPECT_EQ(read(" -0.3333 "), -1.0f / 3);
    EXPECT_EQ(read("+1.3333"), 4.0f / 3);
    EXPECT_EQ(read("-12.167"), -73.0f / 6);
}

TEST(PositionText, EveryFractionOfThreeIsFoundAtEveryLength) {
    for (int n = -25; n <= 25; ++n) {
        for (int decimals = 3; decimals <= 9; ++decimals) {
            const double exact = n / 6.0;
            const std::string rounded = number_field::fixed(exact, 0, decimals);
            const double unit = std::pow(10.0, decimals);
            const double shortened = std::trunc(exact * unit + std::copysign(1e-3, exact)) / unit;
            const std::string cut = number_field::fixed(shortened, 0, decimals);
            EXPECT_EQ(read(rounded), static_cast<float>(exact)) << rounded;
            EXPECT_EQ(read(cut), static_cast<float>(exact)) << cut;
        }
    }
}

TEST(PositionText, OtherDigitsAreThemselves) {
    for (const std::string_view text :
         {"0.3330",  "0.33", "0.67",     "0.334",  "0.3334", "0.6660", "0.6676", "0.1666667e0",
          "0.166d0", "0.17", "0.8334",   "0.83",   "0.3335", "0.2667", "0.1333", "0.4333",
          "3333",    "333.", "0.667e-1", "0.7667", "0.1367", "0.125"})
        EXPECT_EQ(read(text), number_field::to_float(text).value()) << text;
    EXPECT_EQ(position_text::component("", 0.3f), 0.3f);
    EXPECT_EQ(position_text::component(".", 0.3f), 0.3f);
    EXPECT_EQ(position_text::component("1.33/", 0.3f), 0.3f);
}

}  // namespace
