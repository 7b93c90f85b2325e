#include "crystal/symmetry_tables.hpp"

#include "common/list_read.hpp"
#include "crystal/string_utilities.hpp"

#include <cstddef>

namespace symmetry_tables {

constinit std::span<const SpgrRow> Spgr_Info{};
constinit std::span<const WyckoffRow> Wyckoff_Info{};
constinit std::span<const ItGeneratorRow> it_gen{};
constinit std::span<const SystemEquivRow> System_Equiv{};
constinit bool err_symtab = false;
constinit FixedText<150> err_symtab_mess{};

namespace {

constexpr ItGeneratorRow blank_row;

std::string_view generators_of(const ItGeneratorRow& row) { return row.columns(12, 120); }

/// The first row of that symbol, or null.
const ItGeneratorRow* row_of_symbol(std::string_view symbol) {
    const std::string wanted = string_utilities::u_case(without_trailing_blanks(symbol));
    for (const ItGeneratorRow& row : it_gen) {
        FixedText<10> candidate = row.columns(1, 10);
        string_utilities::ucase(candidate);
        if (candidate.trimmed() == wanted) return &row;
    }
    return nullptr;
}

}  // namespace

void set_spgr_info() { Spgr_Info = spgr_rows(); }
void set_wyckoff_info() { Wyckoff_Info = wyckoff_rows(); }
void set_it_gen() { it_gen = it_generator_rows(); }
void set_system_equiv() { System_Equiv = system_equiv_rows(); }
void remove_spgr_info() { Spgr_Info = {}; }
void remove_wyckoff_info() { Wyckoff_Info = {}; }
void remove_system_equiv() { System_Equiv = {}; }

std::string_view get_generators(std::string_view symbol_or_number) {
    if (it_gen.empty()) set_it_gen();
    err_symtab = false;
    err_symtab_mess = {};
    int number = 0;
    list_read::Record record(symbol_or_number);
    if (record.read(number)) {
        const bool known = number >= 1 && number <= static_cast<int>(it_gen.size());
        return generators_of(known ? it_gen[static_cast<std::size_t>(number - 1)] : blank_row);
    }
    if (const ItGeneratorRow* row = row_of_symbol(symbol_or_number)) return generators_of(*row);
    err_symtab = true;
    err_symtab_mess = " Error in the symbol or number of the space group";
    return generators_of(blank_row);
}

}  // namespace symmetry_tables
