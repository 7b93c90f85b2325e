#include "crystal/crystallographic_symmetry/space_group.hpp"

#include "crystal/math_gen.hpp"
#include "crystal/symmetry_tables.hpp"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using namespace crystallographic_symmetry;
using symmetry_tables::SpgrRow;

namespace {

Space_Group_Type built(std::string_view text, const SpacegroupOptions& options = {}) {
    Space_Group_Type group;
    set_spacegroup(text, group, options);
    return group;
}

std::string error_of(std::string_view text, const SpacegroupOptions& options = {}) {
    built(text, options);
    return err_symm ? std::string(err_symm_mess.trimmed()) : "no error";
}

std::vector<FixedText<80>> texts(std::initializer_list<const char*> lines) {
    return {lines.begin(), lines.end()};
}

Space_Group_Type generated(const std::vector<FixedText<80>>& lines, const char* mode = "GEN") {
    return built("", {.gen = lines, .ngen = static_cast<int>(lines.size()), .mode = mode});
}

std::string hall_of(const Space_Group_Type& group) { return std::string(group.hall.trimmed()); }

using Operator = std::array<int, 12>;

/// Rotation and translation in 24ths, in the cell.
Operator flat(const Sym_Oper_Type& op) {
    Operator result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[3 * i + j] = op.rot[i][j];
        result[9 + i] = (static_cast<int>(std::lround(op.tr[i] * 24.0f)) + 240) % 24;
    }
    return result;
}

std::set<Operator> operator_set(const Space_Group_Type& group) {
    std::set<Operator> result;
    for (int i = 0; i < group.multip; ++i)
        result.insert(flat(group.sym_op[static_cast<std::size_t>(i)]));
    return result;
}

/// Order of a crystal class, by its number.
constexpr std::array<int, 40> class_order{0, 1,  2,  2,  2,  4,  4,  4,  4,  4,  8,  4, 4,  8,
                                          8, 8,  8,  8,  16, 3,  6,  6,  6,  12, 6,  6, 12, 6,
                                          6, 12, 12, 12, 12, 12, 24, 12, 24, 24, 24, 48};

std::span<const SpgrRow> rows() { return symmetry_tables::spgr_rows(); }

}  // namespace

TEST(EveryRow, GivesAClosedGroupOfTheOrderOfItsClass) {
    for (const SpgrRow& row : rows()) {
        SCOPED_TRACE(row.hall.trimmed());
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
        ASSERT_EQ(group.multip, class_order[static_cast<std::size_t>(row.pg)] * group.num_lat);
        EXPECT_EQ(group.sym_op_text[0].trimmed(), "x,y,z");
        const std::set<Operator> all = operator_set(group);
        EXPECT_EQ(static_cast<int>(all.size()), group.multip);  // no operator twice
        for (int i = 0; i < group.num_ops; ++i)
            for (int j = 0; j < group.multip; ++j) {
                const Sym_Oper_Type product = sym_prod(group.sym_op[static_cast<std::size_t>(i)],
                                                       group.sym_op[static_cast<std::size_t>(j)]);
                ASSERT_TRUE(all.contains(flat(product))) << i << ' ' << j;
            }
    }
}

TEST(EveryRow, OperatorsFollowTheOrderTold) {
    for (const SpgrRow& row : rows()) {
        SCOPED_TRACE(row.hall.trimmed());
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        const int centric = group.centred == 1 ? 1 : 2;
        const int block = group.num_ops * centric;
        for (int i = 0; i < group.multip; ++i) {
            const Sym_Oper_Type& op = group.sym_op[static_cast<std::size_t>(i)];
            const Sym_Oper_Type& first = group.sym_op[static_cast<std::size_t>(i % group.num_ops)];
            const Matrix3i& m = first.rot;
            const bool inverted = i % block >= group.num_ops;
            EXPECT_EQ(op.rot, inverted ? (Matrix3i{-m[0], -m[1], -m[2]}) : m);
            Vector3f expected = inverted ? 2.0f * group.centre_coord - first.tr : first.tr;
            expected = expected + group.lat_trans[static_cast<std::size_t>(i / block)];
            for (std::size_t k = 0; k < 3; ++k) {
                EXPECT_GE(op.tr[k], 0.0f);
                EXPECT_LT(op.tr[k], 1.0f);
            }
            EXPECT_EQ(flat(op), flat({op.rot, expected})) << i;
        }
    }
}

