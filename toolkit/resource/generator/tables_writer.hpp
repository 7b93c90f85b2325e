/// Turns a catalogue into the source text of the resource block.
#pragma once

#include "toolkit/resource/generator/catalogue.hpp"

#include <string>

namespace catalogue {

/// The whole unit: pools, rows with their offsets and sentinels, and the record of them all. The
/// catalogue has passed check() and its images are read.
std::string source_of(const Catalogue& catalogue);

}  // namespace catalogue
