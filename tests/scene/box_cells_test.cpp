#include "scene/box_cells.hpp"

#include "scene/wcfgl_metrix.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace box_cells;
using wcfgl_metrix::Box;
using wcfgl_metrix::define_box;

constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();

void define(const Box& b) { define_box(b[0], b[1], b[2], b[3], b[4], b[5]); }

std::vector<Vector3f> inside(const Cells& cells, const std::vector<Vector3f>& positions) {
    std::vector<Vector3f> found;
    for_each_cell(cells, [&](const Vector3i& cell) {
        for (const Vector3f& x : positions)
            if (wcfgl_metrix::in_limit(moved(x, cell))) found.push_back(moved(x, cell));
    });
    return found;
}

double count(const Cells& cells) {
    double product = 1;
    for (std::size_t axis = 0; axis < 3; ++axis)
        product *= std::max(0, cells.last[axis] - cells.first[axis] + 1);
    return product;
}

TEST(BoxCells, TheMarginIsTakenFromTheLimitsCutTowardZero) {
    define({-1.5f, 1.9f, 0.0f, 0.0f, 2.999f, -2.999f});
    EXPECT_EQ(cells_of_box(0, 0), (Cells{{-1, 0, 2}, {1, 0, -2}}));
    EXPECT_EQ(cells_of_box(1, 1), (Cells{{-2, -1, 1}, {2, 1, -1}}));
    EXPECT_EQ(cells_of_box(0, -1), (Cells{{-1, 0, 2}, {0, -1, -3}}));
}

TEST(BoxCells, LeavingOutEmptyCellsChangesNeitherTheObjectsNorTheirOrder) {
    const std::vector<std::vector<Vector3f>> sets{
        {{0, 0, 0}},
        {{0.5f, 0.25f, 0.999999f}, {0, 0.5f, 0.1f}},
        {{-0.25f, 1.5f, 7.0f}, {0.3f, -3.0f, 0.0f}},  // an atom set from the dialog isn't folded
        {{0.333333f, 0.666667f, 0.1f}, {not_a_number, 0.5f, 0.5f}},
        {{not_a_number, not_a_number, not_a_number}},
        {}};
    const std::vector<Box> boxes{{0, 1, 0, 1, 0, 1},
                                 {-1.5f, 2.25f, -0.5f, 0.5f, 0.1f, 0.2f},
                                 {1, 0, 0, 1, 0, 1},
                                 {3, 3, -2, -2, 0, 1},
                                 {0, 0.33333298f, 0, 1, 0, 1.1f},
                                 // So far out that sums are rounded to 1/16 and to 1.
                                 {1000000, 1000002, 0, 1, 0, 1},
                                 {16777214, 16777216, 0, 1, 0, 1},
                                 {-5, not_a_number, 0, 1, 0, 1}};
    for (const Box& box : boxes) {
        define(box);
        for (const std::vector<Vector3f>& positions : sets) {
            SCOPED_TRACE(testing::PrintToString(box) + " with " + std::to_string(positions.size()) +
                         " positions");
            EXPECT_EQ(inside(cells_around(positions, 1, 1), positions),
                      inside(cells_of_box(1, 1), positions));
        }
    }
}

TEST(BoxCells, OnlyCellsThatCanHoldAPositionAreVisited) {
    define({0, 5, 0, 5, 0, 5});
    EXPECT_EQ(cells_around(Vector3f{0.5f, 0.5f, 0.5f}, 1, 1), (Cells{{0, 0, 0}, {4, 4, 4}}));
    EXPECT_EQ(cells_around(Vector3f{0, 0, 0}, 1, 1), (Cells{{0, 0, 0}, {5, 5, 5}}));
    EXPECT_EQ(count(cells_around(Vector3f{0, 100, 0}, 1, 1)), 0);
}

TEST(BoxCells, ABoxThatCanBeDrawnStaysWhole) {
    define({0, 20, 0, 20, 0, 20});
    Cells cells = cells_of_box(0, 0);
    keep_drawable(cells, 192);  // a general position of the largest groups
    EXPECT_EQ(cells, (Cells{{0, 0, 0}, {20, 20, 20}}));
    define({0, 100000, 0, 1, 0, 1});
    cells = cells_of_box(0, 0);
    keep_drawable(cells, 1);
    EXPECT_EQ(cells.last[0], 100000);
}

TEST(BoxCells, AnAbsurdBoxIsCutToAPartAboutItsMiddle) {
    for (const float edge : {1000.0f, 1e9f, 1e30f, infinite}) {
        SCOPED_TRACE(edge);
        define({-edge, edge, -edge, edge, -edge, edge});
        const Cells cells = cells_around(Vector3f{0.5f, 0.5f, 0.5f}, 1, 1);
        EXPECT_GT(count(cells), 8000);
        EXPECT_LT(count(cells), 100000);
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(cells.first[axis] + cells.last[axis], 0, 4);
    }
    define({0, 1e30f, 0, 1, 0, 1});
    Cells thin = cells_of_box(0, 0);
    keep_drawable(thin, 1);
    EXPECT_EQ(thin.last[1], 1);  // the long direction is cut first
    EXPECT_EQ(thin.last[2], 1);
}

TEST(BoxCells, ABoxWithoutNumbersHoldsNothing) {
    define({not_a_number, not_a_number, 0, 1, 0, 1});
    EXPECT_TRUE(inside(cells_of_box(1, 1), {{0, 0, 0}}).empty());
    define({infinite, -infinite, 0, 1, 0, 1});
    EXPECT_EQ(count(cells_of_box(1, 1)), 0);
}

}  // namespace
