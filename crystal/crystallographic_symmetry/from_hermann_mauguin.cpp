#include "crystal/crystallographic_symmetry/from_hermann_mauguin.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/crystallographic_symmetry/hermann_mauguin_elements.hpp"
#include "crystal/string_utilities.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

namespace crystallographic_symmetry {
namespace {

using hermann_mauguin::Direction;
using hermann_mauguin::Element;
using hermann_mauguin::ElementList;
using hermann_mauguin::Symbol;

Direction read_direction(const FixedText<4>& word) {
    Direction direction;
    bool bar = false;
    for (const char c : word.field()) {
        if (c == '-') bar = true;
        if (is_plane(c)) direction.plane = c;
        if (!is_axis(c)) continue;
        (direction.axis == 0 ? direction.axis : direction.screw) = c - '0';
    }
    if (bar) direction.axis = -direction.axis;
    return direction;
}

int find_crystal_system(const Symbol& symbol) {
    const auto& [first, second, third] = symbol.parts;
    for (std::size_t place = 0; place < 4; ++place) {
        if (second[place] == '3') return 7;
        if (first[place] == '3') return 5;
        if (first[place] == '6') return 6;
        if (first[place] == '4') return 4;
    }
    if (symbol.words < 2) return first[0] == '1' || first[0] == '-' ? 1 : 2;
    return first[0] == '1' || second[0] == '1' ? 2 : 3;
}

/// `text` begins with the lattice letter; lattice_index is left to the caller.
Symbol read_words(std::string_view text) {
    Symbol symbol;
    symbol.lattice = text.front();
    std::size_t place = 0;
    bool between_words = true;
    for (const char c : text.substr(1)) {
        if (c == ' ') {
            between_words = true;
            continue;
        }
        if (between_words) {
            symbol.words = std::min<std::size_t>(symbol.words + 1, 3);
            symbol.parts[symbol.words - 1] = {};
            place = 0;
        }
        between_words = false;
        place = std::min<std::size_t>(place + 1, 4);
        symbol.parts[symbol.words - 1][place - 1] = c;
        symbol.slash = symbol.slash || c == '/';
    }
    symbol.crystal_system = find_crystal_system(symbol);
    std::ranges::transform(symbol.parts, symbol.direction.begin(), read_direction);
    return symbol;
}

/// The message of a word that can't be, or an empty text.
std::string repeated_character(const FixedText<4>& word) {
    for (std::size_t i = 0; i < 3; ++i)
        if (word[i] != ' ' && word.field().substr(i + 1).find(word[i]) != std::string_view::npos)
            return std::string(" The symbol: ") + word[i] +
                   " has been repeated within the same symmetry direction";
    return {};
}

std::string neighbours(const FixedText<4>& word) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (is_axis(word[i]) && is_plane(word[i + 1]))
            return " A rotation axis cannot be immediately followed by a plane\r within the same "
                   "symmetry direction";
        if (is_plane(word[i]) && is_axis(word[i + 1]))
            return " A mirror plane cannot be immediately followed by a rotation axis\r within the "
                   "same symmetry direction";
    }
    return {};
}

std::string planes(const FixedText<4>& word) {
    if (std::ranges::count_if(word.field(), is_plane) < 2) return {};
    return " There is more than one plane within the same symmetry direction";
}

std::string screw_axis(const FixedText<4>& word) {
    std::string digits;
    for (const char c : word.field())
        if (is_axis(c)) digits += c;
    if (digits.size() < 2 || digits[0] >= digits[1]) return {};
    return std::string(" Screw axis: ") + digits[0] + ' ' + digits[1] + " not allowed";
}

/// P says nothing of a direction, and yet users may type it there.
std::string characters(const FixedText<4>& word) {
    for (const char c : word.field())
        if (std::string_view("123456ABCDMNP/- ").find(c) == std::string_view::npos)
            return std::string(" The symbol: ") + c + " is not allowed";
    if (word[0] == '5') return " The fivefold axis is not allowed";
    return {};
}

void hand_over(std::span<const Element> elements, bool centric, ReducedList& list) {
    list.count = static_cast<int>(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i)
        list.ops[i] = {elements[i].rot, cell_fractions(elements[i].tr)};
    mod_trans(std::span(list.ops).first(elements.size()), centric ? 0 : 1, &list.centred);
}

}  // namespace

bool is_axis(char c) { return c >= '1' && c <= '6'; }

bool is_plane(char c) { return (c >= 'A' && c <= 'D') || c == 'M' || c == 'N'; }

void check_symbol_hm(const SymbolParts& parts) {
    init_err_symm();
    for (const auto check : {characters, repeated_character, neighbours, planes, screw_axis})
        for (const FixedText<4>& word : parts)
            if (const std::string message = check(word); !message.empty())
                return set_err_symm(message);
}

ReducedList get_so_from_hms(std::string_view symbol) {
    init_err_symm();
    ReducedList list;
    list.count = 1;
    list.ops[0].rot = identity_rotation;
    const std::size_t start = std::min(symbol.find_first_not_of(' '), symbol.size());
    const FixedText<20> text = string_utilities::u_case(FixedText<20>(symbol.substr(start)));
    const std::size_t index = lattice_letters.substr(0, 7).find(text[0]);
    if (index == std::string_view::npos) {
        set_err_symm(" Wrong space-group symbol: " + std::string(text.trimmed()));
        return list;
    }
    Symbol read = read_words(text.field());
    read.lattice_index = static_cast<int>(index) + 1;
    list.lattice_index = read.lattice_index;
    list.crystal_system = read.crystal_system;
    list.lat_symbol[0] = "amothhc"[read.crystal_system - 1];
    list.lat_symbol[1] = read.crystal_system == 6 ? 'P' : read.lattice;
    check_symbol_hm(read.parts);
    if (err_symm) return list;

    latsym(text.columns(1, 1));
    lat_symbol = list.lat_symbol;
    ElementList elements;
    const bool centric = place_elements(read, elements);
    hand_over(elements.elements(), centric, list);
    return list;
}

}  // namespace crystallographic_symmetry
