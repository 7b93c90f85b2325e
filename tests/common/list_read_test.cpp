#include "common/list_read.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

std::array<float, 4> read_four(std::string_view text, bool& good) {
    std::array<float, 4> values{9, 9, 9, 9};
    list_read::Record record(text);
    good = record.read(std::span<float>(values));
    return values;
}

using Four = std::array<float, 4>;

TEST(ListRead, SeparatorsMayBeBlanksTabsOrOneComma) {
    bool good = false;
    EXPECT_EQ(read_four(" 1 2,3 ,\t4\r", good), (Four{1, 2, 3, 4}));
    EXPECT_TRUE(good);
    EXPECT_EQ(read_four("1,,3 4 2", good), (Four{1, 9, 3, 4}));
    EXPECT_TRUE(good);
    EXPECT_EQ(read_four(", 2 3 4", good), (Four{9, 2, 3, 4}));
    EXPECT_TRUE(good);
}

TEST(ListRead, SlashEndsWithoutFailureAndShortRecordsFail) {
    bool good = false;
    EXPECT_EQ(read_four("1 2 / 3 4", good), (Four{1, 2, 9, 9}));
    EXPECT_TRUE(good);
    EXPECT_EQ(read_four("1 2", good), (Four{1, 2, 9, 9}));
    EXPECT_FALSE(good);
    EXPECT_EQ(read_four("", good), (Four{9, 9, 9, 9}));
    EXPECT_FALSE(good);
}

TEST(ListRead, RepeatCounts) {
    bool good = false;
    EXPECT_EQ(read_four("2*1.5 2*", good), (Four{1.5f, 1.5f, 9, 9}));
    EXPECT_TRUE(good);
    EXPECT_EQ(read_four("1 0*2 3 4", good), (Four{1, 9, 9, 9}));
    EXPECT_FALSE(good);
    EXPECT_EQ(read_four("99999999999*2", good), (Four{9, 9, 9, 9}));
    EXPECT_FALSE(good);
}

TEST(ListRead, NumbersInEveryFormAndNothingElse) {
    bool good = false;
    EXPECT_EQ(read_four("+1 -2.5e1 .5 1D-1", good), (Four{1, -25, 0.5f, 0.1f}));
    EXPECT_TRUE(good);
    EXPECT_EQ(read_four("1e-60 -1e-400 2. 0", good), (Four{0, 0, 2, 0}));
    EXPECT_TRUE(good);
    for (const char* bad : {"nan 1 1 1", "inf 1 1 1", "1e39 1 1 1", "x 1 1 1", "1x 1 1 1",
                            "'1' 1 1 1", "0x10 1 1 1", "1-1 1 1 1", "+-1 1 1 1", "1e9999 1 1 1"}) {
        read_four(bad, good);
        EXPECT_FALSE(good) << bad;
    }
    int n = 7;
    EXPECT_FALSE(list_read::Record("1.0").read(n));
    EXPECT_FALSE(list_read::Record("99999999999").read(n));
    EXPECT_EQ(n, 7);
}

TEST(ListRead, TextItemsMayBeQuotedAndAreCut) {
    FixedText<4> a, b, c;
    list_read::Record record("'it''s' \"a b\", Oxygen1/rest");
    EXPECT_TRUE(record.read(a) && record.read(b) && record.read(c));
    EXPECT_EQ(a.trimmed(), "it's");
    EXPECT_EQ(b.trimmed(), "a b");
    EXPECT_EQ(c.trimmed(), "Oxyg");
    FixedText<4> d = "keep";
    EXPECT_TRUE(record.read(d));
    EXPECT_EQ(d.trimmed(), "keep");
}

TEST(ListRead, FailureStaysAndLaterItemsKeepTheirValues) {
    list_read::Record record("x 5");
    float value = 1;
    FixedText<2> text = "zz";
    EXPECT_FALSE(record.read(value));
    EXPECT_FALSE(record.read(text));
    EXPECT_FALSE(record.good());
    EXPECT_EQ(value, 1.0f);
    EXPECT_EQ(text.trimmed(), "zz");
}

TEST(ListRead, TellsHowANumberWasWritten) {
    list_read::Record record("0.3330,,2*.50 7 x");
    float value = 0;
    int whole = 0;
    const auto written_next = [&] {
        EXPECT_TRUE(record.read(value));
        return std::string(record.written());
    };
    EXPECT_EQ(written_next(), "0.3330");
    EXPECT_EQ(written_next(), "") << "left as it was";
    EXPECT_EQ(written_next(), ".50");
    EXPECT_EQ(written_next(), ".50");
    EXPECT_TRUE(record.read(whole));
    EXPECT_EQ(record.written(), "7");
    EXPECT_FALSE(record.read(value));
    EXPECT_EQ(record.written(), "");
}

}  // namespace
