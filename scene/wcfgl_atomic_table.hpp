/// The default radius and colour of each element, hydrogen to radon.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

namespace wcfgl_atomic_table {

/// Two characters, blank padded: "H ", "Fe". Symbols of two letters are also known in capitals.
using Symbol = FixedText<2>;

/// In angstrom; 1.0 for a symbol that isn't in the table.
float get_radius_from_symbol(const Symbol& symbol);

/// Opaque; mid grey for a symbol that isn't in the table.
Colour get_color_from_symbol(const Symbol& symbol);

}  // namespace wcfgl_atomic_table
