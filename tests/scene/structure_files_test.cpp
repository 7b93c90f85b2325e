// Files through the reader, the real units and the writer.
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "crystal/symmetry_tables/rows.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_quaternion.hpp"
#include "tests/support/gl_record.hpp"
#include "tests/support/temp_file.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

Quaternion read(const std::string& name) {
    Quaternion view{};
    wcfgl_io::read_gwr_file(std::string_view(name), &view);
    return view;
}

std::string example(const std::string& name) {
    return std::string(GEMWRIGHT_EXAMPLES) + "/" + name + ".gwr";
}

Quaternion read_text(const std::string& content) {
    const TempDirectory directory;
    return read(directory.file("a.gwr", content));
}

std::string written(const Quaternion& view) {
    const TempDirectory directory;
    wcfgl_io::write_gwr_file(std::string_view(directory.name("a.gwr")), view);
    EXPECT_EQ(wcfgl_io::err_flag, 0);
    return content_of(directory.name("a.gwr"));
}

std::vector<std::string> example_names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(GEMWRIGHT_EXAMPLES))
        if (entry.path().extension() == ".gwr") names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

/// Site multiplicities in the order of the file.
std::vector<int> multiplicities() {
    std::vector<int> found;
    const std::size_t atoms = wcfgl_atom_tree::generate_atom_label_array().size() - 1;
    for (std::size_t i = 1; i <= atoms; ++i)
        found.push_back(wcfgl_atom_tree::get_atom_info(static_cast<int>(i)).multiplicity);
    return found;
}

/// The last column of the totals in the moment list, for all positions in the box.
std::vector<float> total_moments() {
    std::string list;
    wcfgl_matom_tree::write_magnetic_moment_list(list);
    std::vector<float> totals;
    std::istringstream lines(list);
    bool behind_rule = false;
    for (std::string line; std::getline(lines, line);) {
        if (behind_rule) totals.push_back(std::stof(line.substr(line.size() - 9)));
        behind_rule = line == std::string(56, ' ') + std::string(36, '-');
    }
    return totals;
}

/// Multiplicities of the sites as International Tables give them for the published positions.
TEST(Examples, FillTheCellAsPublished) {
    const std::map<std::string, std::vector<int>> published{
        {"catio3", {4, 4, 4, 8}}, {"cr", {2}},        {"diamond", {8}},
        {"hematite", {12, 18}},   {"ho", {2}},        {"lamno3", {4, 4, 4, 8}},
        {"mno", {4, 4}},          {"nacl", {4, 4}},   {"quartz", {3, 6}},
        {"rutile", {2, 4}},       {"uo2_3k", {4, 8}}, {"zro2", {4, 4, 4}}};
    for (const std::string& name : example_names()) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(published.contains(name));
        read(example(name));
        EXPECT_EQ(multiplicities(), published.at(name));
        EXPECT_TRUE(wcfgl_metrix::current_cell);
    }
}

TEST(Examples, MomentsHaveThePublishedLength) {
    const std::map<std::string, float> published{
        {"mno", 4.581f}, {"lamno3", 3.87f}, {"hematite", 5.0f}, {"ho", 5.0f}, {"uo2_3k", 1.741f}};
    for (const auto& [name, moment] : published) {
        SCOPED_TRACE(name);
        read(example(name));
        const std::vector<float> totals = total_moments();
        EXPECT_GE(totals.size(), 9u);
        // Three decimals are printed, and those of the file are rounded themselves.
        for (const float total : totals) EXPECT_NEAR(total, moment, 1.1e-3f);
    }
}

TEST(Examples, ChromiumSwingsBetweenItsAmplitudeAndAlmostNothing) {
    read(example("cr"));
    const std::vector<float> totals = total_moments();
    ASSERT_FALSE(totals.empty());
    EXPECT_NEAR(*std::max_element(totals.begin(), totals.end()), 0.62f, 1e-3f);
    EXPECT_LT(*std::min_element(totals.begin(), totals.end()), 0.05f);
}

TEST(RoundTrip, WhatIsWrittenIsReadBackAndWrittenTheSame) {
    for (const std::string& name : example_names()) {
        SCOPED_TRACE(name);
        const std::string first = written(read(example(name)));
        EXPECT_EQ(written(read_text(first)), first);
    }
}

