/// The small value types that every layer shares. All are aggregates: Vector3f{1, 2, 3}.
///
/// Indices are C++ ones, from 0. Arithmetic is that of the element type, in the order written.
#pragma once

#include <array>
#include <cstddef>

template <class T>
struct Vector3 {
    std::array<T, 3> c{};

    constexpr T& operator[](std::size_t i) { return c[i]; }
    constexpr const T& operator[](std::size_t i) const { return c[i]; }
    constexpr T* data() { return c.data(); }
    constexpr const T* data() const { return c.data(); }
    constexpr auto begin() { return c.begin(); }
    constexpr auto begin() const { return c.begin(); }
    constexpr auto end() { return c.end(); }
    constexpr auto end() const { return c.end(); }

    friend constexpr bool operator==(const Vector3&, const Vector3&) = default;
    friend constexpr Vector3 operator+(const Vector3& a, const Vector3& b) {
        return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
    }
    friend constexpr Vector3 operator-(const Vector3& a, const Vector3& b) {
        return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    }
    friend constexpr Vector3 operator-(const Vector3& a) { return {-a[0], -a[1], -a[2]}; }
    friend constexpr Vector3 operator*(T s, const Vector3& a) {
        return {s * a[0], s * a[1], s * a[2]};
    }
};

template <class T>
constexpr T dot(const Vector3<T>& a, const Vector3<T>& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// m[i][j]: row i, column j.
template <class T>
struct Matrix3 {
    std::array<Vector3<T>, 3> row{};

    constexpr Vector3<T>& operator[](std::size_t i) { return row[i]; }
    constexpr const Vector3<T>& operator[](std::size_t i) const { return row[i]; }

    friend constexpr bool operator==(const Matrix3&, const Matrix3&) = default;
    friend constexpr Matrix3 operator-(const Matrix3& m) { return {{-m[0], -m[1], -m[2]}}; }
    /// Of a column.
    friend constexpr Vector3<T> operator*(const Matrix3& m, const Vector3<T>& x) {
        return {dot(m[0], x), dot(m[1], x), dot(m[2], x)};
    }
    /// The right one acts first.
    friend constexpr Matrix3 operator*(const Matrix3& a, const Matrix3& b) {
        Matrix3 result;
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = 0; j < 3; ++j)
                result[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
        return result;
    }
};

using Vector3f = Vector3<float>;
using Vector3i = Vector3<int>;
using Matrix3f = Matrix3<float>;
using Matrix3i = Matrix3<int>;

constexpr Vector3f as_real(const Vector3i& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}
constexpr Matrix3f as_real(const Matrix3i& m) {
    return {{as_real(m[0]), as_real(m[1]), as_real(m[2])}};
}
constexpr Vector3f operator*(const Matrix3i& m, const Vector3f& x) { return as_real(m) * x; }

/// Red, green, blue, alpha, each from 0 to 1.
using Colour = std::array<float, 4>;

/// Scalar first: (w, x, y, z). The identity is (1, 0, 0, 0).
using Quaternion = std::array<float, 4>;
