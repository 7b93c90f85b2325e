#include "toolkit/resource/generator/tables_writer.hpp"

#include "toolkit/resource/generator/image_file.hpp"
#include "toolkit/resource/rows.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace catalogue {
namespace {

using tesserakit::ResourceField;
using tesserakit::rows::sentinel;
using tesserakit::rows::short_sentinel;

/// A table under way: the text of its rows, and how many there are.
struct Table {
    std::string rows;
    int count = 0;

    template <typename... Numbers>
    void add(Numbers... numbers) {
        rows += "    {";
        (append(numbers), ...);
        rows.replace(rows.size() - 2, 2, "},\n");
        ++count;
    }

private:
    template <typename Number>
    void append(Number number) {
        char digits[40];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        rows.append(digits, end).append(", ");
    }
    template <std::size_t N>
    void append(const std::array<int, N>& numbers) {
        rows += '{';
        for (const int number : numbers) append(number);
        rows.replace(rows.size() - 2, 2, "}, ");
    }
};

/// A text pool under way; offsets count from 1.
struct Pool {
    std::string text;

    int offset() const { return static_cast<int>(text.size()) + 1; }
    int add(std::string_view more) {
        const int at = offset();
        text += more;
        return at;
    }
    /// An empty text leaves nothing, so that its offset is the one of the row behind it.
    int add_closed(std::string_view more) {
        const int at = offset();
        if (!more.empty()) text.append(more).push_back('\0');
        return at;
    }
};

struct Block {
    Table menus, menu_items, dialogs, fields, checked, lengths, ranges, shortcuts, colours,
        trackbars, menu_fields, menu_field_items, progress_bars, tabs, tab_pages, grids,
        grid_columns, trees, formats, images, toolbars, toolbar_buttons, strings;
    Pool menu_text, titles, field_text, menu_field_text, tab_text, format_text, image_pool,
        string_text;
};

/// Row of the next item at the depth of item i under the same parent; -1 for the last.
int next_sibling(const Menu& menu, std::size_t i) {
    for (std::size_t j = i + 1; j < menu.items.size(); ++j) {
        if (menu.items[j].depth < menu.items[i].depth) return -1;
        if (menu.items[j].depth == menu.items[i].depth) return static_cast<int>(j);
    }
    return -1;
}

bool has_child(const Menu& menu, std::size_t i) {
    return i + 1 < menu.items.size() && menu.items[i + 1].depth > menu.items[i].depth;
}

void add_menu(const Menu& menu, Block& block) {
    block.menus.add(menu.identifier, block.menu_items.count);
    for (std::size_t i = 0; i < menu.items.size(); ++i) {
        const MenuItem& item = menu.items[i];
        const bool parent = has_child(menu, i);
        block.menu_items.add(item.identifier,
                             item.flags | (parent ? tesserakit::menu_flag::popup : 0),
                             next_sibling(menu, i), parent ? static_cast<int>(i) + 1 : -1,
                             block.menu_text.add_closed(item.label), item.state);
    }
}

void add_trackbar(const Field& field, Block& block) {
    const int low = static_cast<int>(field.range->first);
    const int high = static_cast<int>(field.range->second);
    const auto [line, page] = field.steps.value_or(std::pair{1, std::max(1, (high - low) / 10)});
    const std::array<int, 8> values{field.value, low, high, page, line, 0, 0, 0};
    block.trackbars.add(field.identifier, values);
}

void add_items(const Field& field, Block& block) {
    block.menu_fields.add(field.identifier, field.selected, block.menu_field_items.count);
    for (const std::string& item : field.items) {
        block.menu_field_items.add(block.menu_field_text.add(item));
    }
}

void add_tab(const Field& field, Block& block) {
    block.tabs.add(field.identifier, field.selected, block.tab_pages.count);
    for (const Page& page : field.pages) {
        block.tab_pages.add(page.dialog, block.tab_text.add(page.label));
    }
}

/// One column for each field of the template dialog, as wide as it is there.
void add_grid(const Field& field, const Catalogue& catalogue, Block& block) {
    const Dialog& row =
        *std::ranges::find(catalogue.dialogs, field.grid.template_dialog, &Dialog::identifier);
    block.grids.add(field.identifier, static_cast<int>(row.fields.size()), field.grid.maximum_rows,
                    row.identifier, field.grid.row_label_width, block.grid_columns.count);
    for (const Field& column : row.fields) block.grid_columns.add(column.identifier, column.width);
}

void add_by_type(const Field& field, const Catalogue& catalogue, Block& block) {
    switch (field.type) {
        case ResourceField::Trackbar:
            return add_trackbar(field, block);
        case ResourceField::Combo:
        case ResourceField::List:
            return add_items(field, block);
        case ResourceField::Tab:
            return add_tab(field, block);
        case ResourceField::Grid:
            return add_grid(field, catalogue, block);
        case ResourceField::TreeView:
            return block.trees.add(field.identifier, std::array<int, 2>{});
        default:
            if (field.range) {
                block.ranges.add(field.identifier, 0, field.range->first, field.range->second);
            }
    }
}

void add_field(const Field& field, const Catalogue& catalogue, Block& block) {
    const int id = field.identifier;
    block.fields.add(id, static_cast<int>(field.type), field.x, field.y, field.width, field.height,
                     field.style, 0, field.third_style, block.field_text.add_closed(field.text));
    if (field.set) block.checked.add(id);
    if (field.length) block.lengths.add(id, *field.length);
    if (field.key)
        block.shortcuts.add(id, static_cast<int>(static_cast<unsigned char>(*field.key)));
    if (field.colour) block.colours.add(id, *field.colour);
    if (field.format) block.formats.add(id, block.format_text.add(*field.format));
    if (field.progress) {
        const auto [minimum, maximum, step] = *field.progress;
        block.progress_bars.add(id, minimum, maximum, step);
    }
    add_by_type(field, catalogue, block);
}

void add_dialog_row(const Dialog& dialog, Block& block) {
    block.dialogs.add(dialog.identifier, block.fields.count, dialog.width, dialog.height,
                      dialog.style, dialog.flags, dialog.resize_field,
                      block.titles.add(dialog.title), block.checked.count, block.lengths.count,
                      block.ranges.count, block.shortcuts.count, block.colours.count,
                      block.trackbars.count, block.menu_fields.count, block.progress_bars.count,
                      block.tabs.count, block.grids.count, block.trees.count, block.formats.count);
}

void add_image(const Image& image, Block& block) {
    block.images.add(image.identifier, image.kind, image.width, image.height, 0, 0,
                     block.image_pool.add(image_codes(image.pixels, image.width)));
}

void add_toolbar(const Toolbar& toolbar, Block& block) {
    block.toolbars.add(toolbar.identifier, toolbar.width, toolbar.height,
                       block.toolbar_buttons.count);
    for (const int button : toolbar.buttons) block.toolbar_buttons.add(button);
}

/// Closes every table. The dialogs' sentinel comes first: its first rows are the tables' ends.
void add_sentinels(Block& block) {
    add_dialog_row({.identifier = sentinel}, block);
    block.menus.add(sentinel, block.menu_items.count);
    block.menu_items.add(sentinel, 0, -1, -1, block.menu_text.offset(), -1);
    block.fields.add(sentinel, 0, 0, 0, 0, 0, 0, 0, 0, block.field_text.offset());
    block.checked.add(sentinel);
    block.lengths.add(sentinel, 0);
    block.ranges.add(sentinel, 0, 0, 0);
    block.shortcuts.add(sentinel, 0);
    block.colours.add(sentinel, std::array<int, 6>{});
    block.trackbars.add(sentinel, std::array<int, 8>{});
    block.menu_fields.add(sentinel, 0, block.menu_field_items.count);
    block.menu_field_items.add(block.menu_field_text.offset());
    block.progress_bars.add(sentinel, 0, 0, 0);
    block.tabs.add(sentinel, 0, block.tab_pages.count);
    block.tab_pages.add(sentinel, block.tab_text.offset());
    block.grids.add(sentinel, 0, 0, 0, 0, block.grid_columns.count);
    block.grid_columns.add(sentinel, 0);
    block.trees.add(sentinel, std::array<int, 2>{});
    block.formats.add(sentinel, block.format_text.offset());
    block.images.add(sentinel, 0, 0, 0, 0, 0, block.image_pool.offset());
    block.toolbars.add(short_sentinel, 0, 0, block.toolbar_buttons.count);
    block.toolbar_buttons.add(short_sentinel);
    block.strings.add(short_sentinel, block.string_text.offset());
}

Block block_of(const Catalogue& catalogue) {
    Block block;
    for (const Menu& menu : catalogue.menus) add_menu(menu, block);
    for (const Dialog& dialog : catalogue.dialogs) {
        add_dialog_row(dialog, block);
        for (const Field& field : dialog.fields) add_field(field, catalogue, block);
    }
    for (const Image& image : catalogue.images) add_image(image, block);
    for (const Toolbar& toolbar : catalogue.toolbars) add_toolbar(toolbar, block);
    for (const String& string : catalogue.strings) {
        block.strings.add(string.identifier, block.string_text.add(string.text));
    }
    add_sentinels(block);
    return block;
}

/// The character inside a literal. Octal escapes of three digits end where they should, whatever
/// follows them.
void append_literal(std::string& source, char c) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
        source += '\\';
        source += c;
    } else if (code < 32 || code > 126) {
        source += '\\';
        for (int shift = 6; shift >= 0; shift -= 3) {
            source += static_cast<char>('0' + ((code >> shift) & 7));
        }
    } else {
        source += c;
    }
}

