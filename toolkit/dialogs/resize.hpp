/// How the fields of a dialog follow its size. No X here.
#pragma once

#include "toolkit/base/box.hpp"

#include <span>
#include <vector>

namespace tesserakit {

/// Edges of a field that move with the right and the bottom edge of its dialog.
enum ResizeBit : int { LeftMoves = 1, RightMoves = 2, TopMoves = 4, BottomMoves = 8 };

/// The resize mask of every field, when the field `resize` (an index) grows with the dialog and
/// the others give way to it. With `keep_edges` a field whose right or bottom edge is in line with
/// that of the growing field stays in line. A field inside a group box acts as the box does.
std::vector<int> resize_masks(std::span<const Box> fields, std::size_t resize, bool keep_edges);

/// Where a field stands in a dialog of width by height pixels. `loaded` is its place at load, and
/// the margins are its distances from the dialog's right and bottom edge then. No extent falls
/// below 1.
Box resized_box(const Box& loaded, int right_margin, int bottom_margin, int mask, int width,
                int height);

}  // namespace tesserakit
