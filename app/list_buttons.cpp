#include "app/dialog_binding.hpp"
#include "app/field_values.hpp"
#include "app/identifiers.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace gemwright {
namespace {

using namespace tesserakit;

Selected selected(int dialog, int list) {
    const DialogSelection selection(dialog);
    return selected_in(list);
}

/// The numbers are absent where a field holds none.
struct TypedAtom {
    FixedText<10> label;
    FixedText<2> symbol;
    std::array<std::optional<float>, 3> xf;
    std::optional<float> radius;
    bool shown = true;
    bool default_colour = false;
};

TypedAtom typed_atom() {
    TypedAtom atom;
    {
        const DialogSelection selection(dialog::atom_position);
        atom.label = std::string_view(text_in(field::atom_label));
        atom.symbol = std::string_view(text_in(field::atom_symbol));
        std::transform(field::atom_coordinates.begin(), field::atom_coordinates.end(),
                       atom.xf.begin(), position_in);
    }
    const DialogSelection selection(dialog::atom_look);
    atom.radius = real_in(field::atom_radius);
    atom.shown = ticked(field::atom_shown);
    atom.default_colour = ordinal_in(field::atom_default_colour) == 1;
    return atom;
}

void add_atom(const TypedAtom& atom) {
    const auto& [x, y, z] = atom.xf;
    if (!x || !y || !z || !atom.radius) return;
    wcfgl_atom_tree::push_atom({.label = atom.label,
                                .symbol = atom.symbol,
                                .xf = {*x, *y, *z},
                                .radius = *atom.radius,
                                .nodisplay = atom.shown ? 0 : 1});
    set_atom_label_list();
}

void change_atom(int index, const TypedAtom& atom) {
    Vector3f xf = wcfgl_atom_tree::get_atom_info(index).xf;
    for (std::size_t i = 0; i < 3; ++i) xf[i] = atom.xf[i].value_or(xf[i]);
    wcfgl_atom_tree::modify_atom(index, {.label = atom.label,
                                         .symbol = atom.symbol,
                                         .xf = xf,
                                         .radius = atom.radius,
                                         .use_default_colour = atom.default_colour});
    set_atom_label_list();
}

}  // namespace

/// A new atom whose numbers aren't all there isn't added, and what was typed of it stays.
void insert_atom() {
    const Selected entry = selected(dialog::atoms, field::atom_list);
    const TypedAtom atom = typed_atom();
    if (entry.text == "-New atom-")
        add_atom(atom);
    else
        change_atom(entry.index, atom);
}

void delete_atom() {
    const Selected entry = selected(dialog::atoms, field::atom_list);
    if (entry.index != 0) wcfgl_atom_tree::pop_atom(entry.index);
    set_atom_label_list();
}

/// Only a new rule: a rule is changed by deleting it and inserting another. One whose numbers
/// aren't all there isn't added.
void insert_bond() {
    if (selected(dialog::bonds, field::bond_list).text != "-New bond-") return;
    const DialogSelection selection(dialog::bond_look);
    const std::optional<float> radius = real_in(field::bond_radius);
    const int nodisplay = ticked(field::bond_shown) ? 0 : 1;
    wdialogselect(dialog::bond_rule);
    const std::string name1 = text_in(field::bond_names[0]), name2 = text_in(field::bond_names[1]);
    const std::optional<float> least = real_in(field::bond_distances[0]);
    const std::optional<float> greatest = real_in(field::bond_distances[1]);
    if (!radius || !least || !greatest) return;
    if (ordinal_in(field::bond_by_symbol) == 1)
        wcfgl_bond_tree::push_bond_by_symbol(std::string_view(name1), std::string_view(name2),
                                             *least, *greatest, *radius, nodisplay);
    else
        wcfgl_bond_tree::push_bond_by_label(std::string_view(name1), std::string_view(name2),
                                            *least, *greatest, *radius, nodisplay);
    set_bond_label_list();
}

void delete_bond() {
    const Selected entry = selected(dialog::bonds, field::bond_list);
    if (entry.index != 0) wcfgl_bond_tree::pop_bond(entry.index);
    set_bond_label_list();
}

void insert_k_vector() {
    const Selected entry = selected(dialog::magnetic, field::k_list);
    const DialogSelection selection(dialog::magnetic);
    if (entry.text == "-New k vector-") {
        const std::optional<Vector3f> k = vector_in(field::k_components);
        if (!k) return;
        wcfgl_matom_tree::append_k_vector(*k);
    } else if (entry.index > 0) {
        const auto index = static_cast<std::size_t>(entry.index - 1);
        const auto& kept = wcfgl_matom_tree::current_k_list;
        if (!kept || index >= kept->size()) return;
        wcfgl_matom_tree::modify_k_vector(entry.index,
                                          {reals_in(field::k_components, (*kept)[index].c)});
    }
    set_magnetic_kvectors();
}

void delete_k_vector() {
    const Selected entry = selected(dialog::magnetic, field::k_list);
    if (entry.index <= 0 || entry.text == "-New k vector-") return;
    wcfgl_matom_tree::erase_k_vector(entry.index);
    set_magnetic_kvectors();
}

}  // namespace gemwright
