#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/operator_tables.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

using namespace crystallographic_symmetry;

namespace {

Sym_Oper_Type operator_of(std::string_view triplet) {
    Sym_Oper_Type op;
    read_xsym(triplet, 1, op.rot, &op.tr);
    return op;
}

Space_Group_Type group_of(const symmetry_tables::SpgrRow& row) {
    Space_Group_Type group;
    const std::string_view hall = row.hall.field();
    set_spacegroup(hall, group, {.mode = "HAL"});
    EXPECT_FALSE(err_symm) << err_symm_mess.trimmed();
    return group;
}

/// A record of nothing but these reduced operators.
Space_Group_Type record_of(std::initializer_list<std::string_view> triplets, bool acentric) {
    Space_Group_Type group;
    group.num_ops = static_cast<int>(triplets.size());
    group.centred = acentric ? 1 : 2;
    std::size_t i = 0;
    for (const std::string_view triplet : triplets) group.sym_op[i++] = operator_of(triplet);
    group.hexa = is_hexa(std::span(group.sym_op).first(i));
    return group;
}

/// Laue class and point group behind each other: "-3m/32".
std::string classes(const Space_Group_Type& group) {
    FixedText<5> laue, pg;
    get_laue_pg(group, laue, pg);
    return std::string(laue.trimmed()) + " " + std::string(pg.trimmed());
}

TEST(GroupProperties, RotationsOfTheTablesHaveTheOrderOfTheirPowers) {
    const Matrix3i identity = rot_table[0];
    for (const Matrix3i& rot : rot_table) {
        int order = 1;
        for (Sym_Oper_Type power{rot, {}}; power.rot != identity; ++order)
            power = product_symop(power, {rot, {}});
        EXPECT_EQ(axes_rotation(rot), order);
        EXPECT_EQ(axes_rotation({{-rot[0], -rot[1], -rot[2]}}), -order);
    }
}

TEST(GroupProperties, MatricesThatAreNoRotationHaveNoOrder) {
    EXPECT_EQ(axes_rotation(operator_of("2x,y,z").rot), 0);
    EXPECT_EQ(axes_rotation(operator_of("x,x,z").rot), 0);
    EXPECT_EQ(axes_rotation(operator_of("3x+y,-x,z").rot), 0);  // determinant 1, trace 4
    get_crystal_system_r_op(std::array{operator_of("2x,y,z")});
    EXPECT_TRUE(err_symm);
    EXPECT_EQ(err_symm_mess.trimmed(), " Axes rotation wrong");
}

TEST(GroupProperties, SystemFollowsFromTheGroupNumber) {
    constexpr std::array<std::pair<int, const char*>, 7> last_of{{{2, "Triclinic"},
                                                                  {15, "Monoclinic"},
                                                                  {74, "Orthorhombic"},
                                                                  {142, "Tetragonal"},
                                                                  {167, "Rhombohedral"},
                                                                  {194, "Hexagonal"},
                                                                  {230, "Cubic"}}};
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        const Space_Group_Type group = group_of(row);
        const auto system =
            std::ranges::find_if(last_of, [&](auto& l) { return row.n <= l.first; });
        const auto reduced = std::span(group.sym_op).first(static_cast<std::size_t>(group.num_ops));
        const CrystalSystem found = get_crystal_system_r_op(reduced);
        EXPECT_EQ(crystal_system_name(found.index), system->second);
        EXPECT_EQ(found.letter, group.lat_symbol[0]);
        EXPECT_EQ(group.crystal_sys.trimmed(), system->second);

        const bool rhombohedral_axes = row.hm.trimmed().ends_with(":R");
        EXPECT_EQ(group.lat_type[0], rhombohedral_axes ? 'P' : row.hm[0]);
        EXPECT_EQ(group.hexa, row.n >= 143 && row.n <= 194 && !rhombohedral_axes);

        std::vector<FixedText<40>> triplets(group.sym_op_text.begin(),
                                            group.sym_op_text.begin() + group.num_ops);
        EXPECT_EQ(get_crystal_system_r_st(triplets).index, found.index);
    }
}