TEST(EveryRow, TextsReadBackAsTheOperators) {
    for (const SpgrRow& row : rows()) {
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        for (std::size_t i = 0; i < max_operators; ++i) {
            const std::string_view text = group.sym_op_text[i].trimmed();
            if (i >= static_cast<std::size_t>(group.multip)) {
                ASSERT_EQ(text, "?");
                continue;
            }
            Sym_Oper_Type op;
            read_xsym(text, 1, op.rot, &op.tr);
            ASSERT_TRUE(equal_symop(op, group.sym_op[i])) << text;
        }
    }
}

TEST(EveryRow, IsFoundByEitherSymbolAndAgreesWithTheLettersOfIt) {
    std::map<std::string, const SpgrRow*> first_of;
    for (const SpgrRow& row : rows()) {
        SCOPED_TRACE(row.hm.trimmed());
        const SpgrRow* first =
            first_of.try_emplace(std::string(row.hm.trimmed()), &row).first->second;
        const Space_Group_Type by_symbol = built(row.hm.field());
        ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
        EXPECT_EQ(by_symbol.hall, first->hall);
        EXPECT_EQ(by_symbol.num_spg, first->n);
        const Space_Group_Type by_hall = built(first->hall.field(), {.mode = "HAL"});
        EXPECT_EQ(operator_set(by_symbol), operator_set(by_hall));
        const Space_Group_Type as_symbol = built(row.hm.field(), {.mode = "HMS"});
        EXPECT_EQ(operator_set(as_symbol), operator_set(by_hall));
        EXPECT_EQ(by_symbol.hexa, by_hall.hexa);
        EXPECT_EQ(by_symbol.crystal_sys, by_hall.crystal_sys);
    }
}

TEST(EveryGroup, PublishedGeneratorsGiveItsBareSymbol) {
    for (int number = 1; number <= 230; ++number) {
        const std::string text = std::to_string(number);
        const auto& it = symmetry_tables::it_generator_rows()[static_cast<std::size_t>(number - 1)];
        SCOPED_TRACE(it.columns(1, 10));
        const Space_Group_Type by_generators = built(text, {.mode = "ITC"});
        ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
        EXPECT_EQ(by_generators.setting.trimmed(), "Generated from explicit IT generators");
        const Space_Group_Type by_symbol = built(it.columns(1, 10), {.force_hall = true});
        ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
        EXPECT_EQ(by_symbol.num_spg, number);
        EXPECT_EQ(operator_set(by_generators), operator_set(by_symbol));
        EXPECT_TRUE(spgr_equal(by_generators, by_symbol));
    }
}

TEST(EveryGroup, SpecialPositionsHaveMultiplicitiesThatDivideTheGeneralOne) {
    int positions = 0;
    for (const symmetry_tables::WyckoffRow& row : symmetry_tables::wyckoff_rows()) {
        const Space_Group_Type group = built(row.hm.field());
        if (err_symm || group.spg_symb.trimmed() != row.hm.trimmed()) continue;  // keys with ":2"
        ASSERT_EQ(group.wyckoff.num_orbit, row.norbit);
        for (int i = 0; i < row.norbit; ++i) {
            const Wyck_Pos_Type& position = group.wyckoff.orbit[static_cast<std::size_t>(i)];
            EXPECT_EQ(group.multip % position.multp, 0) << row.hm.trimmed() << ' ' << i;
            EXPECT_EQ(position.multp, position.norb * group.num_lat);
            EXPECT_EQ(position.str_orbit[0].trimmed(),
                      row.orbit[static_cast<std::size_t>(i)].trimmed());
            EXPECT_TRUE(position.site.blank() && position.str_orig.blank());
            ++positions;
        }
    }
    EXPECT_GT(positions, 1000);
}

TEST(Choice, OneGroupUnderItsNames) {
    for (const char* name : {"225", "F M -3 M", "f m -3 m", "  F m -3 m", "-F 4 2 3", "F M 3 M"}) {
        const Space_Group_Type group = built(name);
        ASSERT_FALSE(err_symm) << name;
        EXPECT_EQ(group.multip, 192) << name;
        EXPECT_EQ(group.num_ops, 24) << name;
        EXPECT_EQ(group.centred, 2) << name;
        EXPECT_EQ(group.num_lat, 4) << name;
        EXPECT_EQ(hall_of(group), "-F 4 2 3") << name;
    }
    EXPECT_EQ(built("F M 3 M").spg_symb.trimmed(), "F M 3 M");
    EXPECT_EQ(built("-F 4 2 3").spg_symb.trimmed(), "F M -3 M");
}

