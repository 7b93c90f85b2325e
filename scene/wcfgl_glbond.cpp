// The plain search goes through all pairs of atoms, all pairs of their positions and all 27
// translations, in this order: atom i, atom j, position p of i, translation t, position q of j.
// Here the positions of the second list stand in a grid over the cell, so that only those near a
// position of the first are looked at. What is found is then sorted into the plain order, and what
// decides is the plain test on the plain numbers: the grid only leaves out what can't pass it.

#include "scene/wcfgl_glbond.hpp"

#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace wcfgl_glbond {
namespace {

using wcfgl_geometry::vect_norm_3d;
using wcfgl_glatom::Atom;

constexpr float same_site_limit = 0.01f;  ///< norm of a difference in cell fractions
constexpr float coincidence = 0.01f;      ///< angstrom; shorter distances are no bonds

/// Half the edges, in cell fractions, of the box around a position that holds all positions within
/// `distance`: the distance times the length of each reciprocal vector. Infinite where no such box
/// can be told, which leaves nothing out.
Vector3<double> reach_of(float distance) {
    Vector3<double> reach{1.0, 1.0, 1.0};
    if (wcfgl_metrix::current_cell) {
        const Matrix3f& m = wcfgl_metrix::current_cell->direct_matrix;
        std::array<Vector3<double>, 3> edge{};
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t i = 0; i < 3; ++i) edge[j][i] = static_cast<double>(m[i][j]);
        for (std::size_t j = 0; j < 3; ++j) {
            const Vector3<double>& a = edge[(j + 1) % 3];
            const Vector3<double>& b = edge[(j + 2) % 3];
            const Vector3<double> normal{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                                         a[0] * b[1] - a[1] * b[0]};
            const double area = std::hypot(normal[0], normal[1], normal[2]);
            const double volume =
                std::abs(edge[j][0] * normal[0] + edge[j][1] * normal[1] + edge[j][2] * normal[2]);
            reach[j] = area / volume;
        }
    }
    // A rule may ask for less than nothing; the search is then as short as for nothing.
    const double farthest = std::max(static_cast<double>(distance), 0.0);
    for (double& r : reach) {
        // The margin is wider than the rounding of the 32-bit test.
        r = r * farthest * 1.0001 + 1e-4;
        if (!(r < 1e3)) r = std::numeric_limits<double>::infinity();
    }
    return reach;
}

/// A position of the second list.
struct Site {
    std::uint32_t atom = 0;
    std::uint32_t column = 0;  ///< of its xf_eq
    Vector3f x{};
    Vector3i cell{};  ///< the cell that x lies in
};

/// The sites of a list, sorted into bins over the unit cell.
class Grid {
public:
    Grid(std::span<const Atom> atoms, const Vector3<double>& reach) : reach_(reach) {
        choose_bins(atoms);
        sort(atoms);
    }

    /// Calls visit(site, t) for each site and each translation t of -1 to 1 that bring x + t within
    /// the reach of `x`; in no particular order, and for some beyond it as well.
    template <class Visit>
    void visit_near(const Vector3f& x, Visit visit) const {
        if (!ordinary(x)) {
            for (const Site& site : sites_) visit_all_translations(site, visit);
        } else {
            visit_bins(x, visit);
        }
        for (const Site& site : strays_) visit_all_translations(site, visit);
    }

private:
    /// Coordinates that can be counted in bins without loss. Others come from an editor only.
    static bool ordinary(const Vector3f& x) {
        return std::all_of(x.begin(), x.end(), [](float c) { return std::abs(c) < 1000.0f; });
    }

    /// As many bins as the reach allows, but not many more than there are sites.
    void choose_bins(std::span<const Atom> atoms) {
        std::size_t count = 0;
        for (const Atom& atom : atoms) count += atom.xf_eq.size();
        const double most = std::clamp(std::cbrt(static_cast<double>(2 * count)), 1.0, 64.0);
        for (std::size_t k = 0; k < 3; ++k)
            bins_[k] = static_cast<int>(std::clamp(std::floor(1.0 / reach_[k]), 1.0, most));
    }

