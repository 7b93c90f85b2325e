/// Capital and small letters, of English alone: keywords are the same in every locale, and the
/// bytes of other letters stay.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace letter_case {

constexpr char raised(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }
constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

inline std::string in_capitals(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), raised);
    return result;
}

}  // namespace letter_case
