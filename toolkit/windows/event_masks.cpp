#include "toolkit/windows/event_masks.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/windows/dialog_hooks.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <algorithm>

namespace tesserakit {

namespace {

// Event handler that does nothing: it stands for the events that messages are made of, so that
// Xt's own selections on a widget don't drop them.
void wanted(Widget, XtPointer, XEvent*, Boolean*) {}

EventMask message_mask() {
    EventMask mask = ButtonPressMask | FocusChangeMask;
    if (message_enabled(KeyDown)) mask |= KeyPressMask;
    if (message_enabled(MouseButUp)) mask |= ButtonReleaseMask;
    if (message_enabled(MouseMove)) mask |= PointerMotionMask;
    if (message_enabled(ExposeMessage)) mask |= ExposureMask;
    return mask;
}

void change_active_grab() {
    constexpr EventMask grab_bits = ButtonPressMask | ButtonReleaseMask | PointerMotionMask;
    XChangeActivePointerGrab(yydisplay.display, static_cast<unsigned>(message_mask() & grab_bits),
                             0, CurrentTime);
}

}  // namespace

void apply_message_mask(Widget widget, bool all) {
    EventMask mask = message_mask();
    if (!all) mask &= ~EventMask{KeyPressMask | KeyReleaseMask | PointerMotionMask};
    XtRemoveEventHandler(widget, XtAllEvents, True, wanted, nullptr);
    XtAddEventHandler(widget, mask, False, wanted, nullptr);
}

void apply_message_masks(bool grabbed) {
    for (const WindowSlot& slot : windows)
        if (slot.open()) apply_message_mask(slot.client_widget);
    dialog_hooks.apply_message_masks();
    if (grabbed) change_active_grab();
}

bool draws_for_application(Display* display, Window window) {
    const Widget widget = XtWindowToWidget(display, window);
    if (!widget) return false;
    const auto client = [widget](const WindowSlot& slot) { return slot.client_widget == widget; };
    return std::ranges::any_of(windows, client) || dialog_hooks.place(widget).user_drawn;
}

}  // namespace tesserakit
