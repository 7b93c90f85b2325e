#include "crystal/crystallographic_symmetry/orbits.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"

#include "crystal/math_gen.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <vector>

using namespace crystallographic_symmetry;

namespace {

Space_Group_Type group_of(std::string_view symbol, const SpacegroupOptions& options = {}) {
    Space_Group_Type group;
    set_spacegroup(symbol, group, options);
    EXPECT_FALSE(err_symm) << symbol << err_symm_mess.trimmed();
    return group;
}

/// A point no element of symmetry goes through.
constexpr Vector3f general{0.1371f, 0.2917f, 0.0683f};

/// Whether two points of a cell are one, up to what 32-bit arithmetic leaves.
bool same_point(const Vector3f& a, const Vector3f& b) {
    const Vector3f d = a - b;
    return std::ranges::all_of(d, [](float v) { return std::abs(v - std::round(v)) < 2e-5f; });
}

TEST(Orbits, PointsTimesOperatorsThatLeaveOneInPlaceIsTheGroup) {
    const std::array<Vector3f, 6> points{{general,
                                          {0, 0, 0},
                                          {0.25f, 0.25f, 0.25f},
                                          {0.2f, 0.2f, 0.2f},
                                          {0.3f, 0, 0.25f},
                                          {0.125f, 0.4f, 0.5f}}};
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        const Space_Group_Type group = group_of(row.hm.trimmed());
        for (const Vector3f& point : points) {
            const int multiplicity = get_multip_pos(point, group);
            EXPECT_EQ(multiplicity * get_stabilizer(point, group).order, group.multip);
            EXPECT_EQ(get_occ_site(point, group),
                      static_cast<float>(multiplicity) / static_cast<float>(group.multip));
            Orbit orbit;
            get_orbit(point, group, orbit);
            EXPECT_EQ(orbit.count, multiplicity);
            get_orbit(point, group, orbit, true);
            EXPECT_EQ(orbit.count * group.num_lat, multiplicity);
        }
        EXPECT_EQ(get_multip_pos(general, group), group.multip);
        EXPECT_EQ(get_stabilizer(general, group).order, 1);
    }
}

TEST(Orbits, EveryPointTellsTheOperatorThatMadeIt) {
    const Space_Group_Type group = group_of("I 41/a m d");
    const Vector3f x{2.3f, -1.0f, 0.1f};
    Orbit orbit;
    get_orbit(x, group, orbit);
    EXPECT_EQ(orbit.points[0], x);
    EXPECT_EQ(orbit.operators[0], 1);
    for (std::size_t i = 1; i < orbit.in_use().size(); ++i) {
        const auto op = static_cast<std::size_t>(orbit.operators[i] - 1);
        EXPECT_TRUE(same_point(orbit.points[i], applyso(group.sym_op[op], x)));
        for (const float v : orbit.points[i]) EXPECT_TRUE(v >= 0 && v < 1) << v;
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(same_point(orbit.points[i], orbit.points[k]));
    }
}

TEST(Orbits, StabilizerListsTheOperatorsOfTheSite) {
    const Space_Group_Type group = group_of("P m -3 m");
    EXPECT_EQ(get_occ_site({0, 0, 0}, group), 1.0f / 48);
    const Stabilizer corner = get_stabilizer({0.5f, 0, 0}, group);
    EXPECT_EQ(corner.order, 16);
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_TRUE(same_point(
            applyso(group.sym_op[static_cast<std::size_t>(corner.operators[i] - 1)], {0.5f, 0, 0}),
            {0.5f, 0, 0}));
    EXPECT_EQ(corner.operators[0], 1);
    EXPECT_EQ(corner.operators[16], 0);
}

TEST(Orbits, UnconventionalCentringIsTheRecordsOwn) {
    const std::array<FixedText<80>, 2> generators{"x+1/3,y,z", "-x,-y,-z"};
    const SpacegroupOptions options{.gen = std::span<const FixedText<80>>(generators), .ngen = 2};
    const Space_Group_Type group = group_of("", options);
    ASSERT_EQ(group.lat_type[0], 'Z');
    group_of("F m m m");  // changes the centring that the module remembers
    EXPECT_EQ(get_multip_pos({0, 0, 0}, group), 3);
    EXPECT_EQ(get_multip_pos(general, group), 6);
    Orbit orbit;
    get_orbit(general, group, orbit);
    EXPECT_EQ(orbit.count, 6);
    get_orbit(general, group, orbit, true);
    EXPECT_EQ(orbit.count, 2);
}

