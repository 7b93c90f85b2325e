#include "app/event_loop.hpp"

#include "app/commands.hpp"
#include "app/dialog_binding.hpp"
#include "app/drag.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "app/text_windows.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "toolkit/tesserakit.hpp"

#include <chrono>

namespace gemwright {
namespace {

using namespace tesserakit;
using Clock = std::chrono::steady_clock;

/// With a slow renderer one frame a move would leave the picture far behind the pointer, so the
/// frames of moves that wait in the queue fall together, but not for longer than this.
constexpr std::chrono::milliseconds longest_without_frame{40};
/// An event ends the wait at once.
constexpr int idle_wait_ms = 10;

struct State {
    bool frame_due = false;
    Clock::time_point last_frame;
};
State& state = *new State;

void draw() {
    wcfgl_display::display();
    state.frame_due = false;
    state.last_frame = Clock::now();
}

void recentre(int) { wcfgl_display::current_centroffset = {0, 0}; }

template <void (*action)()>
void act_alone(int) {
    action();
}

/// By the button alone: number 1112 also stands on a page of the atoms dialog, and acts the same.
constexpr struct {
    int button;
    void (*handler)(int dialog);
} buttons[]{
    {button::ok, get_values},
    {button::cancel, hide_dialog},
    {button::recentre, recentre},
    {button::insert_atom, act_alone<insert_atom>},
    {button::delete_atom, act_alone<delete_atom>},
    {button::insert_k_vector, act_alone<insert_k_vector>},
    {button::delete_k_vector, act_alone<delete_k_vector>},
    {button::insert_bond, act_alone<insert_bond>},
    {button::delete_bond, act_alone<delete_bond>},
};

void push_button(const MessageRecord& message) {
    for (const auto& row : buttons)
        if (row.button == message.VALUE1) return row.handler(message.WIN);
}

void close_window(int window) {
    if (window == 0)
        ending = close_text_windows();
    else
        forget_text_window(window);
}

/// A press, a move and a release act whatever button, field and window they tell.
void act(int type, const MessageRecord& message) {
    switch (type) {
        case MenuSelect:
            run_command(message.VALUE1);
            break;
        case PushButton:
            push_button(message);
            break;
        case MouseButDown:
            begin_drag(message.X, message.Y);
            break;
        case MouseButUp:
            end_drag();
            break;
        case MouseMove:
            continue_drag(message.X, message.Y);
            break;
        case ExposeMessage:
        case Resize:
            refresh_screen_size();
            break;
        case CloseRequest:
            close_window(message.WIN);
            break;
        case FieldChanged:
            get_fields(message.WIN, message.VALUE2);
            break;
        default:
            break;
    }
}

/// The file is read again and again, the view and the dialog's box winning over the file's. The box
/// comes first: the reading must not fill in for a number that is just being typed.
void read_continuously() {
    const wcfgl_metrix::Box box = box_in_fields();
    wcfgl_io::read_gwr_file(followed_file_name());
    define_box(box);
    wdialogselect(dialog::main);
    wdialogputstring(field::information, "READ CONTINUOUS");
    draw();
}

/// The queue is empty.
void idle() {
    if (state.frame_due) return draw();
    int reading = 0;
    wdialoggetcheckbox(field::continuous_read, reading);
    if (reading)
        read_continuously();
    else
        wmessagewait(idle_wait_ms);
}

}  // namespace

void refresh_screen_size() {
    wdialogselect(dialog::main);
    igrselect(3, field::picture);
    wcfgl_display::current_screen_width = winfodrawable(4);
    wcfgl_display::current_screen_height = winfodrawable(5);
}

void run_event_loop() {
    ending = false;
    draw();
    while (!ending) {
        int type = NoMessage;
        MessageRecord message;
        wmessagepeek(type, message);
        if (type == NoMessage) {
            idle();
        } else if (type == MouseMove) {
            act(type, message);
            state.frame_due = true;
            if (Clock::now() - state.last_frame >= longest_without_frame) draw();
        } else {
            // A command may wait in a box, with what the menu has covered of the picture
            // unrepaired.
            if (state.frame_due || type == MenuSelect) draw();
            act(type, message);
            if (!ending) draw();
        }
    }
}

}  // namespace gemwright
