// A symbol names elements; where they stand it leaves to convention. Each family below places the
// elements of its first directions by the rules that the published origins follow, and obtains all
// others as products, so the list closes whatever the letters say. Translations are integer
// twelfths of the cell until the list is handed over.
//
// Centric groups are listed by the operators of determinant 1: the origin is a centre of
// inversion, and each plane turns into the axis normal to it. Only trigonal groups keep their
// planes, from which get_laue_pg tells the two directions apart.
#include "crystal/crystallographic_symmetry/hermann_mauguin_elements.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace crystallographic_symmetry::hermann_mauguin {
namespace {

constexpr int half = 6;
constexpr int quarter = 3;

constexpr Matrix3i rows(Vector3i x, Vector3i y, Vector3i z) { return {{x, y, z}}; }

// Rotations along the axes and diagonals of a square cell; along c they serve hexagonal cells too.
constexpr std::array<Matrix3i, 3> two{{rows({1, 0, 0}, {0, -1, 0}, {0, 0, -1}),
                                       rows({-1, 0, 0}, {0, 1, 0}, {0, 0, -1}),
                                       rows({-1, 0, 0}, {0, -1, 0}, {0, 0, 1})}};
constexpr Matrix3i two_110 = rows({0, 1, 0}, {1, 0, 0}, {0, 0, -1});
constexpr Matrix3i two_1m10 = rows({0, -1, 0}, {-1, 0, 0}, {0, 0, -1});
constexpr Matrix3i four_z = rows({0, -1, 0}, {1, 0, 0}, {0, 0, 1});
constexpr Matrix3i three_111 = rows({0, 0, 1}, {1, 0, 0}, {0, 1, 0});
// The others of hexagonal cells.
constexpr Matrix3i three_z = rows({0, -1, 0}, {1, -1, 0}, {0, 0, 1});
constexpr Matrix3i six_z = rows({1, -1, 0}, {1, 0, 0}, {0, 0, 1});
constexpr Matrix3i two_100_hex = rows({1, -1, 0}, {0, -1, 0}, {0, 0, -1});

constexpr Element inverted(const Element& e) { return {-e.rot, -e.tr}; }

Element product(const Element& a, const Element& b) {
    return {a.rot * b.rot, folded_twelfths(a.rot * b.tr + a.tr)};
}

/// Glide vector of a plane normal to axis `normal`, along a, b and c only.
Vector3i glide(char letter, std::size_t normal) {
    Vector3i g;
    if (letter == 'N') g = {half, half, half};
    if (letter == 'D') g = {quarter, quarter, quarter};
    if (letter >= 'A' && letter <= 'C') g[static_cast<std::size_t>(letter - 'A')] = half;
    g[normal] = 0;
    return g;
}

/// Glide along c of a plane that contains the main axis, in hexagonal and cubic terms.
int glide_along_c(char letter) { return letter == 'C' || letter == 'N' ? half : 0; }

Element plane_normal_to(std::size_t normal, Vector3i tr) { return {-two[normal], tr}; }

// --- triclinic and monoclinic -----------------------------------------------------------------

void place_monoclinic(const Symbol& symbol, bool centric, ElementList& list) {
    // A lone word means the unique axis b; of several, the first that isn't "1" tells the axis.
    std::size_t unique = 1;
    std::size_t field = 0;
    if (symbol.words > 1) {
        while (field < 3 && (symbol.parts[field].blank() || symbol.parts[field][0] == '1')) ++field;
        unique = field;
    }
    if (field == 3 || symbol.parts[field].blank()) return;
    const Direction& direction = symbol.direction[field];
    if (std::abs(direction.axis) == 1 && !direction.has_plane()) return;
    Vector3i tr = glide(direction.plane, unique);
    if (!centric && symbol.parts[field][0] != '2') {
        list.extend(plane_normal_to(unique, tr));
        return;
    }
    if (direction.axis == 2 && direction.screw == 1) tr[unique] = half;
    list.extend({two[unique], tr});
}

// --- orthorhombic -----------------------------------------------------------------------------

/// 222: each screw axis meets the next axis in cyclic order a quarter cell away. With two screws
/// the third axis, a pure rotation, goes through the origin instead.
void place_222(const std::array<int, 3>& screw, ElementList& list) {
    std::array<Vector3i, 3> tr{};
    const bool two_screws = screw[0] + screw[1] + screw[2] == 2 * half;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t next = (i + 1) % 3;
        tr[i][i] = screw[i];
        tr[i][next] = screw[next];
        if (!two_screws) continue;
        tr[i] = screw[i] == 0 ? Vector3i{} : Vector3i{screw[0], screw[1], screw[2]};
    }
    list.extend({two[2], tr[2]});
    list.extend({two[1], tr[1]});
}

