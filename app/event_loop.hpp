/// The one loop of the program: a message, what it asks for, a frame.
#pragma once

#include <string_view>

namespace gemwright {

/// Opens the display, the root window, all dialogs and the picture, and reads the file named by
/// current_file_name, if it isn't blank; everything but the first frame.
void start_program();

/// Takes over the size of the picture field.
void refresh_screen_size();

/// Serves messages until `ending` is set.
void run_event_loop();

/// Gives the context back and closes all windows.
void end_program();

}  // namespace gemwright
