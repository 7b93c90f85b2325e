/// A menu as data: its items and pop-ups, what is typed to reach them, and where they stand.
/// No X here; sizes come from text widths that the caller has measured.
///
/// A menu is a tree in rows. Pop-up 0 is the bar, whose first item is row 0; pop-up n belongs to
/// the nth row that has a child. Rows, pop-ups and positions in texts count from 0; -1 is none.
#pragma once

#include "toolkit/base/box.hpp"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tesserakit {

struct MenuItem {
    int identifier = 0;  ///< 0 for a separator
    int flags = 0;       ///< menu_flag
    int next = -1;       ///< row of the next sibling
    int child = -1;      ///< row of the first child
    int state = -1;      ///< check mark 0 or 1; -1 has no place for one
    std::string label;   ///< with its marks: yymnitemtextinfo

    bool is_separator() const;
    bool is_greyed() const;
    bool has_popup() const { return child >= 0; }
};

struct MenuPopUp {
    int first = 0;    ///< row of its first item
    int parent = -1;  ///< row of the item that opens it, -1 for the bar
};

/// Modifier bits of an accelerator; Meta counts as Alt.
enum AcceleratorModifier : int { AcceleratorShift = 1, AcceleratorControl = 4, AcceleratorAlt = 8 };

struct Accelerator {
    unsigned long keysym = 0;
    int item = 0;
    int modifiers = 0;
};

/// What the status bar says while an item is highlighted.
struct MenuPrompt {
    int item = 0;
    std::string text;
};

struct MenuRecord {
    int identifier = 0;  ///< in the resource, 0 for a menu built by the program
    std::vector<MenuItem> items;
    std::vector<MenuPopUp> popups;
    std::vector<Accelerator> accelerators;
    std::vector<MenuPrompt> prompts;

    const MenuItem& item(int row) const { return items[static_cast<std::size_t>(row)]; }
    MenuItem& item(int row) { return items[static_cast<std::size_t>(row)]; }
    int item_count() const { return static_cast<int>(items.size()); }
    int popup_count() const { return static_cast<int>(popups.size()); }
    /// Rows of a pop-up from the top, or of the bar from the left.
    std::vector<int> rows_of(int popup) const;
    /// The pop-up that a row opens, and the one that it stands in; -1 for none.
    int popup_below(int row) const;
    int popup_around(int row) const;
    /// Row of an identifier, -1 when no item has it. 0 is no identifier.
    int row_of(int identifier) const;
    std::string_view prompt_of(int identifier) const;
};

// Building --------------------------------------------------------------------------------------

/// Loads a menu of the resource with its accelerators and prompts. `record` is null when there is
/// no such menu.
void yymnrcload(int menu, std::unique_ptr<MenuRecord>& record);
/// Derives the pop-ups from the rows.
void yymnrcallocate(MenuRecord& record);
/// Whether the resource has a menu.
bool yymnrcexists(int menu);

/// A row of a menu that a unit builds by itself. `depth` is 0 in the bar and one more a level; the
/// tree follows from it.
struct DynamicMenuRow {
    int availability = 0;  ///< class; the unit that builds the menu says which classes are there
    int depth = 0;
    std::string_view label{};
    int mnemonic = -1;  ///< position of its letter in the label
    std::string_view prompt{};
    bool greyed = false;
    int identifier = 0;  ///< 0 for a separator
    int state = -1;
    int modifiers = 0;         ///< of both keys: AcceleratorModifier
    unsigned long keysym = 0;  ///< accelerator, 0 for none
    unsigned long second_keysym = 0;
};
using Available = std::function<bool(int availability)>;

/// A menu of the rows that are available. A row below one that isn't there is left out with it, and
/// so are separators that would stand first, last or twice in their pop-up. Prompts come along;
/// accelerators are loaded by the second.
std::unique_ptr<MenuRecord> yymnloaddynamicmenu(std::span<const DynamicMenuRow> rows,
                                                const Available& available);
/// Adds the accelerators of those rows whose items the menu has.
void yymnloaddynamicaccel(MenuRecord& record, std::span<const DynamicMenuRow> rows);

