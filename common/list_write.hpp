/// Fields of a fixed layout that list_read reads back.
///
/// Each field stands where its layout puts it. Where two fields would touch, one blank parts them,
/// and what follows stands one column further right: two words in one would cost the whole line.
#pragma once

#include "common/fixed_text.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace list_write {

/// A field as it stands, blanks included.
void append(std::string& line, std::string_view field);

/// Each value in a field of its own, as number_field::fixed prints it: asterisks when it is too
/// large.
void append_fixed(std::string& line, std::span<const float> values, int width, int decimals);

/// A text at the left end of its field. One that would not be read as one item (it is blank, it has
/// a blank, comma or slash, it begins with a quote or with a repeat count) stands in apostrophes,
/// which may make it longer than its field.
void append_text(std::string& line, std::string_view text, std::size_t width);

/// In apostrophes, whatever it is.
void append_quoted(std::string& line, std::string_view text, std::size_t width);

template <std::size_t N>
void append_text(std::string& line, const FixedText<N>& text) {
    append_text(line, text.trimmed(), N);
}

}  // namespace list_write
