// However a group is told, one road leads to its reduced operators: one for each rotation, without
// the inversion and the centring. They are then written out, first as they are, then inverted, and
// these all over again for each centring vector: the first num_ops are the reduced ones. Only a
// list that is to stay as it is ("FIX") keeps its own order, and is its own reduced list.
//
// The record is large and is filled often, so that a fresh one is not copied over it as a whole.

#include "crystal/crystallographic_symmetry/space_group.hpp"

#include "common/list_read.hpp"
#include "crystal/crystallographic_symmetry/from_generators.hpp"
#include "crystal/crystallographic_symmetry/from_hall.hpp"
#include "crystal/crystallographic_symmetry/from_hermann_mauguin.hpp"
#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/crystallographic_symmetry/orbits.hpp"
#include "crystal/math_gen.hpp"
#include "crystal/string_utilities.hpp"
#include "crystal/symmetry_tables.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace crystallographic_symmetry {
namespace {

using math_gen::modulo_lat;
using symmetry_tables::SpgrRow;
using symmetry_tables::WyckoffRow;

// By lattice index, as lattice_letters.
constexpr std::array<std::string_view, 8> bravais_texts{
    "  P: { 000 }",
    "  A: { 000;  0  1/2 1/2 }+",
    "  B: { 000; 1/2  0  1/2 }+",
    "  C: { 000; 1/2 1/2  0  }+",
    "  I: { 000; 1/2 1/2 1/2 }+",
    "  R: { 000; 2/3 1/3 1/3; 1/3 2/3 2/3   }+",
    "  F: { 000;  0  1/2 1/2; 1/2  0  1/2; 1/2 1/2  0 }+",
    "  Z: { 000;  Unconventional Z-centering vectors  }+",
};

// By `centred`.
constexpr std::array<std::string_view, 3> centre_texts{
    "Centric (-1 not at origin)",
    "Acentric",
    "Centric (-1 at origin)",
};

constexpr std::string_view from_hall_text = "Generated from Hall symbol";
constexpr std::string_view from_symbol_text = "IT (Generated from Hermann-Mauguin symbol)";
constexpr std::string_view from_it_text = "Generated from explicit IT generators";
constexpr std::string_view from_user_text = "Non-Conventional (user-given operators)";

// Rows, from 1, whose symbols don't tell their operators to a reader of symbols: P N M 21,
// P 21 N M, P M 21 N, B A M B, C 4 2 21, C -4 B 2, F -4 D 2.
constexpr std::array<int, 7> rows_by_hall{211, 213, 215, 375, 429, 457, 463};

/// Rows of a table by a text of theirs; of rows that share one, the first.
class SymbolIndex {
public:
    template <class Rows, class TextOf>
    SymbolIndex(const Rows& rows, TextOf text_of) : entries_(rows.size()) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            entries_[i] = {string_utilities::u_case(FixedText<16>(text_of(rows[i]))),
                           static_cast<int>(i) + 1};
        std::ranges::stable_sort(entries_, {}, [](const Entry& e) { return e.text.field(); });
    }

    /// From 1; -1 when there is none.
    int find(const FixedText<16>& text) const {
        const auto found = std::ranges::lower_bound(entries_, text.field(), {},
                                                    [](const Entry& e) { return e.text.field(); });
        return found != entries_.end() && found->text == text ? found->row : -1;
    }

private:
    struct Entry {
        FixedText<16> text;
        int row;
    };
    std::vector<Entry> entries_;
};

int find_hm_row(std::string_view key) {
    static const SymbolIndex index(symmetry_tables::spgr_rows(),
                                   [](const SpgrRow& row) { return row.hm.field(); });
    return index.find(key.substr(0, 12));
}

/// What is longer than the column is no row, whatever its first characters are: an origin shift may
/// stand behind them.
int find_hall_row(std::string_view symbol) {
    static const SymbolIndex index(symmetry_tables::spgr_rows(),
                                   [](const SpgrRow& row) { return row.hall.field(); });
    return symbol.size() <= 16 ? index.find(string_utilities::u_case(FixedText<16>(symbol))) : -1;
}

int find_number_row(int number) {
    static const std::array<int, 231> first = [] {
        std::array<int, 231> rows;
        rows.fill(-1);
        const auto all = symmetry_tables::spgr_rows();
        for (std::size_t i = all.size(); i > 0; --i)
            rows[static_cast<std::size_t>(all[i - 1].n)] = static_cast<int>(i);
        return rows;
    }();
    return number >= 1 && number <= 230 ? first[static_cast<std::size_t>(number)] : -1;
}

