#include "scene/wcfgl_atom_tree.hpp"

#include "common/fatal.hpp"
#include "common/list_write.hpp"
#include "common/number_field.hpp"
#include "crystal/position_text.hpp"
#include "scene/box_cells.hpp"
#include "scene/shown_box.hpp"
#include "scene/wcfgl_atomic_table.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace wcfgl_atom_tree {
namespace {

struct State {
    NodeList<AtomNode> atoms;

    State() { shown_box::add_counter(objects_in); }
};
State& state = *new State;  // never destroyed: at exit the OpenGL context is gone

constexpr std::string_view new_atom_entry = "-New atom-   ";

bool is_hydrogen(const AtomNode& node) {
    return node.atom.symbol == FixedText<2>("H") || node.atom.symbol == FixedText<2>("D");
}

void draw_sphere(const Vector3f& x, float radius) {
    const Vector3f centre = wcfgl_metrix::f2c_r(x);
    glPushMatrix();
    glTranslatef(centre[0], centre[1], centre[2]);
    glScalef(radius, radius, radius);
    glCallList(wcfgl_objects_definition::atom_definition);
    glPopMatrix();
}

/// A position may be drawn one cell beyond those that the box begins and ends in: it is folded into
/// the first cell, so no other can bring it inside.
box_cells::Finder finder(const box_cells::Box& box) { return {box, 1, 1}; }

void draw_copies(const Atom& atom) {
    const box_cells::Finder find = finder(shown_box::box());
    box_cells::Copies copies;
    for (std::size_t n = 0; n < atom.xf_eq.size(); ++n) copies.add(n, find.cells_of(atom.xf_eq[n]));
    copies.for_each([&](std::size_t n, const Vector3i& cell) {
        if (shown_box::take_room()) draw_sphere(box_cells::moved(atom.xf_eq[n], cell), atom.radius);
    });
}

/// Positions are those of the group that the list was last brought up to date with: a group that
/// comes and goes between two frames costs nothing.
void follow_group(AtomNode& node) {
    if (node.group_number == wcfgl_metrix::spacegroup_number) return;
    wcfgl_glatom::calculate_eq_positions(node.atom, *wcfgl_metrix::current_space_group);
    node.group_number = wcfgl_metrix::spacegroup_number;
}

template <class Predicate>
bool search(std::vector<Atom>& atomlist, Predicate matches) {
    if (state.atoms.empty()) return false;
    atomlist.clear();
    fatal::allocate("atomlist", [&] {
        for (const AtomNode& node : state.atoms)
            if (matches(node.atom)) atomlist.push_back(node.atom);
    });
    return !atomlist.empty();
}

/// What the reader makes of the position when so many decimals are written.
Vector3f as_read(const Vector3f& xf, int decimals) {
    Vector3f read;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string text = number_field::fixed(static_cast<double>(xf[i]), 0, decimals);
        read[i] = position_text::component(text, number_field::to_float(text).value_or(xf[i]));
    }
    return read;
}

/// Four, or six where four would move the atom off its special position: 0.12345 0.2469 rounds to
/// a place beside its mirror plane, and one atom of the cell would come back as two.
int decimals_of_position(const Atom& atom) {
    constexpr float folding = 2e-6f;  // what folding into the cell costs
    const Vector3f rounded = as_read(atom.xf, 4);
    const Vector3f moved = rounded - atom.xf;
    if (std::ranges::all_of(moved, [](float d) { return std::abs(d) < folding; })) return 4;
    // The record's own count may still be that of the group before.
    auto multiplicity = [copy = atom](const Vector3f& xf) mutable {
        copy.xf = xf;
        wcfgl_glatom::calculate_eq_positions(copy, *wcfgl_metrix::current_space_group);
        return copy.multiplicity;
    };
    return multiplicity(rounded) == multiplicity(atom.xf) ? 4 : 6;
}

void append_line(std::string& out, const AtomNode& node) {
    const Atom& atom = node.atom;
    out += "ATOM ";
    list_write::append_text(out, atom.label);
    list_write::append_text(out, atom.symbol);
    const int decimals = decimals_of_position(atom);
    list_write::append_fixed(out, atom.xf.c, decimals + 4, decimals);
    if (atom.default_colour == 0) {
        out += " COLOR";
        list_write::append_fixed(out, atom.colour, 6, 3);
    }
    out += " RADIUS";
    list_write::append_fixed(out, {&atom.radius, 1}, 6, 3);
    out += node.nodisplay != 0 ? " NODISPLAY" : "          ";
    out += '\n';
}

}  // namespace

