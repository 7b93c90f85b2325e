#include "app/drag.hpp"

#include "app/program_state.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "scene/wcfgl_quaternion.hpp"
#include "scene/wcfgl_trackball.hpp"

namespace gemwright {
namespace {

Vector3f point_on_trackball(int x, int y) {
    return wcfgl_trackball::viewport2hemi(x, y, wcfgl_display::current_screen_width,
                                          wcfgl_display::current_screen_height);
}

/// Each step turns by the way from the last step's point, not from the point of the press.
void rotate(int x, int y) {
    drag_end_point = point_on_trackball(x, y);
    const Quaternion step = wcfgl_trackball::calc_rot_param(drag_start_point, drag_end_point);
    view_quaternion = wcfgl_quaternion::q_mult_q(step, view_quaternion);
    wcfgl_trackball::current_rot_matrix = wcfgl_quaternion::quat2mat(view_quaternion);
    drag_start_point = drag_end_point;
}

/// A pointer that goes down shrinks the picture; one that stays enlarges it, as one going up does.
void zoom(int y) {
    wcfgl_display::current_zoomfactor *= y > last_mouse_y ? 1.05f : 0.95f;
    last_mouse_y = y;
}

void translate(int x, int y) {
    wcfgl_display::calculate_offset(last_mouse_x, last_mouse_y, x, y);
    last_mouse_x = x;
    last_mouse_y = y;
}

}  // namespace

void begin_drag(int x, int y) {
    wcfgl_objects_definition::switch_lowres_objects();
    drag_start_point = point_on_trackball(x, y);
    dragging = 1;
    last_mouse_x = x;
    last_mouse_y = y;
}

void continue_drag(int x, int y) {
    if (!dragging) return;
    if (mouse_mode == 1)
        rotate(x, y);
    else if (mouse_mode == 2)
        zoom(y);
    else
        translate(x, y);
}

void end_drag() {
    dragging = 0;
    wcfgl_objects_definition::switch_highres_objects();
}

}  // namespace gemwright