/// mm2 in any orientation: the origin is on the axis. Only when that is a screw axis and one
/// plane a mirror, the origin is on the mirror.
void place_mm2(const std::array<Direction, 3>& direction, std::size_t polar, ElementList& list) {
    const std::size_t u = (polar + 1) % 3, v = (polar + 2) % 3;
    Vector3i at_u = glide(direction[u].plane, u);
    Vector3i at_v = glide(direction[v].plane, v);
    const int u_off = at_v[u], v_off = at_u[v];
    const bool screw = direction[polar].screw == 1;
    if (!screw || direction[u].plane != 'M') at_u[u] = u_off;
    if (!screw || direction[v].plane != 'M') at_v[v] = v_off;
    list.extend(plane_normal_to(u, at_u));
    list.extend(plane_normal_to(v, at_v));
}

/// How much the mirrors of mmm favour these heights: one that goes through the origin counts 2, or
/// 3 when it is normal to the glide direction of another plane.
int mirrors_at_origin(const std::array<char, 3>& letter, const Vector3i& heights) {
    int score = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (letter[i] != 'M' || heights[i] != 0) continue;
        const char along = "ABC"[i];
        score += letter[(i + 1) % 3] == along || letter[(i + 2) % 3] == along ? 3 : 2;
    }
    return score;
}

/// Where the planes of mmm stand: component i is twice the height, along i, of the plane normal
/// to i. The product of the three planes is the inversion at the origin, up to a centring vector;
/// of the choices this leaves, the one that puts most mirrors through the origin is published,
/// and of two such the one with the mirror normal to the glide direction of the third plane
/// (C m m a: the mirror normal to a).
Vector3i heights_of_planes(const std::array<char, 3>& letter, int lattice_index) {
    if (letter == std::array{'D', 'D', 'D'}) return {};  // the glides of F d d d all meet there
    const Vector3i exact =
        folded_twelfths(glide(letter[0], 0) + glide(letter[1], 1) + glide(letter[2], 2));
    Vector3i best = exact;
    for (const Vector3i& vector : centring_twelfths(lattice_index)) {
        const Vector3i heights = folded_twelfths(exact + vector);
        if (mirrors_at_origin(letter, heights) > mirrors_at_origin(letter, best)) best = heights;
    }
    return best;
}

void place_mmm(const std::array<char, 3>& letter, int lattice_index, ElementList& list) {
    const Vector3i heights = heights_of_planes(letter, lattice_index);
    for (const std::size_t i : {std::size_t{2}, std::size_t{1}}) {
        Vector3i tr = glide(letter[i], i);
        tr[i] = heights[i];
        list.extend(inverted(plane_normal_to(i, tr)));
    }
}

/// Two of the three elements determine the third, so a third word that is absent or contradicts
/// them isn't needed.
bool place_orthorhombic(const Symbol& symbol, bool centric, ElementList& list) {
    std::array<Direction, 3> direction = symbol.direction;
    const auto is_rotation = [&](std::size_t i) { return direction[i].axis == 2; };
    if (centric || (!is_rotation(0) && !is_rotation(1) && !is_rotation(2))) {
        std::array<char, 3> letter;
        for (std::size_t i = 0; i < 3; ++i)
            letter[i] = direction[i].has_plane() ? direction[i].plane : 'M';
        place_mmm(letter, symbol.lattice_index, list);
        return true;
    }
    for (Direction& d : direction)
        if (d.axis != 2 && !d.has_plane()) d.plane = 'M';
    if (is_rotation(0) && is_rotation(1)) {
        place_222({direction[0].screw == 1 ? half : 0, direction[1].screw == 1 ? half : 0,
                   direction[2].screw == 1 ? half : 0},
                  list);
        return false;
    }
    const std::size_t polar = is_rotation(0) ? 0 : is_rotation(1) ? 1 : 2;
    place_mm2(direction, polar, list);
    return false;
}

