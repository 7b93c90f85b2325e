/// Rows of the compiled resource block, as the generator writes them and yyrc reads them.
///
/// Every table is closed by a sentinel row (identifier -999, or -1 in strings and toolbars) that
/// ends the ranges of the last owner: the sub-rows of row i are first(i) up to first(i + 1), and
/// a text without terminator ends where the next row's begins. Row indices count from 0; text
/// offsets count characters from 1.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace tesserakit::rows {

inline constexpr int sentinel = -999;
inline constexpr int short_sentinel = -1;

struct MenuRow {
    int identifier;
    int first_item;
};

struct MenuItemRow {
    int identifier;  ///< 0 for a separator
    int flags;       ///< menu_flag
    int next;        ///< row of the next sibling relative to the menu's first, or -1
    int child;       ///< row of the first child, likewise
    int label;       ///< into menu_text, closed by NUL
    int state;       ///< check mark 0 or 1, or -1
};

struct DialogRow {
    int identifier;
    int first_field;
    int width, height;
    int style;
    int flags;
    int resize_field;
    int title;  ///< into titles, no terminator
    // First rows in the tables of the same names.
    int first_checked, first_length, first_range, first_shortcut, first_colour, first_trackbar,
        first_menu, first_progress, first_tab, first_grid, first_tree, first_format;
};

struct FieldRow {
    int identifier;
    int type;  ///< ResourceField
    int x, y, width, height;
    int style, extended_style, third_style;
    int text;  ///< into field_text, closed by NUL; the offset of the row behind means no text
};

struct CheckedRow {
    int field;
};

struct LengthRow {
    int field;
    int length;
};

struct RangeRow {
    int field;
    int pad;  ///< 0; keeps the reals aligned
    double low, high;
};

struct ShortcutRow {
    int field;
    int character;  ///< in the lowest byte
};

struct ColourRow {
    int field;
    std::array<int, 6> components;
};

struct TrackbarRow {
    int field;
    std::array<int, 8> values;
};

struct MenuFieldRow {
    int field;
    int selected;
    int first_item;  ///< into menu_field_items, which holds offsets into menu_field_text
};

struct ProgressRow {
    int field;
    int minimum, maximum, step;
};

struct TabRow {
    int field;
    int selected;  ///< dialog of a page, or 0
    int first_page;
};

struct TabPageRow {
    int dialog;
    int label;  ///< into tab_text, no terminator
};

struct GridRow {
    int field;
    int columns;
    int maximum_rows;
    int template_dialog;
    int row_label_width;
    int first_column;
};

struct GridColumnRow {
    int field;  ///< of the template dialog
    int width;
};

struct TreeRow {
    int field;
    std::array<int, 2> values;
};

struct FormatRow {
    int field;
    int format;  ///< into format_text, no terminator
};

struct ImageRow {
    int identifier;
    int kind;  ///< image_kind
    int width, height;
    int reserved1, reserved2;
    int codes;  ///< into image_pool
};

struct ToolbarRow {
    int identifier;
    int width, height;  ///< of one button
    int first_button;
};

struct StringRow {
    int identifier;
    int text;  ///< into string_text, no terminator
};

struct Tables {
    std::span<const MenuRow> menus;
    std::span<const MenuItemRow> menu_items;
    std::span<const DialogRow> dialogs;
    std::span<const FieldRow> fields;
    std::span<const CheckedRow> checked;
    std::span<const LengthRow> lengths;
    std::span<const RangeRow> ranges;
    std::span<const ShortcutRow> shortcuts;
    std::span<const ColourRow> colours;
    std::span<const TrackbarRow> trackbars;
    std::span<const MenuFieldRow> menu_fields;
    std::span<const int> menu_field_items;
    std::span<const ProgressRow> progress_bars;
    std::span<const TabRow> tabs;
    std::span<const TabPageRow> tab_pages;
    std::span<const GridRow> grids;
    std::span<const GridColumnRow> grid_columns;
    std::span<const TreeRow> trees;
    std::span<const FormatRow> formats;
    std::span<const ImageRow> images;
    std::span<const ToolbarRow> toolbars;
    std::span<const int> toolbar_buttons;
    std::span<const StringRow> strings;
    std::string_view menu_text, titles, field_text, menu_field_text, tab_text, format_text,
        image_pool, string_text;
};

/// Defined by the generated unit.
extern const Tables tables;

}  // namespace tesserakit::rows