    void sort(std::span<const Atom> atoms) {
        std::vector<std::uint32_t> bin_of_site;
        std::vector<Site> unsorted;
        start_.assign(static_cast<std::size_t>(bins_[0] * bins_[1] * bins_[2]) + 1, 0);
        for (std::size_t a = 0; a < atoms.size(); ++a)
            for (std::size_t q = 0; q < atoms[a].xf_eq.size(); ++q) {
                Site site{static_cast<std::uint32_t>(a),
                          static_cast<std::uint32_t>(q),
                          atoms[a].xf_eq[q],
                          {}};
                if (!ordinary(site.x)) {
                    strays_.push_back(site);
                    continue;
                }
                Vector3i bin{};
                for (std::size_t k = 0; k < 3; ++k) {
                    const double c = static_cast<double>(site.x[k]);
                    site.cell[k] = static_cast<int>(std::floor(c));
                    bin[k] =
                        std::min(static_cast<int>((c - std::floor(c)) * bins_[k]), bins_[k] - 1);
                    first_cell_[k] = std::min(first_cell_[k], site.cell[k]);
                    last_cell_[k] = std::max(last_cell_[k], site.cell[k]);
                }
                const std::size_t index = bin_index(bin);
                ++start_[index + 1];
                bin_of_site.push_back(static_cast<std::uint32_t>(index));
                unsorted.push_back(site);
            }
        for (std::size_t b = 1; b < start_.size(); ++b) start_[b] += start_[b - 1];
        sites_.resize(unsorted.size());
        std::vector<std::size_t> next(start_.begin(), start_.end() - 1);
        for (std::size_t s = 0; s < unsorted.size(); ++s)
            sites_[next[bin_of_site[s]]++] = unsorted[s];
    }

    std::size_t bin_index(const Vector3i& bin) const {
        return static_cast<std::size_t>((bin[0] * bins_[1] + bin[1]) * bins_[2] + bin[2]);
    }

    /// One direction of a walk through the bins, which goes on beyond the cell.
    struct Step {
        int cell = 0;
        int bin = 0;  ///< within the cell

        Step(int b, int bins) : cell(b >= 0 ? b / bins : -((-b + bins - 1) / bins)) {
            bin = b - cell * bins;
        }
        void advance(int bins) {
            if (++bin < bins) return;
            bin = 0;
            ++cell;
        }
    };

    template <class Visit>
    void visit_bins(const Vector3f& x, Visit visit) const {
        // Bins are counted on beyond the cell, `bins_` of them a cell.
        Vector3i low{}, high{};
        for (std::size_t k = 0; k < 3; ++k) {
            const double c = static_cast<double>(x[k]), n = bins_[k];
            low[k] = static_cast<int>(
                std::max(std::floor((c - reach_[k]) * n), (first_cell_[k] - 1.0) * n));
            high[k] = static_cast<int>(
                std::min(std::floor((c + reach_[k]) * n), (last_cell_[k] + 2.0) * n - 1.0));
        }
        Step s0(low[0], bins_[0]);
        for (int i = low[0]; i <= high[0]; ++i, s0.advance(bins_[0])) {
            Step s1(low[1], bins_[1]);
            for (int j = low[1]; j <= high[1]; ++j, s1.advance(bins_[1])) {
                Step s2(low[2], bins_[2]);
                for (int k = low[2]; k <= high[2]; ++k, s2.advance(bins_[2]))
                    visit_bin(x, {s0.bin, s1.bin, s2.bin}, {s0.cell, s1.cell, s2.cell}, visit);
            }
        }
    }

