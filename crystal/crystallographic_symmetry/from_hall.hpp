/// A space group from its Hall symbol.
///
/// Source: S. R. Hall, Acta Cryst. A37 (1981) 517; International Tables B, table A1.4.2.
#pragma once

#include "crystal/crystallographic_symmetry/operators.hpp"

#include <string_view>

namespace crystallographic_symmetry {

/// Reads the whole text, in any case: "-P 2ybc", "P 2 2 -1n", "-I 4bd 2c 3 (1 -1 2)". A leading "-"
/// is an inversion at the origin; a "-1" behind the generators is one at half the translation told
/// by its letters. Up to four generators count. An origin shift stands in parentheses and moves the
/// inversion, too: three entries of -5 to 5 twelfths; any other character there is 0, and fewer
/// entries are an error.
///
/// Sets the module's centring. On failure err_symm is set, the list has no operators, and the
/// centring stays as it was: an unknown lattice letter has a message, a generator that can't be
/// read a blank one, a list of more than 24 operators the message of the step that found it.
ReducedList get_so_from_hall(std::string_view hall);

}  // namespace crystallographic_symmetry
