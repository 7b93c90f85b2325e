/// Algebra of symmetry operators and their text forms ("-y,x-y,z+1/3").
///
/// Coordinates are cell fractions; arithmetic is 32-bit and translations are compared within
/// eps_symm. A failing routine sets err_symm and err_symm_mess and returns normally; both stand
/// until the next init_err_symm. What a parser stored before it failed stays stored.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace crystallographic_symmetry {

inline constexpr std::size_t max_operators = 192;      ///< of a whole group
inline constexpr std::size_t max_reduced = 24;         ///< without inversion and centring
inline constexpr std::size_t max_lattice_points = 12;  ///< in one cell

/// x' = rot x + tr
struct Sym_Oper_Type {
    Matrix3i rot{};  ///< rot[i][j] multiplies coordinate j in output row i
    Vector3f tr{};   ///< cell fractions, not folded

    friend constexpr bool operator==(const Sym_Oper_Type&, const Sym_Oper_Type&) = default;
};

/// What the constructors of a group hand over: the operators without inversion and centring,
/// identity first, and what was learnt about the group on the way.
struct ReducedList {
    int crystal_system = 0;   ///< 1 triclinic, 2 monoclinic, 3 orthorhombic, 4 tetragonal,
                              ///< 5 rhombohedral, 6 hexagonal, 7 cubic; 0 when not found
    int centred = 1;          ///< 0 inversion off the origin, 1 acentric, 2 inversion at the origin
    int lattice_index = 0;    ///< place in lattice_letters, from 1; 0 when not found
    int count = 0;            ///< operators in use
    int generator_count = 0;  ///< besides inversion and centring
    FixedText<2> lat_symbol;  ///< letter of the system and of the centring: "mC", "hR"
    Vector3f centre_coord{};  ///< cell fractions; zero unless centred is 0
    std::array<Sym_Oper_Type, max_reduced> ops{};
};

/// Tolerance, in cell fractions, of the comparison of translations and of the test for none.
inline constexpr float eps_symm = 0.0002f;

extern bool err_symm;
extern FixedText<150> err_symm_mess;

/// Selects the tables of the hexagonal rotations in get_seitz and decodmatmag. Nothing in the
/// library sets it; it isn't the field of that name in the group record.
extern bool hexa;

/// Centring of the group last built: set by latsym, read by lattice_trans for the letter Z.
/// Vectors are cell fractions, the first one is zero, and num_lat counts it.
extern int num_lat;
extern std::array<Vector3f, max_lattice_points> lat_trans;
extern FixedText<1> lat_type;
extern FixedText<2> lat_symbol;

void init_err_symm();
/// Sets err_symm with this message, cut at 150 characters.
void set_err_symm(std::string_view message);

/// Reads a coordinate triplet from the 1-based position `start` on: letters in either case,
/// blanks anywhere, one-digit coefficients ("2x"), a translation as fraction or decimal before or
/// behind the letters, rows ended by "," or "*". A letter named twice counts as last named; after
/// a "/" every later number of the row divides ("1/2+1/4" is 1/8); a last row that isn't there
/// repeats the one before. Fails on a blank row, a foreign character, or a determinant of 0 (2
/// passes). `rot` and
/// `*tr` are cleared first; `tr` may be null.
void read_xsym(std::string_view text, int start, Matrix3i& rot, Vector3f* tr = nullptr);

/// Reads a magnetic operator: a keyword in the first five columns, unlooked at, a triplet of
/// u, v, w with coefficients 0 and +-1, and behind the last comma the phase in turns, 0 when it
/// is no number. The line counts as 80 columns. Fails as read_xsym does.
void read_msymm(std::string_view line, Matrix3i& rot, float& phase);

