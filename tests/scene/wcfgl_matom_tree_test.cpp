#include "scene/wcfgl_matom_tree.hpp"

#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "tests/support/gl_record.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace {

using namespace wcfgl_matom_tree;
using testing::ElementsAre;
using testing::HasSubstr;

/// A phase of one propagation vector and, for each operator, one magnetic operator.
void define_phase(char lattice, const Vector3f& k, const std::vector<OperatorText>& xsym,
                  const std::vector<OperatorText>& msym) {
    define_magnetic_phase(lattice, {&k, 1}, xsym, msym, 1);
}

FourierComponent component(const Vector3f& re, const Vector3f& im = {}, float phase = 0.0f) {
    FourierComponent c;
    for (std::size_t i = 0; i < 3; ++i) c.skp[i] = {re[i], im[i]};
    c.phase = phase;
    c.colour = {0, 0, 1, 1};
    return c;
}

const MatomNode& push(const Vector3f& xf, const std::vector<FourierComponent>& components,
                      int group = 0, float scale = 1.0f) {
    push_matom("Fe1", "FE", xf, components, scale, 0, group);
    const MatomNode* node = matom_list_head();
    while (node->next) node = node->next.get();
    return *node;
}

/// The moments along a in the cells 0 to 3 of the a axis.
std::vector<float> along_a(const MatomNode& node) {
    std::vector<float> m;
    for (int n = 0; n < 4; ++n) m.push_back(moment_term(node.moment[0], 0, {n, 0, 0})[0]);
    return m;
}

MATCHER_P2(Near, value, tolerance, "") { return std::abs(arg - value) <= tolerance; }

// 2 pi stands as its 32-bit value, 1.7e-7 too large: a few turns away that is about 1e-6.
constexpr float phase_error = 2e-6f;
auto near(double value) { return Near(static_cast<float>(value), phase_error); }

TEST(MomentTerm, FollowsTheClosedFormsOfSimpleVectors) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    const std::vector<OperatorText> x{"x,y,z"}, m{"MSYM u,v,w,0.0"};
    define_phase('P', {0, 0, 0}, x, m);
    EXPECT_THAT(along_a(push({}, {component({2, 0, 0})})), ElementsAre(2, 2, 2, 2));

    define_phase('P', {0.5f, 0, 0}, x, m);
    EXPECT_THAT(along_a(push({}, {component({2, 0, 0})})),
                ElementsAre(near(2), near(-2), near(2), near(-2)));

    define_phase('P', {0, 0, 0}, x, m);
    EXPECT_THAT(along_a(push({}, {component({2, 0, 0}, {}, 0.5f)})),
                ElementsAre(near(-2), near(-2), near(-2), near(-2)));

    const double third = 2 * std::numbers::pi * static_cast<double>(1.0f / 3.0f);
    define_phase('P', {1.0f / 3.0f, 0, 0}, x, m);
    EXPECT_THAT(along_a(push({}, {component({2, 0, 0})})),
                ElementsAre(near(2), near(2 * std::cos(third)), near(2 * std::cos(2 * third)),
                            near(2 * std::cos(3 * third))));

    // A helix: real and imaginary parts a quarter turn apart, k in no relation to the lattice.
    const double turn = 2 * std::numbers::pi * static_cast<double>(0.217f);
    define_phase('P', {0, 0, 0.217f}, x, m);
    const MatomNode& helix = push({}, {component({3, 0, 0}, {0, 3, 0})});
    for (int n = -2; n <= 2; ++n)
        EXPECT_THAT(moment_term(helix.moment[0], 0, {0, 0, n}).c,
                    ElementsAre(near(3 * std::cos(turn * n)), near(3 * std::sin(turn * n)), 0));

    // Phase 0.25 of a real vector: cos(2 pi (k.t + 1/4)), nothing in the first cell.
    define_phase('P', {0.1f, 0, 0}, x, m);
    const double tenth = 2 * std::numbers::pi * static_cast<double>(0.1f);
    EXPECT_THAT(along_a(push({}, {component({2, 0, 0}, {}, 0.25f)})),
                ElementsAre(near(0), near(-2 * std::sin(tenth)), near(-2 * std::sin(2 * tenth)),
                            near(-2 * std::sin(3 * tenth))));
}

