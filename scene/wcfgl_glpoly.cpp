#include "scene/wcfgl_glpoly.hpp"

#include "common/fatal.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_geometry.hpp"

#include <algorithm>
#include <array>

namespace wcfgl_glpoly {
namespace {

using wcfgl_atom_tree::Atom;
using wcfgl_glbond::Bond;
using wcfgl_glbond::BondEnds;

constexpr float same_place = 0.00001f;  ///< norm of a difference in cell fractions

using Buffer = std::array<Vector3f, max_vertices>;

/// Puts the far ends of the bonds that start at `centre` to the front of the buffer; the rest of it
/// stays as it was.
std::size_t collect(const Vector3f& centre, std::span<const Bond> bonds, Buffer& buffer) {
    std::size_t count = 0;
    for (const Bond& bond : bonds)
        for (const BondEnds& ends : bond.xf) {
            const Vector3f first{ends[0], ends[1], ends[2]};
            if (!(wcfgl_geometry::vect_norm_3d(centre - first) < same_place)) continue;
            if (count == max_vertices) return count;
            buffer[count++] = {ends[3], ends[4], ends[5]};
        }
    return count;
}

Poly figures_of(const Atom& atom, std::span<const Bond> bonds, const std::optional<Colour>& colour,
                Buffer& buffer) {
    Poly poly;
    poly.colour = colour.value_or(atom.colour);
    for (std::size_t e = 0; e < atom.xf_eq.size(); ++e) {
        const std::size_t count = collect(atom.xf_eq[e], bonds, buffer);
        if (e == 0) poly.number_of_vertices = count;
        fatal::allocate("poly_out%xf", [&] {
            poly.xf.insert(poly.xf.end(), buffer.begin(),
                           buffer.begin() + static_cast<std::ptrdiff_t>(poly.number_of_vertices));
        });
    }
    return poly;
}

}  // namespace

bool new_gl_polys(const FixedText<10>& label, std::vector<Poly>& poly_out,
                  const std::optional<Colour>& colour) {
    std::vector<Atom> atoms;
    std::vector<Bond> bonds;
    if (!wcfgl_atom_tree::search_atom_list_by_label(label, atoms)) return false;
    if (!wcfgl_bond_tree::search_bond_list_by_label(label, bonds)) return false;
    poly_out.clear();
    Buffer buffer{};
    for (const Atom& atom : atoms) poly_out.push_back(figures_of(atom, bonds, colour, buffer));
    return true;
}

}  // namespace wcfgl_glpoly
