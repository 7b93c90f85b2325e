#include "crystal/propagation_vectors.hpp"

#include "common/number_field.hpp"
#include "crystal/math_gen.hpp"
#include "crystal/string_utilities.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <ostream>
#include <span>

namespace propagation_vectors {
namespace {

using crystallographic_symmetry::max_operators;
using crystallographic_symmetry::Space_Group_Type;
using crystallographic_symmetry::Sym_Oper_Type;

char lattice_letter(std::string_view lattice) {
    lattice = without_leading_blanks(lattice);
    return lattice.empty() ? ' ' : string_utilities::raised(lattice.front());
}

/// Whether integers, held as reals, are allowed by the centring; absent for an unknown letter.
/// Remainders are taken in reals, so that no magnitude overflows.
std::optional<bool> allowed(const Vector3f& d, char letter) {
    const auto multiple = [](float sum, float of) { return std::fmod(sum, of) == 0.0f; };
    switch (letter) {
        case 'P':
            return true;
        case 'A':
            return multiple(d[1] + d[2], 2.0f);
        case 'B':
            return multiple(d[0] + d[2], 2.0f);
        case 'C':
            return multiple(d[0] + d[1], 2.0f);
        case 'I':
            return multiple(d[0] + d[1] + d[2], 2.0f);
        case 'R':
            return multiple(d[2] + d[1] - d[0], 3.0f);
        case 'F':
            return multiple(d[1] + d[2], 2.0f) && multiple(d[0] + d[2], 2.0f) &&
                   multiple(d[0] + d[1], 2.0f);
        default:
            return std::nullopt;
    }
}

bool lattice_vector(const Vector3f& d, std::string_view lattice, bool of_unknown_letter) {
    if (!math_gen::zbelongv(d)) return false;
    const Vector3f rounded{std::round(d[0]), std::round(d[1]), std::round(d[2])};
    return allowed(rounded, lattice_letter(lattice)).value_or(of_unknown_letter);
}

/// The row vector h times the rotation.
Vector3f transformed(const Vector3f& h, const Sym_Oper_Type& op) {
    Vector3f result;
    for (std::size_t j = 0; j < 3; ++j)
        result[j] = h[0] * static_cast<float>(op.rot[0][j]) +
                    h[1] * static_cast<float>(op.rot[1][j]) +
                    h[2] * static_cast<float>(op.rot[2][j]);
    return result;
}

/// Without the centring. A record whose list holds the whole group counts its inversions twice, and
/// has no operator behind the last.
std::span<const Sym_Oper_Type> operators_in_use(const Space_Group_Type& group) {
    const int count = group.centred == 1 ? group.num_ops : 2 * group.num_ops;
    const int filled = std::min(group.multip, static_cast<int>(max_operators));
    return std::span(group.sym_op)
        .first(static_cast<std::size_t>(std::clamp(count, 0, std::max(filled, 0))));
}

void join_arm(std::array<int, max_arms>& operators, int number) {
    const auto room = std::ranges::find(operators, 0);
    if (room != operators.end()) *room = number;
}

void add_operator(const Vector3f& kt, int number, Group_k_Type& group_k) {
    const std::string_view lattice = group_k.group.lat_type.field();
    const auto arms = static_cast<std::size_t>(group_k.nk);
    for (std::size_t arm = 0; arm < arms; ++arm) {
        if (!k_equiv(kt, group_k.stark[arm], lattice)) continue;
        if (arm == 0) group_k.p[static_cast<std::size_t>(group_k.ngk++)] = number;
        join_arm(group_k.co[arm], number);
        return;
    }
    if (arms == max_arms) return;
    group_k.stark[arms] = kt;
    group_k.co[arms][0] = number;
    ++group_k.nk;
}

std::string vector_text(const Vector3f& v) {
    std::string text = "(";
    for (std::size_t i = 0; i < 3; ++i)
        text += number_field::fixed(static_cast<double>(v[i]), 9, 5) + (i < 2 ? "," : " )");
    return text;
}

}  // namespace

bool k_equiv(const Vector3f& h, const Vector3f& k, std::string_view lattice) {
    return lattice_vector(h - k, lattice, false);
}

bool k_equiv_minus_k(const Vector3f& k, std::string_view lattice) {
    return lattice_vector(2.0f * k, lattice, true);
}

bool hk_equiv(const Vector3f& h, const Vector3f& k, const Group_k_Type& group_k, bool friedel) {
    const bool negative_too = friedel && group_k.group.centred != 2 && group_k.k_equiv_minusk;
    for (std::size_t i = 0; i < static_cast<std::size_t>(group_k.ngk); ++i) {
        const auto number = static_cast<std::size_t>(group_k.p[i]);
        const Vector3f ht = transformed(h, group_k.group.sym_op[number - 1]);
        if (math_gen::equal_vector_r(ht, k)) return true;
        if (negative_too && math_gen::equal_vector_r(-ht, k)) return true;
    }
    return false;
}

void k_star(const Vector3f& k, const Space_Group_Type& group, Group_k_Type& group_k) {
    group_k = {};
    group_k.group = group;
    group_k.ngk = 1;
    group_k.p[0] = 1;
    group_k.nk = 1;
    group_k.stark[0] = k;
    group_k.co[0][0] = 1;
    // With an inversion in the group too: it takes k to -k, and what is left to ask is the lattice.
    group_k.k_equiv_minusk = k_equiv(k, -k, group.lat_type.field());
    const std::span<const Sym_Oper_Type> operators = operators_in_use(group);
    for (std::size_t i = 1; i < operators.size(); ++i)
        add_operator(transformed(k, operators[i]), static_cast<int>(i) + 1, group_k);
}

void write_group_k(const Group_k_Type& group_k, std::ostream& out) {
    const auto arms = static_cast<std::size_t>(group_k.nk);
    out << "        Propagation vector group\n"
        << "        ------------------------\n"
        << " =>        Space group: " << group_k.group.spg_symb.trimmed() << '\n'
        << " =>                  k: " << vector_text(group_k.stark[0]) << '\n'
        << " => Equivalent to   -k: " << (group_k.k_equiv_minusk ? "yes" : "no") << '\n'
        << " =>       Little group: " << group_k.ngk << " operators\n";
    for (std::size_t i = 0; i < static_cast<std::size_t>(group_k.ngk); ++i) {
        const int number = group_k.p[i];
        out << " => SYMM(" << number
            << "): " << group_k.group.sym_op_text[static_cast<std::size_t>(number - 1)].trimmed()
            << '\n';
    }
    out << " =>        Star of " << arms << (arms == 1 ? " arm\n" : " arms\n");
    for (std::size_t arm = 0; arm < arms; ++arm) {
        out << " => k(" << arm + 1 << "): " << vector_text(group_k.stark[arm]) << "  Operators:";
        for (const int number : group_k.co[arm])
            if (number != 0) out << ' ' << number;
        out << '\n';
    }
}

}  // namespace propagation_vectors
