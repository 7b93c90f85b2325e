// What the reader hands to each unit, seen through recording doubles of the units.
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "tests/support/scene_calls.hpp"
#include "tests/support/temp_file.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <clocale>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Calls = std::vector<std::string>;

/// Reads a file of that content; the calls made are in scene_calls.
void read_text(const std::string& content, Quaternion* view = nullptr) {
    const TempDirectory directory;
    scene_calls::clear();
    const std::string name = directory.file("a.gwr", content);
    wcfgl_io::read_gwr_file(std::string_view(name), view);
}

Calls calls_of(const std::string& content, const Calls& names) {
    read_text(content);
    return scene_calls::of(names);
}

Calls atoms_of(const std::string& content) { return calls_of(content, {"push_atom"}); }
Calls magnetic_calls_of(const std::string& content) {
    return calls_of(content, {"define_magnetic_phase", "push_matom"});
}

TEST(ReadFile, EmptiesTheListsAndResetsTheGroupButNotCellAndBox) {
    read_text("");
    EXPECT_THAT(scene_calls::all(),
                ElementsAre("define_spacegroup <P 1>", "init_box", "empty_atom_list",
                            "empty_bond_list", "empty_matom_list", "erase_magnetic_phase"));
}

TEST(ReadFile, WhatIsNoReadableRegularFileResetsTheGroupAlone) {
    const TempDirectory directory;
    ASSERT_EQ(::mkfifo(directory.name("pipe").c_str(), 0600), 0);
    Quaternion view{0, 1, 0, 0};
    for (const std::string& name :
         {directory.name("none.gwr"), directory.path().string(), directory.name("pipe"),
          std::string("/dev/zero"), std::string()}) {
        SCOPED_TRACE(name);
        scene_calls::clear();
        wcfgl_io::read_gwr_file(std::string_view(name), &view);
        EXPECT_THAT(scene_calls::all(), ElementsAre("define_spacegroup <P 1>"));
        EXPECT_EQ(view, (Quaternion{0, 1, 0, 0}));
    }
}

TEST(ReadFile, ANameBeyondItsFieldIsNotReadUnderACutOne) {
    const TempDirectory directory;
    std::string folder = directory.path().string();
    while (folder.size() < 200) folder += "/folder";
    std::filesystem::create_directories(folder);
    const std::string cut = folder + '/' + std::string(256 - folder.size() - 1, 'x');
    std::ofstream(cut) << "ATOM A H 0 0 0\n";
    std::ofstream(cut + "y") << "ATOM A H 0 0 0\n";
    scene_calls::clear();
    wcfgl_io::read_gwr_file(cut + "y");
    EXPECT_THAT(scene_calls::all(), ElementsAre("define_spacegroup <P 1>"));
    wcfgl_io::read_gwr_file(cut);
    EXPECT_THAT(scene_calls::of({"push_atom"}), testing::SizeIs(1));
}

TEST(ReadFile, KeywordsOfOneLineAllActInAFixedOrder) {
    EXPECT_THAT(calls_of("ATOM A1 FE 0 .5 1 RADIUS 2 COLOR 1 0 0 1 NODISPLAY\n"
                         "CELL 5 5 5 90 90 90 SPACEG P n m a BOX 0 1 0 1 0 2\n",
                         {"push_atom", "define_"}),
                ElementsAre("define_spacegroup <P 1>",
                            "push_atom A1 FE (0,0.5,1) 0.5 r=2 hidden=1 colour=(1,0,0,1)",
                            "define_spacegroup <P n m a BOX 0 1 0 1 0 2>",
                            "define_box (0,1,0,1,0,2)", "define_cell (5,5,5) (90,90,90)"));
}

TEST(ReadFile, CaseCountsInOperandsOnly) {
    // The radius of an unknown symbol is 1: "c" isn't the element C.
    EXPECT_THAT(atoms_of("atom c1 c 0 0 0\n"),
                ElementsAre("push_atom c1 c (0,0,0) 0.5 r=1 hidden=0 colour=none"));
}

