#include "tests/app/loaded_dialogs.hpp"

#include "app/program_state.hpp"
#include "scene/wcfgl_objects_definition.hpp"

#include <gmock/gmock.h>

using namespace gemwright;
using dialog_record::rows;
using dialog_record::state;
using dialog_record::text;
using dialog_record::value;
using testing::Each;
using testing::ElementsAre;
using testing::FloatEq;

namespace {

using GetFields = LoadedDialogs;
using tesserakit::FieldDisabled;
using tesserakit::FieldEnabled;

wcfgl_atom_tree::AtomInfo atom(int index) { return wcfgl_atom_tree::get_atom_info(index); }

TEST_F(GetFields, TheRadiosChooseWhatADragDoes) {
    for (const int mode : {1, 2, 3}) {
        dialog_record::set({dialog::main, field::mouse_mode + mode - 1}, 1);
        mouse_mode = 0;
        get_fields(dialog::main, field::mouse_mode);
        EXPECT_EQ(mouse_mode, mode);
        mouse_mode = 0;
        get_values(dialog::main);
        EXPECT_EQ(mouse_mode, mode);
    }
}

TEST_F(GetFields, TheBoxFollowsEachChangeAndOk) {
    type(dialog::box, field::box_limits, {"-1", "2", "-3", "4", "-5", "6"});
    get_fields(dialog::box, field::box_limits[3]);
    EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{-1, 2, -3, 4, -5, 6}));
    type(dialog::box, field::box_limits, {"0", "2", "0", "4", "0", "6"});
    get_values(dialog::box);
    EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{0, 2, 0, 4, 0, 6}));
}

TEST_F(GetFields, TheCellWaitsForOk) {
    type(dialog::cell, field::cell_lengths, {"5", "6", "7"});
    type(dialog::cell, field::cell_angles, {"80", "90", "100"});
    get_fields(dialog::cell, field::cell_lengths[0]);
    EXPECT_FALSE(wcfgl_metrix::current_cell);
    get_values(dialog::cell);
    ASSERT_TRUE(wcfgl_metrix::current_cell);
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_length, (Vector3f{5, 6, 7}));
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_angle, (Vector3f{80, 90, 100}));
}

TEST_F(GetFields, ASymbolBecomesTheGroupOnOk) {
    two_atoms();
    dialog_record::type({dialog::space_group, field::symbol}, "P -1");
    get_fields(dialog::space_group, field::symbol);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 1);
    get_values(dialog::space_group);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 2);
    EXPECT_THAT(rows({dialog::space_group, field::generators}),
                ElementsAre("  1|x,y,z", "  2|-x,-y,-z"));
    dialog_record::type({dialog::space_group, field::symbol}, "  ");
    get_values(dialog::space_group);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 2);
}

TEST_F(GetFields, ASymbolThatNamesNoGroupIsToldAndMakesTheModelP1) {
    two_atoms();
    dialog_record::type({dialog::space_group, field::symbol}, "P -1");
    get_values(dialog::space_group);
    dialog_record::type({dialog::space_group, field::symbol}, "F m -3 n");
    get_values(dialog::space_group);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 1);
    EXPECT_EQ(text({dialog::space_group, field::symbol}), "--Non valid--");
    EXPECT_EQ(text({dialog::space_group, field::hermann_mauguin}), "-NA-");
    EXPECT_EQ(text({dialog::space_group, field::hall}), "-NA-");
    EXPECT_EQ(text({dialog::space_group, field::crystal_system}), "-NA-");
    EXPECT_THAT(rows({dialog::space_group, field::generators}), ElementsAre("  1|X,Y,Z"));
    get_values(dialog::space_group);
    EXPECT_EQ(text({dialog::space_group, field::symbol}), "--Non valid--");
    dialog_record::type({dialog::space_group, field::symbol}, "P1");
    get_values(dialog::space_group);
    EXPECT_EQ(text({dialog::space_group, field::symbol}), "P 1");
}

