#include "crystal/symmetry_tables.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>

namespace {
using namespace symmetry_tables;

/// Operators of the 39 point groups, by point group number.
constexpr std::array<int, 40> point_group_order{0, 1,  2,  2,  2,  4,  4,  4,  4,  4,  8,  4, 4,  8,
                                                8, 8,  8,  8,  16, 3,  6,  6,  6,  12, 6,  6, 12, 6,
                                                6, 12, 12, 12, 12, 12, 24, 12, 24, 24, 24, 48};
/// Laue numbers under which a point group may stand, by point group number.
const std::array<std::set<int>, 40> laue_of_point_group{
    {{},   {1},  {1},  {2},  {2},  {2},    {3},    {3},    {3},    {3},    {3},  {4},  {4},  {4},
     {5},  {5},  {5},  {5},  {5},  {6, 8}, {6, 8}, {7, 9}, {7, 9}, {7, 9}, {10}, {10}, {10}, {11},
     {11}, {11}, {12}, {12}, {12}, {12},   {12},   {13},   {13},   {14},   {14}, {14}}};

int lattice_points(std::string_view hall) {
    const char letter = hall[hall[0] == '-' ? 1 : 0];
    return letter == 'P' ? 1 : letter == 'F' ? 4 : letter == 'R' ? 3 : 2;
}

const SpgrRow* row_of(std::string_view hm) {
    for (const SpgrRow& row : spgr_rows())
        if (row.hm.trimmed() == hm) return &row;
    return nullptr;
}

std::string_view without_choice(std::string_view hm) { return hm.substr(0, hm.find(':')); }

TEST(SpgrInfo, NumbersAscendAndLaueFitsPointGroup) {
    int last = 1;
    for (const SpgrRow& row : spgr_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        EXPECT_TRUE(row.n == last || row.n == last + 1);
        last = row.n;
        ASSERT_TRUE(row.pg >= 1 && row.pg <= 39);
        EXPECT_TRUE(laue_of_point_group[static_cast<std::size_t>(row.pg)].contains(row.laue));
        const bool rhombohedral_axes = row.laue == 6 || row.laue == 7;
        EXPECT_EQ(rhombohedral_axes, row.hm.trimmed().ends_with(":R"));
    }
    EXPECT_EQ(last, 230);
}

TEST(SpgrInfo, SymbolsAreUniqueAndAgreeOnTheLattice) {
    std::set<std::string_view> symbols;
    for (const SpgrRow& row : spgr_rows()) {
        const std::string_view hm = row.hm.trimmed(), hall = row.hall.trimmed();
        SCOPED_TRACE(hm);
        // One symbol stands under two numbers; a search by symbol finds the first.
        EXPECT_TRUE(symbols.insert(hm).second || hm == "I 1 2/C 1");
        EXPECT_TRUE(std::ranges::none_of(hm, [](char c) { return c >= 'a' && c <= 'z'; }));
        const char letter = hm.ends_with(":R") ? 'P' : hm[0];
        EXPECT_EQ(hall[hall[0] == '-' ? 1 : 0], letter);
    }
}

TEST(SpgrInfo, OneHallSymbolMeansOneGroup) {
    std::map<std::string_view, const SpgrRow*> first;
    for (const SpgrRow& row : spgr_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        const SpgrRow& same = *first.try_emplace(row.hall.trimmed(), &row).first->second;
        // This one stands under another number than its operators have.
        if (same.hm.trimmed() == "I 1 2/C 1") continue;
        EXPECT_EQ(row.n, same.n);
        EXPECT_EQ(row.laue, same.laue);
        EXPECT_EQ(row.pg, same.pg);
    }
}

TEST(SpgrInfo, TheAsymmetricUnitIsLargeEnough) {
    for (const SpgrRow& row : spgr_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        int volume = 1;
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_LT(row.asu[i], row.asu[i + 3]);
            volume *= row.asu[i + 3] - row.asu[i];
        }
        const int points = volume * point_group_order[static_cast<std::size_t>(row.pg)] *
                           lattice_points(row.hall.trimmed());
        EXPECT_GE(points, 24 * 24 * 24);
        // Up to the orthorhombic groups the published units are boxes: no point twice inside.
        if (row.n <= 74) {
            EXPECT_EQ(points, 24 * 24 * 24);
        }
    }
    using Box = std::array<int, 6>;
    EXPECT_EQ(row_of("P -1")->asu, (Box{0, 0, 0, 12, 24, 24}));
    EXPECT_EQ(row_of("P N N N")->asu, (Box{0, -6, 0, 6, 6, 24}));
    EXPECT_EQ(row_of("F D -3 M")->asu, (Box{-3, -3, -6, 9, 0, 0}));
    EXPECT_EQ(row_of("I A -3 D")->asu, (Box{-3, -3, 0, 3, 3, 6}));
    EXPECT_EQ(row_of("R -3 C:R")->asu, (Box{6, 6, 6, 30, 30, 18}));
    EXPECT_EQ(row_of("R -3 M")->asu, (Box{0, 0, 0, 16, 16, 4}));
}

