#include "scene/wcfgl_glbond.hpp"

#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

using wcfgl_glatom::Atom;
using wcfgl_glbond::Bond;
using wcfgl_glbond::BondEnds;
using wcfgl_glbond::Bonds;
using wcfgl_glbond::new_gl_bonds;

Atom atom(const char* label, const char* symbol, std::vector<Vector3f> positions,
          const Colour& colour = {}) {
    Atom a;
    a.label = label;
    a.symbol = symbol;
    a.colour = colour;
    a.xf = positions.front();
    a.multiplicity = static_cast<int>(positions.size());
    a.xf_eq = std::move(positions);
    return a;
}

float norm(const Vector3f& v) { return wcfgl_geometry::vect_norm_3d(v); }

/// The search as it is defined, pair by pair, with no pruning at all.
std::vector<std::vector<BondEnds>> plain_search(const std::vector<Atom>& list1,
                                                const std::vector<Atom>& list2, float least,
                                                float greatest, bool triangle) {
    std::vector<std::vector<BondEnds>> records;
    for (std::size_t i = 0; i < list1.size(); ++i) {
        const std::size_t partners = triangle ? i + 1 : list2.size();
        for (std::size_t j = 0; j < partners; ++j) {
            std::vector<BondEnds> found;
            const bool same_site = norm(list1[i].xf - list2[j].xf) <= 0.01f;
            for (std::size_t p = 0; p < list1[i].xf_eq.size(); ++p)
                for (int t1 = -1; t1 <= 1; ++t1)
                    for (int t2 = -1; t2 <= 1; ++t2)
                        for (int t3 = -1; t3 <= 1; ++t3)
                            for (std::size_t q = 0; q < list2[j].xf_eq.size(); ++q) {
                                if (same_site && q > p) continue;
                                const Vector3f t{static_cast<float>(t1), static_cast<float>(t2),
                                                 static_cast<float>(t3)};
                                const Vector3f &a = list1[i].xf_eq[p], &b = list2[j].xf_eq[q];
                                const float d = norm(wcfgl_metrix::f2c_r(a - b - t));
                                if (!(d <= greatest && d >= least && d > 0.01f)) continue;
                                const Vector3f e = b + t;
                                found.push_back({a[0], a[1], a[2], e[0], e[1], e[2]});
                            }
            if (found.empty()) found.emplace_back();
            records.push_back(std::move(found));
        }
    }
    return records;
}

void expect_as_plain(const std::vector<Atom>& list1, const std::vector<Atom>& list2, float least,
                     float greatest) {
    const bool triangle = list1.front().label == list2.front().label;
    const auto plain = plain_search(list1, list2, least, greatest, triangle);
    const Bonds bonds = new_gl_bonds(list1, list2, least, greatest, false);
    ASSERT_EQ(bonds.size(), plain.size());
    std::size_t filled = 0;
    for (std::size_t n = 0; n < plain.size(); ++n) {
        const Bond bond = bonds[n];
        ASSERT_EQ(std::vector<BondEnds>(bond.xf.begin(), bond.xf.end()), plain[n]) << n;
        if (plain[n].front() == BondEnds{}) continue;
        ASSERT_LT(filled, bonds.filled());
        EXPECT_EQ(bonds.filled(filled++).xf.data(), bond.xf.data());
    }
    EXPECT_EQ(filled, bonds.filled());
}

std::vector<Atom> random_atoms(std::mt19937& random, const char* label, int atoms, int positions) {
    std::uniform_real_distribution<float> coordinate(0.0f, 1.0f);
    std::vector<Atom> list;
    for (int a = 0; a < atoms; ++a) {
        std::vector<Vector3f> x;
        for (int p = 0; p < positions; ++p)
            x.push_back({coordinate(random), coordinate(random), coordinate(random)});
        list.push_back(atom(label, label, std::move(x)));
    }
    return list;
}

TEST(BondSearch, FindsWhatThePlainLoopsFindInTheirOrder) {
    std::mt19937 random(20);
    const std::array<std::array<Vector3f, 2>, 4> cells{{{{{5, 6, 7}, {90, 90, 90}}},
                                                        {{{4, 4, 12}, {90, 90, 120}}},
                                                        {{{3, 9, 5}, {65, 115, 80}}},
                                                        {{{30, 25, 8}, {90, 140, 90}}}}};
    for (const auto& [lengths, angles] : cells) {
        wcfgl_metrix::define_cell(lengths, angles);
        for (const float greatest : {0.5f, 1.7f, 3.1f, 9.0f, 40.0f}) {
            const auto a = random_atoms(random, "A", 3, 9), b = random_atoms(random, "B", 2, 5);
            expect_as_plain(a, b, 0.4f, greatest);
            expect_as_plain(a, a, 0.0f, greatest);
        }
    }
}

TEST(BondSearch, TakesPositionsOutsideTheCellAndOddNumbersAsThePlainLoopsDo) {
    wcfgl_metrix::define_cell({4, 5, 6}, {90, 100, 90});
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const std::vector<Atom> a{atom("A", "A", {{-0.2f, 0.1f, 5.3f}, {0.99999f, 0, 0.5f}}),
                              atom("A", "A", {{1e6f, 0, 0}, {0, nan, 0}, {-1e-9f, 1.0f, 0}})};
    const std::vector<Atom> b{atom("B", "B", {{0, 0, 4.9f}, {0, 1, 0.5f}, {1e6f, 0, 0.25f}}),
                              atom("B", "B", {{1e30f, 0, 0}, {0.3f, 0.3f, 0.3f}})};
    for (const float greatest : {2.0f, 7.0f, 1e30f, nan, -1.0f, -3e38f}) {
        expect_as_plain(a, b, 0.0f, greatest);
        expect_as_plain(a, b, nan, greatest);
        expect_as_plain(a, a, 0.0f, greatest);
    }
}

