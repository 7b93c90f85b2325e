#include "crystal/crystallographic_symmetry/operators.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/operator_tables.hpp"
#include "crystal/math_3d.hpp"
#include "crystal/math_gen.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace crystallographic_symmetry {

constinit bool err_symm = false;
constinit FixedText<150> err_symm_mess{};
constinit bool hexa = false;
constinit int num_lat = 0;
constinit std::array<Vector3f, max_lattice_points> lat_trans{};
constinit FixedText<1> lat_type{};
constinit FixedText<2> lat_symbol{};

namespace {

using math_gen::modulo_lat;

std::span<const Vector3f> unconventional_vectors() {
    const auto count =
        static_cast<std::size_t>(std::clamp(num_lat, 1, static_cast<int>(max_lattice_points)));
    return std::span(lat_trans).subspan(1, count - 1);
}

}  // namespace

void init_err_symm() {
    err_symm = false;
    err_symm_mess = {};
}

void set_err_symm(std::string_view message) {
    err_symm = true;
    err_symm_mess = message;
}

Sym_Oper_Type product_symop(const Sym_Oper_Type& a, const Sym_Oper_Type& b) {
    return {a.rot * b.rot, a.rot * b.tr + a.tr};
}

Sym_Oper_Type sym_prod(const Sym_Oper_Type& a, const Sym_Oper_Type& b, bool modlat) {
    Sym_Oper_Type result = product_symop(a, b);
    if (modlat) result.tr = modulo_lat(result.tr);
    return result;
}

FixedText<80> sym_prod_st(std::string_view a, std::string_view b, bool modlat) {
    Sym_Oper_Type left, right;
    read_xsym(a, 1, left.rot, &left.tr);
    const bool failed = err_symm;
    const FixedText<150> message = err_symm_mess;
    read_xsym(b, 1, right.rot, &right.tr);
    // The second reading has cleared what the first one reported.
    if (failed) set_err_symm(message.field());
    const Sym_Oper_Type result = sym_prod(left, right, modlat);
    FixedText<80> text;
    get_symsymb(result.rot, result.tr, text);
    return text;
}

Vector3f applyso(const Sym_Oper_Type& op, const Vector3f& x) { return op.rot * x + op.tr; }

void inverse_symm(const Matrix3i& rot, const Vector3f& tr, Matrix3i& inverse_rot,
                  Vector3f& inverse_tr) {
    inverse_rot = {};
    inverse_tr = {};
    const std::optional<Matrix3f> inverse = math_3d::matrix_inverse(as_real(rot));
    if (!inverse) {
        set_err_symm("Inversion Matrix Failed");
        return;
    }
    const Matrix3f& m = *inverse;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            inverse_rot[i][j] = static_cast<int>(std::clamp(std::round(m[i][j]), -1e9f, 1e9f));
    inverse_tr = -(m * tr);
}

bool equal_symop(const Sym_Oper_Type& a, const Sym_Oper_Type& b) {
    for (std::size_t i = 0; i < 3; ++i)
        if (!(std::abs(a.tr[i] - b.tr[i]) <= eps_symm)) return false;
    return a.rot == b.rot;
}

bool is_new_op(const Sym_Oper_Type& op, std::span<const Sym_Oper_Type> known) {
    return std::ranges::none_of(known,
                                [&](const Sym_Oper_Type& one) { return equal_symop(op, one); });
}

int searchop(const Matrix3i& rot, int first, int last) {
    const Matrix3i inverted = -rot;
    const int from = std::max(first, 1);
    const int to = std::min(last, static_cast<int>(rot_table.size()));
    for (int row = from; row <= to; ++row)
        if (rot_table[static_cast<std::size_t>(row - 1)] == rot) return row;
    for (int row = from; row <= to; ++row)
        if (rot_table[static_cast<std::size_t>(row - 1)] == inverted) return -row;
    const bool cubic = first == 1 && last == 24;
    const bool hexagonal = first == 25 && last == 36;
    set_err_symm(std::string(" Try to re-write your S.O. using a rotational part") +
                 " identical to a S.O. of the space group " +
                 (cubic       ? "P m -3 m"
                  : hexagonal ? "P 6/m m m"
                              : "P m -3 m or P 6/m m m"));
    return 0;
}

bool lattice_trans(const Vector3f& v, char letter) {
    if (math_gen::zbelongv(v)) return true;
    const auto vectors = letter == 'Z' ? unconventional_vectors() : centring_vectors(letter);
    return std::ranges::any_of(vectors,
                               [&](const Vector3f& w) { return math_gen::zbelongv(v - w); });
}

void mod_trans(std::span<Sym_Oper_Type> ops, int flag, int* swapped) {
    for (Sym_Oper_Type& op : ops) op.tr = modulo_lat(op.tr);
    if (swapped) *swapped = 2 - flag;
}

}  // namespace crystallographic_symmetry
