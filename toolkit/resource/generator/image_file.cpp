#include "toolkit/resource/generator/image_file.hpp"

#include <png.h>

#include <algorithm>
#include <vector>

namespace catalogue {
namespace {

constexpr int background_shade = 0xC0;  // the three of them stand for the dialog's background
constexpr int run_base = 8191;          // a run of n is written as this plus n
constexpr int digits = 93;              // characters from '#' up
constexpr int longest_run = digits * digits - 1 - run_base;

/// A component over the background. The screen gets a shade of four bits as its high nibble.
unsigned four_bits(int component, int alpha) {
    const int mixed = (component * alpha + background_shade * (255 - alpha) + 127) / 255;
    return static_cast<unsigned>(std::min((mixed + 8) >> 4, 15));
}

std::uint16_t pixel_of(const png_byte* rgba, int kind) {
    const int alpha = rgba[3];
    if (kind == tesserakit::image_kind::icon && alpha < 64) return transparent;
    return static_cast<std::uint16_t>(four_bits(rgba[0], alpha) | four_bits(rgba[1], alpha) << 4 |
                                      four_bits(rgba[2], alpha) << 8);
}

void append_code(std::string& codes, int value) {
    codes += static_cast<char>('#' + value / digits);
    codes += static_cast<char>('#' + value % digits);
}

void append_row(std::string& codes, std::span<const std::uint16_t> row) {
    for (std::size_t i = 0; i < row.size();) {
        std::size_t end = i + 1;
        while (end < row.size() && row[end] == row[i] && end - i < longest_run) ++end;
        const int run = static_cast<int>(end - i);
        if (run > 1) append_code(codes, run_base + run);
        append_code(codes, row[i]);
        i = end;
    }
}

}  // namespace

void read_image_file(const std::string& path, Image& image, Errors& errors) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&png, path.c_str())) {
        errors.push_back({image.place, path + ": " + png.message});
        return;
    }
    png.format = PNG_FORMAT_RGBA;
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(png));
    const bool read = png_image_finish_read(&png, nullptr, bytes.data(), 0, nullptr) != 0;
    if (!read) {
        errors.push_back({image.place, path + ": " + png.message});
    } else if (static_cast<int>(png.width) != image.width ||
               static_cast<int>(png.height) != image.height) {
        errors.push_back({image.place, path + " is " + std::to_string(png.width) + 'x' +
                                           std::to_string(png.height)});
    } else {
        for (std::size_t i = 0; i < bytes.size(); i += 4) {
            image.pixels.push_back(pixel_of(&bytes[i], image.kind));
        }
    }
    png_image_free(&png);
}

std::string image_codes(std::span<const std::uint16_t> pixels, int width) {
    std::string codes;
    const auto row = static_cast<std::size_t>(width);
    for (std::size_t i = 0; i + row <= pixels.size() && row > 0; i += row) {
        append_row(codes, pixels.subspan(i, row));
    }
    return codes;
}

}  // namespace catalogue
