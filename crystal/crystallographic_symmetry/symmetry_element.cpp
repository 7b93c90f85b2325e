// An operator W, w of order k moves its element along itself by the mean of w, W w, ... W^(k-1) w:
// the screw or glide part. The rest of w says where the element is: its points x solve
// (W - 1) x = -(w - part). Rotoinversions leave one point alone and have no such part; their axis
// is that of -W through this point.

#include "crystal/crystallographic_symmetry/symmetry_element.hpp"

#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/math_gen.hpp"
#include "crystal/string_utilities.hpp"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace crystallographic_symmetry {
namespace {

using Vector3d = Vector3<double>;
using Matrix3d = Matrix3<double>;

// Coefficients are integers or small fractions; translations carry 24 bits.
constexpr double eps_coefficient = 1e-4;

Matrix3d as_double(const Matrix3i& m) {
    Matrix3d result;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) result[i][j] = m[i][j];
    return result;
}

bool is_zero(const Vector3d& v) {
    for (const double c : v)
        if (std::abs(c) > static_cast<double>(eps_symm)) return false;
    return true;
}

Vector3d intrinsic_part(const Matrix3d& rot, const Vector3d& tr, int order) {
    Vector3d sum = tr;
    Vector3d power = tr;
    for (int n = 1; n < order; ++n) {
        power = rot * power;
        sum = sum + power;
    }
    return (1.0 / order) * sum;
}

/// The points x with m x = b, solved for as many coordinates as m determines: x[i] = at[i] plus the
/// sum of along[i][j] times the free coordinates j.
struct Solution {
    Vector3d at;
    Matrix3d along;
    std::array<bool, 3> free{true, true, true};
};

/// The coordinate of an equation to solve for: a coefficient of 1 before others, so that what is
/// left has no fractions, and the last of several.
std::size_t pivot_of(const Vector3d& row) {
    std::size_t best = 3;
    for (std::size_t j = 0; j < 3; ++j) {
        if (std::abs(row[j]) < eps_coefficient) continue;
        const bool shorter = best < 3 && std::abs(row[j]) > std::abs(row[best]) + eps_coefficient;
        if (!shorter) best = j;
    }
    return best;
}

Solution solved(Matrix3d m, Vector3d b) {
    Solution result;
    std::array<std::size_t, 3> pivots{3, 3, 3};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t p = pivots[i] = pivot_of(m[i]);
        if (p == 3) continue;
        const double scale = 1.0 / m[i][p];
        m[i] = scale * m[i];
        b[i] *= scale;
        for (std::size_t k = 0; k < 3; ++k) {
            if (k == i) continue;
            const double factor = m[k][p];
            m[k] = m[k] - factor * m[i];
            b[k] -= factor * b[i];
        }
    }
    for (std::size_t j = 0; j < 3; ++j) result.along[j][j] = 1.0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (pivots[i] == 3) continue;
        result.free[pivots[i]] = false;
        result.at[pivots[i]] = b[i];
        result.along[pivots[i]] = -m[i];
        result.along[pivots[i]][pivots[i]] = 0.0;
    }
    return result;
}

std::string fraction(double value) {
    if (std::abs(value) <= static_cast<double>(eps_symm)) return "0";
    const FixedText<6> text = string_utilities::get_fraction_2dig(static_cast<float>(value));
    std::string_view trimmed = without_blanks_around(text.field());
    if (trimmed.starts_with('+')) trimmed.remove_prefix(1);
    return std::string(trimmed);
}

std::string triple(const std::array<std::string, 3>& parts) {
    return parts[0] + ',' + parts[1] + ',' + parts[2];
}

std::string vector_text(const Vector3d& v) {
    return triple({fraction(v[0]), fraction(v[1]), fraction(v[2])});
}

/// "x+1/4,x,z". A free coordinate is called by the first one that runs with it: "2x,x,0".
std::string place_text(const Solution& place) {
    std::array<char, 3> name{};
    for (std::size_t j = 0; j < 3; ++j)
        for (std::size_t i = 3; i-- > 0;)
            if (place.free[j] && std::abs(place.along[i][j]) > eps_coefficient)
                name[j] = static_cast<char>('x' + static_cast<int>(i));
    std::array<std::string, 3> parts;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const double c = place.along[i][j];
            if (!place.free[j] || std::abs(c) <= eps_coefficient) continue;
            if (c < 0) parts[i] += '-';
            if (c > 0 && !parts[i].empty()) parts[i] += '+';
            if (std::abs(std::abs(c) - 1.0) > eps_coefficient) parts[i] += fraction(std::abs(c));
            parts[i] += name[j];
        }
        const std::string number = fraction(place.at[i]);
        if (parts[i].empty())
            parts[i] = number;
        else if (number != "0")
            parts[i] += (number[0] == '-' ? "" : "+") + number;
    }
    return triple(parts);
}

