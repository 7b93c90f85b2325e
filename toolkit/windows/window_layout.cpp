#include "toolkit/windows/window_layout.hpp"

#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace tesserakit {

namespace {

constexpr int smallest_part = 2;
constexpr int units_across = 9999;
constexpr int default_units_inside_parent = 8000;

int extent(std::int64_t pixels) {
    return static_cast<int>(std::clamp<std::int64_t>(pixels, 1, 32767));
}

int scaled(std::int64_t value, std::int64_t factor, std::int64_t divisor) {
    const std::int64_t result = value * factor / divisor;
    return static_cast<int>(std::clamp<std::int64_t>(result, INT32_MIN, INT32_MAX));
}

}  // namespace

WindowLayout layout_window(int width, int height, const Surroundings& around) {
    const auto& bar = around.toolbar;
    const int status_top = height - around.status_height;
    const int bottom = around.status_height > 0 ? status_top - 1 : height;
    const int top = around.menu_height + bar[TopSide];
    const int middle = extent(bottom - bar[BottomSide] - top);
    WindowLayout layout;
    layout.menu = {0, 0, extent(width), extent(around.menu_height)};
    layout.toolbar[TopSide] = {0, around.menu_height, extent(width), extent(bar[TopSide])};
    layout.toolbar[LeftSide] = {0, top, extent(bar[LeftSide]), middle};
    layout.toolbar[RightSide] = {width - bar[RightSide], top, extent(bar[RightSide]), middle};
    layout.toolbar[BottomSide] = {0, bottom - bar[BottomSide], extent(width),
                                  extent(bar[BottomSide])};
    layout.status = {0, status_top, extent(width), extent(around.status_height)};
    layout.client = {bar[LeftSide], top, extent(width - around.horizontal()), middle};
    return layout;
}

std::vector<Box> status_part_boxes(std::span<const int> widths, int width, int height) {
    std::vector<int> own;
    for (const int asked : widths) own.push_back(std::max(asked, smallest_part));
    const auto last = std::ranges::find(widths.rbegin(), widths.rend(), rest_of_width);
    if (last != widths.rend()) {
        int& stretching = own[static_cast<std::size_t>(widths.rend() - last - 1)];
        const int others = std::accumulate(own.begin(), own.end(), -stretching);
        stretching = std::max(width - others, smallest_part);
    }
    std::vector<Box> boxes;
    int edge = 0;
    for (const int part : own) {
        const int left = std::max(edge - 1, 0);
        edge += part;
        boxes.push_back({left, 0, edge - left, height});
    }
    return boxes;
}

int pixels_from_units(int units, int size) {
    return scaled(units, std::max(size, 1) - 1, units_across);
}

int units_from_pixels(int pixels, int size) {
    return size <= 1 ? 0 : scaled(pixels, units_across, size - 1);
}

int default_extent(int asked, int screen_extent) {
    return asked >= 1 ? asked : extent(std::int64_t{screen_extent} * 80 / 100);
}

int default_position(int asked, int extent, int available) {
    return asked == window_centred ? (available - extent) / 2 : asked;
}

int largest_extent(int screen_extent, int frame) { return extent(screen_extent - frame); }

int position_on_screen(int asked, int extent, int frame, int screen_extent) {
    return std::max(std::min(asked, screen_extent - extent - frame), 0);
}

Box inside_parent(int x, int y, int width, int height, int parent_width, int parent_height) {
    const auto size = [](int asked, int available) {
        const int units = asked >= 1 ? asked : default_units_inside_parent;
        return extent(scaled(units, available, units_across));
    };
    const auto place = [](int asked, int own, int available) {
        return asked == window_centred ? (available - own) / 2
                                       : scaled(asked, available, units_across);
    };
    Box box{0, 0, size(width, parent_width), size(height, parent_height)};
    box.x = place(x, box.width, parent_width);
    box.y = place(y, box.height, parent_height);
    return box;
}

}  // namespace tesserakit
