// One X event becomes at most one message. Each handler leaves it in wXtMesg, and answers whether
// the event goes on to the widgets; a message of a disabled type is never written, so that what a
// callback has posted stays as it is.
//
// While a menu is open keys, buttons and moves are the menu's: whatever the menu says of one, it
// goes no further, or it would also fire a mnemonic, type into a text or press a button.

#include "toolkit/messages/event_core.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/focus.hpp"
#include "toolkit/messages/key_codes.hpp"
#include "toolkit/messages/modifier_masks.hpp"
#include "toolkit/messages/snapshots.hpp"
#include "toolkit/messages/timers.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/dialog_hooks.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace tesserakit {

constinit bool bPointerGrabbed = false;

namespace {

constexpr int help_button = 9;
constexpr std::int32_t double_click_ms = 500;

struct State {
    Time iLastClickTime = 0;
    unsigned iLastClickButton = 0;
    unsigned consumed_buttons = 0;  // a bit each, from the press to its release
};
constinit State state{};

std::int32_t server_time(Time time) { return static_cast<std::int32_t>(time); }

void put_message(const Mail& mail) {
    if (message_enabled(mail.type)) wXtMesg = mail;
}

WindowSlot& slot_of(const WindowOwner& owner) { return window_slot(owner.window); }

// Keys

struct Key {
    KeySym keysym = 0;
    std::array<char, 20> text{};
    int length = 0;
};

Key look_up(XKeyEvent& event) {
    Key key;
    key.length = XLookupString(&event, key.text.data(), static_cast<int>(key.text.size()),
                               &key.keysym, nullptr);
    return key;
}

/// The dialog that a key is typed in: the innermost around the window, or the one that fills it.
DialogPlace dialog_of_key(const WindowOwner& owner) {
    if (owner.dialog.slot >= 0 || owner.window < 0) return owner.dialog;
    const int hosted = slot_of(owner).dialog;
    return hosted >= 0 ? dialog_hooks.place(dialog_hooks.widget(hosted)) : DialogPlace{};
}

void ask_for_help(const DialogPlace& dialog, const XKeyEvent& event) {
    yyDGSendTesserakitMessage(dialog_hooks.posting(dialog.slot),
                              {.type = PushButton,
                               .value1 = help_button,
                               .value2 = dialog.field != 0 ? dialog.field : help_button,
                               .value3 = -1,
                               .value4 = -1,
                               .x = -1,
                               .y = -1,
                               .win = dialog.identifier,
                               .time = server_time(event.time)});
}

void select_by_key(const XKeyEvent& event, int window, int item) {
    put_message({.type = MenuSelect,
                 .value1 = item,
                 .x = event.x,
                 .y = event.y,
                 .win = window,
                 .time = server_time(event.time)});
}

void key_down(const XKeyEvent& event, const Key& key, int window) {
    const int code = yyMSInterpretKey(
        key.keysym, std::string_view(key.text.data(), static_cast<std::size_t>(key.length)),
        (event.state & ShiftMask) != 0, (event.state & ControlMask) != 0);
    if (code == 0) return;
    // VALUE2 of a key means nothing, and stays what an earlier step has left there.
    put_message({.type = KeyDown,
                 .value1 = code,
                 .value2 = wXtMesg.value2,
                 .x = event.x,
                 .y = event.y,
                 .win = window,
                 .time = server_time(event.time)});
}

/// A key that is the menus' own: in an open menu, a mnemonic, or an accelerator.
bool key_of_menu(const XKeyEvent& event, KeySym key, int window) {
    const bool open = menu_hooks.active();
    if (!open && window < 0) return false;
    MenuAnswer answer = menu_hooks.interpret_key(key, window, event.state);
    if (!open && !answer.consumed && answer.item == 0)
        answer.item = menu_hooks.interpret_accelerator(key, window, event.state);
    if (answer.item != 0) select_by_key(event, window, answer.item);
    return open || answer.consumed || answer.item != 0;
}

Outcome key_press(XEvent& event) {
    const WindowOwner owner = yygetparenthandle(event.xkey.window);
    const Key key = look_up(event.xkey);
    const DialogPlace dialog = dialog_of_key(owner);
    const bool help = dialog.slot >= 0 && (key.keysym == XK_F1 || key.keysym == XK_KP_F1);
    if (help && !menu_hooks.active()) {
        ask_for_help(dialog_hooks.focus(dialog.slot), event.xkey);
        return Outcome::GoesOn;
    }
    if (key_of_menu(event.xkey, key.keysym, owner.window)) return Outcome::Consumed;
    if (owner.window < 0 || slot_of(owner).type != WindowType::Plain || owner.dialog.slot >= 0)
        return Outcome::GoesOn;
    key_down(event.xkey, key, owner.window);
    return Outcome::GoesOn;
}

// Pointer

/// MouseButDown or MouseButDblClick; the time of every press counts, also of a double click's.
int press_type(const XButtonEvent& event) {
    const bool again = event.button == state.iLastClickButton &&
                       event.time - state.iLastClickTime < double_click_ms;
    state.iLastClickTime = event.time;
    state.iLastClickButton = event.button;
    return again && message_enabled(MouseButDblClick) ? MouseButDblClick : MouseButDown;
}

Mail button_mail(const XButtonEvent& event) {
    return {.type = event.type == ButtonPress ? press_type(event) : int{MouseButUp},
            .value1 = static_cast<std::int32_t>(event.button),
            .value2 = yymousemodifiers(event.state),
            .x = event.x,
            .y = event.y,
            .time = server_time(event.time)};
}

/// VALUE1 of a move in a window means nothing, and stays what an earlier step has left there.
Mail motion_mail(const XMotionEvent& event) {
    return {.type = MouseMove,
            .value1 = wXtMesg.value1,
            .value2 = yymousemodifiers(event.state),
            .x = event.x,
            .y = event.y,
            .time = server_time(event.time)};
}

Mail from_window(Mail mail, int window) {
    mail.value3 = SourceWindow;
    mail.win = window;
    return mail;
}

Mail from_field(Mail mail, const DialogPlace& place) {
    mail.value3 = SourceField;
    mail.value4 = place.field;
    mail.win = place.identifier;
    return mail;
}

/// A button that is the menus' own. A press outside an open menu closes it, and isn't told.
bool button_of_menu(const XButtonEvent& event, int window) {
    const bool open = menu_hooks.active();
    const MenuAnswer answer = menu_hooks.interpret_button(event, window);
    if (answer.item != 0) put_message({.type = MenuSelect, .value1 = answer.item, .win = window});
    if (answer.consumed || answer.item != 0) return true;
    if (open && event.type == ButtonPress) menu_hooks.deactivate();
    return open;
}

/// Whether a button goes on. The release of a press that didn't go on stays behind with it.
bool keeps_button(const XButtonEvent& event, int window) {
    const unsigned bit = 1U << (event.button & 31U);
    const bool menu = button_of_menu(event, window);
    const bool pair = event.type == ButtonRelease && (state.consumed_buttons & bit) != 0;
    state.consumed_buttons &= ~bit;
    if (menu && event.type == ButtonPress) state.consumed_buttons |= bit;
    return menu || pair;
}

Outcome button(XEvent& event) {
    const bool press = event.type == ButtonPress;
    bPointerGrabbed = press;
    const WindowOwner owner = yygetparenthandle(event.xbutton.window);
    if (keeps_button(event.xbutton, owner.window)) return Outcome::Consumed;
    if (owner.kind != WindowKind::Client) return Outcome::GoesOn;
    if (press) take_focus(slot_of(owner), event.xbutton.time);
    put_message(from_window(button_mail(event.xbutton), owner.window));
    return Outcome::GoesOn;
}

Outcome motion(XEvent& event) {
    if (menu_hooks.active()) return Outcome::Consumed;
    const WindowOwner owner = yygetparenthandle(event.xmotion.window);
    if (owner.kind == WindowKind::Client)
        put_message(from_window(motion_mail(event.xmotion), owner.window));
    return Outcome::GoesOn;
}

/// Widgets are told too: each enter has its leave, before and after a menu.
Outcome crossing(XEvent& event) {
    menu_hooks.crossing(event.xcrossing);
    return Outcome::GoesOn;
}

Outcome focus_in(XEvent& event) {
    yyfocustosubwin(event.xfocus);
    return Outcome::GoesOn;
}

// Damage and size

Mail expose_mail(const XExposeEvent& event) {
    return {.type = ExposeMessage,
            .value1 = event.width,
            .value2 = event.height,
            .x = event.x,
            .y = event.y};
}

/// All damage of an event's window as one rectangle; false when the toolkit repaired it itself.
bool damage(XExposeEvent& event) {
    XFlush(yydisplay.display);
    XSync(yydisplay.display, False);
    yyclearevents(event);
    return !repair_from_snapshot(event.window, event);
}

Outcome expose(XEvent& event) {
    const WindowOwner owner = yygetparenthandle(event.xexpose.window);
    switch (owner.kind) {
        case WindowKind::Client:
            if (damage(event.xexpose))
                put_message(from_window(expose_mail(event.xexpose), owner.window));
            break;
        case WindowKind::MenuBar:
        case WindowKind::MenuPopUp:
        case WindowKind::MenuItem:
            menu_hooks.draw(event.xexpose.window);
            break;
        case WindowKind::StatusBar:
            yystatusbardraw(*window_slot(owner.window).status_bar);
            break;
        default:
            break;
    }
    return Outcome::GoesOn;
}

/// The content's place on the screen: a reparented window's own events count from its frame.
void store_position(WindowSlot& slot) {
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, slot.shell, yydisplay.root, 0, 0, &slot.x, &slot.y,
                          &child);
}

