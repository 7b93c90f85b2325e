/// Which events the X windows ask for, by the messages that are enabled.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Selects on a widget what the enabled messages need. With `all` false key presses, key releases
/// and plain motion are left out: a user-drawn field that asks for no motion. Exposures of
/// widgets that paint themselves stay as they are.
void apply_message_mask(Widget widget, bool all = true);

/// The same for all client windows and user-drawn fields, after a switch has changed; `grabbed`:
/// also for the grab of a button that is held.
void apply_message_masks(bool grabbed);

/// Whether the application draws this window itself: a client window or a user-drawn field. Makes
/// no request, so that it may be asked while the event queue is being searched.
bool draws_for_application(Display* display, Window window);

}  // namespace tesserakit
