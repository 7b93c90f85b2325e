#include "toolkit/windows/window_slots.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/message_hooks.hpp"

#include <algorithm>

namespace tesserakit {

// Never destroyed: at exit the display may be gone.
std::array<WindowSlot, window_slots>& windows = *new std::array<WindowSlot, window_slots>;
constinit int wCurrentWindow = -1;

constinit DialogHooks dialog_hooks{};
constinit MenuHooks menu_hooks{};
constinit MessageHooks message_hooks{};

namespace {

int slot_of_shell(Widget shell) {
    const auto found = std::ranges::find(windows, shell, &WindowSlot::shell_widget);
    return shell && found != windows.end() ? static_cast<int>(found - windows.begin()) : -1;
}

bool holds_status_part(const WindowSlot& slot, Window window) {
    return slot.status_bar &&
           std::ranges::find(slot.status_bar->parts, window, &StatusPart::window) !=
               slot.status_bar->parts.end();
}

WindowKind kind_of(MenuPart part) {
    switch (part) {
        case MenuPart::Bar:
            return WindowKind::MenuBar;
        case MenuPart::PopUp:
            return WindowKind::MenuPopUp;
        case MenuPart::Item:
            return WindowKind::MenuItem;
        default:
            return WindowKind::Unknown;
    }
}

/// Windows that the toolkit draws without a widget.
WindowOwner owner_of_drawn(Window window) {
    if (const MenuWindow menu = menu_hooks.find(window); menu.part != MenuPart::Nothing)
        return {kind_of(menu.part), menu.window, {}};
    for (int i = 0; i < window_slots; ++i)
        if (holds_status_part(window_slot(i), window)) return {WindowKind::StatusBar, i, {}};
    return {};
}

}  // namespace

WindowSlot& window_slot(int window) { return windows[static_cast<std::size_t>(window)]; }

WindowSlot* open_window(int window, std::string_view routine) {
    if (window >= 0 && window < window_slots && window_slot(window).open())
        return &window_slot(window);
    yyerror(InvalidWindow, routine, window);
    return nullptr;
}

int yygetnextfree() {
    for (int i = 1; i < window_slots; ++i)
        if (!window_slot(i).open()) return i;
    return -1;
}

Widget shell_around(Widget widget) {
    while (widget && !XtIsShell(widget)) widget = XtParent(widget);
    return widget;
}

WindowOwner yygetparenthandle(Window window) {
    const Widget widget = XtWindowToWidget(yydisplay.display, window);
    if (!widget) return owner_of_drawn(window);
    WindowOwner owner;
    owner.window = slot_of_shell(shell_around(widget));
    owner.dialog = dialog_hooks.place(widget);
    if (owner.dialog.slot >= 0) {
        owner.kind = WindowKind::Dialog;
    } else if (owner.window >= 0) {
        owner.kind = window_slot(owner.window).client_widget == widget ? WindowKind::Client
                                                                       : WindowKind::Frame;
    }
    return owner;
}

}  // namespace tesserakit
