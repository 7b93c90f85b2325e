/// What the items of the menu and the buttons of the toolbars do.
#pragma once

#include "common/safe_file.hpp"

namespace gemwright {

/// The command of a menu item or toolbar button; false, and nothing done, for an identifier that
/// has none. Leaves the main dialog selected.
bool run_command(int item);

/// Reads the file named by current_file_name into the model, the dialogs and the view. The outcome
/// is that of wcfgl_io::read_gwr_file.
safe_file::Outcome open_current_file();

}  // namespace gemwright
