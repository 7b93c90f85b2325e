#include "scene/wcfgl_metrix.hpp"

#include "scene/wcfgl_objects_definition.hpp"
#include "tests/support/components_near.hpp"
#include "tests/support/gl_record.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace wcfgl_metrix;
using gl_record::Primitive;
using testing::ElementsAre;

constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();
// The cosine of a right angle in 32 bits is 4e-8; times an edge of ten.
constexpr float rounding = 2e-6f;

Vector3f column(const Matrix3f& m, std::size_t j) { return {m[0][j], m[1][j], m[2][j]}; }

void hexagonal_cell() { define_cell({4, 4, 10}, {90, 90, 120}); }

TEST(Cell, TheMatricesHoldTheCellVectors) {
    hexagonal_cell();
    const float height = 2 * std::sqrt(3.0f);
    EXPECT_FLOAT_EQ(current_cell->volume, 80 * std::sqrt(3.0f));
    EXPECT_EQ(column(current_cell->direct_matrix, 0), (Vector3f{4, 0, 0}));
    EXPECT_THAT(column(current_cell->direct_matrix, 1),
                ComponentsNear(Vector3f{-2, height, 0}, rounding));
    EXPECT_THAT(column(current_cell->direct_matrix, 2),
                ComponentsNear(Vector3f{0, 0, 10}, rounding));
    EXPECT_THAT(column(current_cell->unit_direct_matrix, 1),
                ComponentsNear(Vector3f{-0.5f, height / 4, 0}, rounding));
}

TEST(Cell, ATriclinicCellHasItsLengthsAnglesAndVolume) {
    define_cell({5, 6, 7}, {80, 95, 110});
    const auto dot = [](const Vector3f& a, const Vector3f& b) {
        return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    };
    const auto cosine = [](float degrees) { return std::cos(degrees * 0.01745329252f); };
    const Matrix3f& m = current_cell->direct_matrix;
    const Matrix3f& u = current_cell->unit_direct_matrix;
    const Vector3f a = column(m, 0), b = column(m, 1), c = column(m, 2);
    constexpr float relative = 2e-5f;  // on numbers up to 49
    EXPECT_NEAR(dot(b, b), 36, relative);
    EXPECT_NEAR(dot(c, c), 49, relative);
    EXPECT_NEAR(dot(b, c), 42 * cosine(80), relative);
    EXPECT_NEAR(dot(a, c), 35 * cosine(95), relative);
    EXPECT_NEAR(dot(a, b), 30 * cosine(110), relative);
    EXPECT_NEAR(current_cell->volume, a[0] * b[1] * c[2], 1e-4f);
    EXPECT_NEAR(dot(column(u, 2), column(u, 2)), 1, 1e-6f);
}

TEST(Cell, LengthsAndAnglesThatAreNotPositiveChangeNothing) {
    hexagonal_cell();
    const Cell before = *current_cell;
    const std::vector<std::string> wire = gl_record::contents(before.dlist);
    cell_changed = 0;
    gl_record::clear();
    for (const float bad : {0.0f, -1.0f, not_a_number})
        for (std::size_t i = 0; i < 3; ++i) {
            Vector3f length{4, 4, 4}, angle{90, 90, 90};
            length[i] = bad;
            define_cell(length, angle);
            length[i] = 4;
            angle[i] = bad;
            define_cell(length, angle);
        }
    EXPECT_EQ(current_cell->cell_length, before.cell_length);
    EXPECT_EQ(current_cell->cell_angle, before.cell_angle);
    EXPECT_EQ(gl_record::contents(before.dlist), wire);
    EXPECT_EQ(cell_changed, 0);
    EXPECT_TRUE(gl_record::calls().empty());
}

TEST(Cell, ARefusedCellBringsTheBoxAllTheSame) {
    define_cell({0, 4, 4}, {90, 90, 90});
    EXPECT_FALSE(current_cell);
    ASSERT_TRUE(current_box);
    EXPECT_EQ(current_maxsize, 1.0);
}

