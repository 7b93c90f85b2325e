/// A space group from the letters of its Hermann-Mauguin symbol, with no table of groups behind.
///
/// The symbol names an element for each of up to three directions: a rotation or screw axis, a
/// plane, or both ("21/M"). From them and the conventions of International Tables A on where the
/// origin stands, the operators follow in the published setting: unique axis and cell as written,
/// origin at a centre of inversion where there is one, hexagonal axes for R.
#pragma once

#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/symbol_parts.hpp"

#include <string_view>

namespace crystallographic_symmetry {

bool is_axis(char c);   ///< 1 to 6
bool is_plane(char c);  ///< A, B, C, D, M or N

/// Sets err_symm with the reason when these words can be no symbol: foreign characters, five-fold
/// axes, a character twice in one direction, an axis and a plane without the slash, two planes,
/// screws such as "12". Otherwise clears it; words that pass may still be no group.
void check_symbol_hm(const SymbolParts& parts);

/// Reads the first 20 characters behind leading blanks, in either case, words separated by
/// blanks: "P 21/c", "P 1 21/C 1", "F m -3 m". A fourth word replaces the third, characters behind
/// the fourth of a word replace that one. Sets the module's centring (latsym) and lat_symbol.
///
/// The list has the identity first and neither inversion nor centring; translations are cell
/// fractions, folded. `centred` is 1 or 2. Letters that contradict each other give what the first
/// of them say. On failure err_symm is set and the list holds the identity alone, with the lattice
/// index when the lattice letter was one.
ReducedList get_so_from_hms(std::string_view symbol);

}  // namespace crystallographic_symmetry
