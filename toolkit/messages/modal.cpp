#include "toolkit/messages/modal.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/windows/dialog_hooks.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace tesserakit {

constinit bool bModalMessageLoop = false;
constinit int nModalWindows = 0;
constinit int wObjCur = -1;
constinit int wObjCurType = 0;

namespace {

struct ModalEntry {
    Widget widget = nullptr;
    int index = -1;
};

struct State {
    std::vector<ModalEntry> modal;  // the innermost last
    bool command_in_dialog = false;
    int command_place = -1;  // window slot or dialog identifier of the last command, -1 none
};
State& state = *new State;

/// With a modal or semi-modal object up only that one may change its size.
bool may_resize(int window) {
    if (!state.modal.empty())
        return window_slot(window).shell_widget == shell_around(state.modal.back().widget);
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

bool visible(Widget shell) {
    XWindowAttributes attributes;
    return shell && XtIsRealized(shell) &&
           XGetWindowAttributes(yydisplay.display, XtWindow(shell), &attributes) &&
           attributes.map_state == IsViewable;
}

Widget shell_of_window(int window) {
    return window >= 0 && window < window_slots ? window_slot(window).shell_widget : nullptr;
}

Widget shell_of_command() {
    if (!state.command_in_dialog) return shell_of_window(state.command_place);
    return shell_around(dialog_hooks.widget(dialog_hooks.slot(state.command_place)));
}

bool from_dialog(const Mail& mail) {
    return mail.type == PushButton || mail.type == FieldChanged || mail.type == TabChanged ||
           mail.value3 == SourceField;
}

/// What a user does on purpose: a command may come of it.
bool may_be_command(int type) {
    return type != ExposeMessage && type != Resize && type != MouseMove && type != TimerExpired;
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

/// The widget that an X window belongs to; bars and menus of a window belong to its shell.
Widget widget_of(Window window, const WindowOwner& owner) {
    if (const Widget widget = XtWindowToWidget(yydisplay.display, window)) return widget;
    return owner.window >= 0 ? window_slot(owner.window).shell_widget : nullptr;
}

/// What belongs to the top entry is all inside its shell: the window manager's requests come to
/// the shell itself, and lists that pop up are its children. The shells of common dialogs are
/// unknown but to the stack.
bool passes_modal(Window window, const WindowOwner& owner) {
    const Widget widget = widget_of(window, owner);
    if (within(widget, shell_around(state.modal.back().widget))) return true;
    return !known(owner) && !in_modal_stack(widget);
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

bool in_modal_stack(Widget widget) {
    return std::ranges::any_of(state.modal, [widget](const ModalEntry& entry) {
        return within(widget, shell_around(entry.widget));
    });
}

void note_command(const Mail& mail) {
    if (!may_be_command(mail.type)) return;
    state.command_in_dialog = from_dialog(mail);
    state.command_place = mail.win;
}

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
    // A box that hangs on a window that isn't on the screen isn't there either, and has all input.
    const Widget modal = top_modal_widget();
    if (visible(shell_around(modal))) return modal;
    for (const Widget shell : {shell_of_command(), shell_of_window(wCurrentWindow)})
        if (visible(shell)) return shell;
    for (const WindowSlot& slot : windows)
        if (visible(slot.shell_widget)) return slot.shell_widget;
    return yydisplay.root_widget;
}

}  // namespace tesserakit
