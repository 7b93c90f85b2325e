#include "scene/wcfgl_display.hpp"

#include "scene/shown_box.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "scene/wcfgl_poly_tree.hpp"
#include "scene/wcfgl_trackball.hpp"
#include "toolkit/gl_calls.hpp"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace wcfgl_display {

constinit float current_zoomfactor = 1.0f;
constinit std::array<int, 2> current_centroffset{0, 0};
constinit int current_screen_width = 0;
constinit int current_screen_height = 0;

constinit Colour background_colour{0.0f, 0.0f, 0.0f, 1.0f};
constinit std::array<float, 4> lamp_position{0.0f, 0.0f, 50.0f, 0.0f};
constinit Colour lamp_colour{0.9f, 0.9f, 0.9f, 1.0f};
constinit Colour specular_colour{1.0f, 1.0f, 1.0f, 1.0f};
constinit int shininess = 80;

namespace {

constexpr Colour ambient_colour{0.05f, 0.05f, 0.05f, 1.0f};
constexpr int axis_letters_font = 102;
constexpr float axis_letters_depth = 0.1f;

/// The axes set only their diffuse colour, and take the ambient one of what the frame before has
/// drawn last: in a new context they would come out in other colours.
constinit std::optional<Colour> ambient_of_last_frame;

void set_material() {
    glMaterialfv(GL_FRONT, GL_SPECULAR, specular_colour.data());
    glMateriali(GL_FRONT, GL_SHININESS, shininess);
}

/// A square on the longer side keeps the scale the same in both directions, and the picture may run
/// off the shorter one. It is centred in a wide drawable; in a tall one it stays flush left and
/// moves down, as it always has.
void set_viewport() {
    const int big = std::max(current_screen_width, current_screen_height);
    const int small = std::min(current_screen_width, current_screen_height);
    glViewport(current_centroffset[0], current_centroffset[1] + (small - big) / 2, big, big);
}

void set_projection() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    const double s = static_cast<double>(current_zoomfactor) * wcfgl_metrix::current_maxsize;
    // A box without size (0) is refused by OpenGL and leaves the identity; one beyond all numbers
    // is not refused, and would fill the matrix with NaNs.
    if (std::isfinite(s)) glOrtho(-s, s, -s, s, -2.0 * s, 2.0 * s);
}

/// To be called while the identity stands on the stack: the lamp stays with the viewer as the model
/// turns.
void set_lamp() {
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient_colour.data());
    glLightfv(GL_LIGHT0, GL_DIFFUSE, lamp_colour.data());
    glLightfv(GL_LIGHT0, GL_POSITION, lamp_position.data());
}

void translate(const Vector3f& v) { glTranslatef(v[0], v[1], v[2]); }

/// Brings the centre of the box to the origin and turns the model about it; leaves one more matrix
/// on the stack.
void push_view() {
    const Vector3f& centre = wcfgl_metrix::current_baricentre;
    translate(-centre);
    glPushMatrix();
    translate(centre);
    glMultMatrixf(wcfgl_trackball::current_rot_matrix.data());
    translate(-centre);
}

/// Slices of the shapes with which a software renderer draws so many objects within seconds and two
/// gigabytes: what it takes grows with the objects and the square of the slices. It is the full
/// quality up to 32,768 objects at quality 20, and up to 3,640 at quality 60.
int affordable_slices(std::size_t objects) {
    constexpr double most_squares = 50.0 * shown_box::most_objects;
    return static_cast<int>(
        std::sqrt(most_squares / static_cast<double>(std::max<std::size_t>(objects, 1))));
}

}  // namespace

void display_init() {
    wcfgl_trackball::init_rot_matrix();
    init_context();
}

void init_context(bool back_buffer) {
    if (back_buffer) {
        glReadBuffer(GL_BACK);
        glDrawBuffer(GL_BACK);
    }
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_DEPTH_TEST);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_LINE_SMOOTH);
    glEnable(GL_BLEND);
    glEnable(GL_NORMALIZE);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    tesserakit::wgltextfont(axis_letters_font, {}, axis_letters_depth);
    if (ambient_of_last_frame) glMaterialfv(GL_FRONT, GL_AMBIENT, ambient_of_last_frame->data());
}

void leave_context() {
    glGetMaterialfv(GL_FRONT, GL_AMBIENT, ambient_of_last_frame.emplace().data());
}

void display() {
    glClearColor(background_colour[0], background_colour[1], background_colour[2],
                 background_colour[3]);
    set_material();
    set_viewport();
    set_projection();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    set_lamp();
    push_view();
    wcfgl_objects_definition::limit_slices(affordable_slices(shown_box::objects()));
    wcfgl_metrix::draw_cell();
    wcfgl_metrix::draw_axes();
    wcfgl_atom_tree::draw_atoms();
    wcfgl_matom_tree::draw_matoms();
    wcfgl_bond_tree::draw_bonds();
    wcfgl_poly_tree::draw_polys();
    glPopMatrix();
    tesserakit::wglswapbuffers();
    // Not before: the lists rebuild themselves while drawing, as long as the flags stand.
    wcfgl_metrix::cell_changed = 0;
    wcfgl_metrix::box_changed = 0;
    wcfgl_metrix::spacegroup_changed = 0;
}

void calculate_offset(int old_x, int old_y, int new_x, int new_y) {
    current_centroffset[0] += new_x - old_x;
    current_centroffset[1] += old_y - new_y;
}

}  // namespace wcfgl_display
