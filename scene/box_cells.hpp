/// The lattice cells over which a list repeats its objects to fill a box.
#pragma once

#include "common/vec.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace box_cells {

using wcfgl_metrix::Box;

/// A block of cells; holds none when a last is below its first.
struct Cells {
    Vector3i first{};
    Vector3i last{};  ///< included

    bool empty() const { return last[0] < first[0] || last[1] < first[1] || last[2] < first[2]; }
    bool contains(const Vector3i& cell) const {
        return first[0] <= cell[0] && cell[0] <= last[0] && first[1] <= cell[1] &&
               cell[1] <= last[1] && first[2] <= cell[2] && cell[2] <= last[2];
    }
    /// How many; wider than an int, for a box as large as numbers go.
    double count() const;

    friend bool operator==(const Cells&, const Cells&) = default;
};

/// The cells from trunc(minimum) - below to trunc(maximum) + above in each direction, trunc cutting
/// toward zero. Cells beyond 2^24, which 32-bit reals can't tell apart, are left out. None for a
/// limit that is no number.
Cells cells_of_box(const Box& box, int below, int above);

/// Finds the cells that bring fractional positions into a box.
class Finder {
public:
    /// Among cells_of_box(box, below, above).
    Finder(const Box& box, int below, int above);

    /// Faces of the box included, sums in 32-bit arithmetic as they are drawn. None for a position
    /// that is no number.
    Cells cells_of(const Vector3f& x) const;

    /// No position has more cells than this.
    double most_cells() const { return among_.count(); }

private:
    Box box_;
    Cells among_;
};

/// The cells that two blocks share.
Cells common(const Cells& a, const Cells& b);

/// A fractional position moved by whole cells.
inline Vector3f moved(const Vector3f& x, const Vector3i& cell) {
    return {x[0] + static_cast<float>(cell[0]), x[1] + static_cast<float>(cell[1]),
            x[2] + static_cast<float>(cell[2])};
}

/// visit(const Vector3i& cell) for each cell, the last index running fastest.
template <class Visit>
void for_each_cell(const Cells& cells, Visit visit) {
    // One empty direction is enough: the others may be as long as numbers go.
    if (cells.empty()) return;
    for (int i = cells.first[0]; i <= cells.last[0]; ++i)
        for (int j = cells.first[1]; j <= cells.last[1]; ++j)
            for (int k = cells.first[2]; k <= cells.last[2]; ++k) visit(Vector3i{i, j, k});
}

/// The cells of several things, to be walked through together.
class Copies {
public:
    void clear() { things_.clear(); }
    /// The thing `n`, which may have no cell.
    void add(std::size_t n, const Cells& cells) {
        if (!cells.empty()) things_.push_back({n, cells});
    }
    /// visit(n, cell) cell after cell, and in each the things in the order in which they came.
    template <class Visit>
    void for_each(Visit visit) const {
        for_each_cell(hull(), [&](const Vector3i& cell) {
            for (const Thing& thing : things_)
                if (thing.cells.contains(cell)) visit(thing.n, cell);
        });
    }

private:
    struct Thing {
        std::size_t n = 0;
        Cells cells;  ///< never none, or the walk would be longer than what it finds
    };
    /// The smallest block that holds the cells of all.
    Cells hull() const;

    std::vector<Thing> things_;
};

}  // namespace box_cells