TEST(Choice, OriginsAndAxes) {
    EXPECT_EQ(built("48").spg_symb.trimmed(), "P N N N:1");
    EXPECT_EQ(built("48").info.trimmed(), "1");
    EXPECT_EQ(built("48").centred, 0);
    EXPECT_EQ(built("P N N N").info.trimmed(), "2");
    EXPECT_EQ(built("P N N N").centred, 2);
    EXPECT_EQ(built("R 3").info.trimmed(), "H");
    const Space_Group_Type rhombohedral = built("R 3:R");
    EXPECT_EQ(hall_of(rhombohedral), "P 3*");
    EXPECT_EQ(rhombohedral.lat_type.field(), "P");
    EXPECT_EQ(rhombohedral.setting.trimmed(), "Generated from Hall symbol");
    EXPECT_EQ(built("P n n n:1").centre.trimmed(),
              "Centric (-1 not at origin)  Gen(-1):-x+1/2,-y+1/2,-z+1/2");
    error_of("R 3:H");  // no such row: left to the reader of Hall symbols, which has no ":"
    EXPECT_TRUE(err_symm);
}

TEST(Choice, SevenSymbolsTakeTheRoadOfTheirHallSymbol) {
    int by_hall = 0;
    for (const SpgrRow& row : rows()) {
        if (row.hm.trimmed().find(':') != std::string_view::npos) continue;
        const Space_Group_Type group = built(row.hm.field());
        by_hall += group.setting.trimmed() == "Generated from Hall symbol";
    }
    EXPECT_EQ(by_hall, 7);
    for (const char* symbol :
         {"P N M 21", "P 21 N M", "P M 21 N", "B A M B", "C 4 2 21", "C -4 B 2", "F -4 D 2"})
        EXPECT_EQ(built(symbol).setting.trimmed(), "Generated from Hall symbol") << symbol;
    EXPECT_EQ(built("P N M A").setting.trimmed(), "IT (Generated from Hermann-Mauguin symbol)");
    EXPECT_EQ(built("P N M A", {.force_hall = true}).setting.trimmed(),
              "Generated from Hall symbol");
}

TEST(Choice, FailuresAreToldToTheLetter) {
    for (const char* number : {"0", "231", "-5"})
        EXPECT_EQ(error_of(number), " Number of Space Group out of limits") << number;
    EXPECT_EQ(error_of(""), " IBRAVL is Equal Zero");
    EXPECT_EQ(error_of("P 1", {.mode = "xyz"}), " Problems in SpaceGroup");
    EXPECT_EQ(error_of("P 1", {.mode = ""}), " Problems in SpaceGroup");
    EXPECT_EQ(error_of("q 7", {.mode = "itc"}),
              " Problems in SpaceGroup: Q 7 => the HM symbol or the number is incorrect ;");
    EXPECT_EQ(error_of("", {.mode = "FIX"}),
              " Generators should be provided if FIX option is Used");
    const auto lines = texts({"-x,-y,z"});
    EXPECT_EQ(error_of("", {.gen = lines, .mode = "gen"}),
              " Generators should be provided in GEN calling Set_SpaceGroup");
    EXPECT_EQ(error_of("P 5", {.mode = "HMS"}), " The fivefold axis is not allowed");
    EXPECT_EQ(error_of("P 5"), "");
    EXPECT_TRUE(err_symm);
    generated(texts({"-x,-y,z", "x,y,q", "x,-y,-z"}));
    EXPECT_EQ(err_symm_mess.trimmed(), " Invalid character... q in Sym. Op.");
}

TEST(Choice, AFailureLeavesNoOperators) {
    Space_Group_Type group = built("F M -3 M");
    for (const char* text : {"Q 7", "P 5", "999", "P 2q", "R 3:H"}) {
        set_spacegroup("225", group);
        set_spacegroup(text, group);
        EXPECT_TRUE(err_symm) << text;
        EXPECT_EQ(group.multip, 0) << text;
        EXPECT_EQ(group.num_lat, 0) << text;
        EXPECT_EQ(group.sym_op[5], Sym_Oper_Type{}) << text;
        EXPECT_EQ(group.sym_op_text[0].trimmed(), "?") << text;
        EXPECT_EQ(group.wyckoff.num_orbit, 0) << text;
        EXPECT_TRUE(group.wyckoff.orbit[3].str_orbit[0].blank()) << text;
    }
}

