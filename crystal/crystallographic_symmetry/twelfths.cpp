#include "crystal/crystallographic_symmetry/twelfths.hpp"

#include <cmath>
#include <cstddef>

namespace crystallographic_symmetry {

Vector3i folded_twelfths(const Vector3i& tr) {
    Vector3i result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = (tr[i] % 12 + 12) % 12;
    return result;
}

Vector3i twelfths(const Vector3f& tr) {
    Vector3i result;
    for (std::size_t i = 0; i < 3; ++i) {
        const float n = std::round(12.0f * tr[i]);
        result[i] = std::abs(n) < 1e9f ? static_cast<int>(n) : 0;
    }
    return folded_twelfths(result);
}

Vector3f cell_fractions(const Vector3i& tr) {
    constexpr float twelfth = 1.0f / 12.0f;
    return {static_cast<float>(tr[0]) * twelfth, static_cast<float>(tr[1]) * twelfth,
            static_cast<float>(tr[2]) * twelfth};
}

}  // namespace crystallographic_symmetry
