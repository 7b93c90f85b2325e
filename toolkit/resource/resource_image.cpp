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

}  // namespace tesserakit
