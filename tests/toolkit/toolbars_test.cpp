// gtest doesn't compile behind X.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "toolkit/menus/toolbars.hpp"

#include "toolkit/menus/button_pictures.hpp"

#include <array>

using namespace tesserakit;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ToolbarPlaces, ButtonsStandInARowWithGapsBetween) {
    const std::array<int, 4> buttons{1, 2, 0, 3};
    // 16 and 6 a button, in a strip of 16 and 12 at the top, 16 and 10 at the left.
    EXPECT_THAT(place_buttons(TopSide, buttons, 16, 16),
                ElementsAre(Box{3, 3, 22, 22}, Box{25, 3, 22, 22}, Box{53, 3, 22, 22}));
    EXPECT_THAT(place_buttons(RightSide, buttons, 16, 16),
                ElementsAre(Box{2, 2, 22, 22}, Box{2, 24, 22, 22}, Box{2, 52, 22, 22}));
    EXPECT_THAT(place_buttons(BottomSide, {}, 16, 16), IsEmpty());
}

TEST(ToolbarPlaces, PicturesGrowByWholeNumbersWithTheFont) {
    EXPECT_EQ(button_enlargement(16, 17), 1);
    EXPECT_EQ(button_enlargement(16, 31), 1);
    EXPECT_EQ(button_enlargement(16, 32), 2);
    EXPECT_EQ(button_enlargement(16, 5), 1);
    EXPECT_EQ(button_enlargement(24, 33), 1);
}
