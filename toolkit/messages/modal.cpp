#include "toolkit/messages/modal.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/messages/mailbox.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/windows.hpp"

#include <algorithm>
#include <vector>

namespace tesserakit {

constinit bool bModalMessageLoop = false;
constinit int nModalWindows = 0;
constinit int wObjCur = -1;
constinit int wObjCurType = 0;

namespace {

constexpr int window_object = 1;
constexpr int dialog_object = 2;
constexpr int dialog_slots = 100;
constexpr int idle_tick_ms = 10;  // a timer of a widget is never later than that

struct ModalEntry {
    Widget widget = nullptr;
    int index = -1;
};

/// A copy of a window's picture.
struct Snapshot {
    Window window = 0;
    Pixmap pixmap = 0;
    GC gc = nullptr;
};

struct State {
    std::vector<ModalEntry> modal;  // the innermost last
    std::vector<Snapshot> snapshots;
    int snapshot_depth = 0;
};
State& state = *new State;

void yyMSModalAddRemove(Widget widget, int index, bool add) {
    if (add) {
        state.modal.push_back({widget, index});
    } else {
        state.modal.pop_back();
    }
    nModalWindows = static_cast<int>(state.modal.size());
    yyMSWindowUpdateResize();
}

SemiModalLink* link_of(int type, int object) {
    if (type == dialog_object) return yyDGsemilink(object);
    if (type != window_object || object < 0 || object >= window_slots) return nullptr;
    WindowSlot& slot = windows[static_cast<std::size_t>(object)];
    return slot.open() ? &slot.previous : nullptr;
}

void relink(int type, int slots, const SemiModalLink& leaving, const SemiModalLink& predecessor) {
    for (int object = 0; object < slots; ++object) {
        SemiModalLink* link = link_of(type, object);
        if (link && link->object == leaving.object && link->type == leaving.type)
            *link = predecessor;
    }
}

void leave_semi_modal(int type, int object) {
    SemiModalLink* link = link_of(type, object);
    if (!link) return;
    const SemiModalLink predecessor = *link;
    if (wObjCurType == type && wObjCur == object) {
        wObjCur = predecessor.object;
        wObjCurType = predecessor.type;
    }
    relink(window_object, window_slots, {object, type}, predecessor);
    relink(dialog_object, dialog_slots, {object, type}, predecessor);
    *link = {};
}

void enter_semi_modal(int type, int object) {
    SemiModalLink* link = link_of(type, object);
    if (!link || (wObjCurType == type && wObjCur == object)) return;
    // One that comes again moves to the front: twice in the chain it could never be left.
    leave_semi_modal(type, object);
    *link = {wObjCur, wObjCurType};
    wObjCur = object;
    wObjCurType = type;
}

bool filtered_type(int type) {
    return (type >= KeyPress && type <= FocusOut) || type == ClientMessage;
}

bool within(Widget widget, Widget ancestor) {
    for (; widget; widget = XtParent(widget))
        if (widget == ancestor) return true;
    return false;
}

bool known(const WindowOwner& owner) { return owner.window >= 0 || owner.dialog.slot >= 0; }

Widget shell_of(Widget widget) {
    while (widget && !XtIsShell(widget)) widget = XtParent(widget);
    return widget;
}

/// What belongs to the top entry is all inside its shell: the window manager's requests come to
/// the shell itself, and lists that pop up are its children.
bool passes_modal(Window window, const WindowOwner& owner) {
    return !known(owner) ||
           within(XtWindowToWidget(yydisplay.display, window), shell_of(state.modal.back().widget));
}

bool passes_semi_modal(const WindowOwner& owner) {
    if (!known(owner)) return true;
    if (wObjCurType == window_object) return owner.window == wObjCur;
    if (owner.dialog.slot == wObjCur) return true;
    // A page of the dialog, or an editor that belongs to it.
    const Widget dialog = yyDGwidget(wObjCur);
    if (owner.dialog.slot >= 0) return within(yyDGwidget(owner.dialog.slot), dialog);
    const WindowSlot& slot = windows[static_cast<std::size_t>(owner.window)];
    return slot.type == WindowType::Editor && within(slot.shell_widget, dialog);
}

Window event_window(const XEvent& event) { return event.xany.window; }

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

void yyMSModalMessageLoop(Widget widget, int index) {
    yyMSModalAddRemove(widget, index, true);
    clear_mailbox();
    bModalMessageLoop = true;
    while (bModalMessageLoop) {
        if (event_waiting()) {
            yyinterpretmessage();
        } else if (bModalMessageLoop) {
            yywaitdisplay(idle_tick_ms);
        }
    }
    yyMSModalAddRemove(widget, index, false);
    // The outer loop goes on: the button has ended the inner one only.
    if (nModalWindows > 0) bModalMessageLoop = true;
}

void yyMSSemiAddRemove(int direction, int object_type, int object) {
    if (direction == 1) {
        enter_semi_modal(object_type, object);
    } else {
        leave_semi_modal(object_type, object);
    }
    yyMSWindowUpdateResize();
}

bool yyMSCheckWinDiag(XEvent& event) {
    if (state.modal.empty() && wObjCurType == 0) return true;
    if (!filtered_type(event.type) || event_window(event) == 0) return true;
    const WindowOwner owner = yygetparenthandle(event_window(event));
    if (!state.modal.empty()) return passes_modal(event_window(event), owner);
    return passes_semi_modal(owner);
}

Widget top_modal_widget() { return state.modal.empty() ? nullptr : state.modal.back().widget; }

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