Vector3d direction_of(const Solution& line) {
    Vector3d u;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            if (line.free[j]) u[i] += line.along[i][j];
    return u;
}

/// The axis run through in the direction about which rotations are counted.
Solution oriented(Solution axis) {
    const Vector3d u = direction_of(axis);
    double sign = u[0] * u[1] * u[2];
    for (std::size_t i = 0; i < 3 && std::abs(sign) < eps_coefficient; ++i) sign = u[i];
    if (sign < 0)
        for (Vector3d& row : axis.along.row) row = -row;
    return axis;
}

/// '+' when the rotation turns anticlockwise, seen against its direction.
char sense_of(const Matrix3d& rot, const Vector3d& u) {
    for (std::size_t j = 0; j < 3; ++j) {
        Vector3d x;
        x[j] = 1.0;
        const Vector3d y = rot * x;
        const double volume = u[0] * (x[1] * y[2] - x[2] * y[1]) +
                              u[1] * (x[2] * y[0] - x[0] * y[2]) +
                              u[2] * (x[0] * y[1] - x[1] * y[0]);
        if (std::abs(volume) > eps_coefficient) return volume > 0 ? '+' : '-';
    }
    return '+';
}

/// How many components there are, and the one size that they have, 3/4 being -1/4 a cell on; 0 when
/// sizes differ.
std::pair<int, double> components(const Vector3d& v) {
    int count = 0;
    double size = 0.0;
    bool alike = true;
    for (const double c : v) {
        if (std::abs(c) <= static_cast<double>(eps_symm)) continue;
        const double quarter = std::abs(std::abs(c) - 0.75) <= 1e-3 ? 0.25 : std::abs(c);
        alike = alike && (count == 0 || std::abs(quarter - size) <= 1e-3);
        size = quarter;
        ++count;
    }
    return {count, alike ? size : 0.0};
}

std::string plane_text(const Vector3d& glide, const Vector3d& normal, const Solution& place) {
    const auto is = [](double value, double size) { return std::abs(value - size) <= 1e-3; };
    if (is_zero(glide)) return "m " + place_text(place);
    const auto [count, size] = components(glide);
    if (count == 1 && is(size, 0.5)) {
        const std::size_t axis = std::abs(glide[0]) > 0.4 ? 0 : std::abs(glide[1]) > 0.4 ? 1 : 2;
        return std::string{"abc"[axis]} + ' ' + place_text(place);
    }
    // A diagonal of the plane has a component along each axis but the one that is normal to it.
    const bool diagonal = count == components(normal).first + 1;
    const char letter = diagonal && is(size, 0.5) ? 'n' : diagonal && is(size, 0.25) ? 'd' : 'g';
    return std::string{letter} + " (" + vector_text(glide) + ") " + place_text(place);
}

/// An equation of the plane that `m` x = 0 is.
Vector3d normal_of(const Matrix3d& m) {
    for (const Vector3d& row : m.row)
        if (!is_zero(row)) return row;
    return {};
}

}  // namespace

std::string symmetry_element(const Sym_Oper_Type& op) {
    const int kind = axes_rotation(op.rot);
    if (kind == 0) return {};
    const Matrix3d rot = as_double(op.rot);
    const Matrix3d unit = as_double(identity_rotation);
    Vector3d tr{};
    for (std::size_t i = 0; i < 3; ++i) tr[i] = static_cast<double>(op.tr[i]);
    const auto less_unit = [&](const Matrix3d& m) {
        return Matrix3d{{m[0] - unit[0], m[1] - unit[1], m[2] - unit[2]}};
    };
    if (kind == 1) return is_zero(tr) ? "1" : "t (" + vector_text(tr) + ')';
    const std::string order = std::to_string(kind);
    if (kind == -1) return order + ' ' + vector_text(0.5 * tr);
    if (kind == -2 || kind > 0) {
        const Vector3d part = intrinsic_part(rot, tr, std::abs(kind));
        const Solution points = solved(less_unit(rot), part - tr);
        if (kind == -2) return plane_text(part, normal_of(less_unit(rot)), points);
        const Solution place = oriented(points);
        std::string text = order;
        if (kind > 2) text += sense_of(rot, direction_of(place));
        if (!is_zero(part)) text += " (" + vector_text(part) + ')';
        return text + ' ' + place_text(place);
    }
    const Vector3d point = solved(less_unit(rot), -tr).at;
    const Matrix3d turn = -rot;
    const Solution axis = oriented(solved(less_unit(turn), less_unit(turn) * point));
    return order + sense_of(turn, direction_of(axis)) + ' ' + place_text(axis) + "; " +
           vector_text(point);
}

}  // namespace crystallographic_symmetry