// --- tetragonal -------------------------------------------------------------------------------

/// Translation of the four-fold operator. A centre at the origin and the plane normal to the
/// axis fix it up to (1/2,1/2,0); an acentric group has the axis at the origin, or where more
/// symmetry meets: on the two-folds between the axes of I 41, at the site 222 of P 4 21 2.
Vector3i four_fold_translation(const Symbol& symbol, bool centric) {
    const auto& [main, second, third] = symbol.direction;
    Vector3i tr{0, 0, quarter * main.screw};
    const Vector3i second_position{half, half, 0};
    // P 42/m n m and P 42 n m: the site m m (m) of the diagonal mirrors is off the axis.
    const bool diagonal_mirrors = main.screw == 2 && second.plane == 'N' && third.plane == 'M' &&
                                  (!main.has_plane() || main.plane == 'M');
    if (diagonal_mirrors) return tr + second_position;
    if (centric) {
        const Vector3i g = glide(main.plane, 2);
        tr[0] = (g[0] + g[1]) / 2;
        tr[1] = (g[1] - g[0]) / 2;
        // P 42/n and I 41/a are published with the other choice, of equal symmetry.
        const bool lone_axis = !second.has_plane() && std::abs(second.axis) != 2;
        return lone_axis && main.screw != 0 && g != Vector3i{} ? tr + second_position : tr;
    }
    if (symbol.lattice == 'I' && main.screw % 2 == 1) tr[1] = half;
    if (second.axis == 2 && second.screw == 1) return tr + second_position;
    return tr;
}

/// The element along a, or the diagonal one where that is at the origin; none for a lone axis.
std::optional<Element> second_of_tetragonal(const Symbol& symbol, bool centric,
                                            const Vector3i& four_fold) {
    const auto& [main, second, third] = symbol.direction;
    if (second.has_plane()) {
        Vector3i tr = glide(second.plane, 0);
        tr[0] = centric && main.plane == 'N' ? tr[1] + half : tr[1];
        const Element plane = plane_normal_to(0, tr);
        return centric ? inverted(plane) : plane;
    }
    if (std::abs(second.axis) != 2) return std::nullopt;
    if (main.axis == 4) {
        const bool axis_at_origin = four_fold[0] == 0 && four_fold[1] == 0;
        return Element{axis_at_origin ? two[1] : two_110, {}};
    }
    if (third.plane == 'D') return Element{two[0], {0, half, quarter}};  // I -4 2 d
    const int screw = second.screw == 1 ? half : 0;
    return Element{two[0], {screw, screw, glide_along_c(third.plane)}};
}

void place_tetragonal(const Symbol& symbol, bool centric, ElementList& list) {
    Element four{four_z, {}};
    if (symbol.direction[0].axis < 0)
        four.rot = -four_z;
    else
        four.tr = four_fold_translation(symbol, centric);
    list.extend(product(four, four));
    list.extend(four);
    if (const auto second = second_of_tetragonal(symbol, centric, four.tr)) list.extend(*second);
}

// --- trigonal and hexagonal -------------------------------------------------------------------

void place_trigonal(const Symbol& symbol, ElementList& list) {
    const auto& [main, second, third] = symbol.direction;
    list.extend({three_z, {0, 0, 4 * main.screw}});
    if (second.has_plane())
        list.extend({-two_110, {0, 0, glide_along_c(second.plane)}});
    else if (second.axis == 2)
        list.extend({two_110, {}});
    else if (third.has_plane())
        list.extend({-two_1m10, {0, 0, glide_along_c(third.plane)}});
    else if (third.axis == 2)
        // The one at height 0 is along [210]; this one, next on the screw, is told by get_laue_pg.
        list.extend({two_1m10, {0, 0, 8 * main.screw}});
}

