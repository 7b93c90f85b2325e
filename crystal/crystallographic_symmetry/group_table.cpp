#include "crystal/crystallographic_symmetry/group_table.hpp"

#include "crystal/crystallographic_symmetry/group_properties.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace crystallographic_symmetry {
namespace {

// Coefficients up to this keep sums of three products inside a column of 16 bits. No
// crystallographic group comes near.
constexpr int largest_coefficient = 100;

/// Modulo 12 for sums of three products of a coefficient and a translation.
constexpr int folded(int t) { return static_cast<int>(static_cast<unsigned>(t + 12 * 4096) % 12u); }

constexpr Vector3i folded_products(const Vector3i& t) {
    return {folded(t[0]), folded(t[1]), folded(t[2])};
}

// A row of an operator as one number: column j times 2^(16 j), the translation times 2^48. Rows of
// this kind add and scale whole; as long as every column stays within 15 bits and a sign, the lower
// 48 bits are the same for the same rotation only.
using PackedRows = std::array<std::int64_t, 3>;
constexpr std::int64_t column_unit = std::int64_t{1} << 16;
constexpr std::int64_t translation_unit = std::int64_t{1} << 48;
constexpr std::int64_t rotation_bits = translation_unit - 1;

constexpr std::int64_t packed_row(const Vector3i& row, int tr) {
    return row[0] + row[1] * column_unit + row[2] * column_unit * column_unit +
           tr * translation_unit;
}

// Raises each column to above zero, so that it borrows nothing from the next.
constexpr std::int64_t all_raised = packed_row({1 << 15, 1 << 15, 1 << 15}, 0);

constexpr int translation_of(std::int64_t row) {
    return static_cast<int>((row + all_raised) >> 48);
}

constexpr Vector3i columns_of(std::int64_t row) {
    const std::int64_t raised = row + all_raised;
    const auto column = [&](int j) {
        return static_cast<int>((raised >> (16 * j)) & (column_unit - 1)) - (1 << 15);
    };
    return {column(0), column(1), column(2)};
}

constexpr bool in_bounds(const Matrix3i& rot) {
    constexpr auto largest = static_cast<unsigned>(largest_coefficient);
    bool inside = true;
    for (const Vector3i& row : rot.row)
        for (const int c : row) inside &= static_cast<unsigned>(c) + largest <= 2 * largest;
    return inside;
}

constexpr bool same(const PackedRows& a, const PackedRows& b) {
    return ((a[0] ^ b[0]) | (a[1] ^ b[1]) | (a[2] ^ b[2])) == 0;
}

// Component by component: std::array compares by a call of memcmp.
constexpr bool same(const Vector3i& a, const Vector3i& b) {
    return ((a[0] ^ b[0]) | (a[1] ^ b[1]) | (a[2] ^ b[2])) == 0;
}

/// The negative rotation, packed.
constexpr PackedRows negated(const PackedRows& rows) {
    return {-rows[0] & rotation_bits, -rows[1] & rotation_bits, -rows[2] & rotation_bits};
}

constexpr bool is_zero(const Vector3i& tr) { return (tr[0] | tr[1] | tr[2]) == 0; }

/// The first slot to look at.
constexpr std::size_t slot_of(const PackedRows& rows) {
    const auto mixed = static_cast<std::uint64_t>(rows[0]) * 0x9e3779b97f4a7c15u ^
                       static_cast<std::uint64_t>(rows[1]) * 0xc2b2ae3d27d4eb4fu ^
                       static_cast<std::uint64_t>(rows[2]) * 0x165667b19e3779f9u;
    return mixed >> 58;
}

}  // namespace

GroupTable::GroupTable(std::span<const Vector3i> centring) : centring_(centring) {
    append(packed(identity_rotation, {}), {});
}

GroupTable::GroupTable(std::span<const Vector3i> centring, std::optional<Vector3i> inversion)
    : GroupTable(centring) {
    of_generators_ = true;
    inversion_ = inversion;
}

GroupTable::Operator GroupTable::packed(const Matrix3i& rot, const Vector3i& tr) {
    Operator one;
    for (std::size_t i = 0; i < 3; ++i) one.rotation[i] = packed_row(rot[i], 0) & rotation_bits;
    one.tr = tr;
    return one;
}

/// With coefficients to multiply with from the left, and rows to be multiplied.
void GroupTable::unpack(const Operator& one, Entry& entry) {
    entry.rotation = one.rotation;
    entry.tr = one.tr;
    for (std::size_t i = 0; i < 3; ++i) {
        entry.rot[i] = columns_of(one.rotation[i]);
        // The columns as they stand, negative ones borrowing from the translation.
        const std::int64_t columns = (one.rotation[i] << 16) >> 16;
        entry.rows[i] = columns + one.tr[i] * translation_unit;
    }
}

GroupTable::Operator GroupTable::product(const Entry& a, const Entry& b) {
    Operator result;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::int64_t row =
            a.rot[i][0] * b.rows[0] + a.rot[i][1] * b.rows[1] + a.rot[i][2] * b.rows[2];
        result.rotation[i] = row & rotation_bits;
        result.tr[i] = folded(translation_of(row) + a.tr[i]);
    }
    return result;
}

template <class Found>
bool GroupTable::any_with_rotation(const PackedRows& rotation, Found found) const {
    for (std::size_t slot = slot_of(rotation); slots_[slot] != 0;
         slot = (slot + 1) % slots_.size()) {
        const Entry& known = entries_[slots_[slot] - 1u];
        if (same(known.rotation, rotation) && found(known)) return true;
    }
    return false;
}

