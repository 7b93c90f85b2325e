#include "toolkit/menus/menu_record.hpp"

#include "toolkit/resource/yyrc.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

using namespace tesserakit;
using testing::ElementsAre;

namespace {

constexpr auto all = [](int) { return true; };

std::vector<int> identifiers(const MenuRecord& record, const std::vector<int>& rows) {
    std::vector<int> found;
    for (const int row : rows) found.push_back(record.item(row).identifier);
    return found;
}

std::vector<int> items_below(const MenuRecord& record, int identifier) {
    return identifiers(record, record.rows_of(record.popup_below(record.row_of(identifier))));
}

/// File (New, ---, Save as), View (Zoom (In, Out), Grid), Quit
constexpr std::array<DynamicMenuRow, 10> editor_rows{{
    {.label = "File", .mnemonic = 0, .identifier = 10},
    {.availability = 2,
     .depth = 1,
     .label = "New\tCtrl+N",
     .prompt = "A new text",
     .identifier = 11,
     .modifiers = AcceleratorControl,
     .keysym = 'n'},
    {.depth = 1},
    {.depth = 1,
     .label = "Save as",
     .mnemonic = 5,
     .greyed = true,
     .identifier = 12,
     .keysym = 0xFFC9,
     .second_keysym = 0x1005FF70},
    {.label = "View", .identifier = 20},
    {.depth = 1, .label = "Zoom", .identifier = 21},
    {.depth = 2, .label = "In", .identifier = 22},
    {.depth = 2, .label = "Out", .identifier = 23},
    {.depth = 1, .label = "Grid", .identifier = 24, .state = 1},
    {.label = "R&D", .identifier = 30, .modifiers = AcceleratorShift, .keysym = 'q'},
}};

MenuRecord editor_menu(const Available& available = all) {
    const auto record = yymnloaddynamicmenu(editor_rows, available);
    yymnloaddynamicaccel(*record, editor_rows);
    return *record;
}

}  // namespace

TEST(MenuRecord, TheApplicationsMenuIsItsCatalogue) {
    std::unique_ptr<MenuRecord> menu;
    yymnrcload(30001, menu);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->popup_count(), 7) << "the bar, five menus and General";
    EXPECT_THAT(identifiers(*menu, menu->rows_of(0)),
                ElementsAre(40001, 40010, 40011, 40022, 40008));
    EXPECT_THAT(items_below(*menu, 40022), ElementsAre(40027, 0, 40025, 0, 40023, 0, 40014));
    EXPECT_THAT(items_below(*menu, 40027), ElementsAre(40029, 40026));
    EXPECT_TRUE(menu->item(menu->row_of(40018)).is_greyed());
    EXPECT_EQ(menu->item(menu->row_of(40019)).label, "Magnetic Operators");
    EXPECT_EQ(menu->popup_around(menu->row_of(40026)), menu->popup_below(menu->row_of(40027)));
    EXPECT_TRUE(menu->accelerators.empty());
    yymnrcload(9876, menu);
    EXPECT_FALSE(menu);
}

TEST(MenuRecord, AMenuOfRowsIsTheTreeOfTheirDepths) {
    const MenuRecord menu = editor_menu();
    EXPECT_THAT(identifiers(menu, menu.rows_of(0)), ElementsAre(10, 20, 30));
    EXPECT_THAT(items_below(menu, 10), ElementsAre(11, 0, 12));
    EXPECT_THAT(items_below(menu, 20), ElementsAre(21, 24));
    EXPECT_THAT(items_below(menu, 21), ElementsAre(22, 23));
    EXPECT_EQ(menu.prompt_of(11), "A new text");
    EXPECT_EQ(menu.prompt_of(12), "");
    EXPECT_EQ(yymnitemtextinfo(menu.item(menu.row_of(12)).label).key, 'a');
    EXPECT_EQ(yymnitemtextinfo(menu.item(menu.row_of(30)).label).left, "R&D") << "no mnemonic";
    EXPECT_EQ(menu.item(menu.row_of(24)).state, 1);
    EXPECT_EQ(menu.row_of(0), -1) << "separators have no identifier";
}

