#include "common/fatal.hpp"

#include <cstdio>
#include <cstdlib>

namespace fatal {

void allocation_failed(std::string_view label) {
    // No stream and no std::string: there may be no memory left to build them.
    std::fputs("gemwright: no memory for ", stderr);
    std::fwrite(label.data(), 1, label.size(), stderr);
    std::fputc('\n', stderr);
    std::exit(EXIT_FAILURE);
}

}  // namespace fatal