void place_hexagonal(const Symbol& symbol, bool centric, ElementList& list) {
    const auto& [main, second, third] = symbol.direction;
    const int along_c = glide_along_c(second.has_plane() ? second.plane : third.plane);
    list.extend({three_z, {0, 0, 4 * main.screw}});
    if (main.axis == -6) {
        // The two-folds across are at height 0; the plane normal to c is their product with the
        // vertical ones.
        list.extend(plane_normal_to(2, {0, 0, along_c}));
        if (second.has_plane()) list.extend({two_1m10, {}});
        if (second.axis == 2) list.extend({two_110, {}});
        return;
    }
    list.extend({six_z, {0, 0, 2 * main.screw}});
    if (second.has_plane())
        list.extend({centric ? two_110 : -two_110, {0, 0, along_c}});
    else if (second.axis == 2)
        list.extend({two_100_hex, {}});
}

// --- cubic ------------------------------------------------------------------------------------

std::array<char, 3> planes_of_cubic(char letter) {
    switch (letter) {
        case 'N':
        case 'D':
            return {letter, letter, letter};
        case 'A':
            return {'B', 'C', 'A'};  // normal to c the plane is an a glide
        default:
            return {'M', 'M', 'M'};
    }
}

/// 222 or mmm, the three-fold axis [111] through the origin, and then the third element: a
/// four-fold axis along c, or the plane normal to [1-10].
bool place_cubic(const Symbol& symbol, bool centric, ElementList& list) {
    const auto& [main, second, third] = symbol.direction;
    centric = centric || main.has_plane() || second.axis == -3;
    const bool odd_screw = main.screw % 2 == 1;
    // F 41 3 2 holds F 2 3 all the same: its lattice has the two-folds and their screws alike.
    const bool screws =
        (odd_screw && symbol.lattice != 'F') || (main.axis == -4 && third.plane == 'D');
    if (centric)
        place_mmm(planes_of_cubic(main.plane), symbol.lattice_index, list);
    else
        place_222(screws ? std::array{half, half, half} : std::array{0, 0, 0}, list);
    list.extend({three_111, {}});
    if (!centric && main.axis == 4) {
        const int along = quarter * main.screw;
        list.extend({four_z, {along, screws ? -along : along, along}});
    } else if (third.has_plane() || main.axis == -4) {
        const int along = third.plane == 'D' ? quarter : glide_along_c(third.plane);
        const Element plane{-two_1m10, {along, along, along}};
        list.extend(centric ? inverted(plane) : plane);
    }
    return centric;
}

}  // namespace

ElementList::ElementList() { elements_[0].rot = identity_rotation; }

void ElementList::extend(const Element& g) {
    const std::size_t before = count_;
    for (Element power = g; !holds(power.rot, before); power = product(power, g))
        for (std::size_t i = 0; i < before && count_ < elements_.size(); ++i)
            elements_[count_++] = product(power, elements_[i]);
}

bool ElementList::holds(const Matrix3i& rot, std::size_t count) const {
    return std::ranges::any_of(elements().first(count),
                               [&](const Element& e) { return e.rot == rot; });
}

bool place_elements(const Symbol& symbol, ElementList& list) {
    const Direction& main = symbol.direction[0];
    const bool centric = symbol.slash || main.axis == -3;
    switch (symbol.crystal_system) {
        case 1:
            return centric || main.axis < 0 || symbol.parts[0][0] == '-';
        case 2:
            place_monoclinic(symbol, centric, list);
            return centric;
        case 3:
            return place_orthorhombic(symbol, centric, list);
        case 4:
            place_tetragonal(symbol, centric, list);
            return centric;
        case 5:
            place_trigonal(symbol, list);
            return centric;
        case 6:
            place_hexagonal(symbol, centric, list);
            return centric;
        default:
            return place_cubic(symbol, centric, list);
    }
}

}  // namespace crystallographic_symmetry::hermann_mauguin
