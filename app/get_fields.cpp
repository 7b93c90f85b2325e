#include "app/dialog_binding.hpp"
#include "app/field_values.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "crystal/group_symbol.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace gemwright {
namespace {

using namespace tesserakit;

int selected_atom() {
    const DialogSelection selection(dialog::atoms);
    return selected_in(field::atom_list).index;
}

void get_mouse_mode() {
    const DialogSelection selection(dialog::main);
    mouse_mode = ordinal_in(field::mouse_mode);
}

/// Symbol or generators: the fields of the one not chosen are greyed.
void choose_way_of_group(std::span<const int> of_symbol, std::span<const int> of_generators) {
    const bool symbol = ordinal_in(field::by_symbol) == 1;
    put_states(of_symbol, symbol ? FieldEnabled : FieldDisabled);
    put_states(of_generators, symbol ? FieldDisabled : FieldEnabled);
}

/// Tried on a record of its own: the model's becomes P 1 in either case.
bool names_a_group(std::string_view symbol) {
    const auto trial = std::make_unique<crystallographic_symmetry::Space_Group_Type>();
    crystallographic_symmetry::set_spacegroup(group_symbol::table_text(symbol), *trial);
    return !crystallographic_symmetry::err_symm;
}

/// Atoms follow the group in the next frame, but this one's multiplicity is shown at once: a
/// position that is set is expanded by the group there is.
void recount_selected_atom() {
    const int atom = selected_atom();
    wcfgl_atom_tree::modify_atom(atom, {.xf = wcfgl_atom_tree::get_atom_info(atom).xf});
}

/// The grid of generators is a view in either case. A symbol that names no group makes the model
/// P 1, and the dialog says so instead of showing P 1 as if it had been typed.
void get_space_group() {
    const DialogSelection selection(dialog::space_group);
    choose_way_of_group(std::array{field::symbol}, std::array{field::generators_group});
    const std::string symbol = text_in(field::symbol);
    if (symbol.empty()) return;
    const bool known = names_a_group(symbol);
    wcfgl_metrix::define_spacegroup(symbol);
    if (known)
        set_spacegroup_fields();
    else
        set_failed_group_fields();
    recount_selected_atom();
    set_atom_field();
}

void follow_way_of_group() {
    const DialogSelection selection(dialog::space_group);
    choose_way_of_group(std::array{field::symbol_label, field::symbol},
                        std::array{field::generators_group, field::generators});
}

void get_box() { define_box(box_in_fields()); }

/// Without a cell before, the zeros that stand for missing numbers are refused.
void get_cell() {
    const DialogSelection selection(dialog::cell);
    const wcfgl_metrix::Cell kept = wcfgl_metrix::current_cell.value_or(wcfgl_metrix::Cell{});
    wcfgl_metrix::define_cell({reals_in(field::cell_lengths, kept.cell_length.c)},
                              {reals_in(field::cell_angles, kept.cell_angle.c)});
}

void get_lamp_position() {
    const DialogSelection selection(dialog::lamp);
    const auto& kept = wcfgl_display::lamp_position;
    const auto position = reals_in(field::lamp_position, std::array{kept[0], kept[1], kept[2]});
    std::copy(position.begin(), position.end(), wcfgl_display::lamp_position.begin());
}

void get_atom_radius() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_look);
    wcfgl_atom_tree::modify_atom(atom, {.radius = real_in(field::atom_radius)});
}

void get_atom_shown() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_look);
    wcfgl_atom_tree::modify_atom(atom, {.nodisplay = ticked(field::atom_shown) ? 0 : 1});
}

void get_atom_colour() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_look);
    Colour colour{};
    get_colour(field::atom_colour, colour);
    wcfgl_atom_tree::modify_atom(atom, {.colour = colour});
}

void set_state_of_atom_colour(int state) {
    const DialogSelection selection(dialog::atom_look);
    put_states(field::atom_colour_labels, state);
    put_states(field::atom_colour, state);
}

void take_default_colour() {
    wcfgl_atom_tree::modify_atom(selected_atom(), {.use_default_colour = true});
    set_state_of_atom_colour(FieldDisabled);
    set_atom_field();
}

void allow_own_colour() { set_state_of_atom_colour(FieldEnabled); }

void get_quality() {
    const DialogSelection selection(dialog::material);
    wcfgl_objects_definition::change_res_objects(slider_in(field::quality));
}

