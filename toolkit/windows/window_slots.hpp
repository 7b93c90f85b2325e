/// The window slots: what each window consists of and what is selected.
///
/// A window is a shell with a MainWindow (XmDrawingArea) in it. In the MainWindow stand the menu
/// bar, up to four toolbars, the status bar and, in what they leave, either the ClientWindow or
/// the dialog that the window carries. Nothing but yywindowresize places them.
#pragma once

#include "toolkit/windows/dialog_hooks.hpp"
#include "toolkit/windows/status_bar.hpp"

#include <X11/Intrinsic.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace tesserakit {

inline constexpr int window_slots = 51;

enum class WindowType { Plain = 0, Editor = 1, BitmapViewer = 2, Dialog = 3, Grid = 4, Split = 5 };

/// One slot; free when `window` is 0.
struct WindowSlot {
    Window shell = 0;   ///< wShell
    Window window = 0;  ///< wWindow: the MainWindow
    Window client = 0;  ///< wClient: the ClientWindow, also when a dialog covers it
    Widget shell_widget = nullptr;
    Widget window_widget = nullptr;
    Widget client_widget = nullptr;
    Widget content = nullptr;  ///< shown in the ClientWindow's place; null for none

    bool visible = false;
    WindowType type = WindowType::Plain;
    SemiModalLink previous;  ///< semi-modal chain
    int flags = 0;
    std::string title;
    /// The record of the window's type (an editor's, say), made by that type's unit and ended with
    /// the window; widgets that are destroyed with the window may call back after that.
    std::shared_ptr<void> extension;
    int x = 0;  ///< of the shell's content on the screen, pixels
    int y = 0;
    int width = 0;  ///< of the client area, pixels
    int height = 0;
    int dialog = -1;  ///< dialog slot shown in the window
    int parent = -1;  ///< window slot, -1 for the root

    std::unique_ptr<StatusBar> status_bar;  ///< psbarInfo

    bool open() const { return window != 0; }
};
extern std::array<WindowSlot, window_slots>& windows;
extern int wCurrentWindow;  ///< what windowselect chose; -1 before the root window

/// The slot of a number from 0 to 50.
WindowSlot& window_slot(int window);
/// The open window of a slot, or null with error 1003 under `routine`.
WindowSlot* open_window(int window, std::string_view routine);
/// Lowest free slot from 1, -1 when all are in use.
int yygetnextfree();

/// The shell that a widget stands in, or that it is; null for null.
Widget shell_around(Widget widget);

/// What a screen window is to the toolkit.
enum class WindowKind { Unknown, Client, Frame, MenuBar, MenuPopUp, MenuItem, StatusBar, Dialog };
struct WindowOwner {
    WindowKind kind = WindowKind::Unknown;
    int window = -1;     ///< window slot it belongs to, -1 for a dialog with a shell of its own
    DialogPlace dialog;  ///< slot -1 when it isn't inside a dialog
};
/// yygetparenthandle and yygetwindowtype in one look. Frame: shell, MainWindow, toolbars.
WindowOwner yygetparenthandle(Window window);

}  // namespace tesserakit
