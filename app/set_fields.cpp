#include "app/dialog_binding.hpp"
#include "app/field_values.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "app/slider_scale.hpp"
#include "common/number_field.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "crystal/group_symbol.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "toolkit/tesserakit.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace gemwright {
namespace {

using namespace tesserakit;

constexpr int shown_operators_width = 3;

template <std::size_t N>
std::vector<std::string> options(const std::vector<FixedText<N>>& labels) {
    std::vector<std::string> texts;
    texts.reserve(labels.size());
    for (const FixedText<N>& label : labels) texts.emplace_back(label.trimmed());
    return texts;
}

/// Fills a list with its labels and the entry for a new one, and selects the last real one.
void put_labels(int list, const std::vector<std::string>& labels) {
    wdialogputmenu1(list, labels, static_cast<int>(labels.size()) - 1);
}

void put_failed_group() {
    wdialogputstring(field::symbol, "--Non valid--");
    for (const int info : {field::hermann_mauguin, field::hall, field::crystal_system})
        wdialogputstring(info, "-NA-");
    wgridrows(field::generators, 1);
    wgridputcellstring(field::generators, 1, 1, "X,Y,Z");
}

/// What a group by generators leaves open is blank, and never a name that could be read back.
template <std::size_t N>
std::string_view known(const FixedText<N>& name) {
    return name == "unknown" ? std::string_view() : name.trimmed();
}

void put_group(const crystallographic_symmetry::Space_Group_Type& group) {
    wgridrows(field::generators, group.multip);
    for (int n = 1; n <= group.multip; ++n) {
        wgridlabelrow(field::generators, n, number_field::integer(n, shown_operators_width));
        wgridputcellstring(field::generators, 1, n,
                           group.sym_op_text[static_cast<std::size_t>(n - 1)].trimmed());
    }
    wdialogfieldstate(field::generators, FieldDisabled);
    wdialogputradiobutton(field::by_symbol);
    wdialogputstring(field::symbol, group_symbol::shown(group));
    wdialogputstring(field::hermann_mauguin, known(group.spg_symb));
    wdialogputstring(field::hall, known(group.hall));
    wdialogputstring(field::crystal_system, known(group.crystal_sys));
}

void put_atom_position(const wcfgl_atom_tree::AtomInfo& atom) {
    wdialogselect(dialog::atom_position);
    wdialogputstring(field::atom_label, atom.label.trimmed());
    wdialogputstring(field::atom_symbol, atom.symbol.trimmed());
    put_reals(field::atom_coordinates, atom.xf.c);
    wdialogputinteger(field::atom_multiplicity, atom.multiplicity);
}

void put_atom_look(const wcfgl_atom_tree::AtomInfo& atom) {
    wdialogselect(dialog::atom_look);
    wdialogputcheckbox(field::atom_shown, atom.nodisplay == 0 ? 1 : 0);
    wdialogputreal(field::atom_radius, atom.radius);
    put_colour(field::atom_colour, atom.colour);
    wdialogputradiobutton(atom.default_colour ? field::atom_default_colour
                                              : field::atom_own_colour);
    const int state = atom.default_colour ? FieldDisabled : FieldEnabled;
    put_states(field::atom_colour_labels, state);
    put_states(field::atom_colour, state);
}

void put_bond_rule(const wcfgl_bond_tree::BondInfo& bond) {
    wdialogselect(dialog::bond_rule);
    wdialogputradiobutton(bond.by_symbol ? field::bond_by_symbol : field::bond_by_label);
    wdialogputstring(field::bond_names[0], bond.label1.trimmed());
    wdialogputstring(field::bond_names[1], bond.label2.trimmed());
    put_reals(field::bond_distances, std::array{bond.min_distance, bond.max_distance});
}

/// A bond with a colour of its own shows as taking it from the atoms, the other way round than an
/// atom does; users' habits have grown around it.
void put_bond_look(const wcfgl_bond_tree::BondInfo& bond) {
    wdialogselect(dialog::bond_look);
    wdialogputcheckbox(field::bond_shown, bond.nodisplay == 0 ? 1 : 0);
    wdialogputreal(field::bond_radius, bond.radius);
    put_colour(field::bond_colour, bond.colour);
    wdialogputradiobutton(bond.custom_colour ? field::bond_atoms_colour : field::bond_own_colour);
    const int state = bond.custom_colour ? FieldDisabled : FieldEnabled;
    put_states(field::bond_colour_labels, state);
    put_states(field::bond_colour, state);
}

/// "  1-   0.500  0.000  0.000"
std::string k_vector_text(std::size_t index, const Vector3f& k) {
    std::string text = number_field::integer(static_cast<long long>(index), 2) + "- ";
    for (const float component : k)
        text += number_field::fixed(static_cast<double>(component), 7, 3);
    return text;
}

}  // namespace

DialogSelection::DialogSelection(int dialog) { wdialogselect(dialog); }
DialogSelection::~DialogSelection() { wdialogselect(dialog::main); }

