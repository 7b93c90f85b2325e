#include "toolkit/editor/line_table.hpp"

#include <algorithm>
#include <vector>

namespace tesserakit {

namespace {

struct LineEnds {
    std::vector<MovingPositions<>::Entry> entries;
    std::size_t length = 0;  ///< of the text in characters
};

/// A character is counted at its first byte.
std::size_t characters_in(std::string_view text) {
    std::size_t count = 0;
    for (const char c : text) count += (static_cast<unsigned char>(c) & 0xc0U) != 0x80U ? 1U : 0U;
    return count;
}

LineEnds line_ends_of(std::string_view text, std::size_t position) {
    LineEnds ends;
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
        ends.length += characters_in(text.substr(0, end));
        ends.entries.push_back({.at = static_cast<std::uint32_t>(position + ends.length)});
        ++ends.length;
        text.remove_prefix(end + 1);
    }
    ends.length += characters_in(text);
    return ends;
}

}  // namespace

LineTable::LineTable(std::string_view text) {
    LineEnds ends = line_ends_of(text, 0);
    ends_ = {std::move(ends.entries), ends.length};
}

void LineTable::change(std::size_t position, std::size_t removed, std::string_view inserted) {
    const LineEnds ends = line_ends_of(inserted, std::min(position, length()));
    ends_.change(position, removed, ends.length, ends.entries);
}

std::size_t LineTable::start_of(std::size_t line) const {
    line = std::clamp<std::size_t>(line, 1, line_count());
    return line == 1 ? 0 : ends_.at(line - 2) + 1;
}

std::size_t LineTable::end_of(std::size_t line) const {
    return line >= line_count() ? length() : ends_.at(std::max<std::size_t>(line, 1) - 1);
}

TextPlace LineTable::place_of(std::size_t position) const {
    position = std::min(position, length());
    const std::size_t line = ends_.first_from(position) + 1;
    return {line, position - start_of(line) + 1};
}

}  // namespace tesserakit
