/// Relations between the wave vectors of a magnetic structure: equivalence under the lattice,
/// k against -k, the star of k and its little group.
///
/// Vectors are in reciprocal lattice units of the conventional cell, 32-bit. Nothing here fails.
#pragma once

#include "crystal/crystallographic_symmetry/space_group.hpp"

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string_view>

namespace propagation_vectors {

inline constexpr std::size_t max_arms = 48;

/// Operator numbers count from 1, as places in group.sym_op; centring doesn't take part.
struct Group_k_Type {
    crystallographic_symmetry::Space_Group_Type group{};
    int ngk = 0;                  ///< order of the little group
    bool k_equiv_minusk = false;  ///< k and -k are equivalent through the group
    std::array<int, crystallographic_symmetry::max_operators> p{};  ///< the little group
    /// co[arm]: the operators that lead k to that arm; 0 ends a list that isn't full.
    std::array<std::array<int, max_arms>, max_arms> co{};
    int nk = 0;                              ///< arms of the star
    std::array<Vector3f, max_arms> stark{};  ///< the arms, the first one k itself
};

/// Whether h - k is a vector of the reciprocal lattice. Only the first letter of `lattice` counts
/// (blanks in front of it don't), in either case; a letter outside PABCIRF gives false.
bool k_equiv(const Vector3f& h, const Vector3f& k, std::string_view lattice);

/// Whether 2k is a vector of the reciprocal lattice. The one difference from k_equiv(k, -k): a
/// letter outside PABCIRF asks for no more than integers.
bool k_equiv_minus_k(const Vector3f& k, std::string_view lattice);

/// Whether an operator of the little group takes h to k, components compared within 1e-5. With
/// `friedel` it may take h to -k too, when k is equivalent to -k and the group has no inversion at
/// the origin.
bool hk_equiv(const Vector3f& h, const Vector3f& k, const Group_k_Type& group_k,
              bool friedel = false);

/// Fills the record from a fresh state.
void k_star(const Vector3f& k, const crystallographic_symmetry::Space_Group_Type& group,
            Group_k_Type& group_k);

/// Prints the group's name, the little group and the star.
void write_group_k(const Group_k_Type& group_k, std::ostream& out);

}  // namespace propagation_vectors
