#include "toolkit/widgets/numeric_field.hpp"

#include "common/fixed_text.hpp"
#include "common/number_field.hpp"

#include <algorithm>
#include <cmath>

namespace tesserakit {
bool yyDGNumericOutOfRange(double low, double high, double value) {
    return low < high && (value < low || value > high);
}

std::optional<double> number_of(NumericType type, std::string_view text) {
    switch (type) {
        case NumericType::Integer:
            return number_field::to_int(text);
        case NumericType::Real:
            // Rounded once, from the text to 32 bits.
            return number_field::to_float(text);
        case NumericType::Double:
            break;
    }
    return number_field::to_double(text);
}

std::string number_text(NumericType type, double value, std::string_view format) {
    const std::string_view usual = type == NumericType::Integer ? "(I0)" : cNumDefFormat;
    std::optional<std::string> text = number_field::by_format(value, without_blanks_around(format));
    if (!text) text = number_field::by_format(value, usual);
    return std::string(without_blanks_around(*text));
}

std::optional<std::string> put_number(NumericField& field, double value, std::string_view format) {
    if (yyDGNumericOutOfRange(field.low, field.high, value)) return std::nullopt;
    if (!without_blanks_around(format).empty()) field.format = without_blanks_around(format);
    std::string text = number_text(field.type, value, field.format);
    field.last_valid = value;
    // A zero is the one value that its text always gives exactly: -0 is shown and kept as 0.
    if (value == 0) field.last_valid = number_of(field.type, text).value_or(value);
    field.defined = true;
    field.text_changed = false;
    return text;
}

bool text_is_valid(const NumericField& field, std::string_view text) {
    if (without_blanks_around(text).empty()) return !field.has_range() || !field.defined;
    const std::optional<double> value = number_of(field.type, text);
    return value && !yyDGNumericOutOfRange(field.low, field.high, *value);
}

bool accept_text(NumericField& field, std::string_view text) {
    if (!field.text_changed) return true;
    if (!text_is_valid(field, text)) return false;
    const std::optional<double> value = number_of(field.type, text);
    field.defined = value.has_value();
    if (value) field.last_valid = *value;
    field.text_changed = false;
    return true;
}

std::optional<double> current_value(const NumericField& field, std::string_view text) {
    if (field.text_changed) return number_of(field.type, text);
    if (!field.defined) return std::nullopt;
    return field.last_valid;
}

std::string yyDGFieldRevertToValid(NumericField& field) {
    field.text_changed = false;
    if (!field.defined) return {};
    return number_text(field.type, field.last_valid, field.format);
}

int decimals_of_step(double step) {
    constexpr int most = 12;
    step = std::abs(step);
    if (!(step > 0) || !std::isfinite(step)) return 0;
    int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, most);
    // A 32-bit step such as 0.05 is off by some 1e-8 of itself.
    const auto is_whole = [](double x) { return std::abs(x - std::round(x)) <= 1e-6 * x; };
    const int start = decimals;
    while (decimals < std::min(most, start + 6) && !is_whole(step * std::pow(10.0, decimals)))
        ++decimals;
    return decimals;
}

double stepped(double value, double step, double low, double high) {
    const double scale = std::pow(10.0, decimals_of_step(step));
    const double sum = value + step;
    const double scaled = sum * scale;
    // Beyond 2^53 every value is whole in these units.
    double result = std::abs(scaled) < 9.0e15 ? std::round(scaled) / scale : sum;
    if (low < high) result = std::clamp(result, low, high);
    return result;
}

}  // namespace tesserakit
