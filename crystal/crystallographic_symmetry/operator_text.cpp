#include "common/list_read.hpp"
#include "common/number_field.hpp"
#include "crystal/crystallographic_symmetry/operator_tables.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/math_gen.hpp"
#include "crystal/string_utilities.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>
#include <optional>
#include <string>

namespace crystallographic_symmetry {
namespace {

// ---------------------------------------------------------------- reading

/// Column of x, y, z in either case; absent for other characters.
std::optional<std::size_t> column_of(char c, char first) {
    const auto lowered = string_utilities::lowered(c);
    if (lowered < first || lowered > first + 2) return std::nullopt;
    return static_cast<std::size_t>(lowered - first);
}

bool ends_row(char c) { return c == ',' || c == '*'; }

void report_character(char c) {
    set_err_symm(std::string(" Invalid character... ") + c + " in Sym. Op.");
}

/// The translation of a row, digit by digit.
struct NumberReader {
    float value = 0.0f;
    bool slash = false;
    bool point = false;
    float place = 1.0f;     ///< weight of the last decimal read
    bool dividing = false;  ///< among the digits that stand together behind a slash
    float dividend = 0.0f;
    float divisor = 0.0f;

    void digit(int d) {
        const auto real = static_cast<float>(d);
        if (slash) {
            // Stays on to the end of the row: "1/2+1/4" divides 1 by 2, by 1 and by 4.
            dividend = dividing ? dividend : value;
            divisor = dividing ? divisor * 10.0f + real : real;
            dividing = true;
            value = dividend / divisor;
        } else if (point) {
            place *= 10.0f;
            value += real / place;
        } else {
            value = value * 10.0f + real;
        }
    }
    /// Digits behind another character are a divisor of their own.
    void end_of_digits() { dividing = false; }
};

/// What one pass over a row gave.
struct RowEnd {
    bool failed = false;
    bool blank = true;
    bool separator = false;
    std::size_t next = 0;  ///< behind the separator
};

RowEnd read_row(std::string_view text, std::size_t begin, Vector3i& row, float& translation) {
    RowEnd end;
    NumberReader number;
    int sign = 1;
    int multiplier = 1;
    int translation_sign = 1;
    for (std::size_t i = begin; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ' ') continue;
        if (ends_row(c)) {
            end.separator = true;
            end.next = i + 1;
            break;
        }
        end.blank = false;
        if (!is_digit(c)) number.end_of_digits();
        if (const auto column = column_of(c, 'x')) {
            row[*column] = multiplier * sign;
            multiplier = sign = 1;
        } else if (c == '+' || c == '-') {
            sign = c == '-' ? -1 : 1;
        } else if (c == '/') {
            number.slash = true;
        } else if (c == '.') {
            number.point = true;
        } else if (is_digit(c)) {
            // A coefficient counts here too: "1/2-2x" has the translation -1/2.
            translation_sign = sign;
            if (i + 1 < text.size() && is_xyz(text[i + 1]))
                multiplier = c - '0';
            else
                number.digit(c - '0');
        } else {
            report_character(c);
            end.failed = true;
            return end;
        }
    }
    translation = number.value * static_cast<float>(translation_sign);
    return end;
}

// The magnetic form: letters u, v, w, no digits, no translation.
RowEnd read_magnetic_row(std::string_view text, std::size_t begin, Vector3i& row) {
    RowEnd end;
    int sign = 1;
    for (std::size_t i = begin; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ' ') continue;
        if (ends_row(c)) {
            end.separator = true;
            end.next = i + 1;
            break;
        }
        end.blank = false;
        if (const auto column = column_of(c, 'u')) {
            row[*column] = sign;
            sign = 1;
        } else if (c == '+' || c == '-') {
            sign = c == '-' ? -1 : 1;
        } else {
            report_character(c);
            end.failed = true;
            return end;
        }
    }
    return end;
}

/// Three rows, each from behind the separator of the last; a row without one is read again as the
/// next. False when a row failed or was blank; `blank_message` tells of the latter.
template <class ReadRow>
bool read_rows(std::size_t begin, std::string_view blank_message, ReadRow&& read) {
    for (std::size_t i = 0; i < 3; ++i) {
        const RowEnd end = read(i, begin);
        if (end.failed) return false;
        if (end.blank) {
            set_err_symm(blank_message);
            return false;
        }
        if (end.separator) begin = end.next;
    }
    return true;
}

// ---------------------------------------------------------------- printing