void get_shininess() {
    const DialogSelection selection(dialog::material);
    wcfgl_display::shininess = slider_in(field::shininess);
}

void get_specular() {
    const DialogSelection selection(dialog::material);
    get_colour(field::specular, wcfgl_display::specular_colour);
}

void get_lamp_colour() {
    const DialogSelection selection(dialog::lamp);
    get_colour(field::lamp_colour, wcfgl_display::lamp_colour);
}

void get_moment_head_length() {
    const DialogSelection selection(dialog::moment);
    wcfgl_objects_definition::change_moment_length(slider_in(field::moment_head_length));
}

void get_moment_head_width() {
    const DialogSelection selection(dialog::moment);
    wcfgl_objects_definition::change_moment_width(slider_in(field::moment_head_width));
}

void get_moment_thickness() {
    const DialogSelection selection(dialog::moment);
    wcfgl_objects_definition::change_moment_thickness(slider_in(field::moment_thickness));
}

constexpr int any = 0;

struct Row {
    int dialog;
    int field;
    void (*handler)();
};

/// The other dialogs act at once, or by their buttons.
constexpr Row on_ok[]{
    {dialog::main, any, get_mouse_mode},
    {dialog::space_group, any, get_space_group},
    {dialog::box, any, get_box},
    {dialog::cell, any, get_cell},
    {dialog::lamp, any, get_lamp_position},
};

/// Fields of dialogs that stand in no row are views: a change in them is dropped.
constexpr Row on_change[]{
    {dialog::main, any, get_mouse_mode},
    {dialog::space_group, any, follow_way_of_group},
    {dialog::box, any, get_box},
    {dialog::atoms, field::atom_list, set_atom_field},
    {dialog::magnetic, field::k_list, set_kvectors_field},
    {dialog::bonds, field::bond_list, set_bond_field},
    {dialog::atom_look, field::atom_radius, get_atom_radius},
    {dialog::atom_look, field::atom_shown, get_atom_shown},
    {dialog::atom_look, field::atom_colour[0], get_atom_colour},
    {dialog::atom_look, field::atom_colour[1], get_atom_colour},
    {dialog::atom_look, field::atom_colour[2], get_atom_colour},
    {dialog::atom_look, field::atom_colour[3], get_atom_colour},
    {dialog::atom_look, field::atom_default_colour, take_default_colour},
    {dialog::atom_look, field::atom_own_colour, allow_own_colour},
    {dialog::material, field::quality, get_quality},
    {dialog::material, field::shininess, get_shininess},
    {dialog::material, field::specular[0], get_specular},
    {dialog::material, field::specular[1], get_specular},
    {dialog::material, field::specular[2], get_specular},
    {dialog::lamp, field::lamp_position[0], get_lamp_position},
    {dialog::lamp, field::lamp_position[1], get_lamp_position},
    {dialog::lamp, field::lamp_position[2], get_lamp_position},
    {dialog::lamp, field::lamp_colour[0], get_lamp_colour},
    {dialog::lamp, field::lamp_colour[1], get_lamp_colour},
    {dialog::lamp, field::lamp_colour[2], get_lamp_colour},
    {dialog::moment, field::moment_head_length, get_moment_head_length},
    {dialog::moment, field::moment_head_width, get_moment_head_width},
    {dialog::moment, field::moment_thickness, get_moment_thickness},
};

void run(std::span<const Row> rows, int dialog, int field) {
    for (const Row& row : rows)
        if (row.dialog == dialog && (row.field == any || row.field == field)) return row.handler();
}

}  // namespace

wcfgl_metrix::Box box_in_fields() {
    const DialogSelection selection(dialog::box);
    constexpr wcfgl_metrix::Box one_cell{0, 1, 0, 1, 0, 1};
    return reals_in(field::box_limits, wcfgl_metrix::current_box.value_or(one_cell));
}

void define_box(const wcfgl_metrix::Box& box) {
    const auto& [xmin, xmax, ymin, ymax, zmin, zmax] = box;
    wcfgl_metrix::define_box(xmin, xmax, ymin, ymax, zmin, zmax);
}

void get_values(int dialog) { run(on_ok, dialog, any); }

void get_fields(int dialog, int field) { run(on_change, dialog, field); }

void hide_dialog(int dialog) {
    const DialogSelection selection(dialog);
    wdialoghide();
}

}  // namespace gemwright
