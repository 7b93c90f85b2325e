/// The centring vectors of the conventional lattices, each stated once.
#pragma once

#include "common/vec.hpp"

#include <span>
#include <string_view>

namespace crystallographic_symmetry {

/// Centring letters by lattice index, which counts from 1.
inline constexpr std::string_view lattice_letters = "PABCIRFZ";

/// By place in lattice_letters, from 1, in twelfths of the cell and without the origin; R is
/// obverse. None for P, for Z, whose vectors are those of its group, and outside.
std::span<const Vector3i> centring_twelfths(int lattice_index);

/// The same by letter, in either case, as cell fractions; none for any other character.
std::span<const Vector3f> centring_vectors(char letter);
/// The same behind the origin: the lattice points of the cell.
std::span<const Vector3f> lattice_points(char letter);

}  // namespace crystallographic_symmetry