/// A short text of a size known to the compiler: it is copied whole and then counts in part.
struct alignas(16) Piece {
    std::array<char, 14> text{};
    unsigned char length = 0;
    bool one_digit = false;  ///< of a fraction: numerator and denominator below 10

    constexpr void put(char c) { text[length++] = c; }
    constexpr void put_number(int n) {
        if (n > 9) put(static_cast<char>('0' + n / 10));
        put(static_cast<char>('0' + n % 10));
    }
};

/// The fractions n/24 below 1 in lowest terms. They are what the search through numerators and
/// then denominators finds first, since two fractions of its range that differ are further apart
/// than its tolerance.
/// Entries 0 and 24 are blank.
constexpr std::array<Piece, 25> fractions = [] {
    std::array<Piece, 25> all{};
    for (int n = 1; n < 24; ++n) {
        const int divisor = std::gcd(n, 24);
        Piece& fraction = all[static_cast<std::size_t>(n)];
        fraction.put('+');
        fraction.put_number(n / divisor);
        fraction.put('/');
        fraction.put_number(24 / divisor);
        fraction.one_digit = n / divisor < 10 && 24 / divisor < 10;
    }
    return all;
}();

/// The entry of `fractions` for v, well within the tolerance of the general search; or null.
inline const Piece* known_fraction(float v) {
    if (!(v > 0.0f && v < 1.0f)) return nullptr;
    const int n = static_cast<int>(v * 24.0f + 0.5f);
    if (std::abs(v - static_cast<float>(n) * (1.0f / 24.0f)) > 5e-6f) return nullptr;
    const Piece& fraction = fractions[static_cast<std::size_t>(n)];
    return fraction.length != 0 ? &fraction : nullptr;
}

constexpr char letter(std::size_t column) {
    return static_cast<char>('x' + static_cast<int>(column));
}

/// "-x+2y": all rows with coefficients from -2 to 2, by the base-5 number of their coefficients
/// + 2.
constexpr std::array<Piece, 125> short_rows = [] {
    std::array<Piece, 125> all{};
    for (int n = 0; n < 125; ++n) {
        Piece& row = all[static_cast<std::size_t>(n)];
        const std::array<int, 3> coefficients{n / 25 - 2, n / 5 % 5 - 2, n % 5 - 2};
        for (std::size_t j = 0; j < 3; ++j) {
            const int c = coefficients[j];
            if (c == 0) continue;
            if (c < 0) row.put('-');
            if (c > 0 && row.length > 0) row.put('+');
            if (c == 2 || c == -2) row.put('2');
            row.put(letter(j));
        }
    }
    return all;
}();

/// The entry of `short_rows`, or null when a coefficient is above `largest`, 1 or 2.
inline const Piece* short_row(const Vector3i& row, int largest) {
    const auto limit = static_cast<unsigned>(2 * largest);
    const auto within = [&](int c) { return static_cast<unsigned>(c + largest) <= limit; };
    if (!within(row[0]) || !within(row[1]) || !within(row[2])) return nullptr;
    return &short_rows[static_cast<std::size_t>(25 * row[0] + 5 * row[1] + row[2] + 62)];
}

const Piece* short_row(const Vector3f& row) {
    Vector3i whole;
    for (std::size_t j = 0; j < 3; ++j) {
        if (!(row[j] >= -2.0f && row[j] <= 2.0f)) return nullptr;
        whole[j] = static_cast<int>(row[j]);
        if (static_cast<float>(whole[j]) != row[j]) return nullptr;
    }
    return short_row(whole, 2);
}

// The writers below put text at `out` and return the place behind it. Three rows take 60
// characters at most; a piece copies up to 16 beyond its end, and blanks behind take 40.
constexpr std::size_t line_size = 112;
constexpr std::size_t usual_width = 40;

char* put(char* out, std::string_view text) {
    for (const char c : text)
        if (c != ' ') *out++ = c;
    return out;
}

char* put(char* out, const Piece& piece) {
    std::memcpy(out, &piece, sizeof piece);
    return out + piece.length;
}

/// Without the sign in front.
char* put_unsigned(char* out, const Piece& piece) {
    std::memcpy(out, piece.text.data() + 1, piece.text.size() - 1);
    return out + piece.length - 1;
}

/// What get_symsymbi prints for coefficients beyond 1: an integer in two columns, left-justified,
/// asterisks when it has no room there, and no sign in front of a positive one.
[[gnu::noinline]] char* put_long_row(char* out, const Vector3i& row) {
    bool first = true;
    for (std::size_t j = 0; j < 3; ++j) {
        if (row[j] == 0) continue;
        if (row[j] == -1)
            *out++ = '-';
        else if (row[j] != 1)
            out = put(out, number_field::integer(row[j], 2));
        else if (!first)
            *out++ = '+';
        *out++ = letter(j);
        first = false;
    }
    return out;
}

