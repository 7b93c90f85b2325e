#include "app/write_bitmap.hpp"

#include "app/event_loop.hpp"
#include "app/identifiers.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace gemwright {
namespace {

using namespace tesserakit;

constexpr int picture_width = 600;
constexpr int picture_height = 480;
enum Target : int { nothing = 0, bitmap = 2, field_of_dialog = 3 };
constexpr int single_buffered = 0;
constexpr int double_buffered = 2;

/// While it stands, the scene has the size of the picture and its full quality, also in the middle
/// of a drag.
class PictureView {
public:
    PictureView()
        : width_(wcfgl_display::current_screen_width),
          height_(wcfgl_display::current_screen_height),
          offset_(wcfgl_display::current_centroffset) {
        using namespace wcfgl_display;
        // The scene's square stands on the longer side.
        const double scale = static_cast<double>(std::max(picture_width, picture_height)) /
                             std::max({width_, height_, 1});
        for (int& shift : current_centroffset) shift = static_cast<int>(std::lround(shift * scale));
        current_screen_width = picture_width;
        current_screen_height = picture_height;
        if (coarse_) wcfgl_objects_definition::switch_highres_objects();
    }
    ~PictureView() {
        wcfgl_display::current_screen_width = width_;
        wcfgl_display::current_screen_height = height_;
        wcfgl_display::current_centroffset = offset_;
        if (coarse_) wcfgl_objects_definition::switch_lowres_objects();
    }
    PictureView(const PictureView&) = delete;
    PictureView& operator=(const PictureView&) = delete;

private:
    int width_;
    int height_;
    std::array<int, 2> offset_;
    bool coarse_ = wcfgl_objects_definition::highres == 0;
};

/// True, with the reason, when a call has left an error.
bool failed(std::string& reason) {
    const int code = infoerror(1);
    if (code != 0) reason = winfoerrormessage(code);
    return code != 0;
}

void draw_and_save(int handle, std::string_view file_name, std::string& reason) {
    wglselect(bitmap, handle, single_buffered);
    if (failed(reason)) return;
    // What is saved is the selected drawable, which a context doesn't select by itself.
    igrselect(bitmap, handle);
    const PictureView view;
    wcfgl_display::init_context(false);
    wcfgl_display::display();
    // The picture is gone with the context.
    igrsaveimage(file_name, &reason);
}

}  // namespace

std::string write_bitmap(std::string_view file_name) {
    std::string reason;
    infoerror(1);  // of an earlier call
    const int handle = wbitmapcreate(picture_width, picture_height);
    if (failed(reason)) return reason;
    draw_and_save(handle, file_name, reason);
    wbitmapdestroy(handle);
    return reason;
}

void return_to_window() {
    wdialogselect(dialog::main);
    wglselect(nothing, 0, 0);
    wglselect(field_of_dialog, field::picture, double_buffered);
    wcfgl_display::init_context();
    refresh_screen_size();
}

}  // namespace gemwright
