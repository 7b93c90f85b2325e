#include "crystal/math_gen.hpp"

#include <algorithm>
#include <cstddef>
#include <numbers>

namespace math_gen {

constinit bool err_mathgen = false;
constinit FixedText<150> err_mathgen_mess{};

namespace {

template <class T>
constexpr T to_rad = std::numbers::pi_v<T> / T{180};
template <class T>
constexpr T to_deg = T{180} / std::numbers::pi_v<T>;

template <class T>
T acos_in_degrees(T x) {
    if (std::abs(x) <= T{1}) return std::acos(x) * to_deg<T>;
    return x > T{0} ? T{0} : T{180};
}

template <class T>
T asin_in_degrees(T x) {
    if (std::abs(x) <= T{1}) return std::asin(x) * to_deg<T>;
    return x > T{0} ? T{90} : T{-90};
}

/// How many leading entries to compare.
std::size_t leading(int n, std::size_t size_a, std::size_t size_b) {
    return std::min({static_cast<std::size_t>(std::max(n, 0)), size_a, size_b});
}

template <class T, class Same>
bool same_leading(const Matrix3<T>& a, const Matrix3<T>& b, int n, Same same) {
    const std::size_t count = leading(n, 3, 3);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = 0; j < count; ++j)
            if (!same(a[i][j], b[i][j])) return false;
    return true;
}

}  // namespace

void init_err_mathgen() {
    err_mathgen = false;
    err_mathgen_mess = {};
}

float sind(float x) { return std::sin(x * to_rad<float>); }
float cosd(float x) { return std::cos(x * to_rad<float>); }
float tand(float x) { return std::tan(x * to_rad<float>); }
double sind(double x) { return std::sin(x * to_rad<double>); }
double cosd(double x) { return std::cos(x * to_rad<double>); }
double tand(double x) { return std::tan(x * to_rad<double>); }

float acosd(float x) { return acos_in_degrees(x); }
float asind(float x) { return asin_in_degrees(x); }
float atand(float x) { return std::atan(x) * to_deg<float>; }
float atan2d(float y, float x) { return std::atan2(y, x) * to_deg<float>; }
double acosd(double x) { return acos_in_degrees(x); }
double asind(double x) { return asin_in_degrees(x); }
double atand(double x) { return std::atan(x) * to_deg<double>; }
double atan2d(double y, double x) { return std::atan2(y, x) * to_deg<double>; }

void modulo_lat(std::span<float> u) {
    for (float& component : u) component = modulo_lat(component);
}

bool zbelongv(std::span<const float> v) { return std::ranges::all_of(v, zbelongn); }

std::complex<float> traza_c(const Matrix3<std::complex<float>>& a) {
    return a[0][0] + a[1][1] + a[2][2];
}

bool equal_matrix_i(const Matrix3i& a, const Matrix3i& b, int n) {
    return same_leading(a, b, n, [](int x, int y) { return x == y; });
}

bool equal_matrix_r(const Matrix3f& a, const Matrix3f& b, int n) {
    return same_leading(a, b, n, [](float x, float y) { return negligibler(x - y); });
}

bool equal_vector_i(std::span<const int> a, std::span<const int> b, int n) {
    const std::size_t count = leading(n, a.size(), b.size());
    return std::ranges::equal(a.first(count), b.first(count));
}

bool equal_vector_r(std::span<const float> a, std::span<const float> b, int n) {
    const std::size_t count = leading(n, a.size(), b.size());
    return std::ranges::equal(a.first(count), b.first(count),
                              [](float x, float y) { return negligibler(x - y); });
}

}  // namespace math_gen