const WyckoffRow* find_wyckoff_row(std::string_view symbol) {
    static const SymbolIndex index(symmetry_tables::wyckoff_rows(),
                                   [](const WyckoffRow& row) { return row.hm.field(); });
    const int row = index.find(symbol.substr(0, 12));
    if (row < 0) return nullptr;
    return &symmetry_tables::wyckoff_rows()[static_cast<std::size_t>(row - 1)];
}

/// How the group is to be built, and from what.
struct Choice {
    FixedText<3> mode;
    std::string_view symbol;  ///< as it was given, without blanks around
    FixedText<20> key;        ///< its first characters, upper case
    int row = -1;             ///< of the settings, from 1; -1 when none is known

    const SpgrRow* setting() const {
        if (row < 1) return nullptr;
        return &symmetry_tables::spgr_rows()[static_cast<std::size_t>(row - 1)];
    }
};

/// The n first characters behind leading blanks, upper case.
template <std::size_t N>
FixedText<N> raised_field(std::string_view text) {
    FixedText<N> field = without_leading_blanks(text);
    string_utilities::ucase(field);
    return field;
}

bool tells_no_operators(int row) {
    return std::ranges::find(rows_by_hall, row) != rows_by_hall.end();
}

/// The number that stands alone in the key; absent for anything else.
std::optional<int> lone_number(std::string_view key) {
    std::array<float, 20> reals;
    std::array<int, 20> integers;
    if (string_utilities::getnum(key, reals, integers) != 1) return std::nullopt;
    return integers[0];
}

/// Without a mode: a number, a Hermann-Mauguin symbol, a Hall symbol, in this order; anything else
/// is left to the generators or to the reader of Hall symbols. False with the error set.
bool choose_freely(const SpacegroupOptions& options, Choice& choice) {
    if (const std::optional<int> number = lone_number(choice.key.field())) {
        choice.row = find_number_row(*number);
        if (choice.row < 0) {
            set_err_symm(" Number of Space Group out of limits");
            return false;
        }
        choice.mode = "HAL";
        return true;
    }
    // A symbol of twelve characters may be the head of a Hall symbol with an origin shift.
    const bool shifted = choice.symbol.find('(') != std::string_view::npos;
    choice.row = shifted ? -1 : find_hm_row(choice.key.field());
    if (choice.row > 0) {
        choice.mode = options.force_hall || tells_no_operators(choice.row) ? "HAL" : "HMS";
        return true;
    }
    choice.row = find_hall_row(choice.symbol);
    const bool generators = choice.row < 0 && options.gen;
    choice.mode = generators ? "GEN" : "HAL";
    return true;
}

void choose_by_mode(std::string_view mode, Choice& choice) {
    choice.mode = raised_field<3>(mode);
    const std::string_view key = choice.key.field();
    if (choice.mode == FixedText<3>("HMS")) {
        choice.row = find_hm_row(key);
        if (tells_no_operators(choice.row)) choice.mode = "HAL";
        return;
    }
    if (choice.mode == FixedText<3>("HAL")) choice.row = find_hall_row(choice.symbol);
    if (choice.mode == FixedText<3>("ITC")) {
        int number = 0;
        list_read::Record record(key);
        choice.row = record.read(number) ? find_number_row(number) : find_hm_row(key);
    }
}

// ------------------------------------------------------------ filling the record

