#include "crystal/group_symbol.hpp"

#include "crystal/string_utilities.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace crystallographic_symmetry;
using group_symbol::generators;
using group_symbol::shown;
using group_symbol::table_text;
using symmetry_tables::SpgrRow;

Space_Group_Type built(std::string_view text, const SpacegroupOptions& options = {}) {
    Space_Group_Type group;
    set_spacegroup(text, group, options);
    return group;
}

Space_Group_Type generated(const std::vector<std::string>& lines) {
    const std::vector<FixedText<80>> fields(lines.begin(), lines.end());
    return built("", {.gen = fields, .ngen = static_cast<int>(fields.size()), .mode = "GEN"});
}

std::string without(std::string text, char dropped) {
    std::erase(text, dropped);
    return text;
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    if (const std::size_t at = text.find(what); at != std::string::npos)
        text.replace(at, what.size(), by);
    return text;
}

TEST(TableText, EveryRowIsFoundAsPeopleWriteIt) {
    for (const SpgrRow& row : symmetry_tables::spgr_rows()) {
        const std::string symbol(row.hm.trimmed());
        SCOPED_TRACE(symbol);
        const std::string lowered = string_utilities::l_case(symbol);
        std::string underscored = lowered;
        std::ranges::replace(underscored, ' ', '_');
        EXPECT_EQ(table_text(without(symbol, ' ')), symbol);
        EXPECT_EQ(table_text(without(lowered, ' ')), symbol);
        EXPECT_EQ(table_text(underscored + "  "), symbol);
        EXPECT_EQ(table_text("  " + symbol), "  " + symbol);
        EXPECT_EQ(table_text(lowered), lowered);
        if (symbol.find(':') == std::string::npos) continue;
        EXPECT_EQ(table_text(replaced(symbol, ":", " :")), symbol);
        EXPECT_EQ(table_text(replaced(symbol, ":", "      : ")), symbol);
        // The choice that the bare symbol means has a code too.
        const bool origin = symbol.ends_with(":1");
        const std::string bare = symbol.substr(0, symbol.find(':'));
        EXPECT_EQ(table_text(bare + (origin ? ":2" : ":H")), bare);
        EXPECT_EQ(table_text(without(lowered, ' ').substr(0, without(bare, ' ').size()) +
                             (origin ? " :2" : " :h")),
                  bare);
        EXPECT_EQ(built(table_text(bare + (origin ? " :2" : " :H"))).hall, built(bare).hall);
    }
}

TEST(TableText, NoTwoGroupsShareATextWithoutBlanks) {
    std::map<std::string, std::string_view> hall_of;
    for (const SpgrRow& row : symmetry_tables::spgr_rows()) {
        const std::string text = without(std::string(row.hm.trimmed()), ' ');
        // This symbol stands under two numbers for one group.
        const auto [known, fresh] = hall_of.try_emplace(text, row.hall.trimmed());
        EXPECT_TRUE(fresh || row.hm.trimmed() == "I 1 2/C 1") << text;
        EXPECT_EQ(known->second, row.hall.trimmed()) << text;
    }
}

TEST(TableText, SymbolsWithoutBlanksAreNoOtherGroup) {
    // Numbers and orders as published.
    constexpr struct {
        const char* text;
        int number;
        int multip;
    } cases[]{{"R-3c", 167, 36},   {"P2", 3, 2},          {"P321", 150, 6},
              {"P422", 89, 8},     {"P432", 207, 24},     {"I432", 211, 48},
              {"R32", 155, 18},    {"P6122", 178, 12},    {"P21/c", 14, 4},
              {"Fm-3m", 225, 192}, {"Pnma", 62, 8},       {"P62", 171, 6},
              {"P42", 77, 4},      {"P6_3/mmc", 194, 24}, {"I4_1/amd", 141, 32},
              {"Fd3m", 227, 192},  {"P2_12_12_1", 19, 4}, {"Ia-3d", 230, 96},
              {"P2(1)/c", 14, 4},  {"P 2(1)", 4, 2},      {"P4(3)2(1)2", 96, 8}};
    for (const auto& [text, number, multip] : cases) {
        const Space_Group_Type group = built(table_text(text));
        EXPECT_EQ(group.num_spg, number) << text;
        EXPECT_EQ(group.multip, multip) << text;
    }
    EXPECT_EQ(built(table_text("P2")).sym_op_text[1].trimmed(), "-x,y,-z");
}

TEST(TableText, ChoicesOfNumbersAndNamesOfDoubleGlides) {
    const std::pair<const char*, const char*> cases[]{
        {"48:1", "P N N N:1"},    {"48 :2", "P N N N"},         {"227:2", "F D -3 M"},
        {"166:R", "R -3 M:R"},    {"166:h", "R -3 M"},          {"50:1", "P B A N:1"},
        {"A e m 2", "A B M 2"},   {"Aea2", "A B A 2"},          {"C m c e", "C M C A"},
        {"Cmme", "C M M A"},      {"C c c e", "C C C A"},       {"Ccce:1", "C C C A:1"},
        {"C c c e:2", "C C C A"}, {"B m e m", "B M C M"},       {"A e m a", "A B M A"},
        {"C 2 c e", "C 2 C B"},   {"F d 3 m :1", "F D -3 M:1"}, {"F d 3 m:2", "F D 3 M"}};
    for (const auto& [text, symbol] : cases) EXPECT_EQ(table_text(text), symbol) << text;
    // Choices that no row has, numbers and Hall symbols, and what nobody can know.
    for (const char* text :
         {"62:1", "62:2", "225:1", "P n m a:2", "P -1:H", "62", " 225 ", "-P 2yb", "P 4 2",
          "P 2 2 -1n", "A e e 2", "C m e a", "", "Q 7", "P n m a BOX 0 1 0 1 0 2"})
        EXPECT_EQ(table_text(text), text);
}

