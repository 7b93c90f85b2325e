// A selection tears down the context of the one before and builds a new one for the new target.
// Display lists outlive that: every context shares its lists with one keeper, a context that is
// never made current and lives as long as the display is open.

#include "toolkit/windows/gl_target.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/gl_calls.hpp"
#include "toolkit/widgets/wind.hpp"
#include "toolkit/windows/bitmap_slots.hpp"
#include "toolkit/windows/event_masks.hpp"
#include "toolkit/windows/gl_text.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <GL/gl.h>
#include <GL/glx.h>
#include <X11/StringDefs.h>
#include <X11/Xutil.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <vector>

namespace tesserakit {

namespace {

constexpr int colour_index = 1;  // bits of the mode
constexpr int double_buffer = 2;

/// Outcomes of a selection; the numbers are an error's detail.
enum GlStatus : int {
    InvalidTarget = -1,
    Good = 0,
    NoExtension = 1,
    NoVisual = 2,
    NoContext = 3,
    NotCurrent = 4,
    NoPixmap = 10,
    NoGlPixmap = 11,
    PixmapTooLarge = 12,
    NoWindow = 21
};

/// A widget made for OpenGL, with the colour map that was made for it.
struct GlWidget {
    Widget widget = nullptr;
    VisualID visual = 0;
    Colormap colormap = 0;  ///< owned; 0 when it is the screen's
};

struct State {
    GLXContext keeper = nullptr;
    GLXContext context = nullptr;
    GlTarget target = GlTarget::Nothing;
    int number = 0;        // window slot, bitmap handle, field identifier
    int dialog_slot = -1;  // of a field
    GLXDrawable drawable = 0;
    bool swaps = false;            // the drawable has a back buffer that is drawn to
    GLXPixmap gl_pixmap = 0;       // of a bitmap
    BitmapSlot original_bitmap{};  // put back when the bitmap is left
    Colormap bitmap_colormap = 0;  // made for its OpenGL picture; 0 when it is the screen's
    std::vector<GlWidget> widgets;
    bool selected_before = false;
    bool told_missing = false;  // once a run
};
State& state = *new State;

/// What is asked for, and what is being built for it.
struct Selection {
    GlTarget target = GlTarget::Nothing;
    int number = 0;
    int dialog_slot = -1;
    int mode = 0;
    XVisualInfo* visual = nullptr;
    Colormap colormap = 0;
    bool colormap_owned = false;
    bool front = false;  ///< double-buffered only because nothing else is there
    GLXContext context = nullptr;
    GLXDrawable drawable = 0;
    GLXPixmap gl_pixmap = 0;
    Pixmap pixmap = 0;
    Widget widget = nullptr;
    bool widget_is_new = false;
};

bool default_visual(const XVisualInfo& visual) {
    return visual.visualid == XVisualIDFromVisual(yydisplay.visual);
}

// Leaving a target

void put_bitmap_back() {
    if (state.gl_pixmap == 0) return;
    glXDestroyGLXPixmap(yydisplay.display, state.gl_pixmap);
    state.gl_pixmap = 0;
    if (BitmapSlot* bitmap = bitmap_of(state.number)) {
        XFreePixmap(yydisplay.display, bitmap->pixmap);
        *bitmap = state.original_bitmap;
    }
    if (state.bitmap_colormap != 0) XFreeColormap(yydisplay.display, state.bitmap_colormap);
    state.bitmap_colormap = 0;
}

void leave_target() {
    if (!yydisplay.display) return;
    const ErrorTrap trap;
    if (state.context) {
        glXMakeCurrent(yydisplay.display, None, nullptr);
        glXDestroyContext(yydisplay.display, state.context);
    }
    put_bitmap_back();
    state.context = nullptr;
    state.target = GlTarget::Nothing;
    state.drawable = 0;
    state.dialog_slot = -1;
}

// Choosing a visual

/// A round trip: a server that has gone ends the program here, with its message. The OpenGL library
/// would crash on the answers that don't come.
void meet_server() { XSync(yydisplay.display, False); }

/// While it stands, a crash inside the OpenGL library ends the program with the message of a lost
/// display if that is what happened. The library starts its driver in its first calls, which takes
/// a while, and reads answers without looking whether they came.
class DriverStart {
public:
    DriverStart() {
        connection = ConnectionNumber(yydisplay.display);
        struct sigaction action {};
        action.sa_handler = crashed;
        sigaction(SIGSEGV, &action, &former_);
    }
    ~DriverStart() { sigaction(SIGSEGV, &former_, nullptr); }
    DriverStart(const DriverStart&) = delete;
    DriverStart& operator=(const DriverStart&) = delete;

private:
    static void crashed(int) {
        pollfd server{connection, POLLIN, 0};
        if (poll(&server, 1, 0) > 0 && (server.revents & (POLLHUP | POLLERR)) != 0)
            end_without_display();
        // A crash of its own: on return it happens again, and ends the program as it would have.
        std::signal(SIGSEGV, SIG_DFL);
    }
    static inline int connection = -1;
    struct sigaction former_ {};
};

XVisualInfo* choose(bool rgba, bool doubled, bool depth) {
    std::array<int, 12> list{};
    std::size_t n = 0;
    const auto put = [&](int word) { list[n++] = word; };
    if (rgba) put(GLX_RGBA);
    if (doubled) put(GLX_DOUBLEBUFFER);
    if (depth) {
        // Without a depth buffer far atoms cover near ones; the sizes ask for the deepest there is.
        put(GLX_DEPTH_SIZE), put(1);
        if (rgba)
            put(GLX_RED_SIZE), put(1), put(GLX_GREEN_SIZE), put(1), put(GLX_BLUE_SIZE), put(1);
    }
    put(None);
    meet_server();
    const DriverStart start;
    return glXChooseVisual(yydisplay.display, yydisplay.screen_number, list.data());
}

XVisualInfo* choose(bool rgba, bool doubled) {
    XVisualInfo* visual = choose(rgba, doubled, true);
    return visual ? visual : choose(rgba, doubled, false);
}

int choose_visual(Selection& selection) {
    const bool rgba = (selection.mode & colour_index) == 0;
    const bool doubled = (selection.mode & double_buffer) != 0;
    selection.visual = choose(rgba, doubled);
    if (!selection.visual && !doubled) {
        selection.visual = choose(rgba, true);
        selection.front = selection.visual != nullptr;
    }
    return selection.visual ? Good : NoVisual;
}

/// Fills a colour map of 256 cells: 3 bits of red, 3 of green, 2 of blue.
void fill_colormap(Colormap colormap) {
    const auto component = [](int value, int bits) {
        const int largest = (1 << bits) - 1;
        return static_cast<unsigned short>(((value & largest) * 255 / largest << 8) + 255);
    };
    for (int cell = 0; cell < 256; ++cell) {
        XColor colour{};
        colour.red = component(cell, 3);
        colour.green = component(cell >> 3, 3);
        colour.blue = component(cell >> 6, 2);
        XAllocColor(yydisplay.display, colormap, &colour);
    }
}

void make_colormap(Selection& selection) {
    // The screen's own map serves its own visual, and no window has to announce another.
    if (default_visual(*selection.visual) && selection.visual->depth > 8) {
        selection.colormap = yydisplay.colormap;
        return;
    }
    selection.colormap =
        XCreateColormap(yydisplay.display, yydisplay.root, selection.visual->visual, AllocNone);
    selection.colormap_owned = true;
    if (selection.visual->depth == 8) fill_colormap(selection.colormap);
}

GLXContext create_context(XVisualInfo* visual, GLXContext share, bool direct) {
    ErrorTrap trap;
    const DriverStart start;
    const GLXContext context =
        glXCreateContext(yydisplay.display, visual, share, direct ? True : False);
    return trap.error() == 0 ? context : nullptr;
}

/// Direct where the server can, also for bitmaps: indirect contexts are mostly refused now.
int make_context(Selection& selection) {
    for (const bool direct : {true, false}) {
        if (!state.keeper) state.keeper = create_context(selection.visual, nullptr, direct);
        if (!state.keeper) continue;
        selection.context = create_context(selection.visual, state.keeper, direct);
        if (selection.context) return Good;
    }
    return NoContext;
}

// Preparing a target

int prepare_bitmap(Selection& selection) {
    const BitmapSlot& bitmap = *bitmap_of(selection.number);
    Display* display = yydisplay.display;
    ErrorTrap trap;
    selection.pixmap = XCreatePixmap(display, yydisplay.root, static_cast<unsigned>(bitmap.width),
                                     static_cast<unsigned>(bitmap.height),
                                     static_cast<unsigned>(selection.visual->depth));
    Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (trap.error() != 0 ||
        !XGetGeometry(display, selection.pixmap, &root, &x, &y, &width, &height, &border, &depth)) {
        selection.pixmap = 0;
        return NoPixmap;
    }
    selection.gl_pixmap = glXCreateGLXPixmap(display, selection.visual, selection.pixmap);
    if (trap.error() != 0) selection.gl_pixmap = 0;
    selection.drawable = selection.gl_pixmap;
    return selection.gl_pixmap != 0 ? Good : NoGlPixmap;
}

Widget create_gl_widget(const Selection& selection, Widget parent, const Box& box) {
    XSetWindowAttributes attributes{};
    // No background: the server would paint it over the picture before each redraw.
    attributes.background_pixmap = None;
    attributes.bit_gravity = ForgetGravity;
    attributes.colormap = selection.colormap;
    attributes.border_pixel = 0;
    const Widget widget = XtVaCreateWidget(
        "ClientWindow", windWidgetClass, parent, XtNx, box.x, XtNy, box.y, XtNwidth, box.width,
        XtNheight, box.height, XtNborderWidth, 0, XtNdepth, selection.visual->depth, XtNcolormap,
        selection.colormap, windNvisual, selection.visual->visual, windNmask,
        CWBackPixmap | CWBitGravity | CWColormap | CWBorderPixel, windNattributes, &attributes,
        nullptr);
    // The attributes are read here, while they stand; what is selected before the window is mapped
    // includes its first exposure.
    if (XtIsRealized(parent)) XtRealizeWidget(widget);
    apply_message_mask(widget);
    return widget;
}

void forget_widget(Widget widget, XtPointer, XtPointer) {
    const auto found = std::ranges::find(state.widgets, widget, &GlWidget::widget);
    if (found == state.widgets.end()) return;
    if (found->colormap != 0) XFreeColormap(yydisplay.display, found->colormap);
    state.widgets.erase(found);
}

void keep_widget(Selection& selection) {
    state.widgets.push_back({selection.widget, selection.visual->visualid,
                             selection.colormap_owned ? selection.colormap : Colormap{0}});
    selection.colormap_owned = false;
    XtAddCallback(selection.widget, XtNdestroyCallback, forget_widget, nullptr);
}

/// A widget that was made for the same visual serves again: the picture needn't blink.
bool reuse_widget(Selection& selection, Widget present) {
    const auto found = std::ranges::find(state.widgets, present, &GlWidget::widget);
    if (found == state.widgets.end() || found->visual != selection.visual->visualid) return false;
    selection.widget = present;
    selection.drawable = XtWindow(present);
    return true;
}

int prepare_window(Selection& selection) {
    const WindowSlot& slot = window_slot(selection.number);
    if (reuse_widget(selection, slot.client_widget)) return Good;
    selection.widget =
        create_gl_widget(selection, slot.window_widget, {0, 0, slot.width, slot.height});
    selection.widget_is_new = true;
    if (!XtIsRealized(selection.widget)) return NoWindow;
    if (slot.dialog < 0 && !slot.content) XtManageChild(selection.widget);
    selection.drawable = XtWindow(selection.widget);
    return Good;
}

int prepare_field(Selection& selection) {
    const PictureField field = dialog_hooks.picture(selection.dialog_slot, selection.number);
    if (reuse_widget(selection, field.widget)) return Good;
    const Widget dialog = dialog_hooks.widget(selection.dialog_slot);
    selection.widget = create_gl_widget(
        selection, dialog, {field.x, field.y, std::max(field.width, 1), std::max(field.height, 1)});
    selection.widget_is_new = true;
    const Widget top = shell_around(dialog);
    if (!XtIsRealized(selection.widget) || !top || !XtIsRealized(top)) return NoWindow;
    XtManageChild(selection.widget);
    selection.drawable = XtWindow(selection.widget);
    return Good;
}

int prepare_drawable(Selection& selection) {
    switch (selection.target) {
        case GlTarget::Window:
            return prepare_window(selection);
        case GlTarget::Bitmap:
            return prepare_bitmap(selection);
        case GlTarget::Field:
            return prepare_field(selection);
        case GlTarget::Nothing:
            break;
    }
    return InvalidTarget;
}

bool make_current(const Selection& selection) {
    ErrorTrap trap;
    const Bool made = glXMakeCurrent(yydisplay.display, selection.drawable, selection.context);
    if (made && trap.error() == 0) return true;
    glXMakeCurrent(yydisplay.display, None, nullptr);
    return false;
}

/// The renderer would leave blank what it can't reach of a larger bitmap. To be asked with the
/// context current.
bool within_reach(const Selection& selection) {
    const BitmapSlot& bitmap = *bitmap_of(selection.number);
    std::array<GLint, 2> largest{};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, largest.data());
    return bitmap.width <= largest[0] && bitmap.height <= largest[1];
}

void undo(Selection& selection) {
    const ErrorTrap trap;
    if (selection.context) glXDestroyContext(yydisplay.display, selection.context);
    if (selection.gl_pixmap != 0) glXDestroyGLXPixmap(yydisplay.display, selection.gl_pixmap);
    if (selection.pixmap != 0) XFreePixmap(yydisplay.display, selection.pixmap);
    if (selection.widget_is_new && selection.widget) XtDestroyWidget(selection.widget);
}

// After the context is current

void adopt_bitmap(Selection& selection) {
    BitmapSlot& bitmap = *bitmap_of(selection.number);
    XGCValues values{};
    values.foreground = wSchemeCol.white;
    const GC gc = XCreateGC(yydisplay.display, selection.pixmap, GCForeground, &values);
    XFillRectangle(yydisplay.display, selection.pixmap, gc, 0, 0,
                   static_cast<unsigned>(bitmap.width), static_cast<unsigned>(bitmap.height));
    XFreeGC(yydisplay.display, gc);
    state.original_bitmap = bitmap;
    bitmap.pixmap = selection.pixmap;
    bitmap.visual = selection.visual->visual;
    bitmap.colormap = selection.colormap;
    bitmap.depth = selection.visual->depth;
    if (selection.colormap_owned) state.bitmap_colormap = selection.colormap;
    selection.colormap_owned = false;
}

/// Tells the window manager whose colour maps to install for a top window.
void announce_colormap(const Selection& selection, Widget middle) {
    const Widget top = shell_around(selection.widget);
    if (default_visual(*selection.visual)) {
        XDeleteProperty(yydisplay.display, XtWindow(top), yydisplay.wm_colormap_windows);
        return;
    }
    std::array<Window, 3> order{XtWindow(selection.widget), XtWindow(middle), XtWindow(top)};
    XSetWMColormapWindows(yydisplay.display, XtWindow(top), order.data(),
                          static_cast<int>(order.size()));
}

void adopt_window(Selection& selection) {
    WindowSlot& slot = window_slot(selection.number);
    if (selection.widget_is_new) {
        XtDestroyWidget(slot.client_widget);
        slot.client_widget = selection.widget;
        slot.client = XtWindow(selection.widget);
        keep_widget(selection);
    }
    announce_colormap(selection, slot.window_widget);
    yywindowreplace(selection.number);
}

void adopt_field(Selection& selection) {
    if (selection.widget_is_new) {
        keep_widget(selection);
        dialog_hooks.adopt(selection.dialog_slot, selection.number, selection.widget);
    }
    announce_colormap(selection, dialog_hooks.widget(selection.dialog_slot));
}

void adopt(Selection& selection) {
    switch (selection.target) {
        case GlTarget::Window:
            adopt_window(selection);
            break;
        case GlTarget::Bitmap:
            adopt_bitmap(selection);
            break;
        case GlTarget::Field:
            adopt_field(selection);
            break;
        case GlTarget::Nothing:
            break;
    }
    int doubled = 0;
    glXGetConfig(yydisplay.display, selection.visual, GLX_DOUBLEBUFFER, &doubled);
    const bool front = selection.front || (doubled && selection.target == GlTarget::Bitmap);
    state.context = selection.context;
    state.target = selection.target;
    state.number = selection.number;
    state.dialog_slot = selection.dialog_slot;
    state.drawable = selection.drawable;
    state.gl_pixmap = selection.gl_pixmap;
    state.swaps = doubled && !front;
    if (front) glDrawBuffer(GL_FRONT);
    glClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    glClearIndex(0.0f);
}

// The selection as a whole

bool valid(const Selection& selection) {
    switch (selection.target) {
        case GlTarget::Window:
            return selection.number >= 0 && selection.number < window_slots &&
                   window_slot(selection.number).open();
        case GlTarget::Bitmap:
            return bitmap_of(selection.number) != nullptr;
        case GlTarget::Field:
            return dialog_hooks.picture(selection.dialog_slot, selection.number).picture;
        case GlTarget::Nothing:
            break;
    }
    return false;
}

/// What a user can do something about: the display lacks it, and the view stays empty.
void tell_what_is_missing(int status) {
    if (state.told_missing) return;
    switch (status) {
        case NoExtension:
            std::fputs("No OpenGL: the X display has no GLX extension.\n", stderr);
            break;
        case NoVisual:
            std::fprintf(stderr,
                         "No OpenGL: the X display has no visual for it (the screen's depth is %d; "
                         "24 is usual).\n",
                         yydisplay.depth);
            break;
        case NoContext:
        case NotCurrent:
            std::fputs("No OpenGL: the X display refuses a rendering context.\n", stderr);
            break;
        default:
            return;
    }
    state.told_missing = true;
}

int build(Selection& selection) {
    if (!valid(selection)) return InvalidTarget;
    meet_server();
    if (!glXQueryExtension(yydisplay.display, nullptr, nullptr)) return NoExtension;
    if (const int status = choose_visual(selection); status != Good) return status;
    make_colormap(selection);
    if (const int status = make_context(selection); status != Good) return status;
    if (const int status = prepare_drawable(selection); status != Good) return status;
    if (!make_current(selection)) return NotCurrent;
    if (selection.target != GlTarget::Bitmap || within_reach(selection)) return Good;
    glXMakeCurrent(yydisplay.display, None, nullptr);
    return PixmapTooLarge;
}

int yyglselect(Selection& selection) {
    leave_target();
    const int status = build(selection);
    if (status == Good) {
        adopt(selection);
    } else {
        undo(selection);
        tell_what_is_missing(status);
    }
    if (selection.colormap_owned) XFreeColormap(yydisplay.display, selection.colormap);
    if (selection.visual) XFree(selection.visual);
    return status;
}

}  // namespace

