#include "toolkit/windows/window_layout.hpp"

#include "toolkit/tesserakit.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tesserakit;

TEST(WindowLayout, PartsSurroundTheClientAreaWithoutGapsOrOverlap) {
    const Surroundings around{.menu_height = 22, .status_height = 26, .toolbar = {34, 40, 44, 36}};
    const WindowLayout layout = layout_window(800, 600, around);
    EXPECT_EQ(layout.menu, (Box{0, 0, 800, 22}));
    EXPECT_EQ(layout.toolbar[TopSide], (Box{0, 22, 800, 34}));
    EXPECT_EQ(layout.status, (Box{0, 574, 800, 26}));
    EXPECT_EQ(layout.toolbar[BottomSide], (Box{0, 537, 800, 36}));
    EXPECT_EQ(layout.toolbar[LeftSide], (Box{0, 56, 40, 481}));
    EXPECT_EQ(layout.toolbar[RightSide], (Box{756, 56, 44, 481}));
    EXPECT_EQ(layout.client, (Box{40, 56, 716, 481}));
    EXPECT_EQ(layout.client.width + around.horizontal(), 800);
    EXPECT_EQ(layout.client.height + around.vertical(), 600);
}

TEST(WindowLayout, AWindowTooSmallForItsPartsKeepsOnePixelOfEach) {
    const WindowLayout layout = layout_window(
        10, 10, {.menu_height = 22, .status_height = 26, .toolbar = {34, 40, 44, 36}});
    EXPECT_EQ(layout.client.width, 1);
    EXPECT_EQ(layout.client.height, 1);
    EXPECT_EQ(layout.toolbar[LeftSide].height, 1);
}

TEST(WindowLayout, BareWindowIsAllClientArea) {
    EXPECT_EQ(layout_window(300, 200, {}).client, (Box{0, 0, 300, 200}));
}

TEST(StatusParts, AStretchingPartLeavesTheOthersTheirWidths) {
    const auto parts = [](std::vector<int> widths, int width) {
        return status_part_boxes(widths, width, 26);
    };
    using testing::ElementsAre;
    EXPECT_THAT(parts({-1, 60, 200}, 500),
                ElementsAre(Box{0, 0, 240, 26}, Box{239, 0, 61, 26}, Box{299, 0, 201, 26}));
    EXPECT_THAT(parts({60, -1}, 500), ElementsAre(Box{0, 0, 60, 26}, Box{59, 0, 441, 26}));
    EXPECT_THAT(parts({-1}, 500), ElementsAre(Box{0, 0, 500, 26}));
    EXPECT_THAT(parts({-1, 60, -1}, 500),
                ElementsAre(Box{0, 0, 2, 26}, Box{1, 0, 61, 26}, Box{61, 0, 439, 26}))
        << "the last of two stretches";
    EXPECT_THAT(parts({-1, 60, 200}, 100),
                ElementsAre(Box{0, 0, 2, 26}, Box{1, 0, 61, 26}, Box{61, 0, 201, 26}))
        << "too narrow";
}

TEST(WindowUnits, LastPixelIsTheLastUnitAndFractionsAreCut) {
    EXPECT_EQ(pixels_from_units(0, 640), 0);
    EXPECT_EQ(pixels_from_units(9999, 640), 639);
    EXPECT_EQ(pixels_from_units(5000, 640), 319);  // 319.53
    EXPECT_EQ(units_from_pixels(639, 640), 9999);
    EXPECT_EQ(units_from_pixels(1, 640), 15);  // 15.65
    EXPECT_EQ(units_from_pixels(-1, 640), -15);
    EXPECT_EQ(units_from_pixels(5, 1), 0);
    EXPECT_EQ(pixels_from_units(2000000000, 32767), 2147483647);
}

TEST(WindowPlacement, DefaultsAreFourFifthsOfTheScreenInItsMiddle) {
    EXPECT_EQ(default_extent(0, 1280), 1024);
    EXPECT_EQ(default_extent(-5, 1024), 819);
    EXPECT_EQ(default_extent(300, 1280), 300);
    EXPECT_EQ(default_position(window_centred, 1024, 1280), 128);
    EXPECT_EQ(default_position(-4, 1024, 1280), -4);
}

TEST(WindowPlacement, TheFrameStaysOnTheScreen) {
    EXPECT_EQ(largest_extent(1280, 24), 1256);
    EXPECT_EQ(largest_extent(10, 24), 1);
    EXPECT_EQ(position_on_screen(128, 1024, 24, 1280), 128);
    EXPECT_EQ(position_on_screen(1200, 300, 24, 1280), 956);
    EXPECT_EQ(position_on_screen(956, 300, 24, 1280), 956);
    EXPECT_EQ(position_on_screen(-40, 300, 24, 1280), 0);
    EXPECT_EQ(position_on_screen(-100, 2000, 24, 1280), 0)
        << "too large: the title bar is in sight";
}

TEST(WindowPlacement, WindowsInsideAParentAreMeasuredInItsUnits) {
    EXPECT_EQ(inside_parent(window_centred, 0, 0, 9999, 1000, 500), (Box{100, 0, 800, 500}));
    EXPECT_EQ(inside_parent(5000, 2500, 1, 5000, 1000, 500), (Box{500, 125, 1, 250}));
}
