/// What libpng reads from a PNG file.
#pragma once

#include <png.h>

#include <cstdint>
#include <string>
#include <vector>

/// Red, green and blue of each pixel of a file of these bytes; none when libpng finds anything to
/// remark.
inline std::vector<std::uint8_t> png_pixels(const std::string& file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) return {};
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr);
    if (image.warning_or_error != 0) pixels.clear();
    return pixels;
}
