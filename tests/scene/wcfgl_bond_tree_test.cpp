#include "scene/wcfgl_bond_tree.hpp"

#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_poly_tree.hpp"
#include "tests/support/gl_record.hpp"

#include <gtest/gtest.h>

namespace {

using namespace wcfgl_bond_tree;

constexpr Colour red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1};

/// Two atoms 1.25 angstrom apart along a, in a cell of 10; their coordinates are exact.
void push_pair() {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    wcfgl_metrix::define_box(0, 1, 0, 1, 0, 1);
    wcfgl_atom_tree::push_atom(
        {.label = "Fe1", .symbol = "FE", .xf = {0.125f, 0.25f, 0.25f}, .colour = red});
    wcfgl_atom_tree::push_atom(
        {.label = "O1", .symbol = "O", .xf = {0.25f, 0.25f, 0.25f}, .colour = green});
}

std::string lines() {
    std::string out;
    write_bond_list(out);
    return out;
}

/// The halves of sticks that the frame shows.
std::vector<gl_record::Primitive> halves() {
    gl_record::clear();
    draw_bonds();
    std::vector<gl_record::Primitive> found;
    for (const gl_record::Primitive& p : gl_record::drawn())
        if (p.name == "gluCylinder") found.push_back(p);
    return found;
}

TEST(BondSticks, RunFromAtomToAtomInTheColoursOfBoth) {
    push_pair();
    push_bond_by_label("Fe1", "O1", 1, 3, 1.0f, 0);
    const auto sticks = halves();
    ASSERT_EQ(sticks.size(), 2u);
    EXPECT_NEAR(sticks[0].at(0, 0, 0)[0], 1.25, 1e-5);
    EXPECT_NEAR(sticks[0].at(0, 0, 1)[0], 1.875, 1e-5);
    EXPECT_NEAR(sticks[1].at(0, 0, 1)[0], 2.5, 1e-5);
    EXPECT_EQ(sticks[0].material, red);
    EXPECT_EQ(sticks[1].material, green);

    push_bond_by_symbol("FE", "O", 1, 3, 1.0f, 0, blue);
    EXPECT_EQ(halves()[2].material, blue);
    EXPECT_EQ(halves()[3].material, blue);
}

TEST(BondSticks, NeedBothEndsInTheBoxAndFollowTheBoxOnly) {
    push_pair();
    push_bond_by_label("Fe1", "O1", 1, 3, 1.0f, 0);
    wcfgl_metrix::define_box(0, 0.25f, 0, 1, 0, 1);  // one end on the face
    EXPECT_EQ(halves().size(), 2u);
    wcfgl_metrix::define_box(0, 0.249f, 0, 1, 0, 1);
    EXPECT_TRUE(halves().empty());
    wcfgl_metrix::define_box(-1, 2, 0, 1, 0, 1);
    EXPECT_EQ(halves().size(), 6u);

    wcfgl_metrix::box_changed = 0;
    wcfgl_metrix::define_cell({20, 10, 10}, {90, 90, 90});
    EXPECT_NEAR(halves()[0].at(0, 0, 0)[0], -8.75, 1e-5) << "the stick stays in the former cell";
}

// A box of many cells begins its repetition one cell below its smallest and ends at its largest,
// one cell less than atoms do: a bond whose first end lies below its cell is missing there.
TEST(BondSticks, LeaveOutTheCellAboveTheBox) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    wcfgl_metrix::define_box(0, 1, 0, 1, 0, 1);
    wcfgl_atom_tree::push_atom({.label = "A", .symbol = "FE", .xf = {0, 0, 0}});
    wcfgl_atom_tree::modify_atom(1, {.xf = Vector3f{-1.1f, 0.5f, 0.5f}});
    wcfgl_atom_tree::push_atom({.label = "B", .symbol = "O", .xf = {0, 0.5f, 0.5f}});
    push_bond_by_label("A", "B", 0.5f, 1.5f, 1.0f, 0);  // from -1.1 to -1
    EXPECT_TRUE(halves().empty()) << "at +2 both ends would be inside";
    wcfgl_metrix::define_box(0, 2, 0, 1, 0, 1);
    ASSERT_EQ(halves().size(), 2u) << "at +2, but not at +3";
    EXPECT_NEAR(halves()[0].at(0, 0, 0)[0], 9.0, 1e-5);
}

