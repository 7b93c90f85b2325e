#include "tests/app/loaded_dialogs.hpp"

#include "app/program_state.hpp"
#include "scene/wcfgl_objects_definition.hpp"

#include <gmock/gmock.h>

using namespace gemwright;
using dialog_record::options;
using dialog_record::rows;
using dialog_record::state;
using dialog_record::text;
using dialog_record::value;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

using SetFields = LoadedDialogs;
using tesserakit::FieldDisabled;
using tesserakit::FieldEnabled;

constexpr int page_of_atom_position = dialog::atom_position;
constexpr int page_of_atom_look = dialog::atom_look;

TEST_F(SetFields, TheInformationLineNamesTheFile) {
    current_file_name = "data/mno.gwr";
    set_info_fields();
    EXPECT_EQ(text({dialog::main, field::information}), "data/mno.gwr");
}

TEST_F(SetFields, CellAndBoxStandInTheirFieldsAndKeepThemWhileThereIsNone) {
    set_cell_fields();
    set_box_fields();
    EXPECT_THAT(texts(dialog::cell, field::cell_lengths), Each("0.0000"));
    EXPECT_THAT(texts(dialog::box, field::box_limits),
                ElementsAre("0.00", "1.00", "0.00", "1.00", "0.00", "1.00"));
    wcfgl_metrix::define_cell({5, 6.5f, 7}, {80, 90, 100.25f});
    wcfgl_metrix::define_box(-1, 2, -3, 4, -5, 6.5f);
    set_cell_fields();
    set_box_fields();
    EXPECT_THAT(texts(dialog::cell, field::cell_lengths),
                ElementsAre("5.0000", "6.5000", "7.0000"));
    EXPECT_THAT(texts(dialog::cell, field::cell_angles),
                ElementsAre("80.0000", "90.0000", "100.2500"));
    EXPECT_THAT(texts(dialog::box, field::box_limits),
                ElementsAre("-1.00", "2.00", "-3.00", "4.00", "-5.00", "6.50"));
}

TEST_F(SetFields, AGroupShowsItsNamesAndItsOperators) {
    set_spacegroup_fields();
    EXPECT_THAT(rows({dialog::space_group, field::generators}), SizeIs(0));
    wcfgl_metrix::define_spacegroup("P 1 2 1");
    dialog_record::set({dialog::space_group, 1010}, 1);
    set_spacegroup_fields();
    EXPECT_EQ(text({dialog::space_group, field::symbol}), "P 1 2 1");
    EXPECT_EQ(text({dialog::space_group, field::hermann_mauguin}), "P 1 2 1");
    EXPECT_EQ(text({dialog::space_group, field::hall}), "P 2y");
    EXPECT_EQ(text({dialog::space_group, field::crystal_system}), "Monoclinic");
    EXPECT_THAT(rows({dialog::space_group, field::generators}),
                ElementsAre("  1|x,y,z", "  2|-x,y,-z"));
    EXPECT_EQ(state({dialog::space_group, field::generators}), FieldDisabled);
    EXPECT_EQ(value({dialog::space_group, field::by_symbol}), 1);
}

// Monoclinic with a quarter of the cell as unit translation: no table has it.
TEST_F(SetFields, AGroupThatHasNoNameShowsNone) {
    const std::vector<FixedText<80>> generators{"x,y+1/4,z", "-x,y,-z"};
    wcfgl_metrix::define_spacegroup("", generators);
    ASSERT_EQ(wcfgl_metrix::current_space_group->multip, 8);
    set_spacegroup_fields();
    EXPECT_EQ(text({dialog::space_group, field::symbol}), "");
    for (const int name : {field::hermann_mauguin, field::hall, field::crystal_system})
        EXPECT_NE(text({dialog::space_group, name}), "unknown") << name;
    EXPECT_EQ(rows({dialog::space_group, field::generators}).size(), 8U);
    get_values(dialog::space_group);
    EXPECT_EQ(wcfgl_metrix::current_space_group->multip, 8) << "Return leaves it";
}

