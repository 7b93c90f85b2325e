#include "scene/wcfgl_quaternion.hpp"

#include "crystal/math_gen.hpp"
#include "scene/wcfgl_geometry.hpp"

#include <array>
#include <cmath>

namespace wcfgl_quaternion {
namespace {

constexpr float shortest_axis = 1e-8f;
constexpr double smallest_sine = 1e-10;

Vector3f vector_part(const Quaternion& q) { return {q[1], q[2], q[3]}; }
Quaternion quaternion(float s, const Vector3f& v) { return {s, v[0], v[1], v[2]}; }

}  // namespace

Quaternion q_mult_q(const Quaternion& a, const Quaternion& b) {
    using namespace wcfgl_geometry;
    const Vector3f va = vector_part(a);
    const Vector3f vb = vector_part(b);
    const float s = a[0] * b[0] - vect3d_scal_vect3d(va, vb);
    const Vector3f v = a[0] * vb + b[0] * va + vect3d_vect_vect3d(va, vb);
    return quaternion(s, v);
}

Quaternion q_from_rot(float angle, const Vector3f& axis) {
    const float length = wcfgl_geometry::vect_norm_3d(axis);
    if (length < shortest_axis) return identity;
    const float half = angle * 0.5f;
    const float sine = math_gen::sind(half);
    return {math_gen::cosd(half), sine * axis[0] / length, sine * axis[1] / length,
            sine * axis[2] / length};
}

Vector3f q_rot_vect(const Quaternion& q, const Vector3f& v) {
    const Quaternion conjugate = quaternion(q[0], -vector_part(q));
    return vector_part(q_mult_q(q_mult_q(q, quaternion(0.0f, v)), conjugate));
}

AngleAxis rot_from_q(const Quaternion& q) {
    // By scalar and vector both: near the identity the scalar alone holds the angle to a few
    // hundredths of a degree only, and a product that has drifted from length 1 keeps its angle.
    const auto wide = [&q](std::size_t i) { return static_cast<double>(q[i]); };
    const std::array<double, 3> v{wide(1), wide(2), wide(3)};
    const double length = std::hypot(v[0], v[1], v[2]);
    const auto angle =
        static_cast<float>(2.0 * math_gen::atan2d(length, static_cast<double>(q[0])));
    if (length <= smallest_sine) return {angle, vector_part(q)};
    return {angle,
            {static_cast<float>(v[0] / length), static_cast<float>(v[1] / length),
             static_cast<float>(v[2] / length)}};
}

Matrix4f quat2mat(const Quaternion& q) {
    const auto [w, x, y, z] = q;
    // clang-format off
    return {
        1.0f - 2.0f * y * y - 2.0f * z * z, 2.0f * x * y + 2.0f * w * z, 2.0f * x * z - 2.0f * w * y, 0.0f,
        2.0f * x * y - 2.0f * w * z, 1.0f - 2.0f * x * x - 2.0f * z * z, 2.0f * y * z + 2.0f * w * x, 0.0f,
        2.0f * x * z + 2.0f * w * y, 2.0f * y * z - 2.0f * w * x, 1.0f - 2.0f * x * x - 2.0f * y * y, 0.0f,
        0.0f, 0.0f, 0.0f, 1.0f,
    };
    // clang-format on
}

}  // namespace wcfgl_quaternion
