#include "toolkit/menus/menu_record.hpp"

#include "toolkit/resource/yyrc.hpp"

#include <algorithm>
#include <utility>

namespace tesserakit {

namespace {

constexpr char middle_mark = 8;
constexpr char right_mark = 9;
constexpr int column_gap = 24;   // between the texts of an item
constexpr int behind_text = 20;  // of the longest item: room for the arrow

/// Walks one level of the tree. The bound ends it in a menu whose links run in a ring.
template <class Visit>
void walk(const MenuRecord& record, int first, const Visit& visit) {
    int steps = 0;
    for (int row = first; row >= 0 && row < record.item_count() && steps < record.item_count();
         row = record.item(row).next, ++steps)
        visit(row);
}

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Keysyms of ASCII letters are their codes.
constexpr unsigned long lower_keysym(unsigned long keysym) {
    return keysym >= 'A' && keysym <= 'Z' ? keysym - 'A' + 'a' : keysym;
}

/// Behind the UTF-8 character that begins at `at`.
std::size_t character_end(const std::string& text, std::size_t at) {
    std::size_t end = at + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) ++end;
    return end;
}

/// Takes the "&" out of a label's left text.
void take_mnemonic(ItemText& text, std::string_view marked) {
    for (std::size_t i = 0; i < marked.size(); ++i) {
        if (marked[i] == '&' && i + 1 < marked.size()) {
            ++i;
            if (marked[i] != '&' && text.mnemonic < 0)
                text.mnemonic = static_cast<int>(text.left.size());
        }
        text.left += marked[i];
    }
    if (text.mnemonic < 0) return;
    const auto at = static_cast<std::size_t>(text.mnemonic);
    text.mnemonic_end = static_cast<int>(character_end(text.left, at));
    if (static_cast<unsigned char>(text.left[at]) < 0x80U) text.key = lower(text.left[at]);
}

void load_accelerators(int menu, MenuRecord& record) {
    int count = 0;
    yyrcaccelcheck(menu, count);
    if (count <= 0) return;
    const auto size = static_cast<std::size_t>(count);
    std::vector<int> keysyms(size);
    std::vector<int> items(size);
    std::vector<int> modifiers(size);
    yyrcaccelload(menu, keysyms, items, modifiers);
    for (std::size_t i = 0; i < size; ++i)
        record.accelerators.push_back(
            {static_cast<unsigned long>(keysyms[i]), items[i], modifiers[i]});
}

void load_prompts(int menu, MenuRecord& record) {
    int count = 0;
    int text_size = 0;
    yyrchelpcheck(menu, count, text_size);
    if (count <= 0) return;
    const auto size = static_cast<std::size_t>(count);
    std::vector<int> items(size);
    std::vector<int> offsets(size);
    std::vector<char> text(static_cast<std::size_t>(text_size) + 1, '\0');
    yyrchelpload(menu, items, offsets, text);
    for (std::size_t i = 0; i < size; ++i)
        record.prompts.push_back({items[i], text.data() + offsets[i]});
}

/// A label with "&" before the letter at `mnemonic`, and other "&" doubled.
std::string marked_label(std::string_view label, int mnemonic) {
    std::string marked;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (static_cast<int>(i) == mnemonic || label[i] == '&') marked += '&';
        marked += label[i];
    }
    return marked;
}

MenuItem item_of(const DynamicMenuRow& row) {
    MenuItem item;
    item.identifier = row.identifier;
    item.state = row.state;
    if (row.identifier == 0) {
        item.flags = menu_flag::separator;
        return item;
    }
    if (row.greyed) item.flags |= menu_flag::disabled;
    item.label = marked_label(row.label, row.mnemonic);
    return item;
}

/// The rows that are available, without those below one that isn't.
std::vector<DynamicMenuRow> available_rows(std::span<const DynamicMenuRow> rows,
                                           const Available& available) {
    std::vector<DynamicMenuRow> kept;
    int left_out = -1;  // depth of the row whose children are skipped
    for (const DynamicMenuRow& row : rows) {
        if (left_out >= 0 && row.depth > left_out) continue;
        left_out = -1;
        if (row.availability == 0 || available(row.availability)) {
            kept.push_back(row);
        } else {
            left_out = row.depth;
        }
    }
    return kept;
}