TEST(MenuRecord, RowsThatAreNotThereTakeTheirSeparatorsAlong) {
    const MenuRecord menu = editor_menu([](int availability) { return availability != 2; });
    EXPECT_THAT(items_below(menu, 10), ElementsAre(12)) << "a separator at the top parts nothing";
    constexpr std::array<DynamicMenuRow, 8> rows{{
        {.label = "A", .identifier = 1},
        {.depth = 1, .label = "B", .identifier = 2},
        {.depth = 1},
        {.availability = 5, .depth = 1, .label = "C", .identifier = 3},
        {.depth = 2, .label = "below C", .identifier = 4},
        {.depth = 1},
        {.depth = 1, .label = "D", .identifier = 5},
        {.depth = 1},
    }};
    const auto none = yymnloaddynamicmenu(rows, [](int) { return false; });
    EXPECT_THAT(items_below(*none, 1), ElementsAre(2, 0, 5));
    const auto all_rows = yymnloaddynamicmenu(rows, all);
    EXPECT_THAT(items_below(*all_rows, 1), ElementsAre(2, 0, 3, 0, 5));
    EXPECT_THAT(items_below(*all_rows, 3), ElementsAre(4));
    EXPECT_TRUE(yymnloaddynamicmenu({}, all)->rows_of(0).empty());
}

TEST(MenuRecord, MergedMenusStandBehindAndTheFirstKeyCounts) {
    MenuRecord menu = editor_menu();
    constexpr std::array<DynamicMenuRow, 3> own{{
        {.label = "Tools", .prompt = "Own", .identifier = 90},
        {.depth = 1,
         .label = "Count",
         .prompt = "Theirs",
         .identifier = 11,
         .modifiers = AcceleratorControl,
         .keysym = 'k'},
        {.depth = 1,
         .label = "Sort",
         .identifier = 92,
         .modifiers = AcceleratorControl,
         .keysym = 'n'},
    }};
    const auto other = yymnloaddynamicmenu(own, all);
    yymnloaddynamicaccel(*other, own);
    yymnMergeMenus(menu, *other);
    yymnMergeAccel(menu, *other);
    yymnMergeHelp(menu, *other);
    EXPECT_THAT(identifiers(menu, menu.rows_of(0)), ElementsAre(10, 20, 30, 90));
    EXPECT_THAT(items_below(menu, 90), ElementsAre(11, 92));
    EXPECT_THAT(items_below(menu, 21), ElementsAre(22, 23));
    EXPECT_EQ(accelerator_item(menu, 'n', AcceleratorControl), 11);
    EXPECT_EQ(accelerator_item(menu, 'k', AcceleratorControl), 11);
    EXPECT_EQ(menu.prompt_of(11), "A new text");
    EXPECT_EQ(menu.prompt_of(90), "Own");
    MenuRecord empty;
    yymnMergeMenus(empty, menu);
    EXPECT_THAT(identifiers(empty, empty.rows_of(0)), ElementsAre(10, 20, 30, 90));
}

TEST(MenuRecord, LabelsHaveThreeTextsAndAMnemonic) {
    const ItemText text = yymnitemtextinfo("Save &As\bmiddle\tCtrl+Shift+S");
    EXPECT_EQ(text.left, "Save As");
    EXPECT_EQ(text.middle, "middle");
    EXPECT_EQ(text.right, "Ctrl+Shift+S");
    EXPECT_EQ(text.mnemonic, 5);
    EXPECT_EQ(text.mnemonic_end, 6);
    EXPECT_EQ(text.key, 'a');
    EXPECT_EQ(yymnitemtextinfo("Black && &white").left, "Black & white");
    EXPECT_EQ(yymnitemtextinfo("Black && &white").mnemonic, 8);
    EXPECT_EQ(yymnitemtextinfo("at the end &").left, "at the end &");
    EXPECT_EQ(yymnitemtextinfo("New\tCtrl+N").middle, "");
    const ItemText umlaut = yymnitemtextinfo("&\xC3\x84ndern");
    EXPECT_EQ(umlaut.mnemonic_end, 2) << "the whole character is underlined";
    EXPECT_EQ(umlaut.key, '\0');
}

