#include "tests/support/display_input.hpp"

// X has macros that GoogleTest does not compile behind.
#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/tesserakit.hpp"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <poll.h>

#include <array>
#include <chrono>

namespace display_input {

namespace {

using Clock = std::chrono::steady_clock;

Display* display() {
    static Display* const connection = XOpenDisplay(nullptr);
    if (!connection) ADD_FAILURE() << "no display";
    return connection;
}

Window root() { return DefaultRootWindow(display()); }

Clock::time_point deadline() { return Clock::now() + std::chrono::milliseconds(deadline_ms); }

/// Calls `look` until it holds, with the program under test polling meanwhile.
bool eventually(const std::function<bool()>& look) {
    const auto end = deadline();
    while (!look()) {
        if (Clock::now() > end) return false;
        int type = 0;
        tesserakit::MessageRecord record;
        tesserakit::wmessagepeek(type, record);
        if (type == tesserakit::NoMessage) tesserakit::wmessagewait(5);
    }
    return true;
}

bool has_title(Window window, const std::string& title) {
    char* name = nullptr;
    if (!XFetchName(display(), window, &name) || !name) return false;
    const bool same = title == name;
    XFree(name);
    return same;
}

bool is_client(Window window) {
    const Atom state = XInternAtom(display(), "WM_STATE", False);
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display(), window, state, 0, 2, False, AnyPropertyType, &type, &format,
                       &count, &rest, &data);
    if (data) XFree(data);
    return type != 0;
}

bool viewable(Window window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(display(), window, &attributes) &&
           attributes.map_state == IsViewable;
}

Window find_below(Window parent, const std::string& title) {
    Window ignored = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display(), parent, &ignored, &ignored, &children, &count)) return 0;
    Window found = 0;
    for (unsigned i = 0; i < count && found == 0; ++i) {
        const Window child = children[i];
        const bool match = has_title(child, title) && is_client(child) && viewable(child);
        found = match ? child : find_below(child, title);
    }
    if (children) XFree(children);
    return found;
}

int ignore_errors(Display*, XErrorEvent*) { return 0; }

/// Windows may go away between two looks at them.
class QuietErrors {
public:
    QuietErrors() : former_(XSetErrorHandler(ignore_errors)) {}
    ~QuietErrors() {
        XSync(display(), False);
        XSetErrorHandler(former_);
    }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    XErrorHandler former_;
};

Window find(const std::string& title) {
    const QuietErrors quiet;
    return find_below(root(), title);
}

Window shown_window(const std::string& title) {
    Window found = 0;
    if (!eventually([&] { return (found = find(title)) != 0; }))
        ADD_FAILURE() << "no window titled " << title;
    return found;
}

/// Returns when the window manager has acted on all that the server has told it of so far: it
/// grants the size of a window of our own in its turn.
void pass_window_manager() {
    static const Window marker = XCreateSimpleWindow(display(), root(), 0, 0, 1, 1, 0, 0, 0);
    static int width = 1;
    XSelectInput(display(), marker, StructureNotifyMask);
    width = width % 100 + 1;
    XResizeWindow(display(), marker, static_cast<unsigned>(width), 1);
    XSync(display(), False);
    XEvent event{};
    const auto end = deadline();
    while (event.xconfigure.width != width || event.type != ConfigureNotify) {
        if (XCheckTypedWindowEvent(display(), marker, ConfigureNotify, &event)) continue;
        if (Clock::now() > end) {
            ADD_FAILURE() << "the window manager doesn't answer";
            return;
        }
        pollfd connection{.fd = ConnectionNumber(display()), .events = POLLIN, .revents = 0};
        ::poll(&connection, 1, 100);
    }
}

KeySym keysym_named(const std::string& name) {
    if (name.size() > 1) return XStringToKeysym(name.c_str());
    // The printable characters of Latin-1 are their own keysyms.
    return static_cast<KeySym>(static_cast<unsigned char>(name[0]));
}

