/// Construction of a space group from a number, a symbol or operators.
#pragma once

#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/space_group_record.hpp"

#include <array>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <span>
#include <string_view>

namespace crystallographic_symmetry {

/// Each one is absent unless given.
struct SpacegroupOptions {
    std::optional<std::span<const FixedText<80>>> gen{};  ///< operators as triplets
    std::optional<int> ngen{};               ///< how many of gen count; cut at the size of gen
    std::optional<std::string_view> mode{};  ///< HMS, ITC, HAL, GEN or FIX in any case
    bool force_hall = false;  ///< a Hermann-Mauguin symbol takes the road of its Hall symbol
};

/// Builds the group that `spacegen` names: a number (the first tabulated setting), a
/// Hermann-Mauguin symbol or a Hall symbol, in any case; or, with generators and no such name,
/// the group that they generate.
///
/// `mode` decides what the text is: HMS a Hermann-Mauguin symbol, ITC a number or symbol looked
/// up in the list of published generators, HAL a Hall symbol, GEN nothing (generators are
/// closed), FIX nothing (the list is the whole group, taken as it stands).
///
/// On failure err_symm is set and `group` holds what identifies it at most, with multip 0 and no
/// operators; only a group without a row whose class can't be found (a determinant of 2, say)
/// fails with its operators in place. A Hall token that can't be read leaves the message blank.
///
/// `group` may hold an earlier group; entries of its lists beyond their counts are taken to be
/// fresh, as every call leaves them.
void set_spacegroup(std::string_view spacegen, Space_Group_Type& group,
                    const SpacegroupOptions& options = {});

/// The last step of a construction, for a list whose constructor has just succeeded: lattice,
/// centre, counts, all operators and their texts. Identification and special positions stay as
/// they are.
void expand_list(const ReducedList& list, Space_Group_Type& group);

/// Whether both records hold the same operators, in any order. Empty records equal nothing.
bool spgr_equal(const Space_Group_Type& a, const Space_Group_Type& b);

/// Prints the group for a reader; with `full` every operator, otherwise the reduced list.
void write_spacegroup(const Space_Group_Type& group, std::ostream& out, bool full = false);
/// Prints the table of the special positions; nothing when there are none.
void write_wyckoff(const Space_Group_Type& group, std::ostream& out);

}  // namespace crystallographic_symmetry
