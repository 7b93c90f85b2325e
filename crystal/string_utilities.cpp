#include "crystal/string_utilities.hpp"

#include "common/number_field.hpp"
#include "crystal/math_gen.hpp"

#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

namespace string_utilities {

constinit bool err_string = false;
constinit FixedText<150> err_string_mess{};

namespace {

void set_error(const char* message) {
    err_string = true;
    err_string_mess = message;
}

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

constexpr int add_digit(int number, int digit) {
    constexpr int limit = std::numeric_limits<int>::max();
    return number > (limit - digit) / 10 ? limit : number * 10 + digit;
}

struct Number {
    float real = 0.0f;
    int integer = 0;
};

/// Digits around a point. A second point takes a place of its own among the decimals.
std::optional<Number> digits_of(std::string_view text) {
    const int point = static_cast<int>(std::min(text.find('.'), text.size()));
    Number number;
    for (int i = 0; i < static_cast<int>(text.size()); ++i) {
        const char c = text[static_cast<std::size_t>(i)];
        if (c == '.') continue;
        if (!is_digit(c)) return std::nullopt;
        const int digit = c - '0';
        const int place = i < point ? point - i - 1 : point - i;
        // A zero would make NaN of a place that overflows.
        if (digit != 0)
            number.real += static_cast<float>(digit) * std::pow(10.0f, static_cast<float>(place));
        if (i < point) number.integer = add_digit(number.integer, digit);
    }
    return number;
}

float scaled(float value, std::string_view exponent_digits, bool negative) {
    int exponent = 0;
    for (const char c : exponent_digits) exponent = add_digit(exponent, c - '0');
    if (value == 0.0f) return value;
    const float factor = std::pow(10.0f, static_cast<float>(exponent));
    return negative ? value / factor : value * factor;
}

/// One word of a line of numbers.
std::optional<Number> number_of(std::string_view word) {
    const bool negative = word.starts_with('-');
    if (negative) word.remove_prefix(1);
    const std::size_t e = word.find_first_of("Ee");
    std::optional<Number> number = digits_of(word.substr(0, e));
    if (!number) return std::nullopt;
    if (e != std::string_view::npos) {
        std::string_view exponent = word.substr(e + 1);
        const bool divides = exponent.starts_with('-');
        if (divides || exponent.starts_with('+')) exponent.remove_prefix(1);
        if (!std::ranges::all_of(exponent, is_digit)) return std::nullopt;
        number->real = scaled(number->real, exponent, divides);
    }
    if (negative) *number = {-number->real, -number->integer};
    return number;
}

struct NumberWithSigma {
    float value = 0.0f;
    float sigma = 0.0f;
};

/// "0.1234(5)"; absent with the error set.
std::optional<NumberWithSigma> number_with_sigma(std::string_view word) {
    const std::size_t open = word.find('(');
    const std::string_view digits = word.substr(0, open);
    const std::optional<float> value = number_field::to_float(digits);
    if (!value) {
        set_error("Bad format");
        return std::nullopt;
    }
    if (open == std::string_view::npos) return NumberWithSigma{*value, 0.0f};
    const std::size_t close = word.find(')', open);
    const std::string_view inside = word.substr(open + 1, close - open - 1);
    const std::optional<float> sigma = number_field::to_float(inside);
    if (close != word.size() - 1 || !sigma || *sigma < 0.0f) {
        set_error("Wrong format using Standard values");
        return std::nullopt;
    }
    const std::size_t point = digits.find('.');
    if (point == std::string_view::npos || inside.find('.') != std::string_view::npos)
        return NumberWithSigma{*value, *sigma};
    const std::size_t end = std::min(digits.find_first_of("EeDd"), digits.size());
    const auto decimals = static_cast<float>(end > point ? end - point - 1 : 0);
    return NumberWithSigma{*value, *sigma / std::pow(10.0f, decimals)};
}

std::string without_last_zeros(std::string text) {
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

/// Writes n with one or two digits at `out` and returns the place behind it.
constexpr char* put_number(char* out, int n) {
    if (n >= 10) *out++ = static_cast<char>('0' + n / 10);
    *out++ = static_cast<char>('0' + n % 10);
    return out;
}

/// "+2", "+12", "-1", "-12", " 0". Formats of fixed widths: more digits leave asterisks.
template <std::size_t N>
FixedText<N> integer_text(float v) {
    if (std::abs(v) > 99.5f) return v > 0.0f ? "+**" : "***";
    const int n = static_cast<int>(std::round(v));
    FixedText<N> text;
    text[0] = n > 0 ? '+' : n < 0 ? '-' : ' ';
    put_number(text.data() + 1, std::abs(n));
    return text;
}

struct Fraction {
    int n = 0;
    int d = 0;  ///< 0 for none
};

bool fits(int n, int d, float magnitude) {
    return math_gen::negligibler(static_cast<float>(n) / static_cast<float>(d) - magnitude);
}

/// The first pair in the order of numerators, then denominators. Two different fractions of the
/// range lie further apart than twice the tolerance: only one value can fit, and its lowest
/// numerator comes first.
Fraction first_pair(float magnitude, int largest) {
    if (!(magnitude < static_cast<float>(largest))) return {};
    // Nearly all translations are 24ths.
    const int m = static_cast<int>(magnitude * 24.0f + 0.5f);
    if (fits(m, 24, magnitude)) {
        const int g = std::gcd(m, 24);
        return m / g <= largest && 24 / g <= largest ? Fraction{m / g, 24 / g} : Fraction{};
    }
    for (int n = 1; n <= largest; ++n) {
        const float nearest = static_cast<float>(n) / magnitude + 0.5f;
        if (!(nearest >= 2.0f && nearest < static_cast<float>(largest + 1))) continue;
        const int d = static_cast<int>(nearest);
        if (fits(n, d, magnitude)) return {n, d};
    }
    return {};
}

template <std::size_t N>
FixedText<N> fraction_text(float v, int largest, const char* stars) {
    if (math_gen::zbelongn(v)) return integer_text<N>(v);
    const Fraction fraction = first_pair(std::abs(v), largest);
    if (fraction.d == 0) return stars;
    FixedText<N> text;
    text[0] = v > 0.0f ? '+' : '-';
    char* out = put_number(text.data() + 1, fraction.n);
    *out++ = '/';
    put_number(out, fraction.d);
    return text;
}

template <std::size_t Width, class Print>
FixedText<3 * Width + 4> three_fractions(const Vector3f& t, Print print) {
    FixedText<3 * Width + 4> text;
    text[0] = '(';
    for (std::size_t i = 0; i < 3; ++i) {
        const FixedText<Width> one = print(t[i]);
        std::ranges::copy(one.field(), text.data() + 1 + i * (Width + 1));
        text[(i + 1) * (Width + 1)] = i < 2 ? ',' : ')';
    }
    return text;
}

}  // namespace

void init_err_string() {
    err_string = false;
    err_string_mess = {};
}

void ucase(std::span<char> text) { std::ranges::transform(text, text.begin(), raised); }
void lcase(std::span<char> text) { std::ranges::transform(text, text.begin(), lowered); }

std::string u_case(std::string_view text) {
    std::string result(text);
    ucase(result);
    return result;
}

std::string l_case(std::string_view text) {
    std::string result(text);
    lcase(result);
    return result;
}

std::string pack_string(std::string_view text) {
    const std::string_view trimmed = without_trailing_blanks(text);
    std::string packed;
    packed.reserve(trimmed.size());
    std::ranges::copy_if(trimmed, std::back_inserter(packed), [](char c) { return c != ' '; });
    packed.resize(trimmed.size(), ' ');
    return packed;
}

std::string_view cutst(std::string_view& line) {
    line = without_blanks_around(line);
    const std::string_view word = line.substr(0, line.find(' '));
    line = without_leading_blanks(line.substr(word.size()));
    return word;
}

void set_too_many_words() { set_error("Dimension of DIRE exceeded"); }

int getnum(std::string_view line, std::span<float> reals, std::span<int> integers) {
    init_err_string();
    std::ranges::fill(reals, 0.0f);
    std::ranges::fill(integers, 0);
    const std::size_t room = std::min(reals.size(), integers.size());
    std::size_t count = 0;
    for (std::string_view word = cutst(line); !word.empty(); word = cutst(line)) {
        const std::optional<Number> number = count < room ? number_of(word) : std::nullopt;
        if (!number) {
            set_error("Limits of digit variable exceeded in GETNUM");
            break;
        }
        reals[count] = number->real;
        integers[count] = number->integer;
        ++count;
    }
    return static_cast<int>(count);
}

int getnum_std(std::string_view line, std::span<float> values, std::span<float> sigmas) {
    init_err_string();
    std::ranges::fill(values, 0.0f);
    std::ranges::fill(sigmas, 0.0f);
    const std::size_t room = std::min(values.size(), sigmas.size());
    std::size_t count = 0;
    std::string_view word = cutst(line);
    if (word.empty()) set_error("Blank line");
    for (; !word.empty(); word = cutst(line)) {
        if (count == room) {
            set_error("Bad format");
            break;
        }
        const std::optional<NumberWithSigma> number = number_with_sigma(word);
        if (!number) break;
        values[count] = number->value;
        sigmas[count] = number->sigma;
        ++count;
    }
    return static_cast<int>(count);
}

std::string setnum_std(float value, float sigma) {
    const auto wide = static_cast<double>(value);
    if (!std::isfinite(value) || !std::isfinite(sigma) || !(sigma > 0.0f))
        return without_last_zeros(number_field::fixed(wide, 0, 5));
    const auto wide_sigma = static_cast<double>(sigma);
    // Two digits where they are below 20: decimals so that sigma x 10^decimals is 2 to 19.
    int decimals = -static_cast<int>(std::floor(std::log10(wide_sigma)));
    if (std::round(wide_sigma * std::pow(10.0, decimals + 1)) < 20.0) ++decimals;
    decimals = std::max(decimals, 0);
    const double last_digits = std::round(wide_sigma * std::pow(10.0, decimals));
    std::string text = number_field::fixed(wide, 0, decimals);
    if (text.ends_with('.')) text.pop_back();
    std::string deviation = number_field::fixed(last_digits, 0, 0);
    deviation.pop_back();
    return text + '(' + deviation + ')';
}

FixedText<4> get_fraction_1dig(float v) { return fraction_text<4>(v, 9, "**/*"); }
FixedText<6> get_fraction_2dig(float v) { return fraction_text<6>(v, 24, "***/**"); }

FixedText<16> frac_trans_1dig(const Vector3f& t) {
    return three_fractions<4>(t, get_fraction_1dig);
}
FixedText<22> frac_trans_2dig(const Vector3f& t) {
    return three_fractions<6>(t, get_fraction_2dig);
}

}  // namespace string_utilities
