#include "common/number_field.hpp"

#include "common/fixed_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <type_traits>

namespace number_field {
namespace {

constexpr int max_decimals = 60;  ///< bounds the buffers; no caller's format comes near it

/// `text` at the right end of the field, or asterisks. A leading zero before the point is given up
/// if that makes the text fit.
std::string justified(std::string text, int width) {
    if (width <= 0) return text;
    const auto room = static_cast<std::size_t>(width);
    if (text.size() == room + 1) {
        const std::size_t digit = text.starts_with('-') ? 1 : 0;
        const bool more_digits = text.find_first_of("0123456789", digit + 2) != std::string::npos;
        if (text[digit] == '0' && text.size() > digit + 1 && text[digit + 1] == '.' && more_digits)
            text.erase(digit, 1);
    }
    if (text.size() > room) return std::string(room, '*');
    return std::string(room - text.size(), ' ') + text;
}

void drop_sign_of_zero(std::string& text) {
    if (text.starts_with('-') && text.find_first_of("123456789") == std::string::npos)
        text.erase(0, 1);
}

std::string not_finite(double value) {
    if (std::isnan(value)) return "NaN";
    return value > 0 ? "Inf" : "-Inf";
}

std::string fixed_digits(double value, int decimals) {
    // 309 digits before the point of the largest double, the sign, the point.
    std::array<char, 320 + max_decimals> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, std::min(decimals, max_decimals));
    std::string text(buffer.data(), result.ptr);
    if (decimals == 0) text.push_back('.');
    drop_sign_of_zero(text);
    return text;
}

/// Significant digits and decimal exponent of |value| = 0.d1d2d3... 10^exponent, rounded.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal decimal(double value, int digits) {
    std::array<char, max_decimals + 16> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                      std::chars_format::scientific, std::min(digits, max_decimals) - 1);
    const std::string_view text(buffer.data(),
                                static_cast<std::size_t>(result.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    Decimal out;
    for (const char c : text.substr(0, e))
        if (c != '.') out.digits += c;
    std::string_view exponent = text.substr(e + 1);
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), out.exponent);
    ++out.exponent;
    return out;
}

std::string exponent_form(double value, int width, int digits, int exponent_digits) {
    const Decimal d = value == 0 ? Decimal{std::string(static_cast<std::size_t>(digits), '0'), 0}
                                 : decimal(value, digits);
    std::string exponent = std::to_string(std::abs(d.exponent));
    const auto room = static_cast<std::size_t>(exponent_digits);
    if (exponent.size() > room) return std::string(static_cast<std::size_t>(width), '*');
    exponent.insert(0, room - exponent.size(), '0');
    std::string text = value < 0 ? "-0." : "0.";
    text += d.digits + 'E' + (d.exponent < 0 ? '-' : '+') + exponent;
    return justified(std::move(text), width);
}

struct Format {
    char letter = ' ';
    int width = 0;
    int decimals = 0;
    int exponent_digits = 2;
};

bool take_number(std::string_view& text, int& value) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc{} || value < 0 || value > 255) return false;
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return true;
}

bool take_letter(std::string_view& text, char upper) {
    if (text.empty() || (text.front() & ~0x20) != upper) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<Format> parse(std::string_view text) {
    text = without_blanks_around(text);
    if (text.size() < 4 || text.front() != '(' || text.back() != ')') return std::nullopt;
    text = text.substr(1, text.size() - 2);
    Format format;
    format.letter = static_cast<char>(text.front() & ~0x20);
    if (std::string_view("FIGE").find(format.letter) == std::string_view::npos) return std::nullopt;
    text.remove_prefix(1);
    if (!take_number(text, format.width)) return std::nullopt;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        if (!take_number(text, format.decimals)) return std::nullopt;
    } else if (format.letter != 'I') {
        return std::nullopt;
    }
    if (take_letter(text, 'E') && !take_number(text, format.exponent_digits)) return std::nullopt;
    if (!text.empty()) return std::nullopt;
    return format;
}

/// from_chars takes no leading plus and no D exponent, and says out of range for what is merely
/// too small.
template <class Real>
std::optional<Real> to_real(std::string_view text) {
    text = without_blanks_around(text);
    std::array<char, 128> buffer{};
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    if (text.empty() || text.size() > buffer.size()) return std::nullopt;
    std::transform(text.begin(), text.end(), buffer.begin(),
                   [](char c) { return c == 'd' || c == 'D' ? 'e' : c; });
    const char* const end = buffer.data() + text.size();
    if (std::string_view(buffer.data(), text.size()).find_first_of("0123456789") ==
        std::string_view::npos)
        return std::nullopt;  // "inf", "nan", "."
    Real value{};
    const auto result = std::from_chars(buffer.data(), end, value);
    if (result.ptr != end) return std::nullopt;
    if (result.ec == std::errc::result_out_of_range) {
        // Which end of the range is told by the same text at a wider type.
        if constexpr (std::is_same_v<Real, float>) {
            const auto wide = to_real<double>(text);
            if (!wide || std::abs(*wide) > 1.0) return std::nullopt;
            return 0.0f;
        } else {
            const std::string_view digits(buffer.data(), text.size());
            const std::size_t e = digits.find_first_of("eE");
            if (e == std::string_view::npos || digits.find('-', e) == std::string_view::npos)
                return std::nullopt;
            return 0.0;
        }
    }
    if (result.ec != std::errc{} || !std::isfinite(value)) return std::nullopt;
    return value;
}

}  // namespace

std::string fixed(double value, int width, int decimals) {
    if (!std::isfinite(value)) return justified(not_finite(value), width);
    return justified(fixed_digits(value, decimals), width);
}

std::string integer(long long value, int width) { return justified(std::to_string(value), width); }

std::string general(double value, int width, int digits, int exponent_digits) {
    if (!std::isfinite(value)) return justified(not_finite(value), width);
    if (digits < 1) digits = 1;
    const auto tail = static_cast<std::size_t>(exponent_digits) + 2;
    const int exponent = value == 0 ? 1 : decimal(value, digits).exponent;
    if (exponent < 0 || exponent > digits)
        return exponent_form(value, width, digits, exponent_digits);
    const int room = width > 0 ? std::max(1, width - static_cast<int>(tail)) : 0;
    return justified(fixed_digits(value, digits - exponent), room) + std::string(tail, ' ');
}

std::optional<std::string> by_format(double value, std::string_view format) {
    const std::optional<Format> f = parse(format);
    if (!f) return std::nullopt;
    switch (f->letter) {
        case 'F':
            return fixed(value, f->width, f->decimals);
        case 'G':
            return general(value, f->width, f->decimals, f->exponent_digits);
        case 'E':
            if (!std::isfinite(value)) return justified(not_finite(value), f->width);
            return exponent_form(value, f->width, std::max(1, f->decimals), f->exponent_digits);
        default:
            constexpr double limit = 9.0e18;  // inside the range of long long
            if (!(std::abs(value) < limit))
                return std::string(static_cast<std::size_t>(std::max(1, f->width)), '*');
            return integer(static_cast<long long>(value), f->width);
    }
}

std::optional<float> to_float(std::string_view text) { return to_real<float>(text); }
std::optional<double> to_double(std::string_view text) { return to_real<double>(text); }

std::optional<int> to_int(std::string_view text) {
    text = without_blanks_around(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || result.ec != std::errc{} || result.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}

}  // namespace number_field
