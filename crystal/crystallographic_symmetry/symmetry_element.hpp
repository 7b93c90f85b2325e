/// What a symmetry operator is, in the words of the published tables.
#pragma once

#include "crystal/crystallographic_symmetry/operators.hpp"

#include <string>

namespace crystallographic_symmetry {

/// Order and sense, screw or glide part, and place of the operator's element, as it stands:
/// "3+ (0,0,1/3) 0,0,z", "c x,1/4,z", "-4- 1/2,0,z; 1/2,0,1/4", "t (1/2,1/2,0)", "1".
///
/// Planes without glide are m; with half a cell along one axis a, b, c; with halves or quarters
/// along a diagonal n or d; others g. A letter names the coordinate along which the element runs.
/// The sense is seen along the direction with its first component positive, three-folds along body
/// diagonals along the one with a positive product, as published. Empty for a matrix that is no
/// rotation; numbers that are no fraction with denominators up to 24 are stars.
std::string symmetry_element(const Sym_Oper_Type& op);

}  // namespace crystallographic_symmetry
