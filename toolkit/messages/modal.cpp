#include "toolkit/messages/modal.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/windows/dialog_hooks.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <vector>

namespace tesserakit {

constinit bool bModalMessageLoop = false;
constinit int nModalWindows = 0;
constinit int wObjCur = -1;
constinit int wObjCurType = 0;

namespace {

constexpr int dialog_slots = 100;

struct ModalEntry {
    Widget widget = nullptr;
    int index = -1;
};

struct State {
    std::vector<ModalEntry> modal;  // the innermost last
};
State& state = *new State;

/// With a modal or semi-modal object up only that one may change its size.
bool may_resize(int window) {
    if (nModalWindows > 0) return false;
    return wObjCurType == 0 || (wObjCurType == window_object && wObjCur == window);
}

SemiModalLink* link_of(int type, int object) {
    if (type == dialog_object) return dialog_hooks.semi_link(object);
    if (type != window_object || object < 0 || object >= window_slots) return nullptr;
    WindowSlot& slot = window_slot(object);
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

/// What belongs to the top entry is all inside its shell: the window manager's requests come to
/// the shell itself, and lists that pop up are its children.
bool passes_modal(Window window, const WindowOwner& owner) {
    return !known(owner) || within(XtWindowToWidget(yydisplay.display, window),
                                   shell_around(state.modal.back().widget));
}

bool passes_semi_modal(const WindowOwner& owner) {
    if (!known(owner)) return true;
    if (wObjCurType == window_object) return owner.window == wObjCur;
    if (owner.dialog.slot == wObjCur) return true;
    // A page of the dialog, or an editor that belongs to it.
    const Widget dialog = dialog_hooks.widget(wObjCur);
    if (owner.dialog.slot >= 0) return within(dialog_hooks.widget(owner.dialog.slot), dialog);
    const WindowSlot& slot = window_slot(owner.window);
    return slot.type == WindowType::Editor && within(slot.shell_widget, dialog);
}

Window event_window(const XEvent& event) { return event.xany.window; }

}  // namespace

void yyMSModalAddRemove(Widget widget, int index, bool add) {
    if (add) {
        state.modal.push_back({widget, index});
    } else {
        state.modal.pop_back();
    }
    nModalWindows = static_cast<int>(state.modal.size());
    yyMSWindowUpdateResize(may_resize);
}

void yyMSSemiAddRemove(int direction, int object_type, int object) {
    if (direction == 1) {
        enter_semi_modal(object_type, object);
    } else {
        leave_semi_modal(object_type, object);
    }
    yyMSWindowUpdateResize(may_resize);
}

bool yyMSCheckWinDiag(XEvent& event) {
    if (state.modal.empty() && wObjCurType == 0) return true;
    if (!filtered_type(event.type) || event_window(event) == 0) return true;
    const WindowOwner owner = yygetparenthandle(event_window(event));
    if (!state.modal.empty()) return passes_modal(event_window(event), owner);
    return passes_semi_modal(owner);
}

Widget top_modal_widget() { return state.modal.empty() ? nullptr : state.modal.back().widget; }

Widget yyMSReturnCurrentUserWidget() {
    if (const Widget modal = top_modal_widget()) return modal;
    if (wCurrentWindow >= 0) return window_slot(wCurrentWindow).shell_widget;
    return yydisplay.root_widget;
}

}  // namespace tesserakit