/// Gives every field its fresh value. The long lists are fresh beyond their counts already, so only
/// what the counts tell is written.
void make_fresh(Space_Group_Type& group) {
    static const Space_Group_Type fresh;
    constexpr FixedText<40> fresh_text;
    group.num_spg = fresh.num_spg;
    group.spg_symb = fresh.spg_symb;
    group.hall = fresh.hall;
    group.crystal_sys = fresh.crystal_sys;
    group.laue = fresh.laue;
    group.pg = fresh.pg;
    group.info = fresh.info;
    group.setting = fresh.setting;
    group.hexa = fresh.hexa;
    group.lat_type = fresh.lat_type;
    group.lat_symbol = fresh.lat_symbol;
    group.num_lat = fresh.num_lat;
    group.lat_trans = fresh.lat_trans;
    group.bravais = fresh.bravais;
    group.centre = fresh.centre;
    group.centred = fresh.centred;
    group.centre_coord = fresh.centre_coord;
    group.num_ops = fresh.num_ops;
    const int operators = std::clamp(group.multip, 0, static_cast<int>(max_operators));
    std::copy_n(fresh.sym_op.begin(), operators, group.sym_op.begin());
    std::copy_n(fresh.sym_op_text.begin(), operators, group.sym_op_text.begin());
    group.multip = fresh.multip;
    group.num_gen = fresh.num_gen;
    group.asym_unit = fresh.asym_unit;
    const auto positions = static_cast<std::size_t>(
        std::clamp(group.wyckoff.num_orbit, 0, static_cast<int>(max_wyckoff_positions)));
    for (Wyck_Pos_Type& position : std::span(group.wyckoff.orbit).first(positions)) {
        std::fill_n(position.str_orbit.begin(),
                    std::clamp(position.norb, 0, static_cast<int>(max_orbit_texts)), fresh_text);
        position.norb = position.multp = 0;
    }
    group.wyckoff.num_orbit = 0;
}

void take_row(const SpgrRow& row, Space_Group_Type& group) {
    group.num_spg = row.n;
    group.spg_symb = row.hm.field();
    group.hall = row.hall;
    group.laue = get_laue_str(row.laue);
    group.pg = get_pointgroup_str(row.pg);
    group.info = row.inf_extra;
    constexpr float unit = 1.0f / 24.0f;
    for (std::size_t i = 0; i < 6; ++i) group.asym_unit[i] = static_cast<float>(row.asu[i]) * unit;
}

/// Lattice, centre and counts, from a constructor that succeeded.
void take_list(const ReducedList& list, Space_Group_Type& group) {
    group.crystal_sys = crystal_system_name(list.crystal_system);
    group.lat_type = lat_type;
    group.lat_symbol = list.lat_symbol;
    group.num_lat = num_lat;
    group.lat_trans = {};
    std::copy_n(lat_trans.begin(), num_lat, group.lat_trans.begin());
    group.bravais = bravais_texts[static_cast<std::size_t>(list.lattice_index - 1)];
    group.centred = list.centred;
    group.centre = centre_texts[static_cast<std::size_t>(list.centred)];
    group.centre_coord = list.centre_coord;
    group.num_ops = list.count;
}

/// The reduced operators again, inverted.
std::size_t append_inverted(Space_Group_Type& group, std::size_t count) {
    const Vector3f twice_centre =
        group.centred == 0 ? 2.0f * group.centre_coord : Vector3f{0.0f, 0.0f, 0.0f};
    for (std::size_t i = 0; i < count; ++i) {
        const Sym_Oper_Type& op = group.sym_op[i];
        group.sym_op[count + i] = {-op.rot, modulo_lat(twice_centre - op.tr)};
    }
    return 2 * count;
}

/// All operators again for the centring vectors 2 to 4; a cell with more of them isn't filled.
std::size_t append_centred(Space_Group_Type& group, std::size_t count) {
    const auto points = static_cast<std::size_t>(std::clamp(group.num_lat, 1, 4));
    for (std::size_t point = 1; point < points; ++point)
        for (std::size_t i = 0; i < count; ++i) {
            const Sym_Oper_Type& op = group.sym_op[i];
            group.sym_op[point * count + i] = {op.rot, modulo_lat(group.lat_trans[point] + op.tr)};
        }
    return points * count;
}

/// The operators behind the reduced ones, and the multiplicity of the general position.
void expand_operators(Space_Group_Type& group) {
    std::size_t count = static_cast<std::size_t>(group.num_ops);
    if (group.centred != 1) count = append_inverted(group, count);
    append_centred(group, count);
    group.multip = static_cast<int>(count) * group.num_lat;
}

void print_operators(Space_Group_Type& group) {
    const auto count = std::min(static_cast<std::size_t>(group.multip), max_operators);
    for (std::size_t i = 0; i < count; ++i)
        get_symsymb(group.sym_op[i].rot, group.sym_op[i].tr, group.sym_op_text[i]);
}

