#include "crystal/position_text.hpp"

#include <cmath>
#include <cstddef>

namespace position_text {
namespace {

constexpr std::size_t fewest_decimals = 3;
constexpr std::string_view digits = "0123456789";

/// `decimals` is `first`, then `repeated` up to the end, whose last digit may stand rounded up.
bool recurs(std::string_view decimals, char first, char repeated, char rounded) {
    if (decimals.size() < fewest_decimals || decimals.front() != first) return false;
    const char last = decimals.back();
    const std::string_view middle = decimals.substr(1, decimals.size() - 2);
    return middle.find_first_not_of(repeated) == std::string_view::npos &&
           (last == repeated || last == rounded);
}

/// The sixths behind the point, or 0: 1/6, 1/3, 2/3 and 5/6 alone have decimals without an end.
int sixths(std::string_view decimals) {
    if (recurs(decimals, '1', '6', '7')) return 1;
    if (recurs(decimals, '3', '3', '3')) return 2;
    if (recurs(decimals, '6', '6', '7')) return 4;
    if (recurs(decimals, '8', '3', '3')) return 5;
    return 0;
}

}  // namespace

float component(std::string_view text, float value) {
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) return value;
    std::string_view decimals = text.substr(point + 1);
    const std::size_t end = decimals.find_last_not_of(' ') + 1;
    decimals = decimals.substr(0, end);
    if (decimals.find_first_not_of(digits) != std::string_view::npos) return value;
    const int n = sixths(decimals);
    if (n == 0) return value;
    // Rounded once, from a double: the float that the fraction itself would be written as.
    const auto whole = std::trunc(std::abs(static_cast<double>(value)));
    return static_cast<float>(std::copysign(whole + n / 6.0, static_cast<double>(value)));
}

}  // namespace position_text
