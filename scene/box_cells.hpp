/// The lattice cells over which a list repeats its objects to fill the box.
#pragma once

#include "common/vec.hpp"

#include <cstddef>
#include <span>

namespace box_cells {

/// A block of cells; holds none when a last is below its first.
struct Cells {
    Vector3i first{};
    Vector3i last{};  ///< included

    friend bool operator==(const Cells&, const Cells&) = default;
};

/// The cells from trunc(minimum) - below to trunc(maximum) + above of the present box in each
/// direction, trunc cutting toward zero. Makes the default box if there is none.
Cells cells_of_box(int below, int above);

/// The smallest and the largest component of some positions in each direction; NaNs are passed
/// over, and no positions give zeros.
struct Extent {
    Vector3f lowest{};
    Vector3f highest{};
};
Extent extent_of(std::span<const Vector3f> positions);

/// Leaves out the outer cells where no position within `extent`, moved by the cell in 32-bit
/// arithmetic, can pass in_limit. What is drawn stays the same, and in the same order.
void leave_out_empty(Cells& block, const Extent& extent);

/// Cuts a block down around its middle when it would hold more objects than can be drawn: one of up
/// to four million stays whole, and of a larger one some ten thousands are kept.
void keep_drawable(Cells& block, std::size_t objects_per_cell);

/// cells_of_box, leave_out_empty and keep_drawable in a row, for an object at each of `positions`
/// in each cell; or for the position `x` alone, of which a list draws `objects` in each cell.
Cells cells_around(std::span<const Vector3f> positions, int below, int above);
Cells cells_around(const Vector3f& x, int below, int above, std::size_t objects = 1);

/// A fractional position moved by whole cells.
inline Vector3f moved(const Vector3f& x, const Vector3i& cell) {
    return {x[0] + static_cast<float>(cell[0]), x[1] + static_cast<float>(cell[1]),
            x[2] + static_cast<float>(cell[2])};
}

/// visit(const Vector3i& cell) for each cell, the last index running fastest.
template <class Visit>
void for_each_cell(const Cells& cells, Visit visit) {
    for (int i = cells.first[0]; i <= cells.last[0]; ++i)
        for (int j = cells.first[1]; j <= cells.last[1]; ++j)
            for (int k = cells.first[2]; k <= cells.last[2]; ++k) visit(Vector3i{i, j, k});
}

}  // namespace box_cells
