/// What the operators of a group say about its class: rotation orders, crystal system, lattice,
/// Laue class, point group; and the names and numbers of these classes.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/space_group_record.hpp"

#include <optional>
#include <span>
#include <string_view>

namespace crystallographic_symmetry {

/// Order of a rotation from determinant and trace, negative for an improper one (-2 a mirror, -1
/// the inversion); 0 when the matrix is no crystallographic rotation.
int axes_rotation(const Matrix3i& rot);

/// Crystal system of a list without inversion and centring.
struct CrystalSystem {
    int index = 0;  ///< as in ReducedList
    char letter = ' ';
};

/// "Triclinic" for 1 and so on to "Cubic" for 7; blank outside. All trigonal groups, primitive ones
/// too, are "Rhombohedral".
std::string_view crystal_system_name(int index);

/// Index 0 and " Axes rotation wrong" when a matrix is no rotation; otherwise the error state isn't
/// touched.
CrystalSystem get_crystal_system_r_op(std::span<const Sym_Oper_Type> ops);
/// The same from triplets, each through read_xsym; stops at the first that doesn't parse.
CrystalSystem get_crystal_system_r_st(std::span<const FixedText<40>> ops);

/// Sets num_lat, lat_trans and lat_type of the module from the first character of `lattice` that
/// is neither a blank nor "-", in either case, and returns its place in lattice_letters. "Z" takes
/// `vectors`, the first 11 of them, behind the origin; R is obverse. Clears the error state; an
/// unknown letter, or Z without vectors, sets it and returns 0 with one lattice point and lat_type
/// as it was.
int latsym(std::string_view lattice,
           std::optional<std::span<const Vector3f>> vectors = std::nullopt);

/// Laue class and point group of a record by counting its reduced operators; both blank when no
/// class fits or on failure (no operators, a matrix that is no rotation). The names are those of
/// the counts and not always those of the tables: trigonal groups on hexagonal axes give "-32",
/// "-312" and "-3m", and where a group has more than one setting the first two-fold or mirror in
/// the list decides.
void get_laue_pg(const Space_Group_Type& group, FixedText<5>& laue, FixedText<5>& pg);

/// Place of a name in its list, from 1, leading blanks left out; 0 for no such name.
int get_laue_num(std::string_view laue);
int get_pointgroup_num(std::string_view pg);

/// Name of Laue class 1 to 16; " Laue Number Incorrect" outside.
std::string_view get_laue_str(int number);
/// Name of point group 1 to 39; " Point Group Number Incorrect" outside.
std::string_view get_pointgroup_str(int number);

/// Whether any operator but the first has more than one coefficient in its first or in its second
/// column, as "-y,x-y,z" has: rotations on hexagonal axes.
bool is_hexa(std::span<const Sym_Oper_Type> ops);

}  // namespace crystallographic_symmetry