TEST(RoundTrip, KeepsTheAtomsOfEveryExample) {
    for (const std::string& name : example_names()) {
        SCOPED_TRACE(name);
        const Quaternion view = read(example(name));
        const std::vector<int> atoms = multiplicities();
        const std::size_t moments = total_moments().size();
        read_text(written(view));
        EXPECT_EQ(multiplicities(), atoms);
        EXPECT_EQ(total_moments().size(), moments);
    }
}

/// The metals at 1/3 2/3: two atoms in the cell, written with four decimals as most tables do.
TEST(ReadFile, ThirdsWithFourDecimalsStandOnTheirAxis) {
    for (const char* position :
         {"0.3333 0.6667", "0.333 0.667", "-0.6667 -.3333", "1.3333 0.6667"}) {
        SCOPED_TRACE(position);
        read_text(std::string("SPACEG P 63/m m c\nCELL 3 3 5 90 90 120\nATOM A Ho ") + position +
                  " .25\n");
        EXPECT_THAT(multiplicities(), ElementsAre(2));
    }
}

TEST(RoundTrip, KeepsAtomsBondsGroupBoxCellAndView) {
    const Quaternion view = read_text(
        "SPACEG P -1\nCELL 5 6 7 80 90 100 NODISPLAY MULTIPLE\nBOX -1 1 0 2 0 1.5\n"
        "ROTAX 60 0 1 0\nATOM Aa FE .1 .2 .3 NODISPLAY\n"
        "ATOM bB O .5 .5 .5 RADIUS 2 COLOR .1 .2 .3 .4\n"
        "BOND Aa bB 1 4 RADIUS .5 COLOR 0 1 0 1\nCONN FE O 0 9 NODISPLAY\n");
    const std::string text = written(view);
    EXPECT_EQ(text,
              "BKG  0.000  0.000  0.000  1.000\n"
              "CELL     5.0000    6.0000    7.0000   80.0000   90.0000  100.0000"
              " COLOR  0.500  0.500  0.500  1.000 MULTIPLE NODISPLAY\n"
              "BOX  -1.000   1.000   0.000   2.000   0.000   1.500\n"
              "ROTAX    60.000  0.00000  1.00000  0.00000\n"
              "SPACEG P -1                \n"
              "ATOM Aa        FE  0.1000  0.2000  0.3000 RADIUS 0.750 NODISPLAY\n"
              "ATOM bB        O   0.5000  0.5000  0.5000 COLOR 0.100 0.200 0.300 0.400"
              " RADIUS 2.000          \n"
              "BOND Aa        bB          1.000  4.000 RADIUS  0.500"
              " COLOR 0.000 1.000 0.000 1.000          \n"
              "CONN FE        O          0.000 9.000 RADIUS 1.000 NODISPLAY\n"
              "{\n}\n");
    EXPECT_EQ(written(read_text(text)), text);
}

TEST(RoundTrip, LosesWhatTheFormatDoesNotCarry) {
    read_text(
        "CELL 5 6 7 90 90 90 COLOR 1 0 0 1\n"
        "{\nK .5 0 0\nSYMM x,y,z\nMSYM u,v,w,0\nMATOM Fe1 FE 0 0 0 NODISPLAY\n"
        "SKP 1 1 1 0 0 0 0 0 0\n}\n");
    EXPECT_EQ(wcfgl_metrix::current_cell->colour, (Colour{0.5f, 0.5f, 0.5f, 1.0f}));
    wcfgl_matom_tree::change_matoms_plotting_status(1);
    const std::string text = written({1, 0, 0, 0});
    EXPECT_NE(text.find("SCALE  1.00       NODISPLAY"), std::string::npos);
    read_text(text);
    EXPECT_EQ(written({1, 0, 0, 0}).find("NODISPLAY"), std::string::npos)
        << "a hidden magnetic atom comes back shown";
}

