#include "toolkit/windows/drawables.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/widgets/wind.hpp"
#include "toolkit/windows/bitmap_slots.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/StringDefs.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <bit>

namespace tesserakit {

constinit SelectedDrawable drawable{};

namespace {

struct Extent {
    bool exists = false;
    int width = 0;
    int height = 0;
    int depth = 0;
    Visual* visual = nullptr;
    Colormap colormap = 0;
};

/// Extent of what a widget shows; the widget may be missing or have no window yet.
Extent widget_extent(Widget widget, int width, int height) {
    Extent extent{.exists = true, .width = width, .height = height};
    if (!widget || !XtIsRealized(widget)) return extent;
    XtVaGetValues(widget, XtNdepth, &extent.depth, XtNcolormap, &extent.colormap, nullptr);
    // Only an OpenGL widget has another visual than its parent.
    if (XtIsSubclass(widget, windWidgetClass))
        XtVaGetValues(widget, windNvisual, &extent.visual, nullptr);
    if (!extent.visual) extent.visual = yydisplay.visual;
    return extent;
}

Extent window_extent(int window) {
    if (window < 0 || window >= window_slots) return {};
    const WindowSlot& slot = window_slot(window);
    return slot.open() ? widget_extent(slot.client_widget, slot.width, slot.height) : Extent{};
}

Extent bitmap_extent(int handle) {
    const BitmapSlot* bitmap = bitmap_of(handle);
    if (!bitmap) return {};
    return {true, bitmap->width, bitmap->height, bitmap->depth, bitmap->visual, bitmap->colormap};
}

Extent field_extent(int dialog, int field) {
    const PictureField picture = dialog_hooks.picture(dialog_hooks.slot(dialog), field);
    return picture.exists ? widget_extent(picture.widget, picture.width, picture.height) : Extent{};
}

Extent extent_of(const SelectedDrawable& target) {
    switch (target.type) {
        case DrawableType::Window:
            return window_extent(target.number);
        case DrawableType::Bitmap:
            return bitmap_extent(target.number);
        case DrawableType::Field:
            return field_extent(target.dialog, target.number);
        // Metafiles belong to hardcopy drivers, which this toolkit hasn't.
        case DrawableType::Metafile:
        case DrawableType::Nothing:
            break;
    }
    return {};
}

void take_extent(const Extent& extent) {
    drawable.width = extent.width;
    drawable.height = extent.height;
    drawable.depth = extent.depth;
    drawable.visual = extent.visual;
    drawable.colormap = extent.colormap;
}

bool select(const SelectedDrawable& target) {
    const Extent extent = extent_of(target);
    if (!extent.exists) return false;
    drawable = target;
    take_extent(extent);
    return true;
}

SelectedDrawable requested(int type, std::optional<int> number) {
    switch (type) {
        case 1:
            return {.type = DrawableType::Window, .number = number.value_or(wCurrentWindow)};
        case 2:
            return {.type = DrawableType::Bitmap, .number = number.value_or(1)};
        case 3:
            return {.type = DrawableType::Field,
                    .number = number.value_or(0),
                    .dialog = dialog_hooks.identifier(dialog_hooks.current())};
        case 4:
            return {.type = DrawableType::Metafile, .number = number.value_or(1)};
        default:
            return {};
    }
}

// Reading pixels

/// A component of a pixel as 8 bits: the largest value of its mask is 255.
std::uint8_t component(unsigned long pixel, unsigned long mask) {
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    return static_cast<std::uint8_t>(((pixel & mask) >> shift) * 255 / (mask >> shift));
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

/// The rows as the server holds them, null when it can't give them. They are copied first: of a
/// window that is partly outside the screen no image can be taken.
XImage* image_of(Drawable from, int top, int rows) {
    Display* display = yydisplay.display;
    const auto width = static_cast<unsigned>(drawable.width);
    const auto height = static_cast<unsigned>(rows);
    ErrorTrap trap;
    const Pixmap copy = XCreatePixmap(display, yydisplay.root, width, height,
                                      static_cast<unsigned>(drawable.depth));
    XGCValues values{};
    values.subwindow_mode = IncludeInferiors;
    values.graphics_exposures = False;
    const GC gc = XCreateGC(display, copy, GCSubwindowMode | GCGraphicsExposures, &values);
    XCopyArea(display, from, copy, gc, 0, top, width, height, 0, 0);
    XImage* image = trap.error() == 0
                        ? XGetImage(display, copy, 0, 0, width, height, AllPlanes, ZPixmap)
                        : nullptr;
    XFreeGC(display, gc);
    XFreePixmap(display, copy);
    return image;
}

}  // namespace

void refresh_drawable() { take_extent(extent_of(drawable)); }

Drawable selected_x_drawable() {
    switch (drawable.type) {
        case DrawableType::Window:
            return window_extent(drawable.number).exists ? window_slot(drawable.number).client : 0;
        case DrawableType::Bitmap: {
            const BitmapSlot* bitmap = bitmap_of(drawable.number);
            return bitmap ? bitmap->pixmap : 0;
        }
        case DrawableType::Field: {
            const Widget widget =
                dialog_hooks.picture(dialog_hooks.slot(drawable.dialog), drawable.number).widget;
            return widget ? XtWindow(widget) : 0;
        }
        default:
            return 0;
    }
}

DrawableScope::DrawableScope(DrawableType type, int number, int dialog) : former_(drawable) {
    if (drawable.type == type && drawable.number == number && drawable.dialog == dialog) {
        refresh_drawable();
    } else if (!select({.type = type, .number = number, .dialog = dialog})) {
        drawable = {};
    }
}

DrawableScope::~DrawableScope() {
    // It may have gone away meanwhile.
    if (!select(former_)) drawable = {};
}

void yyi2e(int x, int y, float& gx, float& gy) {
    const auto scaled = [](int value, int size) {
        return size > 1 ? static_cast<float>(value) / static_cast<float>(size - 1) : 0.0f;
    };
    gx = scaled(x, drawable.width);
    gy = scaled(y, drawable.height);
}

void yygrselectwindow(int window) {
    if (!select({.type = DrawableType::Window, .number = window})) drawable = {};
}

void yygrselectnone() { drawable = {}; }

void yygrforgetbitmap(int handle) {
    if (drawable.type == DrawableType::Bitmap && drawable.number == handle) yygrselectnone();
}

void yygrforgetdialog(int identifier) {
    if (drawable.type == DrawableType::Field && drawable.dialog == identifier) yygrselectnone();
}

std::vector<std::uint8_t> yygrreadrows(int top, int rows) {
    refresh_drawable();
    const Drawable from = selected_x_drawable();
    const int first = std::max(top, 0);
    const int count = std::min(drawable.height - first, rows - (first - top));
    if (from == 0 || !drawable.visual || drawable.width < 1 || count < 1) return {};
    gl_finish();
    XImage* image = image_of(from, first, count);
    if (!image) return {};
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(drawable.width) * static_cast<std::size_t>(count) * 3);
    Row row(static_cast<std::size_t>(drawable.width));
    for (int y = 0; y < count; ++y) {
        for (int x = 0; x < drawable.width; ++x)
            row[static_cast<std::size_t>(x)] = XGetPixel(image, x, y);
        if (drawable.visual->c_class == TrueColor)
            append_by_masks(row, *drawable.visual, bytes);
        else
            append_by_colormap(row, drawable.colormap, bytes);
    }
    XDestroyImage(image);
    return bytes;
}

void igrselect(int type, std::optional<int> number) {
    yygrselectnone();
    if (select(requested(type, number))) return;
    yygrselectwindow(wCurrentWindow);
    yyerror(InvalidDrawable, "IGrSelect", type, number.value_or(0));
}

int winfodrawable(int item) {
    refresh_drawable();
    switch (item) {
        case 1:
            return static_cast<int>(drawable.type);
        case 2:
            return drawable.number;
        case 3:
            return drawable.dialog;
        case 4:
            return drawable.width;
        case 5:
            return drawable.height;
        default:
            return 0;
    }
}

}  // namespace tesserakit
