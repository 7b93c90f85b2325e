#include "crystal/crystallographic_symmetry/orbits.hpp"

#include "crystal/math_gen.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace crystallographic_symmetry {
namespace {

using math_gen::modulo_lat;

/// Operators without centring at the head of sym_op. A list taken as it stood (mode FIX) isn't
/// sorted: its num_ops counts all of them, and so does this.
std::size_t without_centring(const Space_Group_Type& group) {
    constexpr int room = static_cast<int>(max_operators);
    const int count = std::clamp(group.num_ops, 0, room) * (group.centred == 1 ? 1 : 2);
    return static_cast<std::size_t>(std::clamp(group.multip, 0, std::min(count, room)));
}

/// Entries of sym_op in use: the list is repeated for four lattice points at most, though multip
/// counts them all.
std::size_t filled(const Space_Group_Type& group) {
    const int count = static_cast<int>(without_centring(group)) * std::clamp(group.num_lat, 1, 4);
    return static_cast<std::size_t>(
        std::clamp(std::min(count, group.multip), 0, static_cast<int>(max_operators)));
}

/// The lattice points of the record's own cell, the origin first; `primitive` leaves it at that.
std::span<const Vector3f> lattice_points(const Space_Group_Type& group, bool primitive = false) {
    const int count = std::clamp(group.num_lat, 1, static_cast<int>(max_lattice_points));
    return std::span(group.lat_trans).first(primitive ? 1 : static_cast<std::size_t>(count));
}

/// The nearest integer without a call: adding and subtracting 1.5 * 2^23 rounds magnitudes below
/// 2^22. NaN stays NaN.
inline float nearest(float v) {
    constexpr float shift = 12582912.0f;
    return (v + shift) - shift;
}

inline bool near_integer(float v) { return std::abs(nearest(v) - v) <= math_gen::eps_math; }

inline bool near_lattice_point(const Vector3f& v, std::span<const Vector3f> lattice) {
    for (const Vector3f& point : lattice)
        if (near_integer(v[0] - point[0]) && near_integer(v[1] - point[1]) &&
            near_integer(v[2] - point[2]))
            return true;
    return false;
}

/// Distance from `offset` to the nearest point that differs from v by whole cells.
inline float wave(float v, float offset) {
    const float u = (v - nearest(v)) - offset;
    return std::abs(u - nearest(u));
}
/// One number for a point, continuous and the same for points that differ by whole cells. The
/// offsets are no fractions, so that symmetry gives few points a key in common.
inline float key(const Vector3f& p) {
    return wave(p[0], 0.137f) + 3 * wave(p[1], 0.291f) + 7 * wave(p[2], 0.433f);
}
/// (1 + 3 + 7) eps_math for points that count as one, and as much again for rounding.
constexpr float key_tolerance = 22 * math_gen::eps_math;

/// The points of an orbit as they are found, with room for max_operators.
class PointSet {
public:
    PointSet(Orbit& orbit, std::span<const Vector3f> lattice) : orbit_(orbit), lattice_(lattice) {}

    /// Whether a point is there that differs from `p` by a lattice translation.
    bool holds(const Vector3f& p) const {
        return std::ranges::any_of(lattice_, [&](const Vector3f& vector) {
            return key_is_near(key(p - vector)) && is_near(p);
        });
    }
    void add(const Vector3f& p, std::size_t op) {
        keys_[count_] = key(p);
        orbit_.points[count_] = p;
        orbit_.operators[count_++] = static_cast<int>(op) + 1;
    }
    std::size_t size() const { return count_; }

private:
    // All keys, without an early exit: so the compiler compares several at a time.
    bool key_is_near(float wanted) const {
        int hits = 0;
        for (std::size_t i = 0; i < count_; ++i)
            hits |= std::abs(wanted - keys_[i]) <= key_tolerance ? 1 : 0;
        return hits != 0;
    }
    bool is_near(const Vector3f& p) const {
        return std::ranges::any_of(std::span(orbit_.points).first(count_), [&](const Vector3f& q) {
            return near_lattice_point(p - q, lattice_);
        });
    }

