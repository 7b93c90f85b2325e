/// Finding and replacing in a text. Positions are the text widget's: characters from 0. No X here.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tesserakit {

struct SearchRules {
    bool backward = false;
    bool match_case = false;
    /// No letter, digit or underscore next to a match's own at its borders.
    bool whole_word = false;
};

struct TextMatch {
    std::size_t begin = 0;
    std::size_t end = 0;
    friend bool operator==(const TextMatch&, const TextMatch&) = default;
};

/// Forward: the first match that begins at `from` or behind it. Backward: the last one that ends at
/// `from` or before it. Nowhere goes the search around the end of the text. Nothing matches an
/// empty text.
std::optional<TextMatch> find_text(std::wstring_view text, std::wstring_view wanted,
                                   std::size_t from, const SearchRules& rules);

struct ReplacedText {
    std::wstring text;
    std::size_t count = 0;
    bool too_long = false;  ///< it would grow beyond `longest_replaced`: nothing is done
};
inline constexpr std::size_t longest_replaced = std::size_t{32} << 20;  ///< characters
/// Each match from the start of the text on, next to each other, none inside of what has come in;
/// the direction doesn't count. Of coded text (byte_marks.hpp) what the widget shows is compared,
/// and what isn't replaced stays as it is.
ReplacedText replace_all(std::wstring_view text, std::wstring_view wanted,
                         std::wstring_view replacement, SearchRules rules);

}  // namespace tesserakit
