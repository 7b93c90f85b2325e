#include "scene/wcfgl_trackball.hpp"

#include "tests/support/components_near.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace {

using namespace wcfgl_trackball;
using testing::FloatNear;
using testing::Pointwise;

const float half_root = std::sqrt(0.5f);
constexpr float rounding = 5e-7f;

TEST(Trackball, EachAxisOfTheDrawableSpansTheBall) {
    EXPECT_EQ(viewport2hemi(300, 200, 600, 400), (Vector3f{0, 0, 1}));
    EXPECT_EQ(viewport2hemi(600, 200, 600, 400), (Vector3f{1, 0, 0}));
    EXPECT_EQ(viewport2hemi(300, 0, 600, 400), (Vector3f{0, 1, 0}));  // y counts downward
    EXPECT_THAT(viewport2hemi(480, 200, 600, 400),
                ComponentsNear(Vector3f{0.6f, 0, 0.8f}, rounding));
}

TEST(Trackball, APointerBeyondTheRimSlidesAlongTheEquator) {
    EXPECT_THAT(viewport2hemi(600, 0, 600, 400),
                ComponentsNear(Vector3f{half_root, half_root, 0}, rounding));
    // Outside the drawable it counts as on its edge first.
    EXPECT_EQ(viewport2hemi(9000, 9000, 600, 400), viewport2hemi(600, 400, 600, 400));
    EXPECT_EQ(viewport2hemi(-1, 200, 600, 400), (Vector3f{-1, 0, 0}));
}

TEST(Trackball, ADrawableWithoutExtentGivesNumbers) {
    EXPECT_EQ(viewport2hemi(0, 0, 0, 0), (Vector3f{0, 0, 1}));
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_THAT(viewport2hemi(most, most, most, most),
                ComponentsNear(Vector3f{half_root, -half_root, 0}, rounding));
}

TEST(Trackball, TheAngleFollowsTheChordAndTheAxisBothPoints) {
    // Apart by 0.8: 90 degrees, about the axis square to both points.
    const Vector3f from{-0.4f, 0, std::sqrt(0.84f)}, to{0.4f, 0, std::sqrt(0.84f)};
    EXPECT_THAT(calc_rot_param(from, to),
                Pointwise(FloatNear(rounding), Quaternion{half_root, 0, half_root, 0}));
    EXPECT_THAT(calc_rot_param({1, 0, 0}, {0, 1, 0}),  // 112.5 sqrt(2) degrees about z
                Pointwise(FloatNear(rounding),
                          Quaternion{std::cos(1.3884009f), 0, 0, std::sin(1.3884009f)}));
    EXPECT_EQ(calc_rot_param(from, from), wcfgl_quaternion::identity);
}

TEST(Trackball, AJumpAcrossTheWholeBallKeepsTheView) {
    const Vector3f left = viewport2hemi(-5, 200, 600, 400),
                   right = viewport2hemi(700, 200, 600, 400);
    EXPECT_EQ(calc_rot_param(left, right), wcfgl_quaternion::identity);
}

TEST(Trackball, TheModelStartsUpright) {
    current_rot_matrix.fill(2);
    init_rot_matrix();
    EXPECT_EQ(current_rot_matrix, wcfgl_quaternion::quat2mat(wcfgl_quaternion::identity));
}

}  // namespace
