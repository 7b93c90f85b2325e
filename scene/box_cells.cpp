#include "scene/box_cells.hpp"

#include <cmath>

namespace box_cells {
namespace {

// Beyond 2^24 the cells can't be told apart in 32-bit reals. A box that reaches so far is a slip of
// the keyboard, and it must not overflow an int.
constexpr float farthest_cell = 16777216.0f;

constexpr Cells none{{0, 0, 0}, {-1, -1, -1}};

int truncated(float value) {
    return static_cast<int>(std::clamp(value, -farthest_cell, farthest_cell));
}

}  // namespace

double Cells::count() const {
    if (empty()) return 0.0;
    double product = 1.0;
    for (std::size_t axis = 0; axis < 3; ++axis)
        product *= static_cast<double>(last[axis]) - first[axis] + 1.0;
    return product;
}

Cells cells_of_box(const Box& box, int below, int above) {
    Cells block;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const float minimum = box[2 * axis];
        const float maximum = box[2 * axis + 1];
        if (std::isnan(minimum) || std::isnan(maximum)) return none;
        block.first[axis] = truncated(minimum) - below;
        block.last[axis] = truncated(maximum) + above;
    }
    return block;
}

Finder::Finder(const Box& box, int below, int above)
    : box_(box), among_(cells_of_box(box, below, above)) {}

// Rounding keeps the order of sums, so that each limit is passed once along an axis. The difference
// tells where, but for the rounding; the sums, which are what is drawn, have the last word.
Cells Finder::cells_of(const Vector3f& x) const {
    Cells block = among_;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const int lowest = among_.first[axis], highest = among_.last[axis];
        const float minimum = box_[2 * axis], maximum = box_[2 * axis + 1];
        const auto at = [&](int cell) { return x[axis] + static_cast<float>(cell); };
        const auto about = [&](float limit) {
            return std::clamp(truncated(limit - x[axis]), lowest, highest);
        };
        if (lowest > highest || std::isnan(x[axis])) return none;
        int& first = block.first[axis];
        first = about(minimum);
        while (first > lowest && at(first - 1) >= minimum) --first;
        while (first <= highest && at(first) < minimum) ++first;
        int& last = block.last[axis];
        last = about(maximum);
        while (last < highest && at(last + 1) <= maximum) ++last;
        while (last >= lowest && at(last) > maximum) --last;
        if (last < first) return none;
    }
    return block;
}

Cells common(const Cells& a, const Cells& b) {
    Cells block;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        block.first[axis] = std::max(a.first[axis], b.first[axis]);
        block.last[axis] = std::min(a.last[axis], b.last[axis]);
    }
    return block;
}

Cells Copies::hull() const {
    if (things_.empty()) return none;
    Cells all = things_.front().cells;
    for (const Thing& thing : things_)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            all.first[axis] = std::min(all.first[axis], thing.cells.first[axis]);
            all.last[axis] = std::max(all.last[axis], thing.cells.last[axis]);
        }
    return all;
}

}  // namespace box_cells
