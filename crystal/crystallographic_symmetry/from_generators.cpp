// What is told as a translation or an inversion is set apart, and the rest closed to one operator
// for each rotation and its negative. Where that comes upon a translation of the lattice or an
// inversion that wasn't told, all begins anew with it, until nothing new turns up: so a short list
// and a complete one give the same group, in any order.

#include "crystal/crystallographic_symmetry/from_generators.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/math_gen.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace crystallographic_symmetry {
namespace {

/// A list of fixed room that keeps what fits.
template <class T, std::size_t N>
class ShortList {
public:
    void push(const T& value) {
        if (size_ < N) values_[size_++] = value;
    }
    std::span<const T> all() const { return {values_.data(), size_}; }
    std::span<T> room() { return values_; }
    void resize(std::size_t size) { size_ = std::min(size, N); }

private:
    std::array<T, N> values_{};
    std::size_t size_ = 0;
};

using CentringList = ShortList<Vector3f, max_lattice_points - 1>;

// Sums of three coordinate differences below this are none.
constexpr float eps_vector = 0.0006f;

/// Sum of the distances of the three coordinates to whole cells.
float distance_to_cells(const Vector3f& v) {
    float sum = 0.0f;
    for (const float x : v) sum += std::abs(x - std::round(x));
    return sum;
}

bool is_listed(const Vector3f& v, std::span<const Vector3f> vectors) {
    return std::ranges::any_of(
        vectors, [&](const Vector3f& known) { return distance_to_cells(v - known) < eps_vector; });
}

/// Into the first cell; what is there already isn't touched.
Vector3f in_first_cell(Vector3f v) {
    for (float& x : v)
        if (x < 0.0f || x >= 1.0f) x = math_gen::modulo_lat(x);
    return v;
}

/// How often a vector stands in a row before it meets a cell again: from its smallest component.
int range_of(const Vector3f& v) {
    float largest = 1.0f;
    for (const float x : v)
        if (x > eps_symm) largest = std::max(largest, 1.0f / x);
    return static_cast<int>(std::round(largest));
}

/// What the identity's translations say about the lattice.
struct Centring {
    std::array<bool, 9> found{};  ///< by lattice index; 8 stands for no conventional vector
    CentringList vectors;         ///< cell fractions

    void add(const Vector3f& tr) {
        const Vector3i wanted = twelfths(tr);
        const Vector3f v = in_first_cell(tr);
        if (!is_listed(v, vectors.all())) vectors.push(v);
        // F has no vector that A, B and C haven't.
        for (const int index : {2, 3, 4, 5, 6}) {
            const std::span<const Vector3i> known = centring_twelfths(index);
            if (std::ranges::find(known, wanted) == known.end()) continue;
            found[static_cast<std::size_t>(index)] = true;
            return;
        }
        found[8] = true;
    }