TEST(GroupProperties, CentringGivesItsVectorsAndItsIndex) {
    for (std::size_t i = 0; i < 7; ++i) {
        const char letter = lattice_letters[i];
        SCOPED_TRACE(letter);
        EXPECT_EQ(latsym(std::string(" -") + static_cast<char>(letter + 32)),
                  static_cast<int>(i) + 1);
        EXPECT_EQ(lat_type[0], letter);
        EXPECT_EQ(num_lat, letter == 'P' ? 1 : letter == 'R' ? 3 : letter == 'F' ? 4 : 2);
        EXPECT_EQ(lat_trans[0], Vector3f{});
        // The points form a group: the sum of any two is one of them.
        for (int a = 0; a < num_lat; ++a)
            for (int b = 0; b < num_lat; ++b)
                EXPECT_TRUE(lattice_trans(
                    lat_trans[static_cast<std::size_t>(a)] + lat_trans[static_cast<std::size_t>(b)],
                    letter));
    }
    EXPECT_EQ(latsym("F"), 7);
    EXPECT_EQ(lat_trans[1], (Vector3f{0.5f, 0.5f, 0}));
    EXPECT_EQ(lat_trans[3], (Vector3f{0, 0.5f, 0.5f}));
}

TEST(GroupProperties, UnconventionalLatticeTakesElevenVectors) {
    std::vector<Vector3f> vectors(20);
    for (std::size_t i = 0; i < vectors.size(); ++i)
        vectors[i] = {static_cast<float>(i + 1) / 32, 0, 0};
    EXPECT_EQ(latsym("z", vectors), 8);
    EXPECT_EQ(num_lat, 12);
    EXPECT_EQ(lat_trans[11], vectors[10]);
    EXPECT_EQ(latsym("z", std::span(vectors).first(2)), 8);
    EXPECT_EQ(num_lat, 3);
}

TEST(GroupProperties, ALetterAloneTellsItsLatticePoints) {
    for (const char letter : lattice_letters.substr(0, 7)) {
        latsym({&letter, 1});
        const auto points = lattice_points(letter);
        EXPECT_TRUE(std::ranges::equal(
            points, std::span(lat_trans).first(static_cast<std::size_t>(num_lat))));
        for (const Vector3f& point : points) EXPECT_TRUE(lattice_trans(point, letter)) << letter;
    }
    EXPECT_EQ(lattice_points('f').size(), 4u);
    EXPECT_EQ(lattice_points('r')[2], (Vector3f{1.0f / 3.0f, 2.0f / 3.0f, 2.0f / 3.0f}));
    for (const char letter : {'Z', 'q', ' ', '5'}) EXPECT_EQ(lattice_points(letter).size(), 1u);
}

TEST(GroupProperties, UnknownLatticesAreRefused) {
    latsym("C");
    EXPECT_EQ(latsym("Z"), 0);
    EXPECT_EQ(err_symm_mess.trimmed(), "Unconventional Lattice Symbol Z needs centring vectors");
    EXPECT_EQ(latsym("q"), 0);
    EXPECT_EQ(err_symm_mess.trimmed(), "Wrong Lattice Symbol Q");
    EXPECT_EQ(latsym(" - "), 0);
    EXPECT_TRUE(err_symm);
    EXPECT_EQ(num_lat, 1);
    EXPECT_EQ(lat_type[0], 'C');
    latsym("P");
    EXPECT_FALSE(err_symm);
}

/// The tabulated classes by the names that counting has for them.
std::string counted_names(const symmetry_tables::SpgrRow& row) {
    const std::string laue(get_laue_str(row.laue));
    const std::string pg(get_pointgroup_str(row.pg));
    if (laue == "-3m1") return pg == "32" ? "-3m -32" : "-3m " + pg;
    if (laue == "-31m") return pg == "312" ? "-31m -312" : "-31m " + pg;
    return laue.substr(0, laue.find(" R")) + " " + pg;
}

