// One step takes at most one event and answers at most one message; the poll and the modal loops
// both go by steps. What waits comes in this order: what was kept while a menu or a loop had the
// input, the mailbox's overflow, what a timer has posted, the next event.

#include "toolkit/messages/messages.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/messages/event_core.hpp"
#include "toolkit/messages/interpreters.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/modifier_masks.hpp"
#include "toolkit/messages/timers.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/event_masks.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/message_hooks.hpp"
#include "toolkit/windows/window_layout.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <initializer_list>
#include <utility>

namespace tesserakit {

constinit Interpreters interpreters{};

namespace {

/// The low-level steps for one event; a later step sees what the earlier ones left.
void yyMSInterpretMessageLowLevel(XEvent& event) {
    for (const auto interpret : {yyMSInterpretMessageCore, interpreters.editor_event,
                                 interpreters.bitmap_event, yyDGInterpretToolkit})
        if (interpret(event) == Outcome::Consumed) return;
    // Also for windows without a widget: input methods and Xt's own services look for theirs.
    XtDispatchEvent(&event);
}

/// What any message passes on its way out of the mailbox; its type is 0 when it ends here.
Mail on_its_way(Mail mail) {
    if (mail.type == 0) return mail;
    menu_hooks.end_tooltip();
    note_command(mail);
    if (interpreters.editor_message(mail) || interpreters.grid_message(mail)) return {};
    return message_enabled(mail.type) ? mail : Mail{};
}

Mail take_posted() { return pending_type() != 0 ? on_its_way(std::exchange(wXtMesg, {})) : Mail{}; }

/// What the X windows are asked for by the type's switch: keys, pointer and damage.
bool of_window_contents(int type) {
    return type == KeyDown || (type >= MouseButDown && type <= ExposeMessage) ||
           type == MouseButDblClick;
}

/// What the user does in an open menu isn't the application's; what the server and the widgets
/// tell is, once the menu has closed.
bool outlives_menu(const Mail& mail) {
    return mail.type == ExposeMessage || !of_window_contents(mail.type);
}

/// The next message for the application, in the order in which they came.
Mail yydispatchmessage(bool wait) {
    bInWMessage = true;
    wXtMesg = {};
    Mail mail;
    while (mail.type == 0) {
        if (!menu_hooks.active()) mail = take_kept();
        if (mail.type != 0) break;
        mail = yymessagestep(wait);
        if (mail.type == 0 || mail.type == NoMessage) continue;
        // The one that closed the menu comes behind what was kept.
        if (!menu_hooks.active() && !anything_kept()) continue;
        if (!menu_hooks.active() || outlives_menu(mail)) keep(mail);
        mail = {};
    }
    bInWMessage = false;
    return mail;
}

bool has_source(int type) {
    return of_window_contents(type) || type == Resize || type == BitmapScrolled;
}

DrawableScope source_of(const MessageRecord& record) {
    return record.VALUE3 == SourceField
               ? DrawableScope(DrawableType::Field, record.VALUE4, record.WIN)
               : DrawableScope(DrawableType::Window, record.WIN, 0);
}

void convert_position(MessageRecord& record) {
    float gx = 0.0f;
    float gy = 0.0f;
    yyi2e(record.X, drawable.height - 1 - record.Y, gx, gy);
    record.GX = graphics_word(gx);
    record.GY = graphics_word(gy);
    if (record.VALUE3 == SourceField) return;
    record.X = units_from_pixels(record.X, drawable.width);
    record.Y = units_from_pixels(record.Y, drawable.height);
}

void convert_extent(const Mail& mail, MessageRecord& record) {
    const int right = mail.x + mail.value1 - 1;
    const int bottom = mail.y + mail.value2 - 1;
    float left_units = 0.0f;
    float top_units = 0.0f;
    float right_units = 0.0f;
    float bottom_units = 0.0f;
    yyi2e(mail.x, drawable.height - 1 - mail.y, left_units, top_units);
    yyi2e(right, drawable.height - 1 - bottom, right_units, bottom_units);
    record.GW = graphics_word(right_units - left_units);
    record.GH = graphics_word(top_units - bottom_units);
    if (record.VALUE3 == SourceField) return;
    record.VALUE1 = units_from_pixels(right, drawable.width) - record.X;
    record.VALUE2 = units_from_pixels(bottom, drawable.height) - record.Y;
}

/// Fills the record, with positions in the units of its source.
void yyevent(const Mail& mail, MessageRecord& record) {
    record.WIN = mail.win;
    record.VALUE1 = mail.value1;
    record.VALUE2 = mail.value2;
    record.VALUE3 = mail.value3;
    record.VALUE4 = mail.value4;
    record.X = mail.x;
    record.Y = mail.y;
    record.TIME = mail.time;
    if (!has_source(mail.type)) return;
    const DrawableScope source = source_of(record);
    if (of_window_contents(mail.type)) convert_position(record);
    if (mail.type == ExposeMessage) convert_extent(mail, record);
}

void no_message(MessageRecord& record) {
    record.WIN = record.VALUE1 = record.VALUE2 = record.VALUE3 = record.VALUE4 = -1;
    record.X = record.Y = record.TIME = -1;
}

void deliver(const Mail& mail, int& type, MessageRecord& record) {
    type = mail.type;
    if (type < 1 || type > message_types) {
        type = NoMessage;
        no_message(record);
        return;
    }
    yyevent(mail, record);
    // A new size of the selected drawable counts from here on.
    if (type == Resize) refresh_drawable();
}

/// Windows with contents of their own may have something to ask first.
void close_request(int window) {
    const WindowType type = window_slot(window).type;
    const bool own =
        type == WindowType::Editor || type == WindowType::BitmapViewer || type == WindowType::Grid;
    if (own && interpreters.close(window)) return;
    yyDGSendTesserakitMessage(nullptr, {.type = CloseRequest, .win = window});
}

}  // namespace

void yyinfomessage(int type, int& state) { state = message_enabled(type) ? 1 : 0; }

bool event_waiting() {
    XtInputMask pending = XtAppPending(yydisplay.app);
    if (!(pending & XtIMXEvent) && pending != 0) {
        // XtAppNextEvent would run the timer and then block until an X event comes.
        XtAppProcessEvent(yydisplay.app, pending);
        pending = XtAppPending(yydisplay.app);
    }
    return (pending & XtIMXEvent) != 0;
}

Mail yyinterpretmessage() {
    // Not shared: a loop inside the dispatch reads events of its own.
    XEvent event;
    XtAppNextEvent(yydisplay.app, &event);
    if (yyMSCheckWinDiag(event)) {
        yyMSInterpretMessageLowLevel(event);
    } else if (event.type == ButtonPress && menu_hooks.active()) {
        menu_hooks.deactivate();
    }
    if (menu_hooks.active()) menu_hooks.next_event();
    return take_posted();
}

Mail yymessagestep(bool wait) {
    if (wXtMesg2.type != 0) return on_its_way(take_overflow());
    const bool event = event_waiting();
    // A timer of a widget may have posted, without an event.
    if (pending_type() != 0) return take_posted();
    if (event) return yyinterpretmessage();
    if (!wait) return {.type = NoMessage};
    yywaitdisplay(idle_tick_ms);
    return {};
}

bool message_waiting() { return !menu_hooks.active() && (anything_kept() || wXtMesg2.type != 0); }

void wmessage(int& type, MessageRecord& record) {
    if (!yydisplay.display) {
        type = NoMessage;
        no_message(record);
        return;
    }
    do deliver(yydispatchmessage(true), type, record);
    while (type == NoMessage);
}

void wmessagepeek(int& type, MessageRecord& record) {
    deliver(yydisplay.display ? yydispatchmessage(false) : Mail{}, type, record);
}

void wmessageenable(int type, int state) {
    if (type < 1 || type > message_types) return;
    set_message_enabled(type, state == 1);
    if (type == TimerExpired) TimerEnabled = state == 1;
    if (!of_window_contents(type) || !yydisplay.display) return;
    apply_message_masks(bPointerGrabbed);
}

void install_messages() {
    message_hooks = {
        .open =
            [] {
                load_message_defaults();
                load_modifier_masks();
                TimerEnabled = message_enabled(TimerExpired);
            },
        .close_request = close_request,
        .window_closes =
            [](int window) {
                yyMSSemiAddRemove(-1, window_object, window);
                drop_kept_of_window(window);
            },
        .shut_down =
            [] {
                cancel_timers();
                clear_mailbox();
            },
    };
}

}  // namespace tesserakit
