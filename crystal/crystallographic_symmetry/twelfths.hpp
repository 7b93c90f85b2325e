/// Translations in whole twelfths of the cell: all those of the tabulated settings are such.
#pragma once

#include "common/vec.hpp"

namespace crystallographic_symmetry {

/// A translation in whole twelfths of the cell, each 0 to 11. Fractions go to the nearest twelfth,
/// and numbers no cell can have to some twelfth.
Vector3i twelfths(const Vector3f& tr);
Vector3i folded_twelfths(const Vector3i& tr);
/// Twelfths x (1/12), in 32-bit arithmetic.
Vector3f cell_fractions(const Vector3i& tr);

}  // namespace crystallographic_symmetry
