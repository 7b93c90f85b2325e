#include "scene/wcfgl_bond_tree.hpp"

#include "common/list_write.hpp"
#include "scene/box_cells.hpp"
#include "scene/shown_box.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"

#include <cmath>
#include <span>
#include <utility>

namespace wcfgl_bond_tree {
namespace {

using wcfgl_atom_tree::Atom;
using wcfgl_glbond::Bond;
using wcfgl_glbond::BondEnds;
using wcfgl_glbond::Bonds;

struct State {
    NodeList<BondNode> bonds;

    State() { shown_box::add_counter(objects_in); }
};
State& state = *new State;  // never destroyed: at exit the GL context is gone

/// What both kinds of rule have in common, as given.
struct Rule {
    FixedText<10> label1;
    FixedText<10> label2;
    float min_distance;
    float max_distance;
    float radius;
    int nodisplay;
    const std::optional<Colour>& colour;
};

void push(const Rule& rule, std::span<const Atom> list1, std::span<const Atom> list2,
          bool by_symbol) {
    if (list1.empty() || list2.empty()) return;
    Bonds found = fatal::allocate("bond_out", [&] {
        return wcfgl_glbond::new_gl_bonds(list1, list2, rule.min_distance, rule.max_distance,
                                          by_symbol, rule.colour);
    });
    const bool first = state.bonds.empty();
    BondNode& node = state.bonds.push_back(first ? "bond_list_head" : "current_node%next");
    if (first && wcfgl_objects_definition::bond_definition == 0)
        wcfgl_objects_definition::init_bond();
    node.label1 = rule.label1;
    node.label2 = rule.label2;
    node.min_distance = rule.min_distance;
    node.max_distance = rule.max_distance;
    node.by_symbol = by_symbol ? 1 : 0;
    node.custom_colour = rule.colour ? 1 : 0;
    node.radius = rule.radius;
    node.nodisplay = rule.nodisplay;
    node.bond = std::move(found);
    node.dlist.generate();
}

/// One half of a stick: the unit rod from `from` along the bond.
void draw_half(const Vector3f& from, const Vector3f& along, float radius, const Colour& colour) {
    glPushMatrix();
    glTranslatef(from[0], from[1], from[2]);
    glRotatef(along[1], 0.0f, 0.0f, 1.0f);
    glRotatef(-along[2], 0.0f, 1.0f, 0.0f);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, colour.data());
    glScalef(0.5f * along[0], radius, radius);
    glCallList(wcfgl_objects_definition::bond_definition);
    glPopMatrix();
}

Vector3f first_end(const BondEnds& ends) { return {ends[0], ends[1], ends[2]}; }
Vector3f second_end(const BondEnds& ends) { return {ends[3], ends[4], ends[5]}; }

/// The cells in which both ends of a bond lie in the box. They are sought from those that the first
/// end can be in the box in; one cell less at the upper end than atoms have.
box_cells::Finder finder(const box_cells::Box& box) { return {box, 1, 0}; }
box_cells::Cells cells_of(const BondEnds& ends, const box_cells::Finder& find) {
    return box_cells::common(find.cells_of(first_end(ends)), find.cells_of(second_end(ends)));
}

/// The stick of one bond in the cell at `t`.
void draw_stick(const BondNode& node, const Bond& bond, const BondEnds& ends, const Vector3i& t) {
    const Vector3f end1 = box_cells::moved(first_end(ends), t);
    const Vector3f end2 = box_cells::moved(second_end(ends), t);
    if (!(wcfgl_geometry::vect_norm_3d(end2 - end1) > 0.0f)) return;
    const Vector3f p1 = wcfgl_metrix::f2c_r(end1);
    const Vector3f p2 = wcfgl_metrix::f2c_r(end2);
    const Vector3f along = wcfgl_geometry::cart2spher(p2 - p1);
    draw_half(p1, along, node.radius, bond.colour1);
    draw_half(0.5f * (p1 + p2), along, node.radius, bond.colour2);
}

}  // namespace

void push_bond_by_label(const FixedText<10>& label1, const FixedText<10>& label2,
                        float min_distance, float max_distance, float radius, int nodisplay,
                        const std::optional<Colour>& colour) {
    std::vector<Atom> list1, list2;
    wcfgl_atom_tree::search_atom_list_by_label(label1, list1);
    wcfgl_atom_tree::search_atom_list_by_label(label2, list2);
    push({label1, label2, min_distance, max_distance, radius, nodisplay, colour}, list1, list2,
         false);
}

