#include "scene/wcfgl_quaternion.hpp"

#include "tests/support/components_near.hpp"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using namespace wcfgl_quaternion;
using testing::FloatNear;
using testing::Pointwise;

// A few roundings of numbers near 1.
constexpr float rounding = 5e-7f;

const float half_root = std::sqrt(0.5f);

/// What glMultMatrixf makes of a vector.
Vector3f transformed(const Matrix4f& m, const Vector3f& v) {
    Vector3f result;
    for (std::size_t row = 0; row < 3; ++row)
        result[row] = m[row] * v[0] + m[4 + row] * v[1] + m[8 + row] * v[2] + m[12 + row];
    return result;
}

TEST(Quaternion, UnitsMultiplyAsHamiltonFound) {
    const Quaternion i{0, 1, 0, 0}, j{0, 0, 1, 0}, k{0, 0, 0, 1};
    EXPECT_EQ(q_mult_q(i, j), k);
    EXPECT_EQ(q_mult_q(j, k), i);
    EXPECT_EQ(q_mult_q(k, i), j);
    EXPECT_EQ(q_mult_q(j, i), (Quaternion{0, 0, 0, -1}));
    EXPECT_EQ(q_mult_q(i, i), (Quaternion{-1, 0, 0, 0}));
    EXPECT_EQ(q_mult_q(identity, k), k);
    EXPECT_EQ(q_mult_q({1, 2, 3, 4}, {5, 6, 7, 8}), (Quaternion{-60, 12, 30, 24}));
}

TEST(Quaternion, ARotationTakesItsAngleInDegreesAndAnAxisOfAnyLength) {
    EXPECT_THAT(q_from_rot(90, {0, 0, 10}),
                Pointwise(FloatNear(rounding), Quaternion{half_root, 0, 0, half_root}));
    EXPECT_EQ(q_from_rot(90, {0, 0, 0}), identity);
    EXPECT_EQ(q_from_rot(90, {5e-9f, 0, 0}), identity);
    EXPECT_NE(q_from_rot(90, {2e-8f, 0, 0}), identity);
}

TEST(Quaternion, AVectorTurnsCounterClockwiseAboutTheAxis) {
    EXPECT_THAT(q_rot_vect(q_from_rot(90, {0, 0, 1}), {1, 0, 0}),
                ComponentsNear(Vector3f{0, 1, 0}, rounding));
    EXPECT_THAT(q_rot_vect(q_from_rot(120, {1, 1, 1}), {1, 2, 3}),
                ComponentsNear(Vector3f{3, 1, 2}, 4 * rounding));
    // The right factor acts first.
    const Quaternion about_x = q_from_rot(90, {1, 0, 0});
    const Quaternion about_z = q_from_rot(90, {0, 0, 1});
    EXPECT_THAT(q_rot_vect(q_mult_q(about_z, about_x), {0, 1, 0}),
                ComponentsNear(Vector3f{0, 0, 1}, rounding));
}

TEST(Quaternion, AngleAndAxisComeBack) {
    for (const float angle : {0.01f, 1.0f, 60.0f, 180.0f, 300.0f, 359.99f}) {
        const AngleAxis rotation = rot_from_q(q_from_rot(angle, {0, 3, 4}));
        // The scalar near -1 and the sine of the half angle are floats.
        EXPECT_NEAR(rotation.angle, angle, 4e-5f);
        EXPECT_THAT(rotation.axis, ComponentsNear(Vector3f{0, 0.6f, 0.8f}, 4 * rounding));
    }
    const AngleAxis none = rot_from_q(identity);
    EXPECT_EQ(none.angle, 0.0f);
    EXPECT_EQ(none.axis, Vector3f{});
    EXPECT_EQ(q_from_rot(none.angle, none.axis), identity);
    // Products drift from length 1.
    EXPECT_EQ(rot_from_q({1.0000002f, 0, 0, 0}).angle, 0.0f);
    EXPECT_EQ(rot_from_q({1.01f, 0, 1.01f, 0}).angle, 90.0f);
}

TEST(Quaternion, TheMatrixTurnsAsTheQuaternionDoes) {
    EXPECT_EQ(quat2mat(identity), (Matrix4f{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
    const Quaternion q = q_mult_q(q_from_rot(37, {1, 2, -1}), q_from_rot(-110, {0.3f, 0, 1}));
    for (const Vector3f& v : {Vector3f{1, 0, 0}, Vector3f{0, 1, 0}, Vector3f{0, 0, 1}})
        EXPECT_THAT(transformed(quat2mat(q), v), ComponentsNear(q_rot_vect(q, v), 2e-6f));
}

}  // namespace
