#include "scene/wcfgl_trackball.hpp"

#include "scene/wcfgl_geometry.hpp"

#include <cmath>

namespace wcfgl_trackball {
namespace {

constexpr Matrix4f identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
constexpr float gain = 112.5f;  ///< degrees for a unit of distance on the hemisphere
constexpr float radians_per_degree = 0.017453292f;
constexpr float shortest_move = 1e-8f;

/// -1 at pixel 0, 1 at the far edge; pixels outside count as on the edge.
float across(int pixel, int extent) {
    if (extent < 1) return 0.0f;
    if (pixel < 0) return -1.0f;
    if (pixel > extent) return 1.0f;
    const float size = static_cast<float>(extent);
    return (2.0f * static_cast<float>(pixel) - size) / size;
}

}  // namespace

constinit Matrix4f current_rot_matrix = identity;

void init_rot_matrix() { current_rot_matrix = identity; }

Vector3f viewport2hemi(int x, int y, int width, int height) {
    const float px = across(x, width);
    const float py = -across(y, height);  // exactly (height - 2y) / height
    const float d = std::sqrt(px * px + py * py);
    if (d <= 1.0f) return {px, py, std::sqrt(1.0f - d * d)};
    return {px / d, py / d, 0.0f};
}

Quaternion calc_rot_param(const Vector3f& from_point, const Vector3f& to_point) {
    using namespace wcfgl_geometry;
    const float delta = vect_norm_3d(from_point - to_point);
    if (delta <= shortest_move) return wcfgl_quaternion::identity;
    const Vector3f normal = vect3d_vect_vect3d(from_point, to_point);
    // Opposite points of the equator have no axis, and a view of NaNs would stay for good.
    if (vect_norm_3d(normal) == 0.0f) return wcfgl_quaternion::identity;
    const Vector3f axis = vect_unit_3d(normal);
    const float h = delta * gain * radians_per_degree * 0.5f;
    const float sine = std::sin(h);
    return {std::cos(h), sine * axis[0], sine * axis[1], sine * axis[2]};
}

}  // namespace wcfgl_trackball