TEST(Cell, AChangeKeepsListsAndLooks) {
    hexagonal_cell();
    current_cell->colour = {1, 0, 0, 1};
    current_cell->multiple = 1;
    current_axes->nodisplay = 1;
    const GLuint wire = current_cell->dlist, axes = current_axes->dlist;
    define_cell({3, 3, 3}, {90, 90, 90});
    EXPECT_EQ(current_cell->colour, (Colour{1, 0, 0, 1}));
    EXPECT_EQ(current_cell->multiple, 1);
    EXPECT_EQ(current_axes->nodisplay, 1);
    EXPECT_EQ(current_cell->dlist, wire);
    EXPECT_EQ(current_axes->dlist, axes);
    EXPECT_EQ(gl_record::drawn_by(wire).size(), 12u);  // replaced, not added to
    EXPECT_EQ(cell_changed, 1);
}

TEST(Cell, ImpossibleAnglesGiveNoNumbersAndNoHarm) {
    define_cell({4, 4, 4}, {10, 10, 170});
    EXPECT_TRUE(std::isnan(current_cell->volume));
    draw_cell();
    draw_axes();
    hexagonal_cell();
    EXPECT_FALSE(std::isnan(f2c_r({1, 1, 1})[2]));
}

TEST(Cell, TheWireIsTheTwelveEdgesInTheirOrder) {
    define_cell({2, 3, 4}, {90, 90, 90});
    std::vector<std::string> edges;
    for (const Primitive& line : gl_record::drawn_by(current_cell->dlist)) {
        ASSERT_EQ(line.name, "line");
        std::string edge;
        for (const Vector3<double>& end : line.ends)
            for (std::size_t i = 0; i < 3; ++i)
                edge += std::to_string(std::lround(end[i] / static_cast<double>(2 + i)));
        edges.push_back(edge);
    }
    EXPECT_THAT(edges, ElementsAre("000100", "000010", "000001", "100110", "100101", "010110",
                                   "010011", "001101", "001011", "110111", "101111", "011111"));
}

TEST(Axes, EachArrowLiesAlongItsCellVectorAtTheAxesLength) {
    hexagonal_cell();
    std::vector<Primitive> shapes;
    for (Primitive& shape : gl_record::drawn_by(current_axes->dlist))
        if (shape.name == "gluCylinder") shapes.push_back(shape);
    ASSERT_EQ(shapes.size(), 6u);  // shaft and head of each
    const std::vector<Colour> colours{{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const Primitive& shaft = shapes[2 * axis];
        const Primitive& head = shapes[2 * axis + 1];
        const Vector3f tip = 2.0f * column(current_cell->unit_direct_matrix, axis);
        const Vector3<double> from = shaft.at(0, 0, 0);
        const Vector3<double> to = head.at(0, 0, head.arguments[2]);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(from[i], 0, 1e-6);
            EXPECT_NEAR(to[i], static_cast<double>(tip[i]), 1e-6);
        }
        // 0.7 of the arrow's own thickness, whatever its length.
        const Vector3<double> side = shaft.at(shaft.arguments[0], 0, 0) - from;
        EXPECT_NEAR(std::hypot(side[0], side[1], side[2]), 0.7 * 0.07, 1e-6);
        EXPECT_EQ(shaft.material, colours[axis]);
        EXPECT_NE(shaft.back_material, colours[axis]);  // the front's only
    }
}

TEST(Axes, LettersStandOnTheCartesianAxes) {
    hexagonal_cell();
    std::map<std::string, Primitive> letters;
    for (const Primitive& shape : gl_record::drawn_by(current_axes->dlist))
        if (shape.name == "wgltextstring") letters[shape.string] = shape;
    ASSERT_EQ(letters.size(), 3u);
    EXPECT_EQ(letters["a"].centre(), (Vector3<double>{2, 0, 0}));
    EXPECT_EQ(letters["b"].centre(), (Vector3<double>{0, 2, 0}));  // not at the tip, 30 degrees off
    EXPECT_EQ(letters["c"].centre(), (Vector3<double>{0, 0, 2}));
    EXPECT_EQ(letters["b"].colour, (Colour{0, 1, 0, 1}));
    // a reads along x; b is turned along its arrow.
    EXPECT_THAT(letters["a"].at(1, 0, 0), ComponentsNear(Vector3<double>{3.5, 0, 0}, 1e-6));
    EXPECT_THAT(letters["b"].at(1, 0, 0),
                ComponentsNear(Vector3<double>{-0.75, 2 + 0.75 * std::sqrt(3.0), 0}, 1e-6));
}

