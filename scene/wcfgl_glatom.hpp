/// One atom of the asymmetric unit and its equivalent positions in the first cell.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"

#include <vector>

namespace wcfgl_glatom {

struct Atom {
    FixedText<10> label;          ///< case counts; need not be unique
    FixedText<2> symbol;          ///< as given: "Fe", "H "
    float radius = 0.0f;          ///< factor on the unit sphere
    float reserved_value = 0.0f;  ///< carried along, used by nothing
    Colour colour{};
    Vector3f xf{};                ///< fractional
    int multiplicity = 0;         ///< number of positions in xf_eq
    int default_colour = 0;       ///< 1: the element's, and not written to files; 0: chosen
    std::vector<Vector3f> xf_eq;  ///< distinct equivalent positions; the first is xf
};

/// Fills all but `default_colour`. The position is folded into the first cell.
void new_gl_atom(const FixedText<10>& label, const FixedText<2>& symbol, const Vector3f& xf,
                 float reserved_value, float radius, const Colour& colour,
                 const crystallographic_symmetry::Space_Group_Type& group, Atom& atom);

/// Fills `xf_eq` and `multiplicity`: xf as it stands, then its images under the group's operators
/// in their order, folded, each unless one within 0.0002 (the sum of the three differences, not
/// wrapped around the cell) is there already.
void calculate_eq_positions(Atom& atom, const crystallographic_symmetry::Space_Group_Type& group);

}  // namespace wcfgl_glatom
