/// The search for bonds: all pairs of equivalent positions of two groups of atoms whose distance
/// lies within limits.
///
/// Positions are those of the first cell and its 26 neighbours, so a bond longer than about a cell
/// edge isn't found. Nothing here depends on the box.
#pragma once

#include "common/vec.hpp"
#include "scene/wcfgl_glatom.hpp"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace wcfgl_glbond {

/// A rule finds this many bonds at most, the first in the order of the search. A greatest distance
/// of 15 for 1.5 would find all pairs of atoms in 27 cells, which eats the memory of the machine.
inline constexpr std::size_t most_bonds = 1'048'576;

/// Fractional coordinates of both ends: x, y, z of the first, x, y, z of the second.
using BondEnds = std::array<float, 6>;

/// The bonds of one pair of atoms. `xf` points into the Bonds that gave it.
struct Bond {
    Colour colour1{};  ///< half of the stick at the first end
    Colour colour2{};  ///< half of the stick at the second end
    std::span<const BondEnds> xf;
};

/// One record for every pair of atoms that a rule matched, also for the pairs without a bond: those
/// hold a single column of zeros. Records count from 0, in the order of the search.
///
/// A rule between two elements of a large cell has millions of pairs and only a few bonds, so the
/// pairs without a bond are not stored.
class Bonds {
public:
    /// Pairs of atoms.
    std::size_t size() const { return size_; }
    Bond operator[](std::size_t record) const;

    /// The records that hold bonds, in order.
    std::size_t filled() const { return records_.size(); }
    Bond filled(std::size_t i) const { return bond(records_[i]); }

    /// The bonds of all records, in order.
    std::span<const BondEnds> columns() const { return columns_; }

    /// Distances that the search has computed.
    std::size_t distance_tests() const { return distance_tests_; }

private:
    friend class Search;
    struct Record {
        std::size_t number = 0;
        std::size_t first = 0;  ///< column
        std::size_t count = 0;
    };
    Bond bond(const Record& record) const;
    /// The two atoms of a record.
    std::array<std::size_t, 2> pair(std::size_t record) const;

    std::size_t size_ = 0;
    bool triangle_ = false;  ///< pairs (i, j) with j up to i; otherwise all
    std::vector<Colour> colours1_;
    std::vector<Colour> colours2_;
    std::vector<Record> records_;
    std::vector<BondEnds> columns_;
    std::size_t distance_tests_ = 0;
};

/// Finds the bonds between the atoms of both lists, distances in angstrom, limits included and
/// everything up to 0.01 left out. Lists that begin with the same name (label, or symbol with
/// `by_symbol`) are one list to the search: it handles each pair of atoms once. Atoms at one site
/// pair a position with those up to its own number only, which finds their bonds once. With
/// `colour` both halves of all sticks have it; otherwise each half has its atom's.
Bonds new_gl_bonds(std::span<const wcfgl_glatom::Atom> list1,
                   std::span<const wcfgl_glatom::Atom> list2, float min_distance,
                   float max_distance, bool by_symbol, const std::optional<Colour>& colour = {});

}  // namespace wcfgl_glbond