TEST(GroupProperties, CountingFindsTheTabulatedClass) {
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        const std::string_view symbol = row.hm.trimmed();
        SCOPED_TRACE(symbol);
        // The setting of these classes is told by the first two-fold or mirror of the list, which
        // the Hall symbol doesn't always put in front.
        const std::string_view pg = get_pointgroup_str(row.pg);
        const bool by_first = pg == "-31m" || pg == "-62m";
        // The table has the class of the group's usual cell for these.
        if (symbol == "C -4 B 2" || symbol == "F -4 D 2") continue;
        if (!by_first) {
            EXPECT_EQ(classes(group_of(row)), counted_names(row));
        }

        if (symbol.find(':') != std::string_view::npos) continue;
        Space_Group_Type by_symbol;
        set_spacegroup(symbol, by_symbol, {.mode = "HMS"});
        EXPECT_EQ(classes(by_symbol), counted_names(row));
    }
}

TEST(GroupProperties, FirstOperatorsOfTheListTellTheSettingOfAClass) {
    EXPECT_EQ(classes(record_of(
                  {"x,y,z", "-y,x-y,z", "-x+y,-x,z", "-y,-x,-z", "-x+y,y,-z", "x,x-y,-z"}, true)),
              "-31m -312");
    EXPECT_EQ(classes(record_of(
                  {"x,y,z", "-y,x-y,z", "-x+y,-x,z", "x,x-y,-z", "-x+y,y,-z", "-y,-x,-z"}, true)),
              "-3m -32");
    EXPECT_EQ(classes(record_of(
                  {"x,y,z", "-y,x-y,z", "-x+y,-x,z", "y,x,z", "x-y,-y,z", "-x,-x+y,z"}, true)),
              "-31m 31m");
    EXPECT_EQ(classes(record_of({"x,y,z", "-x,-y,z", "y,-x,-z", "-y,x,-z", "-x,y,z", "x,-y,z",
                                 "y,x,-z", "-y,-x,-z"},
                                true)),
              "4/mmm -4m2");
}

TEST(GroupProperties, DirectionsOfNoTableLeaveTheClass) {
    // mm2 on hexagonal axes, along c and in the plane.
    EXPECT_EQ(classes(record_of({"x,y,z", "-x,-y,z", "x,x-y,z", "-x,-x+y,z"}, true)), "mmm mm2");
    EXPECT_EQ(classes(record_of({"x,y,z", "x-y,-y,-z", "-x+y,y,z", "x,y,-z"}, true)), "mmm mm2");
    EXPECT_FALSE(err_symm);
}

TEST(GroupProperties, RecordsWithoutAClassStayBlank) {
    EXPECT_EQ(classes(Space_Group_Type{}), " ");
    EXPECT_EQ(err_symm_mess.trimmed(), " No symmetry operators are given");
    EXPECT_EQ(classes(record_of({"x,y,z", "2x,y,z"}, true)), " ");
    EXPECT_EQ(err_symm_mess.trimmed(), " Rotation Not Determined");
    // Two parallel two-folds that no group has without the mirrors between them.
    EXPECT_EQ(classes(record_of({"x,y,z", "-x,-y,z", "-x,-y,z+1/2"}, true)), " ");
    EXPECT_FALSE(err_symm);
}

TEST(GroupProperties, NamesAndNumbersOfClassesAgree) {
    for (int n = 1; n <= 16; ++n) EXPECT_EQ(get_laue_num(get_laue_str(n)), n);
    for (int n = 1; n <= 39; ++n)
        EXPECT_EQ(get_pointgroup_num("  " + std::string(get_pointgroup_str(n)) + "   "), n);
    EXPECT_EQ(get_laue_str(12), "6/mmm");
    EXPECT_EQ(get_pointgroup_str(26), "-31m");
    EXPECT_EQ(get_laue_num("-3m"), 0);
    EXPECT_EQ(get_pointgroup_num(""), 0);
    for (const int n : {-1, 0, 17}) EXPECT_EQ(get_laue_str(n), " Laue Number Incorrect");
    for (const int n : {-1, 0, 40})
        EXPECT_EQ(get_pointgroup_str(n), " Point Group Number Incorrect");
}

}  // namespace
