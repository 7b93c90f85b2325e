/// Arithmetic of a window's parts. No X here.
#pragma once

#include "toolkit/base/box.hpp"

#include <span>
#include <vector>

namespace tesserakit {

/// Sides of toolbars, in the order of the toolbar arguments.
enum Side : int { TopSide = 0, LeftSide = 1, RightSide = 2, BottomSide = 3 };

/// What stands around the client area; 0 for what a window doesn't have.
struct Surroundings {
    int menu_height = 0;
    int status_height = 0;          ///< of the bar itself; a line of 1 pixel stands above it
    int toolbar[4] = {0, 0, 0, 0};  ///< thickness by side

    int horizontal() const { return toolbar[LeftSide] + toolbar[RightSide]; }
    int vertical() const {
        return menu_height + toolbar[TopSide] + toolbar[BottomSide] +
               (status_height > 0 ? status_height + 1 : 0);
    }
};

/// Where the parts stand in a window of a given size. The left and right toolbars stand between the
/// top and the bottom one; every extent is at least 1.
struct WindowLayout {
    Box menu;
    Box toolbar[4];
    Box status;
    Box client;
};
WindowLayout layout_window(int width, int height, const Surroundings& around);

/// Stands for the width of the part of a status bar that takes what the others leave.
inline constexpr int rest_of_width = -1;

/// The parts of a status bar of `width` by `height` pixels, for widths as asked. Neighbours share
/// the pixel of their edge. Each part has at least 2 pixels, so that the last ones may stand
/// outside a narrow bar; of several stretching parts the last one stretches.
std::vector<Box> status_part_boxes(std::span<const int> widths, int width, int height);

/// pixel = unit (size - 1) / 9999 and back, rounded towards zero; a size of 1 answers 0.
int pixels_from_units(int units, int size);
int units_from_pixels(int pixels, int size);

/// Size of a new client area: as asked, or 80 percent of the screen's when below 1.
int default_extent(int asked, int screen_extent);
/// Position on the screen (or in a parent of that extent): as asked, or centred.
int default_position(int asked, int extent, int available);
/// Room for what a window manager puts around a window; it can't be known before the window is
/// shown. The title bar is in the height.
inline constexpr int frame_width = 24;
inline constexpr int frame_height = 56;
/// Largest content of a window whose frame stays on the screen.
int largest_extent(int screen_extent, int frame);
/// The position nearest to the asked one at which window and frame are on the screen: the frame's
/// position. A window that is too large has its left upper corner there, with the title bar.
int position_on_screen(int asked, int extent, int frame, int screen_extent);

/// Size and position inside a parent, in 1/9999 of its extent; sizes below 1 stand for 8000.
Box inside_parent(int x, int y, int width, int height, int parent_width, int parent_height);

}  // namespace tesserakit
