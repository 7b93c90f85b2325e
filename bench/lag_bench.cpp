// How long the picture lags behind the pointer: a drag of 100 moves 16 ms apart in the real
// program, and the time from the last move to the last change of the picture. The same moves sent
// one by one, each after the picture has come to rest, must end in the same picture.
//
// lag_bench PROGRAM FILE

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int moves = 100;
constexpr milliseconds apart{16};
constexpr milliseconds rest{1500};  ///< no change for so long: the picture is at rest

Display* display = nullptr;
/// The middle of the screen, where the picture is.
constexpr int left = 480, top = 360, extent = 320;

std::vector<char> look() {
    XImage* image = XGetImage(display, DefaultRootWindow(display), left, top, extent, extent,
                              AllPlanes, ZPixmap);
    std::vector<char> seen(image->data, image->data + image->bytes_per_line * image->height);
    XDestroyImage(image);
    return seen;
}

/// Watches until the picture rests; answers when it changed last.
Clock::time_point wait_for_rest(milliseconds quiet = rest) {
    std::vector<char> last = look();
    Clock::time_point changed = Clock::now();
    while (Clock::now() - changed < quiet) {
        std::vector<char> now = look();
        if (now != last) {
            changed = Clock::now();
            last = std::move(now);
        }
        std::this_thread::sleep_for(milliseconds(2));
    }
    return changed;
}

void point(int step) {
    XTestFakeMotionEvent(display, -1, left + extent / 2 + step, top + extent / 2 + step / 2,
                         CurrentTime);
    XFlush(display);
}

void button(bool down) {
    XTestFakeButtonEvent(display, 1, down ? True : False, CurrentTime);
    XFlush(display);
}

class Program {
public:
    Program(char* program, char* file) {
        pid_ = fork();
        if (pid_ == 0) {
            execl(program, program, file, static_cast<char*>(nullptr));
            _exit(127);
        }
        while (std::count(seen_.begin(), seen_.end(), 0) == std::ssize(seen_)) seen_ = look();
        wait_for_rest();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        kill(pid_, SIGTERM);
        waitpid(pid_, nullptr, 0);
        wait_for_rest();
    }

private:
    pid_t pid_ = 0;
    std::vector<char> seen_ = look();
};

struct Result {
    double lag_ms = 0;
    std::vector<char> last;
};

Result drag(char* program, char* file, bool fast) {
    const Program running(program, file);
    point(0);
    button(true);
    wait_for_rest();
    for (int step = 1; step <= moves; ++step) {
        point(step);
        if (fast)
            std::this_thread::sleep_for(apart);
        else
            wait_for_rest(milliseconds(150));
    }
    const Clock::time_point sent = Clock::now();
    const std::chrono::duration<double, std::milli> lag = wait_for_rest() - sent;
    Result result{std::max(0.0, lag.count()), look()};
    button(false);
    return result;
}

}  // namespace

int main(int argc, char** argv) {
    display = XOpenDisplay(nullptr);
    if (argc != 3 || !display) return EXIT_FAILURE;
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