TEST(Axes, TheArrowShapeIsMadeOnceBetweenTheTwoLists) {
    hexagonal_cell();
    const auto list = [](GLuint name) {
        return "glNewList(" + std::to_string(name) + ", " + std::to_string(GL_COMPILE) + ")";
    };
    EXPECT_THAT(
        gl_record::texts({"glNewList"}),
        ElementsAre(list(current_cell->dlist), list(wcfgl_objects_definition::axes_definition),
                    list(current_axes->dlist)));
    gl_record::clear();
    hexagonal_cell();
    EXPECT_EQ(gl_record::count("glNewList"), 2u);
}

TEST(Coordinates, FractionsAreCartesianWhileThereIsNoCell) {
    EXPECT_EQ(f2c_r({0.5f, -2, 7}), (Vector3f{0.5f, -2, 7}));
    EXPECT_EQ(f2c_i({1, -2, 7}), (Vector3f{1, -2, 7}));
    define_cell({2, 3, 4}, {90, 90, 90});
    EXPECT_THAT(f2c_r({0.5f, -2, 0.25f}), ComponentsNear(Vector3f{1, -6, 1}, rounding));
    EXPECT_EQ(f2c_i({1, 1, 1}), f2c_r({1, 1, 1}));
}

TEST(BoxLimits, FacesBelongToTheBoxAndTheNextNumberDoesNot) {
    EXPECT_TRUE(in_limit({0, 1, 0.5f}));  // the default box is there at once
    const Vector3f face{1, 1, 1};
    EXPECT_TRUE(in_limit(face));
    for (std::size_t i = 0; i < 3; ++i) {
        Vector3f beyond = face;
        beyond[i] = std::nextafter(1.0f, 2.0f);
        EXPECT_FALSE(in_limit(beyond));
        beyond[i] = std::nextafter(0.0f, -1.0f);
        EXPECT_FALSE(in_limit(beyond));
        beyond[i] = not_a_number;
        EXPECT_FALSE(in_limit(beyond));
    }
    define_box(1, 0, 0, 1, 0, 1);
    EXPECT_FALSE(in_limit({0.5f, 0.5f, 0.5f}));
}

TEST(BoxLimits, CentreAndSizeFollowBoxAndCell) {
    define_box(-1, 1, 0, 3, 0.5f, 1);
    EXPECT_EQ(current_baricentre, (Vector3f{0, 1.5f, 0.75f}));
    EXPECT_EQ(current_maxsize, 3.0);
    EXPECT_EQ(box_changed, 1);
    define_cell({4, 1, 20}, {90, 90, 90});
    EXPECT_THAT(current_baricentre, ComponentsNear(Vector3f{0, 1.5f, 15}, rounding));
    EXPECT_EQ(current_maxsize, 10.0);
    define_box(1, 0, 1, 0, 2, 0);
    EXPECT_EQ(current_maxsize, -1.0);  // the least negative edge
    define_box(0, not_a_number, 0, 2, 0, 1);
    EXPECT_EQ(current_maxsize, 20.0);
}

TEST(BoxLimits, InitBoxKeepsABoxThatExistsAndSetsNoFlag) {
    init_box();
    EXPECT_EQ(*current_box, (Box{0, 1, 0, 1, 0, 1}));
    EXPECT_EQ(current_maxsize, 1.0);
    EXPECT_EQ(box_changed, 0);
    define_box(0, 2, 0, 2, 0, 2);
    init_box();
    EXPECT_EQ(*current_box, (Box{0, 2, 0, 2, 0, 2}));
}

TEST(BoxLimits, LinesAlongTheAxesMeetTheFaces) {
    define_box(-1, 2, -3, 4, -5, 6);
    const auto points = intersect_volume({0.1f, 0.2f, 0.3f}, {1, 0, -1});
    EXPECT_THAT(points, ElementsAre(Vector3f{-1, 0.2f, 0.3f}, Vector3f{2, 0.2f, 0.3f}, Vector3f{},
                                    Vector3f{}, Vector3f{0.1f, 0.2f, -5}, Vector3f{0.1f, 0.2f, 6}));
}

