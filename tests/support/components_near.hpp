/// Comparison of vectors by component, with a tolerance.
#pragma once

#include "common/vec.hpp"

#include <gmock/gmock.h>

#include <cmath>

/// Matches a vector each of whose components is within `tolerance` of the one expected.
MATCHER_P2(ComponentsNear, expected, tolerance,
           "has components within " + testing::PrintToString(tolerance) + " of " +
               testing::PrintToString(expected.c)) {
    *result_listener << testing::PrintToString(arg.c);
    for (std::size_t i = 0; i < 3; ++i)
        if (!(std::abs(arg[i] - expected[i]) <= tolerance)) return false;
    return true;
}
