#include "scene/wcfgl_objects_definition.hpp"

#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <limits>

namespace wcfgl_objects_definition {
namespace {

constexpr Resolution finest_at_start{
    .moment_slices = 20, .moment_stacks = 1, .bond_slices = 20, .bond_stacks = 1, .atom = 20};

}  // namespace

constinit GLuint atom_definition = 0;
constinit GLuint moment_definition = 0;
constinit GLuint bond_definition = 0;
constinit GLuint axes_definition = 0;

constinit const Resolution low_resolution{
    .moment_slices = 6, .moment_stacks = 1, .bond_slices = 2, .bond_stacks = 1, .atom = 6};
constinit Resolution high_resolution = finest_at_start;
constinit Resolution present_resolution = finest_at_start;
constinit int highres = 1;

// 32-bit values of these decimals, so that a slider of hundredths meets them exactly.
constinit double moment_shaft_radius = static_cast<double>(0.07f);
constinit double moment_head_radius = static_cast<double>(0.27f);
constinit double moment_shaft_length = static_cast<double>(0.7f);
constinit double bond_radius = static_cast<double>(0.05f);
constinit double atom_radius = static_cast<double>(0.3f);

namespace {

constexpr double tip_radius = 0.005;  ///< of the cones, which aren't quite closed
constexpr int axes_slices = 15;
constexpr int axes_stacks = 1;

constexpr int fewest_slices = 3;
constinit int most_slices = std::numeric_limits<int>::max();

int limited(int slices) { return std::min(slices, most_slices); }

std::array<int, 3> slices_built() {
    return {limited(present_resolution.atom), limited(present_resolution.moment_slices),
            limited(present_resolution.bond_slices)};
}

/// An arrow of length 1.
struct ArrowShape {
    double tail_radius;
    double shaft_radius;
    double shaft_length;
    double head_radius;
    double head_length;
    int slices;
    int stacks;
};

GLUquadric* new_quadric() {
    GLUquadric* quadric = gluNewQuadric();
    gluQuadricNormals(quadric, GLU_SMOOTH);
    gluQuadricDrawStyle(quadric, GLU_FILL);
    return quadric;
}

void start_list(GLuint& name) {
    if (name == 0) name = glGenLists(1);
    glNewList(name, GL_COMPILE);
}

void end_list(GLUquadric* quadric) {
    glEndList();
    gluDeleteQuadric(quadric);
}

void disk(GLUquadric* quadric, double radius, int slices, int stacks) {
    gluQuadricOrientation(quadric, GLU_INSIDE);
    gluDisk(quadric, 0.0, radius, slices, stacks);
}

void tube(GLUquadric* quadric, double base, double top, double length, int slices, int stacks) {
    gluQuadricOrientation(quadric, GLU_OUTSIDE);
    gluCylinder(quadric, base, top, length, slices, stacks);
}

/// Along x, centred on the origin; quadrics lie along z.
void arrow(GLUquadric* quadric, const ArrowShape& shape) {
    glPushMatrix();
    glTranslatef(-0.5f, 0.0f, 0.0f);
    glPushMatrix();
    glRotatef(90.0f, 0.0f, 1.0f, 0.0f);
    disk(quadric, shape.tail_radius, shape.slices, shape.stacks);
    tube(quadric, shape.shaft_radius, shape.shaft_radius, shape.shaft_length, shape.slices,
         shape.stacks);
    glTranslatef(0.0f, 0.0f, static_cast<float>(shape.shaft_length));
    disk(quadric, shape.head_radius, shape.slices, shape.stacks);
    tube(quadric, shape.head_radius, tip_radius, shape.head_length, shape.slices, shape.stacks);
    glPopMatrix();
    glPopMatrix();
}

void build_anew() {
    init_atom();
    init_moment();
    init_bond();
}

void switch_to(const Resolution& resolution) {
    present_resolution = resolution;
    build_anew();
}

/// A slider's hundredths, as a 32-bit value like the defaults above.
double hundredths(int value) { return static_cast<double>(0.01f * static_cast<float>(value)); }

}  // namespace

void init_atom() {
    GLUquadric* quadric = new_quadric();
    start_list(atom_definition);
    gluQuadricOrientation(quadric, GLU_OUTSIDE);
    const int slices = limited(present_resolution.atom);
    gluSphere(quadric, atom_radius, slices, slices);
    end_list(quadric);
}

void init_moment() {
    GLUquadric* quadric = new_quadric();
    start_list(moment_definition);
    arrow(quadric, {.tail_radius = moment_shaft_radius,
                    .shaft_radius = moment_shaft_radius,
                    .shaft_length = moment_shaft_length,
                    .head_radius = moment_head_radius,
                    .head_length = 1.0 - moment_shaft_length,
                    .slices = limited(present_resolution.moment_slices),
                    .stacks = present_resolution.moment_stacks});
    end_list(quadric);
}

void init_bond() {
    const int slices = limited(present_resolution.bond_slices);
    const int stacks = present_resolution.bond_stacks;
    GLUquadric* quadric = new_quadric();
    start_list(bond_definition);
    glPushMatrix();
    glRotatef(90.0f, 0.0f, 1.0f, 0.0f);
    disk(quadric, bond_radius, slices, stacks);
    tube(quadric, bond_radius, bond_radius, 1.0, slices, stacks);
    glTranslatef(0.0f, 0.0f, 1.0f);
    // This end faces into the rod as well, and is left so: it lies hidden in an atom or against the
    // other half of the bond.
    disk(quadric, bond_radius, slices, stacks);
    glPopMatrix();
    end_list(quadric);
}

void init_axes() {
    GLUquadric* quadric = new_quadric();
    start_list(axes_definition);
    // The tail's disk is narrower than the shaft and leaves a ring open; pictures have it so.
    arrow(quadric, {.tail_radius = 0.05,
                    .shaft_radius = 0.07,
                    .shaft_length = 0.7,
                    .head_radius = 0.27,
                    .head_length = 0.3,
                    .slices = axes_slices,
                    .stacks = axes_stacks});
    end_list(quadric);
}

void switch_lowres_objects() {
    highres = 0;
    switch_to(low_resolution);
}

void switch_highres_objects() {
    highres = 1;
    switch_to(high_resolution);
}

void limit_slices(int most) {
    const auto before = slices_built();
    most_slices = std::max(most, fewest_slices);
    if (slices_built() != before) build_anew();
}

void change_res_objects(int quality) {
    if (quality < 6 || quality > 60) return;
    high_resolution.moment_slices = quality;
    high_resolution.bond_slices = quality;
    high_resolution.atom = quality;
    switch_highres_objects();
}

void change_moment_length(int value) {
    if (value < 5 || value > 95) return;
    moment_shaft_length = hundredths(100 - value);
    init_moment();
}

void change_moment_width(int value) {
    if (value < 5 || hundredths(value) < moment_shaft_radius) return;
    moment_head_radius = hundredths(value);
    init_moment();
}

void change_moment_thickness(int value) {
    if (value < 5) return;
    moment_shaft_radius = hundredths(value);
    init_moment();
}

}  // namespace wcfgl_objects_definition
