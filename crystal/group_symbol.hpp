/// A group's symbol between people and tables: texts as they are written in files and dialogs,
/// read leniently; and what tells a group again when it is written.
#pragma once

#include "crystal/crystallographic_symmetry/space_group.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace group_symbol {

/// What set_spacegroup is to be given for `written`: the tabulated symbol that it means, or the
/// text itself where it is a tabulated symbol (Hermann-Mauguin or Hall, in any case) or means none.
///
/// Blanks and underscores don't count ("P21/c", "P 6_3/m m c"), nor does case. ":2" and ":H" name
/// the choice that a bare symbol means; a number takes ":1", ":2", ":R" or ":H" ("227:2"); the
/// double glide e stands in groups 39, 41, 64, 67 and 68 ("C m c e"); an old cubic spelling takes
/// ":1" ("F d 3 m:1"). A last letter S, Z, H or R stands for ":1", ":2", ":H" or ":R"
/// ("R -3 c H"). The result is 12 characters at most when it isn't `written`.
std::string table_text(std::string_view written);

/// A text that table_text and set_spacegroup turn into this group: its tabulated symbol, or else
/// its Hall symbol. Empty when there is neither; then only generators tell it. Empty too for a
/// record that holds no group.
std::string shown(const crystallographic_symmetry::Space_Group_Type& group);

/// Triplets that generate the group, none that follows from those before it: centring vectors
/// first, the inversion last; "x,y,z" for P 1. Empty for a record that holds no group.
///
/// Leaves the centring of the module (lat_trans and its kin) as that of the group, and no error.
std::vector<std::string> generators(const crystallographic_symmetry::Space_Group_Type& group);

}  // namespace group_symbol