TEST(SpgrInfo, AnOriginChoiceHasItsTwinAndTheirCodesMatch) {
    for (const SpgrRow& row : spgr_rows()) {
        const std::string_view hm = row.hm.trimmed();
        if (!hm.ends_with(":1")) continue;
        SCOPED_TRACE(hm);
        const SpgrRow* twin = row_of(without_choice(hm));
        ASSERT_TRUE(twin);
        EXPECT_EQ(twin->n, row.n);
        const std::string code(row.inf_extra.trimmed());
        ASSERT_TRUE(code.starts_with('1'));
        std::string_view bare = twin->inf_extra.trimmed();
        if (bare.starts_with('2')) bare.remove_prefix(1);
        EXPECT_EQ(code.substr(1), bare);
    }
    EXPECT_EQ(row_of("R 3")->inf_extra.trimmed(), "H");
    EXPECT_EQ(row_of("R 3:R")->inf_extra.trimmed(), "R");
    EXPECT_EQ(row_of("R 3:H"), nullptr);
}

TEST(SpgrInfo, RowsReferredToByPlaceStandThere) {
    const std::pair<std::size_t, std::string_view> places[] = {
        {211, "P N M 21"}, {213, "P 21 N M"}, {215, "P M 21 N"}, {375, "B A M B"},
        {429, "C 4 2 21"}, {457, "C -4 B 2"}, {463, "F -4 D 2"}, {612, "I A 3 D"}};
    for (const auto& [place, hm] : places) EXPECT_EQ(spgr_rows()[place - 1].hm.trimmed(), hm);
}

TEST(WyckoffInfo, EachRowHoldsItsCountOfDistinctPositions) {
    int total = 0;
    for (const WyckoffRow& row : wyckoff_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        std::set<std::string_view> seen;
        for (std::size_t i = 0; i < row.orbit.size(); ++i) {
            const std::string_view text = row.orbit[i].trimmed();
            EXPECT_EQ(!text.empty(), static_cast<int>(i) < row.norbit) << i;
            if (text.empty()) continue;
            EXPECT_TRUE(seen.insert(text).second) << text;
            EXPECT_EQ(std::ranges::count(text, ','), 2) << text;
            EXPECT_EQ(text.find_first_not_of("xyz0123456789/+-,"), std::string_view::npos) << text;
            EXPECT_LE(text.size(), 12u) << text;
        }
        total += row.norbit;
    }
    EXPECT_EQ(total, 1760);
}

