// Holds the viewer beside the bare program, both drawing the same spheres in a window of the same
// size on the same display, one after the other in each round: time of a frame in both
// resolutions, start to first picture, resident memory. Prints medians and ratios.
//
// window_bench VIEWER BARE

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// A child program that obeys bench/commands.hpp; ended by the destructor.
class Child {
public:
    explicit Child(const std::vector<std::string>& words) {
        std::array<int, 2> to{}, from{};
        if (pipe(to.data()) != 0 || pipe(from.data()) != 0) throw std::runtime_error("no pipe");
        const auto start = Clock::now();
        pid_ = fork();
        if (pid_ == 0) {
            dup2(to[0], STDIN_FILENO);
            dup2(from[1], STDOUT_FILENO);
            for (const int fd : {to[0], to[1], from[0], from[1]}) close(fd);
            std::vector<char*> arguments;
            for (const std::string& word : words)
                arguments.push_back(const_cast<char*>(word.c_str()));
            arguments.push_back(nullptr);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
        close(to[0]);
        close(from[1]);
        to_ = fdopen(to[1], "w");
        from_ = fdopen(from[0], "r");
        if (line() != "ready") throw std::runtime_error(words[0] + " did not start");
        start_ms_ = milliseconds_since(start);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        fclose(to_);
        fclose(from_);
        kill(pid_, SIGTERM);
        waitpid(pid_, nullptr, 0);
    }

    double ask(const std::string& command) {
        tell(command);
        return std::stod(line());
    }
    void tell(const std::string& command) {
        std::fputs((command + "\n").c_str(), to_);
        std::fflush(to_);
    }
    double start_ms() const { return start_ms_; }

    /// Seconds of processor time that the child has used.
    double processor_seconds() const {
        std::ifstream stat("/proc/" + std::to_string(pid_) + "/stat");
        std::string word;
        double ticks = 0;
        for (int i = 1; i <= 15 && stat >> word; ++i)
            if (i >= 14) ticks += std::stod(word);
        return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
    }

private:
    std::string line() {
        std::string text;
        for (int c = std::fgetc(from_); c != EOF && c != '\n'; c = std::fgetc(from_))
            text += static_cast<char>(c);
        return text;
    }

    pid_t pid_ = 0;
    FILE* to_ = nullptr;
    FILE* from_ = nullptr;
    double start_ms_ = 0;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Samples {
    std::vector<double> viewer, bare;
};

void report(const char* what, const char* unit, const Samples& samples) {
    const double viewer = median(samples.viewer), bare = median(samples.bare);
    std::printf("%-34s viewer %10.1f %s   bare %10.1f %s   ratio %.3f\n", what, viewer, unit, bare,
                unit, viewer / bare);
}

/// nx x ny x nz spheres on a cubic lattice, the bare program's own scene, as a structure file.
std::string write_lattice(const std::array<int, 3>& n) {
    const std::string name = "/tmp/gemwright_bench_" + std::to_string(getpid()) + ".gwr";
    std::ofstream file(name);
    file << "SPACEG P 1\nCELL 3 3 3 90 90 90 NODISPLAY\nBOX 0 " << n[0] - 1 << " 0 " << n[1] - 1
         << " 0 " << n[2] - 1 << "\nATOM Fe1 FE 0 0 0 RADIUS 1.0\n";
    return name;
}

void compare(const std::string& viewer_program, const std::string& bare_program,
             const std::array<int, 3>& n) {
    const int spheres = n[0] * n[1] * n[2];
    const std::string file = write_lattice(n);
    const std::vector<std::string> viewer_words{viewer_program, file};
    const auto [width, height] = [&] {
        Child viewer(viewer_words);
        return std::array{static_cast<int>(viewer.ask("width")),
                          static_cast<int>(viewer.ask("height"))};
    }();
    std::vector<std::string> bare_words{bare_program};
    for (const int number : {n[0], n[1], n[2], width, height})
        bare_words.push_back(std::to_string(number));
    std::printf("%d spheres, %d by %d pixels\n", spheres, width, height);
    constexpr int rounds = 7;
    Samples start, memory, high, low;
    for (int round = 0; round < rounds; ++round) {
        start.viewer.push_back(Child(viewer_words).start_ms());
        start.bare.push_back(Child(bare_words).start_ms());
    }
    Child viewer(viewer_words), bare(bare_words);
    const std::string frames = std::to_string(std::max(3, 4000 / spheres));
    for (int round = 0; round < rounds; ++round) {
        high.viewer.push_back(viewer.ask("frames " + frames + " 1"));
        high.bare.push_back(bare.ask("frames " + frames + " 1"));
        low.viewer.push_back(viewer.ask("frames " + frames + " 0"));
        low.bare.push_back(bare.ask("frames " + frames + " 0"));
    }
    memory.viewer.push_back(viewer.ask("memory"));
    memory.bare.push_back(bare.ask("memory"));
    report("  frame, high resolution", "us", high);
    report("  frame, low resolution", "us", low);
    // The start-up picture of the viewer stands for a fifth of a second, by design.
    for (double& time : start.viewer) time -= 200;
    report("  start to first picture", "ms", start);
    report("  resident memory", "kB", memory);

    viewer.tell("idle");
    sleep(1);
    const double before = viewer.processor_seconds();
    constexpr unsigned seconds = 5;
    sleep(seconds);
    std::printf("  %-32s viewer %10.2f %% of a core\n", "at rest",
                100 * (viewer.processor_seconds() - before) / seconds);
    std::remove(file.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return EXIT_FAILURE;
    compare(argv[1], argv[2], {6, 8, 10});
    compare(argv[1], argv[2], {12, 16, 20});
    return EXIT_SUCCESS;
}
