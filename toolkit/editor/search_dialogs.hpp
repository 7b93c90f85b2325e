/// Searching in an editor's text: the dialogs Find and Replace, and what their buttons do.
///
/// There is one of each dialog, which belongs to the editor that has shown it last.
#pragma once

#include "toolkit/base/mailbox.hpp"
#include "toolkit/editor/editor_record.hpp"

namespace tesserakit {

void show_find(EditorRecord& editor);
void show_replace(EditorRecord& editor);
/// yyEditFindNext: selects the next match in the direction of the last search, and brings it into
/// sight; without a text to search for the dialog comes up. That there is none is told.
void yyEditFindNext(EditorRecord& editor);

/// A message of one of the two dialogs, which ends here; false for any other.
bool search_message(const Mail& mail);
/// Hides them where they are this editor's.
void hide_search_dialogs(const EditorRecord& editor);

}  // namespace tesserakit
