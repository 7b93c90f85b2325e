/// The words of a Hermann-Mauguin symbol.
#pragma once

#include "common/fixed_text.hpp"

#include <array>

namespace crystallographic_symmetry {

/// The words of a symbol behind its lattice letter, upper case: one for each direction.
using SymbolParts = std::array<FixedText<4>, 3>;

}  // namespace crystallographic_symmetry
