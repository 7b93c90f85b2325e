/// Reads catalogue files.
///
/// A line at the left edge opens a menu, a toolbar, a dialog, the strings or the images; the
/// indented lines below it are its rows:
///
///     dialog 106 171x87 "Axes..."
///       1041 real   29,22  40x14  "-0.30" format "(f7.2)"
///
/// A line that is wrong is noted and left out; the lines behind it are still read.
#pragma once

#include "toolkit/resource/generator/catalogue.hpp"

#include <string>
#include <string_view>

namespace catalogue {

/// Adds what `text`, the contents of `file`, holds.
void read_text(std::string_view text, const std::string& file, Catalogue& catalogue,
               Errors& errors);

/// Notes what no single line shows: identifiers that stand twice, pages, templates and fields
/// that aren't there, strips that are too short. Meant for a catalogue that was read without
/// errors.
void check(const Catalogue& catalogue, Errors& errors);

}  // namespace catalogue
