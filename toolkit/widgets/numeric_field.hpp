/// What a numeric field of a dialog holds: its value, range and format, and what typing does to
/// them. No X here.
///
/// While the user types, the text is only marked as changed. It becomes the value when it is
/// accepted (the focus leaves, or the application reads the field), and Escape brings the last
/// valid value back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tesserakit {

/// Shown when neither the call nor the field names a format.
inline constexpr std::string_view cNumDefFormat = "(G15.5E2)";

enum class NumericType { Integer = 3, Real = 4, Double = 5 };

struct NumericField {
    NumericType type = NumericType::Real;
    double low = 1.0;  ///< low not below high: no range
    double high = -1.0;
    double last_valid = 0.0;  ///< a Real's is exactly a 32-bit value
    bool text_changed = false;
    bool defined = false;  ///< has held a value; last_valid means nothing before
    std::string format;    ///< such as "(f7.2)"; empty: cNumDefFormat

    bool has_range() const { return low < high; }
};

/// Outside the range; with low not below high, and for a value that is no number, never.
bool yyDGNumericOutOfRange(double low, double high, double value);

/// The number that a text stands for in a field of that type, blanks around it left out: absent
/// for an empty text, anything that is no number, and what the type can't hold.
std::optional<double> number_of(NumericType type, std::string_view text);

/// A value as the field shows it, without blanks around it. An I format shows a real truncated; a
/// text that is no format counts as none. Integers without a format show plainly.
std::string number_text(NumericType type, double value, std::string_view format);

/// A put: makes `value` the field's and answers its text, or nothing outside the range (the field
/// stays as it was). A format that isn't blank becomes the field's own.
std::optional<std::string> put_number(NumericField& field, double value, std::string_view format);

/// Whether the text may stand: a number inside the range, or nothing at all where there is no range
/// or never was a value.
bool text_is_valid(const NumericField& field, std::string_view text);

/// The focus leaves: takes a changed text as the value (an empty one leaves the field undefined).
/// False, and nothing changed, when the text isn't valid.
bool accept_text(NumericField& field, std::string_view text);

/// What a get answers: the value in full precision while the text stands as it was put, else
/// the number typed; absent for an empty text and one that is no number.
std::optional<double> current_value(const NumericField& field, std::string_view text);

/// Escape: the text of the last valid value, empty when there is none; the field is unchanged
/// again.
std::string yyDGFieldRevertToValid(NumericField& field);

/// Decimals that steps of this size need: from log10 of the step, and more for a step like 0.25.
int decimals_of_step(double step);

/// One step of a spinner from `value`: rounded to the decimals of the step and moved into the
/// range (low not below high: none).
double stepped(double value, double step, double low, double high);

}  // namespace tesserakit
