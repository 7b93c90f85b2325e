#include "toolkit/windows/drawables.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/widgets/wind.hpp"
#include "toolkit/windows/bitmap_slots.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/StringDefs.h>

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
