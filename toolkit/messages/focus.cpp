#include "toolkit/messages/focus.hpp"

#include "toolkit/base/display.hpp"

#include <Xm/Xm.h>

#include <utility>

namespace tesserakit {

namespace {

struct State {
    Window borrower = 0;  // a menu's, 0 while none has the keyboard
    Window lender = 0;
    int revert = RevertToParent;
};
constinit State state{};

bool within(Widget widget, Widget ancestor) {
    while (widget && widget != ancestor) widget = XtParent(widget);
    return widget;
}

}  // namespace

void take_focus(const WindowSlot& slot, Time time) {
    XSetInputFocus(yydisplay.display, slot.client, RevertToParent, time);
    XmProcessTraversal(slot.client_widget, XmTRAVERSE_CURRENT);
}

void yyfocustosubwin(const XFocusChangeEvent& event) {
    if (event.mode != NotifyNormal && event.mode != NotifyGrab && event.mode != NotifyUngrab)
        return;
    // Any other detail tells of a focus on its way to or from the client. To answer those, too,
    // would set two windows to taking the focus from each other for ever.
    if (event.detail != NotifyAncestor && event.detail != NotifyNonlinear) return;
    const WindowOwner owner = yygetparenthandle(event.window);
    if (owner.window < 0 || owner.kind != WindowKind::Frame) return;
    const WindowSlot& slot = window_slot(owner.window);
    if (event.window == slot.shell && slot.type == WindowType::Plain) take_focus(slot, CurrentTime);
}

void lend_focus(Window menu) {
    if (state.borrower == 0) XGetInputFocus(yydisplay.display, &state.lender, &state.revert);
    state.borrower = menu;
    XSetInputFocus(yydisplay.display, menu, RevertToParent, CurrentTime);
}

void return_focus() {
    const Window borrower = std::exchange(state.borrower, 0);
    if (borrower == 0) return;
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    if (focus != borrower) return;
    // The lender may be gone.
    const ErrorTrap trap;
    XSetInputFocus(yydisplay.display, state.lender, state.revert, CurrentTime);
}

void repeat_focus(Widget leaving) {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    const Widget widget =
        focus > PointerRoot ? XtWindowToWidget(yydisplay.display, focus) : nullptr;
    if (!widget || within(widget, leaving)) return;
    XSetInputFocus(yydisplay.display, PointerRoot, RevertToPointerRoot, CurrentTime);
    XSetInputFocus(yydisplay.display, focus, revert, CurrentTime);
}

}  // namespace tesserakit