TEST(ReadFile, CommentSignsAnywhereSkipTheWholeLine) {
    EXPECT_THAT(atoms_of("ATOM C1 C 0 0 0 ! carbon\n# ATOM C2 C 0 0 0\nATOM C#3 C 0 0 0\n"
                         "\n   \nno keyword here\n"),
                IsEmpty());
}

TEST(ReadFile, AKeywordInsideAWordActsAsKeyword) {
    EXPECT_THAT(calls_of("ATOM CELL1 O 0 0 0\n", {"push_atom", "define_cell"}),
                ElementsAre("define_cell (10,10,10) (90,90,90)",
                            "push_atom CELL1 O (0,0,0) 0.5 r=1.26 hidden=0 colour=none"));
    EXPECT_THAT(calls_of("SPACEGROUP P 1 2 1\n", {"define_spacegroup <ROUP"}),
                ElementsAre("define_spacegroup <ROUP P 1 2 1>"));
    EXPECT_THAT(atoms_of("MATOM Fe1 FE 0 0 0\n"),
                ElementsAre("push_atom Fe1 FE (0,0,0) 0.5 r=0.75 hidden=0 colour=none"));
}

TEST(ReadFile, CellLines) {
    read_text("CELL 5 5 5 90 90 90 NODISPLAY MULTIPLE\n");
    ASSERT_TRUE(wcfgl_metrix::current_cell);
    EXPECT_EQ(wcfgl_metrix::current_cell->nodisplay, 1);
    EXPECT_EQ(wcfgl_metrix::current_cell->multiple, 1);
    read_text("CELL 5 5 5 90 90 NODISPLAY\n");
    EXPECT_THAT(scene_calls::of({"define_cell"}), ElementsAre("define_cell (10,10,10) (90,90,90)"));
    EXPECT_EQ(wcfgl_metrix::current_cell->multiple, 1) << "a bad line sets no flags";
    scene_calls::cells_refused = true;
    read_text("CELL -5 5 5 90 90 90\n");
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_length, (Vector3f{10, 10, 10}));
    EXPECT_EQ(wcfgl_metrix::current_cell->multiple, 0) << "a refused cell keeps size, not flags";
}

TEST(ReadFile, RefusedFirstCellLeavesNoCell) {
    scene_calls::cells_refused = true;
    wcfgl_metrix::current_cell.reset();
    read_text("CELL 0 5 5 90 90 90 MULTIPLE\n");
    EXPECT_FALSE(wcfgl_metrix::current_cell);
}

TEST(ReadFile, BadBoxKeepsTheOldOne) {
    EXPECT_THAT(calls_of("BOX 0 1 0 1 0\n", {"define_box", "init_box"}),
                ElementsAre("init_box", "init_box"));
}

TEST(ReadFile, WhatACellOrBoxLineLeavesOutStays) {
    wcfgl_metrix::current_box = {-1, 2, 0, 1, 0, 3};
    EXPECT_THAT(calls_of("CELL 5 6 7 90 95 90\nCELL 8,,7.5 /\nBOX ,,0.5 /\n", {"define_"}),
                ElementsAre("define_spacegroup <P 1>", "define_cell (5,6,7) (90,95,90)",
                            "define_cell (8,6,7.5) (90,95,90)", "define_box (-1,2,0.5,1,0,3)"));
}

TEST(ReadFile, RadiusComesFromTheLineOrTheElementAndUnreadableOnesFromTheLineBefore) {
    EXPECT_THAT(atoms_of("ATOM A FE 0 0 0 RADIUS 2\nATOM B FE 0 0 0\n"
                         "RADIUS 3\nATOM C FE 0 0 0 RADIUS x\n"),
                ElementsAre("push_atom A FE (0,0,0) 0.5 r=2 hidden=0 colour=none",
                            "push_atom B FE (0,0,0) 0.5 r=0.75 hidden=0 colour=none",
                            "push_atom C FE (0,0,0) 0.5 r=3 hidden=0 colour=none"));
}

