/// How often a second the reader takes in a file, atoms and bonds expanded and display lists built,
/// with a silent double of OpenGL: what the continuous re-reading costs besides the drawing.
///
///     reader_bench [FILE]      a perovskite by default
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_io.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string_view>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t runs = 9;
constexpr std::chrono::milliseconds run_length{300};

double passes_a_second(const wcfgl_io::FileName& file) {
    const Clock::time_point start = Clock::now();
    Quaternion view{};
    int passes = 0;
    Clock::duration taken{};
    do {
        wcfgl_io::read_gwr_file(file, &view);
        ++passes;
        taken = Clock::now() - start;
    } while (taken < run_length);
    return passes / std::chrono::duration<double>(taken).count();
}

}  // namespace

int main(int argc, char** argv) {
    const wcfgl_io::FileName file =
        std::string_view(argc > 1 ? argv[1] : GEMWRIGHT_EXAMPLES "/catio3.gwr");
    wcfgl_io::read_gwr_file(file);
    if (wcfgl_atom_tree::generate_atom_label_array().size() < 2) {
        std::fprintf(stderr, "reader_bench: no atoms in the file\n");
        return 1;
    }
    std::array<double, runs> rates{};
    for (double& rate : rates) rate = passes_a_second(file);
    std::sort(rates.begin(), rates.end());
    std::printf("passes a second: median %.0f, least %.0f, most %.0f of %zu runs\n",
                rates[runs / 2], rates.front(), rates.back(), runs);
    return 0;
}
