#include "app/program_state.hpp"

#include "common/letter_case.hpp"

#include <string>

namespace gemwright {

using wcfgl_io::FileName;

constinit FileName current_file_name;
constinit Quaternion view_quaternion{1, 0, 0, 0};
constinit int mouse_mode = 1;
constinit int dragging = 0;
constinit Vector3f drag_start_point;
constinit Vector3f drag_end_point;
constinit int last_mouse_x = 0;
constinit int last_mouse_y = 0;
constinit int child_window = 0;
constinit int list_window = 0;
constinit bool ending = false;

namespace {

struct Export {
    FileName picture;
    FileName structure;  // the current file before it
};
constinit Export last_export;

}  // namespace

void take_picture_name(const FileName& name) {
    last_export = {name, followed_file_name()};
    current_file_name = name;
}

const FileName& followed_file_name() {
    return current_file_name == last_export.picture ? last_export.structure : current_file_name;
}

std::optional<FileName> file_name_from_command_line(int argc, const char* const* argv) {
    std::string name;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) name += ' ';
        name += argv[i];
    }
    name.resize(trimmed_length(name));
    if (name.empty()) return FileName();
    if (letter_case::in_capitals(name).find(".GWR") == std::string::npos) name += ".gwr";
    if (name.size() > FileName::width) return std::nullopt;
    return FileName(name);
}

}  // namespace gemwright
