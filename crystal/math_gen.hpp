/// Small numerics: trigonometry in degrees, tests for near-integers, reduction to the cell, 3x3
/// traces and determinants.
///
/// Nothing here fails. NaN and infinities are near no integer, and no value reaches an integer
/// conversion that cannot hold it.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

#include <cmath>
#include <complex>
#include <span>

namespace math_gen {

/// Tolerance of the tests below, on absolute differences.
inline constexpr float eps_math = 1e-5f;

extern bool err_mathgen;
extern FixedText<150> err_mathgen_mess;
/// Clears the two.
void init_err_mathgen();

/// Arguments in degrees.
float sind(float x);
float cosd(float x);
float tand(float x);
double sind(double x);
double cosd(double x);
double tand(double x);

/// Results in degrees. Outside -1 to 1 the nearer end counts: acosd gives 0 or 180, asind 90 or
/// -90.
float acosd(float x);
float asind(float x);
float atand(float x);
float atan2d(float y, float x);
double acosd(double x);
double asind(double x);
double atand(double x);
double atan2d(double y, double x);

inline bool negligibler(float v) { return std::abs(v) <= eps_math; }
inline bool negligiblec(std::complex<float> z) { return std::abs(z) <= eps_math; }

/// (10 + u) without its integer part, in 32-bit arithmetic: 0 up to 1 for u above -10, with about
/// six digits behind the point. The offset is fixed: this is no floor, and u below -10 stays
/// negative.
inline float modulo_lat(float u) {
    const float v = 10.0f + u;
    // From 2^23 on there is no fraction; NaN passes through the subtraction.
    const float whole = std::abs(v) < 8388608.0f ? static_cast<float>(static_cast<int>(v)) : v;
    return v - whole;
}
inline Vector3f modulo_lat(const Vector3f& u) {
    return {modulo_lat(u[0]), modulo_lat(u[1]), modulo_lat(u[2])};
}
/// In place, for a vector of any length.
void modulo_lat(std::span<float> u);

/// modulo_lat for the place of an atom. An image of 1/3 comes out two of its steps of 1e-6 beside a
/// whole cell: at 0.999999 it would be another atom than one at 0, and missing on the cell's face.
/// Such a coordinate is 0.
inline Vector3f into_cell(const Vector3f& u) {
    constexpr float rounding = 3e-6f;
    Vector3f v = modulo_lat(u);
    for (float& x : v)
        if (std::abs(x) < rounding || std::abs(x - 1.0f) < rounding) x = 0.0f;
    return v;
}

/// |nint(v) - v| <= eps_math, and the same for every element; true of no elements at all.
inline bool zbelongn(float v) { return std::abs(std::round(v) - v) <= eps_math; }
bool zbelongv(std::span<const float> v);
inline bool zbelongv(const Vector3f& v) {
    return zbelongn(v[0]) && zbelongn(v[1]) && zbelongn(v[2]);
}
inline bool zbelongm(const Matrix3f& a) {
    return zbelongv(a[0]) && zbelongv(a[1]) && zbelongv(a[2]);
}

constexpr int traza_i(const Matrix3i& a) { return a[0][0] + a[1][1] + a[2][2]; }
constexpr float traza_r(const Matrix3f& a) { return a[0][0] + a[1][1] + a[2][2]; }
std::complex<float> traza_c(const Matrix3<std::complex<float>>& a);

/// The leading n x n elements, or n elements, are the same: exactly (_i), or within eps_math (_r).
/// n is limited to what both hold.
bool equal_matrix_i(const Matrix3i& a, const Matrix3i& b, int n = 3);
bool equal_matrix_r(const Matrix3f& a, const Matrix3f& b, int n = 3);
bool equal_vector_i(std::span<const int> a, std::span<const int> b, int n);
bool equal_vector_r(std::span<const float> a, std::span<const float> b, int n);
inline bool equal_vector_i(const Vector3i& a, const Vector3i& b) { return a == b; }
inline bool equal_vector_r(const Vector3f& a, const Vector3f& b) {
    return negligibler(a[0] - b[0]) && negligibler(a[1] - b[1]) && negligibler(a[2] - b[2]);
}

/// Determinant by the cofactors of the first column. The integer one expects elements below 500
/// in magnitude, which keeps every product inside 32 bits.
constexpr int determ_a_i(const Matrix3i& a) {
    return a[0][0] * (a[1][1] * a[2][2] - a[2][1] * a[1][2]) +
           a[1][0] * (a[2][1] * a[0][2] - a[0][1] * a[2][2]) +
           a[2][0] * (a[0][1] * a[1][2] - a[1][1] * a[0][2]);
}
constexpr float determ_a_r(const Matrix3f& a) {
    return a[0][0] * (a[1][1] * a[2][2] - a[2][1] * a[1][2]) +
           a[1][0] * (a[2][1] * a[0][2] - a[0][1] * a[2][2]) +
           a[2][0] * (a[0][1] * a[1][2] - a[1][1] * a[0][2]);
}

}  // namespace math_gen
