// The viewer under the commands of bench/commands.hpp: viewer_frames FILE.

#include "app/event_loop.hpp"
#include "app/program_state.hpp"
#include "bench/commands.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "toolkit/tesserakit.hpp"

#include <GL/gl.h>

#include <array>
#include <cstdlib>

int main(int argc, char** argv) {
    using namespace gemwright;
    current_file_name = file_name_from_command_line(argc, argv).value_or(current_file_name);
    start_program();
    if (wcfgl_metrix::current_axes) wcfgl_metrix::current_axes->nodisplay = 1;
    wcfgl_display::display();
    const auto serve = [] {
        tesserakit::MessageRecord message;
        for (int type = 0; type != tesserakit::NoMessage;) tesserakit::wmessagepeek(type, message);
        refresh_screen_size();
    };
    bench::obey({.draw = [] { wcfgl_display::display(); },
                 .finish = [] { glFinish(); },
                 .resolution =
                     [](bool high) {
                         high ? wcfgl_objects_definition::switch_highres_objects()
                              : wcfgl_objects_definition::switch_lowres_objects();
                     },
                 .serve = serve,
                 .idle = [] { run_event_loop(); },
                 .size =
                     [] {
                         return std::array{wcfgl_display::current_screen_width,
                                           wcfgl_display::current_screen_height};
                     }});
    end_program();
    return EXIT_SUCCESS;
}
