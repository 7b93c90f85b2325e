/// Constant tables of the rotation parts and their texts. Rows count from 1 in what is told about
/// them, from 0 in the arrays.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

#include <array>
#include <cstddef>
#include <string_view>

namespace crystallographic_symmetry {

/// The rotation that a triplet of letters and signs tells, "-y,x-y,z". For tables: no check.
constexpr Matrix3i matrix_of(std::string_view triplet) {
    Matrix3i rot{};
    std::size_t row = 0;
    int sign = 1;
    for (const char c : triplet) {
        if (c == ',') {
            ++row;
        } else if (c == '-' || c == '+') {
            sign = c == '-' ? -1 : 1;
        } else {
            rot[row][static_cast<std::size_t>(c - 'x')] = sign;
            sign = 1;
        }
    }
    return rot;
}

/// The proper rotations of the crystallographic groups. Rows 1 to 24 are those of a cube, rows 25
/// to 36 those of a hexagonal prism on hexagonal axes. An improper rotation is the negative of a
/// row.
extern const std::array<Matrix3i, 36> rot_table;

/// "(-x,-y, z)": rows 1 to 24, then their negatives.
extern const std::array<FixedText<10>, 48> seitz_cubic;
/// "(  -y, x-y, z)": rows 25 to 36, then their negatives.
extern const std::array<FixedText<14>, 24> seitz_hexa;
/// Both, in this order, on the components of a moment: "(-Mx,-My, Mz)".
extern const std::array<FixedText<19>, 72> moment_text;

/// Translations that a Seitz symbol can print, and their texts.
extern const std::array<float, 16> fraction_values;
extern const std::array<FixedText<3>, 16> fraction_text;

}  // namespace crystallographic_symmetry
