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

std::vector<Vector3f> copies(const Box& box, const std::vector<Vector3f>& positions) {
    const Finder find(box, 1, 1);
    Copies all;
    for (std::size_t n = 0; n < positions.size(); ++n) all.add(n, find.cells_of(positions[n]));
    std::vector<Vector3f> found;
    all.for_each(
        [&](std::size_t n, const Vector3i& cell) { found.push_back(moved(positions[n], cell)); });
    return found;
}

/// By asking in each cell for each position whether it lies in the box.
std::vector<Vector3f> copies_by_asking(const Box& box, const std::vector<Vector3f>& positions) {
    define(box);
    std::vector<Vector3f> found;
    for_each_cell(cells_of_box(box, 1, 1), [&](const Vector3i& cell) {
        for (const Vector3f& x : positions)
            if (wcfgl_metrix::in_limit(moved(x, cell))) found.push_back(moved(x, cell));
    });
    return found;
}

TEST(BoxCells, TheMarginIsTakenFromTheLimitsCutTowardZero) {
    const Box box{-1.5f, 1.9f, 0.0f, 0.0f, 2.999f, -2.999f};
    EXPECT_EQ(cells_of_box(box, 0, 0), (Cells{{-1, 0, 2}, {1, 0, -2}}));
    EXPECT_EQ(cells_of_box(box, 1, 1), (Cells{{-2, -1, 1}, {2, 1, -1}}));
    EXPECT_EQ(cells_of_box(box, 0, -1), (Cells{{-1, 0, 2}, {0, -1, -3}}));
}

TEST(BoxCells, TheCellsOfPositionsGiveWhatTheBoxHoldsInItsOrder) {
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
                                 {-5, not_a_number, 0, 1, 0, 1},
                                 {not_a_number, 5, 0, 1, 0, 1}};
    for (const Box& box : boxes) {
        for (const std::vector<Vector3f>& positions : sets) {
            SCOPED_TRACE(testing::PrintToString(box) + " with " + std::to_string(positions.size()) +
                         " positions");
            const std::vector<Vector3f> expected = copies_by_asking(box, positions);
            EXPECT_EQ(copies(box, positions), expected);
            double count = 0;
            for (const Vector3f& x : positions) count += Finder(box, 1, 1).cells_of(x).count();
            EXPECT_EQ(count, static_cast<double>(expected.size()));
        }
    }
}

TEST(BoxCells, OneEmptyDirectionMeansNoCell) {
    const Cells flat{{-16777216, -16777216, 1}, {16777216, 16777216, 0}};
    EXPECT_EQ(flat.count(), 0);
    int visits = 0;
    for_each_cell(flat, [&](const Vector3i&) { ++visits; });
    Copies copies_of_three;
    for (const Cells& cells : {flat, Cells{{0, 0, 0}, {1, 0, 0}}, flat})
        copies_of_three.add(0, cells);
    copies_of_three.for_each([&](std::size_t, const Vector3i&) { ++visits; });
    EXPECT_EQ(visits, 2);
    // Huge and thin, between two positions: neither is in it, though a cell about both would be.
    const Box between{-1e9f, 1e9f, -1e9f, 1e9f, 0.3f, 0.4f};
    EXPECT_TRUE(copies(between, {{0.5f, 0.5f, 0.1f}, {0.5f, 0.5f, 0.9f}}).empty());
}

TEST(BoxCells, ABoxAsLargeAsNumbersGoIsCountedButNotOverrun) {
    for (const float edge : {1e9f, 1e30f, infinite}) {
        SCOPED_TRACE(edge);
        const Cells cells = cells_of_box({-edge, edge, -edge, edge, 0, 1}, 0, 0);
        EXPECT_EQ(cells.count(), 33554433.0 * 33554433.0 * 2.0);
        EXPECT_TRUE(cells_of_box({edge, -edge, 0, 1, 0, 1}, 1, 1).empty());
    }
}

}  // namespace
