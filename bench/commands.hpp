/// The commands by which bench/run drives the viewer and the bare program in the same way.
#pragma once

#include <array>
#include <chrono>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>

namespace bench {

struct Program {
    std::function<void()> draw;                ///< one frame, swapped
    std::function<void()> finish;              ///< waits until the server has drawn
    std::function<void(bool)> resolution;      ///< true: the high one
    std::function<void()> serve;               ///< handles what waits in the event queue
    std::function<void()> idle;                ///< the program's own loop; need not return
    std::function<std::array<int, 2>()> size;  ///< of the picture, in pixels
};

inline long resident_kilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:")) return std::stol(line.substr(6));
    return 0;
}

/// Writes "ready", then one line for each command, until the input ends.
inline void obey(const Program& program) {
    program.serve();
    program.finish();
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        int frames = 0, high = 1;
        words >> command >> frames >> high;
        program.serve();
        if (command == "frames") {
            program.resolution(high != 0);
            program.draw();
            program.finish();
            const auto start = std::chrono::steady_clock::now();
            for (int i = 0; i < frames; ++i) program.draw();
            program.finish();
            const std::chrono::duration<double, std::micro> time =
                std::chrono::steady_clock::now() - start;
            std::cout << time.count() / frames << std::endl;
        } else if (command == "memory") {
            std::cout << resident_kilobytes() << std::endl;
        } else if (command == "width") {
            std::cout << program.size()[0] << std::endl;
        } else if (command == "height") {
            std::cout << program.size()[1] << std::endl;
        } else if (command == "idle") {
            program.idle();
        }
    }
}

}  // namespace bench
