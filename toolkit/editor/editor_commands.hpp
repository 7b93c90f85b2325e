/// What the items of an editor's menu, pop-up and toolbar do.
#pragma once

#include "toolkit/editor/editor_record.hpp"

namespace tesserakit {

/// False for an item that isn't the editor's own: the application hears of that one. May close the
/// window: the record is gone then.
bool yyEditInterpretMessage(EditorRecord& editor, int item);
/// yyEditFileExit: closes the window, with the question about changes; false when it stays.
bool yyEditFileExit(EditorRecord& editor);

}  // namespace tesserakit
