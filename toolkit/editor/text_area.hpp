/// The text widget of an editor window: what is in it, what is selected, what is in sight.
///
/// Each change, whoever makes it, goes to the line table, the marks and the bookmark by the
/// widget's own callbacks, with what was removed and inserted: the whole text is never fetched for
/// it. Positions are characters, from 0.
#pragma once

#include "toolkit/editor/editor_record.hpp"
#include "toolkit/editor/line_commands.hpp"

#include <X11/Intrinsic.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace tesserakit {

/// Keys and buttons that the widget hands on: 's' Escape, 'p' the right button, 'x' and 'c' the
/// keys that cut and copy beside those of the menu.
using TextAreaKey = void (*)(EditorRecord& editor, char key, const XEvent& event);

/// Creates the widget, in the place of the window's client area.
void create_text_area(EditorRecord& editor, TextAreaKey key);

/// The whole text as UTF-8.
std::string whole_text(const EditorRecord& editor);
/// Puts another text (valid UTF-8) with its marks in the place of all there is: it counts as
/// unmodified, its bookmark is none, and the caret stands at its beginning.
void put_whole_text(EditorRecord& editor, const std::string& text, ByteMarks marks);

std::size_t text_length(const EditorRecord& editor);
std::wstring text_piece(const EditorRecord& editor, std::size_t begin, std::size_t end);
/// Puts coded text (byte_marks.hpp) in the place of a piece.
void replace_piece(EditorRecord& editor, std::size_t begin, std::size_t end,
                   std::wstring_view coded_text);

std::size_t caret_of(const EditorRecord& editor);
/// The caret where nothing is selected.
TextSelection selection_of(const EditorRecord& editor);
/// Selects, or places the caret where begin and end are the same; the text stays where it is.
void select_piece(EditorRecord& editor, const TextSelection& piece);
void select_all_text(EditorRecord& editor);
/// Places the caret, and scrolls to it.
void go_to(EditorRecord& editor, std::size_t position);

std::size_t top_of(const EditorRecord& editor);
void set_top(EditorRecord& editor, std::size_t position);

}  // namespace tesserakit
