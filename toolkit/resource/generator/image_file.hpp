/// Image files of the catalogue, and the text form that the resource block keeps them in.
#pragma once

#include "toolkit/resource/generator/catalogue.hpp"

#include <cstdint>
#include <span>
#include <string>

namespace catalogue {

/// Reads the PNG file `path` into `image.pixels`, four bits a component, rounded to the nearest
/// shade that the screen will show. What shines through is the shade that stands for the
/// dialog's background; in an icon, a pixel with next to nothing of its own stays transparent.
/// Notes a file that can't be read or that isn't of the size told.
void read_image_file(const std::string& path, Image& image, Errors& errors);

/// Two characters a code: a run's length where it is above 1, then its colour. No run passes the
/// end of a row.
std::string image_codes(std::span<const std::uint16_t> pixels, int width);

}  // namespace catalogue
