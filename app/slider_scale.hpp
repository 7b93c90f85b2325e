/// Sliders hold integers; the model holds parts of one, a hundred steps of a slider each.
#pragma once

#include <algorithm>
#include <cmath>

namespace gemwright {

/// Cut toward zero. A file may hold any number: what no slider can show becomes a million of its
/// sign, which the slider takes for its end, and NaN becomes 0.
template <class Real>
int to_hundredths(Real part) {
    constexpr Real most = 1000000;
    const Real steps = part * Real(100);
    return std::isnan(steps) ? 0 : static_cast<int>(std::clamp(steps, -most, most));
}

/// The part of one that so many steps stand for.
inline float from_hundredths(int steps) { return static_cast<float>(steps) * 0.01f; }

}  // namespace gemwright
