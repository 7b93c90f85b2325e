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
class Component {
public:
    explicit Component(unsigned long mask)
        : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)), largest_(mask >> shift_) {}

    std::uint8_t of(unsigned long pixel) const {
        const unsigned long value = (pixel & mask_) >> shift_;
        if (largest_ == 255 || largest_ == 0) return static_cast<std::uint8_t>(value);
        return static_cast<std::uint8_t>(value * 65535 / largest_ >> 8U);
    }

private:
    unsigned long mask_;
    int shift_;
    unsigned long largest_;
};

using Row = std::vector<unsigned long>;

std::uint8_t* put_by_masks(std::uint8_t* to, const Row& row, const Visual& visual) {
    const Component red(visual.red_mask), green(visual.green_mask), blue(visual.blue_mask);
    for (const unsigned long pixel : row) {
        *to++ = red.of(pixel);
        *to++ = green.of(pixel);
        *to++ = blue.of(pixel);
    }
    return to;
}

std::uint8_t* put_by_colormap(std::uint8_t* to, const Row& row, Colormap colormap) {
    std::vector<XColor> colours(row.size());
    std::ranges::transform(row, colours.begin(), [](unsigned long pixel) {
        XColor colour{};
        colour.pixel = pixel;
        return colour;
    });
    XQueryColors(yydisplay.display, colormap, colours.data(), static_cast<int>(colours.size()));
    for (const XColor& colour : colours)
        for (const unsigned short value : {colour.red, colour.green, colour.blue})
            *to++ = static_cast<std::uint8_t>(value >> 8U);
    return to;
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
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width_) *
                                    static_cast<std::size_t>(count) * 3);
    std::uint8_t* to = bytes.data();
    Row row(static_cast<std::size_t>(width_));
    for (int y = 0; y < count; ++y) {
        for (int x = 0; x < width_; ++x) row[static_cast<std::size_t>(x)] = XGetPixel(image, x, y);
        to = visual_->c_class == TrueColor ? put_by_masks(to, row, *visual_)
                                           : put_by_colormap(to, row, colormap_);
    }
    XDestroyImage(image);
    return bytes;
}

}  // namespace tesserakit
