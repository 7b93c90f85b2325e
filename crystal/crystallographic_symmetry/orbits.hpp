/// One point spread over a group: the positions it is carried to, the operators that leave it in
/// place, its multiplicity.
///
/// Coordinates are cell fractions. Two points are one when they differ by lattice translations
/// within 1e-5 in each coordinate. A record without operators gives the point alone.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/space_group_record.hpp"

#include <array>
#include <span>
#include <string_view>

namespace crystallographic_symmetry {

/// Spreads a position given with letters ("x,2x,1/4") over the operators without centring.
/// `list` is blanked and takes the position as given, left-justified, and every further one as
/// printed, folded into the cell; positions a centring translation apart count once. Returns the
/// number of entries, 0 for a blank text. Positions are told apart by their print. Entries that
/// don't fit are left out and not counted.
int wyckoff_orbit(const Space_Group_Type& group, std::string_view position,
                  std::span<FixedText<40>> list);

/// The points that a group makes of one point.
struct Orbit {
    int count = 0;
    std::array<Vector3f, max_operators> points;  ///< the first as given, the others folded
    std::array<int, max_operators> operators;    ///< the operator, from 1, that made each point

    std::span<const Vector3f> in_use() const {
        return {points.data(), static_cast<std::size_t>(count)};
    }
};

/// With `skip_centring`, points that are a centring translation apart count once; otherwise all
/// points of the cell are listed. Entries of `orbit` behind its count keep what they held.
void get_orbit(const Vector3f& x, const Space_Group_Type& group, Orbit& orbit,
               bool skip_centring = false);

/// The operators, from 1, that carry a point to itself or to a point a lattice translation away.
struct Stabilizer {
    int order = 0;
    std::array<int, max_operators> operators{};  ///< the identity first; zero behind `order`
};

/// Looks through the operators without centring.
Stabilizer get_stabilizer(const Vector3f& x, const Space_Group_Type& group);

/// Points that the group makes of `x` in one cell.
int get_multip_pos(const Vector3f& x, const Space_Group_Type& group);

/// get_multip_pos over the multiplicity of the general position: 1 for a general point, 1/48 at
/// the origin of P m -3 m. 0 for a record without operators.
float get_occ_site(const Vector3f& x, const Space_Group_Type& group);

}  // namespace crystallographic_symmetry
