#include "toolkit/image_write/pcx.hpp"

#include "toolkit/image_write/palette.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>
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

/// How many values from `from` on are the same, `longest_run` at most.
int run_length(const std::uint8_t* from, const std::uint8_t* end) {
    const std::uint8_t* const limit = from + std::min<std::ptrdiff_t>(end - from, longest_run);
    const std::uint8_t* at = from + 1;
    // Most of a picture is background: eight values are compared at once.
    constexpr std::ptrdiff_t word = sizeof(std::uint64_t);
    const std::uint64_t same = *from * 0x0101010101010101U;
    for (std::uint64_t values = 0; limit - at >= word; at += word) {
        std::memcpy(&values, at, word);
        if (values != same) break;
    }
    while (at != limit && *at == *from) ++at;
    return static_cast<int>(at - from);
}

/// One plane of a row. A line has an even length: a zero makes it up.
std::uint8_t* put_plane(std::uint8_t* to, std::span<const std::uint8_t> plane) {
    const std::uint8_t* const end = plane.data() + plane.size();
    for (const std::uint8_t* at = plane.data(); at != end;) {
        const std::uint8_t value = *at;
        const int count = at + 1 == end || at[1] != value ? 1 : run_length(at, end);
        // The count is overwritten where none is needed: in noise a branch would often be guessed
        // wrong.
        *to = static_cast<std::uint8_t>(count_mark + count);
        to += static_cast<int>(count > 1) | static_cast<int>(value >= count_mark);
        *to++ = value;
        at += count;
    }
    if (plane.size() % 2 != 0) *to++ = 0;
    return to;
}

/// Red, green and blue of a row behind each other.
void part_colours(std::span<const std::uint8_t> row, std::uint8_t* planes) {
    const std::size_t width = row.size() / 3;
    const std::uint8_t* from = row.data();
    for (std::size_t x = 0; x < width; ++x, from += 3) {
        planes[x] = from[0];
        planes[width + x] = from[1];
        planes[2 * width + x] = from[2];
    }
}

}  // namespace

std::string pcx_file(const PictureRows& picture, int left, int top) {
    const std::size_t planes = picture.indexed ? 1 : 3;
    const auto width = static_cast<std::size_t>(picture.width);
    std::vector<std::uint8_t> row(planes * width);
    std::vector<std::uint8_t> line(planes * (2 * width + 1));
    Palette palette;

    std::string file = header(picture, left, top);
    // Room for the longest: what isn't used of it costs no memory, growing would cost a copy.
    file.reserve(file.size() + line.size() * static_cast<std::size_t>(picture.height) + 1 +
                 palette.entries().size());
    for (int y = 0; y < picture.height; ++y) {
        if (picture.indexed)
            palette.index(picture.row(y), row.data());
        else
            part_colours(picture.row(y), row.data());
        std::uint8_t* end = line.data();
        for (std::size_t plane = 0; plane < planes; ++plane)
            end = put_plane(end, std::span(row).subspan(plane * width, width));
        file.append(line.data(), end);
    }
    if (picture.indexed) {
        file += '\f';  // 12 announces the palette
        file.append(palette.entries().begin(), palette.entries().end());
    }
    return file;
}

}  // namespace tesserakit
