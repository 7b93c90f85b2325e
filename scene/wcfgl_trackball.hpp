/// The pointer as a hand on a ball: pixels to points of a hemisphere, two points to a rotation.
#pragma once

#include "common/vec.hpp"
#include "scene/wcfgl_quaternion.hpp"

namespace wcfgl_trackball {

/// The rotation under which each frame is drawn, in the order of OpenGL. Whoever changes the view
/// quaternion writes quat2mat of it here.
extern Matrix4f current_rot_matrix;

/// Sets current_rot_matrix to the identity.
void init_rot_matrix();

/// The point of the unit hemisphere (x right, y up, z towards the viewer) under the pixel (x, y), y
/// downward, of a drawable of that size. Pixels outside are taken to its edge, and points beyond
/// the rim to the equator. Each axis has its own scale, so a wide drawable has an elliptic ball. A
/// drawable without extent counts as hit in its middle.
Vector3f viewport2hemi(int x, int y, int width, int height);

/// The rotation that a move from one point of the hemisphere to another means: 112.5 degrees for
/// each unit of the straight distance between them. Points at most 1e-8 apart give the identity,
/// and so do opposite ones, which have no axis. A drag composes it on the left of the view
/// quaternion.
Quaternion calc_rot_param(const Vector3f& from_point, const Vector3f& to_point);

}  // namespace wcfgl_trackball