    int lattice_index() const {
        const auto kinds = std::ranges::count(found, true);
        if (kinds == 0) return 1;
        if (kinds == 1) return static_cast<int>(std::ranges::find(found, true) - found.begin());
        const bool only_faces = !found[5] && !found[6] && !found[8];
        return only_faces ? 7 : 8;
    }
};

/// All sums of the vectors, as far as there is room.
void complete(CentringList& vectors) {
    vectors.resize(get_centring_vectors(vectors.all().size(), vectors.room()));
    for (std::size_t i = 0; i < vectors.all().size(); ++i)
        for (std::size_t j = 0; j <= i; ++j) {
            const Vector3f sum = math_gen::modulo_lat(vectors.all()[i] + vectors.all()[j]);
            if (distance_to_cells(sum) >= eps_vector && !is_listed(sum, vectors.all()))
                vectors.push(sum);
        }
}

/// Tells the module and the list of the lattice; the vectors of Z are completed. False with the
/// error set.
bool set_lattice(const Centring& centring, ReducedList& list) {
    list.lattice_index = centring.lattice_index();
    const char letter = lattice_letters[static_cast<std::size_t>(list.lattice_index - 1)];
    CentringList vectors = centring.vectors;
    if (letter == 'Z') complete(vectors);
    if (latsym({&letter, 1}, vectors.all()) != 0) return true;
    set_err_symm(" Lattice Type couldn't be determined");
    return false;
}

void note_inversion(const Vector3f& tr, ReducedList& list) {
    const bool at_origin = twelfths(tr) == Vector3i{};
    list.centred = at_origin ? 2 : 0;
    list.centre_coord = at_origin ? Vector3f{} : 0.5f * tr;
}

bool set_system(std::span<const Sym_Oper_Type> reduced, ReducedList& list) {
    const CrystalSystem system = get_crystal_system_r_op(reduced);
    list.crystal_system = system.index;
    list.lat_symbol[0] = system.letter;
    list.lat_symbol[1] = lattice_letters[static_cast<std::size_t>(list.lattice_index - 1)];
    lat_symbol = list.lat_symbol;
    return !err_symm;
}

using OperatorList = ShortList<Sym_Oper_Type, max_operators>;

/// The generators that say something, each once.
OperatorList distinct(std::span<const Sym_Oper_Type> generators) {
    OperatorList result;
    for (const Sym_Oper_Type& op : generators) {
        const bool identity = op.rot == identity_rotation && twelfths(op.tr) == Vector3i{};
        if (op.rot != Matrix3i{} && !identity && is_new_op(op, result.all())) result.push(op);
    }
    return result;
}

/// A vector of the lattice that a rotation takes to one that the module doesn't know; absent when
/// there is none.
std::optional<Vector3f> turned_vector(const GroupTable& table) {
    const std::span known = std::span(lat_trans).first(static_cast<std::size_t>(num_lat));
    for (const Vector3f& v : known.subspan(1))
        for (std::size_t i = 1; i < table.size(); ++i) {
            const Vector3f turned = table.rotation(i) * v;
            if (!is_listed(turned, known)) return turned;
        }
    return std::nullopt;
}

/// What is known of a group on the way from its generators: pure translations and inversions are
/// told apart, the rest is closed to a table.
struct Knowledge {
    Centring centring;
    std::optional<Vector3f> inversion;  ///< its translation
    OperatorList others;

    explicit Knowledge(std::span<const Sym_Oper_Type> generators) {
        for (const Sym_Oper_Type& op : generators) {
            if (op.rot == identity_rotation)
                centring.add(op.tr);
            else if (op.rot == inversion_rotation)
                add_inversion(op.tr);
            else
                others.push(op);
        }
    }

    /// Two of them make a translation. One at the origin is preferred, or else the last.
    void add_inversion(const Vector3f& tr) {
        if (inversion && twelfths(tr - *inversion) != Vector3i{}) centring.add(tr - *inversion);
        if (!inversion || twelfths(*inversion) != Vector3i{}) inversion = tr;
    }

    /// Takes up what closing the table came upon. False when that was nothing new.
    bool learn(const GroupTable& table) {
        const GroupTable::Discovery& discovery = table.discovery();
        if (discovery.inversion) {
            inversion = cell_fractions(*discovery.inversion);
            return true;
        }
        std::optional<Vector3f> vector = turned_vector(table);
        if (discovery.vector) vector = cell_fractions(*discovery.vector);
        if (vector) centring.add(*vector);
        return vector.has_value();
    }
};

/// One round: the lattice, the inversion and the table from what is known. False with the error
/// set.
bool close_group(const Knowledge& known, ReducedList& list, GroupTable& table) {
    for (const Sym_Oper_Type& op : known.others.all())
        if (!table.add(op.rot, twelfths(op.tr))) return false;
    if (!table.close()) return false;
    table.copy_to(list, table.size());
    return true;
}

/// One operator for each rotation, and for each pair of a rotation and its negative where there is
/// an inversion.
OperatorList without_centring(std::span<const Sym_Oper_Type> ops, bool centric) {
    OperatorList result;
    for (const Sym_Oper_Type& op : ops) {
        const bool known = std::ranges::any_of(result.all(), [&](const Sym_Oper_Type& one) {
            return one.rot == op.rot || (centric && one.rot == -op.rot);
        });
        if (!known) result.push(op);
    }
    return result;
}

}  // namespace