/// The sum as it is defined, in extended precision from the stored coefficients.
Vector3f literal_term(const MomentRecord& moment, const Vector3f& k, const Vector3i& t,
                      bool k_is_minus_k) {
    using Wide = std::complex<long double>;
    constexpr long double two_pi = 6.2831855f;
    long double kt = 0;
    for (std::size_t i = 0; i < 3; ++i) kt += static_cast<long double>(k[i]) * t[i];
    const Wide e = std::exp(Wide(0, -two_pi * kt));
    const Wide p = std::exp(Wide(0, -two_pi * static_cast<long double>(moment.phase)));
    Vector3f result;
    for (std::size_t i = 0; i < 3; ++i) {
        const Wide s = moment.Skj_eq[0][i];
        const long double plus = (s * e * p).real();
        const long double minus = (std::conj(s) * std::conj(e) * std::conj(p)).real();
        result[i] = static_cast<float>(k_is_minus_k ? plus : 0.5L * (plus + minus));
    }
    return result;
}

TEST(MomentTerm, EqualsTheExponentialOfTheWholeSumInEveryBit) {
    std::mt19937 random(4);
    std::uniform_real_distribution<float> any(-1.0f, 1.0f);
    std::uniform_int_distribution<int> cell(-20, 20);
    const auto vector = [&] { return Vector3f{any(random), any(random), any(random)}; };
    for (int round = 0; round < 200; ++round) {
        const bool commensurate = round % 4 == 0;
        const Vector3f k = commensurate ? Vector3f{0.5f, 0, 0.5f} : vector();
        define_phase('P', k, {"x,y,z"}, {"MSYM u,v,w,0.0"});
        const MatomNode& node = push({}, {component(vector(), vector(), any(random))});
        for (int n = 0; n < 50; ++n) {
            const Vector3i t{cell(random), cell(random), cell(random)};
            EXPECT_EQ(moment_term(node.moment[0], 0, t),
                      literal_term(node.moment[0], k, t, commensurate));
        }
        empty_matom_list();
    }
}

TEST(PushMatom, OrdersColumnsByLatticePointAndKeepsEqualPositions) {
    define_phase('C', {0, 0, 0}, {"x,y,z", "-x,-y,-z"}, {"MSYM u,v,w,0.0", "MSYM -u,-v,-w,0.0"});
    const MatomNode& node = push({0, 0, 0.25f}, {component({1, 2, 3})});
    ASSERT_EQ(node.xf_eq.size(), 4u);
    EXPECT_EQ(node.xf_eq[0], (Vector3f{0, 0, 0.25f}));
    EXPECT_EQ(node.xf_eq[1], (Vector3f{0, 0, 0.75f}));
    EXPECT_EQ(node.xf_eq[2], (Vector3f{0.5f, 0.5f, 0.25f}));
    EXPECT_EQ(node.xf_eq[3], (Vector3f{0.5f, 0.5f, 0.75f}));
    EXPECT_EQ(node.moment[0].Skj_eq[1][2].real(), -3.0f);
    EXPECT_EQ(node.moment[0].Skj_eq[3][0].real(), -1.0f);

    const MatomNode& special = push({0, 0, 0}, {component({1, 0, 0})});
    EXPECT_EQ(special.xf_eq.size(), 4u);
    EXPECT_EQ(special.xf_eq[0], special.xf_eq[1]);

    // An axis of the cell's faces, reached from one inside.
    define_phase('R', {0, 0, 0}, {"x-y+1/3,-y+2/3,-z+2/3"}, {"MSYM u,v,w,0.0"});
    const MatomNode& on_axis = push({1.0f / 3.0f, 2.0f / 3.0f, 0.25f}, {component({0, 0, 1})});
    EXPECT_EQ(on_axis.xf_eq[0][0], 0.0f);
    EXPECT_EQ(on_axis.xf_eq[0][1], 0.0f);
}

