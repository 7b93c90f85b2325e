/// What an editor window consists of: the record in its window slot's extension.
///
/// One text is in the widget, `document` without its own copy of it; the texts of the View menu
/// that are not shown stand in `buffers`. Positions are the text widget's: characters, from 0.
#pragma once

#include "toolkit/base/fonts.hpp"
#include "toolkit/editor/buffers.hpp"
#include "toolkit/editor/file_hold.hpp"
#include "toolkit/editor/line_table.hpp"
#include "toolkit/editor/menu_tables.hpp"
#include "toolkit/editor/text_search.hpp"
#include "toolkit/menus/menu_record.hpp"

#include <X11/Intrinsic.h>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace tesserakit {

/// What was searched for last, in Find or in Replace.
struct SearchState {
    std::wstring wanted;
    std::wstring replacement;
    SearchRules rules;
    std::optional<TextMatch> found;  ///< the last match; the text may have changed since
};

struct EditorRecord {
    int window = -1;        ///< slot
    Widget text = nullptr;  ///< TextEdit
    int flags = 0;          ///< editor_flag
    int mode = 2;           ///< DialogMode
    bool overwrite = false;
    bool backup = false;  ///< the old file is kept beside the new one
    std::string title;    ///< of the window, in front of the file's name
    std::string filter;   ///< of the file boxes
    TextFont font;        ///< its own; no table where it has the toolkit's
    std::unique_ptr<MenuRecord> user_menu;

    TextBuffer document;
    int slot = 0;  ///< of the document, in the buffers
    TextBuffers buffers;
    std::array<FileHold, most_buffers> holds;  ///< by slot
    LineTable lines;
    SearchState search;

    std::optional<TextPlace> shown_place;    ///< by the status bar
    std::optional<EditorState> shown_state;  ///< by the menu and the toolbar

    EditorRecord() = default;
    ~EditorRecord() {
        if (font.table) XmRenderTableFree(font.table);
    }
    EditorRecord(const EditorRecord&) = delete;
    EditorRecord& operator=(const EditorRecord&) = delete;
};

/// The record of a window slot; null for a window that is no editor, and a number that is no slot.
EditorRecord* editor_of(int window);
/// The editor that is the current window, or null with error 1028 under `routine`.
EditorRecord* current_editor(const char* routine);

}  // namespace tesserakit
