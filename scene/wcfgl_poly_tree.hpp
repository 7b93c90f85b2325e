/// The list of coordination polyhedra, drawn as the lines between their vertices.
///
/// A polyhedron is a snapshot of atoms and bonds: its list is compiled at the push, in the first
/// cell only, and nothing rebuilds it. Nothing in the program pushes one yet.
#pragma once

#include "common/fixed_text.hpp"
#include "scene/display_list.hpp"
#include "scene/node_list.hpp"
#include "scene/wcfgl_glpoly.hpp"

#include <memory>
#include <span>
#include <vector>

namespace wcfgl_poly_tree {

struct PolyNode {
    FixedText<10> label;  ///< of the central atom
    std::vector<wcfgl_glpoly::Poly> poly;
    int nodisplay = 0;
    DisplayList dlist;
    std::unique_ptr<PolyNode> next;
};

/// Appends the polyhedra about the atoms with that label; nothing where there are no such atoms or
/// no bonds that start at them. A current context is needed.
void push_poly(const FixedText<10>& label, int nodisplay);

/// Removes the node at the 1-based position `index`; outside the list nothing happens.
void pop_poly(int index);
void empty_poly_list();

/// Emits the lines of the node that was pushed last into the list that is being compiled, in
/// whatever material is current.
void construct_poly_dlist();
/// A line from every vertex to every other but the first, so that most are drawn twice.
void find_edges(std::span<const Vector3f> vertices);

/// The calls of the visible nodes' lists are compiled anew when they are next drawn.
void create_main_poly_dlist();
/// Once a frame.
void draw_polys();

}  // namespace wcfgl_poly_tree
