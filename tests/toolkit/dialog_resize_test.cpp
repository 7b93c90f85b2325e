#include "toolkit/dialogs/resize.hpp"

#include <gtest/gtest.h>

#include <array>

using namespace tesserakit;

namespace {

// A list that grows, a button to the right of it, one below it, one above, and one at its left.
//
//   +--------------------------+
//   | above                    |
//   | [left] [ list ] [right ] |
//   |        [below ]          |
//   +--------------------------+  400 x 300
constexpr Box list{100, 50, 150, 150};
constexpr Box right{300, 60, 80, 20};
constexpr Box below{120, 250, 60, 20};
constexpr Box above{10, 10, 60, 20};
constexpr Box left{10, 60, 60, 20};

}  // namespace

TEST(DialogResize, FieldsBehindTheGrowingOneMoveWithTheEdges) {
    const std::array fields{list, right, below, above, left};
    const std::vector<int> masks = resize_masks(fields, 0, false);
    EXPECT_EQ(masks[0], RightMoves | BottomMoves);
    EXPECT_EQ(masks[1], LeftMoves | RightMoves);
    EXPECT_EQ(masks[2], TopMoves | BottomMoves);
    EXPECT_EQ(masks[3], 0);
    EXPECT_EQ(masks[4], 0);
}

TEST(DialogResize, AFieldInAGroupBoxMovesAsTheBox) {
    constexpr Box group{290, 40, 100, 200};
    constexpr Box inside{300, 60, 80, 20};
    constexpr Box low_inside{300, 210, 80, 20};
    const std::array fields{list, group, inside, low_inside};
    const std::vector<int> masks = resize_masks(fields, 0, false);
    EXPECT_EQ(masks[1], LeftMoves | RightMoves);
    EXPECT_EQ(masks[2], LeftMoves | RightMoves);
    // By itself it stands below the list; in its box it stays where the box keeps it.
    EXPECT_EQ(masks[3], LeftMoves | RightMoves);
}

TEST(DialogResize, ABoxAroundTheGrowingFieldStretches) {
    constexpr Box frame{90, 40, 170, 170};
    constexpr Box beside{110, 200, 30, 8};  // in the frame, below nothing
    const std::array fields{list, frame, beside};
    const std::vector<int> masks = resize_masks(fields, 0, false);
    EXPECT_EQ(masks[1], RightMoves | BottomMoves);
    EXPECT_EQ(masks[2], TopMoves | BottomMoves);
}

TEST(DialogResize, KeepingEdgesHoldsWhatIsInLineWithTheGrowingField) {
    constexpr Box same_sides{100, 210, 150, 20};  // both sides in line: stretches
    constexpr Box same_right{200, 10, 50, 20};    // right side only: moves
    constexpr Box box{100, 240, 150, 50};         // stretches, and what is in it stays
    constexpr Box in_box{150, 250, 100, 20};
    const std::array fields{list, same_sides, same_right, box, in_box};
    const std::vector<int> with = resize_masks(fields, 0, true);
    EXPECT_EQ(with[1], RightMoves | TopMoves | BottomMoves);
    EXPECT_EQ(with[2], LeftMoves | RightMoves);
    EXPECT_EQ(with[3], RightMoves | TopMoves | BottomMoves);
    EXPECT_EQ(with[4], TopMoves | BottomMoves);
    const std::vector<int> without = resize_masks(fields, 0, false);
    EXPECT_EQ(without[1], TopMoves | BottomMoves);
    EXPECT_EQ(without[2], 0);
}

TEST(DialogResize, MarginsAreKept) {
    // In a dialog of 400 by 300 the list keeps 150 to the right edge and 100 to the bottom edge.
    const Box larger = resized_box(list, 150, 100, RightMoves | BottomMoves, 500, 360);
    EXPECT_EQ(larger, (Box{100, 50, 250, 210}));
    const Box moved = resized_box(right, 20, 220, LeftMoves | RightMoves, 500, 360);
    EXPECT_EQ(moved, (Box{400, 60, 80, 20}));
    const Box down = resized_box(below, 220, 30, TopMoves | BottomMoves, 500, 360);
    EXPECT_EQ(down, (Box{120, 310, 60, 20}));
    EXPECT_EQ(resized_box(list, 150, 100, RightMoves | BottomMoves, 20, 20).width, 1);
}
