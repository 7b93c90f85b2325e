#include "app/text_windows.hpp"

#include "app/program_state.hpp"
#include "toolkit/tesserakit.hpp"

#include <filesystem>
#include <string>
#include <system_error>

namespace gemwright {
namespace {

using namespace tesserakit;

constexpr int root_window = 0;
constexpr int with_frame = 7;
constexpr int no_open = 256;  ///< the editor stays with its file

struct TextWindow {
    int& handle;       // 0: not open
    std::string path;  // of the file that it was opened for, whatever the working directory
};

struct State {
    TextWindow edition{child_window, {}};
    TextWindow list{list_window, {}};
};
State& state = *new State;

/// To the right of the picture, as far as the screen goes: what is saved can be seen there.
WindowRequest beside_picture(const std::string& title) {
    windowselect(root_window);
    const int width = winfowindow(2);
    return {.flags = with_frame | WindowStatusBar,
            .x = winfowindow(4) + width,
            .y = winfowindow(5),
            .width = width * 3 / 4,
            .height = winfowindow(3),
            .title = title};
}

/// A window that was opened for another file closes first, with the question about its changes.
void show(TextWindow& window, const std::string& title, const std::string& file) {
    std::error_code gone;
    const std::string path = std::filesystem::absolute(file, gone).string();
    if (window.handle != 0 && window.path != path) {
        if (!weditclose(window.handle)) return;
        window.handle = 0;
    }
    if (window.handle == 0) {
        const int opened = windowopenchild2(beside_picture(title));
        if (opened < 0) return;
        window.handle = opened;
        window.path = path;
    } else {
        windowselect(window.handle);
    }
    weditfile(file, {.flags = no_open});
    // Dialogs of the program belong to its main window.
    windowselect(root_window);
}

}  // namespace

void edit_current_file() {
    if (current_file_name.blank()) return;
    const std::string file(current_file_name.trimmed());
    show(state.edition, "Edition of file: " + file, file);
}

void show_moment_list(const char* file) { show(state.list, "Gemwright Magnetic list", file); }

void forget_text_window(int window) {
    for (int* const own : {&child_window, &list_window})
        if (*own == window) *own = 0;
}

bool close_text_windows() {
    for (int* const window : {&child_window, &list_window}) {
        if (*window != 0 && !weditclose(*window)) return false;
        *window = 0;
    }
    return true;
}

}  // namespace gemwright