/// By its symbol, by its Hall symbol where it has no other, by generators where it has neither. The
/// orders are those of the groups.
TEST(RoundTrip, KeepsTheGroupHoweverItWasTold) {
    const auto group_lines = [](const std::string& text) {
        std::string lines;
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);)
            if (line.starts_with("SPACEG") || line.starts_with("GENR"))
                lines += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
        return lines;
    };
    const auto saved = [&](const std::string& told, int order) {
        const std::string first = written(read_text(told));
        EXPECT_EQ(wcfgl_metrix::current_space_group->multip, order) << told;
        EXPECT_EQ(written(read_text(first)), first);
        EXPECT_EQ(wcfgl_metrix::current_space_group->multip, order) << first;
        EXPECT_EQ(first.find("unknown"), std::string::npos);
        return group_lines(first);
    };
    EXPECT_EQ(saved("SPACEG Pnma\n", 8), "SPACEG P N M A\n");
    EXPECT_EQ(saved("GENR -x,-y,-z\n", 2), "GENR -x,-y,-z\n");
    EXPECT_EQ(saved("SPACEG F 4d 2 3 -1d\n", 192), "SPACEG F D -3 M:1\n");
    // P 21 with its axis off the origin has no row of its own.
    EXPECT_EQ(saved("SPACEG P 2yb (0 0 1)\n", 2).substr(0, 7), "SPACEG ");
    EXPECT_EQ(saved("SPACEG R -3 m:R\n", 12), "SPACEG R -3 M:R\n");
}

TEST(RoundTrip, FieldsThatWouldTouchReadBack) {
    const std::string text = written(
        read_text("CELL 1e-5 12345.6 56 90 90 3e-9\nBOX -120 -119 -1 1 1000 1001\n"
                  "ATOM Longlabel1 FE -0.5 0 0 COLOR 10 1 1 1 RADIUS 10.5\nATOM O1 O 0 0 0\n"
                  "BOND Longlabel1 O1 10.5 20.5 RADIUS 10\nCONN FE O 0 100 COLOR 1 1 1 1\n"
                  "CONN O O 10 11\n"
                  "{\nLATTICE P\nK -10 -20 -30\nSYMM x,y,z\nMSYM u,v,w,0.0\n"
                  "MATOM Longlabel1 FE .1 .2 .3\nSKP 1 1 -2000 -3000 -4000 0 0 0 -1000\n}\n"));
    const Quaternion view = read_text("CELL 5 5 5 90 90 90\nBOX 0 1 0 1 0 1\n" + text);
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_length[0], 1e-5f);
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_angle[2], 3e-9f);
    EXPECT_EQ(*wcfgl_metrix::current_box, (wcfgl_metrix::Box{-120, -119, -1, 1, 1000, 1001}));
    EXPECT_EQ(wcfgl_atom_tree::get_atom_info(1).label, FixedText<10>("Longlabel1"));
    EXPECT_EQ(wcfgl_atom_tree::get_atom_info(1).radius, 10.5f);
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(1).min_distance, 10.5f);
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(2).max_distance, 100.0f);
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(3).min_distance, 10.0f);
    ASSERT_EQ(wcfgl_matom_tree::current_k_list->size(), 1u);
    EXPECT_EQ(wcfgl_matom_tree::current_k_list->front(), (Vector3f{-10, -20, -30}));
    EXPECT_EQ(written(view), text);
}

/// Bytes that are no UTF-8, blanks, and potassium, whose K before a blank would be a vector.
TEST(RoundTrip, KeepsLabelsByteForByte) {
    const std::vector<std::string> labels{
        "M\xc3\xbcller", "\xce\xb1-Fe", "\xff\xfe\x80", "a b", "O'", "x,y/z", "K", "FeK"};
    std::string text = "CELL 5 5 5 90 90 90\n";
    std::string block = "{\nK 0 0 0\nSYMM x,y,z\nMSYM u,v,w,0.0\n";
    for (const std::string& label : labels) {
        text += "ATOM \"" + label + "\" K .1 .2 .3\n";
        block += "MATOM \"" + label + "\" 'K' .1 .2 .3\nSKP 1 1 1 0 0 0 0 0 0\n";
    }
    const std::string first = written(read_text(text + "BOND 'a b' \"O'\" 0 1\n" + block + "}\n"));
    const std::string second = written(read_text(first));
    EXPECT_EQ(second, first);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const auto info = wcfgl_atom_tree::get_atom_info(static_cast<int>(i + 1));
        EXPECT_EQ(info.label.trimmed(), labels[i]);
        EXPECT_EQ(info.symbol, FixedText<2>("K"));
    }
    std::vector<std::string> magnetic;
    for (const auto* node = wcfgl_matom_tree::matom_list_head(); node; node = node->next.get())
        magnetic.emplace_back(node->label.trimmed());
    EXPECT_EQ(magnetic, labels);
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(1).label1, FixedText<10>("a b"));
}

