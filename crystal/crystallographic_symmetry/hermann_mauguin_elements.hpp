/// Where the elements stand that a Hermann-Mauguin symbol names: the table-free part of
/// get_so_from_hms, behind the reading of the symbol.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/symbol_parts.hpp"

#include <array>
#include <cstddef>
#include <span>

namespace crystallographic_symmetry::hermann_mauguin {

/// One word of the symbol: what it says about its direction.
struct Direction {
    int axis = 0;      ///< order of the axis, negative for a rotoinversion; 0 for none
    int screw = 0;     ///< the n of 4n
    char plane = ' ';  ///< the glide letter of the plane normal to the direction; blank for none

    bool has_plane() const { return plane != ' '; }
};

/// The symbol as read.
struct Symbol {
    char lattice = ' ';      ///< one of P, A, B, C, I, R, F
    int lattice_index = 0;   ///< as in ReducedList
    SymbolParts parts;       ///< blank where there is no word
    std::size_t words = 0;   ///< behind the lattice letter, at most 3
    bool slash = false;      ///< an axis with a plane normal to it: the group is centric
    int crystal_system = 0;  ///< as in ReducedList
    std::array<Direction, 3> direction;
};

struct Element {
    Matrix3i rot;
    Vector3i tr;  ///< twelfths of the cell, 0 to 11 once in a list
};

/// A group under construction, without inversion and centring, from the identity on. Each element
/// added must normalise the rotations before it, as in a composition series; then the list is a
/// group after each step.
class ElementList {
public:
    ElementList();
    /// Multiplies the list by the powers of `g` up to the first whose rotation it has already.
    void extend(const Element& g);
    std::span<const Element> elements() const { return {elements_.data(), count_}; }

private:
    bool holds(const Matrix3i& rot, std::size_t count) const;

    std::array<Element, max_reduced> elements_{};
    std::size_t count_ = 1;
};

/// Fills a fresh list by the symbol; returns whether the group is centric, about the origin.
bool place_elements(const Symbol& symbol, ElementList& list);

}  // namespace crystallographic_symmetry::hermann_mauguin
