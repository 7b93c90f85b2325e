/// What an editor has copied, for all programs of the display.
///
/// Motif's own clipboard goes with the text widget, and so with the editor's window: what was
/// copied there would be lost with it. This one belongs to the program.
#pragma once

#include <string>

namespace tesserakit {

/// Makes a UTF-8 text the content of the display's clipboard, until another program has something.
void copy_to_clipboard(std::string text);

}  // namespace tesserakit
