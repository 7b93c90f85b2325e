#include "app/program_state.hpp"

#include <algorithm>
#include <string>

namespace gemwright {

constinit FixedText<256> current_file_name;
constinit Quaternion view_quaternion{1, 0, 0, 0};
constinit int mouse_mode = 1;
constinit int dragging = 0;
constinit Vector3f drag_start_point;
constinit Vector3f drag_end_point;
constinit int last_mouse_x = 0;
constinit int last_mouse_y = 0;
constinit int child_window = 0;

std::optional<FixedText<256>> file_name_from_command_line(int argc, const char* const* argv) {
    std::string name;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) name += ' ';
        name += argv[i];
    }
    name.resize(trimmed_length(name));
    if (name.empty()) return FixedText<256>();
    std::string upper = name;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    if (upper.find(".GWR") == std::string::npos) name += ".gwr";
    if (name.size() > FixedText<256>::width) return std::nullopt;
    return FixedText<256>(name);
}

}  // namespace gemwright
