/// 3x3 matrices in real arithmetic.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

#include <optional>

namespace math_3d {

/// The unit's own tolerance, which matrix_inverse does not use.
extern float eps;
void set_eps(float value);
/// 1e-5 again.
void set_eps_default();

extern bool err_math3d;
extern FixedText<150> err_math3d_mess;
/// Clears the two.
void init_err_math3d();

/// Inverse by the adjugate, without pivoting. Absent, with err_math3d and its message set, when
/// the determinant is below 1e-20 in magnitude. A success leaves the error state as it was.
std::optional<Matrix3f> matrix_inverse(const Matrix3f& a);

}  // namespace math_3d
