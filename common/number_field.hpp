/// Numbers as text in fields of a fixed layout, the same in every locale.
///
/// The rules are those of formatted records: a number stands at the right end of its field; a
/// number that doesn't fit leaves a row of asterisks; the zero before the point of a number below
/// one gives way when the field has no room for it; a value that rounds to zero has no sign.
/// Values are rounded once, from their exact binary value.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace number_field {

/// Fw.d: `decimals` digits behind the point. NaN and infinities print as "NaN" and "Inf".
/// A width of 0 gives the shortest text.
std::string fixed(double value, int width, int decimals);

/// Iw. A width of 0 gives the shortest text.
std::string integer(long long value, int width);

/// Gw.dEe: `digits` significant digits, in fixed form followed by e + 2 blanks for magnitudes
/// from 0.1 to 10^digits, otherwise as 0.dddE+xx with e digits of exponent. Zero prints fixed.
std::string general(double value, int width, int digits, int exponent_digits);

/// By a format of one number: "(f7.2)", "(I5)", "(G15.5E2)", "(E12.4)", in any case. A real is
/// truncated for an I format. Absent when the text is no such format.
std::optional<std::string> by_format(double value, std::string_view format);

/// The whole of `text`, blanks around it left out, as a number in integer, decimal or exponent
/// form (exponent letter e, E, d or D). Absent for anything else, for NaN and infinities, and for
/// a magnitude beyond the type; a magnitude below the smallest gives 0.
std::optional<float> to_float(std::string_view text);
std::optional<double> to_double(std::string_view text);
/// As above; digits with an optional sign only.
std::optional<int> to_int(std::string_view text);

}  // namespace number_field
