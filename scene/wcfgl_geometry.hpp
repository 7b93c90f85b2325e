/// Vectors in Cartesian space.
#pragma once

#include "common/vec.hpp"

namespace wcfgl_geometry {

/// Length; summed and rooted wider than 32 bits and rounded once.
float vect_norm_3d(const Vector3f& v);

/// v times (1 / |v|). A zero vector gives NaNs: callers test the length.
Vector3f vect_unit_3d(const Vector3f& v);

float vect3d_scal_vect3d(const Vector3f& a, const Vector3f& b);
Vector3f vect3d_vect_vect3d(const Vector3f& a, const Vector3f& b);

/// (r, phi, theta): length, longitude in degrees from x towards y (-180 to 180), and latitude in
/// degrees above the xy plane (-90 to 90), no polar angle. On the z axis phi is 0; the zero vector
/// gives (0, 0, 90). Rotating by phi about z, then by -theta about y, brings the x axis onto v.
Vector3f cart2spher(const Vector3f& v);

}  // namespace wcfgl_geometry