void fake_key(KeySym keysym, bool down) {
    XTestFakeKeyEvent(display(), XKeysymToKeycode(display(), keysym), down ? True : False,
                      CurrentTime);
}

bool needs_shift(KeySym keysym) {
    const KeyCode code = XKeysymToKeycode(display(), keysym);
    return XkbKeycodeToKeysym(display(), code, 0, 0) != keysym &&
           XkbKeycodeToKeysym(display(), code, 0, 1) == keysym;
}

void press_and_release(KeySym keysym) {
    const bool shift = needs_shift(keysym);
    if (shift) fake_key(XK_Shift_L, true);
    fake_key(keysym, true);
    fake_key(keysym, false);
    if (shift) fake_key(XK_Shift_L, false);
    XFlush(display());
}

KeySym modifier_named(const std::string& name) {
    if (name == "shift") return XK_Shift_L;
    if (name == "ctrl") return XK_Control_L;
    return XK_Alt_L;
}

}  // namespace

void move_to(Point to) {
    XTestFakeMotionEvent(display(), -1, to.x, to.y, CurrentTime);
    XSync(display(), False);
}

void press(int button) {
    XTestFakeButtonEvent(display(), static_cast<unsigned>(button), True, CurrentTime);
    XSync(display(), False);
}

void release(int button) {
    XTestFakeButtonEvent(display(), static_cast<unsigned>(button), False, CurrentTime);
    XSync(display(), False);
}

void click(Point at, int button) {
    move_to(at);
    press(button);
    release(button);
}

void drag(Point from, Point to, int steps, int button) {
    move_to(from);
    press(button);
    for (int i = 1; i <= steps; ++i)
        move_to({from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
    release(button);
}

void key(const std::string& name) {
    const std::size_t plus = name.size() > 1 ? name.find('+') : std::string::npos;
    if (plus == std::string::npos) {
        press_and_release(keysym_named(name));
        return;
    }
    const KeySym modifier = modifier_named(name.substr(0, plus));
    fake_key(modifier, true);
    press_and_release(keysym_named(name.substr(plus + 1)));
    fake_key(modifier, false);
    XFlush(display());
}

void type(const std::string& text) {
    for (const char character : text) press_and_release(keysym_named(std::string(1, character)));
}

Rectangle window_titled(const std::string& title) {
    const Window window = shown_window(title);
    if (window == 0) return {};
    XWindowAttributes attributes;
    XGetWindowAttributes(display(), window, &attributes);
    Rectangle area{0, 0, attributes.width, attributes.height};
    Window child = 0;
    XTranslateCoordinates(display(), window, root(), 0, 0, &area.x, &area.y, &child);
    return area;
}

Rectangle frame_of(const std::string& title) {
    Window window = shown_window(title);
    Window top = 0;
    Window parent = window;
    while (parent != 0 && parent != root()) {
        window = parent;
        Window* children = nullptr;
        unsigned count = 0;
        if (!XQueryTree(display(), window, &top, &parent, &children, &count)) return {};
        if (children) XFree(children);
    }
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display(), window, &attributes)) return {};
    return {attributes.x, attributes.y, attributes.width, attributes.height};
}

bool is_shown(const std::string& title) { return find(title) != 0; }

std::string title_at(Point at) {
    const Window root = DefaultRootWindow(display());
    Window window = root;
    while (true) {
        int x = 0, y = 0;
        Window child = 0;
        XTranslateCoordinates(display(), root, window, at.x, at.y, &x, &y, &child);
        if (child == 0) return {};
        window = child;
        char* name = nullptr;
        if (XFetchName(display(), window, &name) && name) {
            const std::string title = name;
            XFree(name);
            return title;
        }
    }
}

void close_window(const std::string& title) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = shown_window(title);
    event.xclient.message_type = XInternAtom(display(), "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display(), "WM_DELETE_WINDOW", False));
    XSendEvent(display(), event.xclient.window, False, NoEventMask, &event);
    XSync(display(), False);
}

