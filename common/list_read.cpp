#include "common/list_read.hpp"

#include "common/number_field.hpp"

#include <algorithm>

namespace list_read {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view item_ends = " \t\r\n,/";

}  // namespace

/// Moves to the start of the next item. False when the separator is followed by another one: a null
/// item.
bool Record::skip_separator() {
    const auto skip_blanks = [this] {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size()));
    };
    skip_blanks();
    if (!first_ && rest_.starts_with(',')) {
        rest_.remove_prefix(1);
        skip_blanks();
    }
    first_ = false;
    return !rest_.starts_with(',');
}

void Record::take_quoted(char quote) {
    unquoted_.clear();
    rest_.remove_prefix(1);
    while (!rest_.empty()) {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        if (c == quote) {
            if (!rest_.starts_with(quote)) return;
            rest_.remove_prefix(1);
        }
        unquoted_ += c;
    }
}

void Record::take_plain() {
    const std::size_t end = std::min(rest_.find_first_of(item_ends), rest_.size());
    item_ = rest_.substr(0, end);
    rest_.remove_prefix(end);
}

std::optional<std::string_view> Record::next() {
    if (failed_ || slash_) return std::nullopt;
    if (repeats_ == 0) {
        quoted_ = null_item_ = false;
        repeats_ = 1;
        if (!skip_separator()) {
            null_item_ = true;
        } else if (rest_.empty()) {
            failed_ = true;
            return std::nullopt;
        } else if (rest_.front() == '/') {
            slash_ = true;
            return std::nullopt;
        } else {
            const std::size_t digits =
                std::min(rest_.find_first_not_of("0123456789"), rest_.size());
            if (digits > 0 && digits < rest_.size() && rest_[digits] == '*') {
                const std::optional<int> count = number_field::to_int(rest_.substr(0, digits));
                if (!count || *count < 1) {
                    failed_ = true;
                    return std::nullopt;
                }
                repeats_ = *count;
                rest_.remove_prefix(digits + 1);
            }
            if (rest_.empty() || item_ends.find(rest_.front()) != std::string_view::npos) {
                null_item_ = true;
            } else if (rest_.front() == '\'' || rest_.front() == '"') {
                quoted_ = true;
                take_quoted(rest_.front());
            } else {
                take_plain();
            }
        }
    }
    --repeats_;
    if (null_item_) return std::nullopt;
    return quoted_ ? std::string_view(unquoted_) : item_;
}

template <class Number>
bool Record::read_number(Number& value, std::optional<Number> (*convert)(std::string_view)) {
    const std::optional<std::string_view> text = next();
    written_ = {};
    if (failed_) return false;
    if (!text) return true;
    const std::optional<Number> number = quoted_ ? std::nullopt : convert(*text);
    if (!number) {
        failed_ = true;
        return false;
    }
    value = *number;
    written_ = *text;
    return true;
}

bool Record::read(float& value) { return read_number(value, number_field::to_float); }
bool Record::read(int& value) { return read_number(value, number_field::to_int); }

}  // namespace list_read
