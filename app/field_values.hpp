/// What stands in the fields of the current dialog, in the form that the model takes.
///
/// The one place that reads numbers: a field that is empty or unfinished ("-") holds none, and the
/// model then keeps what it has.
#pragma once

#include "common/vec.hpp"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace gemwright {

/// Of a Real field, in full precision while its text stands as it was put; absent where there is no
/// number.
std::optional<float> real_in(int field);

/// The same for a component of a position, where 0.3333 or 0.1667 as typed mean 1/3 and 1/6. A
/// number that only shows as one of these, because the field cuts its digits, stays as it is.
std::optional<float> position_in(int field);

/// Those of a row of fields, `kept` where there is no number.
template <std::size_t N>
std::array<float, N> reals_in(const std::array<int, N>& fields, std::array<float, N> kept) {
    for (std::size_t i = 0; i < N; ++i) kept[i] = real_in(fields[i]).value_or(kept[i]);
    return kept;
}

/// Absent unless all three are there.
std::optional<Vector3f> vector_in(const std::array<int, 3>& fields);

/// Without trailing blanks.
std::string text_in(int field);
bool ticked(int field);
/// The set radio button of a group, from 1; `radio` is any of the group.
int ordinal_in(int radio);
int slider_in(int field);

/// Colour components in sliders of hundredths, one slider each.
void get_colour(std::span<const int> sliders, std::span<float> colour);
void put_colour(std::span<const int> sliders, std::span<const float> colour);

void put_reals(std::span<const int> fields, std::span<const float> values);
void put_states(std::span<const int> fields, int state);

/// The selected entry of a list.
struct Selected {
    int index = 0;  ///< from 1; 0 for none
    std::string text;
};
Selected selected_in(int list);

}  // namespace gemwright
