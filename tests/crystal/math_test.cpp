#include "crystal/math_3d.hpp"
#include "crystal/math_gen.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace {
using namespace math_gen;

constexpr float inf = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();

TEST(Degrees, TurnPublishedAnglesBothWays) {
    EXPECT_FLOAT_EQ(sind(30.0f), 0.5f);
    EXPECT_FLOAT_EQ(cosd(60.0f), 0.5f);
    EXPECT_FLOAT_EQ(tand(45.0f), 1.0f);
    EXPECT_DOUBLE_EQ(cosd(120.0), -0.5);
    EXPECT_FLOAT_EQ(acosd(-0.5f), 120.0f);
    EXPECT_FLOAT_EQ(asind(-1.0f), -90.0f);
    EXPECT_FLOAT_EQ(atand(1.0f), 45.0f);
    EXPECT_FLOAT_EQ(atan2d(-1.0f, -1.0f), -135.0f);
}

TEST(Degrees, ClampCosineAndSineOutsideTheirRange) {
    EXPECT_EQ(acosd(1.0000001f), 0.0f);
    EXPECT_EQ(acosd(-1.0000001f), 180.0f);
    EXPECT_EQ(asind(1.5), 90.0);
    EXPECT_EQ(asind(-1.5), -90.0);
}

TEST(ModuloLat, TakesTheFractionAboveTheFixedOffset) {
    EXPECT_EQ(modulo_lat(Vector3f{-0.25f, 1.0f, 0.5f}), (Vector3f{0.75f, 0.0f, 0.5f}));
    EXPECT_EQ(modulo_lat(-9.75f), 0.25f);
    EXPECT_GT(modulo_lat(0.99999f), 0.9999f);         // just below an integer stays there
    EXPECT_EQ(modulo_lat(-10.25f), -0.25f);           // below the offset: no floor
    EXPECT_EQ(modulo_lat(-1e-8f), 0.0f);              // lost beside 10 in 32 bits
    EXPECT_NE(modulo_lat(1.0f / 3.0f), 1.0f / 3.0f);  // six digits survive
    EXPECT_NEAR(modulo_lat(1.0f / 3.0f), 1.0f / 3.0f, 1e-6f);
    std::array<float, 5> u{1.25f, -1.0f, 2.5f, 3.75f, 0.0f};
    modulo_lat(u);
    EXPECT_EQ(u, (std::array<float, 5>{0.25f, 0.0f, 0.5f, 0.75f, 0.0f}));
}

TEST(ModuloLat, SurvivesNumbersThatNoCellHas) {
    EXPECT_EQ(modulo_lat(1e30f), 0.0f);
    EXPECT_EQ(modulo_lat(-3e9f), 0.0f);
    EXPECT_TRUE(std::isnan(modulo_lat(inf)));
    EXPECT_TRUE(std::isnan(modulo_lat(nan)));
}

TEST(BeingInteger, HoldsWithinTheTolerance) {
    EXPECT_TRUE(zbelongv(Vector3f{1.000005f, 0.0f, -2.0f}));
    EXPECT_FALSE(zbelongv(Vector3f{1.0001f, 0.0f, 0.0f}));
    EXPECT_TRUE(zbelongv(std::span<const float>{}));
    EXPECT_TRUE(zbelongn(-0.999995f));
    EXPECT_FALSE(zbelongn(0.5f));
    EXPECT_FALSE(zbelongn(nan));
    EXPECT_FALSE(zbelongn(inf));
    Matrix3f a{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};
    EXPECT_TRUE(zbelongm(a));
    a[2][1] = 0.5f;
    EXPECT_FALSE(zbelongm(a));
}

TEST(Equality, LooksAtLeadingEntriesOnly) {
    const Matrix3i a{{{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}}};
    Matrix3i b = a;
    b[2][0] = 0;
    EXPECT_FALSE(equal_matrix_i(a, b));
    EXPECT_TRUE(equal_matrix_i(a, b, 2));
    EXPECT_TRUE(equal_matrix_i(a, a, 4));  // limited to what there is
    const std::array<float, 3> u{1.0f, 2.0f, 3.0f}, v{1.000005f, 2.0f, 3.1f};
    EXPECT_TRUE(equal_vector_r(u, v, 2));
    EXPECT_FALSE(equal_vector_r(u, v, 3));
    EXPECT_EQ(traza_i(a), 15);
}

TEST(Determinant, VanishesForTwinRowsAndCountsOrientation) {
    EXPECT_EQ(determ_a_i({{{{1, 0, 0}, {0, 1, 0}, {0, 1, 0}}}}), 0);
    EXPECT_EQ(determ_a_i({{{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}}}), 1);  // three-fold axis
    EXPECT_EQ(determ_a_i({{{{2, 3, 5}, {7, 11, 13}, {17, 19, 23}}}}), -78);
    EXPECT_FLOAT_EQ(determ_a_r({{{{2, 3, 5}, {7, 11, 13}, {17, 19, 23}}}}), -78.0f);
}

TEST(MatrixInverse, UndoesItsMatrixAndRefusesSingularOnes) {
    const Matrix3f a{{{{2, 3, 5}, {7, 11, 13}, {17, 19, 23}}}};
    math_3d::init_err_math3d();
    const auto b = math_3d::matrix_inverse(a);
    ASSERT_TRUE(b);
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            float sum = 0.0f;
            for (std::size_t k = 0; k < 3; ++k) sum += a[i][k] * (*b)[k][j];
            EXPECT_NEAR(sum, i == j ? 1.0f : 0.0f, 2e-5f) << i << j;  // 23 times some roundings
        }
    EXPECT_FALSE(math_3d::err_math3d);
    EXPECT_FALSE(math_3d::matrix_inverse({{{{1, 2, 3}, {2, 4, 6}, {0, 0, 1}}}}));
    EXPECT_TRUE(math_3d::err_math3d);
    EXPECT_EQ(math_3d::err_math3d_mess.trimmed(), "Singular Matrix: inversion impossible");
}

}  // namespace
