#include "scene/wcfgl_geometry.hpp"

#include <cmath>

namespace wcfgl_geometry {
namespace {

constexpr float degrees_per_radian = 57.29578f;

}  // namespace

float vect_norm_3d(const Vector3f& v) {
    const double x = static_cast<double>(v[0]);
    const double y = static_cast<double>(v[1]);
    const double z = static_cast<double>(v[2]);
    return static_cast<float>(std::sqrt(x * x + y * y + z * z));
}

Vector3f vect_unit_3d(const Vector3f& v) { return (1.0f / vect_norm_3d(v)) * v; }

float vect3d_scal_vect3d(const Vector3f& a, const Vector3f& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector3f vect3d_vect_vect3d(const Vector3f& a, const Vector3f& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector3f cart2spher(const Vector3f& v) {
    const float r = vect_norm_3d(v);
    // atan2 would give 180 degrees for the pair (0, -0).
    const float phi = v[0] == 0.0f && v[1] == 0.0f ? 0.0f : std::atan2(v[1], v[0]);
    const float theta = r == 0.0f ? 0.0f : std::acos(v[2] / r);
    return {r, degrees_per_radian * phi, 90.0f - degrees_per_radian * theta};
}

}  // namespace wcfgl_geometry