/// Four decimals would move these off their mirror planes; the multiplicities are those of the
/// sites.
TEST(RoundTrip, KeepsSpecialPositionsOfFiveDecimals) {
    const auto saved = [](const std::string& position) {
        const Quaternion view =
            read_text("SPACEG P 3 m 1\nCELL 5 5 7 90 90 120\nATOM A H " + position + "\n");
        EXPECT_THAT(multiplicities(), ElementsAre(3)) << position;
        const std::string text = written(view);
        EXPECT_EQ(written(read_text(text)), text);
        EXPECT_THAT(multiplicities(), ElementsAre(3)) << text;
        return text;
    };
    EXPECT_NE(saved("0.12345 0.24690 0.1").find(" 0.123450  0.246900  0.100000 RADIUS"),
              std::string::npos);
    EXPECT_NE(saved("0.1234 0.2468 0.12345").find(" 0.1234  0.2468  0.123"), std::string::npos);
    saved("0.33325 -0.33325 .1");  // four decimals are those of a third
    saved("0.00005 -0.00005 .1");
}

TEST(RoundTrip, AViewSavedTwiceIsTheSameView) {
    read_text("");
    std::mt19937 random(11);
    std::normal_distribution<float> normal;
    for (int n = 0; n < 60; ++n) {
        const Vector3f axis{normal(random), normal(random), normal(random)};
        // From a few ten-thousandths of a degree up to the whole turn.
        const float angle = 360.0f * std::pow(10.0f, -6.0f * static_cast<float>(n) / 60.0f);
        const Quaternion view = wcfgl_quaternion::q_from_rot(angle, axis);
        const std::string text = written(view);
        const Quaternion again = read_text(text);
        ASSERT_EQ(written(again), text);
        // Half a unit of the last decimals, in the angle and across the axis. A quaternion and its
        // negative are one view.
        const float sign = again[0] * view[0] < 0.0f ? -1.0f : 1.0f;
        for (std::size_t i = 0; i < 4; ++i) ASSERT_NEAR(sign * again[i], view[i], 1.5e-5f) << text;
    }
}

/// What a file makes of the cell, the group, the atoms and the bonds.
struct Contents {
    std::vector<float> cell;
    std::set<std::string> operators;
    std::vector<std::set<std::array<long, 3>>> atoms;  ///< places in thousandths
    std::size_t bonds = 0;
    bool operator==(const Contents&) const = default;
};

/// No place of the atoms below lies near the middle between two.
long thousandth(float x) { return std::lround(x * 1000.0f) % 1000; }

Contents contents() {
    Contents found;
    for (const Vector3f& sizes :
         {wcfgl_metrix::current_cell->cell_length, wcfgl_metrix::current_cell->cell_angle})
        found.cell.insert(found.cell.end(), sizes.begin(), sizes.end());
    const auto& group = *wcfgl_metrix::current_space_group;
    for (int i = 0; i < group.multip && i < 192; ++i)
        found.operators.emplace(group.sym_op_text[static_cast<std::size_t>(i)].trimmed());
    for (const char* label : {"A", "B", "C"}) {
        std::vector<wcfgl_glatom::Atom> atoms;
        wcfgl_atom_tree::search_atom_list_by_label(std::string_view(label), atoms);
        for (const wcfgl_glatom::Atom& atom : atoms) {
            std::set<std::array<long, 3>> places;
            for (const Vector3f& x : atom.xf_eq)
                places.insert({thousandth(x[0]), thousandth(x[1]), thousandth(x[2])});
            EXPECT_EQ(places.size(), atom.xf_eq.size()) << "two atoms in one place";
            found.atoms.push_back(places);
        }
    }
    std::vector<wcfgl_glbond::Bond> bonds;
    wcfgl_bond_tree::search_bond_list_by_label(std::string_view("A"), bonds);
    for (const auto& bond : bonds) found.bonds += bond.xf.size();
    return found;
}

