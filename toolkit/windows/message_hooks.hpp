/// What windows ask of the messages, which stand above them: a record of functions that the
/// messages fill at the start (toolkit/winitialise.cpp).
#pragma once

namespace tesserakit {

struct MessageHooks {
    /// The root window is about to open: all switches begin as they are by default.
    void (*open)() = [] {};
    /// The window manager asks for a window to be closed.
    void (*close_request)(int window) = [](int) {};
    /// A window is about to close: it leaves the semi-modal chain.
    void (*window_closes)(int window) = [](int) {};
    /// All windows have closed: timers end, waiting messages are dropped.
    void (*shut_down)() = [] {};
};
extern MessageHooks message_hooks;

}  // namespace tesserakit