TEST(ReadFile, UnreadPartsOfAColourKeepTheLineBefore) {
    EXPECT_THAT(atoms_of("COLOR .1 .2 .3 .4\nATOM A H 0 0 0 RADIUS 1 COLOR 1 x\n"),
                ElementsAre("push_atom A H (0,0,0) 0.5 r=1 hidden=0 colour=(1,0.2,0.3,0.4)"));
}

TEST(ReadFile, OperandsLeftOutKeepTheLineBeforeAndBadLinesAddNothing) {
    EXPECT_THAT(atoms_of("ATOM A1 H .1 .2 .3 RADIUS 1\nATOM A2,,0.5,,0.7 RADIUS 1\n"
                         "ATOM A3 H 1 2\nATOM A4 / RADIUS 1\nATOM 'a b' H 3*0 RADIUS 1\n"
                         "ATOM A5 H nan 0 0\nATOM A6 H 0 inf 0\n"),
                ElementsAre("push_atom A1 H (0.1,0.2,0.3) 0.5 r=1 hidden=0 colour=none",
                            "push_atom A2 H (0.5,0.2,0.7) 0.5 r=1 hidden=0 colour=none",
                            "push_atom A4 H (1,2,0.7) 0.5 r=1 hidden=0 colour=none",
                            "push_atom a b H (0,0,0) 0.5 r=1 hidden=0 colour=none"));
}

TEST(ReadFile, ThirdsAreReadInPositionsAndNowhereElse) {
    // 1/3 and 2/3 as the nearest floats print them: 0.33333334 and 0.6666667.
    EXPECT_THAT(calls_of("CELL 3.333 6.667 3.3333 90 90 120\nATOM A H .333 -.6667 1/ RADIUS .3333\n"
                         "ATOM B H .3330,,1 RADIUS .6667\nBOND A B .333 .667\n"
                         "{\nK .333 .333 0\nMATOM A H 3*0.3333\nSKP 1 1 .333 0 0 0 0 0 .1667\n",
                         {"define_cell", "push_", "define_mag"}),
                ElementsAre("define_cell (3.333,6.667,3.3333) (90,90,120)",
                            "push_atom A H (0.33333334,-0.6666667,1) 0.5 r=0.3333 hidden=0 "
                            "colour=none",
                            "push_atom B H (0.333,-0.6666667,1) 0.5 r=0.6667 hidden=0 colour=none",
                            "push_bond_by_label A B 0.333 0.667 r=1 hidden=0 colour=none",
                            "define_magnetic_phase P k(0.333,0.333,0)",
                            "push_matom A H (0.33333334,0.33333334,0.33333334) scale=1 hidden=0 "
                            "group=0 [k=1 m=1 (0.333,0) (0,0) (0,0) phase=0.1667 "
                            "colour=(0.8,0.8,0.8,1)]"));
}

TEST(ReadFile, BondsByLabelAndBySymbol) {
    EXPECT_THAT(calls_of("BOND Fe1 O1 0 2.5\nCONN FE O 0.5 2.5 RADIUS .2 COLOR 1 0 0 1 NODISPLAY\n"
                         "BOND Fe1 O1 0\nCONN Iron Oxygen 0 3\n",
                         {"push_bond"}),
                ElementsAre("push_bond_by_label Fe1 O1 0 2.5 r=1 hidden=0 colour=none",
                            "push_bond_by_symbol FE O 0.5 2.5 r=0.2 hidden=1 colour=(1,0,0,1)",
                            "push_bond_by_symbol Ir Ox 0 3 r=1 hidden=0 colour=none"));
}

TEST(ReadFile, OfOneLineBondsByLabelComeBeforeThoseBySymbol) {
    EXPECT_THAT(calls_of("CONN H H 0 2 BOND A B 0 1\n", {"push_bond"}),
                ElementsAre("push_bond_by_label A B 0 1 r=1 hidden=0 colour=none",
                            "push_bond_by_symbol H H 0 2 r=1 hidden=0 colour=none"));
}

TEST(ReadFile, ARadiusBeforeABondIsNotTheBonds) {
    EXPECT_THAT(
        calls_of("ATOM A H 0 0 0 RADIUS 2\nBOND A A 0 1\nRADIUS 3\nCONN H H 0 1\n", {"push_bond"}),
        ElementsAre("push_bond_by_label A A 0 1 r=1 hidden=0 colour=none",
                    "push_bond_by_symbol H H 0 1 r=1 hidden=0 colour=none"));
}