TEST(BondSearch, WithoutACellFractionsAreTakenAsAngstrom) {
    const std::vector<Atom> a{atom("A", "A", {{0, 0, 0}})}, b{atom("B", "B", {{0.5f, 0, 0}})};
    expect_as_plain(a, b, 0.4f, 0.6f);
    EXPECT_EQ(new_gl_bonds(a, b, 0.4f, 0.6f, false)[0].xf.size(), 2u);
}

// Rock salt: each of the 4 Na has 6 Cl at a/2, and each of the 24 ends lies within the neighbours.
TEST(BondSearch, RockSaltHasSixNeighboursAndFewDistancesAreTried) {
    wcfgl_metrix::define_cell({5.64f, 5.64f, 5.64f}, {90, 90, 90});
    const std::vector<Atom> na{atom(
        "Na", "NA", {{0, 0, 0}, {0.5f, 0.5f, 0}, {0.5f, 0, 0.5f}, {0, 0.5f, 0.5f}}, {1, 0, 0, 1})};
    const std::vector<Atom> cl{atom(
        "Cl", "CL", {{0.5f, 0, 0}, {0, 0.5f, 0}, {0, 0, 0.5f}, {0.5f, 0.5f, 0.5f}}, {0, 1, 0, 1})};
    const Bonds bonds = new_gl_bonds(na, cl, 0.0f, 3.0f, true);
    ASSERT_EQ(bonds.size(), 1u);
    EXPECT_EQ(bonds[0].xf.size(), 24u);
    EXPECT_EQ(bonds[0].colour1, (Colour{1, 0, 0, 1}));
    EXPECT_EQ(bonds[0].colour2, (Colour{0, 1, 0, 1}));
    EXPECT_LE(bonds.distance_tests(), 10 * bonds[0].xf.size());

    const Colour blue{0, 0, 1, 1};
    const Bonds coloured = new_gl_bonds(na, cl, 0.0f, 3.0f, true, blue);
    EXPECT_EQ(coloured[0].colour1, blue);
    EXPECT_EQ(coloured[0].colour2, blue);
}

TEST(BondSearch, EqualNamesGiveEachPairOfAtomsOnce) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    const std::vector<Atom> atoms{atom("C", "C", {{0.1f, 0, 0}}), atom("C", "C", {{0.2f, 0, 0}}),
                                  atom("C", "C", {{0.3f, 0, 0}})};
    const Bonds bonds = new_gl_bonds(atoms, atoms, 0.5f, 1.5f, false);
    ASSERT_EQ(bonds.size(), 6u);  // (1,1) (2,1) (2,2) (3,1) (3,2) (3,3)
    ASSERT_EQ(bonds.filled(), 2u);
    EXPECT_EQ(bonds[1].xf[0][0], 0.2f);
    EXPECT_EQ(bonds[1].xf[0][3], 0.1f);
    EXPECT_EQ(bonds[4].xf[0][0], 0.3f);
    EXPECT_EQ(bonds[0].xf[0], BondEnds{});
}

// Two pairs of atoms with 200 positions each have 27 x 200 x 200 bonds apiece.
TEST(BondSearch, StopsAtAMillionBondsAndKeepsTheFirst) {
    std::mt19937 random(7);
    const auto a = random_atoms(random, "A", 1, 200), b = random_atoms(random, "B", 2, 200);
    const auto plain = plain_search(a, b, 0, 1e30f, false);
    ASSERT_GT(plain[0].size(), wcfgl_glbond::most_bonds);
    const Bonds bonds = new_gl_bonds(a, b, 0, 1e30f, false);
    ASSERT_EQ(bonds.size(), 2u);
    ASSERT_EQ(bonds[0].xf.size(), wcfgl_glbond::most_bonds);
    EXPECT_TRUE(std::equal(bonds[0].xf.begin(), bonds[0].xf.end(), plain[0].begin()));
    EXPECT_EQ(bonds[1].xf[0], BondEnds{}) << "no room is left for the second pair";
}

// Atoms on one site: 0.01 apart in fractions is one, more are two. Positions closer than 0.01
// angstrom are no bond.
TEST(BondSearch, LimitsOfOneSiteAndOfCoincidenceAreThoseGiven) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    const auto pairs = [](float apart) {
        const std::vector<Atom> a{atom("A", "A", {{0.25f, 0, 0}, {0.5f, 0, 0}})};
        const std::vector<Atom> b{atom("B", "B", {{0.25f + apart, 0, 0}, {0.5f + apart, 0, 0}})};
        return new_gl_bonds(a, b, 2.0f, 3.0f, false)[0].xf.size();
    };
    EXPECT_EQ(pairs(0.0078125f), 1u) << "one site: not from the first to the second as well";
    EXPECT_EQ(pairs(0.015625f), 2u);
    const auto found = [](float apart) {
        const std::vector<Atom> a{atom("A", "A", {{0.5f, 0, 0}})};
        const std::vector<Atom> b{atom("B", "B", {{0.5f + apart, 0, 0}})};
        return new_gl_bonds(a, b, 0.0f, 3.0f, false).filled();
    };
    EXPECT_EQ(found(0.0009765625f), 0u);  // 0.0098 angstrom
    EXPECT_EQ(found(0.00109863281f), 1u);
}

TEST(BondSearch, EmptyListsGiveNoRecord) {
    EXPECT_EQ(new_gl_bonds({}, {}, 0, 1, false).size(), 0u);
}

}  // namespace
