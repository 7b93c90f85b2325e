// How long the picture lags behind the pointer: a drag of 100 moves 16 ms apart in the real
// program, and the time from the last move to the last change of the picture. The same moves sent
// one by one, each after the picture has come to rest, must end in the same picture.
//
// lag_bench PROGRAM FILE

#include "bench/real_program.hpp"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace bench;

constexpr int moves = 100;
constexpr milliseconds apart{16};
constexpr const Area& seen = Program::picture;

void point(int step) {
    bench::point(seen.x + seen.width / 2 + step, seen.y + seen.height / 2 + step / 2);
}

struct Result {
    double lag_ms = 0;
    std::vector<char> last;
};

Result drag(char* program, char* file, bool fast) {
    const Program running({program, file});
    point(0);
    button(true);
    wait_for_rest(seen);
    for (int step = 1; step <= moves; ++step) {
        point(step);
        if (fast)
            std::this_thread::sleep_for(apart);
        else
            wait_for_rest(seen, milliseconds(150));
    }
    const Clock::time_point sent = Clock::now();
    const std::chrono::duration<double, std::milli> lag = wait_for_rest(seen) - sent;
    Result result{std::max(0.0, lag.count()), look(seen)};
    button(false);
    return result;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 || !display()) return EXIT_FAILURE;
    std::vector<double> lags;
    std::vector<char> fast;
    for (int round = 0; round < 5; ++round) {
        Result result = drag(argv[1], argv[2], true);
        lags.push_back(result.lag_ms);
        fast = std::move(result.last);
    }
    std::sort(lags.begin(), lags.end());
    const bool same = fast == drag(argv[1], argv[2], false).last;
    std::printf(
        "lag behind the last of %d moves: median %.0f ms, worst %.0f ms; final picture %s\n", moves,
        lags[lags.size() / 2], lags.back(), same ? "the same" : "DIFFERENT");
    return same ? EXIT_SUCCESS : EXIT_FAILURE;
}