std::size_t get_centring_vectors(std::size_t count, std::span<Vector3f> vectors) {
    const std::size_t given = std::min({count, vectors.size(), std::size_t{3}});
    std::size_t size = std::min(count, vectors.size());
    std::array<Vector3f, 3> v{};
    std::array<int, 3> range{1, 1, 1};
    for (std::size_t k = 0; k < given; ++k) {
        v[k] = vectors[k];
        range[k] = range_of(v[k]);
    }
    // A range of 1 stands for a vector that isn't there or that has no multiples in the cell.
    const auto first = [&](std::size_t k) { return k < given ? 0 : 1; };
    const auto last = [&](std::size_t k) { return k < given ? range[k] : 1; };
    for (int i = first(0); i <= last(0); ++i)
        for (int j = first(1); j <= last(1); ++j)
            for (int k = first(2); k <= last(2); ++k) {
                if (size == vectors.size()) return size;
                const Vector3f sum = math_gen::modulo_lat(static_cast<float>(i) * v[0] +
                                                          static_cast<float>(j) * v[1] +
                                                          static_cast<float>(k) * v[2]);
                if (distance_to_cells(sum) < eps_vector || is_listed(sum, vectors.first(size)))
                    continue;
                vectors[size++] = sum;
            }
    return size;
}

ReducedList get_so_from_gener(std::span<const Sym_Oper_Type> generators) {
    init_err_symm();
    Knowledge known(distinct(generators).all());
    for (std::size_t rounds = 0;;) {
        ReducedList list;
        list.generator_count = static_cast<int>(known.others.all().size());
        if (known.inversion) note_inversion(*known.inversion, list);
        if (!set_lattice(known.centring, list)) return list;
        const auto points = static_cast<std::size_t>(num_lat);
        ShortList<Vector3i, max_lattice_points - 1> vectors;
        for (const Vector3f& v : std::span(lat_trans).first(points).subspan(1))
            vectors.push(twelfths(v));
        std::optional<Vector3i> inversion;
        if (known.inversion) inversion = twelfths(*known.inversion);
        GroupTable table(vectors.all(), inversion);
        if (!close_group(known, list, table)) return list;
        if (!known.learn(table)) {
            set_system(std::span(list.ops).first(static_cast<std::size_t>(list.count)), list);
            return list;
        }
        // Each round that learns something has its first inversion, or at least twice the lattice
        // points of the last.
        if (++rounds > max_lattice_points || points == max_lattice_points) {
            set_err_symm(" Lattice Type couldn't be determined");
            return {};
        }
    }
}

ReducedList get_so_from_fix(std::span<const Sym_Oper_Type> ops) {
    init_err_symm();
    ReducedList list;
    list.count = static_cast<int>(ops.size());
    list.generator_count = std::max(list.count - 1, 0);
    Centring centring;
    for (const Sym_Oper_Type& op : ops) {
        const bool no_translation = twelfths(op.tr) == Vector3i{};
        if (op.rot == identity_rotation && !no_translation) centring.add(op.tr);
        // Of several inversions that are a centring vector apart the origin is preferred.
        if (op.rot == inversion_rotation && (list.centred == 1 || no_translation))
            note_inversion(op.tr, list);
    }
    if (set_lattice(centring, list)) {
        const OperatorList reduced = without_centring(ops, list.centred != 1);
        set_system(reduced.all(), list);
    }
    return list;
}

}  // namespace crystallographic_symmetry