TEST(ReadFile, GeneratorsCountOnceAndReplaceTheSymbolOfTheirLine) {
    EXPECT_THAT(calls_of("SPACEG P m GENR -x,-y,-z\ngenr  x,-y,z \nATOM A H 0 0 0\n"
                         "GENR y,x,z\nSPACEG P 2\n",
                         {"define_spacegroup", "push_atom"}),
                ElementsAre("define_spacegroup <P 1>", "define_spacegroup <P m GENR -x,-y,-z>",
                            "define_spacegroup <> <-x,-y,-z> <x,-y,z>",
                            "push_atom A H (0,0,0) 0.5 r=0.37 hidden=0 colour=none",
                            "define_spacegroup <P 2>"));
}

TEST(ReadFile, GroupsEndWithTheFileAndKeepWhatFitsTheirTables) {
    std::string text;
    for (int i = 1; i <= 500; ++i) text += "GENR x,y,z+" + std::to_string(i) + "\n";
    const Calls groups = calls_of(text + "ATOM A H 0 0 0\n", {"define_spacegroup <>", "push_atom"});
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(std::count(groups[0].begin(), groups[0].end(), 'x'), 192);
    EXPECT_TRUE(groups[0].ends_with("<x,y,z+192>"));

    EXPECT_THAT(calls_of("GENR x,y,z\nGENR -x,-y,-z", {"define_spacegroup <>"}),
                ElementsAre("define_spacegroup <> <x,y,z> <-x,-y,-z>"));
    read_text("{\nK 0 0 0\nK 0 0 .5");
    read_text("{\nSYMM x,y,z\nMSYM u,v,w,0");
    EXPECT_THAT(magnetic_calls_of("{\nMATOM A H 0 0 0\nSKP 1 1 1 0 0 0 0 0 0"),
                ElementsAre("define_magnetic_phase P",
                            "push_matom A H (0,0,0) scale=1 hidden=0 group=0 [k=1 m=1 (1,0) (0,0) "
                            "(0,0) phase=0 colour=(0.8,0.8,0.8,1)]"));
}

// ---- the view

Quaternion view_of(const std::string& text) {
    Quaternion view{0, 0, 0, 1};
    read_text(text, &view);
    return view;
}

void expect_near(const Quaternion& view, const Quaternion& expected) {
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(view[i], expected[i], 1e-6f) << i;
}

const float half = std::sqrt(0.5f);

TEST(ReadView, EachKeywordTurnsAsTold) {
    expect_near(view_of("ATOM A H 0 0 0\n"), {1, 0, 0, 0});
    expect_near(view_of("VIEW 0 0 1\n"), {1, 0, 0, 0});
    expect_near(view_of("VIEW 2 0 0\n"), {half, 0, half, 0});
    expect_near(view_of("VIEW 0 3 0\n"), {half, -half, 0, 0});
    expect_near(view_of("ROTAX 90 0 0 5\n"), {half, 0, 0, half});
    expect_near(view_of("ROTXYZ 0 0 90\n"), {half, 0, 0, half});
    // x to y by the turn about z, after y to z by the turn about x: the quaternion (1,1,1,1)/2.
    expect_near(view_of("ROTXYZ 90 0 90\n"), {0.5f, 0.5f, 0.5f, 0.5f});
    // x to -z by the turn about y, y to -x by that about z.
    expect_near(view_of("ROTXYZ 0 90 90\n"), {0.5f, -0.5f, 0.5f, 0.5f});
    expect_near(view_of("SPHER 90 0\n"), {half, 0, half, 0});
    expect_near(view_of("SPHER 60 90\n"), {std::sqrt(0.75f), -0.5f, 0, 0});
}