TEST(MenuKeys, MnemonicsAreLookedUpInTheOpenPopUpOnly) {
    const MenuRecord menu = editor_menu();
    EXPECT_EQ(yymnkey2item(menu, 0, -1, 'f'), menu.row_of(10));
    EXPECT_EQ(yymnkey2item(menu, 0, -1, 'F'), menu.row_of(10));
    EXPECT_EQ(yymnkey2item(menu, menu.popup_below(menu.row_of(10)), -1, 'a'), -1) << "greyed";
    EXPECT_EQ(yymnkey2item(menu, 0, -1, 'v'), -1) << "View has none";
    EXPECT_EQ(yymnkey2item(menu, 0, -1, 0), -1);
    constexpr std::array<DynamicMenuRow, 2> twins{{
        {.label = "One", .mnemonic = 0, .identifier = 1},
        {.label = "Other", .mnemonic = 0, .identifier = 2},
    }};
    const auto pair = yymnloaddynamicmenu(twins, all);
    EXPECT_EQ(yymnkey2item(*pair, 0, -1, 'o'), 0);
    EXPECT_EQ(yymnkey2item(*pair, 0, 0, 'o'), 1);
    EXPECT_EQ(yymnkey2item(*pair, 0, 1, 'o'), 0);
}

TEST(MenuKeys, AcceleratorsNeedTheirModifiersAndAnItemThatIsNotGreyed) {
    MenuRecord menu = editor_menu();
    EXPECT_EQ(accelerator_item(menu, 'n', AcceleratorControl), 11);
    EXPECT_EQ(accelerator_item(menu, 'N', AcceleratorControl), 11) << "with the Caps Lock";
    EXPECT_EQ(accelerator_item(menu, 'n', 0), 0);
    EXPECT_EQ(accelerator_item(menu, 'n', AcceleratorControl | AcceleratorShift), 0);
    EXPECT_EQ(accelerator_item(menu, 0xFFC9, 0), 0) << "Save as is greyed";
    menu.item(menu.row_of(12)).flags = 0;
    EXPECT_EQ(accelerator_item(menu, 0xFFC9, 0), 12);
    EXPECT_EQ(accelerator_item(menu, 0x1005FF70, 0), 12) << "its second key";
    const MenuRecord without = editor_menu([](int availability) { return availability != 2; });
    EXPECT_EQ(accelerator_item(without, 'n', AcceleratorControl), 0) << "the item isn't there";
}

TEST(MenuKeys, ArrowsPassSeparatorsAndGoAround) {
    const MenuRecord menu = editor_menu();
    const int file = menu.popup_below(menu.row_of(10));
    const int first = menu.row_of(11);
    const int last = menu.row_of(12);
    EXPECT_EQ(neighbour(menu, file, -1, false), first);
    EXPECT_EQ(neighbour(menu, file, -1, true), last);
    EXPECT_EQ(neighbour(menu, file, first, false), last);
    EXPECT_EQ(neighbour(menu, file, last, false), first);
    EXPECT_EQ(neighbour(menu, file, first, true), last);
    MenuRecord separators;
    separators.items.push_back({.flags = menu_flag::separator});
    yymnrcallocate(separators);
    EXPECT_EQ(neighbour(separators, 0, -1, false), -1);
    EXPECT_FALSE(is_selectable(menu, menu.row_of(12)));
    EXPECT_FALSE(is_selectable(menu, menu.row_of(21))) << "has a pop-up";
    EXPECT_FALSE(is_selectable(menu, 2)) << "a separator";
    EXPECT_FALSE(is_selectable(menu, -1));
    EXPECT_TRUE(is_selectable(menu, menu.row_of(30)));
}

TEST(MenuRecord, LinksThatRunInARingEnd) {
    MenuRecord menu;
    menu.items.assign(2, {.identifier = 1});
    menu.item(0).next = 1;
    menu.item(1).next = 0;
    yymnrcallocate(menu);
    EXPECT_THAT(menu.rows_of(0), ElementsAre(0, 1));
}

