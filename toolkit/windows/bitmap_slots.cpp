#include "toolkit/windows/bitmap_slots.hpp"

#include "toolkit/base/display.hpp"

namespace tesserakit {

constinit std::array<BitmapSlot, bitmap_slots> bitmaps{};

BitmapSlot* bitmap_of(int handle) {
    if (handle < 1 || handle > bitmap_slots) return nullptr;
    BitmapSlot& bitmap = bitmaps[static_cast<std::size_t>(handle - 1)];
    return bitmap.pixmap != 0 ? &bitmap : nullptr;
}

void free_bitmap(BitmapSlot& bitmap) {
    XFreePixmap(yydisplay.display, bitmap.pixmap);
    bitmap = {};
}

void free_bitmaps() {
    for (int handle = 1; handle <= bitmap_slots; ++handle)
        if (BitmapSlot* bitmap = bitmap_of(handle)) free_bitmap(*bitmap);
}

}  // namespace tesserakit
