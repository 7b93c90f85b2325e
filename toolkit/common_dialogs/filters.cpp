#include "toolkit/common_dialogs/filters.hpp"

#include "common/fixed_text.hpp"

#include <algorithm>

namespace tesserakit {

namespace {

std::string without_blanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return std::string(without_trailing_blanks(text));
}

/// The text up to the next bar, which is dropped with it.
std::string_view take_part(std::string_view& text) {
    const std::size_t bar = std::min(text.find('|'), text.size());
    const std::string_view part = text.substr(0, bar);
    text.remove_prefix(std::min(bar + 1, text.size()));
    return part;
}

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U; }

/// Length of the character at `at`: one byte and what continues it.
std::size_t character_length(std::string_view text, std::size_t at) {
    std::size_t end = at + 1;
    while (end < text.size() && continues(text[end])) ++end;
    return end - at;
}

}  // namespace

std::vector<FileFilter> read_filters(std::string_view text) {
    std::vector<FileFilter> filters;
    while (text.find('|') != std::string_view::npos) {
        FileFilter filter;
        filter.description = without_blanks(take_part(text));
        filter.pattern = without_blanks(take_part(text));
        if (filter.pattern.empty()) filter.pattern = "*";
        filters.push_back(std::move(filter));
    }
    return filters;
}

bool has_wildcard(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

bool matches(std::string_view name, std::string_view pattern) {
    if (name.starts_with('.') && !pattern.starts_with('.')) return false;
    std::size_t n = 0;
    std::size_t p = 0;
    // Where to go on after the last star when what follows it doesn't fit: the star takes one more.
    std::size_t after_star = std::string_view::npos;
    std::size_t taken = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            after_star = ++p;
            taken = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            n += character_length(name, n);
        } else if (p < pattern.size() && pattern[p] == name[n]) {
            ++p;
            ++n;
        } else if (after_star != std::string_view::npos) {
            p = after_star;
            n = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace tesserakit