/// "x", "-2y", "+x/2", "+3z/4": a coefficient and its letter.
char* put_term(char* out, float coefficient, char name, bool first) {
    if (std::abs(std::abs(coefficient) - 1.0f) <= eps_symm) {
        if (coefficient < 0.0f)
            *out++ = '-';
        else if (!first)
            *out++ = '+';
        *out++ = name;
        return out;
    }
    const FixedText<4> fraction = string_utilities::get_fraction_1dig(coefficient);
    std::string_view text = fraction.trimmed();
    if (first && text.starts_with('+')) text.remove_prefix(1);
    const std::size_t slash = std::min(text.find('/'), text.size());
    std::string_view number = text.substr(0, slash);
    if (slash < text.size() && (number == "1" || number == "+1" || number == "-1"))
        number.remove_suffix(1);
    out = put(out, number);
    *out++ = name;
    return put(out, text.substr(slash));
}

[[gnu::noinline]] char* put_long_row(char* out, const Vector3f& row) {
    bool first = true;
    for (std::size_t j = 0; j < 3; ++j) {
        if (row[j] == 0.0f) continue;
        out = put_term(out, row[j], letter(j), first);
        first = false;
    }
    return out;
}

/// A translation that stands alone, without a plus, or that isn't in `fractions`. Rare, and kept
/// out of the short way through put_row.
template <class GeneralFraction>
[[gnu::noinline]] char* put_translation(char* out, const Piece* fraction, GeneralFraction general,
                                        float tr, bool alone) {
    if (fraction) return put_unsigned(out, *fraction);
    const auto text = general(tr);
    return put(out, text.trimmed().substr(alone && text[0] == '+' ? 1 : 0));
}

char* put_row(char* out, const Vector3i& row, float tr) {
    const Piece* letters = short_row(row, 1);
    char* const begin = out;
    out = letters ? put(out, *letters) : put_long_row(out, row);
    if (std::abs(tr) <= eps_symm) return out;
    const Piece* fraction = known_fraction(tr);
    if (fraction && out != begin) return put(out, *fraction);
    return put_translation(out, fraction, string_utilities::get_fraction_2dig, tr, out == begin);
}

char* put_row(char* out, const Vector3f& row, float tr) {
    const Piece* letters = short_row(row);
    char* const begin = out;
    out = letters ? put(out, *letters) : put_long_row(out, row);
    const bool blank = out == begin;
    if (!blank && std::abs(tr) <= eps_symm) return out;
    if (tr == 0.0f) {
        *out++ = '0';
        return out;
    }
    const bool alone = blank || std::abs(row[0]) + std::abs(row[1]) + std::abs(row[2]) <= eps_symm;
    const Piece* fraction = known_fraction(tr);
    if (fraction && !fraction->one_digit) fraction = nullptr;
    if (fraction && !alone) return put(out, *fraction);
    return put_translation(out, fraction, string_utilities::get_fraction_1dig, tr, alone);
}

template <class Matrix>
void put_triplet(const Matrix& rows, const Vector3f& tr, std::span<char> field) {
    std::array<char, line_size> line;
    char* out = put_row(line.data(), rows[0], tr[0]);
    *out++ = ',';
    out = put_row(out, rows[1], tr[1]);
    *out++ = ',';
    out = put_row(out, rows[2], tr[2]);
    std::memset(out, ' ', usual_width);
    if (field.size() == usual_width) {
        std::memcpy(field.data(), line.data(), usual_width);
        return;
    }
    const auto length = static_cast<std::size_t>(out - line.data());
    const std::size_t kept = std::min(length, field.size());
    std::copy_n(line.data(), kept, field.data());
    std::fill(field.begin() + static_cast<std::ptrdiff_t>(kept), field.end(), ' ');
}

/// " 1/2", "- 0 ": a translation of a Seitz symbol; nothing when the table has no such fraction.
std::string seitz_fraction(float tr) {
    for (std::size_t i = 0; i < fraction_values.size(); ++i)
        if (std::abs(std::abs(tr) - fraction_values[i]) <= eps_symm)
            return (tr < 0.0f ? '-' : ' ') + std::string(fraction_text[i].field());
    return {};
}

}  // namespace

bool is_xyz(char c) { return column_of(c, 'x').has_value(); }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

