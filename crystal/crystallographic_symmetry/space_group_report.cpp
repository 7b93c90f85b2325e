#include "common/number_field.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "crystal/crystallographic_symmetry/symmetry_element.hpp"
#include "crystal/string_utilities.hpp"

#include <algorithm>
#include <array>
#include <ostream>
#include <string>

namespace crystallographic_symmetry {
namespace {

void line(std::ostream& out, std::string_view label, std::string_view value) {
    out << label << value << '\n';
}

std::string number(int value, int width = 0) { return number_field::integer(value, width); }

std::string real(float value) { return number_field::fixed(static_cast<double>(value), 8, 4); }

void write_bounds(const Space_Group_Type& group, std::ostream& out) {
    const auto& box = group.asym_unit;
    constexpr std::array<std::string_view, 3> between{" <= x <= ", " <= y <= ", " <= z <= "};
    constexpr std::string_view label = " =>        Asymmetric unit: ";
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string bounds = real(box[i]) + std::string(between[i]) + real(box[i + 3]);
        line(out, i == 0 ? label : std::string(label.size(), ' '), bounds);
    }
}

void write_header(const Space_Group_Type& group, std::ostream& out) {
    out << "        Information on Space Group: \n"
           "        --------------------------- \n\n";
    line(out, " =>  Number of Space group: ", number(group.num_spg));
    line(out, " => Hermann-Mauguin Symbol: ", group.spg_symb.trimmed());
    line(out, " =>            Hall Symbol: ", group.hall.trimmed());
    line(out, " =>   Table Setting Choice: ", group.info.trimmed());
    line(out, " =>           Setting Type: ", group.setting.trimmed());
    line(out, " =>         Crystal System: ", group.crystal_sys.trimmed());
    line(out, " =>             Laue Class: ", group.laue.trimmed());
    line(out, " =>            Point Group: ", group.pg.trimmed());
    line(out, " =>        Bravais Lattice: ", group.bravais.trimmed());
    line(out, " =>         Lattice Symbol: ", group.lat_symbol.trimmed());
    line(out, " => Reduced Number of S.O.: ", number(group.num_ops));
    line(out, " =>   General multiplicity: ", number(group.multip));
    line(out, " =>         Centrosymmetry: ", group.centre.trimmed());
    line(out, " => Generators (exc. -1&L): ", number(group.num_gen));
    write_bounds(group, out);
    if (group.centred == 0) {
        const FixedText<16> centre = string_utilities::frac_trans_1dig(group.centre_coord);
        line(out, " =>              Centre at: ", centre.trimmed());
    }
}

void write_centring(const Space_Group_Type& group, std::ostream& out) {
    const int points = std::clamp(group.num_lat, 1, static_cast<int>(max_lattice_points));
    if (points == 1) return;
    const bool conventional = group.lat_type != FixedText<1>("Z");
    line(out, "\n",
         conventional ? " => Centring vectors:" : " => Non-conventional Centring vectors:");
    for (int i = 2; i <= points; ++i) {
        const Vector3f& v = group.lat_trans[static_cast<std::size_t>(i - 1)];
        line(out,
             " => Latt(" + number(i - 1) + "): ", string_utilities::frac_trans_2dig(v).trimmed());
    }
}

void write_operators(const Space_Group_Type& group, std::ostream& out, bool full) {
    line(out, "\n",
         full ? " => List of all Symmetry Operators and Symmetry Symbols"
              : " => List of S.O. without inversion and lattice centring translations");
    const int count =
        std::clamp(full ? group.multip : group.num_ops, 0, static_cast<int>(max_operators));
    for (int i = 1; i <= count; ++i) {
        const auto place = static_cast<std::size_t>(i - 1);
        out << " => SYMM(" << number(i, 3) << "): " << group.sym_op_text[place].field()
            << "Symbol: " << symmetry_element(group.sym_op[place]) << '\n';
    }
}

/// "(x,y,z)" texts of one position, as many to a line as fit beside its label.
void write_orbit(const Wyck_Pos_Type& position, std::ostream& out) {
    constexpr int per_line = 3;
    const int count = std::clamp(position.norb, 0, static_cast<int>(max_orbit_texts));
    std::string row =
        number(position.multp, 9) + "     " + std::string(position.site.field()) + "  ";
    const std::string margin(row.size(), ' ');
    for (int i = 0; i < count; ++i) {
        if (i > 0 && i % per_line == 0) {
            line(out, {}, without_trailing_blanks(row));
            row = margin;
        }
        row += '(';
        row += position.str_orbit[static_cast<std::size_t>(i)].trimmed();
        row += ") ";
    }
    line(out, {}, without_trailing_blanks(row));
}

}  // namespace

void write_wyckoff(const Space_Group_Type& group, std::ostream& out) {
    const int count =
        std::clamp(group.wyckoff.num_orbit, 0, static_cast<int>(max_wyckoff_positions));
    if (count == 0) return;
    line(out, "\n => Special Wyckoff Positions for ", group.spg_symb.trimmed());
    out << "\n    Multp     Site        Representative Coordinates (centring translations "
           "excluded)\n";
    for (int i = 0; i < count; ++i)
        write_orbit(group.wyckoff.orbit[static_cast<std::size_t>(i)], out);
}

void write_spacegroup(const Space_Group_Type& group, std::ostream& out, bool full) {
    write_header(group, out);
    write_centring(group, out);
    write_operators(group, out, full);
    write_wyckoff(group, out);
}

}  // namespace crystallographic_symmetry
