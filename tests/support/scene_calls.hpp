/// Recording doubles of the scene's units, linked in place of them: a test of the structure file
/// sees what the reader hands to each unit, and gives the writer a model by hand.
///
/// A call is one text, its name and its arguments, numbers in their shortest form:
///
///     "push_atom Fe1 FE (0,0.5,0) 0.5 r=0.75 hidden=0 colour=none"
///
/// Group, cell, box and phase calls store nothing but what wcfgl_metrix shows to its callers.
#pragma once

#include <string>
#include <vector>

namespace scene_calls {

/// Since the start or the last clear.
const std::vector<std::string>& all();
/// Those whose name begins with one of the names given.
std::vector<std::string> of(const std::vector<std::string>& names);
void clear();

/// Off: calls do nothing at all, for measurements of the reader alone.
void record(bool on);

/// What write_atom_list, write_bond_list and write_magnetic_structure append.
extern std::string atom_text;
extern std::string bond_text;
extern std::string magnetic_text;

/// While set, define_cell leaves the cell as it is, as for numbers that no cell has.
extern bool cells_refused;

}  // namespace scene_calls
