#include "toolkit/dialogs/resize.hpp"

#include <algorithm>

namespace tesserakit {
namespace {

/// One direction of a box: horizontally its left and right edge, vertically top and bottom.
struct Span {
    int low;
    int high;
};

Span across(const Box& box) { return {box.x, box.x + box.width}; }
Span down(const Box& box) { return {box.y, box.y + box.height}; }

bool contains(const Box& outer, const Box& inner) {
    return across(outer).low <= across(inner).low && across(outer).high >= across(inner).high &&
           down(outer).low <= down(inner).low && down(outer).high >= down(inner).high;
}

/// The box that decides for field `f`: its own, or that of the largest box that holds it but not
/// the growing field.
Box deciding_box(std::span<const Box> fields, std::size_t f, std::size_t resize) {
    Box box = fields[f];
    for (std::size_t g = 0; g < fields.size(); ++g)
        if (g != f && contains(fields[g], box) && !contains(fields[g], fields[resize]))
            box = fields[g];
    return box;
}

/// Whether the low and the high edge of a field move, in one direction.
int moving_edges(Span own, Span deciding, Span growing, bool keep_edges) {
    constexpr int low_moves = 1;
    constexpr int high_moves = 2;
    if (keep_edges && deciding.high == growing.high) {
        if (own.low == growing.low) return high_moves;
        // Inside a box that stretches with the growing field nothing moves.
        return deciding.low == growing.low ? 0 : low_moves | high_moves;
    }
    return deciding.low >= growing.high ? low_moves | high_moves : 0;
}

}  // namespace

std::vector<int> resize_masks(std::span<const Box> fields, std::size_t resize, bool keep_edges) {
    std::vector<int> masks(fields.size(), 0);
    const Box& growing = fields[resize];
    for (std::size_t f = 0; f < fields.size(); ++f) {
        // Boxes around the growing field stretch with it, as it does itself.
        if (contains(fields[f], growing)) masks[f] = RightMoves | BottomMoves;
        if (f == resize) continue;
        const Box box = deciding_box(fields, f, resize);
        masks[f] |= moving_edges(across(fields[f]), across(box), across(growing), keep_edges) |
                    moving_edges(down(fields[f]), down(box), down(growing), keep_edges) * TopMoves;
    }
    return masks;
}

Box resized_box(const Box& loaded, int right_margin, int bottom_margin, int mask, int width,
                int height) {
    Box box = loaded;
    if (mask & LeftMoves) box.x = width - right_margin - loaded.width;
    if (mask & RightMoves) box.width = std::max(1, width - right_margin - box.x);
    if (mask & TopMoves) box.y = height - bottom_margin - loaded.height;
    if (mask & BottomMoves) box.height = std::max(1, height - bottom_margin - box.y);
    return box;
}

}  // namespace tesserakit
