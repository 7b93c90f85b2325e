// The part is the whole box less as many whole cells at both ends of each direction as it takes.
// Cutting by whole cells keeps the margins of the box: 0.2 beyond a cell stays 0.2 beyond a cell.

#include "scene/shown_box.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

namespace shown_box {
namespace {

constexpr std::size_t most_counters = 8;

/// Beyond it no cells are counted: box_cells.hpp.
constexpr double farthest = 16777216.0;

struct State {
    std::array<Counter, most_counters> counters{};
    std::size_t counter_count = 0;
    bool changed = true;
    unsigned group = 0;        ///< spacegroup_number that was counted with
    std::optional<Box> whole;  ///< what `part` was chosen for
    Box part{};
    std::size_t objects = 0;  ///< in `part`
    bool crowded = false;     ///< even the smallest part holds too much
    std::size_t room = 0;     ///< while crowded: objects that may still be compiled
    unsigned generation = 0;
};
// Lists announce themselves before main, in any order.
constinit State state;

double counted(const Box& box, Count count) {
    double sum = 0.0;
    for (std::size_t n = 0; n < state.counter_count; ++n) sum += state.counters[n](box, count);
    return sum;
}

bool can_be_drawn(const Box& box) {
    constexpr double most = most_objects;
    return counted(box, Count::AtMost) <= most || counted(box, Count::Exactly) <= most;
}

std::size_t objects_in(const Box& box) {
    double objects = counted(box, Count::AtMost);
    if (!(objects <= few_objects)) objects = counted(box, Count::Exactly);
    return objects < most_objects ? static_cast<std::size_t>(objects) : most_objects;
}

double length(const Box& box, std::size_t axis) {
    return static_cast<double>(box[2 * axis + 1]) - static_cast<double>(box[2 * axis]);
}

/// Whether nothing has changed, be it no number.
bool same(const Box& a, const Box& b) {
    using Bits = std::array<std::uint32_t, 6>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

/// About the middle: `cells` or up to two more in each direction that has more.
Box middle(const Box& box, double cells) {
    Box part = box;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double cut = std::floor((length(box, axis) - cells) / 2.0);
        if (!(cut > 0.0)) continue;
        part[2 * axis] = static_cast<float>(static_cast<double>(box[2 * axis]) + cut);
        part[2 * axis + 1] = static_cast<float>(static_cast<double>(box[2 * axis + 1]) - cut);
    }
    return part;
}

/// The largest part that can be drawn, or the smallest there is.
Box largest_part(Box box) {
    for (float& limit : box)
        limit = std::clamp(limit, static_cast<float>(-farthest), static_cast<float>(farthest));
    double longest = 1.0;
    for (std::size_t axis = 0; axis < 3; ++axis) longest = std::max(longest, length(box, axis));
    // The count grows with the part: halving the interval finds its largest.
    double fits = 1.0, too_much = std::ceil(longest) + 1.0;
    while (too_much - fits > 1.0) {
        const double cells = std::floor((fits + too_much) / 2.0);
        if (can_be_drawn(middle(box, cells)))
            fits = cells;
        else
            too_much = cells;
    }
    return middle(box, fits);
}

void choose_part(const Box& whole) {
    // With another box all lists are compiled anew of themselves.
    const bool same_box = state.whole && same(*state.whole, whole);
    const Box before = state.part;
    const bool was_crowded = state.crowded;
    state.changed = false;
    state.group = wcfgl_metrix::spacegroup_number;
    state.whole = whole;
    state.part = whole;
    state.crowded = false;
    if (!can_be_drawn(whole)) {
        state.part = largest_part(whole);
        state.crowded = !can_be_drawn(state.part);
    }
    state.objects = objects_in(state.part);
    state.room = most_objects;
    const bool other_objects = !same(state.part, before) || state.crowded || was_crowded;
    if (same_box && other_objects) ++state.generation;
}

}  // namespace

void add_counter(Counter counter) { state.counters.at(state.counter_count++) = counter; }

void contents_changed() { state.changed = true; }

const Box& box() {
    if (!wcfgl_metrix::current_box) wcfgl_metrix::init_box();
    const Box& whole = *wcfgl_metrix::current_box;
    const bool same_group = state.group == wcfgl_metrix::spacegroup_number;
    if (state.changed || !same_group || !state.whole || !same(*state.whole, whole))
        choose_part(whole);
    return state.part;
}

std::size_t objects() {
    box();
    return state.objects;
}

unsigned generation() {
    box();
    return state.generation;
}

bool take_room() {
    if (!state.crowded) return true;
    if (state.room == 0) return false;
    --state.room;
    return true;
}

}  // namespace shown_box