TEST_F(GetFields, TheSelectedAtomShowsItsMultiplicityInTheNewGroup) {
    two_atoms();
    dialog_record::set({dialog::atoms, field::atom_list}, 1);
    dialog_record::type({dialog::space_group, field::symbol}, "P m m m");
    get_values(dialog::space_group);
    EXPECT_EQ(text({dialog::atom_position, field::atom_label}), "Fe1");
    EXPECT_EQ(text({dialog::atom_position, field::atom_multiplicity}), "8");
    wcfgl_display::display();
    set_atom_field();
    EXPECT_EQ(text({dialog::atom_position, field::atom_multiplicity}), "8");
}

// As people write them.
TEST_F(GetFields, SymbolsMayBeTypedWithoutBlanks) {
    for (const auto& [typed, number] : {std::pair{"P21/c", 14}, std::pair{"Fm-3m", 225}}) {
        dialog_record::type({dialog::space_group, field::symbol}, typed);
        get_values(dialog::space_group);
        EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, number) << typed;
    }
}

TEST_F(GetFields, OneWayToTellTheGroupIsGreyedByTheOther) {
    struct Case {
        int radio, of_symbol, of_generators;
    };
    for (const auto& [radio, of_symbol, of_generators] :
         {Case{1010, FieldDisabled, FieldEnabled}, Case{1009, FieldEnabled, FieldDisabled}}) {
        dialog_record::set({dialog::space_group, radio}, 1);
        get_fields(dialog::space_group, radio);
        EXPECT_EQ(state({dialog::space_group, field::symbol_label}), of_symbol);
        EXPECT_EQ(state({dialog::space_group, field::symbol}), of_symbol);
        EXPECT_EQ(state({dialog::space_group, field::generators_group}), of_generators);
        EXPECT_EQ(state({dialog::space_group, field::generators}), of_generators);
    }
    dialog_record::type({dialog::space_group, field::symbol}, "");
    dialog_record::set({dialog::space_group, 1010}, 1);
    get_values(dialog::space_group);
    EXPECT_EQ(state({dialog::space_group, field::symbol}), FieldDisabled);
    EXPECT_EQ(state({dialog::space_group, field::generators_group}), FieldEnabled);
}

TEST_F(GetFields, TheSelectionOfAListFillsTheFieldsBesideIt) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    two_atoms();
    wcfgl_bond_tree::push_bond_by_label("Fe1", "O2", 0.5f, 2.5f, 0.25f, 0);
    set_bond_label_list();
    wcfgl_matom_tree::append_k_vector({0.5f, 0, 0.25f});
    set_magnetic_kvectors();
    dialog_record::set({dialog::atoms, field::atom_list}, 1);
    get_fields(dialog::atoms, field::atom_list);
    EXPECT_EQ(text({dialog::atom_position, field::atom_label}), "Fe1");
    dialog_record::set({dialog::bonds, field::bond_list}, 2);
    get_fields(dialog::bonds, field::bond_list);
    EXPECT_THAT(texts(dialog::bond_rule, field::bond_names), Each("???"));
    dialog_record::set({dialog::magnetic, field::k_list}, 1);
    get_fields(dialog::magnetic, field::k_list);
    EXPECT_THAT(texts(dialog::magnetic, field::k_components),
                ElementsAre("0.5000", "0.0000", "0.2500"));
}

