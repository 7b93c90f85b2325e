// The wires of the cells and the axes.

#include "scene/box_cells.hpp"
#include "scene/shown_box.hpp"
#include "scene/wcfgl_metrix.hpp"

namespace wcfgl_metrix {

namespace {

/// The whole cells of a box. One that spans less than one in some direction has none.
box_cells::Cells whole_cells(const Box& box) { return box_cells::cells_of_box(box, 0, -1); }

bool wires_are_shown() {
    return current_cell && current_cell->nodisplay == 0 && current_cell->multiple != 0;
}

double wires_in(const Box& box, shown_box::Count) {
    return wires_are_shown() ? whole_cells(box).count() : 0.0;
}

struct State {
    bool wires_counted = false;  // in the last frame

    State() { shown_box::add_counter(wires_in); }
};
State& state = *new State;

/// Menus write the cell's flags as they like.
void tell_of_wires() {
    const bool shown = wires_are_shown();
    if (shown != state.wires_counted) shown_box::contents_changed();
    state.wires_counted = shown;
}

}  // namespace

void draw_cell() {
    tell_of_wires();
    if (!current_cell || current_cell->nodisplay != 0) return;
    glDisable(GL_LIGHTING);
    glLineWidth(current_cell->line_width);
    glColor4fv(current_cell->colour.data());
    if (current_cell->multiple != 0) {
        box_cells::for_each_cell(whole_cells(shown_box::box()), [](const Vector3i& cell) {
            const Vector3f corner = f2c_i(cell);
            glPushMatrix();
            glTranslatef(corner[0], corner[1], corner[2]);
            glCallList(current_cell->dlist);
            glPopMatrix();
        });
    } else {
        glCallList(current_cell->dlist);
    }
    glEnable(GL_LIGHTING);
}

void draw_axes() {
    if (!current_axes || current_axes->nodisplay != 0) return;
    const Vector3f origin = f2c_r(current_axes->origin);
    glPushMatrix();
    glTranslatef(origin[0], origin[1], origin[2]);
    glCallList(current_axes->dlist);
    glPopMatrix();
}

}  // namespace wcfgl_metrix
