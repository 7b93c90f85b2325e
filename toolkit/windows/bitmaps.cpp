// The calls on bitmaps; their slots stand in bitmap_slots.hpp.

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/bitmap_slots.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/gl_target.hpp"

#include <algorithm>

namespace tesserakit {

namespace {

constexpr int largest_extent = 32767;  // of an X pixmap

void fill(const BitmapSlot& bitmap, Pixel pixel) {
    XGCValues values{};
    values.foreground = pixel;
    const GC gc = XCreateGC(yydisplay.display, bitmap.pixmap, GCForeground, &values);
    XFillRectangle(yydisplay.display, bitmap.pixmap, gc, 0, 0, static_cast<unsigned>(bitmap.width),
                   static_cast<unsigned>(bitmap.height));
    XFreeGC(yydisplay.display, gc);
}

bool make(BitmapSlot& bitmap, int width, int height) {
    ErrorTrap trap;
    bitmap = {.visual = yydisplay.visual,
              .colormap = yydisplay.colormap,
              .depth = yydisplay.depth,
              .width = width,
              .height = height};
    bitmap.pixmap =
        XCreatePixmap(yydisplay.display, yydisplay.root, static_cast<unsigned>(width),
                      static_cast<unsigned>(height), static_cast<unsigned>(yydisplay.depth));
    if (trap.error() != 0) bitmap = {};
    return bitmap.pixmap != 0;
}

}  // namespace

int wbitmapcreate(int width, int height) {
    const auto free = std::ranges::find(bitmaps, Pixmap{0}, &BitmapSlot::pixmap);
    const bool sound = width > 0 && height > 0 && width <= largest_extent &&
                       height <= largest_extent && yydisplay.display;
    if (!sound || free == bitmaps.end() || !make(*free, width, height)) {
        yyerror(BitmapNotCreated, "WBitmapCreate");
        return 0;
    }
    fill(*free, WhitePixelOfScreen(yydisplay.screen));
    return static_cast<int>(free - bitmaps.begin()) + 1;
}

void wbitmapdestroy(int handle) {
    if (!bitmap_of(handle)) {
        yyerror(InvalidBitmap, "WBitmapDestroy");
        return;
    }
    gl_forget_bitmap(handle);
    yygrforgetbitmap(handle);
    free_bitmap(*bitmap_of(handle));
}

}  // namespace tesserakit
