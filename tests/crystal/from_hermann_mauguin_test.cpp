#include "crystal/crystallographic_symmetry/from_hermann_mauguin.hpp"
#include "crystal/crystallographic_symmetry/centring.hpp"

#include "crystal/crystallographic_symmetry/from_hall.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <set>
#include <string>
#include <utility>

using namespace crystallographic_symmetry;

namespace {

/// Nine coefficients and a translation in 24ths, folded.
using Operator = std::array<int, 12>;

Operator folded_operator(const Sym_Oper_Type& op, const Vector3f& moved, int sign) {
    Operator result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[3 * i + j] = sign * op.rot[i][j];
        const float tr = static_cast<float>(sign) * op.tr[i] + moved[i];
        result[9 + i] = (static_cast<int>(std::lround(24 * tr)) % 24 + 24) % 24;
    }
    return result;
}

/// Every operator of a group with its inversion at the origin or none, by the centring last set.
std::set<Operator> whole_group(const ReducedList& list) {
    std::set<Operator> group;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.count); ++i)
        for (std::size_t point = 0; point < static_cast<std::size_t>(num_lat); ++point)
            for (int sign = 1; sign >= (list.centred == 2 ? -1 : 1); sign -= 2)
                group.insert(folded_operator(list.ops[i], lat_trans[point], sign));
    return group;
}

std::set<Operator> group_of(std::string_view symbol) {
    const ReducedList list = get_so_from_hms(symbol);
    EXPECT_FALSE(err_symm) << symbol << err_symm_mess.trimmed();
    return whole_group(list);
}

std::string failure_of(std::string_view symbol) {
    get_so_from_hms(symbol);
    return err_symm ? std::string(err_symm_mess.trimmed()) : "none";
}

/// These stand in the table for operators that their letters don't tell, or don't tell alone;
/// groups are built from the Hall symbol of the row instead.
const std::set<std::string_view> by_hall_symbol{"P N M 21", "P 21 N M", "P M 21 N", "B A M B",
                                                "C 4 2 21", "C -4 B 2", "F -4 D 2"};

TEST(FromHermannMauguin, TabulatedSymbolsGiveTheGroupsOfTheirHallSymbols) {
    int compared = 0;
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        const std::string_view symbol = row.hm.trimmed();
        if (symbol.find(':') != std::string_view::npos || by_hall_symbol.contains(symbol)) continue;
        SCOPED_TRACE(symbol);
        const ReducedList by_hall = get_so_from_hall(row.hall.field());
        const std::set<Operator> published = whole_group(by_hall);
        const ReducedList list = get_so_from_hms(symbol);
        ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
        EXPECT_EQ(whole_group(list), published);
        EXPECT_EQ(list.count, by_hall.count);
        EXPECT_EQ(list.crystal_system, by_hall.crystal_system);
        EXPECT_EQ(list.centred, by_hall.centred);
        EXPECT_EQ(lattice_letters[static_cast<std::size_t>(list.lattice_index - 1)], symbol[0]);
        EXPECT_EQ(list.lat_symbol.field(), by_hall.lat_symbol.field());
        ++compared;
    }
    EXPECT_EQ(compared, 612 - 46 - 7);  // 46 rows name an origin or axes behind a colon
}

TEST(FromHermannMauguin, FullSymbolsGiveTheGroupsOfTheShortOnes) {
    for (const auto& [full, shorter] :
         std::array<std::pair<const char*, const char*>, 14>{{{"P 1 2/m 1", "P 2/m"},
                                                              {"P 2/m 2/m 2/m", "P m m m"},
                                                              {"P 21/n 21/m 21/a", "P n m a"},
                                                              {"C 2/m 2/c 21/a", "C m c a"},
                                                              {"F 2/d 2/d 2/d", "F d d d"},
                                                              {"I 2/m 2/m 2/a", "I m m a"},
                                                              {"P 42/m 21/n 2/m", "P 42/m n m"},
                                                              {"P 42/n 1 1", "P 42/n"},
                                                              {"I 41/a 2/m 2/d", "I 41/a m d"},
                                                              {"R -3 2/c", "R -3 c"},
                                                              {"P -3 1 2/m", "P -3 1 m"},
                                                              {"P 63/m 2/m 2/c", "P 63/m m c"},
                                                              {"P 2/m -3", "P m -3"},
                                                              {"P 21/a -3", "P a -3"}}})
        EXPECT_EQ(group_of(full), group_of(shorter)) << full;
}

