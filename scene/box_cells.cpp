#include "scene/box_cells.hpp"

#include "scene/wcfgl_metrix.hpp"

#include <algorithm>
#include <cmath>

namespace box_cells {
namespace {

// Beyond 2^24 the cells can't be told apart in 32-bit reals. A box that reaches so far is a slip of
// the keyboard, and it must neither overflow an int nor be walked through for hours.
constexpr float farthest_cell = 16777216.0f;

// A list of this many spheres takes half a second and a quarter of a gigabyte.
constexpr double most_objects = 4194304.0;
// Of a box beyond that so little can be made out that a part will do; a part that is drawn at once,
// so that the user can correct the box.
constexpr double objects_of_a_part = 65536.0;

int truncated(float value) {
    if (!(value == value)) return 0;  // NaN: the box holds nothing
    return static_cast<int>(std::clamp(value, -farthest_cell, farthest_cell));
}

int count(const Cells& block, std::size_t axis) {
    return std::max(0, block.last[axis] - block.first[axis] + 1);
}

double volume(const Cells& block) {
    double product = 1.0;
    for (std::size_t axis = 0; axis < 3; ++axis) product *= count(block, axis);
    return product;
}

/// The first of first..last for which `holds`, which is false and then true; last + 1 if it never
/// is.
template <class Predicate>
int first_where(int first, int last, Predicate holds) {
    while (first <= last) {
        const int middle = first + (last - first) / 2;
        if (holds(middle))
            last = middle - 1;
        else
            first = middle + 1;
    }
    return first;
}

void halve(Cells& block, std::size_t axis) {
    const int n = count(block, axis);
    block.first[axis] += (n - n / 2) / 2;
    block.last[axis] = block.first[axis] + n / 2 - 1;
}

std::size_t longest_axis(const Cells& block) {
    std::size_t longest = 0;
    for (std::size_t axis = 1; axis < 3; ++axis)
        if (count(block, axis) > count(block, longest)) longest = axis;
    return longest;
}

}  // namespace

Cells cells_of_box(int below, int above) {
    if (!wcfgl_metrix::current_box) wcfgl_metrix::init_box();
    const wcfgl_metrix::Box& box = *wcfgl_metrix::current_box;
    Cells block;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        block.first[axis] = truncated(box[2 * axis]) - below;
        block.last[axis] = truncated(box[2 * axis + 1]) + above;
    }
    return block;
}

Extent extent_of(std::span<const Vector3f> positions) {
    if (positions.empty()) return {};
    Extent extent{positions.front(), positions.front()};
    for (const Vector3f& x : positions)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            extent.lowest[axis] = std::fmin(extent.lowest[axis], x[axis]);
            extent.highest[axis] = std::fmax(extent.highest[axis], x[axis]);
        }
    return extent;
}

void leave_out_empty(Cells& block, const Extent& extent) {
    const wcfgl_metrix::Box& box = *wcfgl_metrix::current_box;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const float lowest = extent.lowest[axis];
        const float highest = extent.highest[axis];
        const float minimum = box[2 * axis];
        const float maximum = box[2 * axis + 1];
        int& first = block.first[axis];
        int& last = block.last[axis];
        // Rounding keeps the order of sums, so each test changes once along the axis; and the
        // sums are those of the drawing, so that no position on a face is lost.
        first = first_where(first, last,
                            [&](int i) { return !(highest + static_cast<float>(i) < minimum); });
        last = first_where(first, last,
                           [&](int i) { return lowest + static_cast<float>(i) > maximum; }) -
               1;
    }
}

void keep_drawable(Cells& block, std::size_t objects_per_cell) {
    const double objects = static_cast<double>(objects_per_cell);
    if (volume(block) * objects <= most_objects) return;
    while (volume(block) * objects > objects_of_a_part && volume(block) > 1.0)
        halve(block, longest_axis(block));
}

Cells cells_around(std::span<const Vector3f> positions, int below, int above) {
    Cells block = cells_of_box(below, above);
    leave_out_empty(block, extent_of(positions));
    keep_drawable(block, positions.size());
    return block;
}

Cells cells_around(const Vector3f& x, int below, int above, std::size_t objects) {
    Cells block = cells_of_box(below, above);
    leave_out_empty(block, {x, x});
    keep_drawable(block, objects);
    return block;
}

}  // namespace box_cells
