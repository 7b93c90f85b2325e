// A row says where its sub-rows and texts begin, and the row behind it where they end; a sentinel
// closes each table, so that every row has one behind it. Offsets of texts count from 1.

#include "toolkit/resource/yyrc.hpp"

#include "toolkit/resource/rows.hpp"

#include <algorithm>
#include <functional>

namespace tesserakit {
namespace {

using namespace rows;

/// Index of the row of `identifier`, the sentinel left out; -1 when there is none.
template <typename Row>
int find_row(std::span<const Row> table, int identifier) {
    for (std::size_t i = 0; i + 1 < table.size(); ++i) {
        if (table[i].identifier == identifier) return static_cast<int>(i);
    }
    return -1;
}

template <typename Row>
const Row& row_at(std::span<const Row> table, int index) {
    return table[static_cast<std::size_t>(index)];
}

/// The sub-rows that row `owner` of `owners` begins at `first`, and the next row closes.
template <typename Row, typename Owner>
std::span<const Row> sub_rows(std::span<const Row> table, std::span<const Owner> owners, int owner,
                              int Owner::*first) {
    const int begin = row_at(owners, owner).*first;
    const int end = row_at(owners, owner + 1).*first;
    return table.subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

/// Text from one 1-based offset up to another.
std::string_view between(std::string_view pool, int begin, int end) {
    return pool.substr(static_cast<std::size_t>(begin - 1), static_cast<std::size_t>(end - begin));
}

/// Index in `table` of the field's row among those of the dialog; -1 when there is none.
template <typename Row>
int find_field(std::span<const Row> table, int DialogRow::*first, int dialog, int field) {
    const int owner = find_row(tables.dialogs, dialog);
    if (owner < 0) return -1;
    const std::span<const Row> own = sub_rows(table, tables.dialogs, owner, first);
    const auto found = std::ranges::find(own, field, &Row::field);
    if (found == own.end()) return -1;
    return row_at(tables.dialogs, owner).*first + static_cast<int>(found - own.begin());
}

template <typename Row>
const Row* field_row(std::span<const Row> table, int DialogRow::*first, int dialog, int field) {
    const int index = find_field(table, first, dialog, field);
    return index < 0 ? nullptr : &row_at(table, index);
}

/// Copies one column of the rows as far as both go.
template <typename Row, typename Column>
void copy_column(std::span<const Row> from, std::span<int> to, Column column) {
    const std::size_t n = std::min(from.size(), to.size());
    for (std::size_t i = 0; i < n; ++i) to[i] = std::invoke(column, from[i]);
}

/// Copies as far as the buffer goes; what is left of it is filled with `padding`.
void copy_text(std::string_view text, std::span<char> buffer, char padding) {
    const std::size_t n = std::min(text.size(), buffer.size());
    std::copy_n(text.begin(), n, buffer.begin());
    std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(n), buffer.end(), padding);
}

int size_of(std::string_view text) { return static_cast<int>(text.size()); }

std::string_view menu_text(int menu) {
    const auto items = sub_rows(tables.menu_items, tables.menus, menu, &MenuRow::first_item);
    const MenuItemRow& behind = *(items.data() + items.size());  // at least the sentinel
    return between(tables.menu_text, items.data()->label, behind.label);
}

std::span<const FieldRow> fields_of(int dialog) {
    return sub_rows(tables.fields, tables.dialogs, dialog, &DialogRow::first_field);
}

std::string_view field_text(int dialog) {
    const auto fields = fields_of(dialog);
    const FieldRow& behind = *(fields.data() + fields.size());
    return between(tables.field_text, fields.data()->text, behind.text);
}

std::string_view title_of(int dialog) {
    return between(tables.titles, row_at(tables.dialogs, dialog).title,
                   row_at(tables.dialogs, dialog + 1).title);
}

/// Offsets of the field's items, with the one that closes the last.
std::span<const int> item_offsets(int row) {
    const auto first = static_cast<std::size_t>(row_at(tables.menu_fields, row).first_item);
    const auto last = static_cast<std::size_t>(row_at(tables.menu_fields, row + 1).first_item);
    return tables.menu_field_items.subspan(first, last - first + 1);
}

/// The field's pages, with the row behind them.
std::span<const TabPageRow> tab_pages(int row) {
    const auto first = static_cast<std::size_t>(row_at(tables.tabs, row).first_page);
    const auto last = static_cast<std::size_t>(row_at(tables.tabs, row + 1).first_page);
    return tables.tab_pages.subspan(first, last - first + 1);
}

std::string_view format_of(int row) {
    return between(tables.format_text, row_at(tables.formats, row).format,
                   row_at(tables.formats, row + 1).format);
}

const ImageRow* image_row(int identifier, int kind) {
    const auto images = tables.images.first(tables.images.size() - 1);
    const auto found = std::ranges::find_if(images, [=](const ImageRow& image) {
        return image.identifier == identifier && image.kind == kind;
    });
    return found == images.end() ? nullptr : &*found;
}

std::string_view string_of(int row) {
    return between(tables.string_text, row_at(tables.strings, row).text,
                   row_at(tables.strings, row + 1).text);
}

}  // namespace

void yyrcmenucheck(const int& menu, int& item_count, int& text_size) {
    item_count = text_size = -1;
    const int row = find_row(tables.menus, menu);
    if (row < 0) return;
    item_count = row_at(tables.menus, row + 1).first_item - row_at(tables.menus, row).first_item;
    text_size = size_of(menu_text(row));
}

void yyrcmenuload(const int& menu, std::span<int> identifiers, std::span<int> flags,
                  std::span<int> next, std::span<int> child, std::span<int> label_offsets,
                  std::span<int> states, std::span<char> text) {
    const int row = find_row(tables.menus, menu);
    if (row < 0) return;
    const auto items = sub_rows(tables.menu_items, tables.menus, row, &MenuRow::first_item);
    const int base = items.data()->label;
    copy_column(items, identifiers, &MenuItemRow::identifier);
    copy_column(items, flags, &MenuItemRow::flags);
    copy_column(items, next, &MenuItemRow::next);
    copy_column(items, child, &MenuItemRow::child);
    copy_column(items, label_offsets, [=](const MenuItemRow& item) { return item.label - base; });
    copy_column(items, states, &MenuItemRow::state);
    copy_text(menu_text(row), text, '\0');
}

void yyrcaccelcheck(const int&, int& count) { count = -1; }

void yyrcaccelload(const int&, std::span<int>, std::span<int>, std::span<int>) {}

void yyrchelpcheck(const int&, int& count, int& text_size) { count = text_size = -1; }

void yyrchelpload(const int&, std::span<int>, std::span<int>, std::span<char>) {}

void yyrcdialogcheck(const int& dialog, int& field_count, int& title_length) {
    field_count = title_length = -1;
    const int row = find_row(tables.dialogs, dialog);
    if (row < 0) return;
    field_count = static_cast<int>(fields_of(row).size());
    title_length = size_of(title_of(row));
}

void yyrcdialogload(const int& dialog, int& width, int& height, int& style, int& flags,
                    int& resize_field, int& field_count, std::span<char> title) {
    const int row = find_row(tables.dialogs, dialog);
    if (row < 0) return;
    const DialogRow& found = row_at(tables.dialogs, row);
    width = found.width;
    height = found.height;
    style = found.style;
    flags = found.flags;
    resize_field = found.resize_field;
    field_count = static_cast<int>(fields_of(row).size());
    copy_text(title_of(row), title, ' ');
}

void yyrcfieldcheck(const int& dialog, int& text_size) {
    const int row = find_row(tables.dialogs, dialog);
    text_size = row < 0 ? -1 : size_of(field_text(row));
}

void yyrcfieldload(const int& dialog, std::span<int> identifiers, std::span<int> types,
                   std::span<int> x, std::span<int> y, std::span<int> width, std::span<int> height,
                   std::span<int> style, std::span<int> extended_style, std::span<int> third_style,
                   std::span<int> text_offsets, std::span<char> text) {
    const int row = find_row(tables.dialogs, dialog);
    if (row < 0) return;
    const std::span<const FieldRow> fields = fields_of(row);
    const int base = fields.data()->text;
    copy_column(fields, identifiers, &FieldRow::identifier);
    copy_column(fields, types, &FieldRow::type);
    copy_column(fields, x, &FieldRow::x);
    copy_column(fields, y, &FieldRow::y);
    copy_column(fields, width, &FieldRow::width);
    copy_column(fields, height, &FieldRow::height);
    copy_column(fields, style, &FieldRow::style);
    copy_column(fields, extended_style, &FieldRow::extended_style);
    copy_column(fields, third_style, &FieldRow::third_style);
    // The row behind tells whether a field has a text; behind the last stands the sentinel.
    copy_column(fields, text_offsets, [=](const FieldRow& field) {
        const FieldRow& behind = *(&field + 1);
        return field.text == behind.text ? -1 : field.text - base;
    });
    copy_text(field_text(row), text, '\0');
}

void yyrcfieldcheckbox(const int& dialog, const int& field, int& state) {
    state = find_field(tables.checked, &DialogRow::first_checked, dialog, field) < 0 ? 0 : 1;
}

void yyrcfieldlength(const int& dialog, const int& field, int& length) {
    const auto* row = field_row(tables.lengths, &DialogRow::first_length, dialog, field);
    length = row ? row->length : 0;
}

void yyrcfieldrange(const int& dialog, const int& field, double& low, double& high) {
    const auto* row = field_row(tables.ranges, &DialogRow::first_range, dialog, field);
    low = row ? row->low : 1.0;
    high = row ? row->high : -1.0;
}

void yyrcfieldshortcut(const int& dialog, const int& field, int& character) {
    const auto* row = field_row(tables.shortcuts, &DialogRow::first_shortcut, dialog, field);
    character = row ? row->character & 0xFF : 0;
}

void yyrcfieldcolour(const int& dialog, const int& field, std::span<int, 6> components) {
    std::ranges::fill(components, 256);
    const auto* row = field_row(tables.colours, &DialogRow::first_colour, dialog, field);
    if (row) std::ranges::copy(row->components, components.begin());
}

void yyrcfieldtrackbar(const int& dialog, const int& field, std::span<int, 8> values) {
    std::ranges::fill(values, 0);
    const auto* row = field_row(tables.trackbars, &DialogRow::first_trackbar, dialog, field);
    if (row) std::ranges::copy(row->values, values.begin());
}

void yyrcfieldmenucheck(const int& dialog, const int& field, int& item_count, int& text_size) {
    item_count = text_size = -1;
    const int row = find_field(tables.menu_fields, &DialogRow::first_menu, dialog, field);
    if (row < 0) return;
    const std::span<const int> offsets = item_offsets(row);
    item_count = static_cast<int>(offsets.size()) - 1;
    text_size = offsets.back() - offsets.front();
}

void yyrcfieldmenuload(const int& dialog, const int& field, int& selected, std::span<int> offsets,
                       std::span<char> text) {
    const int row = find_field(tables.menu_fields, &DialogRow::first_menu, dialog, field);
    if (row < 0) return;
    selected = row_at(tables.menu_fields, row).selected;
    const std::span<const int> own = item_offsets(row);
    copy_column(own, offsets, [&](int offset) { return offset - own.front(); });
    copy_text(between(tables.menu_field_text, own.front(), own.back()), text, ' ');
}

void yyrcfieldprogressbar(const int& dialog, const int& field, int& minimum, int& maximum,
                          int& step) {
    const auto* row = field_row(tables.progress_bars, &DialogRow::first_progress, dialog, field);
    minimum = row ? row->minimum : 0;
    maximum = row ? row->maximum : 0;
    step = row ? row->step : 0;
}

void yyrcfieldtabcheck(const int& dialog, const int& field, int& page_count, int& text_size) {
    page_count = text_size = -1;
    const int row = find_field(tables.tabs, &DialogRow::first_tab, dialog, field);
    if (row < 0) return;
    const std::span<const TabPageRow> pages = tab_pages(row);
    page_count = static_cast<int>(pages.size()) - 1;
    text_size = pages.back().label - pages.front().label;
}

void yyrcfieldtabload(const int& dialog, const int& field, int& selected,
                      std::span<int> page_dialogs, std::span<int> offsets, std::span<char> text) {
    const int row = find_field(tables.tabs, &DialogRow::first_tab, dialog, field);
    if (row < 0) return;
    selected = row_at(tables.tabs, row).selected;
    const std::span<const TabPageRow> pages = tab_pages(row);
    const int base = pages.front().label;
    copy_column(pages.first(pages.size() - 1), page_dialogs, &TabPageRow::dialog);
    copy_column(pages, offsets, [=](const TabPageRow& page) { return page.label - base; });
    copy_text(between(tables.tab_text, base, pages.back().label), text, ' ');
}

void yyrcfieldgridcheck(const int& dialog, const int& field, int& column_count) {
    const auto* row = field_row(tables.grids, &DialogRow::first_grid, dialog, field);
    column_count = row ? row->columns : -1;
}

void yyrcfieldgridload(const int& dialog, const int& field, int& maximum_rows, int& template_dialog,
                       int& row_label_width, std::span<int> column_fields,
                       std::span<int> column_widths) {
    const int row = find_field(tables.grids, &DialogRow::first_grid, dialog, field);
    if (row < 0) return;
    const GridRow& grid = row_at(tables.grids, row);
    maximum_rows = grid.maximum_rows;
    template_dialog = grid.template_dialog;
    row_label_width = grid.row_label_width;
    const auto columns = sub_rows(tables.grid_columns, tables.grids, row, &GridRow::first_column);
    copy_column(columns, column_fields, &GridColumnRow::field);
    copy_column(columns, column_widths, &GridColumnRow::width);
}

void yyrcfieldtreeview(const int& dialog, const int& field, std::span<int, 2> values) {
    std::ranges::fill(values, 0);
    const auto* row = field_row(tables.trees, &DialogRow::first_tree, dialog, field);
    if (row) std::ranges::copy(row->values, values.begin());
}

void yyrcfieldformatcheck(const int& dialog, const int& field, int& length) {
    const int row = find_field(tables.formats, &DialogRow::first_format, dialog, field);
    length = row < 0 ? -1 : size_of(format_of(row));
}

void yyrcfieldformatload(const int& dialog, const int& field, std::span<char> format) {
    const int row = find_field(tables.formats, &DialogRow::first_format, dialog, field);
    if (row >= 0) copy_text(format_of(row), format, ' ');
}

void yyrcimagecheck(const int& identifier, const int& kind, int& width, int& height, int& reserved1,
                    int& reserved2) {
    const ImageRow* image = image_row(identifier, kind);
    width = image ? image->width : -1;
    height = image ? image->height : -1;
    reserved1 = image ? image->reserved1 : 0;
    reserved2 = image ? image->reserved2 : 0;
}

void yyrcimageload(const int& identifier, const int& kind, std::string_view& codes) {
    const ImageRow* image = image_row(identifier, kind);
    codes = image ? tables.image_pool.substr(static_cast<std::size_t>(image->codes - 1))
                  : std::string_view{};
}

void yyrctoolbarcheck(const int& toolbar, int& button_count, int& width, int& height) {
    button_count = width = height = -1;
    const int row = find_row(tables.toolbars, toolbar);
    if (row < 0) return;
    const ToolbarRow& found = row_at(tables.toolbars, row);
    button_count = row_at(tables.toolbars, row + 1).first_button - found.first_button;
    width = found.width;
    height = found.height;
}

void yyrctoolbarload(const int& toolbar, std::span<int> identifiers) {
    const int row = find_row(tables.toolbars, toolbar);
    if (row < 0) return;
    copy_column(sub_rows(tables.toolbar_buttons, tables.toolbars, row, &ToolbarRow::first_button),
                identifiers, std::identity{});
}

void yyrcstringcheck(const int& string, int& length) {
    const int row = find_row(tables.strings, string);
    length = row < 0 ? -1 : size_of(string_of(row));
}

void yyrcstringload(const int& string, std::span<char> buffer) {
    const int row = find_row(tables.strings, string);
    if (row >= 0) copy_text(string_of(row), buffer, ' ');
}

}  // namespace tesserakit
