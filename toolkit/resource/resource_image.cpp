#include "toolkit/resource/resource_image.hpp"

#include "toolkit/resource/yyrc.hpp"

#include <algorithm>

namespace tesserakit {
namespace {

constexpr int digit_base = 93;
constexpr char first_digit = '#';
constexpr int run_base = 8191;
constexpr int transparent_bit = 0x1000;
constexpr int colour_mask = 0xFFF;

/// -1 for a character that is no digit of a code.
int digit(char c) {
    const int value = static_cast<unsigned char>(c) - first_digit;
    return value < digit_base ? std::max(value, -1) : -1;
}

std::uint16_t pixel_at(const ImagePixels& image, int x, int y) {
    return image.colours[static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
                         static_cast<std::size_t>(x)];
}

struct Area {
    int left, top, right, bottom;  ///< the last two lie outside
};

/// Mean colour of an area; transparent when less than half of it is told.
std::uint16_t mean_colour(const ImagePixels& image, const Area& area) {
    int told = 0;
    int sum[3] = {};
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const int colour = pixel_at(image, x, y);
            if (colour == ImagePixels::transparent) continue;
            ++told;
            for (int i = 0; i < 3; ++i) sum[i] += (colour >> (4 * i)) & 0xF;
        }
    }
    const int all = (area.right - area.left) * (area.bottom - area.top);
    if (2 * told < all || told == 0) return ImagePixels::transparent;
    int mean = 0;
    for (int i = 0; i < 3; ++i) mean |= ((2 * sum[i] + told) / (2 * told)) << (4 * i);
    return static_cast<std::uint16_t>(mean);
}

/// Edge number i of `count` equal pieces of a length.
int edge(int i, int count, int length) {
    return static_cast<int>(std::int64_t{length} * i / count);
}

}  // namespace

ImageRuns::ImageRuns(std::string_view codes, int width, int height)
    : codes_(codes),
      width_(std::max(width, 0)),
      pixels_(width_ * std::max<std::int64_t>(height, 0)) {}

std::optional<int> ImageRuns::next_code() {
    if (codes_.size() < 2) return {};
    const int high = digit(codes_[0]);
    const int low = digit(codes_[1]);
    if (high < 0 || low < 0) return {};
    codes_.remove_prefix(2);
    return high * digit_base + low;
}

std::optional<ImageRun> ImageRuns::next() {
    if (complete()) return {};
    int length = 1;
    std::optional<int> code = next_code();
    // Of several run lengths in a row the last counts.
    for (; code && *code > run_base; code = next_code()) length = *code - run_base;
    if (!code) return {};

    ImageRun run;
    run.x = static_cast<int>(position_ % width_);
    run.y = static_cast<int>(position_ / width_);
    run.length = static_cast<int>(std::min<std::int64_t>(length, width_ - run.x));
    run.colour = *code & colour_mask;
    run.transparent = (*code & transparent_bit) != 0;
    position_ += length;
    return run;
}

ImagePixels resource_image_pixels(int identifier, int kind) {
    ImagePixels image;
    int reserved1 = 0;
    int reserved2 = 0;
    yyrcimagecheck(identifier, kind, image.width, image.height, reserved1, reserved2);
    if (image.width <= 0 || image.height <= 0) return {};
    const auto width = static_cast<std::size_t>(image.width);
    image.colours.assign(width * static_cast<std::size_t>(image.height), ImagePixels::transparent);

    std::string_view codes;
    yyrcimageload(identifier, kind, codes);
    ImageRuns runs(codes, image.width, image.height);
    while (const std::optional<ImageRun> run = runs.next()) {
        if (run->transparent) continue;
        const auto start =
            static_cast<std::size_t>(run->y) * width + static_cast<std::size_t>(run->x);
        std::fill_n(image.colours.begin() + static_cast<std::ptrdiff_t>(start), run->length,
                    static_cast<std::uint16_t>(run->colour));
    }
    return image;
}

ImagePixels shrunk_to_fit(const ImagePixels& image, int room_width, int room_height) {
    const bool fits = image.width <= room_width && image.height <= room_height;
    if (fits || room_width <= 0 || room_height <= 0) return image;
    const double scale = std::min(static_cast<double>(room_width) / image.width,
                                  static_cast<double>(room_height) / image.height);
    ImagePixels small;
    small.width = std::max(1, static_cast<int>(image.width * scale + 1e-9));
    small.height = std::max(1, static_cast<int>(image.height * scale + 1e-9));
    for (int y = 0; y < small.height; ++y) {
        for (int x = 0; x < small.width; ++x) {
            small.colours.push_back(mean_colour(
                image,
                {edge(x, small.width, image.width), edge(y, small.height, image.height),
                 edge(x + 1, small.width, image.width), edge(y + 1, small.height, image.height)}));
        }
    }
    return small;
}

}  // namespace tesserakit