void load_all_dialogs() {
    for (const int id :
         {dialog::space_group, dialog::box, dialog::cell, dialog::about, dialog::axes,
          dialog::atoms, dialog::bonds, dialog::magnetic, dialog::magnetic_operators,
          dialog::material, dialog::lamp, dialog::splash, dialog::moment})
        wdialogload(id);
    wdialogselect(dialog::main);
}

void set_info_fields() {
    const DialogSelection selection(dialog::main);
    wdialogputstring(field::information, current_file_name.trimmed());
}

void set_failed_group_fields() {
    const DialogSelection selection(dialog::space_group);
    put_failed_group();
}

void set_spacegroup_fields() {
    const DialogSelection selection(dialog::space_group);
    const auto& group = wcfgl_metrix::current_space_group;
    if (!group)
        wgridrows(field::generators, 0);
    else if (group->multip == 0)
        put_failed_group();
    else
        put_group(*group);
}

void set_cell_fields() {
    const DialogSelection selection(dialog::cell);
    if (!wcfgl_metrix::current_cell) return;
    put_reals(field::cell_lengths, wcfgl_metrix::current_cell->cell_length.c);
    put_reals(field::cell_angles, wcfgl_metrix::current_cell->cell_angle.c);
}

void set_box_fields() {
    const DialogSelection selection(dialog::box);
    if (wcfgl_metrix::current_box) put_reals(field::box_limits, *wcfgl_metrix::current_box);
}

void set_atom_label_list() {
    const DialogSelection selection(dialog::atoms);
    put_labels(field::atom_list, options(wcfgl_atom_tree::generate_atom_label_array()));
    set_atom_field();
}

void set_atom_field() {
    const DialogSelection selection(dialog::atoms);
    const auto atom = wcfgl_atom_tree::get_atom_info(selected_in(field::atom_list).index);
    put_atom_position(atom);
    put_atom_look(atom);
}

void set_bond_label_list() {
    const DialogSelection selection(dialog::bonds);
    put_labels(field::bond_list, options(wcfgl_bond_tree::generate_bond_label_array()));
    set_bond_field();
}

void set_bond_field() {
    const DialogSelection selection(dialog::bonds);
    const auto bond = wcfgl_bond_tree::get_bond_info(selected_in(field::bond_list).index);
    put_bond_rule(bond);
    put_bond_look(bond);
}

void set_magnetic_fields() {
    set_magnetic_lattice();
    set_magnetic_kvectors();
}

void set_magnetic_lattice() {
    const DialogSelection selection(dialog::magnetic);
    if (!wcfgl_matom_tree::current_magnetic_lattice) return;
    constexpr std::string_view letters = "PABCIRF";
    const std::size_t option = letters.find(*wcfgl_matom_tree::current_magnetic_lattice);
    if (option != std::string_view::npos)
        wdialogputoption1(field::magnetic_lattice, static_cast<int>(option) + 1);
}

void set_magnetic_kvectors() {
    const DialogSelection selection(dialog::magnetic);
    std::vector<std::string> texts;
    if (wcfgl_matom_tree::current_k_list)
        for (const Vector3f& k : *wcfgl_matom_tree::current_k_list)
            texts.push_back(k_vector_text(texts.size() + 1, k));
    texts.emplace_back("-New k vector-");
    wdialogputmenu1(field::k_list, texts, static_cast<int>(texts.size()));
    set_kvectors_field();
}

void set_kvectors_field() {
    const DialogSelection selection(dialog::magnetic);
    const auto& list = wcfgl_matom_tree::current_k_list;
    const int index = selected_in(field::k_list).index;
    if (!list || index < 1 || static_cast<std::size_t>(index) > list->size()) return;
    put_reals(field::k_components, (*list)[static_cast<std::size_t>(index - 1)].c);
}

void set_material() {
    const DialogSelection selection(dialog::material);
    wdialogputtrackbar(field::quality, wcfgl_objects_definition::present_resolution.atom);
    wdialogputtrackbar(field::shininess, wcfgl_display::shininess);
    put_colour(field::specular, wcfgl_display::specular_colour);
}

void set_lamp() {
    const DialogSelection selection(dialog::lamp);
    put_reals(field::lamp_position, wcfgl_display::lamp_position);
    put_colour(field::lamp_colour, wcfgl_display::lamp_colour);
}

void set_moment() {
    const DialogSelection selection(dialog::moment);
    wdialogputtrackbar(field::moment_head_width,
                       to_hundredths(wcfgl_objects_definition::moment_head_radius));
    wdialogputtrackbar(field::moment_head_length,
                       to_hundredths(1.0 - wcfgl_objects_definition::moment_shaft_length));
    wdialogputtrackbar(field::moment_thickness,
                       to_hundredths(wcfgl_objects_definition::moment_shaft_radius));
}

void set_all_fields() {
    set_info_fields();
    set_spacegroup_fields();
    set_cell_fields();
    set_box_fields();
    set_atom_label_list();
    set_bond_label_list();
    set_magnetic_fields();
    set_material();
    set_lamp();
    set_moment();
}

}  // namespace gemwright
