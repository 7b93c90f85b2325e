/// The editor's text without its window: what a key costs the table of lines, by the length of the
/// text, and what whole texts cost. The best of several turns each.
#include "toolkit/editor/byte_marks.hpp"
#include "toolkit/editor/line_table.hpp"
#include "toolkit/editor/text_search.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <string>
#include <utility>

namespace {

using namespace tesserakit;
using Clock = std::chrono::steady_clock;

constexpr int turns = 7;
constexpr std::size_t keys = 10'000;

/// Microseconds of the quickest turn.
template <class Task>
double best_of_turns(Task task) {
    double best = std::numeric_limits<double>::max();
    for (int turn = 0; turn < turns; ++turn) {
        const auto start = Clock::now();
        task();
        best =
            std::min(best, std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    return best;
}

std::string atom_lines(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += "ATOM Fe1 FE  0.00000 0.25000 0.50000 DISPLAY 1 COLOR 1 0 0 RADIUS 0.60 no. " +
                std::to_string(100'000 + i % 900'000) + '\n';
    return text;
}

void report_keys(std::size_t lines) {
    LineTable table(atom_lines(lines));
    std::size_t caret = table.start_of(lines / 2);
    std::size_t told = 0;
    const double typing = best_of_turns([&] {
        for (std::size_t key = 0; key < keys; ++key) {
            table.change(caret++, 0, key % 40 == 39 ? "\n" : "x");
            told += table.place_of(caret).column;
        }
    });
    const double jumping = best_of_turns([&] {
        table.change(0, 0, "x");
        table.change(table.length(), 0, "x");
    });
    std::printf("%8zu lines: %.3f us a key in the middle, %.0f us from end to end (%zu)\n", lines,
                typing / static_cast<double>(keys), jumping / 2, told % 10);
}

void report_whole_text() {
    const std::string unix_text = atom_lines(110'000);
    std::string dos_text;
    for (const char c : unix_text) dos_text += c == '\n' ? "\r\n" : std::string(1, c);
    const std::wstring wide(unix_text.begin(), unix_text.end());
    const auto milliseconds = [](auto task) { return best_of_turns(task) / 1000; };

    std::printf("a text of %.1f MB\n", static_cast<double>(unix_text.size()) / 1e6);
    std::printf("  table of lines %.1f ms\n", milliseconds([&] { LineTable table(unix_text); }));
    for (const std::string* bytes : {&std::as_const(unix_text), &std::as_const(dos_text)}) {
        ByteMarks marks;
        std::string text;
        std::printf("  %s: shown %.1f ms", bytes == &dos_text ? "CR LF" : "LF",
                    milliseconds([&] { text = marks.take(*bytes); }));
        std::printf(", as bytes %.1f ms\n", milliseconds([&] { marks.bytes(text); }));
    }
    std::printf("  search to its end %.1f ms\n",
                milliseconds([&] { find_text(wide, L"nowhere", 0, {}); }));
    std::size_t count = 0;
    const double replacing =
        milliseconds([&] { count = replace_all(wide, L"no. 11", L"number 11", {}).count; });
    std::printf("  all of %zu matches replaced %.1f ms\n", count, replacing);
}

}  // namespace

int main() {
    for (const std::size_t lines : {1'000U, 100'000U, 1'000'000U}) report_keys(lines);
    report_whole_text();
}