void push_bond_by_symbol(const FixedText<2>& symbol1, const FixedText<2>& symbol2,
                         float min_distance, float max_distance, float radius, int nodisplay,
                         const std::optional<Colour>& colour) {
    std::vector<Atom> list1, list2;
    wcfgl_atom_tree::search_atom_list_by_symbol(symbol1, list1);
    wcfgl_atom_tree::search_atom_list_by_symbol(symbol2, list2);
    push({symbol1.field(), symbol2.field(), min_distance, max_distance, radius, nodisplay, colour},
         list1, list2, true);
}

void pop_bond(int index) { state.bonds.remove(index); }

void empty_bond_list() { state.bonds.clear(); }

double objects_in(const wcfgl_metrix::Box& box, shown_box::Count count) {
    const box_cells::Finder find = finder(box);
    double sticks = 0.0;
    for (const BondNode& node : state.bonds)
        if (count == shown_box::Count::AtMost)
            sticks += static_cast<double>(node.bond.columns().size()) * find.most_cells();
        else
            for (const BondEnds& ends : node.bond.columns()) sticks += cells_of(ends, find).count();
    return sticks;
}

void construct_bond_dlist(BondNode& node) {
    glNewList(node.dlist.name(), GL_COMPILE);
    const box_cells::Finder find = finder(shown_box::box());
    box_cells::Copies copies;
    for (std::size_t n = 0; n < node.bond.filled(); ++n) {
        const Bond bond = node.bond.filled(n);
        copies.clear();
        for (std::size_t column = 0; column < bond.xf.size(); ++column)
            copies.add(column, cells_of(bond.xf[column], find));
        copies.for_each([&](std::size_t column, const Vector3i& t) {
            if (shown_box::take_room()) draw_stick(node, bond, bond.xf[column], t);
        });
    }
    glEndList();
}

void update_all_bonds() {
    state.bonds.compile_nodes(wcfgl_metrix::box_changed != 0, construct_bond_dlist);
}

void draw_bonds() {
    update_all_bonds();
    state.bonds.call_main_list();
}

void create_main_bond_dlist() { state.bonds.renew_main_list(); }

void change_bonds_plotting_status(int nodisplay) { state.bonds.change_plotting_status(nodisplay); }

std::vector<FixedText<22>> generate_bond_label_array() {
    std::vector<FixedText<22>> labels;
    for (const BondNode& node : state.bonds)
        labels.emplace_back(std::string(node.label1.trimmed()) + "--" +
                            std::string(node.label2.trimmed()));
    labels.emplace_back("-New bond-");
    return labels;
}

BondInfo get_bond_info(int index) {
    const BondNode* node = state.bonds.at(index);
    if (!node) return {};
    return {.label1 = node->label1,
            .label2 = node->label2,
            .min_distance = node->min_distance,
            .max_distance = node->max_distance,
            .radius = node->radius,
            .by_symbol = node->by_symbol,
            .custom_colour = node->custom_colour,
            .nodisplay = node->nodisplay,
            .colour = node->bond[0].colour1};
}

bool search_bond_list_by_label(const FixedText<10>& label, std::vector<Bond>& list) {
    if (state.bonds.empty()) return false;
    list.clear();
    bool found = false;
    for (const BondNode& node : state.bonds) {
        if (!(node.label1 == label)) continue;
        found = true;
        for (std::size_t n = 0; n < node.bond.size(); ++n) list.push_back(node.bond[n]);
    }
    return found;
}

/// The two forms differ by one in the widths of distances and radius: files hold both.
void write_bond_list(std::string& out) {
    for (const BondNode& node : state.bonds) {
        const int width = node.custom_colour ? 7 : 6;
        out += node.by_symbol ? "CONN " : "BOND ";
        list_write::append_text(out, node.label1);
        list_write::append_text(out, node.label2);
        list_write::append_fixed(out, std::array{node.min_distance, node.max_distance}, width, 3);
        out += " RADIUS";
        list_write::append_fixed(out, {&node.radius, 1}, width, 3);
        if (node.custom_colour) {
            out += " COLOR";
            list_write::append_fixed(out, node.bond[0].colour1, 6, 3);
        }
        out += node.nodisplay ? " NODISPLAY\n" : "          \n";
    }
}

}  // namespace wcfgl_bond_tree
