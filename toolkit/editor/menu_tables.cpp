#include "toolkit/editor/menu_tables.hpp"

#include "toolkit/editor/line_commands.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

namespace tesserakit {

namespace {

namespace item = editor_item;

// Keysyms. Letters and digits are themselves.
constexpr unsigned long key_f2 = 0xffbf;
constexpr unsigned long key_f3 = 0xffc0;
constexpr unsigned long key_f12 = 0xffc9;
constexpr unsigned long key_delete = 0xffff;
constexpr unsigned long key_keypad_delete = 0xff9f;

/// Availability of rows. What a class asks of the flags: is_available.
enum RowClass : int {
    ForAll,
    Opening,
    Saving,
    SavingAs,
    Printing,
    Editing,
    LeavingEditor,  ///< with a question about changes
    LeavingBrowser,
    LeavingUnsaved,  ///< changes can't be saved, so nothing is asked
};

bool is_set(int flags, int bit) { return (flags & bit) != 0; }

bool is_available(int row_class, int flags) {
    const bool browse = is_set(flags, editor_flag::browse);
    switch (row_class) {
        case Opening:
            return !browse && !is_set(flags, editor_flag::no_open);
        case Saving:
            return !browse && !is_set(flags, editor_flag::no_save);
        case SavingAs:
            return !browse && !is_set(flags, editor_flag::no_save_as);
        case Printing:
            return !is_set(flags, editor_flag::no_print);
        case Editing:
            return !browse;
        case LeavingEditor:
            return editor_may_save(flags);
        case LeavingBrowser:
            return browse;
        case LeavingUnsaved:
            return !browse && !editor_may_save(flags);
        default:
            return true;
    }
}

constexpr int control = AcceleratorControl;
constexpr int shift = AcceleratorShift;
constexpr bool greyed = true;

// The order is the menu's. What can be chosen at the start is told for an empty text.
// clang-format off
constexpr std::array<DynamicMenuRow, 31> menu_rows{{
    // class, depth, label, mnemonic, prompt, greyed, identifier, state, modifiers, keysym, second
    {ForAll, 0, "File", 0, "", false, item::file},
    {Opening, 1, "New\tCtrl+N", 0, "Creates a new document", false, item::new_file, -1, control, 'n'},
    {Opening, 1, "Open\tCtrl+O", 0, "Opens an existing document", false, item::open, -1, control, 'o'},
    {ForAll, 1, "Close", 0, "Closes the active document", false, item::close},
    {ForAll, 1},
    {Saving, 1, "Save\tCtrl+S", 0, "Saves the active document", false, item::save, -1, control, 's'},
    {SavingAs, 1, "Save As\tF12", 5, "Saves the active document with a new name", false, item::save_as, -1, 0, key_f12},
    {ForAll, 1},
    {Printing, 1, "Print\tCtrl+P", 0, "Prints the active document", greyed, item::print, -1, control, 'p'},
    {Printing, 1, "Print Selection", 1, "Prints the selected text", greyed, item::print_selection},
    {ForAll, 1},
    {LeavingEditor, 1, "Exit", 1, "Closes the editor; prompts you to save changes", false, item::exit},
    {LeavingBrowser, 1, "Exit", 1, "Closes the browser;", false, item::exit},
    {LeavingUnsaved, 1, "Exit", 1, "Closes the editor", false, item::exit},

    {ForAll, 0, "Edit", 0, "", false, item::edit},
    {Editing, 1, "Cut\tCtrl+X", 2, "Moves the selected text to the clipboard", greyed, item::cut, -1, control, 'x'},
    {ForAll, 1, "Copy\tCtrl+C", 0, "Copies the selected text to the clipboard", greyed, item::copy, -1, control, 'c'},
    {Editing, 1, "Paste\tCtrl+V", 0, "Inserts the text of the clipboard at the cursor", false, item::paste, -1, control, 'v'},
    {Editing, 1, "Delete\tDel", 0, "Deletes the selected text", greyed, item::remove, -1, 0, key_delete, key_keypad_delete},
    {ForAll, 1},
    {ForAll, 1, "Select All\tCtrl+A", 7, "Selects the whole document", greyed, item::select_all, -1, control, 'a'},

    {ForAll, 0, "Search", 0, "", false, item::search},
    {ForAll, 1, "Find\tCtrl+F", 0, "Finds the specified text", false, item::find, -1, control, 'f'},
    {ForAll, 1, "Find Next\tF3", 5, "Finds the next match of the text", false, item::find_next, -1, 0, key_f3},
    {ForAll, 1},
    {Editing, 1, "Replace\tCtrl+H", 0, "Replaces specific text with different text", false, item::replace, -1, control, 'h'},
    {ForAll, 1},
    {ForAll, 1, "Set Bookmark\tShift+F2", 0, "Bookmarks the current cursor position", false, item::set_bookmark, -1, shift, key_f2},
    {ForAll, 1, "Goto Bookmark\tF2", 0, "Moves the cursor to the bookmark", greyed, item::goto_bookmark, -1, 0, key_f2},

    {ForAll, 0, "View", 0, "", false, item::view},
    {ForAll, 1, "1\tUntitled", 0, "Shows this document", false, item::first_buffer, 1},
}};

constexpr std::array<DynamicMenuRow, 15> popup_rows{{
    {Editing, 0, "Cut", -1, "", greyed, item::cut},
    {ForAll, 0, "Copy", -1, "", greyed, item::copy},
    {Editing, 0, "Paste", -1, "", false, item::paste},
    {Editing, 0, "Delete", -1, "", greyed, item::remove},
    {Editing, 0, "Delete Line", -1, "", false, static_cast<int>(LineCommand::DeleteLine)},
    {Editing, 0, "Join Lines", -1, "", false, static_cast<int>(LineCommand::JoinLines)},
    {Editing, 0, "Transpose Lines", -1, "", false, static_cast<int>(LineCommand::TransposeLines)},
    {Editing, 0, "Indent", -1, "", false, static_cast<int>(LineCommand::Indent)},
    {Editing, 0, "Unindent", -1, "", false, static_cast<int>(LineCommand::Unindent)},
    {Editing, 0, "Comment", -1, "", false, static_cast<int>(LineCommand::Comment)},
    {Editing, 0, "Uncomment", -1, "", false, static_cast<int>(LineCommand::Uncomment)},
    {Editing, 0, "Upper Case", -1, "", false, static_cast<int>(LineCommand::UpperCase)},
    {Editing, 0, "Lower Case", -1, "", false, static_cast<int>(LineCommand::LowerCase)},
    {Editing, 0, "Invert Case", -1, "", false, static_cast<int>(LineCommand::InvertCase)},
    {ForAll, 0, "Select All", -1, "", greyed, item::select_all},
}};

constexpr std::array<DynamicToolbarRow, 11> toolbar_rows{{
    {item::new_file, "New"},
    {item::open, "Open"},
    {item::save, "Save"},
    {},
    {item::print, "Print"},
    {},
    {item::find, "Find"},
    {},
    {item::cut, "Cut"},
    {item::copy, "Copy"},
    {item::paste, "Paste"},
}};
// clang-format on

constexpr std::array state_items{item::cut, item::copy, item::remove, item::select_all,
                                 item::goto_bookmark};

std::unique_ptr<MenuRecord> load(std::span<const DynamicMenuRow> rows, int flags) {
    auto record = yymnloaddynamicmenu(
        rows, [flags](int row_class) { return is_available(row_class, flags); });
    yymnloaddynamicaccel(*record, rows);
    return record;
}

/// "2\tname.gwr": without its folder, which the window's title tells.
std::string label_of(const ViewEntry& entry) {
    std::string name = entry.name.substr(entry.name.rfind('/') + 1);
    if (name.empty()) name = "Untitled";
    std::ranges::replace_if(
        name, [](char c) { return c == '\t' || c == '\b'; }, ' ');
    return std::to_string(entry.slot + 1) + '\t' + name;
}

/// Whether the flags forbid an item, in the menu or elsewhere.
bool is_forbidden(int identifier, int flags) {
    const auto has_it = [=](const DynamicMenuRow& row) { return row.identifier == identifier; };
    const auto is_there = [=](const DynamicMenuRow& row) {
        return has_it(row) && is_available(row.availability, flags);
    };
    return std::ranges::any_of(menu_rows, has_it) && std::ranges::none_of(menu_rows, is_there);
}

}  // namespace

std::unique_ptr<MenuRecord> editor_menu(int flags, std::span<const ViewEntry> entries) {
    if (entries.empty()) return load(menu_rows, flags);
    std::vector<DynamicMenuRow> rows;
    std::vector<std::string> labels;
    std::ranges::transform(entries, std::back_inserter(labels), label_of);
    for (const DynamicMenuRow& row : menu_rows) {
        if (row.identifier != item::first_buffer) {
            rows.push_back(row);
            continue;
        }
        for (std::size_t i = 0; i < entries.size(); ++i) {
            rows.push_back(row);
            rows.back().label = labels[i];
            rows.back().identifier = item::first_buffer + entries[i].slot;
            rows.back().state = entries[i].current ? 1 : 0;
        }
    }
    return load(rows, flags);
}

std::unique_ptr<MenuRecord> editor_popup(int flags) { return load(popup_rows, flags); }

std::vector<DynamicToolbarRow> editor_toolbar(int flags) {
    std::vector<DynamicToolbarRow> rows(toolbar_rows.begin(), toolbar_rows.end());
    for (DynamicToolbarRow& row : rows)
        row.greyed = editor_item_greyed(row.identifier, flags, EditorState{});
    return rows;
}

bool editor_item_greyed(int identifier, int flags, const EditorState& state) {
    if (is_forbidden(identifier, flags)) return true;
    switch (identifier) {
        case item::print:
        case item::print_selection:
            return true;  // no printer drivers
        case item::cut:
        case item::copy:
        case item::remove:
            return !state.selection;
        case item::select_all:
            return !state.text;
        case item::goto_bookmark:
            return !state.bookmark;
        default:
            return false;
    }
}

std::span<const int> editor_state_items() { return state_items; }

}  // namespace tesserakit
