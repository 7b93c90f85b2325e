#include "app/dialog_binding.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace gemwright {
namespace {

using namespace tesserakit;

int trackbar(int field) {
    int value = 0;
    wdialoggettrackbar(field, value);
    return value;
}

float part_of_trackbar(int field) { return static_cast<float>(trackbar(field)) * 0.01f; }

int ordinal_of(int radio) {
    int ordinal = 0;
    wdialoggetradiobutton(radio, ordinal);
    return ordinal;
}

template <std::size_t N>
std::array<float, N> reals(const std::array<int, N>& fields) {
    std::array<float, N> values{};
    for (std::size_t i = 0; i < N; ++i) wdialoggetreal(fields[i], values[i]);
    return values;
}

int selected_atom() {
    const DialogSelection selection(dialog::atoms);
    int index = 0;
    wdialoggetmenu1(field::atom_list, index);
    return index;
}

void get_mouse_mode() {
    const DialogSelection selection(dialog::main);
    mouse_mode = ordinal_of(field::mouse_mode);
}

/// Symbol or generators: the fields of the one not chosen are greyed.
void choose_way_of_group(std::span<const int> of_symbol, std::span<const int> of_generators) {
    const bool symbol = ordinal_of(field::by_symbol) == 1;
    for (const int f : of_symbol) wdialogfieldstate(f, symbol ? FieldEnabled : FieldDisabled);
    for (const int f : of_generators) wdialogfieldstate(f, symbol ? FieldDisabled : FieldEnabled);
}

/// The grid of generators is a view in either case.
void get_space_group() {
    const DialogSelection selection(dialog::space_group);
    choose_way_of_group(std::array{field::symbol}, std::array{field::generators_group});
    std::string symbol;
    wdialoggetstring(field::symbol, symbol);
    if (trimmed_length(symbol) == 0) return;
    wcfgl_metrix::define_spacegroup(symbol);
    set_spacegroup_fields();
    set_atom_field();
}

void follow_way_of_group() {
    const DialogSelection selection(dialog::space_group);
    choose_way_of_group(std::array{field::symbol_label, field::symbol},
                        std::array{field::generators_group, field::generators});
}

void get_cell() {
    const DialogSelection selection(dialog::cell);
    wcfgl_metrix::define_cell({reals(field::cell_lengths)}, {reals(field::cell_angles)});
}

void get_lamp_position() {
    const DialogSelection selection(dialog::lamp);
    const std::array<float, 3> position = reals(field::lamp_position);
    std::copy(position.begin(), position.end(), wcfgl_display::lamp_position.begin());
}

void get_atom_position() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_position);
    wcfgl_atom_tree::modify_atom(atom, {.xf = Vector3f{reals(field::atom_coordinates)}});
}

void get_atom_radius() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_look);
    wcfgl_atom_tree::AtomChange change;
    wdialoggetreal(field::atom_radius, change.radius.emplace());
    wcfgl_atom_tree::modify_atom(atom, change);
}

void get_atom_shown() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_look);
    int shown = 1;
    wdialoggetcheckbox(field::atom_shown, shown);
    wcfgl_atom_tree::modify_atom(atom, {.nodisplay = shown ? 0 : 1});
}

void get_atom_colour() {
    const int atom = selected_atom();
    const DialogSelection selection(dialog::atom_look);
    Colour colour{};
    std::transform(field::atom_colour.begin(), field::atom_colour.end(), colour.begin(),
                   part_of_trackbar);
    wcfgl_atom_tree::modify_atom(atom, {.colour = colour});
}

void set_state_of_atom_colour(int state) {
    const DialogSelection selection(dialog::atom_look);
    for (const int label : field::atom_colour_labels) wdialogfieldstate(label, state);
    for (const int bar : field::atom_colour) wdialogfieldstate(bar, state);
}

void take_default_colour() {
    wcfgl_atom_tree::modify_atom(selected_atom(), {.use_default_colour = true});
    set_state_of_atom_colour(FieldDisabled);
    set_atom_field();
}

void allow_own_colour() { set_state_of_atom_colour(FieldEnabled); }

void get_quality() {
    const DialogSelection selection(dialog::material);
    wcfgl_objects_definition::change_res_objects(trackbar(field::quality));
}

void get_shininess() {
    const DialogSelection selection(dialog::material);
    wcfgl_display::shininess = trackbar(field::shininess);
}

void get_specular() {
    const DialogSelection selection(dialog::material);
    std::transform(field::specular.begin(), field::specular.end(),
                   wcfgl_display::specular_colour.begin(), part_of_trackbar);
}

void get_lamp_colour() {
    const DialogSelection selection(dialog::lamp);
    std::transform(field::lamp_colour.begin(), field::lamp_colour.end(),
                   wcfgl_display::lamp_colour.begin(), part_of_trackbar);
}

void get_moment_head_length() {
    const DialogSelection selection(dialog::moment);
    wcfgl_objects_definition::change_moment_length(trackbar(field::moment_head_length));
}

void get_moment_head_width() {
    const DialogSelection selection(dialog::moment);
    wcfgl_objects_definition::change_moment_width(trackbar(field::moment_head_width));
}

void get_moment_thickness() {
    const DialogSelection selection(dialog::moment);
    wcfgl_objects_definition::change_moment_thickness(trackbar(field::moment_thickness));
}

constexpr int any = 0;

struct Row {
    int dialog;
    int field;
    void (*handler)();
};

// The loop hands on the OK button alone, so a position typed into its page waits for Insert.
constexpr Row on_ok[]{
    {dialog::main, any, get_mouse_mode},
    {dialog::space_group, any, get_space_group},
    {dialog::box, any, define_box_from_fields},
    {dialog::cell, any, get_cell},
    {dialog::lamp, any, get_lamp_position},
    {dialog::atom_position, field::atom_coordinates[0], get_atom_position},
    {dialog::atom_position, field::atom_coordinates[1], get_atom_position},
    {dialog::atom_position, field::atom_coordinates[2], get_atom_position},
};

/// Fields of dialogs that stand in no row are views: a change in them is dropped.
constexpr Row on_change[]{
    {dialog::main, any, get_mouse_mode},
    {dialog::space_group, any, follow_way_of_group},
    {dialog::box, any, define_box_from_fields},
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

void define_box_from_fields() {
    const DialogSelection selection(dialog::box);
    const auto [xmin, xmax, ymin, ymax, zmin, zmax] = reals(field::box_limits);
    wcfgl_metrix::define_box(xmin, xmax, ymin, ymax, zmin, zmax);
}

void get_values(int dialog, int button) { run(on_ok, dialog, button); }

void get_fields(int dialog, int field) { run(on_change, dialog, field); }

void hide_dialog(int dialog) {
    const DialogSelection selection(dialog);
    wdialoghide();
}

}  // namespace gemwright
