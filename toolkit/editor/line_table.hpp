/// Where the lines of a text begin, kept up with each change of the text.
///
/// Positions are those of the text widget: characters, from 0. Lines and columns are those of the
/// status bar, from 1. No X here.
#pragma once

#include "toolkit/editor/moving_positions.hpp"

#include <cstddef>
#include <string_view>

namespace tesserakit {

struct TextPlace {
    std::size_t line = 1;
    std::size_t column = 1;
    friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

/// Texts come as the text widget hands them out: whole characters of UTF-8. A position or a line
/// behind the end counts as the last one.
class LineTable {
public:
    LineTable() = default;
    explicit LineTable(std::string_view text);

    /// `removed` characters behind `position` gave way to `inserted`.
    void change(std::size_t position, std::size_t removed, std::string_view inserted);

    std::size_t length() const { return ends_.length(); }
    /// One more than there are line ends: an empty text has one line, and behind a line end at the
    /// end of the text stands an empty one.
    std::size_t line_count() const { return ends_.size() + 1; }
    std::size_t start_of(std::size_t line) const;
    /// Of its line end, or of the end of the text.
    std::size_t end_of(std::size_t line) const;
    TextPlace place_of(std::size_t position) const;

private:
    MovingPositions<> ends_;  // of the line ends themselves
};

}  // namespace tesserakit
