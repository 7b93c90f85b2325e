#include "toolkit/messages/snapshots.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <algorithm>
#include <vector>

namespace tesserakit {

namespace {

/// A copy of a window's picture.
struct Snapshot {
    Window window = 0;
    Pixmap pixmap = 0;
    GC gc = nullptr;
};

struct State {
    std::vector<Snapshot> snapshots;
    int snapshot_depth = 0;
};
State& state = *new State;

void free_snapshots() {
    for (const Snapshot& snapshot : state.snapshots) {
        XFreeGC(yydisplay.display, snapshot.gc);
        XFreePixmap(yydisplay.display, snapshot.pixmap);
    }
    state.snapshots.clear();
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
    values.graphics_exposures = False;
    snapshot.gc = XCreateGC(display, snapshot.pixmap, GCGraphicsExposures, &values);
    XCopyArea(display, snapshot.window, snapshot.pixmap, snapshot.gc, 0, 0,
              static_cast<unsigned>(attributes.width), static_cast<unsigned>(attributes.height), 0,
              0);
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
    XCopyArea(yydisplay.display, found->pixmap, window, found->gc, event.x, event.y,
              static_cast<unsigned>(event.width), static_cast<unsigned>(event.height), event.x,
              event.y);
    return true;
}

}  // namespace tesserakit
