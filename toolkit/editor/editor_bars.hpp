/// The bars of an editor window, and what they show of its text: menu, toolbar, status bar, title.
#pragma once

#include "toolkit/editor/editor_record.hpp"

#include <cstddef>
#include <string_view>

namespace tesserakit {

/// Builds the toolbar and the status bar.
void create_editor_bars(EditorRecord& editor);
/// Builds the menu, with the View entries as they are now and the user's own menu behind.
void renew_editor_menu(EditorRecord& editor);
/// The name of the document's file, or what stands for one.
std::string_view name_of(const TextBuffer& document);
/// The window's title with the name of the document.
void show_document_name(const EditorRecord& editor);

/// Line and column of the caret; nothing is drawn while they stay the same.
void show_place(EditorRecord& editor, std::size_t caret);
/// "INS" or "OVR".
void show_overwrite(const EditorRecord& editor);
/// A word to the user, at the left of the status bar, until the next one.
void show_note(const EditorRecord& editor, std::string_view note);

/// Greys what can't be chosen at the moment in the menu and on the toolbar.
void show_state(EditorRecord& editor);
/// The pop-up of the right button, greyed as the menu is.
void pop_up_menu(EditorRecord& editor, int x, int y);

}  // namespace tesserakit
