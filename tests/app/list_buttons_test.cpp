#include "tests/app/loaded_dialogs.hpp"

#include <gmock/gmock.h>

using namespace gemwright;
using dialog_record::options;
using dialog_record::value;
using testing::ElementsAre;

namespace {

using ListButtons = LoadedDialogs;

wcfgl_atom_tree::AtomInfo atom(int index) { return wcfgl_atom_tree::get_atom_info(index); }

void select_atom(int entry) {
    dialog_record::set({dialog::atoms, field::atom_list}, entry);
    set_atom_field();
}

void select_bond(int entry) {
    dialog_record::set({dialog::bonds, field::bond_list}, entry);
    set_bond_field();
}

TEST_F(ListButtons, InsertAtTheLastEntryAddsTheAtomOfTheFields) {
    two_atoms();
    select_atom(3);
    dialog_record::type({dialog::atom_position, field::atom_label}, "Mn3");
    dialog_record::type({dialog::atom_position, field::atom_symbol}, "Mn");
    type(dialog::atom_position, field::atom_coordinates, {".25", "0.5", "0.75"});
    dialog_record::type({dialog::atom_look, field::atom_radius}, "1.5");
    dialog_record::set({dialog::atom_look, field::atom_shown}, 0);
    insert_atom();
    EXPECT_THAT(options({dialog::atoms, field::atom_list}),
                ElementsAre("Fe1 FE", "O2 O", "Mn3 Mn", "-New atom-"));
    EXPECT_EQ(value({dialog::atoms, field::atom_list}), 3);
    EXPECT_EQ(atom(3).xf, (Vector3f{0.25f, 0.5f, 0.75f}));
    EXPECT_EQ(atom(3).radius, 1.5f);
    EXPECT_EQ(atom(3).nodisplay, 1);
    EXPECT_EQ(atom(3).default_colour, 1);
}

// The tick isn't looked at for an atom that is there.
TEST_F(ListButtons, InsertAtAnAtomChangesItAndSelectsTheLastOne) {
    two_atoms();
    select_atom(1);
    dialog_record::type({dialog::atom_position, field::atom_label}, "Ni");
    dialog_record::type({dialog::atom_position, field::atom_symbol}, "Ni");
    type(dialog::atom_position, field::atom_coordinates, {".25", "0.5", "0.75"});
    dialog_record::type({dialog::atom_look, field::atom_radius}, "1.5");
    dialog_record::set({dialog::atom_look, field::atom_shown}, 1);
    insert_atom();
    EXPECT_EQ(atom(1).label.trimmed(), "Ni");
    EXPECT_EQ(atom(1).symbol.trimmed(), "Ni");
    EXPECT_EQ(atom(1).xf, (Vector3f{0.25f, 0.5f, 0.75f}));
    EXPECT_EQ(atom(1).radius, 1.5f);
    EXPECT_EQ(atom(1).nodisplay, 1);
    EXPECT_EQ(atom(1).default_colour, 0);
    EXPECT_EQ(value({dialog::atoms, field::atom_list}), 2);
    select_atom(1);
    dialog_record::set({dialog::atom_look, field::atom_default_colour}, 1);
    insert_atom();
    EXPECT_EQ(atom(1).default_colour, 1);
}

// What stands in a field unchanged is the number itself, not its four decimals.
TEST_F(ListButtons, InsertKeepsTheDigitsThatAFieldDoesNotShow) {
    wcfgl_atom_tree::push_atom({.label = "A",
                                .symbol = "C ",
                                .xf = {0.123456f, 0.000012f, 0.98765f},
                                .radius = 0.123456f});
    const Vector3f exact = atom(1).xf;
    set_atom_label_list();
    insert_atom();
    EXPECT_EQ(atom(1).xf, exact);
    EXPECT_EQ(atom(1).radius, 0.123456f);
}

TEST_F(ListButtons, ThirdsAndSixthsTypedForAPositionAreExactAndForNothingElse) {
    two_atoms();
    select_atom(1);
    type(dialog::atom_position, field::atom_coordinates, {"0.3333", "0.667", "-0.16667"});
    dialog_record::type({dialog::atom_look, field::atom_radius}, "0.3333");
    insert_atom();
    EXPECT_EQ(atom(1).xf, (Vector3f{1.0f / 3, 2.0f / 3, -1.0f / 6}));
    EXPECT_EQ(atom(1).radius, 0.3333f);
    select_atom(1);
    type(dialog::atom_position, field::atom_coordinates, {"0.3330", "0.33", "0.3334"});
    insert_atom();
    EXPECT_EQ(atom(1).xf, (Vector3f{0.333f, 0.33f, 0.3334f}));
    // Shows as 0.3333 and is none.
    wcfgl_atom_tree::modify_atom(1, {.xf = Vector3f{0.33326f, 0, 0}});
    select_atom(1);
    insert_atom();
    EXPECT_EQ(atom(1).xf, (Vector3f{0.33326f, 0, 0}));
    set_magnetic_kvectors();
    type(dialog::magnetic, field::k_components, {"0.3333", "0.3333", "0"});
    insert_k_vector();
    EXPECT_THAT(*wcfgl_matom_tree::current_k_list, ElementsAre(Vector3f{0.3333f, 0.3333f, 0}));
}

TEST_F(ListButtons, InsertKeepsWhatAFieldWithoutANumberLeavesOpenAndAddsNothingOfIt) {
    two_atoms();
    select_atom(1);
    type(dialog::atom_position, field::atom_coordinates, {"", "0.5", "-"});
    dialog_record::type({dialog::atom_look, field::atom_radius}, "");
    insert_atom();
    EXPECT_EQ(atom(1).xf, (Vector3f{0.125f, 0.5f, 0.375f}));
    EXPECT_EQ(atom(1).radius, 0.75f);
    for (const int missing : {0, 1, 2, 3}) {
        select_atom(3);
        if (missing == 3)
            dialog_record::type({dialog::atom_look, field::atom_radius}, "");
        else
            dialog_record::type(
                {dialog::atom_position, field::atom_coordinates[static_cast<std::size_t>(missing)]},
                "");
        insert_atom();
        EXPECT_EQ(options({dialog::atoms, field::atom_list}).size(), 3U) << missing;
        EXPECT_EQ(value({dialog::atoms, field::atom_list}), 3) << "what was typed stays";
    }

    set_bond_label_list();
    select_bond(1);
    type(dialog::bond_rule, field::bond_names, {"Fe1", "O2"});
    dialog_record::set({dialog::bond_rule, field::bond_by_label}, 1);
    const std::array<dialog_record::Place, 3> numbers{
        {{dialog::bond_rule, field::bond_distances[0]},
         {dialog::bond_rule, field::bond_distances[1]},
         {dialog::bond_look, field::bond_radius}}};
    for (const auto& number : numbers) {
        const std::string before = dialog_record::text(number);
        dialog_record::type(number, "");
        insert_bond();
        dialog_record::type(number, before);
    }
    EXPECT_THAT(options({dialog::bonds, field::bond_list}), ElementsAre("-New bond-"));

    set_magnetic_kvectors();
    type(dialog::magnetic, field::k_components, {"0.5", "", "0.25"});
    insert_k_vector();
    EXPECT_FALSE(wcfgl_matom_tree::current_k_list);
    type(dialog::magnetic, field::k_components, {"0.5", "0", "0.25"});
    insert_k_vector();
    dialog_record::set({dialog::magnetic, field::k_list}, 1);
    type(dialog::magnetic, field::k_components, {"", "1", "-"});
    insert_k_vector();
    EXPECT_THAT(*wcfgl_matom_tree::current_k_list, ElementsAre(Vector3f{0.5f, 1, 0.25f}));
}

TEST_F(ListButtons, DeleteTakesTheSelectedAtomAndNeverTheEntryOfANewOne) {
    two_atoms();
    select_atom(1);
    delete_atom();
    EXPECT_THAT(options({dialog::atoms, field::atom_list}), ElementsAre("O2 O", "-New atom-"));
    select_atom(2);
    delete_atom();
    EXPECT_THAT(options({dialog::atoms, field::atom_list}), ElementsAre("O2 O", "-New atom-"));
    select_atom(1);
    delete_atom();
    EXPECT_THAT(options({dialog::atoms, field::atom_list}), ElementsAre("-New atom-"));
    EXPECT_EQ(value({dialog::atoms, field::atom_list}), 0);
    delete_atom();
    EXPECT_THAT(options({dialog::atoms, field::atom_list}), ElementsAre("-New atom-"));
}

TEST_F(ListButtons, InsertAddsABondRuleByLabelOrBySymbolAndChangesNone) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    two_atoms();
    set_bond_label_list();
    select_bond(1);
    type(dialog::bond_rule, field::bond_names, {"Fe1", "O2"});
    type(dialog::bond_rule, field::bond_distances, {"0.5", "3.5"});
    dialog_record::set({dialog::bond_rule, field::bond_by_label}, 1);
    dialog_record::type({dialog::bond_look, field::bond_radius}, "0.75");
    dialog_record::set({dialog::bond_look, field::bond_shown}, 0);
    insert_bond();
    const auto by_label = wcfgl_bond_tree::get_bond_info(1);
    EXPECT_EQ(by_label.by_symbol, 0);
    EXPECT_EQ(by_label.label1.trimmed(), "Fe1");
    EXPECT_EQ(by_label.label2.trimmed(), "O2");
    EXPECT_EQ(by_label.min_distance, 0.5f);
    EXPECT_EQ(by_label.max_distance, 3.5f);
    EXPECT_EQ(by_label.radius, 0.75f);
    EXPECT_EQ(by_label.nodisplay, 1);
    EXPECT_EQ(by_label.custom_colour, 0);

