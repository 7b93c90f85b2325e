/// The editor's built-in menu, toolbar and pop-up as rows, and what of them is there by the flags
/// that the editor was opened with, or greyed by its state. No X here.
#pragma once

#include "toolkit/menus/menu_record.hpp"
#include "toolkit/menus/toolbars.hpp"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tesserakit {

/// Bits of weditfile's flags.
namespace editor_flag {
inline constexpr int filter_file = 2;
inline constexpr int browse = 4;
inline constexpr int no_open = 256;  ///< neither New nor Open
inline constexpr int no_save_as = 512;
inline constexpr int no_print = 1024;
inline constexpr int no_save = 8192;
inline constexpr int restore_graphics = 16384;
}  // namespace editor_flag

namespace editor_item {
inline constexpr int file = 32100;
inline constexpr int new_file = 32101;
inline constexpr int open = 32102;
inline constexpr int save = 32103;
inline constexpr int save_as = 32104;
inline constexpr int print = 32105;
inline constexpr int print_selection = 32106;
inline constexpr int close = 32107;
inline constexpr int exit = 32108;
inline constexpr int edit = 32120;
inline constexpr int cut = 32122;
inline constexpr int copy = 32123;
inline constexpr int paste = 32124;
inline constexpr int remove = 32125;
inline constexpr int select_all = 32126;
inline constexpr int search = 32140;
inline constexpr int find = 32141;
inline constexpr int find_next = 32142;
inline constexpr int replace = 32143;
inline constexpr int set_bookmark = 32147;
inline constexpr int goto_bookmark = 32148;
inline constexpr int view = 32180;
inline constexpr int first_buffer = 32181;  ///< and the slot of the buffer
}  // namespace editor_item

/// Strip and size of the toolbar's pictures in pixels.
inline constexpr int editor_toolbar_strip = 32102;
inline constexpr int editor_toolbar_picture = 16;

/// A line of the View menu.
struct ViewEntry {
    int slot = 0;
    std::string name;  ///< of the file; empty for a text without one
    bool current = false;
};

/// The whole menu with prompts and accelerators; no entry counts as one text without a name.
std::unique_ptr<MenuRecord> editor_menu(int flags, std::span<const ViewEntry> entries);

/// The pop-up of the right button, without what changes text in a browser.
std::unique_ptr<MenuRecord> editor_popup(int flags);

/// The toolbar's rows with the greying of the start: all of them, whatever the flags forbid.
std::vector<DynamicToolbarRow> editor_toolbar(int flags);

/// What decides whether an item can be chosen.
struct EditorState {
    bool selection = false;  ///< something is selected
    bool text = false;       ///< the text isn't empty
    bool bookmark = false;   ///< one is set
};
/// Whether an item of the menu, the pop-up or the toolbar is greyed at the moment, for good where
/// the flags forbid it; false for an identifier of others.
bool editor_item_greyed(int identifier, int flags, const EditorState& state);
/// The items whose greying follows the state.
std::span<const int> editor_state_items();

/// Whether the text can be changed.
constexpr bool editor_may_edit(int flags) { return (flags & editor_flag::browse) == 0; }
/// Whether changes can be saved under one name or another: without that, closing asks nothing.
constexpr bool editor_may_save(int flags) {
    constexpr int neither = editor_flag::no_save | editor_flag::no_save_as;
    return editor_may_edit(flags) && (flags & neither) != neither;
}

}  // namespace tesserakit
