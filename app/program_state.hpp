/// What the program itself remembers, besides the model: which file is open, how the model is
/// turned, and the drag that is under way.
#pragma once

#include "common/vec.hpp"
#include "scene/wcfgl_io.hpp"

#include <optional>

namespace gemwright {

/// Blank: no file. A name set by the command line or a file dialog is never unset.
extern wcfgl_io::FileName current_file_name;
/// An exported picture becomes the current file, as it always has: Save writes the structure over
/// it and Reload reads it.
void take_picture_name(const wcfgl_io::FileName& name);
/// What the continuous read reads: the current file or, where that is an exported picture, the one
/// before it. The picture in the window would vanish with the next reading.
const wcfgl_io::FileName& followed_file_name();
/// Turns the model; the picture's matrix is always rebuilt from it.
extern Quaternion view_quaternion;
/// 1 rotate, 2 zoom, anything else translate: the choice of the main dialog's radio group.
extern int mouse_mode;
/// 1 between the press and the release of a mouse button.
extern int dragging;
extern Vector3f drag_start_point;  ///< on the trackball's hemisphere, of the last step
extern Vector3f drag_end_point;    ///< the same, of the present step
extern int last_mouse_x;           ///< pixels, y downward, of the last step
extern int last_mouse_y;
/// The windows for text: the edition of the structure file, and the list of the moments. 0 while
/// there is none.
extern int child_window;
extern int list_window;
/// Set to end the program, without a question: the loop stops once the message in hand has been
/// served.
extern bool ending;

/// The whole command line as a file name; ".gwr" is added unless it stands somewhere in the name,
/// in any case. All words belong to the name. Blank without arguments; absent when it is longer
/// than 256 bytes: cut, it would be that of another file.
std::optional<wcfgl_io::FileName> file_name_from_command_line(int argc, const char* const* argv);

}  // namespace gemwright