TEST(Record, HoldsWhatTheRowSays) {
    const Space_Group_Type group = built("P 21/c");
    EXPECT_EQ(group.num_spg, 14);
    EXPECT_EQ(group.spg_symb.trimmed(), "P 21/C");
    EXPECT_EQ(hall_of(group), "-P 2ybc");
    EXPECT_EQ(group.crystal_sys.trimmed(), "Monoclinic");
    EXPECT_EQ(group.laue.trimmed(), "2/m");
    EXPECT_EQ(group.pg.trimmed(), "2/m");
    EXPECT_EQ(group.lat_symbol.field(), "mP");
    EXPECT_EQ(group.bravais.trimmed(), "  P: { 000 }");
    EXPECT_EQ(group.centre.trimmed(), "Centric (-1 at origin)");
    EXPECT_EQ(group.num_gen, 1);
    EXPECT_EQ(group.wyckoff.num_orbit, 4);
    EXPECT_EQ(group.wyckoff.orbit[0].multp, 2);
    EXPECT_FALSE(group.hexa);
    EXPECT_TRUE(built("P 6/M").hexa);
    EXPECT_EQ(built("F D D D").bravais.trimmed(),
              "  F: { 000;  0  1/2 1/2; 1/2  0  1/2; 1/2 1/2  0 }+");
    // P n n n: 0 to 1/4, -1/4 to 1/4, 0 to 1, in the order of minima and maxima.
    EXPECT_EQ(built("P N N N").asym_unit,
              (std::array<float, 6>{0.0f, -6 * (1.0f / 24), 0.0f, 6 * (1.0f / 24), 6 * (1.0f / 24),
                                    24 * (1.0f / 24)}));
    const std::map<const char*, int> generators{{"P -1", 0},    {"P M M A", 2}, {"I 41/A", 1},
                                                {"P 4 M M", 2}, {"R -3", 1},    {"R -3 M", 2},
                                                {"P 63/M", 1},  {"P 6 2 2", 2}, {"P M -3", 3}};
    for (const auto& [symbol, count] : generators)
        EXPECT_EQ(built(symbol).num_gen, count) << symbol;
}

TEST(Record, ANewGroupLeavesNothingOfTheOldOne) {
    Space_Group_Type used = built("F M -3 M");
    for (const char* text : {"P -1", "P 1", "P 21/C"}) {
        set_spacegroup(text, used);
        const Space_Group_Type fresh = built(text);
        EXPECT_EQ(used.sym_op, fresh.sym_op);
        EXPECT_EQ(used.sym_op_text, fresh.sym_op_text);
        EXPECT_EQ(used.lat_trans, fresh.lat_trans);
        EXPECT_EQ(used.asym_unit, fresh.asym_unit);
        EXPECT_EQ(used.wyckoff.num_orbit, fresh.wyckoff.num_orbit);
        for (std::size_t i = 0; i < max_wyckoff_positions; ++i) {
            EXPECT_EQ(used.wyckoff.orbit[i].str_orbit, fresh.wyckoff.orbit[i].str_orbit);
            EXPECT_EQ(used.wyckoff.orbit[i].norb, fresh.wyckoff.orbit[i].norb);
            EXPECT_EQ(used.wyckoff.orbit[i].multp, fresh.wyckoff.orbit[i].multp);
        }
    }
}

TEST(Generators, GiveTheGroupOfTheSymbol) {
    const Space_Group_Type group =
        generated(texts({"x+1/2,y+1/2,z+1/2", "-x,-y,z", "-x,y,-z", "z,x,y", "-x,-y,-z"}));
    ASSERT_FALSE(err_symm);
    EXPECT_TRUE(spgr_equal(group, built("I M -3")));
    EXPECT_FALSE(spgr_equal(group, built("I A -3")));
    EXPECT_FALSE(spgr_equal(Space_Group_Type{}, Space_Group_Type{}));
    EXPECT_EQ(group.setting.trimmed(), "Non-Conventional (user-given operators)");
    EXPECT_EQ(group.spg_symb.trimmed(), "unknown");
    EXPECT_EQ(group.num_spg, 0);
    EXPECT_EQ(group.pg.trimmed(), "m-3");
    EXPECT_EQ(group.num_gen, 3);
    // Without a mode generators count when the text names nothing.
    const auto lines = texts({"-x,-y,z", "x,y,z+1/2"});
    EXPECT_EQ(built("", {.gen = lines, .ngen = 1}).multip, 2);
    EXPECT_EQ(built("P -1", {.gen = lines, .ngen = 1}).num_spg, 2);
    EXPECT_EQ(built("", {.gen = lines, .ngen = 50, .mode = "GEN"}).lat_type.field(), "Z");
    EXPECT_EQ(built("", {.gen = lines, .ngen = -4, .mode = "GEN"}).multip, 1);
}

