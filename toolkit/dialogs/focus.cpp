// A number is looked at when its field loses the focus, to whatever window: a bad one marks the
// field, and the focus goes back to it as soon as the event is done with. Meanwhile, and when the
// next field is pressed before the focus has moved, what that field is sent is kept from its
// widget: what is locked out doesn't move on the screen either.

#include "toolkit/dialogs/focus.hpp"

#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/validity.hpp"

#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <Xm/PushB.h>
#include <Xm/Text.h>

#include <algorithm>
#include <set>

namespace tesserakit {
namespace {

struct State {
    FieldRecord* active = nullptr;  // got the focus last, in any dialog
    bool bFocusChange = false;      // the toolkit moves the focus, not the user
};
State& state = *new State;

void yyDGDefaultButtonMove(FieldRecord& focus) {
    DialogRecord& dialog = *focus.dialog;
    FieldRecord* framed = kind_of(focus).pressed_by_keys ? &focus : dialog.default_button;
    if (framed == dialog.framed_button || !dialog.default_button) return;
    if (dialog.framed_button) yyDGDefaultButtonAddRemove(*dialog.framed_button, false);
    if (framed) yyDGDefaultButtonAddRemove(*framed, true);
}

void post_move(const FieldRecord* from, const FieldRecord& to) {
    const bool same_dialog = from && from->dialog == to.dialog;
    Mail mail = dialog_mail(FieldChanged, *to.dialog,
                            same_dialog ? from->identifier : to.identifier, to.identifier);
    if (kind_of(to).has_cells) mail.value3 = 0;
    post(*to.dialog, mail);
}

void enter(FieldRecord& field) {
    DialogRecord& dialog = *field.dialog;
    state.active = &field;
    if (dialog.current_field != &field) dialog.previous_field = dialog.current_field;
    dialog.current_field = &field;
    yyDGDefaultButtonMove(field);
}

/// yyDGFieldFocusCB. A move from another window of the desktop is no change inside a dialog: it
/// raises nothing.
void focus_entered(FieldRecord& field) {
    if (!outermost(*field.dialog).shown()) return;
    FieldRecord* from = state.active;
    note_intruder(field);
    if (invalid_field() && invalid_field() != &field && !validate(*invalid_field())) return;
    if (from == &field) return;
    if (from && same_window(*from, field) && !validate(*from)) return;
    const bool told = from && same_window(*from, field) && !state.bFocusChange;
    enter(field);
    if (told) post_move(from, field);
}

/// The caret is shown in the field that has the focus only.
void show_caret(const FieldRecord& field, bool show) {
    if (typed_fields.has(field.type))
        XtVaSetValues(field.widget, XmNcursorPositionVisible, show ? True : False, nullptr);
}

/// The keyboard is with a list that the field's own dialog has opened, or with the window manager
/// for a moment: the focus comes back.
bool by_grab(const XFocusChangeEvent& event) {
    return event.mode == NotifyGrab || event.mode == NotifyUngrab;
}

void focus_left(FieldRecord& field) {
    if (state.active == &field && outermost(*field.dialog).shown()) validate(field);
}

void yyDGFieldChangeFocusEH(Widget, XtPointer client, XEvent* event, Boolean*) {
    FieldRecord& field = *static_cast<FieldRecord*>(client);
    // Also the window under the pointer hears when the focus comes to the window around it.
    const int detail = event->xfocus.detail;
    if (detail == NotifyPointer || detail == NotifyPointerRoot) return;
    const bool in = event->type == FocusIn;
    show_caret(field, in && field.state == FieldEnabled);
    if (in)
        focus_entered(field);
    else if (!by_grab(event->xfocus))
        focus_left(field);
}

/// Help is answered, and Escape ends the invalid state, whatever field they are sent to.
bool passes_lock(const FieldRecord& field, XEvent& event) {
    if (event.type == KeyPress) return XLookupKeysym(&event.xkey, 0) == XK_Escape;
    return kind_of(field).pressed_by_keys && field.identifier == invalid_field_help_button;
}

/// Comes before the widget's own handlers.
void keep_locked(Widget, XtPointer client, XEvent* event, Boolean* go_on) {
    FieldRecord& field = *static_cast<FieldRecord*>(client);
    if (passes_lock(field, *event)) return;
    if (event->type == ButtonPress && state.active != &field) commit_typing();
    if (locked_out(field)) *go_on = False;
}

/// The fields that the Tab key stops at, and among them `from`, which needs no tab stop: a click
/// gives the focus to any field.
void append_stops(DialogRecord& dialog, const FieldRecord* from, std::vector<FieldRecord*>& stops) {
    for (FieldRecord& field : dialog.fields) {
        // One that another field stands for is found by that one.
        const bool here = &field == from && !kind_of(field).tab_stop;
        if ((here || field.has_style(field_style::tab_stop)) && can_focus(field))
            stops.push_back(&tab_target(field));
        const auto page = kind_of(field).page;
        if (DialogRecord* inside = page ? page(field) : nullptr) append_stops(*inside, from, stops);
    }
}

}  // namespace

void watch_field(FieldRecord& field) {
    if (!field.focus_widget) return;
    XtAddEventHandler(field.focus_widget, FocusChangeMask, False, yyDGFieldChangeFocusEH, &field);
    constexpr EventMask input = ButtonPressMask | ButtonReleaseMask | KeyPressMask;
    for (const Widget widget : std::set{field.position_widget, field.widget, field.focus_widget})
        XtInsertEventHandler(widget, input, False, keep_locked, &field, XtListHead);
}

void enter_by_key(FieldRecord& field) {
    XmProcessTraversal(field.focus_widget, XmTRAVERSE_CURRENT);
    if (const auto entered = kind_of(field).entered_by_key) entered(field);
}

FieldRecord* focused_field(DialogRecord& dialog) {
    DialogRecord& outer = outermost(dialog);
    if (state.active && &outermost(*state.active->dialog) == &outer) return state.active;
    return outer.current_field;
}

/// In the order of the resource, the page in front behind its tab, around from the last to the
/// first.
void yyDGNextPreviousField(DialogRecord& dialog, FieldRecord* from, bool forward) {
    if (!commit_typing()) return;
    std::vector<FieldRecord*> stops;
    append_stops(outermost(dialog), from, stops);
    if (stops.empty()) return;
    if (!forward) std::ranges::reverse(stops);
    auto here = std::ranges::find_if(
        stops, [from](FieldRecord* stop) { return from && stop == &tab_target(*from); });
    if (here == stops.end() || ++here == stops.end()) here = stops.begin();
    enter_by_key(**here);
}

FieldRecord& tab_target(FieldRecord& field) {
    const auto tab_stop = kind_of(field).tab_stop;
    return tab_stop ? tab_stop(field) : field;
}

bool can_focus(const FieldRecord& field) {
    const DialogRecord& dialog = *field.dialog;
    const bool inside = field.box.x < dialog.width && field.box.y < dialog.height;
    return field.focus_widget && inside &&
           (field.state == FieldEnabled || field.state == FieldReadOnly) &&
           XtIsManaged(field.position_widget) && XtIsManaged(dialog.widget);
}

void move_focus(FieldRecord& field) {
    state.bFocusChange = true;
    XmProcessTraversal(field.focus_widget, XmTRAVERSE_CURRENT);
    state.bFocusChange = false;
}

FieldRecord* first_focus(DialogRecord& dialog) {
    std::vector<FieldRecord*> stops;
    append_stops(dialog, nullptr, stops);
    if (!stops.empty()) return stops.front();
    const auto any = std::ranges::find_if(dialog.fields, can_focus);
    return any == dialog.fields.end() ? nullptr : &*any;
}

bool commit_typing() { return !state.active || validate(*state.active); }

void revert_typing(DialogRecord& dialog) {
    FieldRecord* field = invalid_field() ? invalid_field() : state.active;
    if (!field || &outermost(*field->dialog) != &outermost(dialog) || !field->numeric) return;
    if (!text_is_valid(*field->numeric, widget_text(*field))) revert(*field);
}

void revert_focused(DialogRecord& dialog) {
    if (state.active && &outermost(*state.active->dialog) == &outermost(dialog))
        revert(*state.active);
}

void forget_focus(DialogRecord& dialog) {
    forget_validity(dialog);
    if (state.active && state.active->dialog == &dialog) state.active = nullptr;
}

void yyDGDefaultButtonAddRemove(FieldRecord& button, bool add) {
    XtVaSetValues(button.widget, XmNshowAsDefault, add ? 1 : 0, nullptr);
    button.dialog->framed_button = add ? &button : nullptr;
}

}  // namespace tesserakit
