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

/// m[i][j]: row i, column j.
template <class T>
struct Matrix3 {
    std::array<Vector3<T>, 3> row{};

    constexpr Vector3<T>& operator[](std::size_t i) { return row[i]; }
    constexpr const Vector3<T>& operator[](std::size_t i) const { return row[i]; }

    friend constexpr bool operator==(const Matrix3&, const Matrix3&) = default;
};

using Vector3f = Vector3<float>;
using Vector3i = Vector3<int>;
using Matrix3f = Matrix3<float>;
using Matrix3i = Matrix3<int>;

/// Red, green, blue, alpha, each from 0 to 1.
using Colour = std::array<float, 4>;

/// Scalar first: (w, x, y, z). The identity is (1, 0, 0, 0).
using Quaternion = std::array<float, 4>;
