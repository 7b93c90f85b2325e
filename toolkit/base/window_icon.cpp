#include "toolkit/base/window_icon.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/yyrc.hpp"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <Xm/Xm.h>

#include <vector>

namespace tesserakit {

namespace {

/// One pixmap for all windows: they show it for as long as the program runs.
struct State {
    Pixmap pixmap = 0;
    Pixmap mask = 0;
    Display* display = nullptr;  // that these belong to
};
constinit State state{};

/// Four bits of a colour as eight.
unsigned long widened(unsigned bits) { return (bits & 15U) * 17U; }

/// Width, height, and one word 0xAARRGGBB a pixel, as desktops take it.
std::vector<unsigned long> desktop_icon(const ImagePixels& image) {
    std::vector<unsigned long> words{static_cast<unsigned long>(image.width),
                                     static_cast<unsigned long>(image.height)};
    for (const std::uint16_t colour : image.colours) {
        const bool opaque = colour != ImagePixels::transparent;
        words.push_back(opaque ? 0xff000000UL | widened(colour) << 16 | widened(colour >> 4U) << 8 |
                                     widened(colour >> 8U)
                               : 0);
    }
    return words;
}

Pixmap icon_mask(const ImagePixels& image) {
    const int bytes_per_row = (image.width + 7) / 8;
    std::vector<char> bits(static_cast<std::size_t>(bytes_per_row * image.height), 0);
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            if (image.colours[static_cast<std::size_t>(y * image.width + x)] !=
                ImagePixels::transparent)
                bits[static_cast<std::size_t>(y * bytes_per_row + x / 8)] |=
                    static_cast<char>(1 << (x % 8));
    return XCreateBitmapFromData(yydisplay.display, yydisplay.root, bits.data(),
                                 static_cast<unsigned>(image.width),
                                 static_cast<unsigned>(image.height));
}

}  // namespace

void set_window_icon(Widget shell) {
    const ImagePixels image = resource_image_pixels(program_icon, image_kind::icon);
    if (image.colours.empty()) return;
    if (state.display != yydisplay.display) {
        state.display = yydisplay.display;
        state.pixmap = yyResourceLoadImage(program_icon, image_kind::icon, false).pixmap;
        state.mask = icon_mask(image);
    }
    XtVaSetValues(shell, XmNiconPixmap, state.pixmap, XmNiconMask, state.mask, nullptr);
    const std::vector<unsigned long> words = desktop_icon(image);
    const Atom property = XInternAtom(yydisplay.display, "_NET_WM_ICON", False);
    XChangeProperty(yydisplay.display, XtWindow(shell), property, XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(words.data()),
                    static_cast<int>(words.size()));
}

}  // namespace tesserakit