    template <class Visit>
    void visit_bin(const Vector3f& x, const Vector3i& bin, const Vector3i& cell,
                   Visit visit) const {
        const std::size_t index = bin_index(bin);
        for (std::size_t s = start_[index]; s < start_[index + 1]; ++s) {
            const Site& site = sites_[s];
            const Vector3i t = cell - site.cell;
            bool near = true;
            for (std::size_t k = 0; k < 3 && near; ++k) {
                const double way =
                    static_cast<double>(x[k]) - static_cast<double>(site.x[k]) - t[k];
                near = t[k] >= -1 && t[k] <= 1 && std::abs(way) <= reach_[k];
            }
            if (near) visit(site, t);
        }
    }

    template <class Visit>
    static void visit_all_translations(const Site& site, Visit visit) {
        Vector3i t{};
        for (t[0] = -1; t[0] <= 1; ++t[0])
            for (t[1] = -1; t[1] <= 1; ++t[1])
                for (t[2] = -1; t[2] <= 1; ++t[2]) visit(site, t);
    }

    Vector3<double> reach_;
    Vector3i bins_{1, 1, 1};
    Vector3i first_cell_{0, 0, 0};
    Vector3i last_cell_{0, 0, 0};
    std::vector<std::size_t> start_;  ///< first site of each bin, and the end
    std::vector<Site> sites_;         ///< by bin
    std::vector<Site> strays_;        ///< in no bin
};

const BondEnds no_bond{};

}  // namespace

std::array<std::size_t, 2> Bonds::pair(std::size_t record) const {
    if (!triangle_) return {record / colours2_.size(), record % colours2_.size()};
    // Row i of the triangle begins at i (i + 1) / 2.
    auto i =
        static_cast<std::size_t>((std::sqrt(8.0 * static_cast<double>(record) + 1.0) - 1.0) / 2);
    while (i * (i + 1) / 2 > record) --i;
    while ((i + 1) * (i + 2) / 2 <= record) ++i;
    return {i, record - i * (i + 1) / 2};
}

Bond Bonds::bond(const Record& record) const {
    const auto [i, j] = pair(record.number);
    return {colours1_[i], colours2_[j], std::span(columns_).subspan(record.first, record.count)};
}

Bond Bonds::operator[](std::size_t record) const {
    const auto found =
        std::lower_bound(records_.begin(), records_.end(), record,
                         [](const Record& r, std::size_t n) { return r.number < n; });
    if (found != records_.end() && found->number == record) return bond(*found);
    const auto [i, j] = pair(record);
    return {colours1_[i], colours2_[j], {&no_bond, 1}};
}

class Search {
public:
    Search(std::span<const Atom> list1, std::span<const Atom> list2, float min_distance,
           float max_distance, bool triangle)
        : list1_(list1),
          list2_(list2),
          min_distance_(min_distance),
          max_distance_(max_distance),
          grid_(list2, reach_of(max_distance)) {
        bonds_.triangle_ = triangle;
        for (const Atom& atom : list2) columns2_ = std::max(columns2_, atom.xf_eq.size());
    }

    Bonds run() {
        const std::size_t n = list1_.size();
        for (std::size_t i = 0; i < n && room() > 0; ++i) {
            keys_.clear();
            for (std::size_t p = 0; p < list1_[i].xf_eq.size(); ++p) find_bonds_of(i, p);
            keep_first_keys();
            std::sort(keys_.begin(), keys_.end());
            store(i);
        }
        bonds_.size_ = bonds_.triangle_ ? n * (n + 1) / 2 : n * list2_.size();
        return std::move(bonds_);
    }

