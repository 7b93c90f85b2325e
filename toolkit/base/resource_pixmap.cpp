#include "toolkit/base/resource_pixmap.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/yyrc.hpp"

#include <array>

namespace tesserakit {

constinit unsigned long pResImgBackground = 0;
constinit unsigned long pResImgBackgroundNOT = 0;

namespace {

constexpr unsigned long unallocated = 99999999;

struct SharedColour {
    unsigned long pixel = unallocated;
    int users = 0;  ///< images that hold it, and one more for a colour that is never freed
};

struct State {
    bool ready = false;
    std::array<SharedColour, 4096> colours{};  ///< by the code's twelve bits
};
constinit State state;

SharedColour& shared(int colour) { return state.colours[static_cast<std::size_t>(colour)]; }

/// The component whose lowest bit is number `bit` of the code, on the display's scale.
unsigned short component(int colour, int bit) {
    return static_cast<unsigned short>(((colour >> bit) & 0xF) << 12);
}

int code_of(const XColor& colour) {
    return colour.red >> 12 | (colour.green >> 12) << 4 | (colour.blue >> 12) << 8;
}

/// Enters a colour that is allocated for good.
void keep(unsigned long pixel) {
    XColor colour{};
    colour.pixel = pixel;
    XQueryColor(yydisplay.display, yydisplay.colormap, &colour);
    shared(code_of(colour)) = {pixel, 1};
}

unsigned long inverse_of(unsigned long pixel) {
    XColor colour{};
    colour.pixel = pixel;
    XQueryColor(yydisplay.display, yydisplay.colormap, &colour);
    colour.red = static_cast<unsigned short>(~colour.red);
    colour.green = static_cast<unsigned short>(~colour.green);
    colour.blue = static_cast<unsigned short>(~colour.blue);
    return XAllocColor(yydisplay.display, yydisplay.colormap, &colour) ? colour.pixel
                                                                       : wSchemeCol.white;
}

/// Pixel of a colour for an image that notes it in `used`. Black, and no user, when the colour
/// map is full.
unsigned long take_pixel(int code, ImageColours& used) {
    SharedColour& entry = shared(code);
    if (entry.pixel == unallocated) {
        XColor colour{};
        colour.red = component(code, 0);
        colour.green = component(code, 4);
        colour.blue = component(code, 8);
        if (!XAllocColor(yydisplay.display, yydisplay.colormap, &colour)) return wSchemeCol.black;
        entry.pixel = colour.pixel;
    }
    if (!used[static_cast<std::size_t>(code)]) {
        used.set(static_cast<std::size_t>(code));
        ++entry.users;
    }
    return entry.pixel;
}

/// Draws one run, unless it is to leave what is there.
void draw_run(const ImageRun& run, int kind, bool dialog_background, ResourcePixmap& image, GC gc) {
    unsigned long pixel = 0;
    if (run.transparent) {
        if (kind != image_kind::icon || run.colour != image_white) return;
        pixel = pResImgBackgroundNOT;
    } else if (run.colour == image_background && dialog_background) {
        pixel = pResImgBackground;
    } else {
        pixel = take_pixel(run.colour, image.colours);
    }
    XSetForeground(yydisplay.display, gc, pixel);
    XDrawLine(yydisplay.display, image.pixmap, gc, run.x, run.y, run.x + run.length - 1, run.y);
}

/// A graphics context on the image's pixmap. An icon begins as background throughout.
GC begin_drawing(const ResourcePixmap& image, int kind) {
    Display* display = yydisplay.display;
    GC gc = XCreateGC(display, image.pixmap, 0, nullptr);
    XSetFunction(display, gc, GXcopy);
    if (kind == image_kind::icon) {
        XSetForeground(display, gc, pResImgBackground);
        XFillRectangle(display, image.pixmap, gc, 0, 0, static_cast<unsigned>(image.width),
                       static_cast<unsigned>(image.height));
    }
    return gc;
}

/// The server refuses a size that doesn't fit its memory only later, by an error: the trap waits
/// for it.
Pixmap create_pixmap(int width, int height) {
    ErrorTrap trap;
    const Pixmap pixmap =
        XCreatePixmap(yydisplay.display, yydisplay.root, static_cast<unsigned>(width),
                      static_cast<unsigned>(height), static_cast<unsigned>(yydisplay.depth));
    return trap.error() == 0 ? pixmap : 0;
}

}  // namespace

void yyResourceImageInit() {
    if (state.ready) return;
    state.ready = true;
    pResImgBackground = wSchemeCol.background;
    pResImgBackgroundNOT = inverse_of(pResImgBackground);
    for (const unsigned long pixel :
         {wSchemeCol.foreground, wSchemeCol.top_shadow, wSchemeCol.bottom_shadow, wSchemeCol.select,
          wSchemeCol.disabled, wSchemeCol.highlight, wSchemeCol.field, pResImgBackground,
          wSchemeCol.black, wSchemeCol.white}) {
        keep(pixel);
    }
}

ResourcePixmap yyResourceLoadImage(int identifier, int kind, bool dialog_background) {
    ResourcePixmap image;
    int reserved1 = 0;
    int reserved2 = 0;
    yyrcimagecheck(identifier, kind, image.width, image.height, reserved1, reserved2);
    if (image.width <= 0 || image.height <= 0) return {.status = 3};
    image.pixmap = create_pixmap(image.width, image.height);
    if (image.pixmap == 0) return {.status = 2};
    std::string_view codes;
    yyrcimageload(identifier, kind, codes);
    GC gc = begin_drawing(image, kind);
    ImageRuns runs(codes, image.width, image.height);
    while (const std::optional<ImageRun> run = runs.next()) {
        draw_run(*run, kind, dialog_background, image, gc);
    }
    XFreeGC(yydisplay.display, gc);
    return image;
}

void yyResourceFreeImagePixels(ResourcePixmap& image) {
    for (std::size_t code = 0; code < image.colours.size(); ++code) {
        if (!image.colours[code]) continue;
        SharedColour& entry = state.colours[code];
        if (--entry.users > 0) continue;
        XFreeColors(yydisplay.display, yydisplay.colormap, &entry.pixel, 1, 0);
        entry = {};
    }
    image.colours.reset();
}

}  // namespace tesserakit