/// Prints the triplet without blanks, "-x+y,-x,z+1/3", blank padded and cut at the field. A
/// translation within eps_symm of 0 prints nothing, one that is no fraction with numerator and
/// denominator up to 24 prints stars.
void get_symsymbi(const Matrix3i& rot, const Vector3f& tr, std::span<char> text);
/// Prints a position whose coefficients are fractions, "x/2,3y/4,-z+1/3", with one digit in each
/// numerator and denominator. Rows without a letter print their number alone, "0" too.
void get_symsymbr(const Matrix3f& coefficients, const Vector3f& tr, std::span<char> text);

/// The two forms above under one name.
template <std::size_t N>
void get_symsymb(const Matrix3i& rot, const Vector3f& tr, FixedText<N>& text) {
    get_symsymbi(rot, tr, {text.data(), N});
}
template <std::size_t N>
void get_symsymb(const Matrix3f& coefficients, const Vector3f& tr, FixedText<N>& text) {
    get_symsymbr(coefficients, tr, {text.data(), N});
}

/// a b, b acting first. The translation isn't folded.
Sym_Oper_Type product_symop(const Sym_Oper_Type& a, const Sym_Oper_Type& b);
/// The same, the translation folded into the cell by modulo_lat unless modlat is false.
Sym_Oper_Type sym_prod(const Sym_Oper_Type& a, const Sym_Oper_Type& b, bool modlat = true);
/// The same on texts; a text that doesn't parse sets err_symm and counts as what was read of it.
FixedText<80> sym_prod_st(std::string_view a, std::string_view b, bool modlat = true);

/// rot x + tr, not folded.
Vector3f applyso(const Sym_Oper_Type& op, const Vector3f& x);

/// The inverse, its rotation rounded to integers, its translation not folded. A singular rotation
/// gives zeros and "Inversion Matrix Failed".
void inverse_symm(const Matrix3i& rot, const Vector3f& tr, Matrix3i& inverse_rot,
                  Vector3f& inverse_tr);

/// Translations are compared as they stand: "x,y,z" and "x+1,y,z" differ.
bool equal_symop(const Sym_Oper_Type& a, const Sym_Oper_Type& b);
/// Whether `op` equals none of `known`.
bool is_new_op(const Sym_Oper_Type& op, std::span<const Sym_Oper_Type> known);

/// Row of rot_table, from 1, within first to last, that holds `rot`; negative when it holds -rot;
/// 0 with an error when it holds neither.
int searchop(const Matrix3i& rot, int first, int last);

/// Whether `v`, in cell fractions, is a translation of the lattice with this centring letter,
/// lower case included; "Z" stands for the vectors in lat_trans, and an unknown letter for "P".
bool lattice_trans(const Vector3f& v, char letter);

/// Folds the translations into the cell. With `swapped` also writes 2 - flag there: an acentric
/// flag of 1 or 0 becomes a centring of 1 or 2.
void mod_trans(std::span<Sym_Oper_Type> ops, int flag, int* swapped = nullptr);

/// "{ x, y, z| 1/2,  0 ,  0 }" for a row of the Seitz texts, from 1; negative rows stand for the
/// inverted rotation. A translation that is no fraction of the table takes no room. A row outside
/// the table gives a blank text.
FixedText<30> get_seitz(int row, const Vector3f& tr);

/// Transformation of a moment under `rot`, "(-Mx,-My, Mz)". Blank, with the error of searchop,
/// for a rotation that is in no conventional group.
FixedText<19> decodmatmag(const Matrix3i& rot);

/// "_5.465" is operator 5 moved by (-1, 1, 0); the translation is in whole cells, 5 meaning none.
/// A blank text is operator 1, not moved.
void read_symtrans_code(std::string_view text, int& number, Vector3f& tr);
/// The reverse; "" for operator 1, not moved. Moves beyond -5 to 4 cells print a star.
FixedText<8> write_symtrans_code(int number, const Vector3f& tr);

bool is_xyz(char c);    ///< x, y or z in either case
bool is_digit(char c);  ///< 0 to 9

}  // namespace crystallographic_symmetry
