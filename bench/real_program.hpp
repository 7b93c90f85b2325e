/// The real program on a display, used by the pointer and watched by the pixels.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace bench {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

inline Display* display() {
    static Display* const connection = XOpenDisplay(nullptr);
    return connection;
}

/// A part of the screen, in pixels.
struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

inline std::vector<char> look(const Area& area) {
    XImage* image = XGetImage(display(), DefaultRootWindow(display()), area.x, area.y,
                              static_cast<unsigned>(area.width), static_cast<unsigned>(area.height),
                              AllPlanes, ZPixmap);
    std::vector<char> seen(image->data, image->data + image->bytes_per_line * image->height);
    XDestroyImage(image);
    return seen;
}

/// Watches until nothing has changed for `quiet`; answers when it changed last.
inline Clock::time_point wait_for_rest(const Area& area, milliseconds quiet = milliseconds(1500)) {
    std::vector<char> last = look(area);
    Clock::time_point changed = Clock::now();
    while (Clock::now() - changed < quiet) {
        std::vector<char> now = look(area);
        if (now != last) {
            changed = Clock::now();
            last = std::move(now);
        }
        std::this_thread::sleep_for(milliseconds(2));
    }
    return changed;
}

inline void point(int x, int y) {
    XTestFakeMotionEvent(display(), -1, x, y, CurrentTime);
    XFlush(display());
}

inline void button(bool down) {
    XTestFakeButtonEvent(display(), 1, down ? True : False, CurrentTime);
    XFlush(display());
}

/// Runs as long as this lives. Its window stands in the middle of the screen.
class Program {
public:
    static constexpr Area picture{480, 360, 320, 320};

    /// Returns when the picture is there and rests; an empty scene is never seen to come.
    explicit Program(const std::vector<std::string>& words, bool empty = false) {
        pid_ = fork();
        if (pid_ == 0) {
            std::vector<char*> arguments;
            for (const std::string& word : words)
                arguments.push_back(const_cast<char*>(word.c_str()));
            arguments.push_back(nullptr);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
        const auto is_blank = [](const std::vector<char>& seen) {
            return std::count(seen.begin(), seen.end(), 0) == std::ssize(seen);
        };
        while (!empty && is_blank(look(picture))) continue;
        wait_for_rest(picture, milliseconds(empty ? 4000 : 1500));
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        kill(pid_, SIGTERM);
        waitpid(pid_, nullptr, 0);
        wait_for_rest(picture);
    }

    /// Seconds of processor time that it has used.
    double processor_seconds() const {
        std::ifstream stat("/proc/" + std::to_string(pid_) + "/stat");
        std::string word;
        double ticks = 0;
        for (int i = 1; i <= 15 && stat >> word; ++i)
            if (i >= 14) ticks += std::stod(word);
        return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
    }

private:
    pid_t pid_ = 0;
};

}  // namespace bench
