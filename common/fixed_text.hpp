/// Text of a fixed width: N characters, padded with blanks, cut when longer.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

/// Length of a text up to its last non-blank character.
constexpr std::size_t trimmed_length(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? 0 : last + 1;
}

constexpr std::string_view without_trailing_blanks(std::string_view text) {
    return text.substr(0, trimmed_length(text));
}

constexpr std::string_view without_leading_blanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// Blanks alone: tabs and ends of line stay.
constexpr std::string_view without_blanks_around(std::string_view text) {
    return without_trailing_blanks(without_leading_blanks(text));
}

/// Equality compares the whole field, case and blanks included, and only fields of one width
/// compare. The type turns into no other text by itself: write field() or trimmed(), so that
/// every comparison and every print shows which of the two is meant.
template <std::size_t N>
class FixedText {
public:
    static constexpr std::size_t width = N;

    constexpr FixedText() { chars_.fill(' '); }
    constexpr FixedText(std::string_view text) { assign(text); }
    constexpr FixedText(const char* text) { assign(text); }

    /// All N characters.
    constexpr std::string_view field() const { return {chars_.data(), N}; }
    /// Up to the last non-blank character.
    constexpr std::string_view trimmed() const { return without_trailing_blanks(field()); }
    constexpr std::size_t length() const { return trimmed_length(field()); }
    constexpr bool blank() const { return length() == 0; }

    /// Characters first to last, counted from 1, both included; cut at the width.
    constexpr std::string_view columns(std::size_t first, std::size_t last) const {
        if (first < 1 || first > N || last < first) return {};
        return field().substr(first - 1, last - first + 1);
    }

    constexpr char& operator[](std::size_t i) { return chars_[i]; }
    constexpr char operator[](std::size_t i) const { return chars_[i]; }
    constexpr char* data() { return chars_.data(); }

    friend constexpr bool operator==(const FixedText&, const FixedText&) = default;

private:
    constexpr void assign(std::string_view text) {
        const std::size_t n = std::min(text.size(), N);
        std::copy_n(text.begin(), n, chars_.begin());
        std::fill(chars_.begin() + static_cast<std::ptrdiff_t>(n), chars_.end(), ' ');
    }

    std::array<char, N> chars_;
};
