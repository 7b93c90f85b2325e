/// A double of the toolkit's calls that the application makes: dialogs without a display.
///
/// Linked in place of the toolkit, beside gl_record for the calls of OpenGL. Dialogs come from the
/// program's own resource block, so that an identifier that a dialog doesn't have, or a call on a
/// field of another type, fails the test that is running. Numbers are kept, formatted and read by
/// the toolkit's own rules (numeric_field.hpp); all other values are what was put or done last.
///
/// What the user does is told by the routines under "The user". Those change the field alone:
/// the message that comes of it is posted by itself, or its handler called.
#pragma once

#include "toolkit/message_record.hpp"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace dialog_record {

/// A field by its dialog and its own identifier, which is unique within the dialog only.
struct Place {
    int dialog = 0;
    int field = 0;
};

// What was called

/// All calls since the start or the last clear, a text each: the name, the dialog where the call
/// concerns one, the arguments: "wdialogputreal 105.1029 5.64".
const std::vector<std::string>& calls();
/// Those whose name is `name`, without it.
std::vector<std::string> calls_of(const std::string& name);
void clear_calls();

// What is there

int current_dialog();        ///< 0 for none
bool is_shown(int dialog);   ///< by itself or in a window
bool is_loaded(int dialog);  ///< also as a page
/// Text of a typed field, label or button as it stands on the screen; the selected option of a list
/// or combo.
std::string text(Place place);
/// Ticked or set (1, 0), the value of a trackbar, the option selected in a list or combo (from 1).
int value(Place place);
std::vector<std::string> options(Place place);
/// Rows of a grid as "label|cell".
std::vector<std::string> rows(Place place);
/// The tesserakit::FieldState put last; FieldEnabled before.
int state(Place place);
/// Small and big step of a spinner; 0 unless put.
std::pair<float, float> steps(Place place);

// The user

/// Replaces the text of a typed field, key by key as it were: a number isn't looked at yet.
void type(Place place, const std::string& text);
/// Ticks (1) or clears (0) a check box; sets a radio button (1), its group following; drags a
/// trackbar; selects an option.
void set(Place place, int value);

/// What the user does in the next common dialog that is called: presses a button, 1 for OK or Yes,
/// having chosen a file or a colour. Where nothing more is told, each dialog is cancelled. The same
/// for the question of weditclose: 1 lets it close.
struct Answer {
    int button = 2;
    std::string file = {};
    int colour = 0;
};
void answer(const Answer& answer);

// Pictures

/// What igrsaveimage answers as its reason, having failed; empty: it saves.
extern std::string no_picture_because;

// Messages and time

/// Queues a message for wmessagepeek.
void post(int type, const tesserakit::MessageRecord& record = {});
/// Called by each wmessagepeek that finds the queue empty, before it answers NoMessage; may post.
extern std::function<void()> when_idle;
/// Milliseconds of each wmessagewait and ioswait.
std::vector<int> waits();

/// Size of any drawable.
inline constexpr int drawable_width = 640;
inline constexpr int drawable_height = 480;

}  // namespace dialog_record