// As International Tables list them, a first.
TEST(WyckoffInfo, PositionsStandInTheOrderOfTheirLetters) {
    const std::map<std::string_view, std::string_view> published{
        {"P -1", "0,0,0 0,0,1/2 0,1/2,0 1/2,0,0 1/2,1/2,0 1/2,0,1/2 0,1/2,1/2 1/2,1/2,1/2"},
        {"P 2/M",
         "0,0,0 0,1/2,0 0,0,1/2 1/2,0,0 1/2,1/2,0 0,1/2,1/2 1/2,0,1/2 1/2,1/2,1/2 "
         "0,y,0 1/2,y,0 0,y,1/2 1/2,y,1/2 x,0,z x,1/2,z"},
        {"C 2/M", "0,0,0 0,1/2,0 0,0,1/2 0,1/2,1/2 1/4,1/4,0 1/4,1/4,1/2 0,y,0 0,y,1/2 x,0,z"},
        {"P 21/C", "0,0,0 1/2,0,0 0,0,1/2 1/2,0,1/2"},
        {"P M M M",
         "0,0,0 1/2,0,0 0,0,1/2 1/2,0,1/2 0,1/2,0 1/2,1/2,0 0,1/2,1/2 1/2,1/2,1/2 "
         "x,0,0 x,0,1/2 x,1/2,0 x,1/2,1/2 0,y,0 0,y,1/2 1/2,y,0 1/2,y,1/2 "
         "0,0,z 0,1/2,z 1/2,0,z 1/2,1/2,z 0,y,z 1/2,y,z x,0,z x,1/2,z x,y,0 x,y,1/2"},
        {"P N M A", "0,0,0 0,0,1/2 x,1/4,z"},
        {"C M C M", "0,0,0 0,1/2,0 0,y,1/4 1/4,1/4,0 x,0,0 0,y,z x,y,1/4"},
        {"P 4/M M M",
         "0,0,0 0,0,1/2 1/2,1/2,0 1/2,1/2,1/2 0,1/2,1/2 0,1/2,0 0,0,z 1/2,1/2,z "
         "0,1/2,z x,x,0 x,x,1/2 x,0,0 x,0,1/2 x,1/2,0 x,1/2,1/2 x,y,0 x,y,1/2 "
         "x,x,z x,0,z x,1/2,z"},
        {"P 63/M M C",
         "0,0,0 0,0,1/4 1/3,2/3,1/4 1/3,2/3,3/4 0,0,z 1/3,2/3,z 1/2,0,0 "
         "x,2x,1/4 x,0,0 x,y,1/4 x,2x,z"},
        {"R -3 M", "0,0,0 0,0,1/2 0,0,z 1/2,0,1/2 1/2,0,0 x,0,0 x,0,1/2 x,-x,z"},
        {"P M -3 M",
         "0,0,0 1/2,1/2,1/2 0,1/2,1/2 1/2,0,0 x,0,0 x,1/2,1/2 x,x,x x,1/2,0 "
         "0,y,y 1/2,y,y 0,y,z 1/2,y,z x,x,z"},
        {"F M -3 M",
         "0,0,0 1/2,1/2,1/2 1/4,1/4,1/4 0,1/4,1/4 x,0,0 x,x,x x,1/4,1/4 0,y,y "
         "1/2,y,y 0,y,z x,x,z"}};
    int found = 0;
    for (const WyckoffRow& row : wyckoff_rows()) {
        const auto letters = published.find(row.hm.trimmed());
        if (letters == published.end()) continue;
        ++found;
        std::string listed;
        for (int i = 0; i < row.norbit; ++i)
            listed +=
                (i > 0 ? " " : "") + std::string(row.orbit[static_cast<std::size_t>(i)].trimmed());
        EXPECT_EQ(listed, letters->second) << row.hm.trimmed();
    }
    EXPECT_EQ(found, static_cast<int>(published.size()));
}

TEST(WyckoffInfo, KeysNameASettingUpToAChoiceThatHasNoRow) {
    std::set<std::string_view> keys;
    for (const WyckoffRow& row : wyckoff_rows()) {
        const std::string_view hm = row.hm.trimmed();
        SCOPED_TRACE(hm);
        EXPECT_TRUE(keys.insert(hm).second);
        const bool unreachable = hm.ends_with(":2") || hm.ends_with(":H");
        EXPECT_TRUE(row_of(unreachable ? without_choice(hm) : hm));
        EXPECT_EQ(row_of(hm) == nullptr, unreachable);
    }
}

