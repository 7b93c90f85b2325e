#include "crystal/crystallographic_symmetry/from_hall.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/crystallographic_symmetry/operator_tables.hpp"
#include "crystal/string_utilities.hpp"

#include <algorithm>
#include <optional>
#include <string>

namespace crystallographic_symmetry {
namespace {

constexpr char prime = '\'';
constexpr char double_prime = '"';
constexpr char star = '*';
constexpr char no_axis = ' ';
constexpr std::size_t max_generators = 4;

struct Generator {
    Matrix3i rot{};
    Vector3i tr{};  ///< twelfths
};

/// A token taken apart; its matrix isn't looked up yet.
struct Token {
    bool improper = false;
    int order = 0;  ///< 1, 2, 3, 4 or 6
    char axis = no_axis;
    int screw = 0;  ///< twelfths along the axis
    Vector3i tr{};  ///< twelfths
};

constexpr bool is_cell_axis(char axis) { return axis >= 'X' && axis <= 'Z'; }

/// Translation letters, twelfths of a, b, c.
std::optional<Vector3i> letter_translation(char c) {
    switch (c) {
        case 'A':
            return Vector3i{6, 0, 0};
        case 'B':
            return Vector3i{0, 6, 0};
        case 'C':
            return Vector3i{0, 0, 6};
        case 'N':
            return Vector3i{6, 6, 6};
        case 'U':
            return Vector3i{3, 0, 0};
        case 'V':
            return Vector3i{0, 3, 0};
        case 'W':
            return Vector3i{0, 0, 3};
        case 'D':
            return Vector3i{3, 3, 3};
        default:
            return std::nullopt;
    }
}

struct AxisRotation {
    int order;
    char axis;
    Matrix3i rot;
};

constexpr AxisRotation axis_rotations[] = {
    {1, 'X', matrix_of("x,y,z")},    {1, 'Y', matrix_of("x,y,z")},
    {1, 'Z', matrix_of("x,y,z")},    {2, 'X', matrix_of("x,-y,-z")},
    {2, 'Y', matrix_of("-x,y,-z")},  {2, 'Z', matrix_of("-x,-y,z")},
    {3, 'X', matrix_of("x,-z,y-z")}, {3, 'Y', matrix_of("-x+z,y,-x")},
    {3, 'Z', matrix_of("-y,x-y,z")}, {3, star, matrix_of("z,x,y")},
    {4, 'X', matrix_of("x,-z,y")},   {4, 'Y', matrix_of("z,y,-x")},
    {4, 'Z', matrix_of("-y,x,z")},   {6, 'X', matrix_of("x,y-z,y")},
    {6, 'Y', matrix_of("z,y,-x+z")}, {6, 'Z', matrix_of("x-y,x,z")},
};

/// Two-fold axes along a face diagonal, by the axis of the first generator.
struct DiagonalRotation {
    char previous;
    char axis;
    Matrix3i rot;
};

constexpr DiagonalRotation diagonal_rotations[] = {
    {'X', prime, matrix_of("-x,-z,-y")},  {'X', double_prime, matrix_of("-x,z,y")},
    {'Y', prime, matrix_of("-z,-y,-x")},  {'Y', double_prime, matrix_of("z,-y,x")},
    {'Z', prime, matrix_of("-y,-x,-z")},  {'Z', double_prime, matrix_of("y,x,-z")},
    {star, prime, matrix_of("-y,-x,-z")},
};

const Matrix3i* find_rotation(int order, char axis, char first_axis) {
    for (const AxisRotation& row : axis_rotations)
        if (row.order == order && row.axis == axis) return &row.rot;
    if (order != 2) return nullptr;
    for (const DiagonalRotation& row : diagonal_rotations)
        if (row.previous == first_axis && row.axis == axis) return &row.rot;
    return nullptr;
}

/// Axis, screw and translation behind the order. False for a character that has no business there.
bool read_modifiers(std::string_view text, Token& token) {
    for (const char c : text) {
        if (is_cell_axis(c) || c == prime || c == double_prime || c == star) {
            token.axis = c;
        } else if (const auto letter = letter_translation(c)) {
            token.tr = token.tr + *letter;
        } else if (c >= '1' && c <= '5' && token.order >= 3) {
            // A screw part replaces the translations before it.
            token.tr = {};
            token.screw = (c - '0') * 12 / token.order;
        } else {
            return false;
        }
    }
    return true;
}

std::optional<Token> read_token(std::string_view text) {
    Token token;
    token.improper = text.starts_with('-');
    if (token.improper) text.remove_prefix(1);
    constexpr std::string_view orders = "12346";
    if (text.empty() || orders.find(text[0]) == std::string_view::npos) return std::nullopt;
    token.order = text[0] - '0';
    if (!read_modifiers(text.substr(1), token)) return std::nullopt;
    return token;
}

/// The axis that a token without one means, by its place among the generators, from 0.
char default_axis(std::size_t place, int order, int previous_order) {
    if (place == 0) return 'Z';
    const bool hexagonal = previous_order == 3 || previous_order == 6;
    if (place == 1 && order == 2 && hexagonal) return prime;
    if (place == 2 && order == 3) return star;
    return 'X';
}

/// Generators of the symbol in turn, each read with what the ones before it leave open.
class GeneratorReader {
public:
    std::optional<Generator> read(std::string_view text) {
        std::optional<Token> token = read_token(text);
        if (!token) return std::nullopt;
        if (token->axis == no_axis)
            token->axis = default_axis(place_, token->order, previous_order_);
        const Matrix3i* rot = find_rotation(token->order, token->axis, first_axis_);
        if (!rot || (token->screw != 0 && !is_cell_axis(token->axis))) return std::nullopt;
        if (token->screw != 0)
            token->tr[static_cast<std::size_t>(token->axis - 'X')] += token->screw;
        if (place_ == 0) first_axis_ = token->axis;
        previous_order_ = token->order;
        ++place_;
        const Matrix3i& m = *rot;
        return Generator{token->improper ? Matrix3i{-m[0], -m[1], -m[2]} : m, token->tr};
    }

private:
    std::size_t place_ = 0;
    char first_axis_ = no_axis;
    int previous_order_ = 0;
};

/// The three entries between parentheses, twelfths; absent when there are fewer.
std::optional<Vector3i> read_shift(std::string_view text) {
    Vector3i shift{};
    std::size_t entry = 0;
    int sign = 1;
    for (const char c : text) {
        if (entry == 3) break;
        if (c == ' ') continue;
        if (c == '-') {
            sign = -1;
            continue;
        }
        shift[entry++] = c >= '1' && c <= '5' ? sign * (c - '0') : 0;
        sign = 1;
    }
    if (entry < 3) return std::nullopt;
    return shift;
}

/// V G V^-1 with V the translation by `shift`.
Vector3i shifted(const Generator& generator, const Vector3i& shift) {
    Vector3i tr = generator.tr + shift;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) tr[i] -= generator.rot[i][j] * shift[j];
    return tr;
}

struct Symbol {
    std::array<Generator, max_generators> generators;
    std::size_t count = 0;
    Vector3i shift{};
};

/// What stands behind the lattice letter; absent when a generator or the shift can't be read.
std::optional<Symbol> read_generators(std::string_view text) {
    Symbol symbol;
    const std::size_t open = std::min(text.find('('), text.size());
    const std::size_t close = std::min(text.find(')', open), text.size());
    if (open < text.size()) {
        const auto shift = read_shift(text.substr(open + 1, close - open - 1));
        if (!shift) return std::nullopt;
        symbol.shift = *shift;
    }
    // The shift stands last by custom, and yet a generator may follow it.
    GeneratorReader reader;
    for (std::string_view rest :
         {text.substr(0, open), text.substr(std::min(close + 1, text.size()))})
        while (symbol.count < max_generators) {
            const std::string_view token = string_utilities::cutst(rest);
            if (token.empty()) break;
            const std::optional<Generator> generator = reader.read(token);
            if (!generator) return std::nullopt;
            symbol.generators[symbol.count++] = *generator;
        }
    return symbol;
}

/// Takes the inversion off the symbol: its translation in twelfths, absent when it has none. It
/// stands in front, or as "-1n" behind the generators; what follows it up to a shift is lost.
std::optional<Vector3i> take_inversion(std::string& symbol) {
    if (symbol.starts_with('-')) {
        symbol.erase(0, 1);
        return Vector3i{};
    }
    const std::size_t end = std::min(symbol.find('('), symbol.size());
    const std::size_t found = symbol.find("-1");
    if (found >= end) return std::nullopt;
    Vector3i sum{};
    for (const char c : std::string_view(symbol).substr(found + 2, end - found - 2))
        if (const auto letter = letter_translation(c)) sum = sum + *letter;
    // One blank before it goes too; the lattice letter stays in any case.
    const std::size_t begin = found > 1 ? found - 1 : 1;
    symbol.erase(begin, end - begin);
    return sum;
}

void place_inversion(const Vector3i& translation, ReducedList& list) {
    const Vector3i tr = folded_twelfths(translation);
    list.centred = tr == Vector3i{} ? 2 : 0;
    list.centre_coord = 0.5f * cell_fractions(tr);
}

bool close_group(const Symbol& symbol, ReducedList& list) {
    GroupTable table(centring_twelfths(list.lattice_index));
    for (std::size_t i = 0; i < symbol.count; ++i) {
        const Generator& generator = symbol.generators[i];
        if (!table.add(generator.rot, shifted(generator, symbol.shift))) return false;
    }
    if (!table.close()) return false;
    list.generator_count = static_cast<int>(symbol.count);
    table.copy_to(list, table.size());
    return true;
}

}  // namespace