namespace {

Operator product(const Operator& a, const Operator& b) {
    Operator result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k) result[3 * i + j] += a[3 * i + k] * b[3 * k + j];
        result[9 + i] = a[9 + i] + 240;
        for (std::size_t k = 0; k < 3; ++k) result[9 + i] += a[3 * i + k] * b[9 + k];
        result[9 + i] %= 24;
    }
    return result;
}

std::set<Operator> closure(const std::vector<FixedText<80>>& lines) {
    std::vector<Operator> generators;
    for (const FixedText<80>& line : lines) {
        Sym_Oper_Type op;
        read_xsym(line.field(), 1, op.rot, &op.tr);
        generators.push_back(flat(op));
    }
    const Operator identity{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    std::set<Operator> all{identity};
    std::vector<Operator> waiting{identity};
    while (!waiting.empty()) {
        const Operator one = waiting.back();
        waiting.pop_back();
        for (const Operator& g : generators)
            if (const Operator next = product(g, one); all.insert(next).second)
                waiting.push_back(next);
    }
    return all;
}

/// `count` lines of the group's list, drawn one by one.
std::vector<FixedText<80>> drawn(const Space_Group_Type& group, int count, std::mt19937& random) {
    std::vector<FixedText<80>> lines;
    for (int i = 0; i < group.multip; ++i)
        lines.emplace_back(group.sym_op_text[static_cast<std::size_t>(i)].field());
    std::shuffle(lines.begin(), lines.end(), random);
    lines.resize(static_cast<std::size_t>(std::min(count, group.multip)));
    return lines;
}

}  // namespace

TEST(EveryRow, IsGivenByAllItsOperatorsInAnyOrder) {
    std::mt19937 random(12);
    for (const SpgrRow& row : rows()) {
        SCOPED_TRACE(row.hall.trimmed());
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        const Space_Group_Type again = generated(drawn(group, group.multip, random));
        ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
        EXPECT_EQ(operator_set(again), operator_set(group));
        EXPECT_EQ(again.multip, group.multip);
        EXPECT_EQ(again.num_ops, group.num_ops);
        EXPECT_EQ(again.lat_symbol, group.lat_symbol);
        EXPECT_EQ(again.crystal_sys, group.crystal_sys);
        EXPECT_EQ(again.centred == 1, group.centred == 1);
        EXPECT_FALSE(again.pg.blank());
    }
}

TEST(EveryRow, AnyOfItsOperatorsGiveTheGroupThatTheyClose) {
    std::mt19937 random(34);
    for (const SpgrRow& row : rows()) {
        SCOPED_TRACE(row.hall.trimmed());
        const Space_Group_Type group = built(row.hall.field(), {.mode = "HAL"});
        for (const int count : {2, 3, 5}) {
            const std::vector<FixedText<80>> lines = drawn(group, count, random);
            const Space_Group_Type subgroup = generated(lines);
            std::string given;
            for (const FixedText<80>& line : lines) given += std::string(line.trimmed()) + "; ";
            ASSERT_FALSE(err_symm) << given << err_symm_mess.trimmed();
            const std::set<Operator> expected = closure(lines);
            EXPECT_EQ(operator_set(subgroup), expected) << given;
            EXPECT_EQ(subgroup.multip, static_cast<int>(expected.size())) << given;
        }
    }
}

TEST(Generators, WhatTheyImplyIsFound) {
    // A centring vector by two parallel axes, by two inversions, by an inversion off an axis, and
    // one that an axis turns.
    EXPECT_EQ(generated(texts({"-x,-y,z", "-x+1/2,-y+1/2,z"})).lat_symbol.field(), "mC");
    EXPECT_EQ(generated(texts({"-x,-y,-z", "-x+1/2,-y+1/2,-z+1/2"})).lat_type.field(), "I");
    EXPECT_EQ(generated(texts({"-x,-y,z+1/4", "-x,-y,-z"})).multip, 8);
    EXPECT_EQ(generated(texts({"-x+1/4,-y,z", "-x,-y,-z"})).multip, 8);
    EXPECT_EQ(generated(texts({"z,x,y", "x,y+1/2,z+1/2"})).lat_symbol.field(), "hF");
    EXPECT_EQ(generated(texts({"z,x,y", "x+1/2,y,z"})).num_lat, 8);
    // Twenty-seven lattice points have no room in the record.
    EXPECT_EQ(error_of("", {.gen = texts({"z,x,y", "x+1/3,y,z"}), .ngen = 2, .mode = "GEN"}),
              " Lattice Type couldn't be determined");
    // An inversion at the origin is preferred, wherever it stands.
    EXPECT_EQ(generated(texts({"-x,-y,-z", "x+1/2,y+1/2,z", "-x+1/2,-y+1/2,-z"})).centred, 2);
}

