#include "toolkit/base/start.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/messages/messages.hpp"

#include <X11/StringDefs.h>
#include <X11/Xlib.h>
#include <Xm/Xm.h>

#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace tesserakit {

constinit DisplayInfo yydisplay{};
constinit ColourScheme wSchemeCol{};
constinit Fonts wFonts{};
constinit DialogUnits dialog_units{};

namespace {

constexpr int initialised = -9999;
constexpr char application_class[] = "Tess";

struct State {
    int guard = 0;
    int trap_depth = 0;
    int trapped_error = 0;
};
constinit State state{};

String text(const char* name) { return const_cast<String>(name); }

/// What an application-defaults file or the user's resources may change.
struct ResourceValues {
    String dialog_font;
    String symbol_font;
    String menu_font;
    String status_font;
    String fixed_font;
    Pixel background;
    Pixel foreground;
    Pixel field;
    Pixel tooltip;
};

XtResource font_resource(const char* name, std::size_t offset, const char* standard) {
    return {text(name),
            text("DialogFont"),
            text(XtRString),
            sizeof(String),
            static_cast<Cardinal>(offset),
            text(XtRString),
            text(standard)};
}

XtResource colour_resource(const char* name, const char* kind, std::size_t offset,
                           const char* standard) {
    return {text(name),
            text(kind),
            text(XtRPixel),
            sizeof(Pixel),
            static_cast<Cardinal>(offset),
            text(XtRString),
            text(standard)};
}

ResourceValues resource_values() {
    using Values = ResourceValues;
    std::array rows{
        font_resource("dialogFont", offsetof(Values, dialog_font), "Sans-10"),
        font_resource("symbolFont", offsetof(Values, symbol_font), "Sans-10"),
        font_resource("menuFont", offsetof(Values, menu_font), "Sans-10"),
        font_resource("statusFont", offsetof(Values, status_font), "Sans-10"),
        font_resource("fixedFont", offsetof(Values, fixed_font), "Monospace-10"),
        colour_resource("background", "Background", offsetof(Values, background), "#dcdad5"),
        colour_resource("foreground", "Foreground", offsetof(Values, foreground), "black"),
        colour_resource("fieldBackground", "FieldBackground", offsetof(Values, field), "white"),
        colour_resource("tooltipBackground", "TooltipBackground", offsetof(Values, tooltip),
                        "#ffffe1"),
    };
    ResourceValues values{};
    XtGetApplicationResources(yydisplay.root_widget, &values, rows.data(),
                              static_cast<Cardinal>(rows.size()), nullptr, 0);
    return values;
}

// Motif's own dialogs (file selection, message boxes) follow the same fonts and colours as ours;
// all of it can be overridden by resources of the class Tess.
constexpr std::array fallback_resources{
    "*background: #dcdad5",           "*foreground: black",        "*XmText.background: white",
    "*XmTextField.background: white", "*XmList.background: white", "*keyboardFocusPolicy: EXPLICIT",
};

void set_fallback_resources() {
    static std::array<char*, fallback_resources.size() + 1> lines{};
    std::ranges::transform(fallback_resources, lines.begin(), text);
    XtAppSetFallbackResources(yydisplay.app, lines.data());
}

/// Gives every Motif widget the dialog font unless a resource names another.
void default_render_table(const std::string& font) {
    if (font.starts_with('-') || font.find('-') == std::string::npos) return;
    const std::size_t dash = font.rfind('-');
    XrmDatabase ours = nullptr;
    const auto put = [&ours](const std::string& line) { XrmPutLineResource(&ours, line.c_str()); };
    put("*renderTable: dialogRendition");
    put("*dialogRendition.fontType: FONT_IS_XFT");
    put("*dialogRendition.fontName: " + font.substr(0, dash));
    put("*dialogRendition.fontSize: " + font.substr(dash + 1, font.find(':') - dash - 1));
    XrmDatabase database = XtDatabase(yydisplay.display);
    XrmCombineDatabase(ours, &database, False);
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

/// The server is gone: nothing of X or OpenGL may be called any more, exit handlers included.
[[noreturn]] int lost_display(Display*) {
    std::fputs("Lost connection to the X display.\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

void quiet_warning(String message) {
    if (idebuglevel > 0) std::fprintf(stderr, "Warning: %s\n", message);
}

void yygetdisplayinfo() {
    XtToolkitInitialize();
    DisplayInfo& info = yydisplay;
    info.app = XtCreateApplicationContext();
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
    info.wm_protocols = XInternAtom(info.display, "WM_PROTOCOLS", False);
    info.wm_delete_window = XInternAtom(info.display, "WM_DELETE_WINDOW", False);
    info.wm_colormap_windows = XInternAtom(info.display, "WM_COLORMAP_WINDOWS", False);
    info.root_widget =
        XtVaAppCreateShell(nullptr, application_class, applicationShellWidgetClass, info.display,
                           XmNmappedWhenManaged, False, XmNwidth, 1, XmNheight, 1, nullptr);
}

void load_fonts(const ResourceValues& values) {
    wFonts.dialog = load_font(values.dialog_font);
    wFonts.symbol = load_font(values.symbol_font);
    wFonts.menu = load_font(values.menu_font);
    wFonts.status = load_font(values.status_font);
    wFonts.fixed = load_font(values.fixed_font);
    dialog_units = dialog_units_of(wFonts.dialog.measures);
}

using Clock = std::chrono::steady_clock;

int milliseconds_until(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left, 0, 3600000));
}

/// Events that ioswait serves: repainting by the toolkit, and what the window manager does to map
/// a window. Input, new sizes and exposures of what the application draws wait for its next poll.
Bool served_while_waiting(Display* display, XEvent* event, XPointer) {
    switch (event->type) {
        case Expose:
            return !draws_for_application(display, event->xexpose.window);
        case GraphicsExpose:
        case NoExpose:
        case VisibilityNotify:
        case MapNotify:
        case UnmapNotify:
        case ReparentNotify:
        case PropertyNotify:
            return True;
        default:
            return False;
    }
}

}  // namespace

DialogUnits dialog_units_of(const FontMeasures& measures) {
    // Tenths in integers: the product with 1.1 would depend on its rounding.
    const int widths = measures.smallest_width + measures.largest_width;
    const int heights = measures.ascent + measures.descent;
    return {std::max(1, widths * 11 / 20), std::max(1, heights * 11 / 10)};
}

void yycolorschemeinit() {
    const ResourceValues values = resource_values();
    ColourScheme& scheme = wSchemeCol;
    scheme.background = values.background;
    scheme.foreground = values.foreground;
    scheme.field = values.field;
    scheme.tooltip = values.tooltip;
    scheme.black = BlackPixelOfScreen(yydisplay.screen);
    scheme.white = WhitePixelOfScreen(yydisplay.screen);
    Pixel unused = 0;
    XmGetColors(yydisplay.screen, yydisplay.colormap, scheme.background, &unused,
                &scheme.top_shadow, &scheme.bottom_shadow, &scheme.select);
    scheme.disabled = scheme.bottom_shadow;
    scheme.highlight = scheme.bottom_shadow;
    scheme.highlight_text = scheme.white;
}

void winitialise(std::string_view inifile) {
    if (state.guard == initialised) return;
    yygetdisplayinfo();
    yywinitialise(inifile);
    idebuglevel = settings.debug_level;
    const ResourceValues values = resource_values();
    load_fonts(values);
    default_render_table(values.dialog_font);
    state.guard = initialised;
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

void ioswait(int milliseconds) {
    if (!yydisplay.display) return;
    const auto end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
    do {
        XEvent event;
        while (XCheckIfEvent(yydisplay.display, &event, served_while_waiting, nullptr)) {
            // Menu and status bars have no widgets; of what is served this raises no message.
            if (event.type == Expose) yyMSInterpretMessageCore(event);
            XtDispatchEvent(&event);
        }
        if (XtAppPending(yydisplay.app) & ~XtInputMask{XtIMXEvent})
            XtAppProcessEvent(yydisplay.app, XtIMAll & ~XtInputMask{XtIMXEvent});
        // At most a tick, so that a timer of the toolkit is never long overdue.
        yywaitdisplay(std::min(milliseconds_until(end), 10));
    } while (Clock::now() < end);
}

void wmessagewait(int milliseconds) {
    if (!yydisplay.display || milliseconds <= 0 || wXtMesg2.type != 0) return;
    if (XtAppPending(yydisplay.app) != 0) return;
    yywaitdisplay(milliseconds);
}

}  // namespace tesserakit