ReducedList get_so_from_hall(std::string_view hall) {
    init_err_symm();
    ReducedList list;
    list.generator_count = 1;
    std::string symbol = string_utilities::u_case(without_blanks_around(hall));
    const std::optional<Vector3i> inversion = take_inversion(symbol);
    // Z is no letter of Hall's.
    const std::size_t lattice =
        symbol.empty() ? std::string_view::npos : lattice_letters.substr(0, 7).find(symbol[0]);
    if (lattice == std::string_view::npos) {
        set_err_symm(" IBRAVL is Equal Zero");
        return list;
    }
    list.lattice_index = static_cast<int>(lattice) + 1;
    const std::optional<Symbol> parsed = read_generators(std::string_view(symbol).substr(1));
    if (!parsed) {
        set_err_symm("");
        return list;
    }
    // A shift moves the inversion as it moves the generators: by V (-1) V^-1.
    if (inversion) place_inversion(*inversion + 2 * parsed->shift, list);
    if (!close_group(*parsed, list)) return list;
    const CrystalSystem system =
        get_crystal_system_r_op(std::span(list.ops).first(static_cast<std::size_t>(list.count)));
    list.crystal_system = system.index;
    if (err_symm) return list;
    latsym(std::string_view(symbol).substr(0, 1));
    list.lat_symbol[0] = system.letter;
    list.lat_symbol[1] = symbol[0];
    lat_symbol = list.lat_symbol;
    return list;
}

}  // namespace crystallographic_symmetry
