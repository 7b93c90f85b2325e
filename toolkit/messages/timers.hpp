/// Timers of the application: they come back as TimerExpired, in order with the user's input.
#pragma once

namespace tesserakit {

extern bool TimerEnabled;  ///< the switch of TimerExpired

/// Data word of the client message that a timer sends to the root window.
inline constexpr long timer_message = 13;

/// A positive interval adds a timer that fires once, or with `repeat` 1 again and again; an
/// interval of 0 or below removes the first timer of that identifier.
void yysettimer(int milliseconds, int identifier, int repeat);
void cancel_timers();

}  // namespace tesserakit
