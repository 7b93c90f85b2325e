#include "scene/wcfgl_glatom.hpp"

#include "common/fatal.hpp"
#include "crystal/math_gen.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace wcfgl_glatom {
namespace {

using crystallographic_symmetry::eps_symm;
using crystallographic_symmetry::Space_Group_Type;
using crystallographic_symmetry::Sym_Oper_Type;

/// The operators behind the identity.
std::span<const Sym_Oper_Type> further_operators(const Space_Group_Type& group) {
    const std::size_t multip = group.multip > 1 ? static_cast<std::size_t>(group.multip) : 1;
    return std::span(group.sym_op).first(std::min(multip, group.sym_op.size())).subspan(1);
}

/// Differences are not wrapped around the cell: 0.00001 and 0.99999 are two positions.
bool same_position(const Vector3f& a, const Vector3f& b) {
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]) < eps_symm;
}

}  // namespace

void new_gl_atom(const FixedText<10>& label, const FixedText<2>& symbol, const Vector3f& xf,
                 float reserved_value, float radius, const Colour& colour,
                 const Space_Group_Type& group, Atom& atom) {
    atom.label = label;
    atom.symbol = symbol;
    atom.xf = math_gen::into_cell(xf);
    atom.reserved_value = reserved_value;
    atom.radius = radius;
    atom.colour = colour;
    calculate_eq_positions(atom, group);
}

void calculate_eq_positions(Atom& atom, const Space_Group_Type& group) {
    const std::span<const Sym_Oper_Type> operators = further_operators(group);
    std::vector<Vector3f> kept;
    fatal::allocate("xtemp", [&] { kept.reserve(operators.size() + 1); });
    kept.push_back(atom.xf);
    for (const Sym_Oper_Type& op : operators) {
        // A group whose cell holds more than four lattice points counts more operators than its
        // record has entries for; an empty entry would put an atom at the origin.
        if (op.rot == Matrix3i{}) continue;
        const Vector3f x = math_gen::into_cell(crystallographic_symmetry::applyso(op, atom.xf));
        if (std::none_of(kept.begin(), kept.end(),
                         [&](const Vector3f& other) { return same_position(x, other); }))
            kept.push_back(x);
    }
    atom.xf_eq = fatal::allocate("atom%xf_eq", [&] {
        return std::vector<Vector3f>(kept.begin(), kept.end());  // without the spare room
    });
    atom.multiplicity = static_cast<int>(atom.xf_eq.size());
}

}  // namespace wcfgl_glatom