TEST_F(GetFields, ThePageOfTheLookActsOnTheSelectedAtomAtOnce) {
    two_atoms();
    dialog_record::set({dialog::atoms, field::atom_list}, 1);
    set_atom_field();
    dialog_record::type({dialog::atom_look, field::atom_radius}, "2.5");
    get_fields(dialog::atom_look, field::atom_radius);
    EXPECT_EQ(atom(1).radius, 2.5f);
    dialog_record::set({dialog::atom_look, field::atom_shown}, 1);
    get_fields(dialog::atom_look, field::atom_shown);
    EXPECT_EQ(atom(1).nodisplay, 0);
    dialog_record::set({dialog::atom_look, field::atom_shown}, 0);
    get_fields(dialog::atom_look, field::atom_shown);
    EXPECT_EQ(atom(1).nodisplay, 1);
    int value = 11;
    for (const int bar : field::atom_colour) {
        dialog_record::set({dialog::atom_look, bar}, value);
        get_fields(dialog::atom_look, bar);
        EXPECT_FLOAT_EQ(atom(1).colour[static_cast<std::size_t>(value / 11 - 1)],
                        static_cast<float>(value) / 100);
        value += 11;
    }
    EXPECT_EQ(atom(2).radius, 0.5f);
    EXPECT_EQ(atom(2).default_colour, 1);
}

TEST_F(GetFields, AnAtomTakesTheColourOfItsElementOrGetsOneOfItsOwn) {
    two_atoms();
    dialog_record::set({dialog::atoms, field::atom_list}, 1);
    set_atom_field();
    dialog_record::set({dialog::atom_look, field::atom_default_colour}, 1);
    get_fields(dialog::atom_look, field::atom_default_colour);
    EXPECT_EQ(atom(1).default_colour, 1);
    EXPECT_THAT(states(dialog::atom_look, field::atom_colour), Each(FieldDisabled));
    EXPECT_THAT(states(dialog::atom_look, field::atom_colour_labels), Each(FieldDisabled));
    EXPECT_NE(values(dialog::atom_look, field::atom_colour), (std::vector{10, 20, 30, 40}));
    get_fields(dialog::atom_look, field::atom_own_colour);
    EXPECT_EQ(atom(1).default_colour, 1) << "until a slider moves";
    EXPECT_THAT(states(dialog::atom_look, field::atom_colour), Each(FieldEnabled));
    EXPECT_THAT(states(dialog::atom_look, field::atom_colour_labels), Each(FieldEnabled));
}

TEST_F(GetFields, MaterialAndLampFollowTheirFields) {
    dialog_record::set({dialog::material, field::quality}, 17);
    get_fields(dialog::material, field::quality);
    EXPECT_EQ(wcfgl_objects_definition::high_resolution.atom, 17);
    dialog_record::set({dialog::material, field::shininess}, 99);
    get_fields(dialog::material, field::shininess);
    EXPECT_EQ(wcfgl_display::shininess, 99);
    for (std::size_t i = 0; i < 3; ++i) {
        dialog_record::set({dialog::material, field::specular[i]}, 50 + static_cast<int>(i));
        get_fields(dialog::material, field::specular[i]);
        EXPECT_FLOAT_EQ(wcfgl_display::specular_colour[i], 0.5f + 0.01f * static_cast<float>(i));
        dialog_record::set({dialog::lamp, field::lamp_colour[i]}, 20 + static_cast<int>(i));
        get_fields(dialog::lamp, field::lamp_colour[i]);
        EXPECT_FLOAT_EQ(wcfgl_display::lamp_colour[i], 0.2f + 0.01f * static_cast<float>(i));
        const float place = 2.5f + static_cast<float>(i);
        dialog_record::type({dialog::lamp, field::lamp_position[i]}, std::to_string(place));
        get_fields(dialog::lamp, field::lamp_position[i]);
        EXPECT_EQ(wcfgl_display::lamp_position[i], place);
    }
    EXPECT_EQ(wcfgl_display::specular_colour[3], 1.0f);
    type(dialog::lamp, field::lamp_position, {"7", "8", "9"});
    get_values(dialog::lamp);
    EXPECT_THAT(wcfgl_display::lamp_position, ElementsAre(7, 8, 9, 0));
}

