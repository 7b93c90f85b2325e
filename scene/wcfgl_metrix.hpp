/// What the whole scene is expanded through: the unit cell, the box of cells shown, the space
/// group; with the drawing of the cell's edges and of the axes.
///
/// Fractional coordinates are those of the whole crystal: 0 to 2 is two cells. Cartesian ones are
/// in angstrom, with a along X and b in the XY plane. Each object exists once, comes with its first
/// use and then stays for the whole run.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"

#include <GL/gl.h>

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace wcfgl_metrix {

struct Cell {
    Vector3f cell_length{};         ///< a, b, c in angstrom
    Vector3f cell_angle{};          ///< alpha, beta, gamma in degrees
    float volume = 0.0f;            ///< cubic angstrom; NaN for angles that no cell has
    Matrix3f direct_matrix{};       ///< [i][j]: Cartesian component i of cell vector j
    Matrix3f unit_direct_matrix{};  ///< the same vectors at unit length
    Colour colour{0.5f, 0.5f, 0.5f, 1.0f};
    float line_width = 1.45f;
    int nodisplay = 0;  ///< not 0: not drawn
    int multiple = 0;   ///< not 0: a wire for each whole lattice cell in the box; 0: one wire
    GLuint dlist = 0;   ///< one wire cell at the origin
};

struct Axes {
    Vector3f origin{-0.3f, -0.3f, -0.3f};  ///< fractional
    float length = 2.0f;                   ///< angstrom
    int nodisplay = 0;                     ///< not 0: not drawn
    GLuint dlist = 0;                      ///< the three axes and their letters
};

/// xmin, xmax, ymin, ymax, zmin, zmax, in fractions. A minimum above its maximum is accepted: such
/// a box contains nothing.
using Box = std::array<float, 6>;

/// Absent until the first valid define_cell. `nodisplay`, `multiple`, `colour` and the axes'
/// `nodisplay` are free to be written; the next frame follows.
extern std::optional<Cell> current_cell;
extern std::optional<Axes> current_axes;
/// Absent until the first define_box, init_box, define_cell or in_limit.
extern std::optional<Box> current_box;
/// Absent until the first init_spacegroup or define_spacegroup.
extern std::optional<crystallographic_symmetry::Space_Group_Type> current_space_group;

extern Vector3f current_baricentre;  ///< the box's centre, Cartesian
extern double current_maxsize;       ///< the box's largest edge in angstrom; 0 before any box

/// Each is set to 1 by the operation it is named after and cleared at the end of a frame; the
/// lists rebuild themselves in between.
extern int cell_changed;
extern int box_changed;
extern int spacegroup_changed;

/// Another number with each definition of the group.
extern unsigned spacegroup_number;

/// Lengths in angstrom, angles in degrees. Unless all six are positive nothing changes; a change
/// keeps colour, line width, flags and the axes' settings. A current context is needed.
void define_cell(const Vector3f& cell_length, const Vector3f& cell_angle);

void define_box(float xmin, float xmax, float ymin, float ymax, float zmin, float zmax);

/// Makes the box 0..1 in all directions unless there is one; sets no flag.
void init_box();

/// Makes the group "P 1".
void init_spacegroup();

/// By number or symbol, as people write it (group_symbol::table_text), or, with generators, from
/// these "x,y,z" texts, the symbol then being blank. A group that can't be built becomes "P 1".
void define_spacegroup(std::string_view symbol,
                       std::optional<std::span<const FixedText<80>>> generators = {});

/// Fractional to Cartesian; the argument itself while there is no cell.
Vector3f f2c_r(const Vector3f& x);
Vector3f f2c_i(const Vector3i& n);

/// Whether a fractional point lies in the box, faces included, without any tolerance. Makes the
/// default box if there is none.
bool in_limit(const Vector3f& x);

/// Where the lines through `point` along the axes meet the box's faces: columns 0 and 1 for x at
/// xmin and xmax, 2 and 3 for y, 4 and 5 for z. An axis whose component of `direction` is zero
/// leaves its columns zero.
std::array<Vector3f, 6> intersect_volume(const Vector3f& point, const Vector3f& direction);

/// Parts of a frame; nothing without a cell, or when not to be displayed.
void draw_cell();
void draw_axes();

}  // namespace wcfgl_metrix
