#include "crystal/propagation_vectors.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <sstream>
#include <vector>

namespace {
using namespace propagation_vectors;
using crystallographic_symmetry::err_symm;
using crystallographic_symmetry::set_spacegroup;
using crystallographic_symmetry::Space_Group_Type;

TEST(MinusK, IsEquivalentWhenTwiceKIsALatticeVector) {
    const struct {
        Vector3f k;
        const char* lattice;
        bool expected;
    } cases[] = {
        {{0, 0, 0}, "P", true},
        {{0.5f, 0.5f, 0.5f}, "P", true},
        {{1.0f / 3, 0, 0}, "P", false},
        {{0.3333f, 0, 0}, "P", false},
        {{0.5f, 0, 0}, "I", false},
        {{1, 0, 0}, "I", true},
        {{0.5f, 0.5f, 0}, "C", true},
        {{0.5f, 0, 0}, "C", false},
        {{0, 0.5f, 0.5f}, "A", true},
        {{0, 0.5f, 0}, "a", false},
        {{0.5f, 0, 0.5f}, " B", true},
        {{0.5f, 0.5f, 0.5f}, "F", true},
        {{0.5f, 0.5f, 0}, "F", false},
        {{0, 0, 1.5f}, "R", true},  // -h + k + l = 3
        {{0, 0, 0.5f}, "R", false},
        {{0.5f, -0.5f, -0.5f}, "R", true},
        {{0.5f, 0.5f, -1.5f}, "R", true},
        {{1e30f, 0, 0}, "I", true},  // beyond any integer, and even
        {{std::numeric_limits<float>::infinity(), 0, 0}, "P", false},
        {{std::nanf(""), 0, 0}, "P", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.k[0] << ' ' << c.k[1] << ' ' << c.k[2] << c.lattice);
        EXPECT_EQ(k_equiv_minus_k(c.k, c.lattice), c.expected);
        EXPECT_EQ(k_equiv(c.k, -c.k, c.lattice), c.expected);
    }
}

TEST(MinusK, AnUnknownLetterAsksForIntegersOnlyButPairsAreNeverEquivalent) {
    for (const char* letter : {"z", "Z", "", "?"}) {
        EXPECT_TRUE(k_equiv_minus_k({0.5f, 0, 0}, letter)) << letter;
        EXPECT_FALSE(k_equiv_minus_k({0.25f, 0, 0}, letter)) << letter;
        EXPECT_FALSE(k_equiv({0.5f, 0, 0}, {0.5f, 0, 0}, letter)) << letter;
    }
}

std::unique_ptr<Group_k_Type> star(const char* symbol, const Vector3f& k) {
    const auto group = std::make_unique<Space_Group_Type>();
    set_spacegroup(symbol, *group);
    EXPECT_FALSE(err_symm) << symbol;
    auto result = std::make_unique<Group_k_Type>();
    k_star(k, *group, *result);
    return result;
}

// Arms and little groups from the published tables of wave vectors; the order of the point group is
// their product.
TEST(KStar, SplitsThePointGroupIntoLittleGroupTimesArms) {
    const struct {
        const char* symbol;
        Vector3f k;
        int arms, point_group;
        bool minus;
    } cases[] = {
        {"P M -3 M", {0, 0, 0}, 1, 48, true},
        {"P M -3 M", {0.5f, 0, 0}, 3, 48, true},        // X
        {"P M -3 M", {0.5f, 0.5f, 0.5f}, 1, 48, true},  // R
        {"F M -3 M", {0, 0, 1}, 3, 48, true},           // X
        {"F M -3 M", {0.5f, 0.5f, 0.5f}, 4, 48, true},  // L
        {"F M -3 M", {0.5f, 1, 0}, 6, 48, false},       // W
        {"F -4 3 M", {0.5f, 0.5f, 0.5f}, 4, 24, true},
        {"I M -3 M", {0.5f, 0.5f, 0.5f}, 2, 48, false},        // P
        {"I M -3 M", {0.5f, 0.5f, 0}, 6, 48, true},            // N
        {"P 6/M M M", {1.0f / 3, 1.0f / 3, 0}, 2, 24, false},  // K
        {"P 3", {1.0f / 3, 1.0f / 3, 0}, 1, 3, false},
        {"P 21/C", {0.1f, 0.2f, 0.3f}, 4, 4, false},  // a general vector
        {"P 1", {0.1f, 0.2f, 0.3f}, 1, 1, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.symbol << ' ' << c.k[0] << ' ' << c.k[1]);
        const auto group_k = star(c.symbol, c.k);
        EXPECT_EQ(group_k->nk, c.arms);
        EXPECT_EQ(group_k->ngk * group_k->nk, c.point_group);
        EXPECT_EQ(group_k->k_equiv_minusk, c.minus);
        EXPECT_EQ(group_k->p[0], 1);
        int used = 0;
        for (std::size_t arm = 0; arm < max_arms; ++arm)
            for (const int number : group_k->co[arm]) used += number != 0;
        EXPECT_EQ(used, c.point_group);  // each operator leads to one arm
    }
}

TEST(KStar, AListTakenAsItStandsEndsWithItsLastOperator) {
    const std::vector<FixedText<80>> ops{"x,y,z", "-x,-y,-z", "-x,y+1/2,-z", "x,-y+1/2,z"};
    const auto group = std::make_unique<Space_Group_Type>();
    set_spacegroup("", *group, {.gen = ops, .ngen = 4, .mode = "FIX"});
    ASSERT_FALSE(err_symm);
    auto group_k = std::make_unique<Group_k_Type>();
    k_star({0.1f, 0.2f, 0.3f}, *group, *group_k);
    EXPECT_EQ(group_k->nk, 4);
    EXPECT_FALSE(group_k->k_equiv_minusk);
    k_star({0.1f, 0, 0.3f}, *group, *group_k);
    EXPECT_EQ(group_k->nk, 2);
    EXPECT_EQ(group_k->ngk, 2);
    k_star({0.5f, 0, 0}, *group, *group_k);
    EXPECT_EQ(group_k->ngk, 4);
    EXPECT_TRUE(group_k->k_equiv_minusk);
}

TEST(HkEquiv, UsesTheLittleGroupAndFriedelsLawOnRequest) {
    const auto with_axis = star("P 1 1 2", {0, 0, 0.5f});
    EXPECT_TRUE(hk_equiv({1, 2, 3}, {-1, -2, 3}, *with_axis));
    EXPECT_FALSE(hk_equiv({1, 2, 3}, {-1, -2, -3}, *with_axis));
    EXPECT_TRUE(hk_equiv({1, 2, 3}, {-1, -2, -3}, *with_axis, true));
    const auto incommensurate = star("P 1 1 2", {0, 0, 0.3f});
    EXPECT_FALSE(hk_equiv({1, 2, 3}, {-1, -2, -3}, *incommensurate, true));
    const auto general = star("P 1 1 2", {0.1f, 0, 0});
    EXPECT_FALSE(hk_equiv({1, 2, 3}, {-1, -2, 3}, *general));
}

TEST(WriteGroupK, ListsTheArms) {
    std::ostringstream out;
    write_group_k(*star("P 4", {0.5f, 0, 0}), out);
    EXPECT_NE(out.str().find("Star of 2 arms"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("  0.50000,"), std::string::npos) << out.str();
}

}  // namespace
