/// Closure of a few generators to the operators of a group without its centring translations.
#pragma once

#include "common/vec.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/twelfths.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace crystallographic_symmetry {

inline constexpr Matrix3i identity_rotation{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};
inline constexpr Matrix3i inversion_rotation{{{{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}}};

/// Up to 24 operators, the identity first, with translations in twelfths, so that closing them is
/// exact.
///
/// A table of a Hall symbol knows the lattice from the symbol's letter: two operators count as one
/// when their rotations are the same and the sum or the difference of their translations is a
/// vector of the lattice. A table of generators is told of the lattice and the inversion what is
/// known so far, and takes one operator for each rotation and its negative; two that differ by
/// more than that have discovered something, and the table is to be built anew with it.
class GroupTable {
public:
    /// A Hall symbol's. `centring` in twelfths, kept by reference.
    explicit GroupTable(std::span<const Vector3i> centring);
    /// Of generators; `inversion` is the translation of an inversion, in twelfths, if one is known.
    GroupTable(std::span<const Vector3i> centring, std::optional<Vector3i> inversion);

    /// Adds a generator unless it is there. False, with err_symm set, when the table is full or
    /// the coefficients are beyond 100.
    bool add(const Matrix3i& rot, const Vector3i& tr);

    /// Adds the powers of the generators, then products until none is new. False, with err_symm
    /// set, when that would take more than 24 operators.
    bool close();

    /// What a table of generators came upon, in twelfths: a vector of the lattice that `centring`
    /// hasn't, the translation of an inversion when none was known.
    struct Discovery {
        std::optional<Vector3i> vector;
        std::optional<Vector3i> inversion;
    };
    const Discovery& discovery() const { return discovery_; }

    std::size_t size() const { return size_; }
    const Matrix3i& rotation(std::size_t i) const { return entries_[i].rot; }
    const Vector3i& translation(std::size_t i) const { return entries_[i].tr; }

    /// The first `count` operators into `list`, translations as cell fractions.
    void copy_to(ReducedList& list, std::size_t count) const;

private:
    using PackedRows = std::array<std::int64_t, 3>;
    struct Operator {
        PackedRows rotation;  ///< the rotation alone, to be compared
        Vector3i tr;
    };
    struct Entry : Operator {
        Matrix3i rot;
        PackedRows rows;  ///< rotation and translation
    };

    static Operator packed(const Matrix3i& rot, const Vector3i& tr);
    static void unpack(const Operator& one, Entry& entry);
    static Operator product(const Entry& a, const Entry& b);
    /// Calls `found` with each entry of this rotation until it returns true, and says whether it
    /// did.
    template <class Found>
    bool any_with_rotation(const PackedRows& rotation, Found found) const;
    /// The lattice vector by which it differs from an entry, or from an entry inverted; absent when
    /// the rotation is new either way. An inversion that isn't known is discovered.
    std::optional<Vector3i> distance(const Operator& one, Discovery& discovery) const;
    bool has(const Operator& one);
    /// Whether it differs from an entry by a vector of the lattice.
    bool holds(const Operator& one) const;
    bool has_power(const Operator& one);
    bool close_products();
    void look_at_inversion();
    using Progress = std::array<std::size_t, max_reduced>;
    /// Whether the products of the first `generators` entries with all entries are in the table;
    /// goes on where `held` stands for each.
    bool is_closed(std::size_t generators, Progress& held) const;
    bool is_lattice_vector(const Vector3i& tr) const;
    Vector3i reduced(const Vector3i& tr) const;
    bool append(const Operator& one, std::string_view message);
    bool add_powers(std::size_t k);

    std::span<const Vector3i> centring_;
    bool of_generators_ = false;
    std::optional<Vector3i> inversion_;
    Discovery discovery_;
    std::array<Entry, max_reduced> entries_;
    std::size_t size_ = 0;
    /// Entries by a hash of their rotation, from 1; 0 is a free slot, and a taken one sends on to
    /// the next.
    std::array<unsigned char, 64> slots_{};
};

}  // namespace crystallographic_symmetry