/// The operator of the inversion, behind the words. It is the one that follows the reduced list,
/// or any of a list taken as it stood.
void tell_inversion(Space_Group_Type& group) {
    const auto inversion = std::ranges::find(group.sym_op, inversion_rotation, &Sym_Oper_Type::rot);
    if (inversion == group.sym_op.end()) return;
    const auto& text =
        group.sym_op_text[static_cast<std::size_t>(inversion - group.sym_op.begin())];
    const std::string words =
        std::string(group.centre.trimmed()) + "  Gen(-1):" + std::string(text.trimmed());
    group.centre = std::string_view(words);
}

/// What follows from the operators in place.
void finish_operators(Space_Group_Type& group) {
    group.hexa = is_hexa(std::span(group.sym_op).first(static_cast<std::size_t>(group.num_ops)));
    print_operators(group);
    if (group.centred == 0) tell_inversion(group);
}

}  // namespace

void expand_list(const ReducedList& list, Space_Group_Type& group) {
    take_list(list, group);
    std::copy_n(list.ops.begin(), list.count, group.sym_op.begin());
    expand_operators(group);
    finish_operators(group);
}

namespace {

// Each road below fills what it knows and puts its operators at the head of sym_op; with err_symm
// set the rest of the record stays fresh.

using OperatorList = std::array<Sym_Oper_Type, max_operators>;

/// The operators of the caller; absent, with the error set, when one can't be read or when they
/// aren't there at all.
std::optional<std::span<const Sym_Oper_Type>> read_generators(const SpacegroupOptions& options,
                                                              std::string_view missing,
                                                              OperatorList& ops) {
    if (!options.gen || !options.ngen) {
        set_err_symm(missing);
        return std::nullopt;
    }
    const std::size_t room = std::min(options.gen->size(), ops.size());
    const std::size_t count = std::min(static_cast<std::size_t>(std::max(*options.ngen, 0)), room);
    for (std::size_t i = 0; i < count; ++i) {
        read_xsym((*options.gen)[i].field(), 1, ops[i].rot, &ops[i].tr);
        if (err_symm) return std::nullopt;
    }
    return std::span(ops).first(count);
}

void build_from_fix(const SpacegroupOptions& options, Space_Group_Type& group) {
    OperatorList ops;
    const auto given =
        read_generators(options, " Generators should be provided if FIX option is Used", ops);
    if (!given) return;
    group.setting = from_user_text;
    const ReducedList list = get_so_from_fix(*given);
    if (err_symm) return;
    take_list(list, group);
    group.num_gen = list.generator_count;
    std::ranges::copy(*given, group.sym_op.begin());
    group.multip = group.num_ops;
    finish_operators(group);
}

void build_from_gen(const SpacegroupOptions& options, Space_Group_Type& group) {
    OperatorList ops;
    const auto given = read_generators(
        options, " Generators should be provided in GEN calling Set_SpaceGroup", ops);
    if (!given) return;
    group.setting = from_user_text;
    const ReducedList list = get_so_from_gener(*given);
    if (err_symm) return;
    expand_list(list, group);
    group.num_gen = list.generator_count;
}

void build_from_hall(const Choice& choice, Space_Group_Type& group) {
    const SpgrRow* row = choice.setting();
    const ReducedList list = get_so_from_hall(row ? row->hall.field() : choice.symbol);
    if (row)
        take_row(*row, group);
    else if (choice.symbol.size() <= 16)
        group.hall = choice.key.field();
    group.setting = from_hall_text;
    if (err_symm) return;
    expand_list(list, group);
    group.num_gen = list.generator_count;
}

/// Generators besides inversion and centring of a tabulated group, by its crystal class.
int tabulated_generators(int number) {
    struct Range {
        int last;
        int generators;
    };
    constexpr std::array<Range, 10> ranges{{{2, 0},
                                            {15, 1},
                                            {74, 2},
                                            {88, 1},
                                            {142, 2},
                                            {148, 1},
                                            {167, 2},
                                            {176, 1},
                                            {194, 2},
                                            {230, 3}}};
    return std::ranges::find_if(ranges, [=](Range r) { return number <= r.last; })->generators;
}

void build_from_symbol(std::string_view spacegen, const Choice& choice, Space_Group_Type& group) {
    const SpgrRow* row = choice.setting();
    const std::size_t colon = spacegen.find(':');
    const bool by_hall = colon != std::string_view::npos && row;
    const ReducedList list =
        by_hall ? get_so_from_hall(row->hall.field()) : get_so_from_hms(spacegen.substr(0, colon));
    if (row)
        take_row(*row, group);
    else
        group.spg_symb = spacegen;
    group.setting = by_hall ? from_hall_text : from_symbol_text;
    if (err_symm) return;
    expand_list(list, group);
    if (!by_hall) group.centre_coord = {};
    group.num_gen = by_hall ? list.generator_count : row ? tabulated_generators(row->n) : 0;
}

/// Takes the text up to the next semicolon off the list, 20 characters of it.
FixedText<20> next_generator(std::string_view& list) {
    const std::size_t end = std::min(list.find(';'), list.size());
    const FixedText<20> generator = list.substr(0, end);
    list.remove_prefix(std::min(end + 1, list.size()));
    return generator;
}

void build_from_it(std::string_view spacegen, const Choice& choice, Space_Group_Type& group) {
    std::string_view texts = symmetry_tables::get_generators(choice.key.field());
    if (symmetry_tables::err_symtab) {
        set_err_symm(" Problems in SpaceGroup: " + std::string(choice.key.trimmed()) +
                     " => the HM symbol or the number is incorrect ;");
        return;
    }
    const auto count = static_cast<std::size_t>(std::ranges::count(texts, ';')) + 1;
    OperatorList ops;
    for (std::size_t i = 0; i < count; ++i) {
        read_xsym(next_generator(texts).field(), 1, ops[i].rot, &ops[i].tr);
        if (err_symm) return;
    }
    const ReducedList list = get_so_from_gener(std::span(ops).first(count));
    const SpgrRow* row = choice.setting();
    if (row)
        take_row(*row, group);
    else
        group.spg_symb = spacegen;
    group.setting = from_it_text;
    if (err_symm) return;
    expand_list(list, group);
    group.num_gen = row ? list.generator_count : 0;
}

void fill_wyckoff(Space_Group_Type& group) {
    if (group.spg_symb.blank()) return;
    const WyckoffRow* row = find_wyckoff_row(group.spg_symb.field());
    if (!row || row->norbit == 0) return;
    group.wyckoff.num_orbit = row->norbit;
    // An orbit without centring is no longer than the list without it.
    const auto longest = std::min(
        static_cast<std::size_t>(group.num_ops * (group.centred == 1 ? 1 : 2)), max_orbit_texts);
    for (std::size_t i = 0; i < static_cast<std::size_t>(row->norbit); ++i) {
        Wyck_Pos_Type& position = group.wyckoff.orbit[i];
        position.norb = wyckoff_orbit(group, row->orbit[i].field(),
                                      std::span(position.str_orbit).first(longest));
        position.multp = position.norb * group.num_lat;
    }
}

std::span<const FixedText<40>> texts_in_use(const Space_Group_Type& group) {
    const int count = std::clamp(group.multip, 0, static_cast<int>(max_operators));
    return std::span(group.sym_op_text).first(static_cast<std::size_t>(count));
}

}  // namespace