TEST(Generators, CellsOfManyLatticePointsAreFilledForFour) {
    const Space_Group_Type group = generated(texts({"x+1/6,y,z"}));
    ASSERT_FALSE(err_symm);
    EXPECT_EQ(group.num_lat, 6);
    EXPECT_EQ(group.multip, 6);
    EXPECT_EQ(group.sym_op[3].rot, group.sym_op[0].rot);
    EXPECT_EQ(group.sym_op[4], Sym_Oper_Type{});
}

TEST(FixedList, IsTheGroupAsGiven) {
    const Space_Group_Type group =
        generated(texts({"x,y,z", "-x,-y,-z+1/2", "x+1/2,y+1/2,z", "-x+1/2,-y+1/2,-z+1/2"}), "fix");
    ASSERT_FALSE(err_symm) << err_symm_mess.trimmed();
    EXPECT_EQ(group.multip, 4);
    EXPECT_EQ(group.num_ops, 4);
    EXPECT_EQ(group.num_gen, 3);
    EXPECT_EQ(group.lat_type.field(), "C");
    EXPECT_EQ(group.centre.trimmed(), "Centric (-1 not at origin)  Gen(-1):-x,-y,-z+1/2");
    EXPECT_EQ(group.sym_op_text[3].trimmed(), "-x+1/2,-y+1/2,-z+1/2");
    EXPECT_EQ(group.sym_op_text[4].trimmed(), "?");
}

TEST(Report, NamesTheGroupItsOperatorsAndPositions) {
    std::ostringstream out;
    write_spacegroup(built("C 2/m"), out);
    const std::string text = out.str();
    for (const char* line :
         {" =>  Number of Space group: 12\n", " => Hermann-Mauguin Symbol: C 2/M\n",
          " =>            Hall Symbol: -C 2y\n",
          " =>        Bravais Lattice:   C: { 000; 1/2 1/2  0  }+\n",
          " =>         Lattice Symbol: mC\n",
          " =>        Asymmetric unit: ", " <= x <= ", " => Centring vectors:\n => Latt(1): (+1/2",
          " => List of S.O. without inversion and lattice centring translations\n"
          " => SYMM(  1): x,y,z                                   Symbol: 1\n"
          " => SYMM(  2): -x,y,-z                                 Symbol: 2 0,y,0\n\n",
          " => Special Wyckoff Positions for C 2/M"})
        EXPECT_NE(text.find(line), std::string::npos) << line << "\nin\n" << text;
    std::ostringstream full;
    write_spacegroup(built("C 2/m"), full, true);
    EXPECT_NE(full.str().find(" => SYMM(  8): "), std::string::npos);
    std::ostringstream none;
    write_wyckoff(built("P 1"), none);
    EXPECT_EQ(none.str(), "");
    write_spacegroup(Space_Group_Type{}, none);
    EXPECT_NE(none.str().find("unknown"), std::string::npos);
}

TEST(AnyText, EndsInAGroupOrAnError) {
    std::mt19937 random(3);
    const std::string alphabet = "PABCIRF 12346/-:mndcabRHxyz+,;'\"*()\0\xff";
    Space_Group_Type group;
    const std::vector<const char*> modes{"HMS", "ITC", "HAL", "GEN", "FIX", "?"};
    for (int n = 0; n < 20000; ++n) {
        std::string text(random() % 40, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        if (n % 3) text.insert(0, "P ");
        const std::vector<FixedText<80>> lines{std::string_view(text), "-y,x,z"};
        SpacegroupOptions options;
        if (n % 2) options.mode = modes[random() % modes.size()];
        if (n % 5) options.gen = lines;
        if (n % 7) options.ngen = 2;
        set_spacegroup(text, group, options);
        ASSERT_TRUE(err_symm || group.multip > 0) << text;
    }
}
