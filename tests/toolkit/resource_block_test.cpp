/// A block made from a catalogue that uses what the application's own doesn't: the same look-up
/// routines must serve it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "toolkit/resource/resource_image.hpp"
#include "toolkit/resource/yyrc.hpp"

namespace {

using namespace tesserakit;
using testing::ElementsAre;

TEST(SmallBlock, MenuLinksAreRelativeToTheMenu) {
    int count = 0;
    int size = 0;
    yyrcmenucheck(7, count, size);
    ASSERT_EQ(count, 5);
    std::vector<int> identifiers(5), flags(5), next(5), child(5), labels(5), states(5);
    std::string text(static_cast<std::size_t>(size), '?');
    yyrcmenuload(7, identifiers, flags, next, child, labels, states, text);
    EXPECT_THAT(identifiers, ElementsAre(1, 0, 2, 3, 0));
    EXPECT_THAT(flags, ElementsAre(0, 1, 0x10000, 2, 1));
    EXPECT_THAT(next, ElementsAre(1, 2, -1, 4, -1));
    EXPECT_THAT(child, ElementsAre(-1, -1, 3, -1, -1));
    EXPECT_THAT(states, ElementsAre(1, -1, -1, 0, -1));
    EXPECT_EQ(text, std::string("A&bout\t\"x\"\0Sub\0Leaf\0", 20));
    EXPECT_EQ(labels[1], labels[2]);  // a separator repeats the offset behind it
    EXPECT_EQ(labels[4], size);

    yyrcmenucheck(8, count, size);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(size, 5);
    yyrcmenuload(8, identifiers, flags, next, child, labels, states, text);
    EXPECT_EQ(labels[0], 0);
    EXPECT_STREQ(text.c_str(), "Only");
}

TEST(SmallBlock, DialogsWithoutFieldsAndTitles) {
    int count = -5;
    int length = -5;
    yyrcdialogcheck(11, count, length);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(length, 0);
    yyrcfieldcheck(11, length);
    EXPECT_EQ(length, 0);
    yyrcdialogcheck(10, count, length);
    EXPECT_EQ(count, 9);
    EXPECT_EQ(length, 7);  // Title \.
}

TEST(SmallBlock, SubRowsAreFoundOnlyInTheirOwnDialog) {
    int length = 0;
    int key = 0;
    std::array<int, 6> colour{};
    yyrcfieldlength(10, 2, length);
    yyrcfieldshortcut(10, 2, key);
    yyrcfieldcolour(10, 2, colour);
    EXPECT_EQ(length, 12);
    EXPECT_EQ(key, 'z');
    EXPECT_THAT(colour, ElementsAre(1, 2, 3, 256, 256, 256));
    yyrcfieldlength(12, 2, length);  // same identifier, another dialog
    yyrcfieldshortcut(12, 2, key);
    yyrcfieldcolour(12, 2, colour);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(key, 0);
    EXPECT_THAT(colour, testing::Each(256));
}

TEST(SmallBlock, ItemsPagesAndColumns) {
    int count = 0;
    int size = 0;
    int selected = 0;
    std::vector<int> offsets(4);
    yyrcfieldmenucheck(10, 3, count, size);
    ASSERT_EQ(count, 3);
    std::string text(static_cast<std::size_t>(size), '?');
    yyrcfieldmenuload(10, 3, selected, offsets, text);
    EXPECT_EQ(text, "onethree");
    EXPECT_THAT(offsets, ElementsAre(0, 3, 3, 8));  // the second is empty
    EXPECT_EQ(selected, 3);
    yyrcfieldmenucheck(10, 4, count, size);
    EXPECT_EQ(count, 0);

    std::vector<int> pages(2);
    offsets.resize(3);
    text.assign(11, '?');
    yyrcfieldtabload(10, 5, selected, pages, offsets, text);
    EXPECT_THAT(pages, ElementsAre(12, 13));
    EXPECT_THAT(offsets, ElementsAre(0, 5, 11));
    EXPECT_EQ(text, "FirstSecond");
    EXPECT_EQ(selected, 13);

    int rows = 0;
    int row_dialog = 0;
    int label_width = 0;
    std::vector<int> columns(2), widths(2);
    yyrcfieldgridcheck(10, 8, count);
    EXPECT_EQ(count, 2);
    yyrcfieldgridload(10, 8, rows, row_dialog, label_width, columns, widths);
    EXPECT_EQ(rows, 9);
    EXPECT_EQ(row_dialog, 12);
    EXPECT_EQ(label_width, 15);
    EXPECT_THAT(columns, ElementsAre(1, 2));
    EXPECT_THAT(widths, ElementsAre(21, 33));
}

TEST(SmallBlock, NumbersOfBarsAndFields) {
    int minimum = 0;
    int maximum = 0;
    int step = 0;
    yyrcfieldprogressbar(10, 1, minimum, maximum, step);
    EXPECT_THAT((std::array{minimum, maximum, step}), ElementsAre(5, 50, 6));
    std::array<int, 8> trackbar{};
    yyrcfieldtrackbar(10, 9, trackbar);
    EXPECT_THAT(trackbar, ElementsAre(-3, -10, 90, 20, 2, 0, 0, 0));
    double low = 0;
    double high = 0;
    yyrcfieldrange(10, 6, low, high);
    EXPECT_EQ(low, -5.0);
    EXPECT_EQ(high, 1000.0);
    int length = 0;
    yyrcfieldformatcheck(10, 6, length);
    ASSERT_EQ(length, 4);
    std::string format(6, '?');
    yyrcfieldformatload(10, 6, format);
    EXPECT_EQ(format, "(i4)  ");
}

TEST(SmallBlock, StringsMayBeEmpty) {
    int length = -5;
    yyrcstringcheck(6, length);
    EXPECT_EQ(length, 0);
    std::string buffer(3, '?');
    yyrcstringload(6, buffer);
    EXPECT_EQ(buffer, "   ");
}

TEST(SmallBlock, ClearPixelsAreTheBackgroundOfABitmapAndNothingInAnIcon) {
    const ImagePixels bitmap = resource_image_pixels(1, image_kind::bitmap);
    EXPECT_THAT(bitmap.colours, ElementsAre(0x00F, 0x0F0, 0xF00, 0xFFF, 0xCCC, 0x000));
    const ImagePixels icon = resource_image_pixels(1, image_kind::icon);
    EXPECT_THAT(icon.colours,
                ElementsAre(0x00F, 0x0F0, 0xF00, 0xFFF, ImagePixels::transparent, 0x000));
    EXPECT_TRUE(resource_image_pixels(2, image_kind::icon).colours.empty());
}

}  // namespace