void set_spacegroup(std::string_view spacegen, Space_Group_Type& group,
                    const SpacegroupOptions& options) {
    init_err_symm();
    make_fresh(group);
    symmetry_tables::set_spgr_info();
    symmetry_tables::set_wyckoff_info();
    Choice choice;
    choice.symbol = without_blanks_around(spacegen);
    choice.key = raised_field<20>(spacegen);
    if (options.mode)
        choose_by_mode(*options.mode, choice);
    else if (!choose_freely(options, choice))
        return;

    const std::string_view mode = choice.mode.field();
    if (mode == "FIX")
        build_from_fix(options, group);
    else if (mode == "GEN")
        build_from_gen(options, group);
    else if (mode == "HAL")
        build_from_hall(choice, group);
    else if (mode == "HMS")
        build_from_symbol(spacegen, choice, group);
    else if (mode == "ITC")
        build_from_it(spacegen, choice, group);
    else
        set_err_symm(" Problems in SpaceGroup");
    if (err_symm) return;
    if (!choice.setting()) get_laue_pg(group, group.laue, group.pg);
    fill_wyckoff(group);
}

bool spgr_equal(const Space_Group_Type& a, const Space_Group_Type& b) {
    return a.multip != 0 && a.multip == b.multip &&
           string_utilities::equal_sets_text(texts_in_use(a), texts_in_use(b));
}

}  // namespace crystallographic_symmetry