/// Puts the items of another menu behind the last of this one's bar; its accelerators and its
/// prompts behind this one's, so that where both have a key or an item this one's counts.
void yymnMergeMenus(MenuRecord& into, const MenuRecord& from);
void yymnMergeAccel(MenuRecord& into, const MenuRecord& from);
void yymnMergeHelp(MenuRecord& into, const MenuRecord& from);

// Labels and keys -------------------------------------------------------------------------------

/// What a label shows. "&" marks the letter behind it as mnemonic and isn't shown, "&&" shows one;
/// byte 8 begins the middle text, byte 9 the right one.
struct ItemText {
    std::string left;
    std::string middle;
    std::string right;
    int mnemonic = -1;     ///< position of its first byte in `left`
    int mnemonic_end = 0;  ///< behind its last byte
    char key = '\0';       ///< mnemonic in lower case; '\0' for none, or one outside ASCII
};
ItemText yymnitemtextinfo(std::string_view label);

/// The row of a pop-up with this mnemonic, -1 for none. Of several the first behind `current` that
/// isn't greyed.
int yymnkey2item(const MenuRecord& record, int popup, int current, unsigned long keysym);

/// The item that a key with modifiers stands for, 0 for none or a greyed one. Letters count the
/// same with and without the Caps Lock.
int accelerator_item(const MenuRecord& record, unsigned long keysym, int modifiers);

enum MenuDirection : int { MenuUp = -1, MenuDown = 1, MenuLeft = -2, MenuRight = 2, MenuHome = 3 };
/// The row of a pop-up (or the bar) behind or before `current`, past separators and around the
/// ends; -1 where all are separators. From -1 the first, backwards the last.
int neighbour(const MenuRecord& record, int popup, int current, bool backwards);

/// Whether releasing on a row selects it: an item that isn't greyed and has no pop-up.
bool is_selectable(const MenuRecord& record, int row);

// Sizes and places ------------------------------------------------------------------------------

/// Measures of the menu font's rows in pixels, and of what stands around the texts.
struct MenuMetrics {
    int row_height = 0;        ///< iMenuHeight: ascent, descent and 7
    int separator_height = 0;  ///< iSeperHeight
};
inline constexpr int menu_frame = 3;      ///< around the items of a pop-up
inline constexpr int menu_bar_frame = 1;  ///< around the items of the bar
inline constexpr int menu_text_x = 13;  ///< left text in its item; the check mark stands before it

/// Widths of an item's texts in pixels, in the order of the rows of its pop-up.
struct ItemWidths {
    int left = 0;
    int middle = 0;
    int right = 0;
    bool separator = false;
};

/// A pop-up with its items: boxes of the items in the pop-up, top to bottom.
struct PopUpLayout {
    int width = 1;
    int height = 1;
    int middle_x = 0;  ///< column of the middle texts, in the item
    std::vector<Box> items;
};
PopUpLayout yymnpopupwidth(std::span<const ItemWidths> items, const MenuMetrics& metrics);

/// Width of a top item with a left text of this width.
int yymntopitemresize(int text_width);

/// The bar's items in as many rows as its width asks for; an item wider than the bar has a row of
/// its own.
struct BarLayout {
    int rows = 1;
    std::vector<Box> items;
};
BarLayout lay_out_bar(std::span<const int> item_widths, int width, int row_height);

/// Where a pop-up goes, in whole on a screen that has the room: its top left corner. All boxes are
/// on the screen.
struct Place {
    int x = 0;
    int y = 0;
    friend bool operator==(const Place&, const Place&) = default;
};
/// Below a top item; above it where the screen ends below.
Place place_below(const Box& item, int width, int height, const Box& screen);
/// To the right of the item that opens it, its first item in line with that one; to the left where
/// the screen ends at the right.
Place place_beside(const Box& item, int width, int height, const Box& screen);
/// At a point. One taller than the screen begins at its top, and goes beyond the bottom.
Place place_at(int x, int y, int width, int height, const Box& screen);
/// Where a pop-up goes so that an item of it is on the screen; its y. The item's box is in it.
int y_with_item(const Box& popup, const Box& item, const Box& screen);

}  // namespace tesserakit
