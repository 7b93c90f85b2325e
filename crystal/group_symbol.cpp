#include "crystal/group_symbol.hpp"

#include "crystal/crystallographic_symmetry/from_generators.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/string_utilities.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

namespace group_symbol {
namespace {

using namespace crystallographic_symmetry;
using symmetry_tables::SpgrRow;

/// Upper case, without blanks and underscores, and without the parentheses that some programs write
/// for an index: "P 2(1)/c".
std::string squeezed(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view next = text.substr(i, 3);
        const bool index = next.size() == 3 && next[0] == '(' && next[2] == ')' && next[1] >= '1' &&
                           next[1] <= '5';
        if (index) i += 2;
        const char c = index ? next[1] : next[0];
        if (c != ' ' && c != '_') result += string_utilities::raised(c);
    }
    return result;
}

/// A spelling and the row that it means.
struct Spelling {
    std::string text;
    const SpgrRow* row;
};
using Spellings = std::vector<Spelling>;

/// ":2" and ":H" behind a bare symbol, where the other choice has a row of its own.
void add_default_choice(const SpgrRow& row, const std::string& symbol, Spellings& spellings) {
    const auto has_row = [&row](const std::string& text) {
        return std::ranges::any_of(symmetry_tables::spgr_rows(), [&](const SpgrRow& other) {
            return other.n == row.n && squeezed(other.hm.field()) == text;
        });
    };
    if (row.inf_extra[0] == '2' || has_row(symbol + ":1"))
        spellings.push_back({symbol + ":2", &row});
    if (row.inf_extra[0] == 'H') spellings.push_back({symbol + ":H", &row});
}

/// "48:2": only the codes that name nothing but the choice, so that a number stays in its
/// conventional setting.
void add_number(const SpgrRow& row, Spellings& spellings) {
    const std::string_view code = row.inf_extra.trimmed();
    if (code == "1" || code == "2" || code == "R" || code == "H")
        spellings.push_back({std::to_string(row.n) + ':' + std::string(code), &row});
}

/// A plane of two glides at right angles is normal to the axis that its centring letter names, and
/// the symbol's second, third or fourth letter stands for it: "A e m 2", "B m e 2", "C m c e".
void add_double_glide(const SpgrRow& row, std::string symbol, Spellings& spellings) {
    constexpr std::array<int, 5> groups{39, 41, 64, 67, 68};
    if (std::ranges::find(groups, row.n) == groups.end()) return;
    symbol[static_cast<std::size_t>(symbol[0] - 'A') + 1] = 'E';
    spellings.push_back({symbol, &row});
    if (symbol.find(':') == std::string::npos) add_default_choice(row, symbol, spellings);
}

/// "F D 3 M:1" for "F D -3 M:1": the table has the old spelling of the bare symbol only.
void add_old_cubic_choice(const SpgrRow& row, std::string symbol, Spellings& spellings) {
    const std::size_t axis = symbol.find("-3");
    if (row.n < 200 || axis == std::string::npos) return;
    spellings.push_back({symbol.erase(axis, 1), &row});
}

/// The choice as one letter behind the symbol, the way published files write it: "R -3 C H". S and
/// Z are the origins that others call 1 and 2.
void add_choice_letters(Spellings& spellings) {
    constexpr std::string_view codes = "12HR", letters = "SZHR";
    for (std::size_t i = 0, count = spellings.size(); i < count; ++i) {
        std::string text = spellings[i].text;
        if (text.size() < 3 || text[0] < 'A' || text[text.size() - 2] != ':') continue;
        const std::size_t code = codes.find(text.back());
        if (code == std::string_view::npos) continue;
        text.replace(text.size() - 2, 2, 1, letters[code]);
        spellings.push_back({std::move(text), spellings[i].row});
    }
}

/// All that the table's rows are called, sorted; of equal texts, the one that is nearest to the
/// table first.
Spellings all_spellings() {
    Spellings spellings;
    const auto rows = symmetry_tables::spgr_rows();
    for (const SpgrRow& row : rows) spellings.push_back({squeezed(row.hm.field()), &row});
    for (const SpgrRow& row : rows) {
        const std::string symbol = squeezed(row.hm.field());
        if (symbol.find(':') == std::string::npos)
            add_default_choice(row, symbol, spellings);
        else
            add_old_cubic_choice(row, symbol, spellings);
        add_number(row, spellings);
        add_double_glide(row, symbol, spellings);
    }
    add_choice_letters(spellings);
    std::ranges::stable_sort(spellings, {}, &Spelling::text);
    return spellings;
}

bool is_tabulated(std::string_view text) {
    const std::string raised = string_utilities::u_case(text);
    return std::ranges::any_of(symmetry_tables::spgr_rows(), [&](const SpgrRow& row) {
        return raised == row.hm.trimmed() || raised == string_utilities::u_case(row.hall.trimmed());
    });
}

/// Whether the group of `list`, the last that was closed, has this operator.
bool holds(const ReducedList& list, const Sym_Oper_Type& op) {
    const std::span vectors = std::span(lat_trans).first(static_cast<std::size_t>(num_lat));
    const auto on_lattice = [&](const Vector3f& tr) {
        return std::ranges::any_of(
            vectors, [&](const Vector3f& v) { return twelfths(tr - v) == Vector3i{}; });
    };
    return std::ranges::any_of(std::span(list.ops).first(static_cast<std::size_t>(list.count)),
                               [&](const Sym_Oper_Type& known) {
                                   if (known.rot == op.rot) return on_lattice(op.tr - known.tr);
                                   return list.centred != 1 && known.rot == -op.rot &&
                                          on_lattice(op.tr + known.tr - 2.0f * list.centre_coord);
                               });
}

/// All that the record says of the group, in the order in which people tell it.
std::vector<Sym_Oper_Type> told_operators(const Space_Group_Type& group) {
    std::vector<Sym_Oper_Type> told;
    const int points = std::clamp(group.num_lat, 1, static_cast<int>(max_lattice_points));
    for (int i = 1; i < points; ++i)
        told.push_back({identity_rotation, group.lat_trans[static_cast<std::size_t>(i)]});
    const int count = std::clamp(group.multip, 0, static_cast<int>(max_operators));
    for (const Sym_Oper_Type& op : std::span(group.sym_op).first(static_cast<std::size_t>(count)))
        if (op.rot != Matrix3i{}) told.push_back(op);  // a cell of many points isn't filled
    return told;
}

}  // namespace

