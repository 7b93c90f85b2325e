#include "toolkit/base/picture_scale.hpp"

#include "toolkit/base/display.hpp"

#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <bit>

namespace tesserakit {
namespace {

/// One colour component's place in a pixel.
struct Channel {
    explicit Channel(unsigned long own) : mask(own), shift(std::countr_zero(own)) {}
    unsigned long mask;
    int shift;
};

unsigned long mean_pixel(XImage* image, int x0, int y0, int x1, int y1) {
    const Visual& visual = *yydisplay.visual;
    const std::array<Channel, 3> channels{Channel(visual.red_mask), Channel(visual.green_mask),
                                          Channel(visual.blue_mask)};
    std::array<unsigned long, 3> sums{};
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x) {
            const unsigned long pixel = XGetPixel(image, x, y);
            for (std::size_t c = 0; c < sums.size(); ++c)
                sums[c] += (pixel & channels[c].mask) >> channels[c].shift;
        }
    const auto count = static_cast<unsigned long>((y1 - y0) * (x1 - x0));
    unsigned long pixel = 0;
    for (std::size_t c = 0; c < sums.size(); ++c)
        pixel |= ((sums[c] / count) << channels[c].shift) & channels[c].mask;
    return pixel;
}

bool has_direct_colours() {
    const Visual& visual = *yydisplay.visual;
    return visual.red_mask != 0 && visual.green_mask != 0 && visual.blue_mask != 0;
}

XImage* scaled(XImage* from, int width, int height) {
    const auto depth = static_cast<unsigned>(from->depth);
    // Xlib frees the data with XDestroyImage; 4 bytes are enough for any pixel.
    char* data = XtMalloc(static_cast<Cardinal>(4 * width * height));
    XImage* to = XCreateImage(yydisplay.display, yydisplay.visual, depth, ZPixmap, 0, data,
                              static_cast<unsigned>(width), static_cast<unsigned>(height), 32, 0);
    const bool direct = has_direct_colours();
    for (int y = 0; y < height; ++y) {
        const int y0 = y * from->height / height;
        const int y1 = std::max(y0 + 1, (y + 1) * from->height / height);
        for (int x = 0; x < width; ++x) {
            const int x0 = x * from->width / width;
            const int x1 = std::max(x0 + 1, (x + 1) * from->width / width);
            XPutPixel(to, x, y,
                      direct ? mean_pixel(from, x0, y0, x1, y1) : XGetPixel(from, x0, y0));
        }
    }
    return to;
}

struct Size {
    int width;
    int height;
};

Size fitting_size(const ResourcePixmap& image, int width, int height) {
    // Enlarged by a whole number, every pixel stays a square.
    const int factor = std::min(width / image.width, height / image.height);
    if (factor >= 1) return {factor * image.width, factor * image.height};
    // The side that is too large by more decides.
    if (image.width * height > image.height * width)
        return {width, std::max(1, image.height * width / image.width)};
    return {std::max(1, image.width * height / image.height), height};
}

}  // namespace

void scale_to_fit(ResourcePixmap& image, int width, int height) {
    if (!image.pixmap || width < 1 || height < 1) return;
    const auto [new_width, new_height] = fitting_size(image, width, height);
    if (new_width == image.width && new_height == image.height) return;
    Display* const display = yydisplay.display;
    XImage* from = XGetImage(display, image.pixmap, 0, 0, static_cast<unsigned>(image.width),
                             static_cast<unsigned>(image.height), AllPlanes, ZPixmap);
    if (!from) return;
    ErrorTrap trap;
    const Pixmap pixmap =
        XCreatePixmap(display, image.pixmap, static_cast<unsigned>(new_width),
                      static_cast<unsigned>(new_height), static_cast<unsigned>(yydisplay.depth));
    if (trap.error() != 0) {
        XDestroyImage(from);
        return;
    }
    XImage* to = scaled(from, new_width, new_height);
    const GC gc = XCreateGC(display, pixmap, 0, nullptr);
    XPutImage(display, pixmap, gc, to, 0, 0, 0, 0, static_cast<unsigned>(new_width),
              static_cast<unsigned>(new_height));
    XFreeGC(display, gc);
    XDestroyImage(from);
    XDestroyImage(to);
    XFreePixmap(display, image.pixmap);
    image.pixmap = pixmap;
    image.width = new_width;
    image.height = new_height;
}

}  // namespace tesserakit
