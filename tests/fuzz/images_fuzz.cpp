// Any picture to each writer of image files, and back: PNG by libpng, BMP and PCX by the readers
// below, which know of the formats what they need.
#include "tests/support/png_pixels.hpp"
#include "toolkit/image_write/bmp.hpp"
#include "toolkit/image_write/palette.hpp"
#include "toolkit/image_write/pcx.hpp"
#include "toolkit/image_write/png.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

using namespace tesserakit;

namespace {

using Bytes = std::vector<std::uint8_t>;

void require(bool holds) {
    if (!holds) std::abort();
}

Bytes bmp_pixels(const std::string& file, int width, int height, bool indexed) {
    const auto at = [&file](std::size_t i) { return static_cast<std::uint8_t>(file.at(i)); };
    const auto wide = static_cast<std::size_t>(width), high = static_cast<std::size_t>(height);
    const std::size_t stride = (wide * (indexed ? 1 : 3) + 3) / 4 * 4;
    const std::size_t start = at(10) + 256U * at(11);
    require(file.size() == start + stride * high && at(28) == (indexed ? 8 : 24));
    Bytes pixels;
    for (std::size_t y = 0; y < high; ++y)
        for (std::size_t x = 0; x < wide; ++x) {
            const std::size_t line = start + (high - 1 - y) * stride;
            const std::size_t bgr = indexed ? 54 + 4U * at(line + x) : line + 3 * x;
            pixels.insert(pixels.end(), {at(bgr + 2), at(bgr + 1), at(bgr)});
        }
    return pixels;
}

Bytes pcx_pixels(const std::string& file, int width, int height, bool indexed) {
    std::size_t next = 128;
    const auto byte = [&] { return static_cast<std::uint8_t>(file.at(next++)); };
    const std::size_t planes = indexed ? 1 : 3;
    const auto wide = static_cast<std::size_t>(width), line = wide + wide % 2;
    Bytes values;
    for (std::size_t left = line * planes * static_cast<std::size_t>(height); left > 0;) {
        const std::uint8_t first = byte();
        const std::size_t count = first >= 192 ? first - 192U : 1;
        require(count > 0 && count <= left);
        values.insert(values.end(), count, first >= 192 ? byte() : first);
        left -= count;
    }
    require(file.size() == next + (indexed ? 769 : 0));
    Bytes pixels;
    for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y)
        for (std::size_t x = 0; x < wide; ++x)
            for (std::size_t i = 0; i < 3; ++i) {
                const std::size_t at = (y * planes + (indexed ? 0 : i)) * line + x;
                pixels.push_back(
                    indexed ? static_cast<std::uint8_t>(file.at(next + 1 + 3U * values[at] + i))
                            : values[at]);
            }
    return pixels;
}

bool few_colours(const Bytes& pixels) {
    std::set<std::array<std::uint8_t, 3>> colours;
    for (std::size_t at = 0; at + 2 < pixels.size(); at += 3)
        colours.insert({pixels[at], pixels[at + 1], pixels[at + 2]});
    return colours.size() <= Palette::most;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Width and the kind of file, then the pixels; the height is what they make.
    if (size < 5) return 0;
    const int width = 1 + data[0] + (data[1] & 3) * 256;
    const bool indexed = (data[1] & 4) != 0;
    Bytes pixels(data + 2, data + size);
    const auto row_size = static_cast<std::size_t>(width) * 3;
    const int height = static_cast<int>((pixels.size() + row_size - 1) / row_size);
    pixels.resize(row_size * static_cast<std::size_t>(height));
    const PictureRows picture{width, height, indexed, [&](int y) {
                                  return std::span<const std::uint8_t>(pixels).subspan(
                                      static_cast<std::size_t>(y) * row_size, row_size);
                              }};
    const Bytes by_bmp = bmp_pixels(bmp_file(picture), width, height, indexed);
    const Bytes by_pcx = pcx_pixels(pcx_file(picture, 0, 0), width, height, indexed);
    std::string png;
    require(png_file(picture, png) == 0);
    const Bytes by_png = png_pixels(png);
    // With a palette each file has the first 256 colours in its own order.
    require(by_png == by_pcx);
    if (!indexed || few_colours(pixels)) require(by_bmp == pixels && by_png == pixels);
    return 0;
}
