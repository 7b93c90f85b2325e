// Waiting for time or for the connection, with exposures served meanwhile.

#include "toolkit/base/display.hpp"
#include "toolkit/messages/event_core.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/event_masks.hpp"

#include <X11/Xlib.h>

#include <algorithm>
#include <chrono>

namespace tesserakit {

namespace {

using Clock = std::chrono::steady_clock;

int milliseconds_until(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left, 0, 3600000));
}

/// Events that ioswait serves: repainting by the toolkit, and what the window manager does to map
/// a window. Input, new sizes and exposures of what the application draws wait for its next poll.
Bool served_while_waiting(Display* display, XEvent* event, XPointer) {
    switch (event->type) {
        case Expose:
            return !draws_for_application(display, event->xexpose.window);
        case GraphicsExpose:
        case NoExpose:
        case VisibilityNotify:
        case MapNotify:
        case UnmapNotify:
        case ReparentNotify:
        case PropertyNotify:
            return True;
        default:
            return False;
    }
}

}  // namespace

void ioswait(int milliseconds) {
    if (!yydisplay.display) return;
    const auto end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
    do {
        XEvent event;
        while (XCheckIfEvent(yydisplay.display, &event, served_while_waiting, nullptr)) {
            // Menu and status bars have no widgets; of what is served this raises no message.
            if (event.type == Expose) yyMSInterpretMessageCore(event);
            XtDispatchEvent(&event);
        }
        if (XtAppPending(yydisplay.app) & ~XtInputMask{XtIMXEvent})
            XtAppProcessEvent(yydisplay.app, XtIMAll & ~XtInputMask{XtIMXEvent});
        yywaitdisplay(std::min(milliseconds_until(end), idle_tick_ms));
    } while (Clock::now() < end);
}

void wmessagewait(int milliseconds) {
    if (!yydisplay.display || milliseconds <= 0 || message_waiting()) return;
    if (XtAppPending(yydisplay.app) != 0) return;
    yywaitdisplay(milliseconds);
}

}  // namespace tesserakit
