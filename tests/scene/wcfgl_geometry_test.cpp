#include "scene/wcfgl_geometry.hpp"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using namespace wcfgl_geometry;

// Two roundings of an angle near 90 degrees in 32 bits.
constexpr float angle_error = 2e-5f;

TEST(Geometry, ALengthIsRootedWiderThan32Bits) {
    EXPECT_EQ(vect_norm_3d({3, 4, 12}), 13.0f);
    EXPECT_EQ(vect_norm_3d({3e30f, 4e30f, 0}), 5e30f);  // the squares overflow 32 bits
    EXPECT_FLOAT_EQ(vect_norm_3d({3e-30f, 4e-30f, 0}), 5e-30f);
}

TEST(Geometry, ProductsFollowTheRightHand) {
    EXPECT_EQ(vect3d_vect_vect3d({1, 0, 0}, {0, 1, 0}), (Vector3f{0, 0, 1}));
    EXPECT_EQ(vect3d_vect_vect3d({1, 2, 3}, {4, 5, 6}), (Vector3f{-3, 6, -3}));
    EXPECT_EQ(vect3d_scal_vect3d({1, 2, 3}, {4, 5, 6}), 32.0f);
    EXPECT_EQ(vect_unit_3d({0, -2, 0}), (Vector3f{0, -1, 0}));
    EXPECT_TRUE(std::isnan(vect_unit_3d({0, 0, 0})[0]));
}

TEST(Geometry, SphericalAnglesAreLongitudeAndLatitudeInDegrees) {
    struct Case {
        Vector3f v, spherical;
    };
    for (const auto& [v, expected] :
         {Case{{2, 0, 0}, {2, 0, 0}}, Case{{0, 1, 0}, {1, 90, 0}}, Case{{-1, 0, 0}, {1, 180, 0}},
          Case{{0, -3, 0}, {3, -90, 0}}, Case{{1, 1, std::sqrt(2.0f)}, {2, 45, 45}},
          Case{{0, 0, 1}, {1, 0, 90}}, Case{{-0.0f, 0, -1}, {1, 0, -90}},
          Case{{0, 0, 0}, {0, 0, 90}}}) {
        SCOPED_TRACE(testing::PrintToString(v.c));
        const Vector3f spherical = cart2spher(v);
        EXPECT_FLOAT_EQ(spherical[0], expected[0]);
        EXPECT_NEAR(spherical[1], expected[1], angle_error);
        EXPECT_NEAR(spherical[2], expected[2], angle_error);
    }
}

}  // namespace
