#include "common/vec.hpp"

#include <gtest/gtest.h>

namespace {

TEST(Vec, TheRightFactorActsFirst) {
    // A quarter turn about z, and x and z exchanged.
    constexpr Matrix3i turn{{{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}};
    constexpr Matrix3i exchange{{{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}}};
    constexpr Vector3i x{1, 2, 3};
    EXPECT_EQ(turn * x, (Vector3i{-2, 1, 3}));
    EXPECT_EQ((turn * exchange) * x, (Vector3i{-2, 3, 1}));
    EXPECT_EQ((exchange * turn) * x, (Vector3i{3, 1, -2}));
    EXPECT_EQ(turn * Vector3f({0.5f, 0.25f, 0}), (Vector3f{-0.25f, 0.5f, 0}));
    EXPECT_EQ(-turn * x, (Vector3i{2, -1, -3}));
    EXPECT_EQ(dot(x, {4, 5, -6}), -4);
}

}  // namespace