TEST_F(SetFields, TheAtomsAreListedAndTheLastOneIsShown) {
    two_atoms();
    EXPECT_THAT(options({dialog::atoms, field::atom_list}),
                ElementsAre("Fe1 FE", "O2 O", "-New atom-"));
    EXPECT_EQ(value({dialog::atoms, field::atom_list}), 2);
    EXPECT_EQ(text({page_of_atom_position, field::atom_label}), "O2");
    EXPECT_EQ(text({page_of_atom_position, field::atom_symbol}), "O");
    EXPECT_THAT(texts(page_of_atom_position, field::atom_coordinates),
                ElementsAre("0.5000", "0.0000", "0.0000"));
    EXPECT_EQ(text({page_of_atom_position, field::atom_multiplicity}), "1");
    EXPECT_EQ(value({page_of_atom_look, field::atom_shown}), 1);
    EXPECT_EQ(text({page_of_atom_look, field::atom_radius}), "0.5000");
    EXPECT_EQ(value({page_of_atom_look, field::atom_default_colour}), 1);
    EXPECT_THAT(states(page_of_atom_look, field::atom_colour), Each(FieldDisabled));
    EXPECT_THAT(states(page_of_atom_look, field::atom_colour_labels), Each(FieldDisabled));
}

TEST_F(SetFields, AnAtomWithAColourOfItsOwnShowsItCutToHundredths) {
    two_atoms();
    dialog_record::set({dialog::atoms, field::atom_list}, 1);
    set_atom_field();
    EXPECT_THAT(texts(page_of_atom_position, field::atom_coordinates),
                ElementsAre("0.1250", "0.2500", "0.3750"));
    EXPECT_EQ(value({page_of_atom_look, field::atom_shown}), 0);
    EXPECT_THAT(values(page_of_atom_look, field::atom_colour), ElementsAre(10, 20, 30, 40));
    EXPECT_EQ(value({page_of_atom_look, field::atom_own_colour}), 1);
    EXPECT_THAT(states(page_of_atom_look, field::atom_colour), Each(FieldEnabled));
    EXPECT_THAT(states(page_of_atom_look, field::atom_colour_labels), Each(FieldEnabled));
}

TEST_F(SetFields, TheEntryOfANewAtomShowsPlaceholders) {
    two_atoms();
    dialog_record::set({dialog::atoms, field::atom_list}, 3);
    set_atom_field();
    EXPECT_EQ(text({page_of_atom_position, field::atom_label}), "???");
    EXPECT_EQ(text({page_of_atom_position, field::atom_symbol}), "??");
    EXPECT_THAT(texts(page_of_atom_position, field::atom_coordinates), Each("0.0000"));
    EXPECT_EQ(text({page_of_atom_position, field::atom_multiplicity}), "0");
    EXPECT_EQ(text({page_of_atom_look, field::atom_radius}), "1.0000");
}

TEST_F(SetFields, BondRulesAreListedAndTheLastOneIsShown) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    two_atoms();
    wcfgl_bond_tree::push_bond_by_label("Fe1", "O2", 0.5f, 2.5f, 0.25f, 1,
                                        Colour{0.5f, 0.6f, 0.7f, 0.8f});
    wcfgl_bond_tree::push_bond_by_symbol("FE", "O ", 1, 3, 2, 0);
    set_bond_label_list();
    EXPECT_THAT(options({dialog::bonds, field::bond_list}),
                ElementsAre("Fe1--O2", "FE--O", "-New bond-"));
    EXPECT_EQ(value({dialog::bonds, field::bond_list}), 2);
    EXPECT_EQ(value({dialog::bond_rule, field::bond_by_symbol}), 1);
    EXPECT_THAT(texts(dialog::bond_rule, field::bond_names), ElementsAre("FE", "O"));
    EXPECT_THAT(texts(dialog::bond_rule, field::bond_distances), ElementsAre("1.0000", "3.0000"));
    EXPECT_EQ(value({dialog::bond_look, field::bond_shown}), 1);
    EXPECT_EQ(text({dialog::bond_look, field::bond_radius}), "2.0000");
    // The opposite sense to the atoms: from the atoms shows as user defined, and the reverse.
    EXPECT_EQ(value({dialog::bond_look, field::bond_own_colour}), 1);
    EXPECT_THAT(states(dialog::bond_look, field::bond_colour), Each(FieldEnabled));
    EXPECT_THAT(states(dialog::bond_look, field::bond_colour_labels), Each(FieldEnabled));

    dialog_record::set({dialog::bonds, field::bond_list}, 1);
    set_bond_field();
    EXPECT_EQ(value({dialog::bond_rule, field::bond_by_label}), 1);
    EXPECT_THAT(texts(dialog::bond_rule, field::bond_names), ElementsAre("Fe1", "O2"));
    EXPECT_EQ(value({dialog::bond_look, field::bond_shown}), 0);
    EXPECT_THAT(values(dialog::bond_look, field::bond_colour), ElementsAre(50, 60, 70, 80));
    EXPECT_EQ(value({dialog::bond_look, field::bond_atoms_colour}), 1);
    EXPECT_THAT(states(dialog::bond_look, field::bond_colour), Each(FieldDisabled));
    EXPECT_THAT(states(dialog::bond_look, field::bond_colour_labels), Each(FieldDisabled));
}

