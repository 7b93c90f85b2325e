#include "crystal/crystallographic_symmetry/group_table.hpp"

#include "crystal/crystallographic_symmetry/group_properties.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace crystallographic_symmetry {
namespace {

constexpr std::array<Vector3i, 1> centring_a{{{0, 6, 6}}};
constexpr std::array<Vector3i, 1> centring_b{{{6, 0, 6}}};
constexpr std::array<Vector3i, 1> centring_c{{{6, 6, 0}}};
constexpr std::array<Vector3i, 1> centring_i{{{6, 6, 6}}};
constexpr std::array<Vector3i, 2> centring_r{{{8, 4, 4}, {4, 8, 8}}};
constexpr std::array<Vector3i, 3> centring_f{{{0, 6, 6}, {6, 0, 6}, {6, 6, 0}}};

// Coefficients up to this keep three products below 2^20, a packed column, and determinants in 32
// bits. No crystallographic group comes near.
constexpr int largest_coefficient = 500;

/// Modulo 12 for sums of three products, far above -12 x 4096.
constexpr int folded(int t) { return static_cast<int>(static_cast<unsigned>(t + 12 * 4096) % 12u); }

constexpr Vector3i folded_products(const Vector3i& t) {
    return {folded(t[0]), folded(t[1]), folded(t[2])};
}

constexpr std::int64_t packed_row(const Vector3i& row) {
    return row[0] + row[1] * (std::int64_t{1} << 21) + row[2] * (std::int64_t{1} << 42);
}

/// The column at the right end, and the number without it moved down by one column.
constexpr int take_column(std::int64_t& packed) {
    constexpr std::int64_t base = std::int64_t{1} << 21;
    const std::int64_t low = ((packed + base / 2) & (base - 1)) - base / 2;
    packed = (packed - low) >> 21;
    return static_cast<int>(low);
}

constexpr int dot(const Vector3i& a, const Vector3i& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

constexpr bool in_bounds(const Matrix3i& rot) {
    for (const Vector3i& row : rot.row)
        for (const int c : row)
            if (c < -largest_coefficient || c > largest_coefficient) return false;
    return true;
}

constexpr Matrix3i unpacked(std::array<std::int64_t, 3> rows) {
    Matrix3i rot;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) rot[i][j] = take_column(rows[i]);
    return rot;
}

using PackedRows = std::array<std::int64_t, 3>;

constexpr PackedRows packed(const Matrix3i& rot) {
    return {packed_row(rot[0]), packed_row(rot[1]), packed_row(rot[2])};
}

constexpr bool same(const PackedRows& a, const PackedRows& b) {
    return ((a[0] ^ b[0]) | (a[1] ^ b[1]) | (a[2] ^ b[2])) == 0;
}

/// The first slot to look at.
constexpr std::size_t slot_of(const PackedRows& rows) {
    const auto mixed = static_cast<std::uint64_t>(rows[0]) * 0x9e3779b97f4a7c15u ^
                       static_cast<std::uint64_t>(rows[1]) * 0xc2b2ae3d27d4eb4fu ^
                       static_cast<std::uint64_t>(rows[2]) * 0x165667b19e3779f9u;
    return mixed >> 58;
}

}  // namespace

Vector3i folded_twelfths(const Vector3i& tr) {
    Vector3i result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = (tr[i] % 12 + 12) % 12;
    return result;
}

Vector3i twelfths(const Vector3f& tr) {
    Vector3i result;
    for (std::size_t i = 0; i < 3; ++i) {
        const float n = std::round(12.0f * tr[i]);
        result[i] = std::abs(n) < 1e9f ? static_cast<int>(n) : 0;
    }
    return folded_twelfths(result);
}

Vector3f cell_fractions(const Vector3i& tr) {
    constexpr float twelfth = 1.0f / 12.0f;
    return {static_cast<float>(tr[0]) * twelfth, static_cast<float>(tr[1]) * twelfth,
            static_cast<float>(tr[2]) * twelfth};
}

std::span<const Vector3i> centring_twelfths(int lattice_index) {
    switch (lattice_index) {
        case 2:
            return centring_a;
        case 3:
            return centring_b;
        case 4:
            return centring_c;
        case 5:
            return centring_i;
        case 6:
            return centring_r;
        case 7:
            return centring_f;
        default:
            return {};
    }
}

GroupTable::GroupTable(std::span<const Vector3i> centring) : centring_(centring) {
    append({packed(identity_rotation), {}}, {});
}

