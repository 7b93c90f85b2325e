#include "toolkit/editor/editor_commands.hpp"

#include "toolkit/base/mailbox.hpp"
#include "toolkit/editor/clipboard.hpp"
#include "toolkit/editor/documents.hpp"
#include "toolkit/editor/editor_bars.hpp"
#include "toolkit/editor/line_commands.hpp"
#include "toolkit/editor/search_dialogs.hpp"
#include "toolkit/editor/text_area.hpp"
#include "toolkit/editor/wide_text.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/Text.h>

#include <algorithm>
#include <array>

namespace tesserakit {

namespace {

namespace item = editor_item;

// File

void save(EditorRecord& editor) { save_document(editor); }
void save_as(EditorRecord& editor) { save_document_as(editor); }
void leave(EditorRecord& editor) { yyEditFileExit(editor); }

/// Behind the last text of a window that can open no other there is nothing to stay for.
void close(EditorRecord& editor) {
    const bool opens = editor_may_edit(editor.flags) && (editor.flags & editor_flag::no_open) == 0;
    if (close_document(editor) == Closed::Last && !opens) yyEditFileExit(editor);
}

// Edit

void copy(EditorRecord& editor) {
    const TextSelection selected = selection_of(editor);
    if (selected.begin == selected.end) return;
    copy_to_clipboard(utf8_text(text_piece(editor, selected.begin, selected.end)));
}

void cut(EditorRecord& editor) {
    if (!editor_may_edit(editor.flags)) return;
    copy(editor);
    XmTextRemove(editor.text);
}

void paste(EditorRecord& editor) { XmTextPaste(editor.text); }
void remove(EditorRecord& editor) { XmTextRemove(editor.text); }

// Search

void set_bookmark(EditorRecord& editor) {
    editor.document.bookmark = caret_of(editor);
    show_state(editor);
}

void go_to_bookmark(EditorRecord& editor) {
    if (editor.document.bookmark) go_to(editor, *editor.document.bookmark);
}

constexpr struct {
    int item;
    void (*handler)(EditorRecord& editor);
} commands[]{
    {item::new_file, new_document},
    {item::open, open_document},
    {item::close, close},
    {item::save, save},
    {item::save_as, save_as},
    {item::exit, leave},
    {item::cut, cut},
    {item::copy, copy},
    {item::paste, paste},
    {item::remove, remove},
    {item::select_all, select_all_text},
    {item::find, show_find},
    {item::find_next, yyEditFindNext},
    {item::replace, show_replace},
    {item::set_bookmark, set_bookmark},
    {item::goto_bookmark, go_to_bookmark},
};

// Lines

/// Only the lines that a command may look at are fetched: those of the selection, and one more on
/// either side.
void edit_selected_lines(EditorRecord& editor, LineCommand command) {
    if (!editor_may_edit(editor.flags)) return;
    const TextSelection selected = selection_of(editor);
    const std::size_t first = editor.lines.place_of(selected.begin).line;
    const std::size_t last = editor.lines.place_of(selected.end).line;
    const std::size_t begin = editor.lines.start_of(std::max<std::size_t>(first, 2) - 1);
    const std::size_t end =
        std::min(editor.lines.end_of(std::min(last + 1, editor.lines.line_count())) + 1,
                 editor.lines.length());
    const std::wstring piece =
        editor.document.marks.with_marks(begin, text_piece(editor, begin, end));
    const auto edit = edit_lines(command, piece, {selected.begin - begin, selected.end - begin});
    if (!edit) return;
    replace_piece(editor, begin + edit->begin, begin + edit->end, edit->text);
    select_piece(editor, {begin + edit->selection.begin, begin + edit->selection.end});
}

bool is_own(int item) { return item >= item::file && item < item::first_buffer + most_buffers; }

}  // namespace

bool yyEditInterpretMessage(EditorRecord& editor, int item) {
    const auto row =
        std::ranges::find_if(commands, [item](const auto& each) { return each.item == item; });
    if (row != std::end(commands)) {
        row->handler(editor);
    } else if (const auto command = line_command_of(item)) {
        edit_selected_lines(editor, *command);
    } else if (item >= item::first_buffer && item < item::first_buffer + most_buffers) {
        switch_document(editor, item - item::first_buffer);
    } else {
        return is_own(item);
    }
    return true;
}

bool yyEditFileExit(EditorRecord& editor) {
    if (!may_close(editor)) return false;
    const int window = editor.window;
    const bool modal = editor.mode == DialogModal;
    yyclosechild(window);
    if (modal) bModalMessageLoop = false;
    // The application learns that the window is gone.
    yyDGSendTesserakitMessage(nullptr, {.type = CloseRequest, .win = window});
    return true;
}

}  // namespace tesserakit