TEST(Group, ASymbolThatNamesNoGroupLeavesP1) {
    define_spacegroup("P 21/c");
    ASSERT_TRUE(current_space_group);
    EXPECT_EQ(current_space_group->multip, 4);
    EXPECT_EQ(current_space_group->num_spg, 14);
    spacegroup_changed = 0;
    define_spacegroup("Nonsense 7");
    EXPECT_EQ(current_space_group->multip, 1);
    EXPECT_EQ(current_space_group->num_spg, 1);
    EXPECT_EQ(spacegroup_changed, 1);
}

TEST(Group, ASymbolIsReadAsPeopleWriteIt) {
    define_spacegroup("R-3c");
    EXPECT_EQ(current_space_group->num_spg, 167);
    EXPECT_EQ(current_space_group->multip, 36);
    define_spacegroup("P2_1/c");
    EXPECT_EQ(current_space_group->num_spg, 14);
}

TEST(Group, GeneratorsAreClosedToAGroup) {
    const std::vector<FixedText<80>> generators{"-x,-y,z", "-x,y,-z"};
    define_spacegroup("", std::span(generators));
    EXPECT_EQ(current_space_group->multip, 4);
    define_spacegroup("", std::span(generators).first(1));
    EXPECT_EQ(current_space_group->multip, 2);
}

std::vector<Vector3f> wire_origins() {
    gl_record::clear();
    draw_cell();
    std::vector<Vector3f> origins;
    const std::vector<Primitive>& lines = gl_record::drawn();
    for (std::size_t i = 0; i < lines.size(); i += 12) {
        Vector3f origin;
        for (std::size_t axis = 0; axis < 3; ++axis)
            origin[axis] = static_cast<float>(std::round(lines[i].ends[0][axis]));
        origins.push_back(origin);
    }
    return origins;
}

TEST(DrawCell, OneWireStandsAtTheOriginWhereverTheBoxLies) {
    define_cell({2, 2, 2}, {90, 90, 90});
    define_box(5, 9, 5, 9, 5, 9);
    EXPECT_THAT(wire_origins(), ElementsAre(Vector3f{0, 0, 0}));
    const Primitive& line = gl_record::drawn().front();
    EXPECT_FALSE(line.enabled.contains(GL_LIGHTING));
    EXPECT_EQ(line.colour, (Colour{0.5f, 0.5f, 0.5f, 1}));
    EXPECT_EQ(line.line_width, 1.45f);
    EXPECT_EQ(gl_record::texts().back(), "glEnable(" + std::to_string(GL_LIGHTING) + ")");
    EXPECT_EQ(gl_record::count("glPushMatrix"), 0u);
}

TEST(DrawCell, WiresFillTheWholeCellsOfTheBox) {
    define_cell({2, 2, 2}, {90, 90, 90});
    current_cell->multiple = 1;
    define_box(0, 2, 0, 1, 0, 2);
    EXPECT_THAT(wire_origins(), ElementsAre(Vector3f{0, 0, 0}, Vector3f{0, 0, 2}, Vector3f{2, 0, 0},
                                            Vector3f{2, 0, 2}));
    define_box(-1.5f, 1, 0, 1, 0, 1.9f);  // limits are cut toward zero
    EXPECT_THAT(wire_origins(), ElementsAre(Vector3f{-2, 0, 0}, Vector3f{0, 0, 0}));
    define_box(0, 0.5f, 0, 1, 0, 1);
    EXPECT_TRUE(wire_origins().empty());
}

TEST(DrawCell, NothingIsDrawnWithoutACellOrWhenHidden) {
    draw_cell();
    draw_axes();
    EXPECT_TRUE(gl_record::calls().empty());
    hexagonal_cell();
    current_cell->nodisplay = 1;
    current_axes->nodisplay = 1;
    gl_record::clear();
    draw_cell();
    draw_axes();
    EXPECT_TRUE(gl_record::calls().empty());
}

TEST(DrawAxes, TheMarkerStandsAtItsFractionalOrigin) {
    define_cell({10, 20, 30}, {90, 90, 90});
    gl_record::clear();
    draw_axes();
    EXPECT_EQ(gl_record::count("glPushMatrix"), gl_record::count("glPopMatrix"));
    const Vector3<double> base = gl_record::drawn().front().at(0, 0, 0);
    EXPECT_NEAR(base[0], -3, 1e-5);
    EXPECT_NEAR(base[1], -6, 1e-5);
    EXPECT_NEAR(base[2], -9, 1e-5);
}

}  // namespace