void read_xsym(std::string_view text, int start, Matrix3i& rot, Vector3f* tr) {
    init_err_symm();
    rot = {};
    if (tr) *tr = {};
    const std::string_view used = without_trailing_blanks(text);
    const auto begin = static_cast<std::size_t>(std::max(start, 1) - 1);
    const bool complete =
        read_rows(begin, " Blank operator field", [&](std::size_t row, std::size_t from) {
            float translation = 0.0f;
            const RowEnd end = read_row(used, from, rot[row], translation);
            if (tr && !end.failed) (*tr)[row] = translation;
            return end;
        });
    if (complete && math_gen::determ_a_i(rot) == 0)
        set_err_symm(" The above operator is wrong: " + std::string(text));
}

void read_msymm(std::string_view line, Matrix3i& rot, float& phase) {
    init_err_symm();
    rot = {};
    phase = 0.0f;
    const FixedText<80> field = line;
    const std::string_view text = field.field();
    const std::size_t last_comma = text.rfind(',');
    const bool has_comma = last_comma != std::string_view::npos;
    if (has_comma) {
        float value = 0.0f;
        list_read::Record record(text.substr(last_comma + 1));
        if (record.read(value)) phase = value;
    }
    const std::string_view used = text.substr(0, has_comma ? last_comma : 0);
    const bool complete = read_rows(
        5, " Blank operator field " + std::string(field.field()),
        [&](std::size_t row, std::size_t from) { return read_magnetic_row(used, from, rot[row]); });
    if (complete && math_gen::determ_a_i(rot) == 0)
        set_err_symm(" The above operator is wrong " + std::string(field.field()));
}

void get_symsymbi(const Matrix3i& rot, const Vector3f& tr, std::span<char> text) {
    put_triplet(rot, tr, text);
}

void get_symsymbr(const Matrix3f& coefficients, const Vector3f& tr, std::span<char> text) {
    put_triplet(coefficients, tr, text);
}

FixedText<30> get_seitz(int row, const Vector3f& tr) {
    const int proper = hexa ? 12 : 24;
    const int entry = row < 0 ? proper - row : row;
    if (entry < 1 || entry > 2 * proper) return {};
    const auto i = static_cast<std::size_t>(entry - 1);
    std::string text = "{";
    text += hexa ? seitz_hexa[i].columns(2, 13) : seitz_cubic[i].columns(2, 9);
    text += '|';
    for (std::size_t k = 0; k < 3; ++k) {
        const std::string fraction = seitz_fraction(tr[k]);
        if (!fraction.empty()) text += fraction + ',';
    }
    text.back() = '}';
    return std::string_view(text);
}

FixedText<19> decodmatmag(const Matrix3i& rot) {
    const int row = searchop(rot, 1, 36);
    if (row == 0) return {};
    const int proper = std::abs(row);
    // Without `hexa` the rows of the hexagonal set land on other entries of the texts.
    const int entry =
        hexa && proper > 24 ? 48 + (proper - 24) + (row < 0 ? 12 : 0) : proper + (row < 0 ? 24 : 0);
    return moment_text[static_cast<std::size_t>(entry - 1)];
}

void read_symtrans_code(std::string_view text, int& number, Vector3f& tr) {
    number = 1;
    tr = {};
    const FixedText<8> field = without_leading_blanks(text);
    const std::string_view code = field.trimmed();
    const std::size_t underscore = code.find('_');
    const std::size_t begin = underscore == std::string_view::npos ? 0 : underscore + 1;
    const std::size_t point = std::min(code.find('.'), code.size());
    if (point > begin) number = number_field::to_int(code.substr(begin, point - begin)).value_or(1);
    const std::string_view cells = code.substr(point);
    if (cells.size() < 4 || !std::all_of(cells.begin() + 1, cells.begin() + 4, is_digit)) return;
    for (std::size_t k = 0; k < 3; ++k) tr[k] = static_cast<float>(cells[k + 1] - '0' - 5);
}

FixedText<8> write_symtrans_code(int number, const Vector3f& tr) {
    std::string cells = ".";
    for (const float t : tr) {
        const float digit = std::round(t) + 5.0f;
        const bool printable = digit >= 0.0f && digit <= 9.0f;
        cells += printable ? static_cast<char>('0' + static_cast<int>(digit)) : '*';
    }
    const bool moved = cells != ".555";
    if (!moved && number == 1) return {};
    return std::string_view('_' + number_field::integer(number, 0) + (moved ? cells : ""));
}

}  // namespace crystallographic_symmetry
