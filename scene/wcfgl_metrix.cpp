#include "scene/wcfgl_metrix.hpp"

#include "crystal/group_symbol.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "toolkit/gl_calls.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace wcfgl_metrix {

constinit std::optional<Cell> current_cell;
constinit std::optional<Axes> current_axes;
constinit std::optional<Box> current_box;
constinit std::optional<crystallographic_symmetry::Space_Group_Type> current_space_group;
constinit Vector3f current_baricentre{};
constinit double current_maxsize = 0.0;
constinit int cell_changed = 0;
constinit int box_changed = 0;
constinit int spacegroup_changed = 0;
constinit unsigned spacegroup_number = 0;

namespace {

constexpr float radians_per_degree = 0.017453292f;
constexpr Box default_box{0.0f, 1.0f, 0.0f, 1.0f, 0.0f, 1.0f};

bool all_positive(const Vector3f& v) {
    return std::all_of(v.begin(), v.end(), [](float value) { return value > 0.0f; });
}

/// Volume and matrices from the lengths and angles.
void derive_metric(Cell& cell) {
    const auto [a, b, c] = cell.cell_length.c;
    const Vector3f angle = radians_per_degree * cell.cell_angle;
    const float cos_alpha = std::cos(angle[0]);
    const float cos_beta = std::cos(angle[1]);
    const float cos_gamma = std::cos(angle[2]);
    const float sin_gamma = std::sin(angle[2]);
    const float along_y = cos_alpha - cos_gamma * cos_beta;  // of a unit c, times sin gamma
    cell.volume = a * b * c *
                  std::sqrt(1.0f - cos_alpha * cos_alpha - cos_beta * cos_beta -
                            cos_gamma * cos_gamma + 2.0f * cos_alpha * cos_beta * cos_gamma);
    const float height = cell.volume / (a * b * sin_gamma);
    const float unit_height = cell.volume / (a * b * c * sin_gamma);
    cell.direct_matrix = {{{{a, b * cos_gamma, c * cos_beta},
                            {0, b * sin_gamma, c * along_y / sin_gamma},
                            {0, 0, height}}}};
    cell.unit_direct_matrix = {
        {{{1, cos_gamma, cos_beta}, {0, sin_gamma, along_y / sin_gamma}, {0, 0, unit_height}}}};
}

void compile_wire(const Cell& cell) {
    constexpr std::array<Vector3i, 8> corners{
        {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}}};
    constexpr std::array<std::pair<std::size_t, std::size_t>, 12> edges{{{0, 1},
                                                                         {0, 2},
                                                                         {0, 3},
                                                                         {1, 4},
                                                                         {1, 5},
                                                                         {2, 4},
                                                                         {2, 6},
                                                                         {3, 5},
                                                                         {3, 6},
                                                                         {4, 7},
                                                                         {5, 7},
                                                                         {6, 7}}};
    std::array<Vector3f, 8> points;
    std::transform(corners.begin(), corners.end(), points.begin(), f2c_i);
    glNewList(cell.dlist, GL_COMPILE);
    glBegin(GL_LINES);
    for (const auto& [from, to] : edges) {
        glVertex3fv(points[from].data());
        glVertex3fv(points[to].data());
    }
    glEnd();
    glEndList();
}

struct AxisStyle {
    Colour colour;
    std::string_view letter;
    bool letter_turned;  ///< the letter lies along its axis
};
constexpr std::array<AxisStyle, 3> axis_styles{
    {{{1, 0, 0, 1}, "a", false}, {{0, 1, 0, 1}, "b", true}, {{0, 0, 1, 1}, "c", true}}};

void turn_x_axis_to(float phi, float theta) {
    glRotatef(phi, 0.0f, 0.0f, 1.0f);
    glRotatef(-theta, 0.0f, 1.0f, 0.0f);
}

/// An arrow along the cell axis, and its letter. The letters of b and c stand on the Cartesian
/// axes, beside the tips in a cell that isn't orthogonal; pictures have it so.
void draw_axis(const Cell& cell, float axis_length, std::size_t axis) {
    const AxisStyle& style = axis_styles[axis];
    Vector3f straight{};
    straight[axis] = axis_length;
    const auto [r, phi, theta] = wcfgl_geometry::cart2spher(cell.unit_direct_matrix * straight).c;

    glPushMatrix();
    turn_x_axis_to(phi, theta);
    glScalef(r, 0.7f, 0.7f);
    glTranslatef(0.5f, 0.0f, 0.0f);
    glMaterialfv(GL_FRONT, GL_DIFFUSE, style.colour.data());
    glCallList(wcfgl_objects_definition::axes_definition);
    glPopMatrix();

    glPushMatrix();
    glTranslatef(straight[0], straight[1], straight[2]);
    glColor4fv(style.colour.data());
    if (style.letter_turned) turn_x_axis_to(phi, theta);
    glScalef(1.5f, 1.5f, 1.5f);
    tesserakit::wgltextstring(style.letter);
    glPopMatrix();
}

