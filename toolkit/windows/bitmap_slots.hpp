/// Off-screen bitmaps: 20 slots. A handle is the slot number plus 1.
#pragma once

#include <X11/Intrinsic.h>

#include <array>

namespace tesserakit {

struct BitmapSlot {
    Pixmap pixmap = 0;         ///< hBitmap, 0 when free
    Visual* visual = nullptr;  ///< that its pixels are of: the screen's, or OpenGL's
    Colormap colormap = 0;
    int depth = 0;
    int width = 0;  ///< pixels
    int height = 0;
};
inline constexpr int bitmap_slots = 20;
extern std::array<BitmapSlot, bitmap_slots> bitmaps;

/// The bitmap of a handle, null for a handle outside 1 to 20 or an empty slot.
BitmapSlot* bitmap_of(int handle);
/// Frees the pixmap and the slot.
void free_bitmap(BitmapSlot& bitmap);
void free_bitmaps();

}  // namespace tesserakit
