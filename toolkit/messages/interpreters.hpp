/// What the pump asks of windows with contents of their own (editors, bitmap viewers, grids), which
/// stand above it: a record of functions that they fill at the start. Until then they take nothing.
#pragma once

#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/event_core.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

struct Interpreters {
    /// An event, after the translation and before user-drawn fields and widgets:
    /// yyEditInterpretMessage and yyBitmapInterpretMessage. A message of the event is in wXtMesg.
    Outcome (*editor_event)(XEvent& event) = [](XEvent&) { return Outcome::GoesOn; };
    Outcome (*bitmap_event)(XEvent& event) = [](XEvent&) { return Outcome::GoesOn; };
    /// A message on its way to the application: yyEditInterpretTessMessage and
    /// yyGridInterpretTessMessage. True when it ends here; may change it otherwise. Modal loops
    /// may run inside.
    bool (*editor_message)(Mail& mail) = [](Mail&) { return false; };
    bool (*grid_message)(Mail& mail) = [](Mail&) { return false; };
    /// The window manager's close on an editor, bitmap viewer or grid; true when it is dealt with,
    /// and no CloseRequest is to be posted.
    bool (*close)(int window) = [](int) { return false; };
};
extern Interpreters interpreters;

}  // namespace tesserakit