void window_configured(WindowSlot& slot, int window, const XConfigureEvent& event) {
    store_position(slot);
    if (!yywindowresize(window, event.width, event.height)) return;
    XClearWindow(yydisplay.display, slot.client);
    if (slot.type == WindowType::Editor) return;
    put_message({.type = Resize,
                 .value1 = slot.width,
                 .value2 = slot.height,
                 .x = slot.x,
                 .y = slot.y,
                 .win = window});
}

void dialog_configured(const DialogPlace& dialog, const XConfigureEvent& event) {
    if (!dialog_hooks.shell_resized(dialog.slot, event.width, event.height)) return;
    put_message({.type = Resize,
                 .value1 = event.width,
                 .value2 = event.height,
                 .value3 = SourceField,
                 .x = event.x,
                 .y = event.y,
                 .win = dialog.identifier});
}

Outcome configure(XEvent& event) {
    const Widget widget = XtWindowToWidget(yydisplay.display, event.xconfigure.window);
    if (!widget || !XtIsShell(widget)) return Outcome::GoesOn;
    const WindowOwner owner = yygetparenthandle(event.xconfigure.window);
    if (owner.window < 0 && owner.dialog.slot < 0) return Outcome::GoesOn;
    XFlush(yydisplay.display);
    XSync(yydisplay.display, False);
    yyclearevents(event.xconfigure);
    if (owner.window >= 0) {
        window_configured(slot_of(owner), owner.window, event.xconfigure);
    } else {
        dialog_configured(owner.dialog, event.xconfigure);
    }
    return Outcome::GoesOn;
}

