#include "app/event_loop.hpp"
#include "app/program_state.hpp"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    using namespace gemwright;
    if (const auto name = file_name_from_command_line(argc, argv))
        current_file_name = *name;
    else
        std::fputs("gemwright: the file's name is longer than 256 bytes\n", stderr);
    start_program();
    run_event_loop();
    end_program();
    return EXIT_SUCCESS;
}