/// A separator needs an item of its own pop-up before it and one behind it.
bool parts_nothing(std::span<const DynamicMenuRow> rows, std::size_t at) {
    const int depth = rows[at].depth;
    const auto item_next = [&](auto begin, auto end) {
        const auto sibling = std::find_if(
            begin, end, [depth](const DynamicMenuRow& row) { return row.depth <= depth; });
        return sibling != end && sibling->depth == depth && sibling->identifier != 0;
    };
    const auto here = rows.begin() + static_cast<std::ptrdiff_t>(at);
    // Of two in a row the second stays.
    return !item_next(here + 1, rows.end()) ||
           std::none_of(std::make_reverse_iterator(here),
                        std::find_if(std::make_reverse_iterator(here), rows.rend(),
                                     [depth](const auto& row) { return row.depth < depth; }),
                        [depth](const auto& row) { return row.depth == depth && row.identifier; });
}

void drop_idle_separators(std::vector<DynamicMenuRow>& rows) {
    std::vector<DynamicMenuRow> kept;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].identifier != 0 || !parts_nothing(rows, i)) kept.push_back(rows[i]);
    rows = std::move(kept);
}

/// Links the rows by their depths: the last row at each depth is the one that waits for a sibling.
void link_rows(MenuRecord& record, std::span<const DynamicMenuRow> rows) {
    std::vector<int> last;  // by depth
    for (int row = 0; row < record.item_count(); ++row) {
        const int depth =
            std::clamp(rows[static_cast<std::size_t>(row)].depth, 0, static_cast<int>(last.size()));
        const auto level = static_cast<std::size_t>(depth);
        if (level < last.size()) {
            record.item(last[level]).next = row;
        } else if (depth > 0) {
            MenuItem& parent = record.item(last[level - 1]);
            parent.child = row;
            parent.flags |= menu_flag::popup;
        }
        last.resize(level);
        last.push_back(row);
    }
}

int shifted(int row, int by) { return row < 0 ? row : row + by; }

int clamp_to(int position, int extent, int begin, int available) {
    return std::max(begin, std::min(position, begin + available - extent));
}

}  // namespace

bool MenuItem::is_separator() const { return (flags & menu_flag::separator) != 0; }
bool MenuItem::is_greyed() const { return (flags & menu_flag::disabled) != 0; }

std::vector<int> MenuRecord::rows_of(int popup) const {
    std::vector<int> rows;
    if (popup >= 0 && popup < popup_count())
        walk(*this, popups[static_cast<std::size_t>(popup)].first,
             [&rows](int row) { rows.push_back(row); });
    return rows;
}

int MenuRecord::popup_below(int row) const {
    if (row < 0) return -1;
    const auto found = std::ranges::find(popups, row, &MenuPopUp::parent);
    return found == popups.end() ? -1 : static_cast<int>(found - popups.begin());
}

int MenuRecord::popup_around(int row) const {
    for (int popup = 0; popup < popup_count(); ++popup)
        if (std::ranges::count(rows_of(popup), row) > 0) return popup;
    return -1;
}

