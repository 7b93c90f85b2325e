#include "crystal/crystallographic_symmetry/group_properties.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/math_gen.hpp"
#include "crystal/string_utilities.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace crystallographic_symmetry {
namespace {

constexpr std::array<std::string_view, 16> laue_names{
    "-1",   "2/m",  "mmm", "4/m",   "4/mmm", "-3 R", "-3m R", "-3",
    "-3m1", "-31m", "6/m", "6/mmm", "m-3",   "m-3m", "m3",    "m3m"};

constexpr std::array<std::string_view, 39> pointgroup_names{
    "1",   "-1",   "2",    "m",     "2/m", "222",  "mm2",  "m2m",   "2mm", "mmm",
    "4",   "-4",   "4/m",  "422",   "4mm", "-42m", "-4m2", "4/mmm", "3",   "-3",
    "32",  "3m",   "-3m",  "312",   "31m", "-31m", "6",    "-6",    "6/m", "622",
    "6mm", "-62m", "-6m2", "6/mmm", "23",  "m-3",  "432",  "-43m",  "m-3m"};

/// Place in a list of names, from 1; 0 for none.
int place_of(std::string_view name, std::span<const std::string_view> names) {
    const auto found = std::ranges::find(names, without_blanks_around(name));
    return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

/// How many operators there are of each rotation order.
class OrderCount {
public:
    /// False when one of them is no rotation; the rest is then not counted.
    bool count(std::span<const Sym_Oper_Type> ops) {
        for (const Sym_Oper_Type& op : ops) {
            const int order = axes_rotation(op.rot);
            if (order == 0) return false;
            ++of_order_[static_cast<std::size_t>(order + 6)];
        }
        return true;
    }
    int of(int order) const { return of_order_[static_cast<std::size_t>(order + 6)]; }
    /// Proper and improper together.
    int both(int order) const { return of(order) + of(-order); }

private:
    std::array<int, 13> of_order_{};
};

void set_lattice_points(std::span<const Vector3f> behind_origin) {
    const std::size_t count = std::min(behind_origin.size(), max_lattice_points - 1);
    std::copy_n(behind_origin.begin(), count, lat_trans.begin() + 1);
    num_lat = static_cast<int>(count) + 1;
}

/// What the counts of a group say about its class.
struct ClassNames {
    std::string_view pg;
    std::string_view laue;
};

struct ClassCounts {
    std::span<const Sym_Oper_Type> ops;
    OrderCount n;
    bool acentric = true;
    bool hexa = false;

    int total() const { return static_cast<int>(ops.size()); }
};

/// Row of the first operator of this order among the tabulated rotations, counted on behind the
/// last row for the inverted ones: 13 to 24 for the hexagonal rows 25 to 36, 25 to 48 for rows 1
/// to 24. 0 for a rotation in other directions (mm2 on hexagonal axes), which is no error.
int row_of_first(const ClassCounts& counts, int order, int first_row, int last_row) {
    const auto op = std::ranges::find_if(
        counts.ops, [&](const Sym_Oper_Type& o) { return axes_rotation(o.rot) == order; });
    if (op == counts.ops.end()) return 0;
    const int row = searchop(op->rot, first_row, last_row);
    if (row == 0) init_err_symm();
    if (row >= 0) return row;
    return first_row == 25 ? -12 - row : 24 - row;
}
int hexagonal_row(const ClassCounts& counts, int order) {
    return row_of_first(counts, order, 25, 36);
}
int cubic_row(const ClassCounts& counts, int order) { return row_of_first(counts, order, 1, 24); }

ClassNames cubic_class(const ClassCounts& c) {
    if (c.total() == 12) return {c.acentric ? "23" : "m-3", "m-3"};
    if (c.total() != 24) return {};
    if (!c.acentric) return {"m-3m", "m-3m"};
    if (c.n.of(4) == 6) return {"432", "m-3m"};
    if (c.n.of(-4) == 6) return {"-43m", "m-3m"};
    return {};
}

ClassNames hexagonal_class(const ClassCounts& c) {
    if (c.total() == 6) {
        if (!c.acentric) return {"6/m", "6/m"};
        return {c.n.of(6) == 2 ? "6" : c.n.of(-6) == 2 ? "-6" : "", "6/m"};
    }
    if (c.total() != 12) return {};
    if (!c.acentric) return {"6/mmm", "6/mmm"};
    if (c.n.of(-6) == 2) return {hexagonal_row(c, 2) == 31 ? "-62m" : "-6m2", "6/mmm"};
    return {c.n.of(2) == 7 ? "622" : c.n.of(-2) == 6 ? "6mm" : "", "6/mmm"};
}

/// On hexagonal axes the diagonal direction is told from the other by the first operator listed.
ClassNames trigonal_class_on_hexagonal_axes(const ClassCounts& c) {
    if (!c.acentric)
        return hexagonal_row(c, -2) == 22 ? ClassNames{"-31m", "-31m"} : ClassNames{"-3m", "-3m"};
    // "-32" and "-312" are the names users of such groups know; the tables have "32" and "312".
    if (c.n.of(2) == 3)
        return hexagonal_row(c, 2) == 34 ? ClassNames{"-312", "-31m"} : ClassNames{"-32", "-3m"};
    if (c.n.of(-2) == 3)
        return hexagonal_row(c, -2) == 22 ? ClassNames{"31m", "-31m"} : ClassNames{"3m", "-3m"};
    return {};
}

ClassNames trigonal_class(const ClassCounts& c) {
    if (c.total() == 3) return {c.acentric ? "3" : "-3", "-3"};
    if (c.total() != 6) return {};
    if (c.hexa) return trigonal_class_on_hexagonal_axes(c);
    if (!c.acentric) return {"-3m", "-3m"};
    return {c.n.of(2) == 3 ? "32" : c.n.of(-2) == 3 ? "3m" : "", "-3m"};
}

ClassNames tetragonal_class(const ClassCounts& c) {
    if (c.total() == 4) {
        if (!c.acentric) return {"4/m", "4/m"};
        return {c.n.of(4) == 2 ? "4" : c.n.of(-4) == 2 ? "-4" : "", "4/m"};
    }
    if (c.total() != 8) return {};
    if (!c.acentric) return {"4/mmm", "4/mmm"};
    // Row 28 is the mirror normal to a.
    if (c.n.of(-4) == 2) return {cubic_row(c, -2) == 28 ? "-4m2" : "-42m", "4/mmm"};
    return {c.n.of(2) == 5 ? "422" : c.n.of(-2) == 4 ? "4mm" : "", "4/mmm"};
}

ClassNames orthorhombic_class(const ClassCounts& c) {
    if (!c.acentric) return {"mmm", "mmm"};
    if (c.n.of(2) == 3) return {"222", "mmm"};
    if (c.n.of(-2) != 2) return {};
    const int axis = cubic_row(c, 2);
    return {axis == 3 ? "m2m" : axis == 4 ? "2mm" : "mm2", "mmm"};
}

ClassNames class_of(const ClassCounts& c) {
    if (c.n.both(3) == 8) return cubic_class(c);
    if (c.n.both(6) == 2) return hexagonal_class(c);
    if (c.n.both(3) == 2) return trigonal_class(c);
    if (c.n.both(4) == 2) return tetragonal_class(c);
    if (c.n.both(2) == 3) return orthorhombic_class(c);
    if (c.n.both(2) == 1) return {!c.acentric ? "2/m" : c.n.of(2) == 1 ? "2" : "m", "2/m"};
    if (c.total() == 1) return {c.acentric ? "1" : "-1", "-1"};
    return {};
}

}  // namespace

int axes_rotation(const Matrix3i& rot) {
    const int determinant = math_gen::determ_a_i(rot);
    if (determinant != 1 && determinant != -1) return 0;
    // The trace of a rotation by 360/n degrees is 1 + 2 cos; an improper one has it negated.
    switch (determinant * math_gen::traza_i(rot)) {
        case 3:
            return determinant;
        case 2:
            return determinant * 6;
        case 1:
            return determinant * 4;
        case 0:
            return determinant * 3;
        case -1:
            return determinant * 2;
        default:
            return 0;
    }
}

std::string_view crystal_system_name(int index) {
    constexpr std::array<std::string_view, 7> names{"Triclinic",  "Monoclinic",   "Orthorhombic",
                                                    "Tetragonal", "Rhombohedral", "Hexagonal",
                                                    "Cubic"};
    return index >= 1 && index <= 7 ? names[static_cast<std::size_t>(index - 1)] : "";
}

CrystalSystem get_crystal_system_r_op(std::span<const Sym_Oper_Type> ops) {
    OrderCount n;
    if (!n.count(ops)) {
        set_err_symm(" Axes rotation wrong");
        return {};
    }
    if (n.both(3) == 8) return {7, 'c'};
    if (n.both(6) == 2) return {6, 'h'};
    if (n.both(3) == 2) return {5, 'h'};
    if (n.both(4) == 2) return {4, 't'};
    if (n.both(2) == 3) return {3, 'o'};
    if (n.both(2) == 1) return {2, 'm'};
    return {1, 'a'};
}

CrystalSystem get_crystal_system_r_st(std::span<const FixedText<40>> texts) {
    std::array<Sym_Oper_Type, max_operators> ops;
    const std::size_t count = std::min(texts.size(), ops.size());
    for (std::size_t i = 0; i < count; ++i) {
        read_xsym(texts[i].field(), 1, ops[i].rot, &ops[i].tr);
        if (err_symm) return {};
    }
    return get_crystal_system_r_op(std::span(ops).first(count));
}

int latsym(std::string_view lattice, std::optional<std::span<const Vector3f>> vectors) {
    init_err_symm();
    num_lat = 1;
    lat_trans[0] = {};
    const std::size_t place = lattice.find_first_not_of("- ");
    const char letter =
        place == std::string_view::npos ? ' ' : string_utilities::raised(lattice[place]);
    const std::size_t index = lattice_letters.find(letter);
    if (index == std::string_view::npos) {
        set_err_symm(std::string("Wrong Lattice Symbol ") + letter);
        return 0;
    }
    if (letter == 'Z' && !vectors) {
        set_err_symm("Unconventional Lattice Symbol Z needs centring vectors");
        return 0;
    }
    set_lattice_points(letter == 'Z' ? *vectors : centring_vectors(letter));
    lat_type[0] = letter;
    return static_cast<int>(index) + 1;
}

void get_laue_pg(const Space_Group_Type& group, FixedText<5>& laue, FixedText<5>& pg) {
    laue = {};
    pg = {};
    init_err_symm();
    if (group.num_ops <= 0) return set_err_symm(" No symmetry operators are given");
    const std::size_t count =
        std::min(static_cast<std::size_t>(group.num_ops), group.sym_op.size());
    ClassCounts counts{std::span(group.sym_op).first(count), {}, group.centred == 1, group.hexa};
    if (!counts.n.count(counts.ops)) return set_err_symm(" Rotation Not Determined");
    const ClassNames names = class_of(counts);
    if (names.pg.empty()) return;
    pg = names.pg;
    laue = names.laue;
}

int get_laue_num(std::string_view laue) { return place_of(laue, laue_names); }
int get_pointgroup_num(std::string_view pg) { return place_of(pg, pointgroup_names); }

std::string_view get_laue_str(int number) {
    if (number < 1 || number > 16) return " Laue Number Incorrect";
    return laue_names[static_cast<std::size_t>(number - 1)];
}

std::string_view get_pointgroup_str(int number) {
    if (number < 1 || number > 39) return " Point Group Number Incorrect";
    return pointgroup_names[static_cast<std::size_t>(number - 1)];
}

bool is_hexa(std::span<const Sym_Oper_Type> ops) {
    const auto column_sum = [](const Matrix3i& m, std::size_t column) {
        return std::abs(m[0][column]) + std::abs(m[1][column]) + std::abs(m[2][column]);
    };
    return std::ranges::any_of(ops.size() > 1 ? ops.subspan(1) : std::span<const Sym_Oper_Type>{},
                               [&](const Sym_Oper_Type& op) {
                                   return column_sum(op.rot, 0) > 1 || column_sum(op.rot, 1) > 1;
                               });
}

}  // namespace crystallographic_symmetry