// Limits are cut toward zero: a box from -1.5 to -0.5 begins at -1 and ends at 0, before the
// margin.
TEST(BondSticks, StandInABoxOfNegativeFractions) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    wcfgl_metrix::define_box(-1.5f, -0.5f, 0, 1, 0, 1);
    wcfgl_atom_tree::push_atom({.label = "A", .symbol = "FE", .xf = {0, 0, 0}});
    wcfgl_atom_tree::modify_atom(1, {.xf = Vector3f{-0.8f, 0.5f, 0.5f}});
    wcfgl_atom_tree::push_atom({.label = "B", .symbol = "O", .xf = {0.3f, 0.5f, 0.5f}});
    push_bond_by_label("A", "B", 0.5f, 1.5f, 1.0f, 0);  // from -0.8 to -0.7
    ASSERT_EQ(halves().size(), 2u);
    EXPECT_NEAR(halves()[0].at(0, 0, 0)[0], -8.0, 1e-5);
}

TEST(BondRules, AreDroppedWithoutTheirAtomsAndKeptWithoutBonds) {
    push_pair();
    push_bond_by_label("Fe1", "Xx", 0, 9, 1, 0);
    push_bond_by_symbol("fe", "O", 0, 9, 1, 0);
    EXPECT_EQ(generate_bond_label_array().size(), 1u);
    push_bond_by_label("Fe1", "O1", 5, 6, 1, 0);
    EXPECT_TRUE(halves().empty());
    const auto labels = generate_bond_label_array();
    ASSERT_EQ(labels.size(), 2u);
    EXPECT_EQ(labels[0].trimmed(), "Fe1--O1");
    EXPECT_EQ(labels[1].field(), "-New bond-            ");
    EXPECT_EQ(lines(), "BOND Fe1       O1         5.000 6.000 RADIUS 1.000          \n");
}

TEST(BondRules, AreWrittenInTwoWidths) {
    push_pair();
    push_bond_by_label("Fe1", "O1", 0, 2.5f, 1, 0);
    push_bond_by_symbol("FE", "O", 0, 2.5f, 0.5f, 1, blue);
    EXPECT_EQ(lines(),
              "BOND Fe1       O1         0.000 2.500 RADIUS 1.000          \n"
              "CONN FE        O           0.000  2.500 RADIUS  0.500 COLOR 0.000 0.000 1.000 1.000"
              " NODISPLAY\n");
}

TEST(BondRules, AreFoundByTheirFirstLabelWithAllRecords) {
    std::vector<wcfgl_glbond::Bond> found(3);
    EXPECT_FALSE(search_bond_list_by_label("Fe1", found));
    EXPECT_EQ(found.size(), 3u) << "left as it was";
    push_pair();
    wcfgl_atom_tree::push_atom({.label = "O1", .symbol = "O", .xf = {0.6f, 0.6f, 0.6f}});
    push_bond_by_label("Fe1", "O1", 0, 3, 1, 0);
    push_bond_by_label("O1", "Fe1", 0, 3, 1, 0);
    EXPECT_TRUE(search_bond_list_by_label("Fe1", found));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].xf.size(), 1u);
    EXPECT_EQ(found[1].xf[0], wcfgl_glbond::BondEnds{}) << "a pair without bonds";
    EXPECT_FALSE(search_bond_list_by_label("Fe2", found));
}

TEST(BondRules, AreRemovedHiddenAndToldByPosition) {
    push_pair();
    push_bond_by_label("Fe1", "O1", 0, 3, 1, 0);
    push_bond_by_label("O1", "Fe1", 0, 3, 0.5f, 1, blue);
    EXPECT_EQ(halves().size(), 2u) << "the second is hidden";
    EXPECT_EQ(get_bond_info(2).colour, blue);
    EXPECT_EQ(get_bond_info(2).radius, 0.5f);
    EXPECT_EQ(get_bond_info(3).label1.trimmed(), "???");
    EXPECT_EQ(get_bond_info(0).max_distance, 2.0f);
    change_bonds_plotting_status(0);
    EXPECT_EQ(halves().size(), 4u);
    pop_bond(3);
    pop_bond(1);
    EXPECT_EQ(halves().size(), 2u);
    EXPECT_EQ(get_bond_info(1).label1.trimmed(), "O1");
    wcfgl_atom_tree::pop_atom(1);
    EXPECT_EQ(halves().size(), 2u) << "bonds outlive their atoms";
    empty_bond_list();
    EXPECT_TRUE(halves().empty());
}

