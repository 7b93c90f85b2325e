// How long a menu takes: from the press on its title until the pop-up stands on the screen whole,
// and from the release on an item until the title looks at rest again, which is the step that hands
// out the item's message. Once with an empty scene, once with 480 atoms whose file is read
// continuously. And what an open menu costs at rest.
//
// menu_bench PROGRAM

#include "bench/real_program.hpp"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace bench;

constexpr int rounds = 100;

Window window_named(Window parent, const std::string& name) {
    char* text = nullptr;
    const bool found = XFetchName(display(), parent, &text) && text && name == text;
    if (text) XFree(text);
    if (found) return parent;
    Window ignored = 0, result = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(display(), parent, &ignored, &ignored, &children, &count);
    for (unsigned i = 0; i < count && result == 0; ++i) result = window_named(children[i], name);
    if (children) XFree(children);
    return result;
}

/// Where things are in the window with the default font.
struct Layout {
    Area title;       ///< of the first menu
    Area first;       ///< the first item, which does nothing
    Area last;        ///< the last item
    Area continuous;  ///< the tick of the continuous read
    Area line;        ///< the line below the picture
};

Area within(int x, int y, const Area& area) {
    return {x + area.x, y + area.y, area.width, area.height};
}

Layout layout() {
    Window child = 0;
    int x = 0, y = 0;
    const Window root = DefaultRootWindow(display());
    const Window window = window_named(root, "Gemwright Ver-1.0");
    XTranslateCoordinates(display(), window, root, 0, 0, &x, &y, &child);
    return {within(x, y, {4, 3, 40, 16}), within(x, y, {20, 30, 60, 14}),
            within(x, y, {20, 198, 60, 14}), within(x, y, {236, 72, 12, 12}),
            within(x, y, {30, 680, 160, 12})};
}

void point_to(const Area& area) { point(area.x + area.width / 2, area.y + area.height / 2); }

/// Milliseconds until the area looks so; the benchmark ends when it never does.
double wait_for(const Area& area, const std::vector<char>& wanted, Clock::time_point since) {
    while (look(area) != wanted) {
        if (Clock::now() - since > std::chrono::seconds(20)) {
            std::puts("the menu doesn't answer");
            std::exit(EXIT_FAILURE);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

double press_and_wait(bool down, const Area& area, const std::vector<char>& wanted) {
    const auto sent = Clock::now();
    button(down);
    return wait_for(area, wanted, sent);
}

void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("  %-32s median %6.1f ms, worst of %d %6.1f ms\n", what, times[times.size() / 2],
                rounds, times.back());
}

void measure(const Program& program) {
    const Layout at = layout();
    // What it is to look like.
    point_to(at.title);
    wait_for_rest(at.title);
    const std::vector<char> title = look(at.title);
    button(true);
    wait_for_rest(at.last);
    const std::vector<char> last = look(at.last);
    point_to(at.first);
    wait_for_rest(at.first);
    const std::vector<char> first = look(at.first);
    button(false);
    wait_for_rest(at.title);

    std::vector<double> opening, selecting;
    for (int round = 0; round < rounds; ++round) {
        point_to(at.title);
        opening.push_back(press_and_wait(true, at.last, last));
        point_to(at.first);
        wait_for(at.first, first, Clock::now());
        selecting.push_back(press_and_wait(false, at.title, title));
        // Until the frames that follow a command are drawn, and not in step with the next ones.
        std::this_thread::sleep_for(milliseconds(800 + 7 * (round % 17)));
    }
    report("press to pulled-down menu", opening);
    report("release to message", selecting);

    point_to(at.title);
    button(true);
    button(false);
    wait_for(at.last, last, Clock::now());
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const double before = program.processor_seconds();
    constexpr int seconds = 5;
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    std::printf("  %-32s %.2f %% of a core\n", "open menu at rest",
                100 * (program.processor_seconds() - before) / seconds);
}

std::string write_atoms() {
    const std::string name = "/tmp/gemwright_bench_" + std::to_string(getpid()) + ".gwr";
    std::ofstream(name) << "SPACEG P 1\nCELL 3 3 3 90 90 90\nBOX 0 5 0 7 0 9\n"
                           "ATOM Fe1 FE 0 0 0 RADIUS 1.0\n";
    return name;
}

bool tick_continuous_read() {
    const Layout at = layout();
    const std::vector<char> before = look(at.line);
    point_to(at.continuous);
    button(true);
    button(false);
    wait_for_rest(at.line);
    return look(at.line) != before;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || !display()) return EXIT_FAILURE;
    {
        std::puts("empty scene");
        const Program program({argv[1]}, true);
        measure(program);
    }
    const std::string file = write_atoms();
    const Program program({argv[1], file});
    const bool reads = tick_continuous_read();
    if (reads) {
        std::puts("480 atoms, read continuously");
        measure(program);
    }
    std::remove(file.c_str());
    return reads ? EXIT_SUCCESS : EXIT_FAILURE;
}