TEST(FromHermannMauguin, CaseAndBlanksOfTheSymbolDoNotMatterBetweenItsWords) {
    const std::set<Operator> fluorite = group_of("F m -3 m");
    EXPECT_EQ(fluorite.size(), 192u);
    for (const char* same : {"f M -3 M", "   F   m  -3 m", "F m 3 m", "Fm -3 m"})
        EXPECT_EQ(group_of(same), fluorite) << same;
    EXPECT_EQ(group_of("p21/c"), group_of("P 1 21/C 1"));
    // Words run together are one direction, in which nothing may stand twice.
    EXPECT_EQ(failure_of("Fm-3m"),
              " The symbol: M has been repeated within the same symmetry direction");
}

TEST(FromHermannMauguin, SymbolsThatCannotBeAreToldApart) {
    EXPECT_EQ(failure_of("X 2"), " Wrong space-group symbol: X 2");
    EXPECT_EQ(failure_of(""), " Wrong space-group symbol:");
    EXPECT_EQ(failure_of("P 7"), " The symbol: 7 is not allowed");
    EXPECT_EQ(failure_of("P 5"), " The fivefold axis is not allowed");
    EXPECT_EQ(failure_of("P 2 2 22"),
              " The symbol: 2 has been repeated within the same symmetry direction");
    EXPECT_EQ(failure_of("P 4M"),
              " A rotation axis cannot be immediately followed by a plane\r within the same "
              "symmetry direction");
    EXPECT_EQ(failure_of("P M2"),
              " A mirror plane cannot be immediately followed by a rotation axis\r within the "
              "same symmetry direction");
    EXPECT_EQ(failure_of("P AB"),
              " There is more than one plane within the same symmetry direction");
    EXPECT_EQ(failure_of("P 12"), " Screw axis: 1 2 not allowed");
    EXPECT_EQ(failure_of("P 21"), "none");
    EXPECT_EQ(failure_of("P 2/P"), "none");  // the lattice letter is let through anywhere
}

TEST(FromHermannMauguin, FailureLeavesTheIdentityAndTheLattice) {
    const ReducedList list = get_so_from_hms("F 5");
    EXPECT_TRUE(err_symm);
    EXPECT_EQ(list.count, 1);
    EXPECT_EQ(list.ops[0].rot, (Matrix3i{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}}));
    EXPECT_EQ(lattice_letters[static_cast<std::size_t>(list.lattice_index - 1)], 'F');
}

TEST(FromHermannMauguin, SymbolsOfNoGroupStillGiveAClosedSetOfRotations) {
    std::mt19937 random(230);
    constexpr std::string_view characters = "112234456 ABCDMN/-   ";
    for (int trial = 0; trial < 20000; ++trial) {
        std::string symbol(1, "PABCIRF"[random() % 7]);
        for (std::size_t n = random() % 12; n > 0; --n)
            symbol += characters[random() % characters.size()];
        SCOPED_TRACE(symbol);
        const ReducedList list = get_so_from_hms(symbol);
        ASSERT_TRUE(list.count >= 1 && list.count <= 24);
        if (err_symm) continue;
        std::set<Operator> rotations;
        for (std::size_t i = 0; i < static_cast<std::size_t>(list.count); ++i) {
            rotations.insert(folded_operator({list.ops[i].rot, {}}, {}, 1));
            for (const float t : list.ops[i].tr) ASSERT_TRUE(t >= 0 && t < 1) << t;
        }
        ASSERT_EQ(rotations.size(), static_cast<std::size_t>(list.count));
        const Sym_Oper_Type& any = list.ops[random() % rotations.size()];
        for (std::size_t i = 0; i < rotations.size(); ++i) {
            const Matrix3i product = product_symop(list.ops[i], any).rot;
            ASSERT_TRUE(rotations.contains(folded_operator({product, {}}, {}, 1)));
        }
    }
}

TEST(FromHermannMauguin, AnyBytesOfAnyLengthAreSurvived) {
    std::mt19937 random(1);
    for (int trial = 0; trial < 2000; ++trial) {
        std::string bytes(random() % 300, 'P');
        for (char& c : bytes) c = static_cast<char>(random());
        if (!bytes.empty() && trial % 2 == 0) bytes[0] = 'P';
        const ReducedList list = get_so_from_hms(bytes);
        EXPECT_TRUE(list.count >= 1 && list.count <= 24);
        EXPECT_EQ(err_symm, !err_symm_mess.blank());
    }
}

}  // namespace
