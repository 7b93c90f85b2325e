#include "toolkit/editor/line_table.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace tesserakit;

namespace {

/// The same by a plain count, for a text of whole characters.
struct PlainCount {
    std::u32string text;

    TextPlace place_of(std::size_t position) const {
        TextPlace place;
        for (std::size_t i = 0; i < position; ++i)
            place = text[i] == U'\n' ? TextPlace{place.line + 1, 1}
                                     : TextPlace{place.line, place.column + 1};
        return place;
    }
    std::size_t line_count() const { return place_of(text.size()).line; }
};

std::string utf8(std::u32string_view text) {
    std::string result;
    for (const char32_t c : text) result += c == U'é' ? "é" : std::string(1, static_cast<char>(c));
    return result;
}

std::u32string random_text(std::mt19937& random, std::size_t length) {
    std::u32string text;
    while (text.size() < length) text += U"ab\né\n"[random() % 5];
    return text;
}

}  // namespace

TEST(EditorLineTable, TenThousandEditsLeaveWhatAPlainCountFinds) {
    std::mt19937 random(9);
    PlainCount plain{random_text(random, 300)};
    LineTable table(utf8(plain.text));
    std::size_t near = 0;
    for (int edit = 0; edit < 10'000; ++edit) {
        // Runs of edits in one place, jumps, and now and then the whole text.
        if (random() % 8 == 0) near = random();
        const std::size_t position = (near + random() % 5) % (plain.text.size() + 1);
        const bool all = random() % 500 == 0;
        const std::size_t removed = all ? plain.text.size() : random() % 6;
        const std::u32string inserted =
            random_text(random, random() % 7 + (plain.text.size() < 100 ? 80 : 0));
        table.change(position, removed, utf8(inserted));
        plain.text.replace(position, removed, inserted);

        ASSERT_EQ(table.length(), plain.text.size()) << "after edit " << edit;
        ASSERT_EQ(table.line_count(), plain.line_count()) << "after edit " << edit;
        const std::size_t asked = random() % (plain.text.size() + 1);
        const TextPlace place = plain.place_of(asked);
        ASSERT_EQ(table.place_of(asked), place) << "at " << asked << " after edit " << edit;
        ASSERT_EQ(table.start_of(place.line), asked - (place.column - 1));
        const std::size_t end = plain.text.find(U'\n', asked);
        ASSERT_EQ(table.end_of(place.line), end == plain.text.npos ? plain.text.size() : end);
    }
}

TEST(EditorLineTable, AnEmptyTextHasOneLine) {
    LineTable table("");
    EXPECT_EQ(table.line_count(), 1U);
    EXPECT_EQ(table.place_of(7), (TextPlace{1, 1}));
    table.change(0, 0, "a\n");
    EXPECT_EQ(table.line_count(), 2U);
    EXPECT_EQ(table.place_of(2), (TextPlace{2, 1}));
    table.change(5, 9, "b");  // outside: at the end
    EXPECT_EQ(table.place_of(3), (TextPlace{2, 2}));
    EXPECT_EQ(table.start_of(9), 2U);
    EXPECT_EQ(table.end_of(9), 3U);
}