std::string table_text(std::string_view written) {
    static const Spellings spellings = all_spellings();
    if (is_tabulated(without_blanks_around(written))) return std::string(written);
    const std::string text = squeezed(written);
    const auto found = std::ranges::lower_bound(spellings, text, {}, &Spelling::text);
    if (found == spellings.end() || found->text != text) return std::string(written);
    return std::string(found->row->hm.trimmed());
}

std::string shown(const Space_Group_Type& group) {
    if (group.multip <= 0) return {};
    if (group.num_spg > 0) return std::string(group.spg_symb.trimmed());
    if (group.hall.blank() || group.hall == Space_Group_Type{}.hall) return {};
    // A Hall symbol that someone could take for another group's symbol tells nothing.
    const std::string hall(group.hall.trimmed());
    return table_text(hall) == hall ? hall : std::string{};
}

std::vector<std::string> generators(const Space_Group_Type& group) {
    std::vector<Sym_Oper_Type> chosen;
    ReducedList list = get_so_from_gener(chosen);
    for (const Sym_Oper_Type& op : told_operators(group)) {
        if (holds(list, op)) continue;
        chosen.push_back(op);
        list = get_so_from_gener(chosen);
    }
    init_err_symm();
    if (chosen.empty() && group.multip > 0) chosen.push_back({identity_rotation, {}});
    std::vector<std::string> texts;
    for (const Sym_Oper_Type& op : chosen) {
        FixedText<40> text;
        get_symsymb(op.rot, op.tr, text);
        texts.emplace_back(text.trimmed());
    }
    return texts;
}

}  // namespace group_symbol
