/// The dialogs' side of windows, messages, drawables and the OpenGL target (what each function
/// does: windows/dialog_hooks.hpp).
#pragma once

namespace tesserakit {

/// Fills the record of what the rooms below ask of the dialogs.
void install_dialogs();

}  // namespace tesserakit