/// The group as a file tells it, with atoms on axes, on planes and off them.
Contents contents_with(const std::string& group_lines) {
    read_text(group_lines +
              "CELL 5 6 7 81 95 110\nBOX 0 1 0 1 0 1\nATOM A O 0.3333 0.6667 .25\n"
              "ATOM B O 0 0.1667 .0833\nATOM C O .1234 .2468 .3706\nBOND A B 0 1.5\n");
    return contents();
}

std::string generator_lines(std::span<const std::string> operators) {
    std::string lines;
    for (const std::string& op : operators) lines += "GENR " + op + "\n";
    return lines;
}

TEST(WholeTable, EveryGroupIsTheSameAfterSavingHoweverItWasTold) {
    // Thousands of savings: none waits for a disk where there is a file system in memory.
    if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
    std::mt19937 random(5);
    std::size_t bonds = 0;
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        const std::string hall = "SPACEG " + std::string(row.hall.trimmed()) + "\n";
        const std::string symbol = "SPACEG " + std::string(row.hm.trimmed()) + "\n";
        const Contents by_hall = contents_with(hall);
        std::vector<std::string> all(by_hall.operators.begin(), by_hall.operators.end());
        std::ranges::shuffle(all, random);
        // Some of them tell a subgroup, or all of the group.
        const auto some = std::span(all).first(1 + random() % all.size());
        bonds += by_hall.bonds;
        for (const std::string& told :
             {hall, symbol, generator_lines(all), generator_lines(some)}) {
            SCOPED_TRACE(told);
            const Contents before = contents_with(told);
            EXPECT_THAT(before.cell, ElementsAre(5, 6, 7, 81, 95, 110));
            // A symbol of several settings is the first of them.
            const bool whole = told == hall || told == generator_lines(all);
            ASSERT_TRUE(!whole || before.operators == by_hall.operators);
            for (const std::string& op : some)
                ASSERT_TRUE(told == symbol || before.operators.contains(op)) << op;
            const std::string saved = written(wcfgl_quaternion::identity);
            read_text(saved);
            ASSERT_EQ(contents().operators, before.operators) << saved;
            ASSERT_TRUE(contents() == before) << saved;
            ASSERT_EQ(written(wcfgl_quaternion::identity), saved);
        }
    }
    EXPECT_GT(bonds, 612u);
}

/// The views that docs/file_format.md gives for looking along an axis: it comes towards the user.
TEST(ReadFile, ViewsAlongTheAxes) {
    const auto towards = [](const std::string& cell, const std::string& line, bool reciprocal,
                            std::size_t axis) {
        const Quaternion view = read_text("CELL " + cell + "\n" + line + "\n");
        std::array<Vector3f, 3> edges;
        for (std::size_t i = 0; i < 3; ++i) {
            Vector3f x{};
            x[i] = 1.0f;
            edges[i] = wcfgl_metrix::f2c_r(x);
        }
        const Vector3f along = reciprocal ? wcfgl_geometry::vect3d_vect_vect3d(
                                                edges[(axis + 1) % 3], edges[(axis + 2) % 3])
                                          : edges[axis];
        const Vector3f seen = wcfgl_quaternion::q_rot_vect(view, along);
        // 0.866 and 0.1604 are rounded themselves.
        EXPECT_NEAR(seen[2] / wcfgl_geometry::vect_norm_3d(seen), 1.0f, 1e-6f) << line << axis;
    };
    const std::string right = "3 4 5 90 90 90";
    const std::string hexagonal = "3 3 5 90 90 120";
    const std::string monoclinic = "5.1505 5.2116 5.3173 90 99.23 90";
    for (const std::string& cell : {right, hexagonal, monoclinic}) {
        towards(cell, "VIEW -1 0 0", false, 0);
        towards(cell, "VIEW 0 -1 0", true, 1);
        towards(cell, "VIEW 0 0 1", true, 2);
    }
    towards(right, "VIEW 0 -1 0", false, 1);
    towards(right, "VIEW 0 0 1", false, 2);
    towards(right, "VIEW -1 0 0", true, 0);
    towards(hexagonal, "VIEW 0.5 -0.866 0", false, 1);
    towards(hexagonal, "VIEW 0 0 1", false, 2);
    towards(hexagonal, "VIEW -0.866 -0.5 0", true, 0);
    towards(monoclinic, "VIEW 0 -1 0", false, 1);
    towards(monoclinic, "VIEW 0.1604 0 0.9871", false, 2);
    towards(monoclinic, "VIEW -0.9871 0 0.1604", true, 0);
}

