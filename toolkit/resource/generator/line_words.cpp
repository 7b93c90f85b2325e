#include "toolkit/resource/generator/line_words.hpp"

#include <charconv>

namespace catalogue {
namespace {

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

template <typename Number>
bool parse_whole(std::string_view text, Number& value) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end;
}

/// The character that stands behind a backslash, or 0 when none is meant.
char escaped(char c) {
    switch (c) {
        case '"':
        case '\\':
            return c;
        case 't':
            return '\t';
        case 'b':
            return '\b';
        default:
            return '\0';
    }
}

}  // namespace

LineWords::LineWords(std::string_view line, Place place, Errors& errors)
    : place_(std::move(place)), errors_(errors) {
    split(line);
}

void LineWords::split(std::string_view line) {
    std::size_t i = 0;
    while (i < line.size() && is_blank(line[i])) ++i;
    indent_ = static_cast<int>(i);
    while (i < line.size() && line[i] != '#') {
        if (is_blank(line[i])) {
            ++i;
            continue;
        }
        Word word;
        if (line[i] != '"') {
            while (i < line.size() && !is_blank(line[i]) && line[i] != '"') word.text += line[i++];
            words_.push_back(word);
            continue;
        }
        word.quoted = true;
        for (++i; i < line.size() && line[i] != '"'; ++i) {
            char c = line[i];
            if (c == '\\') c = i + 1 < line.size() ? escaped(line[++i]) : '\0';
            if (c == '\0') return fail("a backslash wants one of \" \\ t b behind it");
            word.text += c;
        }
        if (i == line.size()) return fail("this text has no closing quote");
        ++i;
        words_.push_back(word);
    }
}

void LineWords::fail(const std::string& message) {
    if (failed_) return;
    failed_ = true;
    errors_.push_back({place_, message});
}

bool LineWords::take(std::string_view word) {
    if (failed_ || at_end() || words_[next_].quoted || words_[next_].text != word) return false;
    ++next_;
    return true;
}

std::string LineWords::take_next(std::string_view what, bool quoted) {
    if (failed_) return {};
    if (at_end() || words_[next_].quoted != quoted) {
        std::string found = at_end() ? "the line's end" : '\'' + words_[next_].text + '\'';
        fail(std::string(what) + " is missing before " + found);
        return {};
    }
    return words_[next_++].text;
}

std::string LineWords::word(std::string_view what) { return take_next(what, false); }

std::string LineWords::text(std::string_view what) { return take_next(what, true); }

int LineWords::integer(std::string_view what) {
    const std::string text = take_next(what, false);
    int value = 0;
    if (!failed_ && !parse_whole(text, value)) {
        fail(std::string(what) + " is no integer: '" + text + '\'');
    }
    return failed_ ? 0 : value;
}

double LineWords::real(std::string_view what) {
    const std::string text = take_next(what, false);
    double value = 0;
    if (!failed_ && !parse_whole(text, value)) {
        fail(std::string(what) + " is no number: '" + text + '\'');
    }
    return failed_ ? 0 : value;
}

std::pair<int, int> LineWords::integers(char separator, std::string_view what) {
    const std::string text = take_next(what, false);
    if (failed_) return {};
    const std::string_view whole = text;
    const std::size_t middle = whole.find(separator);
    std::pair<int, int> value;
    if (middle == std::string_view::npos || !parse_whole(whole.substr(0, middle), value.first) ||
        !parse_whole(whole.substr(middle + 1), value.second)) {
        fail(std::string(what) + " is no pair of integers: '" + text + '\'');
        return {};
    }
    return value;
}

}  // namespace catalogue