// By hand: -x takes 0.2 to -0.2, folded to 0.8 with d = (1, 0, 0); the factor is
// exp(-2 pi i 0.25) = -i, and a moment of 2 becomes -2i.
TEST(PushMatom, FoldsWithTheReturningLatticeVectorsPhase) {
    define_phase('P', {0.25f, 0, 0}, {"-x,y,z"}, {"MSYM u,v,w,0.0"});
    const MatomNode& node = push({0.2f, 0, 0}, {component({2, 0, 0})});
    EXPECT_THAT(node.xf_eq[0][0], near(0.8));
    EXPECT_THAT(node.moment[0].Skj_eq[0][0].real(), near(0));
    EXPECT_THAT(node.moment[0].Skj_eq[0][0].imag(), near(-2));
}

// By hand, on a hexagonal cell: -y,x-y,z takes (0.3, 0.1, 0) to (-0.1, 0.2, 0), so d = (1, 0, 0);
// -v,u-v,w takes (1, 0, 0) to (0, 1, 0); k.d = 1/3 turns it back by a third of a turn.
TEST(PushMatom, TurnsMomentsAndPositionsOfAHexagonalCell) {
    wcfgl_metrix::define_cell({5, 5, 7}, {90, 90, 120});
    define_phase('P', {1.0f / 3.0f, 1.0f / 3.0f, 0}, {"-y,x-y,z"}, {"MSYM -v,u-v,w,0.0"});
    const MatomNode& node = push({0.3f, 0.1f, 0}, {component({1, 0, 0})});
    EXPECT_THAT(node.xf_eq[0].c, ElementsAre(near(0.9), near(0.2), near(0)));
    const ComplexVector& s = node.moment[0].Skj_eq[0];
    EXPECT_THAT(std::abs(s[0]), near(0));
    EXPECT_THAT(s[1].real(), near(-0.5));
    EXPECT_THAT(s[1].imag(), near(-std::sqrt(0.75)));
    // Components stand along unit vectors: 1 along b is 1 long, and points 120 degrees from a.
    const Vector3f cartesian = moment_to_cartesian({0, 1, 0});
    EXPECT_THAT(cartesian.c, ElementsAre(near(-0.5), near(std::sqrt(0.75)), 0));
}

