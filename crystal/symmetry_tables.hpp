/// What the group constructors look things up in: settings, special positions, generators,
/// transformations.
///
/// A list is empty until it is filled. Filling makes it show the constant rows (rows.hpp) and
/// costs nothing, however often; removing makes it empty again.
#pragma once

#include "common/fixed_text.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <span>
#include <string_view>

namespace symmetry_tables {

extern std::span<const SpgrRow> Spgr_Info;            ///< empty, or 612 rows
extern std::span<const WyckoffRow> Wyckoff_Info;      ///< empty, or 270 rows
extern std::span<const ItGeneratorRow> it_gen;        ///< empty, or 230 rows, by group number
extern std::span<const SystemEquivRow> System_Equiv;  ///< empty, or 230 rows, by group number

/// Set by get_generators alone, and apart from the error state of the operators.
extern bool err_symtab;
extern FixedText<150> err_symtab_mess;

void set_spgr_info();
void set_wyckoff_info();
void set_it_gen();
void set_system_equiv();
void remove_spgr_info();
void remove_wyckoff_info();
void remove_system_equiv();

/// Characters 12 to 120 of a group's row of it_gen, blanks and all; the view is good for the whole
/// run. `symbol_or_number` is read as a free-format integer, or else compared with the symbols in
/// any case, leading blanks included.
///
/// A number outside 1 to 230 gives blanks and no error; an unknown symbol gives blanks and sets
/// err_symtab and its message. it_gen is filled at the first call.
std::string_view get_generators(std::string_view symbol_or_number);

}  // namespace symmetry_tables
