#include "toolkit/image_write/pcx.hpp"

#include "toolkit/image_write/palette.hpp"

#include <cstddef>
#include <vector>

namespace tesserakit {

namespace {

constexpr std::size_t header_size = 128;
constexpr int longest_run = 63;
/// The two highest bits mark a count, so a value that has them can't stand by itself.
constexpr std::uint8_t count_mark = 192;

std::string header(const PictureRows& picture, int left, int top) {
    std::string bytes(header_size, '\0');
    const auto put = [&bytes](std::size_t at, int value) {
        bytes[at] = static_cast<char>(value & 255);
        bytes[at + 1] = static_cast<char>(value >> 8 & 255);
    };
    bytes[0] = 10;
    bytes[1] = 5;  // version
    bytes[2] = 1;  // runs
    bytes[3] = 8;  // bits a pixel and plane
    put(4, left);
    put(6, top);
    put(8, left + picture.width - 1);
    put(10, top + picture.height - 1);
    bytes[12] = 75;  // dots an inch, of which only the low bytes are told
    bytes[14] = 75;
    bytes[65] = picture.indexed ? 1 : 3;
    put(66, picture.width + picture.width % 2);
    return bytes;
}

std::uint8_t* put_run(std::uint8_t* to, std::uint8_t value, int count) {
    if (count > 1 || value >= count_mark) *to++ = static_cast<std::uint8_t>(count_mark + count);
    *to++ = value;
    return to;
}

/// One plane of a row, `step` bytes from value to value. A line has an even length: a zero makes it
/// up.
std::uint8_t* put_plane(std::uint8_t* to, const std::uint8_t* from, std::size_t step, int width) {
    std::uint8_t value = *from;
    int count = 1;
    for (int x = 1; x < width; ++x) {
        from += step;
        if (*from == value && count < longest_run) {
            ++count;
            continue;
        }
        to = put_run(to, value, count);
        value = *from;
        count = 1;
    }
    to = put_run(to, value, count);
    if (width % 2 != 0) *to++ = 0;
    return to;
}

}  // namespace

std::string pcx_file(const PictureRows& picture, int left, int top) {
    const std::size_t planes = picture.indexed ? 1 : 3;
    const auto width = static_cast<std::size_t>(picture.width);
    std::vector<std::uint8_t> line(planes * (2 * width + 1));
    std::vector<std::uint8_t> indices(picture.indexed ? width : 0);
    Palette palette;

    std::string file = header(picture, left, top);
    // Room for the longest: what isn't used of it costs no memory, growing would cost a copy.
    file.reserve(file.size() + line.size() * static_cast<std::size_t>(picture.height) + 1 +
                 palette.entries().size());
    for (int row = 0; row < picture.height; ++row) {
        const std::span<const std::uint8_t> colours = picture.row(row);
        std::uint8_t* end = line.data();
        if (picture.indexed) {
            palette.index(colours, indices.data());
            end = put_plane(end, indices.data(), 1, picture.width);
        } else {
            for (std::size_t plane = 0; plane < planes; ++plane)
                end = put_plane(end, &colours[plane], planes, picture.width);
        }
        file.append(line.data(), end);
    }
    if (picture.indexed) {
        file += '\f';  // 12 announces the palette
        file.append(palette.entries().begin(), palette.entries().end());
    }
    return file;
}

}  // namespace tesserakit
