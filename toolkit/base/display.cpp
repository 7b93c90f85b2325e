#include "toolkit/base/display.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/base/locale_text.hpp"
#include "toolkit/base/motif_text.hpp"

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <X11/Xlib.h>
#include <Xm/Display.h>
#include <Xm/Xm.h>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tesserakit {

constinit DisplayInfo yydisplay{};

namespace {

struct State {
    int trap_depth = 0;
    int trapped_error = 0;
};
constinit State state{};

// Motif's own dialogs (file selection, message boxes) follow the same fonts and colours as ours;
// all of it can be overridden by resources of the class Tess.
constexpr std::array fallback_resources{
    "*background: #dcdad5",           "*foreground: black",        "*XmText.background: white",
    "*XmTextField.background: white", "*XmList.background: white", "*keyboardFocusPolicy: EXPLICIT",
};

void set_fallback_resources() {
    static std::array<char*, fallback_resources.size() + 1> lines{};
    std::ranges::transform(fallback_resources, lines.begin(),
                           [](const char* line) { return xt_name(line); });
    XtAppSetFallbackResources(yydisplay.app, lines.data());
}

/// An X error is never fatal: the call that raised it has failed, and says so by its result.
int yyXLibErrorEH(Display* display, XErrorEvent* event) {
    if (state.trap_depth > 0) {
        if (state.trapped_error == 0) state.trapped_error = event->error_code;
        return 0;
    }
    if (idebuglevel > 0) {
        std::array<char, 120> message{};
        XGetErrorText(display, event->error_code, message.data(), static_cast<int>(message.size()));
        std::fprintf(stderr, "X error: %s (request %d.%d)\n", message.data(), event->request_code,
                     event->minor_code);
    }
    return 0;
}

[[noreturn]] int lost_display(Display*) { end_without_display(); }

/// Xt's language procedure. Xt's own would take all of the locale, its decimal comma included.
String follow_locale(Display*, String language, XtPointer) {
    const char* locale = use_locale(language);
    // Input methods: those of XMODIFIERS, else the built-in one.
    if (!XSetLocaleModifiers("")) XSetLocaleModifiers("@im=none");
    return xt_name(locale);
}

void stop_drags() {
    // Motif's drag takes the middle button on any button or selected text, and runs a loop of its
    // own with the server grabbed.
    XtVaSetValues(XmGetXmDisplay(yydisplay.display), XmNdragInitiatorProtocolStyle, XmDRAG_NONE,
                  XmNdragReceiverProtocolStyle, XmDRAG_NONE, nullptr);
}

void quiet_warning(String message) {
    if (idebuglevel > 0) std::fprintf(stderr, "Warning: %s\n", message);
}

}  // namespace

void end_without_display() {
    constexpr std::string_view message = "Lost connection to the X display.\n";
    // Nothing is left to do when it can't be written.
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, message.data(), message.size());
    std::_Exit(EXIT_FAILURE);
}

void yygetdisplayinfo() {
    XtToolkitInitialize();
    DisplayInfo& info = yydisplay;
    info.app = XtCreateApplicationContext();
    XtSetLanguageProc(info.app, follow_locale, nullptr);
    set_fallback_resources();
    int argc = 1;
    std::array<char*, 2> argv{program_invocation_name, nullptr};
    info.display = XtOpenDisplay(info.app, nullptr, nullptr, application_class, nullptr, 0, &argc,
                                 argv.data());
    if (!info.display) {
        std::fputs("Cannot open X display. Check DISPLAY environment variable.\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    XSetErrorHandler(yyXLibErrorEH);
    XSetIOErrorHandler(lost_display);
    XtAppSetWarningHandler(info.app, quiet_warning);
    info.screen_number = DefaultScreen(info.display);
    info.screen = ScreenOfDisplay(info.display, info.screen_number);
    info.root = RootWindow(info.display, info.screen_number);
    info.width = WidthOfScreen(info.screen);
    info.height = HeightOfScreen(info.screen);
    info.depth = DefaultDepthOfScreen(info.screen);
    info.visual = DefaultVisualOfScreen(info.screen);
    info.colormap = DefaultColormapOfScreen(info.screen);
    info.wm_state = XInternAtom(info.display, "WM_STATE", False);
    info.wm_protocols = XInternAtom(info.display, "WM_PROTOCOLS", False);
    info.wm_delete_window = XInternAtom(info.display, "WM_DELETE_WINDOW", False);
    info.wm_colormap_windows = XInternAtom(info.display, "WM_COLORMAP_WINDOWS", False);
    info.root_widget =
        XtVaAppCreateShell(nullptr, application_class, applicationShellWidgetClass, info.display,
                           XmNmappedWhenManaged, False, XmNwidth, 1, XmNheight, 1, nullptr);
    stop_drags();
}

void yywaitdisplay(int milliseconds) {
    XFlush(yydisplay.display);
    pollfd connection{ConnectionNumber(yydisplay.display), POLLIN, 0};
    poll(&connection, 1, milliseconds);
}

ErrorTrap::ErrorTrap() : former_(state.trapped_error) {
    // Errors of earlier requests belong to no trap.
    if (yydisplay.display) XSync(yydisplay.display, False);
    ++state.trap_depth;
    state.trapped_error = 0;
}

ErrorTrap::~ErrorTrap() {
    error();
    --state.trap_depth;
    state.trapped_error = former_;
}

int ErrorTrap::error() {
    if (yydisplay.display) XSync(yydisplay.display, False);
    return state.trapped_error;
}

}  // namespace tesserakit
