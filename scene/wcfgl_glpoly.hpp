/// Coordination figures: for each equivalent position of a central atom, the far ends of the bonds
/// that start there.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace wcfgl_glpoly {

/// More vertices than this about one position are left out.
inline constexpr std::size_t max_vertices = 1000;

/// The figures of one atom.
struct Poly {
    Colour colour{};                     ///< given, or the atom's
    std::size_t number_of_vertices = 0;  ///< of each figure: what the first position has
    std::vector<Vector3f> xf;            ///< fractional, figure after figure

    std::size_t figures() const {
        return number_of_vertices == 0 ? 0 : xf.size() / number_of_vertices;
    }
    std::span<const Vector3f> vertices(std::size_t figure) const {
        return std::span(xf).subspan(figure * number_of_vertices, number_of_vertices);
    }
};

/// A Poly for each atom with that label. False, with `poly_out` left as it is, where no atom or no
/// bond rule has that label (the rule as its first). The records of a rule count whole: a pair of
/// atoms without bonds gives a vertex at the origin to an atom that stands there.
///
/// Every figure has as many vertices as the one at the first position: further ones are dropped,
/// and missing ones are those left over from the position before.
bool new_gl_polys(const FixedText<10>& label, std::vector<Poly>& poly_out,
                  const std::optional<Colour>& colour = {});

}  // namespace wcfgl_glpoly
