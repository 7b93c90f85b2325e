#include "app/dialog_binding.hpp"
#include "app/identifiers.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "toolkit/tesserakit.hpp"

#include <string>

namespace gemwright {
namespace {

using namespace tesserakit;

struct Selected {
    int index = 0;  ///< from 1; 0 for none
    std::string text;
};

Selected selected(int dialog, int list) {
    const DialogSelection selection(dialog);
    Selected result;
    wdialoggetmenu1(list, result.index);
    wdialoggetmenu2(list, result.text);
    result.text.resize(trimmed_length(result.text));
    return result;
}

std::string text_of(int field) {
    std::string text;
    wdialoggetstring(field, text);
    return text;
}

float real_of(int field) {
    float value = 0;
    wdialoggetreal(field, value);
    return value;
}

Vector3f vector_of(const std::array<int, 3>& fields) {
    return {real_of(fields[0]), real_of(fields[1]), real_of(fields[2])};
}

bool ticked(int field) {
    int state = 0;
    wdialoggetcheckbox(field, state);
    return state != 0;
}

int ordinal_of(int radio) {
    int ordinal = 0;
    wdialoggetradiobutton(radio, ordinal);
    return ordinal;
}

struct TypedAtom {
    FixedText<10> label;
    FixedText<2> symbol;
    Vector3f xf{};
    float radius = 0;
    bool shown = true;
    bool default_colour = false;
};

TypedAtom typed_atom() {
    TypedAtom atom;
    {
        const DialogSelection selection(dialog::atom_position);
        atom.label = std::string_view(text_of(field::atom_label));
        atom.symbol = std::string_view(text_of(field::atom_symbol));
        atom.xf = vector_of(field::atom_coordinates);
    }
    const DialogSelection selection(dialog::atom_look);
    atom.radius = real_of(field::atom_radius);
    atom.shown = ticked(field::atom_shown);
    atom.default_colour = ordinal_of(field::atom_default_colour) == 1;
    return atom;
}

}  // namespace

void insert_atom() {
    const Selected entry = selected(dialog::atoms, field::atom_list);
    const TypedAtom atom = typed_atom();
    if (entry.text == "-New atom-")
        wcfgl_atom_tree::push_atom({.label = atom.label,
                                    .symbol = atom.symbol,
                                    .xf = atom.xf,
                                    .radius = atom.radius,
                                    .nodisplay = atom.shown ? 0 : 1});
    else
        wcfgl_atom_tree::modify_atom(entry.index, {.label = atom.label,
                                                   .symbol = atom.symbol,
                                                   .xf = atom.xf,
                                                   .radius = atom.radius,
                                                   .use_default_colour = atom.default_colour});
    set_atom_label_list();
}

void delete_atom() {
    const Selected entry = selected(dialog::atoms, field::atom_list);
    if (entry.index != 0) wcfgl_atom_tree::pop_atom(entry.index);
    set_atom_label_list();
}

/// Only a new rule: a rule is changed by deleting it and inserting another.
void insert_bond() {
    if (selected(dialog::bonds, field::bond_list).text != "-New bond-") return;
    wdialogselect(dialog::bond_look);
    const float radius = real_of(field::bond_radius);
    const int nodisplay = ticked(field::bond_shown) ? 0 : 1;
    wdialogselect(dialog::bond_rule);
    const std::string name1 = text_of(field::bond_names[0]), name2 = text_of(field::bond_names[1]);
    const float least = real_of(field::bond_distances[0]);
    const float greatest = real_of(field::bond_distances[1]);
    if (ordinal_of(field::bond_by_symbol) == 1)
        wcfgl_bond_tree::push_bond_by_symbol(std::string_view(name1), std::string_view(name2),
                                             least, greatest, radius, nodisplay);
    else
        wcfgl_bond_tree::push_bond_by_label(std::string_view(name1), std::string_view(name2), least,
                                            greatest, radius, nodisplay);
    set_bond_label_list();
}

void delete_bond() {
    const Selected entry = selected(dialog::bonds, field::bond_list);
    if (entry.index != 0) wcfgl_bond_tree::pop_bond(entry.index);
    set_bond_label_list();
}

void insert_k_vector() {
    const Selected entry = selected(dialog::magnetic, field::k_list);
    {
        const DialogSelection selection(dialog::magnetic);
        const Vector3f k = vector_of(field::k_components);
        if (entry.text == "-New k vector-")
            wcfgl_matom_tree::append_k_vector(k);
        else
            wcfgl_matom_tree::modify_k_vector(entry.index, k);
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
