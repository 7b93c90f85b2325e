#include "scene/wcfgl_poly_tree.hpp"

#include "scene/wcfgl_metrix.hpp"

#include <utility>

namespace wcfgl_poly_tree {
namespace {

struct State {
    NodeList<PolyNode> polys;
};
State& state = *new State;  // never destroyed: at exit the GL context is gone

}  // namespace

void push_poly(const FixedText<10>& label, int nodisplay) {
    std::vector<wcfgl_glpoly::Poly> polys;
    if (!wcfgl_glpoly::new_gl_polys(label, polys)) return;
    PolyNode& node =
        state.polys.push_back(state.polys.empty() ? "poly_list_head" : "current_node%next");
    node.nodisplay = nodisplay;
    node.label = label;
    node.poly = std::move(polys);
    node.dlist.generate();
    glNewList(node.dlist.name(), GL_COMPILE);
    construct_poly_dlist();
    glEndList();
}

void pop_poly(int index) { state.polys.remove(index); }

void empty_poly_list() { state.polys.clear(); }

void construct_poly_dlist() {
    if (!wcfgl_metrix::current_box) wcfgl_metrix::init_box();
    const PolyNode* const node = state.polys.tail();
    if (!node) return;
    for (const wcfgl_glpoly::Poly& poly : node->poly)
        for (std::size_t figure = 0; figure < poly.figures(); ++figure)
            find_edges(poly.vertices(figure));
}

void find_edges(std::span<const Vector3f> vertices) {
    for (std::size_t i = 0; i < vertices.size(); ++i)
        for (std::size_t j = 1; j < vertices.size(); ++j) {
            if (i == j) continue;
            const Vector3f from = wcfgl_metrix::f2c_r(vertices[i]);
            const Vector3f to = wcfgl_metrix::f2c_r(vertices[j]);
            glBegin(GL_LINES);
            glVertex3fv(from.data());
            glVertex3fv(to.data());
            glEnd();
        }
}

void create_main_poly_dlist() { state.polys.renew_main_list(); }

void draw_polys() { state.polys.call_main_list(); }

}  // namespace wcfgl_poly_tree
