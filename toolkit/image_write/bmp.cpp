#include "toolkit/image_write/bmp.hpp"

#include "toolkit/image_write/palette.hpp"

#include <bit>
#include <cstddef>
#include <cstring>

namespace tesserakit {

namespace {

constexpr std::size_t header_size = 54;
constexpr std::size_t palette_size = 4 * Palette::most;

/// The lowest `bytes` bytes of a number, little end first.
void put(std::string& file, std::size_t at, std::size_t value, int bytes) {
    for (int i = 0; i < bytes; ++i, value >>= 8U) file[at++] = static_cast<char>(value & 255U);
}

void put_header(std::string& file, const PictureRows& picture, std::size_t pixels_at) {
    file[0] = 'B';
    file[1] = 'M';
    put(file, 2, file.size(), 3);
    put(file, 10, pixels_at, 2);
    put(file, 14, 40, 1);  // size of the rest of the header
    put(file, 18, static_cast<std::size_t>(picture.width), 2);
    put(file, 22, static_cast<std::size_t>(picture.height), 2);
    put(file, 26, 1, 1);
    put(file, 28, picture.indexed ? 8 : 24, 1);
}

void put_palette(std::string& file, const Palette& palette) {
    const auto& colours = palette.entries();
    for (std::size_t entry = 0; entry < Palette::most; ++entry)
        for (std::size_t i = 0; i < 3; ++i)
            file[header_size + 4 * entry + i] = static_cast<char>(colours[3 * entry + 2 - i]);
}

void put_colours(std::span<const std::uint8_t> row, std::uint8_t* to) {
    std::size_t at = 0;
    // Two pixels at once: of six bytes in one word the first and third of each pixel change places.
    // The two bytes behind them are written again with the next pixels.
    if constexpr (std::endian::native == std::endian::little) {
        for (; at + sizeof(std::uint64_t) <= row.size(); at += 6, to += 6) {
            std::uint64_t bytes = 0;
            std::memcpy(&bytes, &row[at], sizeof bytes);
            bytes = (bytes >> 16U & 0x0000ff0000ffU) | (bytes & 0x00ff0000ff00U) |
                    (bytes << 16U & 0xff0000ff0000U);
            std::memcpy(to, &bytes, sizeof bytes);
        }
    }
    for (; at + 2 < row.size(); at += 3, to += 3) {
        to[0] = row[at + 2];
        to[1] = row[at + 1];
        to[2] = row[at];
    }
}

}  // namespace

std::string bmp_file(const PictureRows& picture) {
    const std::size_t row_size =
        static_cast<std::size_t>(picture.width) * (picture.indexed ? 1 : 3);
    const std::size_t stride = (row_size + 3) / 4 * 4;
    const std::size_t pixels_at = header_size + (picture.indexed ? palette_size : 0);
    std::string file(pixels_at + stride * static_cast<std::size_t>(picture.height), '\0');
    put_header(file, picture, pixels_at);

    Palette palette;
    auto* to = reinterpret_cast<std::uint8_t*>(file.data()) + pixels_at;
    for (int row = picture.height - 1; row >= 0; --row, to += stride) {
        if (picture.indexed)
            palette.index(picture.row(row), to);
        else
            put_colours(picture.row(row), to);
    }
    if (picture.indexed) put_palette(file, palette);
    return file;
}

}  // namespace tesserakit