bool GroupTable::is_lattice_vector(const Vector3i& tr) const {
    return is_zero(tr) ||
           std::ranges::any_of(centring_, [&](const Vector3i& v) { return same(v, tr); });
}

std::optional<Vector3i> GroupTable::distance(const Operator& one, Discovery& discovery) const {
    std::optional<Vector3i> result;
    any_with_rotation(one.rotation, [&](const Entry& known) {
        result = folded_products(one.tr - known.tr);
        return true;
    });
    if (result) return result;
    // The product of the two is an inversion, with the sum as its translation.
    any_with_rotation(negated(one.rotation), [&](const Entry& known) {
        const Vector3i sum = folded_products(one.tr + known.tr);
        if (!inversion_) discovery.inversion = sum;
        result = inversion_ ? folded_products(sum - *inversion_) : Vector3i{};
        return true;
    });
    return result;
}

bool GroupTable::has(const Operator& one) {
    if (!of_generators_)
        return any_with_rotation(one.rotation, [&](const Entry& known) {
            return same(known.tr, one.tr) ||
                   is_lattice_vector(folded_products(one.tr - known.tr)) ||
                   is_lattice_vector(folded_products(one.tr + known.tr));
        });
    const std::optional<Vector3i> vector = distance(one, discovery_);
    if (vector && !is_lattice_vector(*vector)) discovery_.vector = vector;
    return vector.has_value();
}

/// Less the first centring vector that fits into it, whole: a component taken modulo that of the
/// vector would leave the lattice where the vector fits in twice.
Vector3i GroupTable::reduced(const Vector3i& tr) const {
    for (const Vector3i& v : centring_)
        if (tr[0] >= v[0] && tr[1] >= v[1] && tr[2] >= v[2]) return tr - v;
    return tr;
}

/// False, with this error, when the table is full or the coefficients outgrow it.
bool GroupTable::append(const Operator& one, std::string_view message) {
    if (size_ < entries_.size()) unpack(one, entries_[size_]);
    if (size_ == entries_.size() || !in_bounds(entries_[size_].rot)) {
        set_err_symm(message);
        return false;
    }
    ++size_;
    std::size_t slot = slot_of(one.rotation);
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
    const Operator one = packed(rot, folded_twelfths(tr));
    return has(one) || append(one, " Dimension of Table exceeded (I)");
}

bool GroupTable::has_power(const Operator& one) {
    if (of_generators_) return has(one);
    return any_with_rotation(one.rotation, [](const Entry&) { return true; });
}

bool GroupTable::add_powers(std::size_t k) {
    const Entry generator = entries_[k];
    const int kind = axes_rotation(generator.rot);
    // -1 and -3 have powers up to twice their number.
    const int order = kind == -1 || kind == -3 ? -2 * kind : std::abs(kind);
    Entry power = generator;
    for (int n = 2; n < order; ++n) {
        Operator one = product(generator, power);
        unpack(one, power);
        if (has_power(one)) continue;
        one.tr = reduced(one.tr);
        // A power without a translation is left to the products, unless it leaves the bounds.
        if (is_zero(one.tr) && in_bounds(power.rot)) continue;
        if (!append(one, " Dimension of Table exceeded (I)")) return false;
    }
    return true;
}

bool GroupTable::holds(const Operator& one) const {
    if (of_generators_) {
        Discovery nothing;
        const std::optional<Vector3i> vector = distance(one, nothing);
        return vector && is_lattice_vector(*vector) && !nothing.inversion;
    }
    return any_with_rotation(one.rotation, [&](const Entry& known) {
        return is_lattice_vector(folded_products(one.tr - known.tr));
    });
}

bool GroupTable::is_closed(std::size_t generators, Progress& held) const {
    for (std::size_t g = 1; g <= generators; ++g)
        for (; held[g] < size_; ++held[g])
            if (!holds(product(entries_[g], entries_[held[g]]))) return false;
    return true;
}

/// An operator before the inversion and one behind it differ by a vector of the lattice.
void GroupTable::look_at_inversion() {
    if (!inversion_) return;
    const Entry inverted = [&] {
        Entry entry;
        unpack(packed(inversion_rotation, *inversion_), entry);
        return entry;
    }();
    for (std::size_t i = 1; i < size_; ++i) has(product(entries_[i], inverted));
}

bool GroupTable::close() {
    if (!close_products()) return false;
    look_at_inversion();
    return true;
}

bool GroupTable::close_products() {
    const std::size_t generators = size_ - 1;
    for (std::size_t k = 1; k < size_; ++k)
        if (!add_powers(k)) return false;
    // tried[i]: the entries with which entry i has been multiplied; a pair tried before would be
    // found in the table again.
    Progress tried{};
    // held[g]: the entries whose product with generator g is known to be in the table. When that is
    // all of them for every generator, the table is the group, and no further product is new.
    Progress held{};
    for (std::size_t before = 0; before != size_;) {
        before = size_;
        for (std::size_t i = 1; i < size_; ++i) {
            // For small tables the few products left are less work.
            if (size_ >= 8 && is_closed(generators, held)) return true;
            for (std::size_t j = std::max(i, tried[i]); j < size_; ++j) {
                const Operator one = product(entries_[i], entries_[j]);
                if (!has(one) && !append(one, " Dimension of Table exceeded (II)")) return false;
            }
            tried[i] = size_;
        }
    }
    return true;
}

void GroupTable::copy_to(ReducedList& list, std::size_t count) const {
    list.count = static_cast<int>(count);
    for (std::size_t i = 0; i < count; ++i) {
        list.ops[i].rot = entries_[i].rot;
        list.ops[i].tr = cell_fractions(entries_[i].tr);
    }
}

}  // namespace crystallographic_symmetry