TEST(ReadView, LinesWithoutADirectionOrUnreadableOnesKeepTheView) {
    for (const char* line : {"VIEW 0 0 -4", "VIEW 0 0 0", "VIEW 1 0", "ROTXYZ 1 x 3",
                             "ROTAX 90 1 0", "SPHER 0 40", "SPHER 10", "VIEW nan 0 0"}) {
        SCOPED_TRACE(line);
        expect_near(view_of(std::string("ROTAX 90 1 0 0\n") + line + "\n"), {half, half, 0, 0});
    }
    expect_near(view_of("ROTAX 90 0 0 0\n"), {1, 0, 0, 0});
}

TEST(ReadView, DirectionsBelowTheToleranceKeepTheView) {
    const std::string before = "ROTAX 90 1 0 0\n";
    expect_near(view_of(before + "VIEW 9e-6 0 0\n"), {half, half, 0, 0});
    expect_near(view_of(before + "VIEW 2e-5 0 0\n"), {half, 0, half, 0});
    expect_near(view_of(before + "VIEW 9e-6 0 1\n"), {half, half, 0, 0});
    expect_near(view_of(before + "VIEW 2e-5 0 1\n"), {1, 0, 0, 0});
    // The sine of theta counts: 8.7e-6 and 1.7e-5.
    expect_near(view_of(before + "SPHER 0.0005 0\n"), {half, half, 0, 0});
    expect_near(view_of(before + "SPHER 0.001 0\n"), {1, 0, 8.7266e-6f, 0});
}

TEST(ReadView, LaterKeywordsOfALineAndLaterLinesWin) {
    expect_near(view_of("SPHER 0 0 ROTAX 90 0 0 1 VIEW 1 0 0\n"), {half, 0, 0, half});
    expect_near(view_of("ROTAX 90 0 0 1\nVIEW 1 0 0\n"), {half, 0, half, 0});
}

// ---- the magnetic block

TEST(ReadMagneticBlock, PhaseAndAtomsReachTheirUnit) {
    EXPECT_THAT(magnetic_calls_of("{\nLATTICE C\nK .5 0 0\nk 0 .25 0\n"
                                  "SYMM x,y,z\nMSYM u,v,w,0.0\nmsym u,v,-w,0.5\n"
                                  "SYMM -x,-y,-z\nMSYM u,v,w,0.0\nMSYM -u,-v,-w,0.0\n"
                                  "MATOM Fe1 FE 0 0 0 SCALE 2 GROUP NODISPLAY\n"
                                  "SKP 1 2 1 2 3 4 5 6 .25 COLOR 1 0 0 1\n"
                                  "SKP 2 1 7 0 0 0 0 0 0\n"
                                  "MATOM Fe2 FE 0 0 .5\nSKP 1 1 1 0 0 0 0 0 0\n}\n"),
                ElementsAre("define_magnetic_phase C k(0.5,0,0) k(0,0.25,0)"
                            " x,y,z:<MSYM u,v,w,0.0><msym u,v,-w,0.5>"
                            " -x,-y,-z:<MSYM u,v,w,0.0><MSYM -u,-v,-w,0.0>",
                            "push_matom Fe1 FE (0,0,0) scale=2 hidden=0 group=1"
                            " [k=1 m=2 (1,4) (2,5) (3,6) phase=0.25 colour=(1,0,0,1)]"
                            " [k=2 m=1 (7,0) (0,0) (0,0) phase=0 colour=(1,0,0,1)]",
                            "push_matom Fe2 FE (0,0,0.5) scale=1 hidden=0 group=0"
                            " [k=1 m=1 (1,0) (0,0) (0,0) phase=0 colour=(0.62,0.31,0.01,1)]"));
}

TEST(ReadMagneticBlock, EachComponentHasTheLastColourBeforeIt) {
    EXPECT_THAT(calls_of("{\nMATOM A H 0 0 0 COLOR 1 0 0 1\nSKP 1 1 1 0 0 0 0 0 0\n"
                         "SKP 2 1 1 0 0 0 0 0 0 COLOR 0 1 0 1\nSKP 3 1 1 0 0 0 0 0 0\n}\n",
                         {"push_matom"}),
                ElementsAre("push_matom A H (0,0,0) scale=1 hidden=0 group=0"
                            " [k=1 m=1 (1,0) (0,0) (0,0) phase=0 colour=(1,0,0,1)]"
                            " [k=2 m=1 (1,0) (0,0) (0,0) phase=0 colour=(0,1,0,1)]"
                            " [k=3 m=1 (1,0) (0,0) (0,0) phase=0 colour=(0,1,0,1)]"));
}