/// Five decimals of this axis make a vector that isn't quite of length 1; made so, it rounds to
/// another one.
TEST(RoundTrip, AnAxisThatMovesInReadingIsWrittenAsItWillStay) {
    read_text("");
    const std::string text =
        written(wcfgl_quaternion::q_from_rot(50, {0.813935f, -0.311357f, 0.490475f}));
    EXPECT_EQ(written(read_text(text)), text);
}

TEST(ReadFile, AFileWithoutAtomsGivesAnEmptySceneInTheOldBox) {
    read_text("BOX 0 2 0 2 0 2\nATOM A H 0 0 0\n");
    read_text("SPACEG P n m a\nCELL 1 2 3 90 90 90\n");
    EXPECT_THAT(multiplicities(), testing::IsEmpty());
    EXPECT_EQ((*wcfgl_metrix::current_box)[1], 2.0f);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 62);
}

TEST(ReadFile, ARefusedCellStillMakesTheBox) {
    wcfgl_metrix::current_box.reset();
    wcfgl_metrix::define_cell({1, 1, -1}, {90, 90, 90});
    EXPECT_FALSE(wcfgl_metrix::current_cell);
    EXPECT_TRUE(wcfgl_metrix::current_box);
}

TEST(ReadFile, AMissingFileLeavesAllButTheGroup) {
    read_text("SPACEG P -1\nATOM A H .1 .2 .3\n");
    read("/nonexistent/a.gwr");
    EXPECT_THAT(multiplicities(), ElementsAre(2)) << "positions follow at the next frame";
    EXPECT_EQ(wcfgl_metrix::current_space_group->multip, 1);
}

TEST(ReadFile, BondsNeedTheirAtomsBeforeThem) {
    read_text("CELL 5 5 5 90 90 90\nBOND A B 0 4\nATOM A H 0 0 0\nATOM B H .5 0 0\nBOND A B 0 4\n");
    EXPECT_EQ(wcfgl_bond_tree::generate_bond_label_array().size(), 2u);
}

TEST(ReadFile, NumbersThatNothingCanHaveNeitherHangNorCrash) {
    gl_record::record(false);  // a huge box draws as much as a list may hold
    for (const char* text :
         {"BOX 0 1e30 0 1e30 0 1e30\n", "BOX -1e30 1e30 0 1 0 1\n", "BOX 0 2e9 0 3e9 0 4e9\n",
          "BOX 1 0 1 0 1 0\n", "CELL 1e30 1e30 1e30 90 90 90\n", "CELL 1 1 1 1 1 170\n",
          "CELL 1e-30 1 1 90 90 180\n", "CELL 3e38 3e38 3e38 1e30 1e-30 90\n",
          "ROTAX 1e38 1e38 1e38 1e38\n"}) {
        SCOPED_TRACE(text);
        const Quaternion view =
            read_text(std::string(text) +
                      "SPACEG P -1\nATOM A H 1e30 -1e30 .1\nATOM B H .1 .1 .1\n"
                      "BOND A B -1e30 1e30\nCONN H H 0 3\n"
                      "{\nK 1e30 -1e30 .1\nSYMM x,y,z\nMSYM u,v,w,1e30\n"
                      "MATOM A H 1e30 .1 .1 SCALE 1e30\nSKP 1 1 1e30 1e30 1e30 0 0 0 1e30\n"
                      "SKP 9 -9 1 1 1 0 0 0 0\nSKP 2147483647 1 1 1 1 0 0 0 0\n}\n");
        EXPECT_FALSE(written(view).empty());
    }
}

}  // namespace
