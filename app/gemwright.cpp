#include "app/event_loop.hpp"
#include "app/program_state.hpp"

#include <cstdlib>

int main(int argc, char** argv) {
    using namespace gemwright;
    current_file_name = file_name_from_command_line(argc, argv);
    start_program();
    run_event_loop();
    end_program();
    return EXIT_SUCCESS;
}