// k.T = 1/8. The centred position 1.2 is folded to 0.2, and that lattice vector's quarter of a turn
// is left out, unlike that of an operator with the same translation: a known limit that users'
// files are written around.
TEST(PushMatom, CentringPointsTakeThePhaseOfTheirVectorButNotOfItsFold) {
    const float eighth = 2 * std::numbers::sqrt2_v<float> / 2;
    define_phase('I', {0, 0, 0.25f}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    const MatomNode& node = push({0.1f, 0, 0.7f}, {component({0, 0, 2})});
    ASSERT_EQ(node.xf_eq.size(), 2u);
    EXPECT_THAT(node.xf_eq[1].c, ElementsAre(near(0.6), near(0.5), near(0.2)));
    EXPECT_THAT(node.moment[0].Skj_eq[0][2].real(), near(2));
    EXPECT_THAT(node.moment[0].Skj_eq[1][2].real(), near(eighth));
    EXPECT_THAT(node.moment[0].Skj_eq[1][2].imag(), near(-eighth));

    define_phase('P', {0, 0, 0.25f}, {"x+1/2,y+1/2,z+1/2"}, {"MSYM u,v,w,0.125"});
    const MatomNode& written_out = push({0.1f, 0, 0.7f}, {component({0, 0, 2})});
    EXPECT_THAT(written_out.xf_eq[0].c, ElementsAre(near(0.6), near(0.5), near(0.2)));
    EXPECT_THAT(written_out.moment[0].Skj_eq[0][2].imag(), near(eighth));
}

TEST(PushMatom, OperatorPhaseHalfATurnReverses) {
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.5"});
    EXPECT_THAT(push({}, {component({0, 3, 0})}).moment[0].Skj_eq[0][1].real(), near(-3));
}

// An eighth of a turn back: 2 becomes sqrt(2) (1 - i).
TEST(PushMatom, OperatorPhasesTurnBack) {
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.125"});
    const std::complex<float> s = push({}, {component({2, 0, 0})}).moment[0].Skj_eq[0][0];
    EXPECT_THAT(s.real(), near(std::numbers::sqrt2));
    EXPECT_THAT(s.imag(), near(-std::numbers::sqrt2));
}

TEST(PushMatom, TheOperatorsMatrixTurnsBothParts) {
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM v,-u,w,0.0"});
    const MatomNode& node = push({}, {component({1, 0, 0}, {0, 2, 3})});
    const ComplexVector& s = node.moment[0].Skj_eq[0];
    EXPECT_EQ(s[0], std::complex<float>(0, 2));
    EXPECT_EQ(s[1], std::complex<float>(-1, 0));
    EXPECT_EQ(s[2], std::complex<float>(0, 3));
}

TEST(PushMatom, FoldsThePositionOfTheAtomItself) {
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    EXPECT_EQ(push({-0.25f, 1.5f, 0.5f}, {component({1, 0, 0})}).xf, (Vector3f{0.75f, 0.5f, 0.5f}));
}

TEST(PushMatom, BadIndicesTextsAndLettersCostThemselvesOnly) {
    push_matom("A", "FE", {}, std::vector{component({1, 0, 0})}, 1, 0, 0);
    EXPECT_EQ(matom_list_head(), nullptr) << "no phase";

    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    std::vector<FourierComponent> components(5, component({1, 0, 0}));
    components[0].k_index = 2;
    components[1].k_index = 0;
    components[2].msym_index = -3;
    components[3].msym_index = 2;
    push_matom("A", "FE", {}, std::span(components).first(4), 1, 0, 0);
    EXPECT_EQ(matom_list_head(), nullptr);
    push_matom("A", "FE", {}, components, 1, 0, 0);
    ASSERT_NE(matom_list_head(), nullptr);
    EXPECT_EQ(matom_list_head()->moment.size(), 1u);

    define_phase('?', {0, 0, 0}, {"no operator"}, {"MSYM neither"});
    push({0.5f, 0, 0}, components);
    define_magnetic_phase('P', {}, {}, {}, 0);
    push_matom("A", "FE", {}, components, 1, 0, 0);
}

TEST(KVectors, EditsOutsideTheListChangeNothing) {
    append_k_vector({1, 0, 0});
    append_k_vector({2, 0, 0});
    modify_k_vector(3, {9, 9, 9});
    erase_k_vector(0);
    erase_k_vector(3);
    modify_k_vector(2, {3, 0, 0});
    EXPECT_EQ(*current_k_list, (std::vector<Vector3f>{{1, 0, 0}, {3, 0, 0}}));
    erase_k_vector(1);
    erase_k_vector(1);
    ASSERT_TRUE(current_k_list);
    EXPECT_TRUE(current_k_list->empty());
}

TEST(KVectors, AMomentWhoseVectorIsErasedShowsNothing) {
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    const MatomNode& node = push({}, {component({1, 0, 0})});
    erase_k_vector(1);
    EXPECT_EQ(moment_term(node.moment[0], 0, {0, 0, 0}), Vector3f{});
}

/// Where the arrows drawn by a node begin and end, and their colour.
struct Arrow {
    Vector3<double> tail, tip;
    Colour colour;
};
std::vector<Arrow> arrows(const MatomNode& node) {
    std::vector<Arrow> found;
    draw_matoms();
    for (const gl_record::Primitive& p : gl_record::drawn_by(node.dlist.name())) {
        // The shaft is the longer cylinder of the arrow: from its tail to its head.
        if (p.name != "gluCylinder" || p.arguments[0] != p.arguments[1]) continue;
        const double length = p.arguments[2];
        found.push_back({p.at(0, 0, 0), p.at(0, 0, 1.0), p.material});
        EXPECT_NEAR(length, 0.7, 1e-6);
    }
    return found;
}

TEST(Arrows, AreCentredOnTheAtomAlongTheCartesianMoment) {
    wcfgl_metrix::define_cell({4, 5, 6}, {90, 90, 90});
    wcfgl_metrix::define_box(0, 0.9f, 0, 0.9f, 0, 0.9f);
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    const auto drawn = arrows(push({0.5f, 0.5f, 0.5f}, {component({0, 3, 0})}, 0, 0.5f));
    ASSERT_EQ(drawn.size(), 1u);
    // 3 along b at scale 0.5: 1.5 long about (2, 2.5, 3).
    EXPECT_NEAR(drawn[0].tail[1], 2.5 - 0.75, 1e-5);
    EXPECT_NEAR(drawn[0].tip[1], 2.5 + 0.75, 1e-5);
    EXPECT_NEAR(drawn[0].tail[0], 2.0, 1e-5);
    EXPECT_NEAR(drawn[0].tip[2], 3.0, 1e-5);
    EXPECT_EQ(drawn[0].colour, (Colour{0, 0, 1, 1}));
}

TEST(Arrows, GrowInLengthAndNotInThickness) {
    wcfgl_metrix::define_box(0, 0.5f, 0, 0.5f, 0, 0.5f);
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    for (const float moment : {1.0f, 5.0f}) {
        const MatomNode& node = push({}, {component({moment, 0, 0})}, 0, 2.0f);
        draw_matoms();
        const auto shapes = gl_record::drawn_by(node.dlist.name());
        const auto shaft = std::find_if(shapes.begin(), shapes.end(),
                                        [](const auto& p) { return p.name == "gluCylinder"; });
        ASSERT_NE(shaft, shapes.end());
        const double radius = shaft->arguments[0];
        const Vector3<double> side = shaft->at(radius, 0, 0) - shaft->at(0, 0, 0);
        EXPECT_NEAR(std::hypot(side[0], side[1], side[2]), radius, 1e-6);
    }
}

TEST(Arrows, StandOnBothFacesOfTheBoxAndOnlyInside) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    wcfgl_metrix::define_box(0, 1, 0, 1, 0, 1);
    define_phase('P', {0.5f, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    const MatomNode& corner = push({0, 0, 0}, {component({0, 0, 1})});
    const auto drawn = arrows(corner);
    ASSERT_EQ(drawn.size(), 8u);
    for (const Arrow& arrow : drawn)  // up at x = 0, down at x = a
        EXPECT_EQ(arrow.tip[2] > arrow.tail[2], arrow.tail[0] < 2.0);
    wcfgl_metrix::define_box(0.1f, 0.9f, 0, 1, 0, 1);
    update_all_matoms();
    EXPECT_TRUE(arrows(corner).empty());
}

TEST(Arrows, OneARecordOrOneForTheGroupInTheFirstColour) {
    wcfgl_metrix::define_box(0, 0.5f, 0, 0.5f, 0, 0.5f);
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    std::vector<FourierComponent> two{component({0, 0, 0}), component({0, 0, 2})};
    two[0].colour = {1, 0, 0, 1};
    const auto apart = arrows(push({}, two));
    ASSERT_EQ(apart.size(), 1u);  // a moment of zero has none
    EXPECT_EQ(apart[0].colour, (Colour{0, 0, 1, 1}));
    const auto grouped = arrows(push({}, two, 1, 0.5f));
    ASSERT_EQ(grouped.size(), 1u);
    EXPECT_NEAR(grouped[0].tip[2] - grouped[0].tail[2], 1.0, 1e-5);
    EXPECT_EQ(grouped[0].colour, (Colour{1, 0, 0, 1}));
    EXPECT_TRUE(arrows(push({}, {component({0, 0, 0.0001f})})).empty());
    EXPECT_EQ(arrows(push({}, {component({0, 0, 0.00011f})})).size(), 1u);
}

TEST(Arrows, FollowBoxAndCellButNotTheGroup) {
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    const MatomNode& node = push({}, {component({0, 0, 1})});
    draw_matoms();
    wcfgl_metrix::box_changed = wcfgl_metrix::cell_changed = wcfgl_metrix::spacegroup_changed = 0;
    const auto compiled_in_a_frame = [&] {
        gl_record::clear();
        draw_matoms();
        return gl_record::count("glNewList");
    };
    EXPECT_EQ(compiled_in_a_frame(), 0u);
    wcfgl_metrix::spacegroup_changed = 1;
    EXPECT_EQ(compiled_in_a_frame(), 0u);
    wcfgl_metrix::define_cell({3, 3, 3}, {90, 90, 90});
    EXPECT_EQ(compiled_in_a_frame(), 1u);
    EXPECT_EQ(gl_record::count("glCallList") > 0, true);
    EXPECT_FALSE(gl_record::drawn_by(node.dlist.name()).empty());
}

TEST(MagneticBlock, HoldsPhaseAndAtomsInFixedWidths) {
    std::string out;
    write_magnetic_structure(out);
    EXPECT_EQ(out, "{\n}\n");

    define_phase('P', {0.5f, 0, -0.25f}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    push({0.25f, 0, 0}, {component({1, -2, 0.5f}, {0, 0, 3}, 0.125f)}, 1, 10.5f);
    out.clear();
    write_magnetic_structure(out);
    const std::string blanks75(75, ' '), blanks66(66, ' ');
    EXPECT_EQ(out, "{\nLATTICE P\nK   0.5000  0.0000 -0.2500\nSYMM x,y,z" + blanks75 +
                       "\nMSYM u,v,w,0.0" + blanks66 +
                       "\nMATOM Fe1       FE  0.2500  0.0000  0.0000 SCALE 10.50 GROUP          \n"
                       "SKP   1  1    1.000   -2.000    0.500    0.000    0.000    3.000    0.125"
                       " COLOR  0.000 0.000 1.000 1.000\n}\n");
}

TEST(MomentList, TellsEveryTermAndTheCartesianTotal) {
    std::string out;
    write_magnetic_moment_list(out);
    EXPECT_EQ(out, "No moments found\n");

    // Two components of 3 along a and b of a hexagonal cell, 120 degrees apart: 3 in all.
    wcfgl_metrix::define_cell({5, 5, 7}, {90, 90, 120});
    wcfgl_metrix::define_box(0, 0.5f, 0, 0.5f, -0.5f, 0.5f);
    define_phase('P', {0, 0, 0}, {"x,y,z"}, {"MSYM u,v,w,0.0"});
    push({0.25f, 0.25f, 0}, {component({3, 0, 0}), component({0, 3, 0})});
    push({0.75f, 0, 0}, {component({99999, 0, 0})});
    out.clear();
    write_magnetic_moment_list(out);
    const std::string text80 = "(   0,   0,   0)" + std::string(64, ' ');
    EXPECT_THAT(out, HasSubstr(" Magnetic lattice type : P\n \n Magnetic k-vectors :\n"
                               "   0.000   0.000   0.000\n \n Symmetry operations :\n"));
    EXPECT_THAT(
        out, HasSubstr(
                 "Atom : Fe1       FE\n" + std::string(84, '-') +
                 "\n        x        y        z        Translation    k MSYM     m(a)     m(b)     "
                 "m(c)     Mtot\n    0.250    0.250    0.000\n" +
                 std::string(30, ' ') + text80 + "\n" + std::string(46, ' ') +
                 "    1    1    3.000    0.000    0.000\n" + std::string(46, ' ') +
                 "    1    1    0.000    3.000    0.000\n" + std::string(56, ' ') +
                 std::string(36, '-') + "\n" + std::string(56, ' ') +
                 "    3.000    3.000    0.000    3.000\n"));
    EXPECT_TRUE(out.ends_with("    0.750    0.000    0.000\n")) << "no place in the box";
    wcfgl_metrix::define_box(0, 1, 0, 0.5f, 0, 0.5f);
    out.clear();
    write_magnetic_moment_list(out);
    EXPECT_THAT(out, HasSubstr("99999.000    0.000    0.000"));
}

}  // namespace