TEST(ItGenerators, EachRowNamesASettingOfItsNumber) {
    set_it_gen();
    ASSERT_EQ(it_gen.size(), 230u);
    for (std::size_t i = 0; i < it_gen.size(); ++i) {
        const ItGeneratorRow& row = it_gen[i];
        SCOPED_TRACE(row.trimmed());
        std::string symbol(without_trailing_blanks(row.columns(1, 10)));
        std::ranges::transform(symbol, symbol.begin(),
                               [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
        const SpgrRow* setting = row_of(symbol);
        ASSERT_TRUE(setting);
        EXPECT_EQ(setting->n, static_cast<int>(i + 1));
        EXPECT_EQ(row.columns(11, 12), ": ");
        // Operators are cut out in fields of 20 characters.
        std::string_view rest = row.columns(12, 120);
        while (!rest.empty()) {
            const std::string_view one = rest.substr(0, rest.find(';'));
            EXPECT_LE(trimmed_length(one), 20u) << one;
            EXPECT_EQ(std::ranges::count(one, ','), 2) << one;
            rest.remove_prefix(std::min(rest.size(), one.size() + 1));
        }
    }
}

TEST(SystemEquiv, SchoenfliesNumbersCountEachTypeInOrder) {
    std::map<std::string, int> count;
    for (const SystemEquivRow& row : system_equiv_rows()) {
        const std::string_view sc = row.sc.trimmed();
        SCOPED_TRACE(sc);
        const std::size_t bar = sc.find('_');
        // T, Td, Th, O and Oh: "T1", "T1_d".
        const std::string type =
            std::string(1, sc[0]) + std::string(sc.substr(std::min(bar, sc.size())));
        const std::string number(sc.substr(1, std::min(bar, sc.size()) - 1));
        EXPECT_EQ(number, std::to_string(++count[type]));
    }
    EXPECT_EQ(count.size(), 32u);  // crystal classes
    EXPECT_EQ(count["D_2h"], 28);
    EXPECT_EQ(count["O_h"], 10);
    const SystemEquivRow& c2 = system_equiv_rows()[4];
    EXPECT_EQ(c2.sc.trimmed(), "C3_2");
    EXPECT_EQ(c2.ml.trimmed(), "z,x,y");
    EXPECT_EQ(c2.ko.trimmed(), "-z,x,-y");
    EXPECT_EQ(c2.bc.trimmed(), "z,-x+y,-x-y");
    EXPECT_EQ(c2.za.trimmed(), "-x,z,y");
    // What isn't known is blank, and no statement about the axes of those tables.
    for (const SystemEquivRow& row : system_equiv_rows())
        if (row.sc != c2.sc) {
            EXPECT_TRUE(row.ml.blank() && row.ko.blank() && row.bc.blank() && row.za.blank());
        }
}

TEST(Lists, AreEmptyWhenRemovedAndFilledAgainByEachCall) {
    for (int again = 0; again < 2; ++again) {
        set_spgr_info();
        set_wyckoff_info();
        set_system_equiv();
        EXPECT_EQ(Spgr_Info.size(), 612u);
        EXPECT_EQ(Wyckoff_Info.size(), 270u);
        EXPECT_EQ(System_Equiv.size(), 230u);
        remove_spgr_info();
        remove_wyckoff_info();
        remove_system_equiv();
        EXPECT_TRUE(Spgr_Info.empty() && Wyckoff_Info.empty() && System_Equiv.empty());
        remove_spgr_info();  // nothing to remove
    }
}

TEST(GetGenerators, FindsByNumberOrBySymbolInAnyCase) {
    constexpr std::string_view pnma = " -x+1/2,-y,z+1/2; -x,y+1/2,-z; -x,-y,-z";
    EXPECT_EQ(without_trailing_blanks(get_generators("62")), pnma);
    EXPECT_EQ(without_trailing_blanks(get_generators("  62 ")), pnma);
    EXPECT_EQ(without_trailing_blanks(get_generators("p N m A     ")), pnma);
    EXPECT_EQ(get_generators("225").size(), 109u);
    EXPECT_FALSE(err_symtab);
}

TEST(GetGenerators, ANumberOutOfRangeIsBlankAndAnUnknownSymbolAnError) {
    get_generators("no group");
    EXPECT_TRUE(err_symtab);
    EXPECT_EQ(err_symtab_mess.field().substr(0, 50),
              " Error in the symbol or number of the space group ");
    for (const char* number : {"0", "231", "-1", "2147483647"}) {
        EXPECT_EQ(trimmed_length(get_generators(number)), 0u) << number;
        EXPECT_FALSE(err_symtab) << number;
    }
    for (const char* text : {"", " P n m a", "P n m a x", "99999999999"}) {
        EXPECT_EQ(trimmed_length(get_generators(text)), 0u) << text;
        EXPECT_TRUE(err_symtab) << text;
    }
}

}  // namespace