TEST(TableText, ALastLetterIsTheChoiceAsPublishedFilesWriteIt) {
    const std::pair<const char*, const char*> cases[]{
        {"R -3 c H", "R -3 C"},     {"R-3cR", "R -3 C:R"},        {"R 3 2 h", "R 3 2"},
        {"R 3 R", "R 3:R"},         {"F d -3 m S", "F D -3 M:1"}, {"Fd-3mZ", "F D -3 M"},
        {"P n n n S", "P N N N:1"}, {"C c c e Z", "C C C A"},     {"I 41/a m d S", "I 41/A M D:1"}};
    for (const auto& [text, symbol] : cases) EXPECT_EQ(table_text(text), symbol) << text;
    // Groups without that choice, and numbers.
    for (const char* text :
         {"P n m a S", "P 63/m m c H", "P 2 z", "F d -3 m H", "R -3 c Z", "166R"})
        EXPECT_EQ(table_text(text), text);
    // Hall symbols that end so are left to their reader.
    EXPECT_EQ(built(table_text("P 2z")).multip, 2);
    EXPECT_EQ(built(table_text("R -3 c H")).multip, 36);
    EXPECT_EQ(built(table_text("R -3 c R")).multip, 12);
}

TEST(Shown, ReadsBackAsTheGroup) {
    for (const SpgrRow& row : symmetry_tables::spgr_rows()) {
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        EXPECT_TRUE(spgr_equal(built(table_text(shown(group))), group)) << row.hall.trimmed();
    }
    // Hall symbols of no row.
    for (const char* hall : {"P 2 2 (0 0 1)", "-P 2yb (3 0 0)", "P 6 2 -1n", "-P 2YBC -1"}) {
        const Space_Group_Type group = built(hall);
        ASSERT_FALSE(err_symm) << hall;
        EXPECT_TRUE(spgr_equal(built(table_text(shown(group))), group)) << hall;
    }
    EXPECT_EQ(shown(built("P 2 2 (0 0 1)")), "P 2 2 (0 0 1)");
    EXPECT_EQ(shown(built("p n m a")), "P N M A");
    // Longer than the record's text; the first sixteen characters are another group's.
    const Space_Group_Type moved = built("-P 2ybc          (3 0 0)");
    EXPECT_EQ(moved.sym_op_text[2].trimmed(), "-x+1/2,-y,-z");
    EXPECT_EQ(shown(moved), "");
    EXPECT_TRUE(spgr_equal(generated(generators(moved)), moved));
    built("P4 2            q");
    EXPECT_TRUE(err_symm) << "what stands behind them counts";
    EXPECT_EQ(shown(generated({"-x,-y,z"})), "");
    EXPECT_EQ(shown({}), "");
}

TEST(GeneratorTexts, GiveTheGroupAgain) {
    for (const SpgrRow& row : symmetry_tables::spgr_rows()) {
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        const std::vector<std::string> lines = generators(group);
        EXPECT_LE(lines.size(), 7u) << row.hall.trimmed();
        EXPECT_TRUE(spgr_equal(generated(lines), group)) << row.hall.trimmed();
    }
    EXPECT_EQ(generators(built("P 1")), std::vector<std::string>{"x,y,z"});
    EXPECT_EQ(generators(built("C 2/C")),
              (std::vector<std::string>{"x+1/2,y+1/2,z", "-x,y,-z+1/2", "-x,-y,-z"}));
    EXPECT_TRUE(generators({}).empty());
}

TEST(GeneratorTexts, HoldForGroupsWithoutASymbol) {
    const std::vector<std::vector<std::string>> groups{
        {"x+1/6,y,z", "-x,-y,z"}, {"x+1/3,y,z", "-x,-y,-z+1/2"}, {"y,x,-z+1/4"}, {"x,y,z"}};
    for (const auto& lines : groups) {
        const Space_Group_Type group = generated(lines);
        const Space_Group_Type again = generated(generators(group));
        EXPECT_TRUE(spgr_equal(again, group)) << lines.front();
        EXPECT_EQ(again.num_lat, group.num_lat) << lines.front();
    }
    // A list taken as it stands.
    const std::vector<FixedText<80>> all{"x,y,z", "-x+1/2,-y+1/2,z", "-x,-y,-z", "x,y,-z",
                                         "x+1/2,y+1/2,z"};
    const Space_Group_Type fixed = built("", {.gen = all, .ngen = 5, .mode = "FIX"});
    EXPECT_EQ(generated(generators(fixed)).multip, 8);
}

}  // namespace
