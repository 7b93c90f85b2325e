/// The texts of an editor window and their files: opening, saving, closing, with the questions and
/// the boxes that tell what failed.
#pragma once

#include "toolkit/editor/editor_record.hpp"

#include <string>

namespace tesserakit {

/// The first text of a window: that of a file, or an empty one without a name where there is none
/// or it can't be read, which is told.
void open_first_document(EditorRecord& editor, const std::string& name);
/// A file that the window shows already, or is to show beside its other texts. One that was changed
/// on the disk since it was loaded is loaded anew; with changes of the user's, after a question.
void show_file(EditorRecord& editor, const std::string& name);

void new_document(EditorRecord& editor);
void open_document(EditorRecord& editor);
/// False when it isn't saved: told, or the user's wish. Without a name, and where the flags keep
/// the file from being overwritten, it asks for a name.
bool save_document(EditorRecord& editor);
bool save_document_as(EditorRecord& editor);
/// yyEditSwitchBuffer: shows the text of another slot; nothing for an empty one.
void switch_document(EditorRecord& editor, int slot);

enum class Closed { Nothing, Document, Last };
/// Closes the text that is shown, after the question where it has changes. Behind the last one
/// stands an empty one.
Closed close_document(EditorRecord& editor);
/// Asks about each text with changes; false when the window is to stay.
bool may_close(EditorRecord& editor);

/// A box over the editor's window, with one button.
void tell(const EditorRecord& editor, const std::string& text, const std::string& title);

}  // namespace tesserakit
