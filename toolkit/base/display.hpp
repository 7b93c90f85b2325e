/// The connection to the display: what every unit of the toolkit draws and waits on.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

inline constexpr char application_class[] = "Tess";  ///< of all shells, in X resources

/// The open display; all null before winitialise. The visual, depth and colour map are the screen's
/// default ones: every widget but an OpenGL one has them.
struct DisplayInfo {
    XtAppContext app = nullptr;
    Display* display = nullptr;
    Screen* screen = nullptr;
    int screen_number = 0;
    Window root = 0;
    int width = 0;  ///< pixels
    int height = 0;
    int depth = 0;
    Visual* visual = nullptr;
    Colormap colormap = 0;
    Widget root_widget = nullptr;  ///< never shown shell, parent of dialogs without a window
    Atom wm_state = 0;
    Atom wm_protocols = 0;
    Atom wm_delete_window = 0;
    Atom wm_colormap_windows = 0;
};
extern DisplayInfo yydisplay;

/// Connects, with handlers under which no X error is fatal; the end of the program without a
/// display.
void yygetdisplayinfo();

/// The server is gone: says so and ends the program. Nothing of X or OpenGL may be called any more,
/// exit handlers included. May be called from a signal handler.
[[noreturn]] void end_without_display();

/// Catches X errors instead of the report to the debug output: while a trap stands, the first
/// error's code is kept. Traps nest.
class ErrorTrap {
public:
    ErrorTrap();
    ~ErrorTrap();
    ErrorTrap(const ErrorTrap&) = delete;
    ErrorTrap& operator=(const ErrorTrap&) = delete;
    /// Waits for the server; code of the first X error since the trap was set, 0 for none.
    int error();

private:
    int former_;
};

/// Longest wait without a look around, so that no timer is ever much overdue.
inline constexpr int idle_tick_ms = 10;

/// Sends what is buffered and waits until the connection has something to read, or so long.
void yywaitdisplay(int milliseconds);

}  // namespace tesserakit