TEST(ReadMagneticBlock, ALineOfBothBracesClosesTheBlock) {
    for (const char* braces : {"{ }", "} {"}) {
        EXPECT_THAT(atoms_of(std::string("{\n") + braces + "\nATOM A H 0 0 0\n"),
                    testing::SizeIs(1));
        EXPECT_THAT(magnetic_calls_of(std::string(braces) + "\nMATOM A H 0 0 0\n"), IsEmpty());
    }
}

TEST(ReadMagneticBlock, ScaleCountsInsideAndForOneAtom) {
    EXPECT_THAT(calls_of("SCALE 3\n{\nMATOM A H 0 0 0\nSKP 1 1 1 0 0 0 0 0 0\nSCALE 2\n"
                         "MATOM B H 0 0 0\nSKP 1 1 1 0 0 0 0 0 0\n"
                         "MATOM C H 0 0 0\nSKP 1 1 1 0 0 0 0 0 0\n}\n",
                         {"push_matom"}),
                ElementsAre(testing::HasSubstr("A H (0,0,0) scale=1 "),
                            testing::HasSubstr("B H (0,0,0) scale=2 "),
                            testing::HasSubstr("C H (0,0,0) scale=1 ")));
}

TEST(ReadMagneticBlock, ALineOfMsymIsNothingElse) {
    EXPECT_THAT(magnetic_calls_of("{\nSYMM x,y,z\nMSYM u,v,w,0 MATOM A H 0 0 0\n"
                                  "SKP 1 1 1 0 0 0 0 0 0\nMATOM B H 0 0 0\n}\n"),
                ElementsAre("define_magnetic_phase P x,y,z:<MSYM u,v,w,0 MATOM A H 0 0 0>"));
    // A later run no longer counts, so that its line is read as an atom.
    EXPECT_THAT(
        magnetic_calls_of("{\nSYMM x,y,z\nMSYM u,v,w,0\n\nMSYM -u,v,w,0 MATOM A H 0 0 0\n}\n"),
        ElementsAre("define_magnetic_phase P x,y,z:<MSYM u,v,w,0>"));
}

TEST(ReadMagneticBlock, ABlankLineEndsTheComponentsOfAnAtom) {
    EXPECT_THAT(calls_of("{\nMATOM A H 0 0 0\nSKP 1 1 1 0 0 0 0 0 0\n\nSKP 2 1 1 0 0 0 0 0 0\n}\n",
                         {"push_matom"}),
                ElementsAre(testing::AllOf(testing::HasSubstr("[k=1 "),
                                           testing::Not(testing::HasSubstr("[k=2 ")))));
}

TEST(ReadMagneticBlock, OnlyTheFirstPhaseOfAFileCounts) {
    EXPECT_THAT(magnetic_calls_of("{\nLATTICE I\nK 0 0 1\nMATOM A H 0 0 0\n}\n"
                                  "{\nLATTICE P\nK 0 0 0\nMATOM A H 0 0 0\n}\n"),
                ElementsAre("define_magnetic_phase I k(0,0,1)"));
}

TEST(ReadMagneticBlock, NothingOfItActsOutside) {
    EXPECT_THAT(magnetic_calls_of("LATTICE I\nK 0 0 1\nSYMM x,y,z\nMSYM u,v,w,0\n"
                                  "{\nMATOM A H 0 0 0\n}\nSKP 1 1 1 0 0 0 0 0 0\n"),
                ElementsAre("define_magnetic_phase P"));
    EXPECT_THAT(atoms_of("{\nATOM A H 0 0 0\n}\n"), IsEmpty());
}

TEST(ReadMagneticBlock, ClosingBraceForgetsVectorsAndOperators) {
    EXPECT_THAT(magnetic_calls_of("{\nK 0 0 1\nSYMM x,y,z\nMSYM u,v,w,0\n}\n{\nMATOM A H 0 0 0\n"),
                ElementsAre("define_magnetic_phase P"));
}