std::string pool_source(const Pool& pool, std::string_view name) {
    constexpr std::size_t line = 88;
    std::string source = "constexpr char " + std::string(name) + "_pool[] =";
    for (std::size_t i = 0; i < pool.text.size() || i == 0; i += line) {
        source += "\n    \"";
        for (const char c : std::string_view(pool.text).substr(i, line)) {
            append_literal(source, c);
        }
        source += '"';
    }
    return source + ";\n\n";
}

std::string table_source(const Table& table, std::string_view type, std::string_view name) {
    return "constexpr " + std::string(type) + ' ' + std::string(name) + "_rows[] = {\n" +
           table.rows + "};\n\n";
}

/// Writes pieces and, in the same order, the members of the closing record.
struct Source {
    std::string pieces, record;

    void add(const Table& table, std::string_view type, std::string_view name) {
        pieces += table_source(table, type, name);
        record.append("    .").append(name).append(" = ").append(name).append("_rows,\n");
    }
    void add(const Pool& pool, std::string_view name) {
        pieces += pool_source(pool, name);
        record.append("    .").append(name).append(" = {").append(name).append("_pool, sizeof ");
        record.append(name).append("_pool - 1},\n");
    }
};

}  // namespace

std::string source_of(const Catalogue& catalogue) {
    const Block block = block_of(catalogue);
    Source source;
    source.add(block.menus, "MenuRow", "menus");
    source.add(block.menu_items, "MenuItemRow", "menu_items");
    source.add(block.dialogs, "DialogRow", "dialogs");
    source.add(block.fields, "FieldRow", "fields");
    source.add(block.checked, "CheckedRow", "checked");
    source.add(block.lengths, "LengthRow", "lengths");
    source.add(block.ranges, "RangeRow", "ranges");
    source.add(block.shortcuts, "ShortcutRow", "shortcuts");
    source.add(block.colours, "ColourRow", "colours");
    source.add(block.trackbars, "TrackbarRow", "trackbars");
    source.add(block.menu_fields, "MenuFieldRow", "menu_fields");
    source.add(block.menu_field_items, "int", "menu_field_items");
    source.add(block.progress_bars, "ProgressRow", "progress_bars");
    source.add(block.tabs, "TabRow", "tabs");
    source.add(block.tab_pages, "TabPageRow", "tab_pages");
    source.add(block.grids, "GridRow", "grids");
    source.add(block.grid_columns, "GridColumnRow", "grid_columns");
    source.add(block.trees, "TreeRow", "trees");
    source.add(block.formats, "FormatRow", "formats");
    source.add(block.images, "ImageRow", "images");
    source.add(block.toolbars, "ToolbarRow", "toolbars");
    source.add(block.toolbar_buttons, "int", "toolbar_buttons");
    source.add(block.strings, "StringRow", "strings");
    source.add(block.menu_text, "menu_text");
    source.add(block.titles, "titles");
    source.add(block.field_text, "field_text");
    source.add(block.menu_field_text, "menu_field_text");
    source.add(block.tab_text, "tab_text");
    source.add(block.format_text, "format_text");
    source.add(block.image_pool, "image_pool");
    source.add(block.string_text, "string_text");
    return "// Generated from the resource catalogue; edit that instead.\n"
           "#include \"toolkit/resource/rows.hpp\"\n"
           "#include \"toolkit/resource/yyrc.hpp\"\n\n"
           "namespace tesserakit::rows {\n"
           "namespace {\n\n" +
           source.pieces +
           "}  // namespace\n\n"
           "constinit const Tables tables{\n" +
           source.record +
           "};\n\n"
           "}  // namespace tesserakit::rows\n\n"
           "namespace tesserakit {\n"
           "void resource() {}\n"
           "}  // namespace tesserakit\n";
}

}  // namespace catalogue