    void colour_by(const std::optional<Colour>& colour) {
        const auto fill = [&](std::vector<Colour>& colours, std::span<const Atom> atoms) {
            for (const Atom& atom : atoms) colours.push_back(colour.value_or(atom.colour));
        };
        fill(bonds_.colours1_, list1_);
        fill(bonds_.colours2_, list2_);
    }

private:
    void find_bonds_of(std::size_t i, std::size_t p) {
        const Vector3f& x = list1_[i].xf_eq[p];
        grid_.visit_near(x, [&](const Site& site, const Vector3i& t) {
            if (bonds_.triangle_ && site.atom > i) return;
            if (site.column > p && same_site(list1_[i], list2_[site.atom])) return;
            if (!bonded(x, site.x, t)) return;
            const auto translation =
                static_cast<std::uint64_t>((t[0] + 1) * 9 + (t[1] + 1) * 3 + t[2] + 1);
            keys_.push_back(((site.atom * list1_[i].xf_eq.size() + p) * 27 + translation) *
                                columns2_ +
                            site.column);
            if (keys_.size() > 2 * room() + 1000) keep_first_keys();
        });
    }

    /// For bonds that the rule may still find.
    std::size_t room() const { return most_bonds - bonds_.columns_.size(); }

    /// Drops the keys of bonds for which there is no room, whatever else is found of this atom.
    void keep_first_keys() {
        if (keys_.size() <= room()) return;
        const auto end = keys_.begin() + static_cast<std::ptrdiff_t>(room());
        std::nth_element(keys_.begin(), end, keys_.end());
        keys_.erase(end, keys_.end());
    }

    static bool same_site(const Atom& a, const Atom& b) {
        return vect_norm_3d(a.xf - b.xf) <= same_site_limit;
    }

    bool bonded(const Vector3f& x1, const Vector3f& x2, const Vector3i& t) {
        ++bonds_.distance_tests_;
        const Vector3f v = x1 - x2 - shift(t);
        const float distance = vect_norm_3d(wcfgl_metrix::f2c_r(v));
        return distance <= max_distance_ && distance >= min_distance_ && distance > coincidence;
    }

    static Vector3f shift(const Vector3i& t) {
        return {static_cast<float>(t[0]), static_cast<float>(t[1]), static_cast<float>(t[2])};
    }

    /// Takes the sorted keys of atom i apart again, into a record for each of its partners.
    void store(std::size_t i) {
        const std::size_t columns1 = list1_[i].xf_eq.size();
        const std::size_t first_record = bonds_.triangle_ ? i * (i + 1) / 2 : i * list2_.size();
        for (const std::uint64_t key : keys_) {
            const std::size_t q = key % columns2_;
            const auto t = static_cast<int>(key / columns2_ % 27);
            const std::size_t p = key / columns2_ / 27 % columns1;
            const std::size_t j = key / columns2_ / 27 / columns1;
            const Vector3f& x1 = list1_[i].xf_eq[p];
            const Vector3f x2 = list2_[j].xf_eq[q] + shift({t / 9 - 1, t / 3 % 3 - 1, t % 3 - 1});
            if (bonds_.records_.empty() || bonds_.records_.back().number != first_record + j)
                bonds_.records_.push_back({first_record + j, bonds_.columns_.size(), 0});
            bonds_.columns_.push_back({x1[0], x1[1], x1[2], x2[0], x2[1], x2[2]});
            ++bonds_.records_.back().count;
        }
    }

    std::span<const Atom> list1_;
    std::span<const Atom> list2_;
    float min_distance_;
    float max_distance_;
    std::size_t columns2_ = 1;  ///< the most positions of an atom of list2
    Grid grid_;
    std::vector<std::uint64_t> keys_;  ///< bonds of one atom of list1, as (j, p, t, q)
    Bonds bonds_;
};

Bonds new_gl_bonds(std::span<const Atom> list1, std::span<const Atom> list2, float min_distance,
                   float max_distance, bool by_symbol, const std::optional<Colour>& colour) {
    if (list1.empty() || list2.empty()) return {};
    const bool same_name = by_symbol ? list1.front().symbol == list2.front().symbol
                                     : list1.front().label == list2.front().label;
    Search search(list1, list2, min_distance, max_distance, same_name);
    search.colour_by(colour);
    return search.run();
}

}  // namespace wcfgl_glbond
