/// The record of a whole space group.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"

#include <array>
#include <cstddef>

namespace crystallographic_symmetry {

inline constexpr std::size_t max_wyckoff_positions = 26;
inline constexpr std::size_t max_orbit_texts = 48;

/// One special position.
struct Wyck_Pos_Type {
    int multp = 0;           ///< points in the cell, centring included
    FixedText<6> site;       ///< stays blank
    int norb = 0;            ///< entries of str_orbit in use
    FixedText<40> str_orig;  ///< stays blank
    std::array<FixedText<40>, max_orbit_texts> str_orbit;  ///< triplets, centring left out
};

/// The special positions, letters a, b, c, ... in order.
struct Wyckoff_Type {
    int num_orbit = 0;  ///< entries of orbit in use
    std::array<Wyck_Pos_Type, max_wyckoff_positions> orbit;
};

/// A group by value; a fresh record is that of no group.
///
/// Order of sym_op: the num_ops operators without inversion and centring, identity first; with an
/// inversion (centred 0 or 2) the same operators inverted, in the same order; then all these
/// again for each of the centring vectors 2 to 4, folded into the cell. Entries behind the last
/// one stay zero, their texts "?".
struct Space_Group_Type {
    int num_spg = 0;                        ///< 1 to 230; 0 when unknown
    FixedText<20> spg_symb = "unknown";     ///< Hermann-Mauguin symbol as tabulated, upper case,
                                            ///< or the text given
    FixedText<16> hall = "unknown";         ///< Hall symbol; "unknown" for one that is too long
    FixedText<12> crystal_sys = "unknown";  ///< "Monoclinic"; trigonal ones are "Rhombohedral"
    FixedText<5> laue = "?";
    FixedText<5> pg = "?";
    FixedText<5> info = "?";        ///< setting code: origin "1", axes "H", "b1", "bca", "2cab"
    FixedText<80> setting = "?";    ///< how the group was obtained, in words
    bool hexa = false;              ///< rotations are of hexagonal form
    FixedText<1> lat_type = "?";    ///< one of lattice_letters
    FixedText<2> lat_symbol = "?";  ///< "mC", "hR", "aP"
    int num_lat = 0;                ///< lattice points in the cell, at least 1 once built
    std::array<Vector3f, max_lattice_points> lat_trans{};  ///< cell fractions; the first is zero
    FixedText<51> bravais = "?";                           ///< the lattice in print
    FixedText<80> centre = "?";                            ///< centrosymmetry in words
    int centred = -1;         ///< 0 centric, inversion off the origin; 1 acentric;
                              ///< 2 centric, inversion at the origin
    Vector3f centre_coord{};  ///< inversion centre, cell fractions
    int num_ops = 0;          ///< operators without inversion and centring
    int multip = 0;           ///< of the general position; above the entries of sym_op filled
                              ///< when the cell holds more than four lattice points
    int num_gen = 0;          ///< generators besides inversion and centring
    std::array<Sym_Oper_Type, max_operators> sym_op{};
    std::array<FixedText<40>, max_operators> sym_op_text = [] {
        std::array<FixedText<40>, max_operators> fresh;
        fresh.fill("?");
        return fresh;
    }();  ///< triplets of sym_op
    Wyckoff_Type wyckoff{};
    std::array<float, 6> asym_unit{0, 0, 0, 1, 1, 1};  ///< minima of x, y, z, then the maxima, in
                                                       ///< cell fractions; a box
};

}  // namespace crystallographic_symmetry
