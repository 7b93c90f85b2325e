/// Fixed-length text: case, words, numbers and fractions.
///
/// A blank is the character ' ' alone. Only ASCII letters have a case. A failure sets err_string
/// and err_string_mess and returns what was read before it.
#pragma once

#include "common/fixed_text.hpp"
#include "common/letter_case.hpp"
#include "common/vec.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace string_utilities {

extern bool err_string;
extern FixedText<150> err_string_mess;
/// Clears the two.
void init_err_string();

using letter_case::lowered;
using letter_case::raised;

/// In place.
void ucase(std::span<char> text);
void lcase(std::span<char> text);
template <std::size_t N>
void ucase(FixedText<N>& text) {
    ucase(std::span(text.data(), N));
}
template <std::size_t N>
void lcase(FixedText<N>& text) {
    lcase(std::span(text.data(), N));
}

/// A new text of the same length.
std::string u_case(std::string_view text);
std::string l_case(std::string_view text);
template <std::size_t N>
FixedText<N> u_case(FixedText<N> text) {
    ucase(text);
    return text;
}
template <std::size_t N>
FixedText<N> l_case(FixedText<N> text) {
    lcase(text);
    return text;
}

/// Without any of its blanks; the rest of the trimmed length, or of the field, is padded.
std::string pack_string(std::string_view text);
template <std::size_t N>
FixedText<N> pack_string(const FixedText<N>& text) {
    FixedText<N> packed;
    std::size_t length = 0;
    for (const char c : text.field())
        if (c != ' ') packed[length++] = c;
    return packed;
}

/// Takes the first word off the line and returns it: empty when the line is blank. What remains
/// begins with its first word and ends with its last, so that its size is its trimmed length.
std::string_view cutst(std::string_view& line);

/// For getword: err_string with "Dimension of DIRE exceeded".
void set_too_many_words();

/// All words of the line, each cut at N. The count returned is one above the size of `words`, with
/// err_string set, when there are more words than it holds; those it holds are stored.
template <std::size_t N, std::size_t Extent>
int getword(std::string_view line, std::span<FixedText<N>, Extent> words) {
    std::ranges::fill(words, FixedText<N>{});
    std::size_t count = 0;
    for (std::string_view word = cutst(line); !word.empty(); word = cutst(line)) {
        if (count++ == words.size()) {
            set_too_many_words();
            break;
        }
        words[count - 1] = word;
    }
    return static_cast<int>(count);
}

/// All numbers of the line: their count. Each is stored as a real and as an integer, the digits
/// before the point, untouched by the exponent and clamped to 32 bits. A word that is no number
/// sets err_string and ends the reading; so does a number that the shorter of the two lists has no
/// room for. What is not read is zero.
///
/// A number is [-] digits with one point among them [E [+|-] digits]. No sign "+" is taken, and
/// digits may be absent: "-" and "." are zero.
int getnum(std::string_view line, std::span<float> reals, std::span<int> integers);

/// The same for numbers with a standard deviation, in units of the last digit, behind them:
/// "0.1234(5)" gives 0.1234 and 0.0005. A deviation with a point is taken as it stands; without
/// parentheses it is 0. Messages: "Blank line", "Bad format", "Wrong format using Standard values".
int getnum_std(std::string_view line, std::span<float> values, std::span<float> sigmas);

/// The reverse: the deviation rounded to one digit, to two where they are below 20, and the value
/// to the same place. Without a deviation above zero the value has up to 5 decimals, no zero last.
std::string setnum_std(float value, float sigma);

/// A fraction with its sign: "+1/2", "-3/8"; an integer as "+2", "-1", " 0". Numerators and
/// denominators go up to 9 (1dig) or 24 (2dig). The field keeps its stars, "**/*" or "***/**",
/// when none fits within math_gen::eps_math.
FixedText<4> get_fraction_1dig(float v);
FixedText<6> get_fraction_2dig(float v);

/// Three of them: "(+1/2,+1/4, 0  )", each from the left of its columns.
FixedText<16> frac_trans_1dig(const Vector3f& t);
FixedText<22> frac_trans_2dig(const Vector3f& t);

/// The lists are of one length and each text of the first stands in the second.
template <std::size_t N>
bool equal_sets_text(std::span<const FixedText<N>> a, std::span<const FixedText<N>> b) {
    return a.size() == b.size() && std::ranges::all_of(a, [&](const FixedText<N>& text) {
               return std::ranges::find(b, text) != b.end();
           });
}

}  // namespace string_utilities
