#include "app/slider_scale.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using gemwright::from_hundredths;
using gemwright::to_hundredths;

TEST(SliderScale, CutsTowardZeroAtTheValuesOwnWidth) {
    EXPECT_EQ(to_hundredths(0.999f), 99);
    EXPECT_EQ(to_hundredths(-0.019f), -1);
    EXPECT_EQ(to_hundredths(0.5), 50);
    // 0.29 lies below its decimal as a double, and times 100 below 29; as a float it doesn't.
    EXPECT_EQ(to_hundredths(0.29), 28);
    EXPECT_EQ(to_hundredths(0.29f), 29);
}

TEST(SliderScale, NumbersThatNoSliderHoldsKeepTheirSign) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const float part : {1e5f, 1e30f, infinity}) {
        EXPECT_EQ(to_hundredths(part), 1000000) << part;
        EXPECT_EQ(to_hundredths(-part), -1000000) << part;
    }
    EXPECT_EQ(to_hundredths(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