    Orbit& orbit_;
    std::span<const Vector3f> lattice_;
    std::size_t count_ = 0;
    std::array<float, max_operators> keys_;
};

/// Fills `orbit` from the operators but for its count; returns how many points there are.
std::size_t spread(const Vector3f& x, std::span<const Sym_Oper_Type> ops,
                   std::span<const Vector3f> lattice, Orbit& orbit) {
    PointSet found(orbit, lattice);
    found.add(x, 0);
    for (std::size_t i = 1; i < ops.size(); ++i) {
        const Vector3f image = modulo_lat(applyso(ops[i], x));
        if (!found.holds(image)) found.add(image, i);
    }
    return found.size();
}

/// A position with letters: coefficients of x, y, z, and a translation.
struct Position {
    Matrix3f coefficients;
    Vector3f tr;
};

Position transformed(const Sym_Oper_Type& op, const Position& p) {
    Position result;
    result.tr = modulo_lat(applyso(op, p.tr));
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            for (std::size_t j = 0; j < 3; ++j)
                result.coefficients[i][j] +=
                    static_cast<float>(op.rot[i][k]) * p.coefficients[k][j];
    return result;
}

Position read_position(std::string_view text) {
    Sym_Oper_Type op;
    read_xsym(text, 1, op.rot, &op.tr);
    init_err_symm();  // a special position may well have determinant 0
    Position position;
    position.tr = op.tr;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            position.coefficients[i][j] = static_cast<float>(op.rot[i][j]);
    return position;
}

FixedText<40> printed(const Position& position, const Vector3f& moved) {
    FixedText<40> text;
    get_symsymbr(position.coefficients, moved, {text.data(), text.width});
    return text;
}

}  // namespace

int wyckoff_orbit(const Space_Group_Type& group, std::string_view position,
                  std::span<FixedText<40>> list) {
    std::ranges::fill(list, FixedText<40>{});
    position = without_leading_blanks(position);
    if (position.empty() || list.empty()) return 0;
    std::size_t count = 0;
    list[count++] = position;
    const auto listed = [&](const FixedText<40>& text) {
        const auto in_use = list.first(count);
        return std::ranges::find(in_use, text) != in_use.end();
    };

    const Position first = read_position(position);
    const std::span<const Vector3f> centring = lattice_points(group).subspan(1);
    for (const Sym_Oper_Type& op : std::span(group.sym_op).first(without_centring(group))) {
        if (&op == group.sym_op.data() || count == list.size()) continue;
        const Position image = transformed(op, first);
        const FixedText<40> text = printed(image, image.tr);
        const bool known =
            listed(text) || std::ranges::any_of(centring, [&](const Vector3f& vector) {
                return listed(printed(image, modulo_lat(vector + image.tr)));
            });
        if (!known) list[count++] = text;
    }
    return static_cast<int>(count);
}

void get_orbit(const Vector3f& x, const Space_Group_Type& group, Orbit& orbit, bool skip_centring) {
    const auto ops = std::span(group.sym_op).first(filled(group));
    orbit.count = static_cast<int>(spread(x, ops, lattice_points(group, !skip_centring), orbit));
}

Stabilizer get_stabilizer(const Vector3f& x, const Space_Group_Type& group) {
    Stabilizer stabilizer;
    stabilizer.order = 1;
    stabilizer.operators[0] = 1;
    const auto lattice = lattice_points(group);
    for (std::size_t i = 1; i < without_centring(group); ++i)
        if (near_lattice_point(applyso(group.sym_op[i], x) - x, lattice))
            stabilizer.operators[static_cast<std::size_t>(stabilizer.order++)] =
                static_cast<int>(i) + 1;
    return stabilizer;
}

int get_multip_pos(const Vector3f& x, const Space_Group_Type& group) {
    Orbit orbit;
    const auto ops = std::span(group.sym_op).first(without_centring(group));
    const auto lattice = lattice_points(group);
    return static_cast<int>(spread(x, ops, lattice, orbit) * lattice.size());
}

float get_occ_site(const Vector3f& x, const Space_Group_Type& group) {
    if (group.multip <= 0) return 0.0f;
    return static_cast<float>(get_multip_pos(x, group)) / static_cast<float>(group.multip);
}

}  // namespace crystallographic_symmetry