void compile_axes(const Cell& cell, const Axes& axes) {
    if (wcfgl_objects_definition::axes_definition == 0) wcfgl_objects_definition::init_axes();
    glNewList(axes.dlist, GL_COMPILE);
    for (std::size_t axis = 0; axis < 3; ++axis) draw_axis(cell, axes.length, axis);
    glEndList();
}

/// Centre and size of the box, for the framing of the view.
void derive_frame() {
    const Box& box = *current_box;
    const Vector3f length = current_cell ? current_cell->cell_length : Vector3f{1, 1, 1};
    Vector3f centre;
    float largest = std::numeric_limits<float>::lowest();
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const float minimum = box[2 * axis];
        const float maximum = box[2 * axis + 1];
        centre[axis] = (minimum + maximum) * 0.5f;
        largest = std::max(largest, (maximum - minimum) * length[axis]);
    }
    current_baricentre = f2c_r(centre);
    current_maxsize = static_cast<double>(largest);
}

void tell_of_group() {
    spacegroup_changed = 1;
    ++spacegroup_number;
}

}  // namespace

void define_cell(const Vector3f& cell_length, const Vector3f& cell_angle) {
    if (!current_box) init_box();
    if (!all_positive(cell_angle) || !all_positive(cell_length)) return;
    if (!current_cell) {
        current_cell.emplace().dlist = glGenLists(1);
        current_axes.emplace().dlist = glGenLists(1);
    }
    current_cell->cell_length = cell_length;
    current_cell->cell_angle = cell_angle;
    derive_metric(*current_cell);
    compile_wire(*current_cell);
    compile_axes(*current_cell, *current_axes);
    cell_changed = 1;
    derive_frame();
}

void define_box(float xmin, float xmax, float ymin, float ymax, float zmin, float zmax) {
    current_box = {xmin, xmax, ymin, ymax, zmin, zmax};
    box_changed = 1;
    derive_frame();
}

void init_box() {
    if (!current_box) current_box = default_box;
    derive_frame();
}

void init_spacegroup() {
    if (!current_space_group) current_space_group.emplace();
    crystallographic_symmetry::set_spacegroup("P 1", *current_space_group);
    tell_of_group();
}

void define_spacegroup(std::string_view symbol,
                       std::optional<std::span<const FixedText<80>>> generators) {
    if (!current_space_group) current_space_group.emplace();
    if (generators) {
        crystallographic_symmetry::set_spacegroup(
            symbol, *current_space_group,
            {.gen = generators, .ngen = static_cast<int>(generators->size()), .mode = "GEN"});
    } else {
        crystallographic_symmetry::set_spacegroup(group_symbol::table_text(symbol),
                                                  *current_space_group);
    }
    if (crystallographic_symmetry::err_symm) init_spacegroup();
    tell_of_group();
}

Vector3f f2c_r(const Vector3f& x) { return current_cell ? current_cell->direct_matrix * x : x; }

Vector3f f2c_i(const Vector3i& n) {
    return f2c_r({static_cast<float>(n[0]), static_cast<float>(n[1]), static_cast<float>(n[2])});
}

bool in_limit(const Vector3f& x) {
    if (!current_box) init_box();
    const Box& box = *current_box;
    return box[0] <= x[0] && x[0] <= box[1] && box[2] <= x[1] && x[1] <= box[3] && box[4] <= x[2] &&
           x[2] <= box[5];
}

std::array<Vector3f, 6> intersect_volume(const Vector3f& point, const Vector3f& direction) {
    if (!current_box) init_box();
    std::array<Vector3f, 6> columns{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (direction[axis] == 0.0f) continue;
        for (std::size_t column = 2 * axis; column < 2 * axis + 2; ++column) {
            columns[column] = point;
            columns[column][axis] = (*current_box)[column];
        }
    }
    return columns;
}

}  // namespace wcfgl_metrix
