#include "toolkit/windows/window_placing.hpp"

#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/IntrinsicP.h>
#include <Xm/Xm.h>

#include <algorithm>

namespace tesserakit {

namespace {

void hold_size(const WindowSlot& slot, bool free) {
    if ((slot.flags & WindowFixedSize) != 0) return;
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(slot.shell_widget, XmNwidth, &width, XmNheight, &height, nullptr);
    const int none = XtUnspecifiedShellInt;
    XtVaSetValues(slot.shell_widget, XmNminWidth, free ? none : width, XmNmaxWidth,
                  free ? none : width, XmNminHeight, free ? none : height, XmNmaxHeight,
                  free ? none : height, nullptr);
}

}  // namespace

Dimension dimension(int value) { return static_cast<Dimension>(std::clamp(value, 1, 32767)); }

Surroundings surroundings_of(int window) {
    const WindowSlot& slot = window_slot(window);
    Surroundings around;
    around.menu_height = menu_hooks.height(window);
    around.status_height = slot.status_bar ? isbarHeight() : 0;
    for (int side = 0; side < 4; ++side)
        around.toolbar[side] = menu_hooks.toolbar_thickness(side, window);
    return around;
}

/// What a window will have around its client area, before it is built.
Surroundings surroundings_of(const WindowRequest& request, int client_width) {
    Surroundings around;
    around.status_height = (request.flags & WindowStatusBar) != 0 ? isbarHeight() : 0;
    for (int side = 0; side < 4; ++side)
        around.toolbar[side] =
            menu_hooks.toolbar_thickness_of(side, request.toolbars[static_cast<std::size_t>(side)]);
    around.menu_height = menu_hooks.height_of(request.menu, client_width + around.horizontal());
    return around;
}

bool yywindowresize(int window, int shell_width, int shell_height) {
    WindowSlot& slot = window_slot(window);
    menu_hooks.resize(window, shell_width);
    const WindowLayout layout = layout_window(shell_width, shell_height, surroundings_of(window));
    for (int side = 0; side < 4; ++side)
        menu_hooks.toolbar_resize(side, window, layout.toolbar[side]);
    const auto place = [](Widget widget, const Box& box) {
        XtConfigureWidget(widget, static_cast<Position>(box.x), static_cast<Position>(box.y),
                          dimension(box.width), dimension(box.height), 0);
    };
    if (slot.status_bar) {
        place(slot.status_bar->widget, layout.status);
        yystatusbarresize(*slot.status_bar, layout.status.width);
    }
    const Box& client = layout.client;
    place(slot.client_widget, client);
    if (slot.content) place(slot.content, client);
    if (slot.dialog >= 0)
        dialog_hooks.host_place(slot.dialog, client.x, client.y, client.width, client.height);
    const bool changed = slot.width != client.width || slot.height != client.height;
    slot.width = client.width;
    slot.height = client.height;
    return changed;
}

void yywindowreplace(int window) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(window_slot(window).shell_widget, XmNwidth, &width, XmNheight, &height, nullptr);
    yywindowresize(window, width, height);
}

void yywindowfit(int window, int client_width, int client_height) {
    const Surroundings around = surroundings_of(window);
    const int width = client_width + around.horizontal();
    const int height = client_height + around.vertical();
    const WindowSlot& slot = window_slot(window);
    XtVaSetValues(slot.shell_widget, XmNwidth, dimension(width), XmNheight, dimension(height),
                  nullptr);
    yywindowresize(window, width, height);
}

void yyMSWindowUpdateResize(bool (*may_resize)(int window)) {
    for (int i = 0; i < window_slots; ++i)
        if (window_slot(i).open()) hold_size(window_slot(i), may_resize(i));
}

}  // namespace tesserakit