// The rest

Outcome client_message(XEvent& event) {
    const XClientMessageEvent& message = event.xclient;
    if (TimerEnabled && message.format == 32 && message.data.l[0] == timer_message &&
        message.window == windows[0].window)
        put_message({.type = TimerExpired, .value1 = static_cast<std::int32_t>(message.data.l[1])});
    return Outcome::GoesOn;
}

Outcome mapping(XEvent& event) {
    XRefreshKeyboardMapping(&event.xmapping);
    load_modifier_masks();
    return Outcome::GoesOn;
}

struct Handler {
    int type;
    Outcome (*handle)(XEvent&);
};

constexpr std::array handlers{
    Handler{KeyPress, key_press},        Handler{ButtonPress, button},
    Handler{ButtonRelease, button},      Handler{MotionNotify, motion},
    Handler{EnterNotify, crossing},      Handler{LeaveNotify, crossing},
    Handler{FocusIn, focus_in},          Handler{Expose, expose},
    Handler{ConfigureNotify, configure}, Handler{ClientMessage, client_message},
    Handler{MappingNotify, mapping},
};

// User-drawn fields

void field_motion(const XMotionEvent& event, const DialogPlace& place) {
    Mail mail = from_field(motion_mail(event), place);
    mail.value1 = -1;
    put_message(mail);
}

void field_expose(XExposeEvent& event, const DialogPlace& place) {
    if (damage(event)) put_message(from_field(expose_mail(event), place));
}

}  // namespace

int yymousemodifiers(unsigned state_word) {
    int bits = 0;
    if (state_word & ControlMask) bits |= ModifierControl;
    if (state_word & ShiftMask) bits |= ModifierShift;
    if (state_word & Button1Mask) bits |= ModifierButton1;
    if (state_word & Button2Mask) bits |= ModifierButton2;
    if (state_word & Button3Mask) bits |= ModifierButton3;
    return bits;
}

void yyclearevents(XExposeEvent& event) {
    Region region = XCreateRegion();
    XEvent next;
    next.xexpose = event;
    do {
        XRectangle box{static_cast<short>(next.xexpose.x), static_cast<short>(next.xexpose.y),
                       static_cast<unsigned short>(next.xexpose.width),
                       static_cast<unsigned short>(next.xexpose.height)};
        XUnionRectWithRegion(&box, region, region);
    } while (XCheckTypedWindowEvent(yydisplay.display, event.window, Expose, &next));
    XRectangle clip;
    XClipBox(region, &clip);
    XDestroyRegion(region);
    event.x = clip.x;
    event.y = clip.y;
    event.width = clip.width;
    event.height = clip.height;
    event.count = 0;
}

void yyclearevents(XConfigureEvent& event) {
    // Other structure events stay: Motif's shells follow reparenting and mapping by them.
    XEvent next;
    while (XCheckTypedWindowEvent(yydisplay.display, event.window, ConfigureNotify, &next))
        event = next.xconfigure;
}

Outcome yyMSInterpretMessageCore(XEvent& event) {
    const auto found = std::ranges::find(handlers, event.type, &Handler::type);
    return found == handlers.end() ? Outcome::GoesOn : found->handle(event);
}

Outcome yyDGInterpretToolkit(XEvent& event) {
    const Widget widget = XtWindowToWidget(yydisplay.display, event.xany.window);
    if (!widget) return Outcome::GoesOn;
    const DialogPlace place = dialog_hooks.place(widget);
    if (place.slot < 0 || !place.user_drawn) return Outcome::GoesOn;
    switch (event.type) {
        case ButtonPress:
        case ButtonRelease:
            put_message(from_field(button_mail(event.xbutton), place));
            break;
        case MotionNotify:
            field_motion(event.xmotion, place);
            break;
        case Expose:
            field_expose(event.xexpose, place);
            break;
        default:
            break;
    }
    return Outcome::GoesOn;
}

}  // namespace tesserakit