TEST(ReadMagneticBlock, AnAtomWithoutMomentsIsDroppedAndABadOneTakesItsMomentsAlong) {
    EXPECT_THAT(calls_of("{\nMATOM A H 0 0 0\nMATOM B H 0 0\nSKP 1 1 1 0 0 0 0 0 0\n"
                         "MATOM C H 0 0 0 COLOR 0 0 0 1\n SKP 1 1 / \nSKP 1 1 5 0 0 0 0 0 0\n"
                         "}\n",
                         {"push_matom"}),
                ElementsAre("push_matom C H (0,0,0) scale=1 hidden=0 group=0"
                            " [k=1 m=1 (0,0) (0,0) (0,0) phase=0 colour=(0,0,0,1)]"
                            " [k=1 m=1 (5,0) (0,0) (0,0) phase=0 colour=(0,0,0,1)]"));
}

TEST(ReadMagneticBlock, ALineWithKAndABlankIsAVectorAndNothingElse) {
    // Potassium, and a line that ends in K: the vector is what could be read.
    EXPECT_THAT(magnetic_calls_of("{\nK 0 0 .5\nSYMM x,y,z\nMATOM K1 K 0 0 .25\n"
                                  "SKP 1 1 1 0 0 0 0 0 0\nMATOM A H 0 0 0\n"),
                ElementsAre("define_magnetic_phase P k(0,0,0.5) k(0,0,0.25) k(0,0,0.25) x,y,z:"));
}

TEST(ReadMagneticBlock, GroupScansKnowNoComments) {
    EXPECT_THAT(
        magnetic_calls_of("{\nK 0 0 0\n# K 1 1 1\nSYMM x,y,z\nMSYM u,v,w,0\n!MSYM -u,v,w,0\n"
                          "MATOM A H 0 0 0\n"),
        ElementsAre("define_magnetic_phase P k(0,0,0) k(1,1,1)"
                    " x,y,z:<MSYM u,v,w,0><MSYM -u,v,w,0>"));
}

TEST(ReadMagneticBlock, OperatorsBelongToTheLastSymmAndOnlyTheirFirstGroupCounts) {
    EXPECT_THAT(magnetic_calls_of("{\nMSYM -u,v,w,0\nSYMM x,y,z\nMSYM u,v,w,0\n\nMSYM u,-v,w,0\n"
                                  "SYMM -x,y,z\nMATOM A H 0 0 0\n"),
                ElementsAre("define_magnetic_phase P x,y,z: -x,y,z:"))
        << "the number of sets is that of the last SYMM";
    EXPECT_THAT(magnetic_calls_of("{\nSYMM x,y,z\nSYMM -x,y,z\nMSYM u,v,w,0\nMATOM A H 0 0 0\n"),
                ElementsAre("define_magnetic_phase P x,y,z:<> -x,y,z:<MSYM u,v,w,0>"));
}

TEST(ReadMagneticBlock, FullTablesDropTheRestOfAGroup) {
    std::string text = "{\n";
    for (int i = 0; i < 30; ++i) text += "K 0 0 0." + std::to_string(10 + i) + "\n";
    for (int s = 0; s < 200; ++s) {
        text += "SYMM x,y,z+" + std::to_string(s) + "\n";
        for (int m = 0; m < 30; ++m) text += "MSYM u,v,w,0." + std::to_string(10 + m) + "\n";
    }
    text += "MATOM A H 0 0 0\n";
    for (int i = 0; i < 30; ++i) text += "SKP 1 1 " + std::to_string(i) + " 5*0 0\n";
    const Calls calls = magnetic_calls_of(text + "}\n");
    ASSERT_EQ(calls.size(), 2u);
    const auto count = [](const std::string& in, const std::string& what) {
        int n = 0;
        for (auto at = in.find(what); at != std::string::npos; at = in.find(what, at + 1)) ++n;
        return n;
    };
    EXPECT_EQ(count(calls[0], "k("), 24);
    EXPECT_EQ(count(calls[0], "x,y,z+"), 192);
    EXPECT_EQ(count(calls[0], "<MSYM"), 192 * 24);
    EXPECT_TRUE(calls[0].find("k(0,0,0.33) x") != std::string::npos);
    EXPECT_TRUE(calls[0].ends_with("<MSYM u,v,w,0.33>"));
    EXPECT_EQ(count(calls[1], "[k="), 24);
    EXPECT_TRUE(calls[1].find("(23,0)") != std::string::npos);
}

