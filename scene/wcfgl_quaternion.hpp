/// Rotations as quaternions, scalar first: (w, x, y, z).
///
/// Angles are in degrees, axes in Cartesian space. A rotation is a quaternion of unit length; none
/// of these normalises it.
#pragma once

#include "common/vec.hpp"

#include <array>

/// 4 by 4 in the order of OpenGL: the first four are the first column.
using Matrix4f = std::array<float, 16>;

namespace wcfgl_quaternion {

inline constexpr Quaternion identity{1.0f, 0.0f, 0.0f, 0.0f};

struct AngleAxis {
    float angle = 0.0f;  ///< degrees
    Vector3f axis{};
};

/// The Hamilton product a b: as rotations, b acts first.
Quaternion q_mult_q(const Quaternion& a, const Quaternion& b);

/// The rotation by `angle` about `axis`, of any length; an axis shorter than 1e-8 gives the
/// identity.
Quaternion q_from_rot(float angle, const Vector3f& axis);

/// v turned by q.
Vector3f q_rot_vect(const Quaternion& q, const Vector3f& v);

/// The inverse of q_from_rot, with angles from 0 to 360. The identity gives angle 0 and a zero
/// axis, which q_from_rot reads back as the identity.
AngleAxis rot_from_q(const Quaternion& q);

/// The matrix that turns as q does, ready for glMultMatrixf.
Matrix4f quat2mat(const Quaternion& q);

}  // namespace wcfgl_quaternion
