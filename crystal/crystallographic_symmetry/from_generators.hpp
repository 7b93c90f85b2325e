/// A space group from operators: a few that generate it, or all of them.
///
/// Both routines look at translations in twelfths of the cell, modulo whole cells, and set the
/// module's centring. Operators with the identity as rotation are centring vectors, the inversion
/// is told apart from the rest. The lattice is P without centring vectors, F with two of A, B and
/// C, R with either of its obverse vectors, and Z with any other or with a mixture.
#pragma once

#include "crystal/crystallographic_symmetry/operators.hpp"

#include <cstddef>
#include <span>

namespace crystallographic_symmetry {

/// Closes the generators to the reduced list of their group, whether they are a few of its
/// operators or all of them, in whatever order. Zero rotations, the identity and repetitions count
/// as not given. Centring vectors and an inversion that follow from the others are found; of a
/// rotation and its negative in a group with an inversion, the list has the one that comes up
/// first. Of several inversions the one at the origin is told, or else the last.
///
/// On failure err_symm is set and the list has no operators: more than 24 of them, coefficients
/// that no group has, or more lattice points than the record holds found by closing.
ReducedList get_so_from_gener(std::span<const Sym_Oper_Type> generators);

/// Analyses a complete list, centring and inversion included, without changing it. `count` is its
/// size, and `ops` of the result stays empty.
ReducedList get_so_from_fix(std::span<const Sym_Oper_Type> ops);

/// Completes a list of centring vectors, cell fractions, the origin left out: the multiples of
/// one, or all combinations of the multiples of two or three. The first `count` of `vectors` are
/// given; found ones are appended as long as there is room. Returns the new count.
std::size_t get_centring_vectors(std::size_t count, std::span<Vector3f> vectors);

}  // namespace crystallographic_symmetry
