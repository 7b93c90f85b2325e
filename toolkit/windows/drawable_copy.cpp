#include "toolkit/windows/drawable_copy.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/gl_target.hpp"

#include <X11/Xutil.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace tesserakit {

namespace {

/// A component of a pixel as the high byte of the server's 16 bits: the largest value of its mask
/// is 255.
std::uint8_t component(unsigned long pixel, unsigned long mask) {
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    return static_cast<std::uint8_t>(((pixel & mask) >> shift) * 65535 / (mask >> shift) >> 8U);
}

using Row = std::vector<unsigned long>;

void append_by_masks(const Row& row, const Visual& visual, std::vector<std::uint8_t>& bytes) {
    for (const unsigned long pixel : row)
        for (const unsigned long mask : {visual.red_mask, visual.green_mask, visual.blue_mask})
            bytes.push_back(component(pixel, mask));
}

void append_by_colormap(const Row& row, Colormap colormap, std::vector<std::uint8_t>& bytes) {
    std::vector<XColor> colours(row.size());
    std::ranges::transform(row, colours.begin(), [](unsigned long pixel) {
        XColor colour{};
        colour.pixel = pixel;
        return colour;
    });
    XQueryColors(yydisplay.display, colormap, colours.data(), static_cast<int>(colours.size()));
    for (const XColor& colour : colours)
        for (const unsigned short value : {colour.red, colour.green, colour.blue})
            bytes.push_back(static_cast<std::uint8_t>(value >> 8U));
}

}  // namespace

// A copy also because no image can be taken of a window that is partly outside the screen.
DrawableCopy::DrawableCopy(const Box& area) : width_(area.width) {
    refresh_drawable();
    visual_ = drawable.visual;
    colormap_ = drawable.colormap;
    const Drawable from = selected_x_drawable();
    if (from == 0 || !visual_ || area.width < 1 || area.height < 1) return;
    gl_finish();
    Display* display = yydisplay.display;
    const auto width = static_cast<unsigned>(area.width);
    const auto height = static_cast<unsigned>(area.height);
    ErrorTrap trap;
    pixmap_ = XCreatePixmap(display, yydisplay.root, width, height,
                            static_cast<unsigned>(drawable.depth));
    if (trap.error() != 0) {
        pixmap_ = 0;
        return;
    }
    XGCValues values{};
    values.subwindow_mode = IncludeInferiors;
    values.graphics_exposures = False;
    const GC gc = XCreateGC(display, pixmap_, GCSubwindowMode | GCGraphicsExposures, &values);
    XCopyArea(display, from, pixmap_, gc, area.x, area.y, width, height, 0, 0);
    XFreeGC(display, gc);
    if (trap.error() == 0) return;
    XFreePixmap(display, pixmap_);
    pixmap_ = 0;
}

DrawableCopy::~DrawableCopy() {
    if (pixmap_ != 0) XFreePixmap(yydisplay.display, pixmap_);
}

Pixmap DrawableCopy::release() { return std::exchange(pixmap_, Pixmap{0}); }

std::vector<std::uint8_t> DrawableCopy::rows(int top, int count) const {
    if (pixmap_ == 0) return {};
    const ErrorTrap trap;
    XImage* image = XGetImage(yydisplay.display, pixmap_, 0, top, static_cast<unsigned>(width_),
                              static_cast<unsigned>(count), AllPlanes, ZPixmap);
    if (!image) return {};
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(width_) * static_cast<std::size_t>(count) * 3);
    Row row(static_cast<std::size_t>(width_));
    for (int y = 0; y < count; ++y) {
        for (int x = 0; x < width_; ++x) row[static_cast<std::size_t>(x)] = XGetPixel(image, x, y);
        if (visual_->c_class == TrueColor)
            append_by_masks(row, *visual_, bytes);
        else
            append_by_colormap(row, colormap_, bytes);
    }
    XDestroyImage(image);
    return bytes;
}

}  // namespace tesserakit