void push_atom(const NewAtom& added) {
    const bool first = state.atoms.empty();
    AtomNode& node = state.atoms.push_back(first ? "atom_list_head" : "current_node%next");
    if (first && wcfgl_objects_definition::atom_definition == 0)
        wcfgl_objects_definition::init_atom();
    if (!wcfgl_metrix::current_space_group) wcfgl_metrix::init_spacegroup();
    if (!wcfgl_metrix::current_box) wcfgl_metrix::init_box();  // the first frame is framed by it
    const Colour colour =
        added.colour ? *added.colour : wcfgl_atomic_table::get_color_from_symbol(added.symbol);
    wcfgl_glatom::new_gl_atom(added.label, added.symbol, added.xf, added.reserved_value,
                              added.radius, colour, *wcfgl_metrix::current_space_group, node.atom);
    node.atom.default_colour = added.colour ? 0 : 1;
    node.group_number = wcfgl_metrix::spacegroup_number;
    node.nodisplay = added.nodisplay;
    node.dlist.generate();
}

void pop_atom(int index) { state.atoms.remove(index); }

void empty_atom_list() { state.atoms.clear(); }

void modify_atom(int index, const AtomChange& change) {
    AtomNode* node = state.atoms.at(index);
    if (node == nullptr) return;
    Atom& atom = node->atom;
    if (change.label) atom.label = *change.label;
    if (change.symbol) atom.symbol = *change.symbol;
    if (change.nodisplay) {
        node->nodisplay = *change.nodisplay;
        create_main_atom_list();
    }
    if (!change.xf && !change.radius && !change.colour && !change.use_default_colour) return;
    state.atoms.make_stale(*node);
    if (change.radius) atom.radius = *change.radius;
    if (change.xf) {
        atom.xf = *change.xf;
        wcfgl_glatom::calculate_eq_positions(atom, *wcfgl_metrix::current_space_group);
        node->group_number = wcfgl_metrix::spacegroup_number;
    }
    if (change.colour) {
        atom.colour = *change.colour;
        atom.default_colour = 0;
    }
    if (change.use_default_colour) {
        atom.colour = wcfgl_atomic_table::get_color_from_symbol(atom.symbol);
        atom.default_colour = 1;
    }
}

bool search_atom_list_by_label(const FixedText<10>& label, std::vector<Atom>& atomlist) {
    return search(atomlist, [&](const Atom& atom) { return atom.label == label; });
}

bool search_atom_list_by_symbol(const FixedText<2>& symbol, std::vector<Atom>& atomlist) {
    return search(atomlist, [&](const Atom& atom) { return atom.symbol == symbol; });
}

void change_atoms_plotting_status(int nodisplay) { state.atoms.change_plotting_status(nodisplay); }

void change_hatoms_plotting_status(int nodisplay) {
    state.atoms.change_plotting_status(nodisplay, is_hydrogen);
}

void create_main_atom_list() { state.atoms.renew_main_list(); }

double objects_in(const wcfgl_metrix::Box& box, shown_box::Count count) {
    const box_cells::Finder find = finder(box);
    double spheres = 0.0;
    for (AtomNode& node : state.atoms) {
        follow_group(node);
        if (count == shown_box::Count::AtMost)
            spheres += static_cast<double>(node.atom.xf_eq.size()) * find.most_cells();
        else
            for (const Vector3f& x : node.atom.xf_eq) spheres += find.cells_of(x).count();
    }
    return spheres;
}

void construct_atom_dlist(AtomNode& node) {
    follow_group(node);
    glNewList(node.dlist.name(), GL_COMPILE);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, node.atom.colour.data());
    draw_copies(node.atom);
    glEndList();
}

void update_all_atoms() { state.atoms.compile_nodes(true, construct_atom_dlist); }

void draw_atoms() {
    using namespace wcfgl_metrix;
    const bool all = box_changed != 0 || cell_changed != 0 || spacegroup_changed != 0;
    state.atoms.compile_nodes(all, construct_atom_dlist);
    state.atoms.call_main_list();
}

std::vector<FixedText<13>> generate_atom_label_array() {
    return fatal::allocate("label_array", [] {
        std::vector<FixedText<13>> entries;
        for (const AtomNode& node : state.atoms) {
            const std::string entry = std::string(node.atom.label.trimmed()) + " " +
                                      std::string(node.atom.symbol.trimmed());
            entries.emplace_back(entry);
        }
        entries.emplace_back(new_atom_entry);
        return entries;
    });
}

AtomInfo get_atom_info(int index) {
    const AtomNode* node = state.atoms.at(index);
    if (node == nullptr) return {};
    const Atom& atom = node->atom;
    return {.label = atom.label,
            .symbol = atom.symbol,
            .xf = atom.xf,
            .reserved_value = atom.reserved_value,
            .radius = atom.radius,
            .nodisplay = node->nodisplay,
            .colour = atom.colour,
            .multiplicity = atom.multiplicity,
            .default_colour = atom.default_colour};
}

void write_atom_list(std::string& out) {
    for (const AtomNode& node : state.atoms) append_line(out, node);
}

}  // namespace wcfgl_atom_tree