GroupTable::Operator GroupTable::product(const Entry& a, const Operator& b) {
    Operator result;
    for (std::size_t i = 0; i < 3; ++i) {
        result.rows[i] =
            a.rot[i][0] * b.rows[0] + a.rot[i][1] * b.rows[1] + a.rot[i][2] * b.rows[2];
        result.tr[i] = folded(dot(a.rot[i], b.tr) + a.tr[i]);
    }
    return result;
}

template <class Found>
bool GroupTable::any_with_rotation(const PackedRows& rows, Found found) const {
    for (std::size_t slot = slot_of(rows); slots_[slot] != 0; slot = (slot + 1) % slots_.size()) {
        const Entry& known = entries_[slots_[slot] - 1u];
        if (same(known.rows, rows) && found(known)) return true;
    }
    return false;
}

bool GroupTable::is_lattice_vector(const Vector3i& tr) const {
    return tr == Vector3i{} || std::ranges::find(centring_, tr) != centring_.end();
}

bool GroupTable::has(const Operator& one) const {
    return any_with_rotation(one.rows, [&](const Entry& known) {
        return known.tr == one.tr || is_lattice_vector(folded_products(one.tr - known.tr)) ||
               is_lattice_vector(folded_products(one.tr + known.tr));
    });
}

/// Less the first centring vector that fits into it.
Vector3i GroupTable::reduced(const Vector3i& tr) const {
    for (const Vector3i& v : centring_)
        if (tr[0] >= v[0] && tr[1] >= v[1] && tr[2] >= v[2]) return tr - v;
    return tr;
}

/// False, with this error, when the table is full or the coefficients outgrow it.
bool GroupTable::append(const Operator& one, std::string_view message) {
    const Matrix3i rot = unpacked(one.rows);
    if (size_ == entries_.size() || !in_bounds(rot)) {
        set_err_symm(message);
        return false;
    }
    entries_[size_++] = {rot, one.tr, one.rows};
    std::size_t slot = slot_of(one.rows);
    while (slots_[slot] != 0) slot = (slot + 1) % slots_.size();
    slots_[slot] = static_cast<unsigned char>(size_);
    return true;
}

bool GroupTable::add(const Matrix3i& rot, const Vector3i& tr) {
    // Large coefficients must not reach the packing.
    if (!in_bounds(rot)) {
        set_err_symm(" Error in generators");
        return false;
    }
    const Operator one{packed(rot), folded_twelfths(tr)};
    return has(one) || append(one, " Dimension of Table exceeded (I)");
}

bool GroupTable::add_powers(std::size_t k) {
    const Entry generator = entries_[k];
    const int kind = axes_rotation(generator.rot);
    // -1 and -3 have powers up to twice their number.
    const int order = kind == -1 || kind == -3 ? -2 * kind : std::abs(kind);
    Operator power{generator.rows, generator.tr};
    for (int n = 2; n < order; ++n) {
        power = product(generator, power);
        if (any_with_rotation(power.rows, [](const Entry&) { return true; })) continue;
        const Operator one{power.rows, reduced(power.tr)};
        // A power without a translation is left to the products, unless it leaves the bounds.
        if (one.tr == Vector3i{} && in_bounds(unpacked(one.rows))) continue;
        if (!append(one, " Dimension of Table exceeded (I)")) return false;
    }
    return true;
}

bool GroupTable::close() {
    for (std::size_t k = 1; k < size_; ++k)
        if (!add_powers(k)) return false;
    // tried[i]: the entries with which entry i has been multiplied; a pair tried before would be
    // found in the table again.
    std::array<std::size_t, max_reduced> tried{};
    for (std::size_t before = 0; before != size_;) {
        before = size_;
        for (std::size_t i = 1; i < size_; ++i) {
            for (std::size_t j = std::max(i, tried[i]); j < size_; ++j) {
                const Operator one = product(i, j);
                if (!has(one) && !append(one, " Dimension of Table exceeded (II)")) return false;
            }
            tried[i] = size_;
        }
    }
    return true;
}

void GroupTable::copy_to(ReducedList& list, std::size_t count) const {
    list.count = static_cast<int>(count);
    for (std::size_t i = 0; i < count; ++i)
        list.ops[i] = {entries_[i].rot, cell_fractions(entries_[i].tr)};
}

}  // namespace crystallographic_symmetry
