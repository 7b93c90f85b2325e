#include "toolkit/messages/timers.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <algorithm>
#include <list>

namespace tesserakit {

constinit bool TimerEnabled = true;

namespace {

struct Timer {
    int milliseconds = 0;
    int identifier = 0;
    bool repeat = false;
    XtIntervalId id = 0;
};

struct State {
    std::list<Timer> timers;
};
State& state = *new State;

void yytimersignal(XtPointer closure, XtIntervalId*);

void arm(Timer& timer) {
    timer.id = XtAppAddTimeOut(yydisplay.app, static_cast<unsigned long>(timer.milliseconds),
                               yytimersignal, &timer);
}

/// Sent through the server, so that it is in order with what the user does.
void send_timer_message(int identifier) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = windows[0].window;
    event.xclient.message_type = yydisplay.wm_protocols;
    event.xclient.format = 32;
    event.xclient.data.l[0] = timer_message;
    event.xclient.data.l[1] = identifier;
    XSendEvent(yydisplay.display, windows[0].window, False, NoEventMask, &event);
}

void yytimersignal(XtPointer closure, XtIntervalId*) {
    Timer& timer = *static_cast<Timer*>(closure);
    const int identifier = timer.identifier;
    if (timer.repeat) {
        arm(timer);
    } else {
        state.timers.remove_if([&timer](const Timer& other) { return &other == &timer; });
    }
    if (windows[0].open()) send_timer_message(identifier);
}

}  // namespace

void yysettimer(int milliseconds, int identifier, int repeat) {
    if (milliseconds > 0) {
        arm(state.timers.emplace_back(Timer{milliseconds, identifier, repeat == 1}));
        return;
    }
    const auto found = std::ranges::find(state.timers, identifier, &Timer::identifier);
    if (found == state.timers.end()) return;
    XtRemoveTimeOut(found->id);
    state.timers.erase(found);
}

void cancel_timers() {
    for (const Timer& timer : state.timers) XtRemoveTimeOut(timer.id);
    state.timers.clear();
}

}  // namespace tesserakit