int MenuRecord::row_of(int wanted) const {
    if (wanted == 0) return -1;
    const auto found = std::ranges::find(items, wanted, &MenuItem::identifier);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

std::string_view MenuRecord::prompt_of(int wanted) const {
    const auto found = std::ranges::find(prompts, wanted, &MenuPrompt::item);
    return found == prompts.end() ? std::string_view() : std::string_view(found->text);
}

bool yymnrcexists(int menu) {
    int items = 0;
    int text_size = 0;
    yyrcmenucheck(menu, items, text_size);
    return menu != 0 && items >= 0;
}

void yymnrcload(int menu, std::unique_ptr<MenuRecord>& record) {
    record.reset();
    if (!yymnrcexists(menu)) return;
    int count = 0;
    int text_size = 0;
    yyrcmenucheck(menu, count, text_size);
    const auto size = static_cast<std::size_t>(count);
    std::vector<int> identifiers(size), flags(size), next(size), child(size), offsets(size),
        states(size);
    std::vector<char> text(static_cast<std::size_t>(text_size) + 1, '\0');
    yyrcmenuload(menu, identifiers, flags, next, child, offsets, states, text);
    record = std::make_unique<MenuRecord>();
    record->identifier = menu;
    for (std::size_t i = 0; i < size; ++i) {
        MenuItem item{identifiers[i], flags[i], next[i], child[i], states[i], {}};
        // A separator's offset is that of the row behind it.
        if (!item.is_separator()) item.label = text.data() + offsets[i];
        record->items.push_back(std::move(item));
    }
    load_accelerators(menu, *record);
    load_prompts(menu, *record);
    yymnrcallocate(*record);
}

void yymnrcallocate(MenuRecord& record) {
    record.popups.assign(1, {});
    for (int row = 0; row < record.item_count(); ++row)
        if (record.item(row).has_popup()) record.popups.push_back({record.item(row).child, row});
}

std::unique_ptr<MenuRecord> yymnloaddynamicmenu(std::span<const DynamicMenuRow> rows,
                                                const Available& available) {
    std::vector<DynamicMenuRow> kept = available_rows(rows, available);
    drop_idle_separators(kept);
    auto record = std::make_unique<MenuRecord>();
    for (const DynamicMenuRow& row : kept) {
        record->items.push_back(item_of(row));
        if (!row.prompt.empty())
            record->prompts.push_back({row.identifier, std::string(row.prompt)});
    }
    link_rows(*record, kept);
    yymnrcallocate(*record);
    return record;
}

void yymnloaddynamicaccel(MenuRecord& record, std::span<const DynamicMenuRow> rows) {
    for (const DynamicMenuRow& row : rows) {
        if (record.row_of(row.identifier) < 0) continue;
        for (const unsigned long keysym : {row.keysym, row.second_keysym})
            if (keysym != 0) record.accelerators.push_back({keysym, row.identifier, row.modifiers});
    }
}

void yymnMergeMenus(MenuRecord& into, const MenuRecord& from) {
    if (from.items.empty()) return;
    const int first = into.item_count();
    const std::vector<int> bar = into.rows_of(0);
    for (MenuItem item : from.items) {
        item.next = shifted(item.next, first);
        item.child = shifted(item.child, first);
        into.items.push_back(std::move(item));
    }
    if (!bar.empty()) into.item(bar.back()).next = first;
    yymnrcallocate(into);
}

void yymnMergeAccel(MenuRecord& into, const MenuRecord& from) {
    into.accelerators.insert(into.accelerators.end(), from.accelerators.begin(),
                             from.accelerators.end());
}

void yymnMergeHelp(MenuRecord& into, const MenuRecord& from) {
    into.prompts.insert(into.prompts.end(), from.prompts.begin(), from.prompts.end());
}

ItemText yymnitemtextinfo(std::string_view label) {
    ItemText text;
    const std::size_t right = label.find(right_mark);
    if (right != std::string_view::npos) text.right = label.substr(right + 1);
    label = label.substr(0, right);
    const std::size_t middle = label.find(middle_mark);
    if (middle != std::string_view::npos) text.middle = label.substr(middle + 1);
    take_mnemonic(text, label.substr(0, middle));
    return text;
}

int yymnkey2item(const MenuRecord& record, int popup, int current, unsigned long keysym) {
    const unsigned long wanted = lower_keysym(keysym);
    if (wanted == 0 || wanted > 0x7F) return -1;
    std::vector<int> rows = record.rows_of(popup);
    const auto here = std::ranges::find(rows, current);
    if (here != rows.end()) std::rotate(rows.begin(), here + 1, rows.end());
    const auto matches = [&](int row) {
        const MenuItem& item = record.item(row);
        return !item.is_separator() && !item.is_greyed() &&
               static_cast<unsigned long>(yymnitemtextinfo(item.label).key) == wanted;
    };
    const auto found = std::ranges::find_if(rows, matches);
    return found == rows.end() ? -1 : *found;
}

int accelerator_item(const MenuRecord& record, unsigned long keysym, int modifiers) {
    const auto matches = [&](const Accelerator& accelerator) {
        return lower_keysym(accelerator.keysym) == lower_keysym(keysym) &&
               accelerator.modifiers == modifiers;
    };
    const auto found = std::ranges::find_if(record.accelerators, matches);
    if (found == record.accelerators.end()) return 0;
    const int row = record.row_of(found->item);
    return row >= 0 && record.item(row).is_greyed() ? 0 : found->item;
}

int neighbour(const MenuRecord& record, int popup, int current, bool backwards) {
    std::vector<int> rows = record.rows_of(popup);
    std::erase_if(rows, [&](int row) { return record.item(row).is_separator(); });
    if (rows.empty()) return -1;
    if (backwards) std::ranges::reverse(rows);
    const auto here = std::ranges::find(rows, current);
    return here == rows.end() || here + 1 == rows.end() ? rows.front() : *(here + 1);
}

bool is_selectable(const MenuRecord& record, int row) {
    if (row < 0) return false;
    const MenuItem& item = record.item(row);
    return !item.is_separator() && !item.is_greyed() && !item.has_popup();
}

PopUpLayout yymnpopupwidth(std::span<const ItemWidths> items, const MenuMetrics& metrics) {
    PopUpLayout layout;
    for (const ItemWidths& item : items)
        if (item.middle > 0)
            layout.middle_x = std::max(layout.middle_x, menu_text_x + item.left + column_gap);
    int inner = 1;
    for (const ItemWidths& item : items) {
        int end = item.middle > 0 ? layout.middle_x + item.middle : menu_text_x + item.left;
        if (item.right > 0) end += column_gap + item.right;
        inner = std::max(inner, end + behind_text);
    }
    layout.width = inner + 2 * menu_frame;
    int y = menu_frame;
    for (const ItemWidths& item : items) {
        const int height = item.separator ? metrics.separator_height : metrics.row_height;
        layout.items.push_back({menu_frame, y, inner, height});
        y += height;
    }
    layout.height = y + menu_frame;
    return layout;
}

int yymntopitemresize(int text_width) { return text_width + 2 * menu_text_x; }

BarLayout lay_out_bar(std::span<const int> item_widths, int width, int row_height) {
    BarLayout layout;
    int x = menu_bar_frame;
    for (const int item : item_widths) {
        if (x > menu_bar_frame && x + item > width - menu_bar_frame) {
            x = menu_bar_frame;
            ++layout.rows;
        }
        layout.items.push_back({x, (layout.rows - 1) * row_height + menu_bar_frame, item,
                                row_height - 2 * menu_bar_frame});
        x += item;
    }
    return layout;
}

Place place_below(const Box& item, int width, int height, const Box& screen) {
    const int below = item.y + item.height;
    const bool fits_below = below + height <= screen.y + screen.height;
    const bool fits_above = item.y - height >= screen.y;
    const int y = !fits_below && fits_above ? item.y - height : below;
    return place_at(item.x, y, width, height, screen);
}

Place place_beside(const Box& item, int width, int height, const Box& screen) {
    const int right = item.x + item.width;
    const bool fits_right = right + width <= screen.x + screen.width;
    const bool fits_left = item.x - width >= screen.x;
    const int x = !fits_right && fits_left ? item.x - width : right;
    return place_at(x, item.y - menu_frame, width, height, screen);
}

Place place_at(int x, int y, int width, int height, const Box& screen) {
    return {clamp_to(x, width, screen.x, screen.width),
            clamp_to(y, height, screen.y, screen.height)};
}

int y_with_item(const Box& popup, const Box& item, const Box& screen) {
    const int lowest = screen.y + menu_frame - item.y;
    const int highest = screen.y + screen.height - menu_frame - item.height - item.y;
    return std::max(std::min(popup.y, highest), lowest);
}

}  // namespace tesserakit