TEST_F(GetFields, TheArrowsShapeFollowsItsSliders) {
    dialog_record::set({dialog::moment, field::moment_head_width}, 41);
    get_fields(dialog::moment, field::moment_head_width);
    dialog_record::set({dialog::moment, field::moment_head_length}, 32);
    get_fields(dialog::moment, field::moment_head_length);
    dialog_record::set({dialog::moment, field::moment_thickness}, 13);
    get_fields(dialog::moment, field::moment_thickness);
    EXPECT_FLOAT_EQ(static_cast<float>(wcfgl_objects_definition::moment_head_radius), 0.41f);
    EXPECT_FLOAT_EQ(static_cast<float>(wcfgl_objects_definition::moment_shaft_length), 0.68f);
    EXPECT_FLOAT_EQ(static_cast<float>(wcfgl_objects_definition::moment_shaft_radius), 0.13f);
}

// "-" is what stands there between two keys of "-1".
TEST_F(GetFields, AFieldThatHoldsNoNumberLeavesTheModelsOwn) {
    wcfgl_metrix::define_box(-1, 2, -3, 4, -5, 6);
    wcfgl_metrix::define_cell({5, 6, 7}, {80, 90, 100});
    wcfgl_display::lamp_position = {1, 2, 3, 0};
    two_atoms();
    type(dialog::box, field::box_limits, {"-2", "", "-", "8", "1e", "."});
    get_fields(dialog::box, field::box_limits[0]);
    EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{-2, 2, -3, 8, -5, 6}));
    type(dialog::cell, field::cell_lengths, {"", "9", "-"});
    type(dialog::cell, field::cell_angles, {"85", "", ""});
    get_values(dialog::cell);
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_length, (Vector3f{5, 9, 7}));
    EXPECT_EQ(wcfgl_metrix::current_cell->cell_angle, (Vector3f{85, 90, 100}));
    type(dialog::lamp, field::lamp_position, {"", "5", "-"});
    get_fields(dialog::lamp, field::lamp_position[1]);
    EXPECT_THAT(wcfgl_display::lamp_position, ElementsAre(1, 5, 3, 0));
    dialog_record::type({dialog::atom_look, field::atom_radius}, "");
    get_fields(dialog::atom_look, field::atom_radius);
    EXPECT_EQ(atom(2).radius, 0.5f);
}

TEST_F(GetFields, NumbersMissingWhereThereIsNoCellOrBoxYetMakeNoneThatIsWrong) {
    type(dialog::cell, field::cell_lengths, {"5", "6", ""});
    type(dialog::cell, field::cell_angles, {"80", "90", "100"});
    get_values(dialog::cell);
    EXPECT_FALSE(wcfgl_metrix::current_cell);
    type(dialog::box, field::box_limits, {"", "", "", "3", "", ""});
    get_fields(dialog::box, field::box_limits[3]);
    EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{0, 1, 0, 3, 0, 1}));
}

// Views: what stands in these fields is read by Insert alone, or by nothing.
TEST_F(GetFields, OtherFieldsAndDialogsChangeNothing) {
    two_atoms();
    dialog_record::type({dialog::atom_position, field::atom_coordinates[0]}, "0.9");
    dialog_record::type({dialog::atom_position, field::atom_label}, "Xx");
    for (const int dialog : {dialog::atom_position, dialog::axes, dialog::magnetic_operators,
                             dialog::bond_rule, dialog::bond_look, dialog::about, 113})
        for (const int field : {1041, 1080, 1082, 1085, 1090, 1130, 1149, 1156, 1163}) {
            get_fields(dialog, field);
            get_values(dialog);
        }
    EXPECT_EQ(atom(2).xf, (Vector3f{0.5f, 0, 0}));
    EXPECT_EQ(atom(2).label.trimmed(), "O2");
    EXPECT_EQ(atom(3).label.trimmed(), "???");
}

TEST_F(GetFields, ADialogIsHiddenByItself) {
    tesserakit::wdialogselect(dialog::lamp);
    tesserakit::wdialogshow();
    hide_dialog(dialog::lamp);
    EXPECT_FALSE(dialog_record::is_shown(dialog::lamp));
    EXPECT_TRUE(dialog_record::is_shown(dialog::main));
}

}  // namespace