TEST_F(SetFields, TheMagneticLatticeIsTheOptionOfItsLetter) {
    set_magnetic_lattice();
    EXPECT_EQ(text({dialog::magnetic, field::magnetic_lattice}), "");
    for (const char* letter : {"P", "A", "B", "C", "I", "R", "F"}) {
        wcfgl_matom_tree::current_magnetic_lattice = *letter;
        set_magnetic_lattice();
        EXPECT_EQ(text({dialog::magnetic, field::magnetic_lattice}), letter);
    }
    wcfgl_matom_tree::current_magnetic_lattice = 'X';
    set_magnetic_lattice();
    EXPECT_EQ(text({dialog::magnetic, field::magnetic_lattice}), "F");
}

TEST_F(SetFields, VectorsAreListedAndTheChosenOneIsShown) {
    wcfgl_matom_tree::append_k_vector({0.5f, 0, 0.25f});
    wcfgl_matom_tree::append_k_vector({-0.125f, 1, 0.0371f});
    set_magnetic_kvectors();
    EXPECT_THAT(
        options({dialog::magnetic, field::k_list}),
        ElementsAre(" 1-   0.500  0.000  0.250", " 2-  -0.125  1.000  0.037", "-New k vector-"));
    EXPECT_EQ(value({dialog::magnetic, field::k_list}), 3);
    EXPECT_THAT(texts(dialog::magnetic, field::k_components), Each("0.0000"));
    dialog_record::set({dialog::magnetic, field::k_list}, 2);
    set_kvectors_field();
    EXPECT_THAT(texts(dialog::magnetic, field::k_components),
                ElementsAre("-0.1250", "1.0000", "0.0371"));
    dialog_record::set({dialog::magnetic, field::k_list}, 3);
    set_kvectors_field();
    EXPECT_THAT(texts(dialog::magnetic, field::k_components),
                ElementsAre("-0.1250", "1.0000", "0.0371"));
}

TEST_F(SetFields, SlidersStandAtTheScenesValues) {
    wcfgl_display::shininess = 33;
    wcfgl_display::specular_colour = {0.1f, 0.2f, 0.3f, 1};
    wcfgl_display::lamp_position = {1.5f, -2, 3, 1};
    wcfgl_display::lamp_colour = {0.4f, 0.5f, 0.6f, 1};
    wcfgl_objects_definition::present_resolution.atom = 42;
    wcfgl_objects_definition::moment_head_radius = 0.25;
    wcfgl_objects_definition::moment_shaft_length = 0.625;
    wcfgl_objects_definition::moment_shaft_radius = 0.125;
    set_material();
    set_lamp();
    set_moment();
    EXPECT_EQ(value({dialog::material, field::quality}), 42);
    EXPECT_EQ(value({dialog::material, field::shininess}), 33);
    EXPECT_THAT(values(dialog::material, field::specular), ElementsAre(10, 20, 30));
    EXPECT_THAT(texts(dialog::lamp, field::lamp_position),
                ElementsAre("1.5000", "-2.0000", "3.0000"));
    EXPECT_THAT(values(dialog::lamp, field::lamp_colour), ElementsAre(40, 50, 60));
    EXPECT_EQ(value({dialog::moment, field::moment_head_width}), 25);
    EXPECT_EQ(value({dialog::moment, field::moment_head_length}), 37);
    EXPECT_EQ(value({dialog::moment, field::moment_thickness}), 12);
}

}  // namespace
