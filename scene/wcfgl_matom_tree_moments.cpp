// Moments and arrows.
//
// A term is the real part of S exp(-2 pi i (k.t + psi)). The phase factor depends on the lattice
// translation only and is a product of one factor for each axis, so three short tables serve a
// whole box. Tables and terms are computed in extended precision: rounded to 32 bits they are
// what the exponential of the sum gives.

#include "crystal/propagation_vectors.hpp"
#include "scene/box_cells.hpp"
#include "scene/shown_box.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"

#include <cmath>
#include <string_view>

namespace wcfgl_matom_tree {
namespace {

constexpr auto two_pi = static_cast<long double>(6.2831855f);  ///< the 32-bit value
constexpr float least_moment = 0.0001f;                        ///< shorter ones have no arrow

struct Phase {
    long double re = 1.0L;
    long double im = 0.0L;
};

/// exp(-2 pi i turns)
Phase turn_back(long double turns) { return {std::cos(two_pi * turns), -std::sin(two_pi * turns)}; }

Phase operator*(const Phase& a, const Phase& b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

Phase operator*(const std::complex<float>& s, const Phase& e) {
    return Phase{static_cast<long double>(s.real()), static_cast<long double>(s.imag())} * e;
}

/// The real part of s e, or half the sum with the partner at -k.
float term(const Phase& s, const Phase& e, bool k_is_minus_k) {
    const long double of_k = s.re * e.re - s.im * e.im;
    if (k_is_minus_k) return static_cast<float>(of_k);
    // The conjugate coefficient and the conjugate phase.
    const long double of_minus_k = s.re * e.re - (-s.im) * (-e.im);
    return static_cast<float>(0.5L * (of_k + of_minus_k));
}

/// The propagation vector of a moment; absent where an erasure has left the index beyond the list.
const Vector3f* vector_of(const MomentRecord& moment) {
    if (!current_k_list || moment.k_index < 1) return nullptr;
    const auto index = static_cast<std::size_t>(moment.k_index - 1);
    return index < current_k_list->size() ? &(*current_k_list)[index] : nullptr;
}

bool equivalent_to_minus(const Vector3f& k) {
    const char lattice = current_magnetic_lattice.value_or(' ');
    return propagation_vectors::k_equiv_minus_k(k, std::string_view(&lattice, 1));
}

/// The wave of one moment over the cells of a box.
class Wave {
public:
    Wave(const MomentRecord& moment, const box_cells::Cells& cells) : moment_(moment) {
        const Vector3f* k = vector_of(moment);
        if (!k) return;
        known_ = true;
        k_is_minus_k_ = equivalent_to_minus(*k);
        const Phase psi = turn_back(static_cast<long double>(moment.phase));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            first_[axis] = cells.first[axis];
            for (int t = cells.first[axis]; t <= cells.last[axis]; ++t)
                factors_[axis].push_back(turn_back(static_cast<long double>((*k)[axis]) * t));
        }
        for (Phase& factor : factors_[0]) factor = factor * psi;
    }

    /// Goes to the row of cells (i, j, ...) at column `p`.
    void go_to_row(std::size_t p, int i, int j) {
        if (!known_) return;
        const Phase e = factor(0, i) * factor(1, j);
        for (std::size_t axis = 0; axis < 3; ++axis) row_[axis] = moment_.Skj_eq[p][axis] * e;
    }
    /// In cell `k` of the row.
    Vector3f moment(int k) const {
        if (!known_) return {};
        const Phase& e = factor(2, k);
        return {term(row_[0], e, k_is_minus_k_), term(row_[1], e, k_is_minus_k_),
                term(row_[2], e, k_is_minus_k_)};
    }

private:
    const Phase& factor(std::size_t axis, int t) const {
        return factors_[axis][static_cast<std::size_t>(t - first_[axis])];
    }

    const MomentRecord& moment_;
    bool known_ = false;
    bool k_is_minus_k_ = true;
    Vector3i first_{};
    std::array<std::vector<Phase>, 3> factors_;
    std::array<Phase, 3> row_{};  ///< the coefficient with the phase of the row
};

void draw_arrow(const Vector3f& moment, float scale, const Colour& colour) {
    const Vector3f direction = wcfgl_geometry::cart2spher(moment_to_cartesian(moment));
    glPushMatrix();
    glRotatef(direction[1], 0.0f, 0.0f, 1.0f);
    glRotatef(-direction[2], 0.0f, 1.0f, 0.0f);
    if (direction[0] > least_moment) {
        glScalef(direction[0] * scale, 1.0f, 1.0f);
        glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, colour.data());
        glCallList(wcfgl_objects_definition::moment_definition);
    }
    glPopMatrix();
}

void draw_arrows(const MatomNode& node, const MomentSite& site) {
    const Vector3f place = wcfgl_metrix::f2c_r(site.position);
    glPushMatrix();
    glTranslatef(place[0], place[1], place[2]);
    if (node.group) {
        Vector3f sum{};
        for (const Vector3f& moment : site.terms) sum = sum + moment;
        if (shown_box::take_room()) draw_arrow(sum, node.scale, node.moment.front().colour);
    } else {
        for (std::size_t m = 0; m < site.terms.size(); ++m)
            if (shown_box::take_room())
                draw_arrow(site.terms[m], node.scale, node.moment[m].colour);
    }
    glPopMatrix();
}

}  // namespace

box_cells::Finder finder(const wcfgl_metrix::Box& box) { return {box, 1, 1}; }

void visit_moments(const MatomNode& node, std::size_t p,
                   const std::function<void(const MomentSite&)>& visit) {
    const Vector3f& x = node.xf_eq[p];
    const box_cells::Cells cells = finder(shown_box::box()).cells_of(x);
    if (cells.empty()) return;
    std::vector<Wave> waves;
    for (const MomentRecord& moment : node.moment) waves.emplace_back(moment, cells);
    std::vector<Vector3f> terms(waves.size());
    Vector3i t{};
    for (t[0] = cells.first[0]; t[0] <= cells.last[0]; ++t[0])
        for (t[1] = cells.first[1]; t[1] <= cells.last[1]; ++t[1]) {
            for (Wave& wave : waves) wave.go_to_row(p, t[0], t[1]);
            for (t[2] = cells.first[2]; t[2] <= cells.last[2]; ++t[2]) {
                for (std::size_t m = 0; m < waves.size(); ++m) terms[m] = waves[m].moment(t[2]);
                visit({t, box_cells::moved(x, t), terms});
            }
        }
}

Vector3f moment_term(const MomentRecord& moment, std::size_t p, const Vector3i& t) {
    Wave wave(moment, {t, t});
    wave.go_to_row(p, t[0], t[1]);
    return wave.moment(t[2]);
}

Vector3f moment_to_cartesian(const Vector3f& m) {
    if (!wcfgl_metrix::current_cell) return m;
    const Matrix3f& u = wcfgl_metrix::current_cell->unit_direct_matrix;
    Vector3f result;
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = m[0] * u[i][0] + m[1] * u[i][1] + m[2] * u[i][2];
    return result;
}

void construct_matom_dlist(MatomNode& node) {
    glNewList(node.dlist.name(), GL_COMPILE);
    for (std::size_t p = 0; p < node.xf_eq.size(); ++p)
        visit_moments(node, p, [&](const MomentSite& site) { draw_arrows(node, site); });
    glEndList();
}

}  // namespace wcfgl_matom_tree