void kill_client(const std::string& title) {
    XKillClient(display(), shown_window(title));
    XSync(display(), False);
}

void resize_window(const std::string& title, int width, int height) {
    XResizeWindow(display(), shown_window(title), static_cast<unsigned>(width),
                  static_cast<unsigned>(height));
    XSync(display(), False);
}

void cover_and_uncover(Rectangle area) {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    const Window cover =
        XCreateWindow(display(), root(), area.x, area.y, static_cast<unsigned>(area.width),
                      static_cast<unsigned>(area.height), 0, CopyFromParent, InputOutput, nullptr,
                      CWOverrideRedirect, &attributes);
    XMapRaised(display(), cover);
    XDestroyWindow(display(), cover);
    XSync(display(), False);
}

SizeLimits size_limits(const std::string& title) {
    XSizeHints hints{};
    long supplied = 0;
    XGetWMNormalHints(display(), shown_window(title), &hints, &supplied);
    SizeLimits limits;
    if (hints.flags & PMinSize) {
        limits.min_width = hints.min_width;
        limits.min_height = hints.min_height;
    }
    if (hints.flags & PMaxSize) {
        limits.max_width = hints.max_width;
        limits.max_height = hints.max_height;
    }
    return limits;
}

std::vector<unsigned long> property(const std::string& title, const char* name) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display(), shown_window(title), XInternAtom(display(), name, False), 0,
                       1000000, False, AnyPropertyType, &type, &format, &count, &rest, &data);
    std::vector<unsigned long> words;
    if (data && format == 32) {
        const auto* first = reinterpret_cast<const unsigned long*>(data);
        words.assign(first, first + count);
    }
    if (data) XFree(data);
    return words;
}

void settle() { XSync(display(), False); }

unsigned pixel(Point at) { return pixels({at.x, at.y, 1, 1}).at(0); }

std::vector<unsigned> pixels(Rectangle area) {
    std::vector<unsigned> colours;
    XImage* image = XGetImage(display(), root(), area.x, area.y, static_cast<unsigned>(area.width),
                              static_cast<unsigned>(area.height), AllPlanes, ZPixmap);
    if (!image) return colours;
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            colours.push_back(static_cast<unsigned>(XGetPixel(image, x, y) & 0xffffffU));
    XDestroyImage(image);
    return colours;
}

tesserakit::MessageRecord wait_for(int type) {
    const auto end = deadline();
    tesserakit::MessageRecord record;
    for (int got = 0; got != type;) {
        tesserakit::wmessagepeek(got, record);
        if (got == tesserakit::NoMessage) tesserakit::wmessagewait(5);
        if (Clock::now() > end) {
            ADD_FAILURE() << "no message of type " << type;
            return {};
        }
    }
    return record;
}

std::vector<int> poll_until(const std::function<bool()>& done) {
    const auto end = deadline();
    std::vector<int> types;
    while (!done()) {
        int type = 0;
        tesserakit::MessageRecord record;
        tesserakit::wmessagepeek(type, record);
        if (type == tesserakit::NoMessage) {
            tesserakit::wmessagewait(5);
        } else {
            types.push_back(type);
        }
        if (Clock::now() > end) {
            ADD_FAILURE() << "the awaited state didn't come";
            break;
        }
    }
    return types;
}

std::vector<Received> drain() {
    // Quiet once and the window manager may still answer itself what it had sent; twice, and
    // nothing is on its way.
    std::vector<Received> received;
    for (int quiet = 0; quiet < 2;) {
        pass_window_manager();
        XSync(tesserakit::yydisplay.display, False);
        quiet = XEventsQueued(tesserakit::yydisplay.display, QueuedAlready) == 0 ? quiet + 1 : 0;
        for (;;) {
            Received next;
            tesserakit::wmessagepeek(next.type, next.record);
            if (next.type == tesserakit::NoMessage) break;
            quiet = 0;
            received.push_back(next);
        }
    }
    return received;
}

}  // namespace display_input
