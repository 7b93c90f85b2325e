/// The application's resource block: what must hold between its tables, and rows by value.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/rows.hpp"
#include "toolkit/resource/yyrc.hpp"

namespace {

using namespace tesserakit;
using rows::tables;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;

std::size_t sized(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

struct LoadedMenu {
    std::vector<int> identifiers, flags, next, child, labels, states;
    std::string text;

    std::string label(std::size_t item) const { return text.c_str() + labels[item]; }
};

LoadedMenu load_menu(int identifier) {
    int count = 0;
    int size = 0;
    yyrcmenucheck(identifier, count, size);
    LoadedMenu menu;
    for (auto* column :
         {&menu.identifiers, &menu.flags, &menu.next, &menu.child, &menu.labels, &menu.states}) {
        column->resize(sized(count));
    }
    menu.text.resize(sized(size), '?');
    yyrcmenuload(identifier, menu.identifiers, menu.flags, menu.next, menu.child, menu.labels,
                 menu.states, menu.text);
    return menu;
}

struct LoadedField {
    int identifier, type, x, y, width, height, style, third_style;
    std::string text;
    bool has_text;
};

std::vector<LoadedField> load_fields(int dialog) {
    int count = 0;
    int title = 0;
    int size = 0;
    yyrcdialogcheck(dialog, count, title);
    yyrcfieldcheck(dialog, size);
    const std::size_t n = sized(count);
    std::array<std::vector<int>, 10> column;
    for (auto& values : column) values.resize(n);
    std::string text(sized(size), '?');
    yyrcfieldload(dialog, column[0], column[1], column[2], column[3], column[4], column[5],
                  column[6], column[7], column[8], column[9], text);
    std::vector<LoadedField> fields;
    for (std::size_t i = 0; i < n; ++i) {
        const int offset = column[9][i];
        fields.push_back({column[0][i], column[1][i], column[2][i], column[3][i], column[4][i],
                          column[5][i], column[6][i], column[8][i],
                          offset < 0 ? "" : std::string(text.c_str() + offset), offset >= 0});
    }
    return fields;
}

LoadedField load_field(int dialog, int identifier) {
    for (LoadedField& field : load_fields(dialog)) {
        if (field.identifier == identifier) return field;
    }
    ADD_FAILURE() << "no field " << identifier << " in " << dialog;
    return {};
}

/// The owners' first rows rise from 0 to the sentinel of the table they point into.
template <typename Owner>
void expect_contiguous(std::span<const Owner> owners, int Owner::*first, std::size_t size) {
    EXPECT_EQ(owners.front().*first, 0);
    EXPECT_TRUE(std::ranges::is_sorted(owners, {}, first));
    EXPECT_EQ(static_cast<std::size_t>(owners.back().*first) + 1, size);
}

/// The offsets rise from the pool's first character to the one behind its last.
template <typename Row>
void expect_offsets(std::span<const Row> rows, int Row::*offset, std::string_view pool) {
    EXPECT_EQ(rows.front().*offset, 1);
    EXPECT_TRUE(std::ranges::is_sorted(rows, {}, offset));
    EXPECT_EQ(static_cast<std::size_t>(rows.back().*offset), pool.size() + 1);
}

TEST(ResourceTables, RangesOfOwnersFollowEachOtherUpToTheSentinel) {
    using rows::DialogRow;
    expect_contiguous(tables.menus, &rows::MenuRow::first_item, tables.menu_items.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_field, tables.fields.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_checked, tables.checked.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_length, tables.lengths.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_range, tables.ranges.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_shortcut, tables.shortcuts.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_colour, tables.colours.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_trackbar, tables.trackbars.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_menu, tables.menu_fields.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_progress, tables.progress_bars.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_tab, tables.tabs.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_grid, tables.grids.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_tree, tables.trees.size());
    expect_contiguous(tables.dialogs, &DialogRow::first_format, tables.formats.size());
    expect_contiguous(tables.menu_fields, &rows::MenuFieldRow::first_item,
                      tables.menu_field_items.size());
    expect_contiguous(tables.tabs, &rows::TabRow::first_page, tables.tab_pages.size());
    expect_contiguous(tables.grids, &rows::GridRow::first_column, tables.grid_columns.size());
    expect_contiguous(tables.toolbars, &rows::ToolbarRow::first_button,
                      tables.toolbar_buttons.size());
}

TEST(ResourceTables, SentinelsCloseTheTables) {
    EXPECT_EQ(tables.menus.back().identifier, -999);
    EXPECT_EQ(tables.menu_items.back().identifier, -999);
    EXPECT_EQ(tables.dialogs.back().identifier, -999);
    EXPECT_EQ(tables.fields.back().identifier, -999);
    EXPECT_EQ(tables.ranges.back().field, -999);
    EXPECT_EQ(tables.tab_pages.back().dialog, -999);
    EXPECT_EQ(tables.images.back().identifier, -999);
    EXPECT_EQ(tables.toolbars.back().identifier, -1);
    EXPECT_EQ(tables.strings.back().identifier, -1);
}

TEST(ResourceTables, OffsetsLandOnStringStarts) {
    expect_offsets(tables.dialogs, &rows::DialogRow::title, tables.titles);
    expect_offsets(tables.menu_items, &rows::MenuItemRow::label, tables.menu_text);
    expect_offsets(tables.fields, &rows::FieldRow::text, tables.field_text);
    expect_offsets(tables.tab_pages, &rows::TabPageRow::label, tables.tab_text);
    expect_offsets(tables.formats, &rows::FormatRow::format, tables.format_text);
    expect_offsets(tables.strings, &rows::StringRow::text, tables.string_text);
    expect_offsets(tables.images, &rows::ImageRow::codes, tables.image_pool);
    const auto starts_a_string = [](std::string_view pool, int offset) {
        const auto at = static_cast<std::size_t>(offset - 1);
        return at == 0 || (at <= pool.size() && pool[at - 1] == '\0');
    };
    for (const auto& item : tables.menu_items) {
        EXPECT_TRUE(starts_a_string(tables.menu_text, item.label)) << item.identifier;
    }
    for (const auto& field : tables.fields) {
        EXPECT_TRUE(starts_a_string(tables.field_text, field.text)) << field.identifier;
    }
}

TEST(ResourceTables, SubRowsBelongToFieldsOfTheirDialog) {
    for (std::size_t i = 0; i + 1 < tables.dialogs.size(); ++i) {
        const auto& dialog = tables.dialogs[i];
        const auto& behind = tables.dialogs[i + 1];
        SCOPED_TRACE(dialog.identifier);
        std::set<int> fields;
        for (const LoadedField& field : load_fields(dialog.identifier)) {
            EXPECT_TRUE(fields.insert(field.identifier).second) << field.identifier;
            EXPECT_GE(field.type, 1);
            EXPECT_LE(field.type, 17);
        }
        const auto expect_fields = [&](auto table, int first, int last) {
            for (int row = first; row < last; ++row) {
                EXPECT_TRUE(fields.contains(table[static_cast<std::size_t>(row)].field));
            }
        };
        expect_fields(tables.checked, dialog.first_checked, behind.first_checked);
        expect_fields(tables.ranges, dialog.first_range, behind.first_range);
        expect_fields(tables.trackbars, dialog.first_trackbar, behind.first_trackbar);
        expect_fields(tables.tabs, dialog.first_tab, behind.first_tab);
        expect_fields(tables.formats, dialog.first_format, behind.first_format);
        EXPECT_TRUE(dialog.resize_field == 0 || fields.contains(dialog.resize_field));
    }
}

TEST(ResourceMenu, LinksReachEveryItemOnce) {
    const LoadedMenu menu = load_menu(30001);
    std::vector<int> visits(menu.identifiers.size(), 0);
    std::vector<int> open{0};
    while (!open.empty()) {
        const int item = open.back();
        open.pop_back();
        ASSERT_LT(sized(item), visits.size());
        ASSERT_EQ(++visits[sized(item)], 1);
        const int child = menu.child[sized(item)];
        const int next = menu.next[sized(item)];
        EXPECT_EQ(menu.flags[sized(item)] & menu_flag::popup, child < 0 ? 0 : menu_flag::popup);
        if (child >= 0) open.push_back(child);
        if (next >= 0) open.push_back(next);
    }
    EXPECT_THAT(visits, Each(1));
}

std::vector<int> siblings(const LoadedMenu& menu, int first) {
    std::vector<int> identifiers;
    for (int item = first; item >= 0; item = menu.next[sized(item)]) {
        identifiers.push_back(menu.identifiers[sized(item)]);
    }
    return identifiers;
}

TEST(ResourceMenu, BarAndPopUpsStandInOrder) {
    const LoadedMenu menu = load_menu(30001);
    const auto row = [&](int identifier) {
        return static_cast<std::size_t>(std::ranges::find(menu.identifiers, identifier) -
                                        menu.identifiers.begin());
    };
    EXPECT_THAT(siblings(menu, 0), ElementsAre(40001, 40010, 40011, 40022, 40008));
    EXPECT_THAT(siblings(menu, menu.child[row(40001)]),
                ElementsAre(40002, 40003, 40006, 0, 40004, 40005, 0, 40028, 0, 40007));
    EXPECT_THAT(siblings(menu, menu.child[row(40022)]),
                ElementsAre(40027, 0, 40025, 0, 40023, 0, 40014));
    EXPECT_THAT(siblings(menu, menu.child[row(40027)]), ElementsAre(40029, 40026));
    EXPECT_EQ(menu.label(row(40001)), "File");
    EXPECT_EQ(menu.label(row(40017)), "List magnetic moments");
    EXPECT_EQ(menu.label(row(40009)), "About");
    EXPECT_EQ(menu.flags[row(40018)], menu_flag::disabled);
    EXPECT_EQ(std::ranges::count(menu.flags, menu_flag::disabled), 1);
    EXPECT_THAT(menu.states, Each(-1));
}

TEST(ResourceDialog, FieldCountsAreComplete) {
    const std::map<int, int> counts = {
        {101, 7},  {102, 13}, {103, 13}, {104, 1},  {105, 13}, {106, 12}, {107, 4},
        {108, 10}, {109, 13}, {110, 12}, {111, 12}, {112, 4},  {113, 15}, {114, 15},
        {115, 13}, {116, 14}, {117, 15}, {118, 14}, {119, 1},  {120, 6},  {121, 2}};
    for (const auto& [dialog, expected] : counts) {
        int count = 0;
        int title = 0;
        yyrcdialogcheck(dialog, count, title);
        EXPECT_EQ(count, expected) << dialog;
    }
}

TEST(ResourceDialog, MainDialogGrowsWithItsPicture) {
    int width = 0;
    int height = 0;
    int style = 0;
    int flags = 0;
    int resize_field = 0;
    int count = 0;
    std::string title;
    yyrcdialogload(101, width, height, style, flags, resize_field, count, title);
    EXPECT_EQ(width, 374);
    EXPECT_EQ(height, 290);
    EXPECT_NE(style & dialog_style::child, 0);
    EXPECT_EQ(resize_field, 1001);

    title.assign(14, '?');
    yyrcdialogload(102, width, height, style, flags, resize_field, count, title);
    EXPECT_EQ(title, "Symmetry...   ");  // padded
    EXPECT_EQ(width, 296);
    EXPECT_EQ(height, 255);
    EXPECT_EQ(style & dialog_style::caption, dialog_style::caption);
    EXPECT_LT(style, 0);  // the topmost bit: a pop-up
    EXPECT_EQ(resize_field, 0);
}

TEST(ResourceDialog, FieldsStandWhereTheyBelong) {
    const LoadedField information = load_field(101, 1006);
    EXPECT_EQ(information.type, 4);
    EXPECT_EQ(information.x, 2);
    EXPECT_EQ(information.y, 276);
    EXPECT_EQ(information.width, 237);
    EXPECT_EQ(information.height, 9);
    EXPECT_FALSE(information.has_text);
    EXPECT_EQ(load_field(102, 1011).text, " Generators");
    EXPECT_EQ(load_field(102, 1060).text, "Herman-Mauguin Symbol :");
    EXPECT_EQ(load_field(105, 1034).text, "\xCE\xB1:");  // alpha
    EXPECT_EQ(load_field(105, 1030).text, "b:");
    EXPECT_EQ(load_field(111, 1128).text, "SYMM");
    const LoadedField radius = load_field(114, 1103);
    EXPECT_EQ(radius.text, "1.0000");
    EXPECT_EQ(radius.third_style, field_style::third_spinner);
    EXPECT_EQ(load_field(105, 1029).third_style, 0);
    EXPECT_EQ(load_field(101, 1208).style & field_style::picture, field_style::picture);
}

TEST(ResourceDialog, RadioGroupsBeginWhereTheyShould) {
    std::set<int> starts;
    for (const auto& row : tables.fields) {
        const bool radio = row.type == static_cast<int>(ResourceField::Radio);
        if ((row.style & field_style::group_start) != 0 && row.identifier < 1210) {
            EXPECT_TRUE(radio) << row.identifier;
            starts.insert(row.identifier);
        }
    }
    EXPECT_THAT(starts, ElementsAre(1002, 1009, 1066, 1086, 1107, 1144, 1157));
}

TEST(ResourceDialog, SetBoxesAndRadios) {
    std::set<int> set;
    for (const auto& dialog : tables.dialogs) {
        for (const LoadedField& field : load_fields(dialog.identifier)) {
            int state = -1;
            yyrcfieldcheckbox(dialog.identifier, field.identifier, state);
            if (state == 1 && field.identifier < 1210) set.insert(field.identifier);
        }
    }
    EXPECT_THAT(set, ElementsAre(1002, 1107, 1144, 1154, 1157));
}

TEST(ResourceDialog, NumbersHaveTheirRanges) {
    double low = 0;
    double high = 0;
    for (const int field : {1015, 1017, 1019, 1021, 1023, 1025}) {
        yyrcfieldrange(103, field, low, high);
        EXPECT_EQ(low, -50.0) << field;
        EXPECT_EQ(high, 50.0) << field;
    }
    yyrcfieldrange(114, 1103, low, high);
    EXPECT_EQ(low, 0.0);
    EXPECT_EQ(high, 3.4028e+38);
    yyrcfieldrange(115, 1150, low, high);
    EXPECT_EQ(high, 20.0);
    yyrcfieldrange(105, 1029, low, high);  // none
    EXPECT_EQ(low, 1.0);
    EXPECT_EQ(high, -1.0);

    std::array<int, 8> trackbar{};
    yyrcfieldtrackbar(117, 1171, trackbar);
    EXPECT_THAT(std::span(trackbar).first(3), ElementsAre(0, 0, 60));
    yyrcfieldtrackbar(117, 1175, trackbar);
    EXPECT_THAT(std::span(trackbar).first(3), ElementsAre(0, 0, 128));
    yyrcfieldtrackbar(105, 1029, trackbar);
    EXPECT_THAT(trackbar, Each(0));
}

TEST(ResourceDialog, LatticeLettersTabsAndGrid) {
    int count = 0;
    int size = 0;
    int selected = -5;
    yyrcfieldmenucheck(110, 1110, count, size);
    ASSERT_EQ(count, 7);
    std::vector<int> offsets(8);
    std::string text(sized(size), '?');
    yyrcfieldmenuload(110, 1110, selected, offsets, text);
    EXPECT_EQ(text, "PABCIRF");
    EXPECT_THAT(offsets, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_EQ(selected, 0);

    yyrcfieldtabcheck(107, 1072, count, size);
    ASSERT_EQ(count, 3);
    std::vector<int> pages(3);
    offsets.resize(4);
    text.assign(sized(size), '?');
    yyrcfieldtabload(107, 1072, selected, pages, offsets, text);
    EXPECT_THAT(pages, ElementsAre(109, 114, 113));
    EXPECT_EQ(text.substr(sized(offsets[2])), "Thermal par.");
    yyrcfieldtabcheck(121, 1205, count, size);
    EXPECT_EQ(count, 0);

    int maximum_rows = 0;
    int row_dialog = 0;
    int label_width = 0;
    std::vector<int> column(1);
    std::vector<int> width(1);
    yyrcfieldgridcheck(102, 1012, count);
    EXPECT_EQ(count, 1);
    yyrcfieldgridload(102, 1012, maximum_rows, row_dialog, label_width, column, width);
    EXPECT_GE(maximum_rows, 192);  // operators of the largest groups
    EXPECT_EQ(row_dialog, 104);
    EXPECT_THAT(column, ElementsAre(1026));
}

TEST(ResourceToolbar, ButtonsHaveTooltipsAndFrames) {
    const std::map<int, std::vector<int>> buttons = {
        {30102, {40120, 40115, 40122, 40117, 40118, 0, 40121}},
        {30101, {40108, 0,     40103, 40104, 40102, 40101, 0,     40107, 40105, 0,
                 40106, 40110, 40116, 40111, 0,     40109, 40112, 0,     40114, 40113}}};
    for (const auto& [toolbar, expected] : buttons) {
        int count = 0;
        int width = 0;
        int height = 0;
        yyrctoolbarcheck(toolbar, count, width, height);
        EXPECT_EQ(width, 16);
        EXPECT_EQ(height, 16);
        std::vector<int> loaded(sized(count));
        yyrctoolbarload(toolbar, loaded);
        EXPECT_THAT(loaded, ElementsAreArray(expected));
        for (const int button : loaded) {
            int length = 0;
            yyrcstringcheck(button, length);
            EXPECT_EQ(length > 0, button != 0) << button;
        }
    }
    std::string tooltip(18, '?');
    yyrcstringload(40121, tooltip);
    EXPECT_EQ(tooltip, "Edit *.gwr file   ");
}

TEST(Resource, WhatIsMissingAnswersMinusOne) {
    int first = 0;
    int second = 0;
    int third = 0;
    for (const int identifier : {0, 77, -999}) {
        yyrcmenucheck(identifier, first, second);
        EXPECT_THAT((std::array{first, second}), Each(-1)) << identifier;
        yyrcdialogcheck(identifier, first, second);
        EXPECT_THAT((std::array{first, second}), Each(-1)) << identifier;
        yyrcfieldcheck(identifier, first);
        EXPECT_EQ(first, -1);
        yyrctoolbarcheck(identifier, first, second, third);
        EXPECT_THAT((std::array{first, second, third}), Each(-1)) << identifier;
    }
    int reserved = 0;
    yyrcimagecheck(1002, image_kind::icon, first, second, reserved, reserved);  // a bitmap only
    EXPECT_THAT((std::array{first, second}), Each(-1));
    yyrctoolbarcheck(-1, first, second, third);  // the sentinel is no toolbar
    EXPECT_EQ(first, -1);
    yyrcstringcheck(-1, first);
    EXPECT_EQ(first, -1);
    yyrcaccelcheck(30001, first);
    EXPECT_EQ(first, -1);
    yyrchelpcheck(30001, first, second);
    EXPECT_THAT((std::array{first, second}), Each(-1));
    yyrcfieldtabcheck(107, 1069, first, second);  // a list
    EXPECT_THAT((std::array{first, second}), Each(-1));
    yyrcfieldformatcheck(105, 1027, first);
    EXPECT_EQ(first, -1);
}

TEST(Resource, ShortBuffersAreFilledAsFarAsTheyGo) {
    std::array<int, 2> identifiers{};
    std::array<char, 3> text{};
    yyrcmenuload(30001, identifiers, {}, {}, {}, {}, {}, text);
    EXPECT_THAT(identifiers, ElementsAre(40001, 40002));
    EXPECT_THAT(text, ElementsAre('F', 'i', 'l'));
}

// Images ------------------------------------------------------------------------------------------

TEST(ResourceImage, EveryImageDecodesToItsSize) {
    const std::map<std::pair<int, int>, std::pair<int, int>> sizes = {
        {{-1, 2}, {32, 32}},       {{1002, 1}, {16, 16}},   {{1003, 1}, {16, 16}},
        {{1004, 1}, {16, 16}},     {{1005, 1}, {16, 16}},   {{1208, 2}, {16, 16}},
        {{1054, 1}, {481, 626}},   {{1199, 1}, {986, 660}}, {{30101, 1}, {15 * 16, 16}},
        {{30102, 1}, {7 * 16, 16}}};
    for (const auto& [key, size] : sizes) {
        SCOPED_TRACE(key.first);
        int width = 0;
        int height = 0;
        int reserved = 0;
        yyrcimagecheck(key.first, key.second, width, height, reserved, reserved);
        EXPECT_EQ(width, size.first);
        EXPECT_EQ(height, size.second);
        std::string_view codes;
        yyrcimageload(key.first, key.second, codes);
        ImageRuns runs(codes, width, height);
        std::int64_t pixels = 0;
        while (const auto run = runs.next()) pixels += run->length;
        EXPECT_TRUE(runs.complete());
        EXPECT_EQ(pixels, std::int64_t{width} * height);  // so no run was cut at a row's end
    }
}

TEST(ResourceImage, ImagesFillThePoolWithoutGaps) {
    for (std::size_t i = 0; i + 1 < tables.images.size(); ++i) {
        const auto& image = tables.images[i];
        const auto begin = static_cast<std::size_t>(image.codes - 1);
        const auto size = static_cast<std::size_t>(tables.images[i + 1].codes - image.codes);
        const std::string_view own = tables.image_pool.substr(begin, size);
        ImageRuns whole(own, image.width, image.height);
        while (whole.next()) continue;
        EXPECT_TRUE(whole.complete()) << image.identifier;
        ImageRuns cut(own.substr(0, own.size() - 2), image.width, image.height);
        while (cut.next()) continue;
        EXPECT_FALSE(cut.complete()) << image.identifier;
    }
}

TEST(ResourceImage, NoButtonIsBlankOrTheTwinOfAnother) {
    for (const int strip : {30101, 30102, 32102}) {
        const ImagePixels image = resource_image_pixels(strip, image_kind::bitmap);
        std::set<std::vector<std::uint16_t>> frames;
        for (int frame = 0; frame < image.width / 16; ++frame) {
            std::vector<std::uint16_t> pixels;
            for (int y = 0; y < 16; ++y) {
                const auto* row = image.colours.data() + y * image.width + frame * 16;
                pixels.insert(pixels.end(), row, row + 16);
            }
            const std::set<std::uint16_t> colours(pixels.begin(), pixels.end());
            EXPECT_GE(colours.size(), 3U) << strip << " frame " << frame;
            EXPECT_TRUE(frames.insert(pixels).second) << strip << " frame " << frame;
        }
    }
}

/// Two characters of a code.
std::string code(int value) {
    return {static_cast<char>(35 + value / 93), static_cast<char>(35 + value % 93)};
}

TEST(ImageRuns, ARunLengthHoldsForOneColour) {
    const std::string codes = code(8191 + 3) + code(0x00F) + code(0xF00);
    ImageRuns runs(codes, 4, 1);
    const auto red = runs.next();
    ASSERT_TRUE(red);
    EXPECT_EQ(red->length, 3);
    EXPECT_EQ(red->colour, 0x00F);
    const auto blue = runs.next();
    ASSERT_TRUE(blue);
    EXPECT_EQ(blue->x, 3);
    EXPECT_EQ(blue->length, 1);
    EXPECT_EQ(blue->colour, 0xF00);
    EXPECT_FALSE(runs.next());
}

TEST(ImageRuns, OfTwoLengthsTheLaterWins) {
    const std::string codes = code(8191 + 9) + code(8191 + 2) + code(7);
    ImageRuns runs(codes, 2, 1);
    EXPECT_EQ(runs.next()->length, 2);
    EXPECT_TRUE(runs.complete());
}

TEST(ImageRuns, ARunPastItsRowIsCutAndTheNextBeginsBehindIt) {
    const std::string codes = code(1) + code(8191 + 4) + code(2) + code(3);
    ImageRuns runs(codes, 3, 2);
    EXPECT_EQ(runs.next()->length, 1);
    const auto cut = runs.next();
    EXPECT_EQ(cut->x, 1);
    EXPECT_EQ(cut->y, 0);
    EXPECT_EQ(cut->length, 2);
    const auto behind = runs.next();
    EXPECT_EQ(behind->x, 2);
    EXPECT_EQ(behind->y, 1);
}

TEST(ImageRuns, TransparentRunsKeepTheirColour) {
    const std::string codes = code(0x1000 | 0xFFF);
    const auto run = ImageRuns(codes, 1, 1).next();
    EXPECT_TRUE(run->transparent);
    EXPECT_EQ(run->colour, 0xFFF);
}

TEST(ImageRuns, DamagedCodesEndTheImage) {
    constexpr int huge = std::numeric_limits<int>::max();
    const std::string bad = code(5) + " \x7f";
    for (const std::string& codes : {std::string(), std::string("#"), code(8191 + 5),
                                     std::string("\xff\xff"), bad + code(1)}) {
        ImageRuns runs(codes, huge, huge);
        int count = 0;
        while (runs.next()) ++count;
        EXPECT_LE(count, 1);
        EXPECT_FALSE(runs.complete());
    }
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}}) {
        EXPECT_FALSE(ImageRuns(code(1), width, height).next());
    }
}

}  // namespace
