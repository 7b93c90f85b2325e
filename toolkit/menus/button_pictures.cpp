#include "toolkit/menus/button_pictures.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/yyrc.hpp"

#include <X11/Intrinsic.h>
#include <X11/Xutil.h>

#include <algorithm>

namespace tesserakit {

namespace {

/// One frame of a strip: its place there, and the look that it is to have.
struct Frame {
    int x = 0;
    int width = 0;
    int height = 0;
    int enlargement = 1;
};

/// A frame with the pixel that `look` gives for each of the strip's points.
template <class Look>
Pixmap draw_frame(const Frame& frame, GC gc, const Look& look) {
    const int side = frame.enlargement;
    const auto width = static_cast<unsigned>(frame.width * side);
    const auto height = static_cast<unsigned>(frame.height * side);
    const auto depth = static_cast<unsigned>(yydisplay.depth);
    Display* const display = yydisplay.display;
    // Xlib frees the data with XDestroyImage; 4 bytes are enough for any pixel.
    char* data = XtMalloc(4 * width * height);
    XImage* image =
        XCreateImage(display, yydisplay.visual, depth, ZPixmap, 0, data, width, height, 32, 0);
    for (int y = 0; y < image->height; ++y)
        for (int x = 0; x < image->width; ++x)
            XPutPixel(image, x, y, look(frame.x + x / side, y / side));
    const Pixmap pixmap = XCreatePixmap(display, yydisplay.root, width, height, depth);
    XPutImage(display, pixmap, gc, image, 0, 0, 0, 0, width, height);
    XDestroyImage(image);
    return pixmap;
}

/// Greyed: the picture's brightness in three of the scheme's greys.
Pixel grey_of(int colour) {
    const int brightness = (colour & 0xF) * 3 + ((colour >> 4) & 0xF) * 6 + ((colour >> 8) & 0xF);
    if (brightness < 60) return wSchemeCol.disabled;
    return brightness < 110 ? wSchemeCol.select : wSchemeCol.top_shadow;
}

}  // namespace

int button_enlargement(int picture_height, int line_height) {
    return std::max(1, line_height / std::max(picture_height, 1));
}

ButtonStrip load_button_strip(int strip, int width, int height, int enlargement) {
    ButtonStrip loaded;
    loaded.image = yyResourceLoadImage(strip, image_kind::bitmap, true);
    ResourcePixmap& image = loaded.image;
    if (image.status != 0) return loaded;
    const ImagePixels colours = resource_image_pixels(strip, image_kind::bitmap);
    XImage* pixels =
        XGetImage(yydisplay.display, image.pixmap, 0, 0, static_cast<unsigned>(image.width),
                  static_cast<unsigned>(image.height), AllPlanes, ZPixmap);
    const int rows = std::min(height, image.height);
    const GC gc = XCreateGC(yydisplay.display, image.pixmap, 0, nullptr);
    const auto colour_at = [&](int x, int y) {
        return int{colours.colours[static_cast<std::size_t>(y * colours.width + x)]};
    };
    const auto plain = [&](int x, int y) { return XGetPixel(pixels, x, y); };
    const auto greyed = [&](int x, int y) {
        const int colour = colour_at(x, y);
        return colour == image_background ? pResImgBackground : grey_of(colour);
    };
    const auto armed = [&](int x, int y) {
        return colour_at(x, y) == image_background ? wSchemeCol.select : plain(x, y);
    };
    for (int x = 0; pixels && x + width <= image.width; x += width) {
        const Frame frame{x, width, rows, enlargement};
        loaded.buttons.push_back({.plain = draw_frame(frame, gc, plain),
                                  .greyed = draw_frame(frame, gc, greyed),
                                  .armed = draw_frame(frame, gc, armed)});
    }
    if (pixels) XDestroyImage(pixels);
    XFreeGC(yydisplay.display, gc);
    XFreePixmap(yydisplay.display, image.pixmap);
    image.pixmap = 0;
    return loaded;
}

void free_button_strip(ButtonStrip& strip) {
    for (const ButtonPictures& pictures : strip.buttons)
        for (const Pixmap pixmap : {pictures.plain, pictures.greyed, pictures.armed})
            XFreePixmap(yydisplay.display, pixmap);
    yyResourceFreeImagePixels(strip.image);
    strip = {};
}

}  // namespace tesserakit
