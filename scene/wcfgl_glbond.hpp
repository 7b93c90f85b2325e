/// The search for bonds: all pairs of equivalent positions of two sets of atoms at a distance
/// within given limits, across the neighbouring cells.
#pragma once

#include "common/vec.hpp"
#include "scene/wcfgl_glatom.hpp"

#include <optional>
#include <span>
#include <vector>

namespace wcfgl_glbond {

/// Both ends in cell fractions. The first lies in the cell of its atom's equivalent positions, the
/// second may lie one cell further on.
struct BondEnds {
    Vector3f first{};
    Vector3f second{};
};

/// The bonds between one atom of the first set and one of the second.
struct BondRecord {
    Colour colour1{};  ///< of the half at the first end
    Colour colour2{};
    std::vector<BondEnds> xf;  ///< a pair without bonds holds one entry of equal ends, at zero
};

/// One record for each pair of atoms, in the order of list1, then of list2. Distances in angstrom;
/// those of 0.01 and less never count. Where the first atoms of both sets agree in label (in
/// symbol with `by_symbol`), each pair of atoms is taken once. Without a colour each half takes
/// that of its atom. Only translations by -1, 0 and 1 are tried: a bond longer than about one cell
/// edge is not found. Neither set may be empty.
std::vector<BondRecord> new_gl_bonds(std::span<const wcfgl_glatom::Atom> list1,
                                     std::span<const wcfgl_glatom::Atom> list2, float min_distance,
                                     float max_distance, bool by_symbol,
                                     const std::optional<Colour>& colour = std::nullopt);

}  // namespace wcfgl_glbond
