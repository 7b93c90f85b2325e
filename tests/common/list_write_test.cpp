#include "common/list_write.hpp"

#include "common/list_read.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace {

TEST(ListWrite, FieldsKeepTheirColumnsUntilTheyWouldTouch) {
    std::string line = "BOX";
    list_write::append_fixed(line, std::array{-0.1f, 1.25f, -100.5f, 20000.0f, 1.0f}, 8, 3);
    EXPECT_EQ(line, "BOX  -0.100   1.250 -100.500 ********   1.000");
    line = "\n";
    list_write::append(line, "A");
    list_write::append(line, "B");
    list_write::append(line, " C");
    EXPECT_EQ(line, "\nA B C");
}

TEST(ListWrite, TextsStandAtTheLeftOfTheirFieldInQuotesWhereTheyNeedThem) {
    std::string line = "ATOM ";
    list_write::append_text(line, FixedText<10>("Fe1"));
    list_write::append_text(line, FixedText<2>("FE"));
    list_write::append_text(line, FixedText<2>("O"));
    EXPECT_EQ(line, "ATOM Fe1       FE O ");
    line.clear();
    list_write::append_text(line, FixedText<10>("a b"));
    list_write::append_text(line, FixedText<2>(""));
    list_write::append_quoted(line, "K", 2);
    EXPECT_EQ(line, "'a b'     '' 'K'");
}

TEST(ListWrite, EveryTextReadsBack) {
    for (const std::string_view text :
         {"Fe1", "a b", " a", "", "a,b", "a/b", "'", "\"x", "O'", "it's", "2*", "3*a", "12", "*",
          "a\tb", "M\xc3\xbcller", "\xce\xb1-Fe", "\xff\xfe\x80", "1234567890"}) {
        std::string line;
        list_write::append_text(line, text, 10);
        list_write::append_text(line, "H", 2);
        list_read::Record record(line);
        FixedText<10> first;
        FixedText<2> second;
        EXPECT_TRUE(record.read(first) && record.read(second)) << line;
        EXPECT_EQ(first.trimmed(), text) << line;
        EXPECT_EQ(second.trimmed(), "H") << line;
    }
}

}  // namespace
