/// The rows of the symmetry tables: constant data, in an order that is a contract.
///
/// Source of all values: International Tables for Crystallography, Volume A; the Hall symbols
/// are those of Volume B. Texts are blank padded to the width told.
#pragma once

#include "common/fixed_text.hpp"

#include <array>
#include <span>

namespace symmetry_tables {

/// One setting of a space group. A group's settings stand together: a search by number finds the
/// first.
struct SpgrRow {
    int n;                   ///< group number, 1 to 230
    FixedText<12> hm;        ///< Hermann-Mauguin symbol, upper case, as the user types it
    FixedText<16> hall;      ///< Hall symbol, mixed case, as published
    int laue;                ///< Laue number, 1 to 16
    int pg;                  ///< point group number, 1 to 39
    std::array<int, 6> asu;  ///< asymmetric unit: x, y, z minima, then maxima, 24ths of the cell
    FixedText<5> inf_extra;  ///< setting code; blank where there is no choice
};

/// The special positions of one setting, letter a first; the general position is left out.
struct WyckoffRow {
    FixedText<12> hm;  ///< as in SpgrRow, or with ":2" or ":H" where no row of SpgrRow bears it
    int norbit;        ///< number of special positions
    std::array<FixedText<15>, 26> orbit;  ///< one representative each, "x,x+1/2,1/4"; then blanks
};

/// Columns 1 to 10 hold the symbol, mixed case; column 11 a colon; from column 12 the generators,
/// separated by semicolons: centring translations first (one for R, two for F), inversion last.
using ItGeneratorRow = FixedText<120>;

/// Coordinate transformations, as triplets, from the conventional setting to those of other
/// tables; blank where not known.
struct SystemEquivRow {
    FixedText<6> sc;     ///< Schoenflies: letter, number of the group, "_", subscript
    FixedText<17> ml{};  ///< Miller and Love
    FixedText<18> ko{};  ///< Kovalev
    FixedText<32> bc{};  ///< Bradley and Cracknell
    FixedText<18> za{};  ///< Zak
};

/// The whole tables; they need no filling and live as long as the program.
std::span<const SpgrRow, 612> spgr_rows();
std::span<const WyckoffRow, 270> wyckoff_rows();
std::span<const ItGeneratorRow, 230> it_generator_rows();
std::span<const SystemEquivRow, 230> system_equiv_rows();

}  // namespace symmetry_tables