TEST(Orbits, ListTakenAsItStoodKeepsItsOperators) {
    const std::array<FixedText<80>, 4> all{"x,y,z", "x+1/2,y+1/2,z", "-x,-y,-z",
                                           "-x+1/2,-y+1/2,-z"};
    const SpacegroupOptions options{
        .gen = std::span<const FixedText<80>>(all), .ngen = 4, .mode = "FIX"};
    const Space_Group_Type group = group_of("", options);
    EXPECT_EQ(get_multip_pos(general, group), 4);
    EXPECT_EQ(get_multip_pos({0.25f, 0.25f, 0}, group), 2);
    Orbit orbit;
    get_orbit({0, 0, 0.5f}, group, orbit);
    EXPECT_EQ(orbit.count, 2);
}

TEST(Orbits, RecordsThatHoldLessThanTheySayAddNoPoints) {
    const Space_Group_Type none;
    Orbit orbit;
    get_orbit(general, none, orbit);
    EXPECT_EQ(orbit.count, 1);
    EXPECT_EQ(get_stabilizer(general, none).order, 1);
    EXPECT_EQ(get_occ_site(general, none), 0.0f);

    // Of six lattice points the list of operators holds four.
    const std::array<FixedText<80>, 1> sixth{"x+1/6,y,z"};
    Space_Group_Type group =
        group_of("", {.gen = std::span<const FixedText<80>>(sixth), .ngen = 1});
    EXPECT_EQ(group.num_lat, 6);
    get_orbit(general, group, orbit);
    EXPECT_EQ(orbit.count, 4);
    EXPECT_EQ(get_multip_pos(general, group), 6);

    group.num_lat = group.num_ops = group.multip = 100000;
    get_orbit({std::numeric_limits<float>::quiet_NaN(), 1e30f, 0}, group, orbit);
    EXPECT_LE(orbit.count, 192);
    EXPECT_LE(get_stabilizer(general, group).order, 192);
}

TEST(Orbits, AsymmetricUnitsHoldEveryPoint) {
    std::uint32_t seed = 1;
    const auto next = [&seed] {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<float>(seed >> 8) / 16777216.0f;
    };
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        const Space_Group_Type group = group_of(row.hm.trimmed());
        const auto inside = [&](const Vector3f& point) {
            for (std::size_t i = 0; i < 3; ++i) {
                const float low = group.asym_unit[i], high = group.asym_unit[i + 3];
                if (low + (point[i] - low - std::floor(point[i] - low)) > high + 1e-5f)
                    return false;
            }
            return true;
        };
        for (int trial = 0; trial < 8; ++trial) {
            Orbit orbit;
            get_orbit({next(), next(), next()}, group, orbit);
            EXPECT_TRUE(std::ranges::any_of(orbit.in_use(), inside))
                << orbit.points[0][0] << ' ' << orbit.points[0][1] << ' ' << orbit.points[0][2];
        }
    }
}

TEST(WyckoffOrbit, PositionsAreSpelledOnceAndCentringIsLeftOut) {
    std::array<FixedText<40>, 48> list;
    EXPECT_EQ(wyckoff_orbit(group_of("P -1"), "  0,0,0", list), 1);
    EXPECT_EQ(list[0].trimmed(), "0,0,0");
    EXPECT_EQ(wyckoff_orbit(group_of("C m"), "x,0,z", list), 1);
    EXPECT_EQ(wyckoff_orbit(group_of("P 21/c"), "0,0,1/2", list), 2);
    EXPECT_EQ(list[1].trimmed(), "0,1/2,0");
    EXPECT_TRUE(list[2].blank());
    EXPECT_EQ(wyckoff_orbit(group_of("P 3 m 1"), "x,-x,z", list), 3);
    EXPECT_EQ((std::set<std::string_view>{list[1].trimmed(), list[2].trimmed()}),
              (std::set<std::string_view>{"x,2x,z", "-2x,-x,z"}));
    EXPECT_EQ(wyckoff_orbit(group_of("P -1"), "   ", list), 0);
    EXPECT_TRUE(list[0].blank());
}

