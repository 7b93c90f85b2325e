#include "crystal/crystallographic_symmetry/centring.hpp"

#include "crystal/crystallographic_symmetry/twelfths.hpp"
#include "crystal/string_utilities.hpp"

#include <array>
#include <cstddef>

namespace crystallographic_symmetry {
namespace {

struct Lattice {
    std::size_t points;
    std::array<Vector3i, 4> twelfths;
};

// In the order of lattice_letters, Z left out.
constexpr std::array<Lattice, 7> lattices{{
    {1, {}},
    {2, {{{}, {0, 6, 6}}}},
    {2, {{{}, {6, 0, 6}}}},
    {2, {{{}, {6, 6, 0}}}},
    {2, {{{}, {6, 6, 6}}}},
    {3, {{{}, {8, 4, 4}, {4, 8, 8}}}},
    {4, {{{}, {6, 6, 0}, {6, 0, 6}, {0, 6, 6}}}},
}};

}  // namespace

std::span<const Vector3i> centring_twelfths(int lattice_index) {
    if (lattice_index < 1 || lattice_index > static_cast<int>(lattices.size())) return {};
    const Lattice& lattice = lattices[static_cast<std::size_t>(lattice_index - 1)];
    return std::span(lattice.twelfths).first(lattice.points).subspan(1);
}

std::span<const Vector3f> lattice_points(char letter) {
    static const auto fractions = [] {
        std::array<std::array<Vector3f, 4>, lattices.size()> all;
        for (std::size_t i = 0; i < lattices.size(); ++i)
            for (std::size_t k = 0; k < 4; ++k) all[i][k] = cell_fractions(lattices[i].twelfths[k]);
        return all;
    }();
    const std::size_t found = lattice_letters.find(string_utilities::raised(letter));
    const std::size_t index = found < lattices.size() ? found : 0;
    return std::span(fractions[index]).first(lattices[index].points);
}

std::span<const Vector3f> centring_vectors(char letter) {
    return lattice_points(letter).subspan(1);
}

}  // namespace crystallographic_symmetry
