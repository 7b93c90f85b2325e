#include "app/drag.hpp"

#include "app/program_state.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "scene/wcfgl_quaternion.hpp"
#include "scene/wcfgl_trackball.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using namespace gemwright;

class Drag : public testing::Test {
protected:
    Drag() {
        wcfgl_display::current_screen_width = 200;
        wcfgl_display::current_screen_height = 200;
        wcfgl_display::display_init();
    }
};

// From the middle to 0.6 of the radius: a chord of sqrt(0.36 + 0.04) at 112.5 degrees a unit.
TEST_F(Drag, TurnsAboutTheAxisAcrossTheWay) {
    begin_drag(100, 100);
    continue_drag(160, 100);
    const double half = std::sqrt(0.4) * 112.5 / 2 * 3.14159265358979 / 180;
    EXPECT_NEAR(view_quaternion[0], std::cos(half), 1e-6);
    EXPECT_NEAR(view_quaternion[1], 0, 1e-6);
    EXPECT_NEAR(view_quaternion[2], std::sin(half), 1e-6);  // to the right: about +y
    EXPECT_EQ(wcfgl_trackball::current_rot_matrix, wcfgl_quaternion::quat2mat(view_quaternion));
}

// Each step starts where the last one ended, and is composed on the left.
TEST_F(Drag, StepsTurnInTheViewersFrame) {
    const std::array<std::array<int, 2>, 3> way{{{100, 100}, {150, 100}, {150, 40}}};
    begin_drag(way[0][0], way[0][1]);
    Quaternion expected{1, 0, 0, 0};
    for (std::size_t i = 1; i < way.size(); ++i) {
        continue_drag(way[i][0], way[i][1]);
        const auto point = [&](std::size_t n) {
            return wcfgl_trackball::viewport2hemi(way[n][0], way[n][1], 200, 200);
        };
        expected = wcfgl_quaternion::q_mult_q(
            wcfgl_trackball::calc_rot_param(point(i - 1), point(i)), expected);
    }
    EXPECT_EQ(view_quaternion, expected);
}

TEST_F(Drag, ZoomsByTheDirectionOfEachMoveAStandstillIncluded) {
    mouse_mode = 2;
    begin_drag(10, 10);
    continue_drag(50, 20);
    EXPECT_EQ(wcfgl_display::current_zoomfactor, 1.05f);
    continue_drag(50, 20);
    EXPECT_EQ(wcfgl_display::current_zoomfactor, 1.05f * 0.95f);
    continue_drag(50, 5);
    EXPECT_EQ(wcfgl_display::current_zoomfactor, 1.05f * 0.95f * 0.95f);
}

TEST_F(Drag, TranslatesInAnyOtherModeAndAChangeInMidDragActs) {
    mouse_mode = 3;
    begin_drag(10, 10);
    continue_drag(25, 13);
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{15, -3}));
    continue_drag(20, 23);  // by the way from the last move, in both directions
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{10, -13}));
    mouse_mode = 2;
    continue_drag(25, 30);
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{10, -13}));
    EXPECT_EQ(wcfgl_display::current_zoomfactor, 1.05f);
}

TEST_F(Drag, IsCoarseWhileItLastsAndNothingMovesWithoutIt) {
    continue_drag(150, 150);
    EXPECT_EQ(view_quaternion, (Quaternion{1, 0, 0, 0}));
    begin_drag(100, 100);
    EXPECT_EQ(wcfgl_objects_definition::highres, 0);
    end_drag();
    EXPECT_EQ(wcfgl_objects_definition::highres, 1);
    continue_drag(150, 150);
    EXPECT_EQ(view_quaternion, (Quaternion{1, 0, 0, 0}));
}

}  // namespace