TEST(WyckoffOrbit, ListsThatAreTooShortOrTextsThatAreNoneDoNoHarm) {
    const Space_Group_Type group = group_of("F m -3 m");
    std::array<FixedText<40>, 5> list;
    EXPECT_EQ(wyckoff_orbit(group, "x,y,z", list), 5);
    EXPECT_EQ(wyckoff_orbit(group, "x,y,z", std::span(list).first(0)), 0);
    // Beside the text as it stands, the position 0,0,0 that nothing read of it amounts to.
    EXPECT_EQ(wyckoff_orbit(group, std::string(500, '?'), list), 2);
    EXPECT_FALSE(err_symm);
}

/// The group that a key of the table is for: ":2" and ":H" are the settings of the bare symbol.
Space_Group_Type group_of_key(const symmetry_tables::WyckoffRow& row) {
    std::string_view symbol = row.hm.trimmed();
    if (symbol.ends_with(":2") || symbol.ends_with(":H")) symbol.remove_suffix(2);
    return group_of(symbol);
}

/// A position's point for parameters that lie on no other element.
Vector3f point_of(std::string_view position) {
    Sym_Oper_Type op;
    read_xsym(position, 1, op.rot, &op.tr);
    init_err_symm();
    return applyso(op, general);
}

TEST(WyckoffTable, EveryPositionIsSpecialAndHasTheMultiplicityOfItsPoints) {
    for (const symmetry_tables::WyckoffRow& row : symmetry_tables::wyckoff_rows()) {
        const Space_Group_Type group = group_of_key(row);
        for (std::size_t i = 0; i < static_cast<std::size_t>(row.norbit); ++i) {
            SCOPED_TRACE(std::string(row.hm.field()) + std::string(row.orbit[i].trimmed()));
            std::array<FixedText<40>, max_orbit_texts> list;
            const int count = wyckoff_orbit(group, row.orbit[i].field(), list);
            const int multiplicity = get_multip_pos(point_of(row.orbit[i].field()), group);
            EXPECT_EQ(count * group.num_lat, multiplicity);
            // The list of I 4 2 2 ends with the general position.
            const bool is_general = row.hm.trimmed() == "I 4 2 2" && i == 10;
            EXPECT_EQ(multiplicity == group.multip, is_general);
        }
    }
}

/// One letter of a key: a point of it, and the operators of its site.
struct Site {
    Vector3f point;
    int multiplicity;
    std::vector<Matrix3i> rotations;
};

Site site_of(const Vector3f& point, const Space_Group_Type& group) {
    const Stabilizer stabilizer = get_stabilizer(point, group);
    Site site{point, group.multip / stabilizer.order, {}};
    for (std::size_t i = 0; i < static_cast<std::size_t>(stabilizer.order); ++i)
        site.rotations.push_back(
            group.sym_op[static_cast<std::size_t>(stabilizer.operators[i] - 1)].rot);
    return site;
}

/// Whether every rotation of b's site, set at b's point, leaves a moved by whole cells in place:
/// a then lies on the point, line or plane of b.
bool lies_on(const Vector3f& a, const Site& b) {
    for (int cell = 0; cell < 27; ++cell) {
        const Vector3f moved{static_cast<float>(cell % 3 - 1), static_cast<float>(cell / 3 % 3 - 1),
                             static_cast<float>(cell / 9 - 1)};
        const Vector3f d = a + moved - b.point;
        if (std::ranges::all_of(b.rotations, [&](const Matrix3i& rot) {
                const Vector3f off = applyso({rot, {}}, d) - d;
                return std::ranges::all_of(off, [](float v) { return std::abs(v) < 1e-4f; });
            }))
            return true;
    }
    return false;
}

TEST(WyckoffTable, NoTwoPositionsOfAGroupAreTheSame) {
    for (const symmetry_tables::WyckoffRow& row : symmetry_tables::wyckoff_rows()) {
        const Space_Group_Type group = group_of_key(row);
        std::vector<Site> sites;
        for (std::size_t i = 0; i < static_cast<std::size_t>(row.norbit); ++i) {
            const Vector3f point = point_of(row.orbit[i].field());
            Orbit orbit;
            get_orbit(point, group, orbit);
            for (std::size_t k = 0; k < sites.size(); ++k) {
                if (sites[k].multiplicity != orbit.count) continue;
                EXPECT_FALSE(std::ranges::any_of(
                    orbit.in_use(), [&](const Vector3f& a) { return lies_on(a, sites[k]); }))
                    << row.hm.trimmed() << ": " << row.orbit[k].trimmed() << " and "
                    << row.orbit[i].trimmed();
            }
            sites.push_back(site_of(math_gen::modulo_lat(point), group));
        }
    }
}

}  // namespace
