#include "crystal/math_3d.hpp"

#include "crystal/math_gen.hpp"

#include <cmath>

namespace math_3d {
namespace {
constexpr float eps_default = 1e-5f;
constexpr float least_determinant = 1e-20f;
}  // namespace

constinit float eps = eps_default;
constinit bool err_math3d = false;
constinit FixedText<150> err_math3d_mess{};

void set_eps(float value) { eps = value; }
void set_eps_default() { eps = eps_default; }

void init_err_math3d() {
    err_math3d = false;
    err_math3d_mess = {};
}

std::optional<Matrix3f> matrix_inverse(const Matrix3f& a) {
    const float det = math_gen::determ_a_r(a);
    if (std::abs(det) < least_determinant) {
        err_math3d = true;
        err_math3d_mess = "Singular Matrix: inversion impossible";
        return std::nullopt;
    }
    Matrix3f b;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            // Cyclic minors of the transposed matrix carry the cofactor's sign.
            const std::size_t p = (j + 1) % 3, q = (j + 2) % 3;
            const std::size_t r = (i + 1) % 3, s = (i + 2) % 3;
            b[i][j] = (a[p][r] * a[q][s] - a[p][s] * a[q][r]) / det;
        }
    return b;
}

}  // namespace math_3d
