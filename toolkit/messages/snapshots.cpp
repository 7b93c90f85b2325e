// What another window covers when a picture is taken isn't in it, nor what the application has yet
// to draw. Such parts are known as missing: they are left alone, and their damage is told.

#include "toolkit/messages/snapshots.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/Xutil.h>

#include <algorithm>
#include <vector>

namespace tesserakit {

namespace {

/// A copy of a window's picture.
struct Snapshot {
    Window window = 0;
    Pixmap pixmap = 0;
    GC gc = nullptr;
    Region missing = nullptr;  // of the window
};

struct State {
    std::vector<Snapshot> snapshots;
    int snapshot_depth = 0;
};
State& state = *new State;

void free_snapshots() {
    for (const Snapshot& snapshot : state.snapshots) {
        XDestroyRegion(snapshot.missing);
        XFreeGC(yydisplay.display, snapshot.gc);
        XFreePixmap(yydisplay.display, snapshot.pixmap);
    }
    state.snapshots.clear();
}

void add(Region region, int x, int y, int width, int height) {
    XRectangle box{static_cast<short>(x), static_cast<short>(y), static_cast<unsigned short>(width),
                   static_cast<unsigned short>(height)};
    XUnionRectWithRegion(&box, region, region);
}

Bool of_copy(Display*, XEvent* event, XPointer snapshot) {
    const Pixmap pixmap = reinterpret_cast<const Snapshot*>(snapshot)->pixmap;
    return (event->type == GraphicsExpose && event->xgraphicsexpose.drawable == pixmap) ||
           (event->type == NoExpose && event->xnoexpose.drawable == pixmap);
}

/// Looks only: the exposure stays in the queue for the application.
Bool note_exposure(Display*, XEvent* event, XPointer closure) {
    const Snapshot& snapshot = *reinterpret_cast<const Snapshot*>(closure);
    const XExposeEvent& expose = event->xexpose;
    if (event->type == Expose && expose.window == snapshot.window)
        add(snapshot.missing, expose.x, expose.y, expose.width, expose.height);
    return False;
}

/// After the copy: the server tells what it couldn't copy.
void find_missing(Snapshot& snapshot) {
    snapshot.missing = XCreateRegion();
    XSync(yydisplay.display, False);
    const auto closure = reinterpret_cast<XPointer>(&snapshot);
    XEvent event;
    while (XCheckIfEvent(yydisplay.display, &event, of_copy, closure)) {
        const XGraphicsExposeEvent& part = event.xgraphicsexpose;
        if (event.type == GraphicsExpose)
            add(snapshot.missing, part.x, part.y, part.width, part.height);
    }
    XCheckIfEvent(yydisplay.display, &event, note_exposure, closure);
}

/// False when the server has no room for the picture.
bool take_snapshot(Widget widget) {
    if (!widget || !XtIsRealized(widget)) return true;
    Display* display = yydisplay.display;
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display, XtWindow(widget), &attributes)) return true;
    if (attributes.map_state != IsViewable) return true;
    ErrorTrap trap;
    Snapshot snapshot{.window = XtWindow(widget)};
    snapshot.pixmap = XCreatePixmap(
        display, snapshot.window, static_cast<unsigned>(attributes.width),
        static_cast<unsigned>(attributes.height), static_cast<unsigned>(attributes.depth));
    if (trap.error() != 0) return false;
    XGCValues values{};
    values.graphics_exposures = True;
    snapshot.gc = XCreateGC(display, snapshot.pixmap, GCGraphicsExposures, &values);
    XCopyArea(display, snapshot.window, snapshot.pixmap, snapshot.gc, 0, 0,
              static_cast<unsigned>(attributes.width), static_cast<unsigned>(attributes.height), 0,
              0);
    find_missing(snapshot);
    XSetGraphicsExposures(display, snapshot.gc, False);
    state.snapshots.push_back(snapshot);
    return true;
}

void take_snapshots() {
    bool room = take_snapshot(gl_field_widget());
    for (const WindowSlot& slot : windows)
        if (slot.open() && slot.dialog < 0) room = take_snapshot(slot.client_widget) && room;
    if (!room)
        yyerror(state.snapshots.empty() ? SnapshotExhausted : SnapshotLow, "yygetwindowbitmap");
}

}  // namespace

void yygetwindowbitmap(bool take) {
    state.snapshot_depth += take ? 1 : -1;
    if (take && state.snapshot_depth == 1) take_snapshots();
    if (state.snapshot_depth <= 0) {
        free_snapshots();
        state.snapshot_depth = 0;
    }
}

bool repair_from_snapshot(Window window, const XExposeEvent& event) {
    const auto found = std::ranges::find(state.snapshots, window, &Snapshot::window);
    if (found == state.snapshots.end()) return false;
    const Region there = XCreateRegion();
    add(there, event.x, event.y, event.width, event.height);
    XSubtractRegion(there, found->missing, there);
    XSetRegion(yydisplay.display, found->gc, there);
    XDestroyRegion(there);
    XCopyArea(yydisplay.display, found->pixmap, window, found->gc, event.x, event.y,
              static_cast<unsigned>(event.width), static_cast<unsigned>(event.height), event.x,
              event.y);
    return XRectInRegion(found->missing, event.x, event.y, static_cast<unsigned>(event.width),
                         static_cast<unsigned>(event.height)) == RectangleOut;
}

}  // namespace tesserakit