    dialog_record::type({dialog::bond_look, field::bond_radius}, "9");
    insert_bond();
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(1).radius, 0.75f) << "a rule is never changed";

    select_bond(2);
    type(dialog::bond_rule, field::bond_names, {"FE", "O"});
    dialog_record::set({dialog::bond_rule, field::bond_by_symbol}, 1);
    dialog_record::set({dialog::bond_look, field::bond_shown}, 1);
    insert_bond();
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(2).by_symbol, 1);
    EXPECT_EQ(wcfgl_bond_tree::get_bond_info(2).nodisplay, 0);
    EXPECT_THAT(options({dialog::bonds, field::bond_list}),
                ElementsAre("Fe1--O2", "FE--O", "-New bond-"));
    select_bond(1);
    delete_bond();
    EXPECT_THAT(options({dialog::bonds, field::bond_list}), ElementsAre("FE--O", "-New bond-"));
    select_bond(2);
    delete_bond();
    EXPECT_THAT(options({dialog::bonds, field::bond_list}), ElementsAre("FE--O", "-New bond-"));
}

TEST_F(ListButtons, VectorsAreAppendedChangedAndErased) {
    set_magnetic_kvectors();
    type(dialog::magnetic, field::k_components, {"0.5", "0", "0.25"});
    insert_k_vector();
    ASSERT_TRUE(wcfgl_matom_tree::current_k_list);
    EXPECT_THAT(*wcfgl_matom_tree::current_k_list, ElementsAre(Vector3f{0.5f, 0, 0.25f}));
    delete_k_vector();
    EXPECT_EQ(wcfgl_matom_tree::current_k_list->size(), 1U) << "the entry of a new one";
    type(dialog::magnetic, field::k_components, {"0", "0", "0.125"});
    insert_k_vector();
    dialog_record::set({dialog::magnetic, field::k_list}, 1);
    type(dialog::magnetic, field::k_components, {"1", "1", "1"});
    insert_k_vector();
    EXPECT_THAT(*wcfgl_matom_tree::current_k_list,
                ElementsAre(Vector3f{1, 1, 1}, Vector3f{0, 0, 0.125f}));
    dialog_record::set({dialog::magnetic, field::k_list}, 1);
    delete_k_vector();
    EXPECT_THAT(*wcfgl_matom_tree::current_k_list, ElementsAre(Vector3f{0, 0, 0.125f}));
    EXPECT_EQ(value({dialog::magnetic, field::k_list}), 2);
}

}  // namespace