void wglselect(int target, int identifier, int mode) {
    if (!state.selected_before) reset_gl_text();
    state.selected_before = true;
    if (target < 1 || target > 3) {
        leave_target();
        return;
    }
    Selection selection{
        .target = static_cast<GlTarget>(target), .number = identifier, .mode = mode};
    if (selection.target == GlTarget::Field) selection.dialog_slot = dialog_hooks.current();
    const int status = yydisplay.display ? yyglselect(selection) : int{InvalidTarget};
    if (status == Good) return;
    yyerror(status == InvalidTarget ? InvalidDrawable : OpenGLNotEnabled, "WglSelect", status);
}

void wglswapbuffers() {
    if (!state.context) return;
    if (state.swaps) {
        glXSwapBuffers(yydisplay.display, state.drawable);
    } else {
        gl_finish();
    }
}

void gl_finish() {
    if (!state.context) return;
    glFinish();
    glXWaitGL();
}

Widget gl_field_widget() {
    if (state.target != GlTarget::Field) return nullptr;
    return dialog_hooks.picture(state.dialog_slot, state.number).widget;
}

void gl_forget_window(int window) {
    if (state.target == GlTarget::Window && state.number == window) leave_target();
}

void gl_forget_bitmap(int handle) {
    if (state.target == GlTarget::Bitmap && state.number == handle) leave_target();
}

void gl_forget_dialog(int dialog_slot) {
    if (state.target == GlTarget::Field && state.dialog_slot == dialog_slot) leave_target();
}

void gl_shutdown() {
    leave_target();
    if (state.keeper) glXDestroyContext(yydisplay.display, state.keeper);
    state.keeper = nullptr;
    // The lists of the characters went with it.
    state.selected_before = false;
}

}  // namespace tesserakit