TEST(Polyhedra, JoinTheFarEndsOfTheBondsOfEachPosition) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    wcfgl_atom_tree::push_atom({.label = "Ti1", .symbol = "TI", .xf = {0.5f, 0.5f, 0.5f}});
    wcfgl_poly_tree::push_poly("Ti1", 0);
    gl_record::clear();
    wcfgl_poly_tree::draw_polys();
    EXPECT_TRUE(gl_record::drawn().empty()) << "no bonds start there";

    for (const Vector3f& x :
         {Vector3f{0.7f, 0.5f, 0.5f}, Vector3f{0.3f, 0.5f, 0.5f}, Vector3f{0.5f, 0.7f, 0.5f}})
        wcfgl_atom_tree::push_atom({.label = "O1", .symbol = "O", .xf = x});
    push_bond_by_label("Ti1", "O1", 1, 3, 1, 0);
    wcfgl_poly_tree::push_poly("Ti1", 0);
    gl_record::clear();
    wcfgl_poly_tree::draw_polys();
    // Three vertices: (1,2) (1,3) (2,3) (3,2).
    ASSERT_EQ(gl_record::drawn().size(), 4u);
    EXPECT_NEAR(gl_record::drawn()[0].ends[0][0], 7.0, 1e-5);
    EXPECT_NEAR(gl_record::drawn()[0].ends[1][0], 3.0, 1e-5);
    wcfgl_poly_tree::pop_poly(1);
    gl_record::clear();
    wcfgl_poly_tree::draw_polys();
    EXPECT_TRUE(gl_record::drawn().empty());
}

// The bonds were found in P 1. In P -1 the atom has a second position, where none starts: its
// figure has as many vertices all the same, those of the figure before.
TEST(Polyhedra, TakeTheCountOfTheFirstPosition) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    wcfgl_atom_tree::push_atom({.label = "Ti1", .symbol = "TI", .xf = {0.25f, 0.5f, 0.5f}});
    for (const float x : {0.125f, 0.375f})
        wcfgl_atom_tree::push_atom({.label = "O1", .symbol = "O", .xf = {x, 0.5f, 0.5f}});
    push_bond_by_label("Ti1", "O1", 1, 2, 1, 0);
    wcfgl_metrix::define_spacegroup("P -1");
    wcfgl_atom_tree::draw_atoms();
    std::vector<wcfgl_glpoly::Poly> polys;
    ASSERT_TRUE(wcfgl_glpoly::new_gl_polys("Ti1", polys));
    EXPECT_EQ(polys[0].number_of_vertices, 2u);
    ASSERT_EQ(polys[0].figures(), 2u);
    EXPECT_EQ(polys[0].vertices(0)[0], (Vector3f{0.125f, 0.5f, 0.5f}));
    EXPECT_EQ(polys[0].vertices(1)[1], (Vector3f{0.375f, 0.5f, 0.5f}));
}

// 1001 bonds end at one atom: one more than a figure has room for.
TEST(Polyhedra, KeepAThousandVerticesAndNoMore) {
    wcfgl_metrix::define_cell({10, 10, 10}, {90, 90, 90});
    wcfgl_atom_tree::push_atom({.label = "C", .symbol = "C", .xf = {0.5f, 0.5f, 0.5f}});
    for (int n = 0; n < 1001; ++n)
        wcfgl_atom_tree::push_atom({.label = "H", .symbol = "H", .xf = {0.6f, 0.5f, 0.5f}});
    push_bond_by_label("C", "H", 0.5f, 2, 1, 0);
    std::vector<wcfgl_glpoly::Poly> polys;
    ASSERT_TRUE(wcfgl_glpoly::new_gl_polys("C", polys));
    ASSERT_EQ(polys.size(), 1u);
    EXPECT_EQ(polys[0].number_of_vertices, 1000u);
}

}  // namespace
