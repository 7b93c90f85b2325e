/// The one way in which the program ends by itself: memory that can't be had.
#pragma once

#include <new>
#include <string_view>
#include <utility>

namespace fatal {

/// Prints the allocation's label on the standard error and ends the program with status 1.
[[noreturn]] void allocation_failed(std::string_view label);

/// Runs `allocate`; a std::bad_alloc that leaves it ends the program, naming `label`.
template <class Function>
auto allocate(std::string_view label, Function&& allocate) {
    try {
        return std::forward<Function>(allocate)();
    } catch (const std::bad_alloc&) {
        allocation_failed(label);
    }
}

}  // namespace fatal