TEST(MenuPlaces, APopUpIsAsWideAsItsWidestItem) {
    // 13 before the text, 24 between texts, 20 behind, a frame of 3 all around.
    const std::array<ItemWidths, 3> items{ItemWidths{.left = 100}, ItemWidths{.separator = true},
                                          ItemWidths{.left = 40, .right = 60}};
    const PopUpLayout layout = yymnpopupwidth(items, {.row_height = 24, .separator_height = 8});
    EXPECT_EQ(layout.width, 13 + 40 + 24 + 60 + 20 + 6);
    EXPECT_EQ(layout.height, 24 + 8 + 24 + 6);
    const int inner = layout.width - 6;
    EXPECT_THAT(layout.items,
                ElementsAre(Box{3, 3, inner, 24}, Box{3, 27, inner, 8}, Box{3, 35, inner, 24}));
    const std::array<ItemWidths, 2> middle{ItemWidths{.left = 30, .middle = 10, .right = 5},
                                           ItemWidths{.left = 50, .middle = 10}};
    const PopUpLayout columns = yymnpopupwidth(middle, {.row_height = 24, .separator_height = 8});
    EXPECT_EQ(columns.middle_x, 13 + 50 + 24) << "one column, behind the longer text";
    EXPECT_EQ(columns.width, 13 + 50 + 24 + 10 + 24 + 5 + 20 + 6);
    EXPECT_GE(yymnpopupwidth({}, {}).width, 1);
    EXPECT_GE(yymnpopupwidth({}, {}).height, 1);
}

TEST(MenuPlaces, ABarTooLongWrapsOntoFurtherRows) {
    const std::array<int, 4> widths{100, 100, 300, 50};
    const BarLayout one = lay_out_bar(widths, 600, 24);
    EXPECT_EQ(one.rows, 1);
    EXPECT_THAT(one.items, ElementsAre(Box{1, 1, 100, 22}, Box{101, 1, 100, 22},
                                       Box{201, 1, 300, 22}, Box{501, 1, 50, 22}));
    const BarLayout narrow = lay_out_bar(widths, 210, 24);
    EXPECT_EQ(narrow.rows, 3) << "one item is wider than the bar";
    EXPECT_EQ(narrow.items[2], (Box{1, 25, 300, 22}));
    EXPECT_EQ(narrow.items[3], (Box{1, 49, 50, 22}));
    EXPECT_EQ(lay_out_bar(widths, 552, 24).rows, 1) << "ends at the frame";
    EXPECT_EQ(lay_out_bar(widths, 551, 24).rows, 2);
    EXPECT_EQ(lay_out_bar({}, 100, 24).rows, 1);
}

TEST(MenuPlaces, PopUpsStayOnTheScreen) {
    const Box screen{0, 0, 1000, 800};
    EXPECT_EQ(place_below({100, 50, 60, 24}, 200, 300, screen), (Place{100, 74}));
    EXPECT_EQ(place_below({100, 700, 60, 24}, 200, 300, screen), (Place{100, 400})) << "upward";
    EXPECT_EQ(place_below({100, 200, 60, 24}, 200, 600, screen), (Place{100, 200}))
        << "no room either way";
    EXPECT_EQ(place_below({900, 50, 60, 24}, 200, 300, screen), (Place{800, 74}));
    EXPECT_EQ(place_below({-30, 50, 60, 24}, 200, 300, screen), (Place{0, 74}));
    // The first item of a sub-menu is in line with the item that opens it.
    EXPECT_EQ(place_beside({103, 53, 194, 24}, 200, 100, screen), (Place{297, 50}));
    EXPECT_EQ(place_beside({703, 53, 194, 24}, 200, 100, screen), (Place{503, 50})) << "leftward";
    EXPECT_EQ(place_beside({103, 753, 194, 24}, 200, 100, screen), (Place{297, 700}));
    EXPECT_EQ(place_at(990, 790, 200, 100, screen), (Place{800, 700}));
    EXPECT_EQ(place_at(10, 10, 2000, 2000, screen), (Place{0, 0})) << "its beginning is seen";
}