TEST(ReadMagneticBlock, TablesOfTheFileBeforeDoNotShowThrough) {
    read_text("{\nSYMM x,y,z\nMSYM u,v,w,0\nMSYM -u,v,w,0\nMATOM A H 0 0 0\nSKP 1 1 9*1\n}\n");
    EXPECT_THAT(
        magnetic_calls_of("{\nSYMM x,y,z\nSYMM -x,y,z\nMSYM u,v,w,0\nMSYM -u,v,w,0\n"
                          "MATOM A H 0 0 0\nSKP 1 1 1 x\n"),
        ElementsAre("define_magnetic_phase P x,y,z:<><> -x,y,z:<MSYM u,v,w,0><MSYM -u,v,w,0>",
                    "push_matom A H (0,0,0) scale=1 hidden=0 group=0 [k=1 m=1 (1,0) (0,0) "
                    "(0,0) phase=0 colour=(0.8,0.8,0.8,1)]"));
}

// ---- text as it comes

TEST(ReadFile, LineEndsTabsAndCutLines) {
    const std::string atom = "push_atom A H (0,0,0) 0.5 r=0.37 hidden=0 colour=none";
    EXPECT_THAT(calls_of("SPACEG\tP n m a\r\nATOM\tA\tH\t0 0 0\r\n", {"define_spac", "push_atom"}),
                ElementsAre("define_spacegroup <P 1>", "define_spacegroup <P n m a>", atom));
    EXPECT_THAT(atoms_of("ATOM A H 0 0 0"), ElementsAre(atom)) << "no end of the last line";
    // 256 characters count; the comment sign behind them doesn't.
    const std::string blanks(256, ' ');
    EXPECT_THAT(atoms_of("ATOM A H 0 0 0" + blanks + "!\n" + blanks + "ATOM B H 0 0 0\n"),
                ElementsAre(atom));
    const std::string fitting = std::string(242, ' ') + "ATOM A H 0 0 0";
    EXPECT_THAT(atoms_of(fitting + "\n" + fitting + "9\n"), ElementsAre(atom, atom));
    EXPECT_THAT(atoms_of(std::string(10'000'000, 'x') + "\nATOM A H 0 0 0\n"), ElementsAre(atom));
    EXPECT_THAT(atoms_of(std::string("ATOM B\0 H 0 0\nATOM A H 0 0 0\n", 29)), ElementsAre(atom));
}

TEST(ReadFile, NoiseIsPassedOver) {
    std::mt19937 random(7);
    std::string noise(1 << 20, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    read_text(noise);
    const std::string bits[] = {"{",    "}",        "K ",   "SKP", "MATOM", "SYMM", "MSYM",
                                "GENR", "ATOM A H", "1e30", "-1",  "\n",    "\n",   " ",
                                ",",    "/",        "'",    "9*",  "BOX",   "CELL"};
    for (int round = 0; round < 200; ++round) {
        std::string text;
        for (int i = 0; i < 300; ++i) text += bits[random() % std::size(bits)];
        read_text(text);
    }
    EXPECT_THAT(scene_calls::of({"init_box"}), testing::Not(IsEmpty()));
}

TEST(ReadFile, ADecimalCommaLocaleChangesNothing) {
    // Of these, any that the system has.
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE"})
        if (std::setlocale(LC_ALL, name) != nullptr) break;
    EXPECT_THAT(atoms_of("ATOM A H 0.25 1e-1 .5 RADIUS 1.5\n"),
                ElementsAre("push_atom A H (0.25,0.1,0.5) 0.5 r=1.5 hidden=0 colour=none"));
}

}  // namespace
