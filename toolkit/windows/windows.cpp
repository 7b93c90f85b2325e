#include "toolkit/windows/windows.hpp"

#include "common/fixed_text.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/base/window_icon.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/timers.hpp"
#include "toolkit/widgets/wind.hpp"
#include "toolkit/windows/bitmaps.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/gl_target.hpp"

#include <X11/IntrinsicP.h>
#include <X11/Shell.h>
#include <X11/Xutil.h>
#include <Xm/DialogS.h>
#include <Xm/DrawingA.h>
#include <Xm/Protocols.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdint>

namespace tesserakit {

std::array<WindowSlot, window_slots>& windows = *new std::array<WindowSlot, window_slots>;
constinit int wCurrentWindow = -1;

namespace {

constexpr char application_class[] = "Tess";

WindowSlot& slot_of(int window) { return windows[static_cast<std::size_t>(window)]; }

Dimension dimension(int value) { return static_cast<Dimension>(std::clamp(value, 1, 32767)); }

Surroundings surroundings_of(int window) {
    const WindowSlot& slot = slot_of(window);
    Surroundings around;
    around.menu_height = yymnheight(window);
    around.status_height = slot.status_bar ? isbarHeight() : 0;
    for (std::size_t side = 0; side < 4; ++side)
        if (slot.toolbars[side]) around.toolbar[side] = slot.toolbars[side]->thickness;
    return around;
}

/// What a window will have around its client area, before it is built.
Surroundings surroundings_of(const WindowRequest& request) {
    Surroundings around;
    around.menu_height = yymnheightof(request.menu);
    around.status_height = (request.flags & WindowStatusBar) != 0 ? isbarHeight() : 0;
    for (int side = 0; side < 4; ++side)
        around.toolbar[side] =
            yymntbarthickness(side, request.toolbars[static_cast<std::size_t>(side)]);
    return around;
}

bool is_owned(int flags) { return (flags & (WindowOwned | WindowInsideParent)) != 0; }

void yyWindowWMCloseCB(Widget, XtPointer closure, XtPointer) {
    const int window = static_cast<int>(reinterpret_cast<std::intptr_t>(closure));
    yyDGSendTesserakitMessage(nullptr, {.type = CloseRequest, .win = window});
}

Widget create_shell(const WindowSlot& slot, bool root) {
    const bool owned = is_owned(slot.flags) && slot.parent >= 0;
    WidgetClass kind = owned ? xmDialogShellWidgetClass : topLevelShellWidgetClass;
    if (root) kind = applicationShellWidgetClass;
    const Widget shell =
        owned ? XtVaCreatePopupShell("Window", kind, slot_of(slot.parent).shell_widget, nullptr)
              : XtVaAppCreateShell(nullptr, application_class, kind, yydisplay.display, nullptr);
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, XmNautoUnmanage, False,
                  XmNmappedWhenManaged, False, XmNallowShellResize, False, nullptr);
    return shell;
}

void create_widgets(WindowSlot& slot, int width, int height, bool root) {
    slot.shell_widget = create_shell(slot, root);
    slot.window_widget = XtVaCreateManagedWidget(
        "MainWindow", xmDrawingAreaWidgetClass, slot.shell_widget, XmNmarginWidth, 0,
        XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE, XmNbackground, wSchemeCol.background,
        XmNwidth, dimension(width), XmNheight, dimension(height), nullptr);
    slot.client_widget =
        XtVaCreateWidget("ClientWindow", windWidgetClass, slot.window_widget, XmNbackground,
                         wSchemeCol.white, XmNborderWidth, 0, XmNwidth, dimension(slot.width),
                         XmNheight, dimension(slot.height), nullptr);
    XtRealizeWidget(slot.shell_widget);
    XtRealizeWidget(slot.client_widget);
    slot.shell = XtWindow(slot.shell_widget);
    slot.window = XtWindow(slot.window_widget);
    slot.client = XtWindow(slot.client_widget);
    slot.colormap = yydisplay.colormap;
    slot.depth = yydisplay.depth;
    apply_message_mask(slot.client_widget);
}

void set_hints(const WindowSlot& slot, int width, int height) {
    XSizeHints hints{};
    hints.flags = USPosition | PPosition | PSize;
    hints.x = slot.x;
    hints.y = slot.y;
    hints.width = width;
    hints.height = height;
    if ((slot.flags & WindowFixedSize) != 0) {
        hints.flags |= PMinSize | PMaxSize;
        hints.min_width = hints.max_width = width;
        hints.min_height = hints.max_height = height;
        XtVaSetValues(slot.shell_widget, XmNminWidth, width, XmNmaxWidth, width, XmNminHeight,
                      height, XmNmaxHeight, height, nullptr);
    }
    XtVaSetValues(slot.shell_widget, XmNx, slot.x, XmNy, slot.y, nullptr);
    XSetWMNormalHints(yydisplay.display, slot.shell, &hints);
}

void build_parts(int window, const WindowRequest& request) {
    yymncreate(request.menu, window);
    for (int side = 0; side < 4; ++side)
        yymntbar(side, request.toolbars[static_cast<std::size_t>(side)], window);
    if ((request.flags & WindowStatusBar) != 0) yystatusbarcreate(window);
}

void show(WindowSlot& slot) {
    slot.visible = (slot.flags & WindowHidden) == 0;
    if (!slot.visible) return;
    // Popup shells are unknown to their parent until they are popped up.
    if (XtIsSubclass(slot.shell_widget, xmDialogShellWidgetClass)) {
        XtVaSetValues(slot.shell_widget, XmNmappedWhenManaged, True, nullptr);
        XtPopup(slot.shell_widget, XtGrabNone);
    } else {
        XtMapWidget(slot.shell_widget);
    }
}

void listen_to_window_manager(const WindowSlot& slot, int window) {
    XmAddWMProtocolCallback(slot.shell_widget, yydisplay.wm_delete_window, yyWindowWMCloseCB,
                            reinterpret_cast<XtPointer>(static_cast<std::intptr_t>(window)));
}

/// Frame size and client size that a request comes to, and the flags with them.
struct Plan {
    int status = 0;  ///< of the dialog
    int flags = 0;
    Box client;  ///< position is the shell's
};

void plan_dialog(Plan& plan, int dialog) {
    const HostedDialog hosted = yyDGhostcheck(dialog);
    plan.status = hosted.status;
    if (hosted.status != 0) return;
    plan.client.width = hosted.width;
    plan.client.height = hosted.height;
    if (hosted.resizable) return;
    plan.flags |= WindowFixedSize;
    plan.flags &= ~int{WindowFrameSizing};
}

Plan plan_on_screen(const WindowRequest& request) {
    Plan plan{.flags = request.flags};
    plan.client.width = default_extent(request.width, yydisplay.width);
    plan.client.height = default_extent(request.height, yydisplay.height);
    if (request.dialog != 0) plan_dialog(plan, request.dialog);
    const Surroundings around = surroundings_of(request);
    plan.client.x =
        default_position(request.x, plan.client.width + around.horizontal(), yydisplay.width);
    plan.client.y =
        default_position(request.y, plan.client.height + around.vertical(), yydisplay.height);
    return plan;
}

/// yymngetposabsolute: a place in the parent's client area as a place on the screen.
Plan plan_inside(const WindowRequest& request, const WindowSlot& parent) {
    Plan plan{.flags = request.flags};
    plan.client = inside_parent(request.x, request.y, request.width, request.height, parent.width,
                                parent.height);
    if (request.dialog != 0) plan_dialog(plan, request.dialog);
    // The dialog's size is not the one that the request was centred with.
    if (request.x == window_centred) plan.client.x = (parent.width - plan.client.width) / 2;
    if (request.y == window_centred) plan.client.y = (parent.height - plan.client.height) / 2;
    int left = 0;
    int top = 0;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, parent.client, yydisplay.root, 0, 0, &left, &top,
                          &child);
    plan.client.x += left;
    plan.client.y += top;
    return plan;
}

/// Builds slot `window`; answers 0 or the dialog's negative status.
int yycreatewindow(int window, const WindowRequest& request, const Plan& plan, int parent) {
    WindowSlot& slot = slot_of(window);
    slot = {};
    slot.flags = plan.flags;
    slot.parent = parent;
    slot.x = plan.client.x;
    slot.y = plan.client.y;
    slot.width = plan.client.width;
    slot.height = plan.client.height;
    const Surroundings around = surroundings_of(request);
    const int width = slot.width + around.horizontal();
    const int height = slot.height + around.vertical();
    create_widgets(slot, width, height, window == 0);
    yywindowtitle(window, request.title);
    build_parts(window, request);
    set_window_icon(slot.shell_widget);
    listen_to_window_manager(slot, window);
    int status = plan.status;
    if (request.dialog != 0 && status == 0) {
        slot.dialog = yyDGhost(request.dialog, window, slot.window_widget);
        status = std::min(slot.dialog, 0);
        slot.dialog = std::max(slot.dialog, -1);
        if (status == 0) {
            slot.type = WindowType::Dialog;
            yyDGmakecurrent(slot.dialog);
        }
    }
    if (slot.dialog < 0) XtManageChild(slot.client_widget);
    yywindowresize(window, width, height);
    set_hints(slot, width, height);
    show(slot);
    return status;
}

void report_dialog(int status) {
    switch (status) {
        case 0:
            return;
        case -1:
            yyerror(DialogNotInResource, "WindowOpen");
            return;
        case -2:
            yyerror(DialogStyleUnsuitable, "WindowOpen");
            return;
        default:
            yyerror(DialogNotOpened, "WindowOpen");
            return;
    }
}

int reserved_colours(int asked) { return asked == 32 || asked == 64 || asked == 128 ? asked : 16; }

/// Why a parent can't hold a window inside its client area, 0 when it can.
int parent_status(int parent) {
    if (parent < 0 || parent >= window_slots || !slot_of(parent).open()) return -5;
    const WindowSlot& slot = slot_of(parent);
    if (!slot.visible) return -2;
    if (slot.type == WindowType::Dialog) return -3;
    return slot.type == WindowType::Plain ? 0 : -4;
}

bool dialog_loaded(int dialog) { return dialog != 0 && yyDGslot(dialog) >= 0; }

void show_error(std::string_view text) { yysetstatustext2(0, 1, text); }

void first_window() {
    load_message_defaults();
    TimerEnabled = message_enabled(TimerExpired);
    yycolorschemeinit();
    yyResourceImageInit();
    yyDGInit();
    error_display = show_error;
}

Widget nearest_shell(Widget widget) {
    while (widget && !XtIsShell(widget)) widget = XtParent(widget);
    return widget;
}

int slot_of_shell(Widget shell) {
    const auto found = std::ranges::find(windows, shell, &WindowSlot::shell_widget);
    return shell && found != windows.end() ? static_cast<int>(found - windows.begin()) : -1;
}

/// Windows that the toolkit draws without a widget.
WindowOwner owner_of_drawn(Window window) {
    for (int i = 0; i < window_slots; ++i) {
        const WindowSlot& slot = slot_of(i);
        if (slot.menu && slot.menu->window == window) return {WindowKind::MenuBar, i, {}};
        if (!slot.status_bar) continue;
        if (std::ranges::find(slot.status_bar->parts, window, &StatusPart::window) !=
            slot.status_bar->parts.end())
            return {WindowKind::StatusBar, i, {}};
    }
    return {};
}

void close_children(int window) {
    for (int i = 1; i < window_slots; ++i)
        if (slot_of(i).open() && slot_of(i).parent == window && is_owned(slot_of(i).flags))
            yyclosechild(i);
}

void destroy_widgets(int window) {
    WindowSlot& slot = slot_of(window);
    gl_forget_window(window);
    if (slot.dialog >= 0) {
        gl_forget_dialog(slot.dialog);
        yyDGunload(slot.dialog);
    }
    yymndestroy(window);
    for (int side = 0; side < 4; ++side) yymntbardestroy(side, window);
    XtDestroyWidget(slot.shell_widget);
    slot = {};
}

void select_root() {
    wCurrentWindow = slot_of(0).open() ? 0 : -1;
    yygrselectwindow(wCurrentWindow);
}

void yyshutdown() {
    gl_shutdown();
    cancel_timers();
    // Dialogs first: their shells hang on the root window's, and end with it.
    yyDGshutdown();
    for (WindowSlot& slot : windows) slot.dialog = -1;
    for (int i = window_slots - 1; i >= 0; --i)
        if (slot_of(i).open()) yyclosechild(i);
    free_bitmaps();
    wCurrentWindow = -1;
    yygrselectnone();
    clear_mailbox();
    error_display = nullptr;
}

/// With a modal or semi-modal object up only that one may change its size.
bool may_resize(int window) {
    if (nModalWindows > 0) return false;
    return wObjCurType == 0 || (wObjCurType == 1 && wObjCur == window);
}

void hold_size(const WindowSlot& slot, bool free) {
    if ((slot.flags & WindowFixedSize) != 0) return;
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(slot.shell_widget, XmNwidth, &width, XmNheight, &height, nullptr);
    const int none = XtUnspecifiedShellInt;
    XtVaSetValues(slot.shell_widget, XmNminWidth, free ? none : width, XmNmaxWidth,
                  free ? none : width, XmNminHeight, free ? none : height, XmNmaxHeight,
                  free ? none : height, nullptr);
}

}  // namespace

WindowSlot* open_window(int window, std::string_view routine) {
    if (window >= 0 && window < window_slots && slot_of(window).open()) return &slot_of(window);
    yyerror(InvalidWindow, routine, window);
    return nullptr;
}

WindowOwner yygetparenthandle(Window window) {
    const Widget widget = XtWindowToWidget(yydisplay.display, window);
    if (!widget) return owner_of_drawn(window);
    WindowOwner owner;
    owner.window = slot_of_shell(nearest_shell(widget));
    owner.dialog = yyDGplace(widget);
    if (owner.dialog.slot >= 0) {
        owner.kind = WindowKind::Dialog;
    } else if (owner.window >= 0) {
        owner.kind =
            slot_of(owner.window).client_widget == widget ? WindowKind::Client : WindowKind::Frame;
    }
    return owner;
}

bool yywindowresize(int window, int shell_width, int shell_height) {
    WindowSlot& slot = slot_of(window);
    yymnresize(window, shell_width);
    const WindowLayout layout = layout_window(shell_width, shell_height, surroundings_of(window));
    for (int side = 0; side < 4; ++side) yymntbarresize(side, window, layout.toolbar[side]);
    const auto place = [](Widget widget, const Box& box) {
        XtConfigureWidget(widget, static_cast<Position>(box.x), static_cast<Position>(box.y),
                          dimension(box.width), dimension(box.height), 0);
    };
    if (slot.status_bar) {
        place(slot.status_bar->widget, layout.status);
        yystatusbarresize(window, layout.status.width);
    }
    const Box& client = layout.client;
    place(slot.client_widget, client);
    if (slot.dialog >= 0)
        yyDGhostplace(slot.dialog, client.x, client.y, client.width, client.height);
    const bool changed = slot.width != client.width || slot.height != client.height;
    slot.width = client.width;
    slot.height = client.height;
    return changed;
}

void yywindowfit(int window, int client_width, int client_height) {
    const Surroundings around = surroundings_of(window);
    const int width = client_width + around.horizontal();
    const int height = client_height + around.vertical();
    const WindowSlot& slot = slot_of(window);
    XtVaSetValues(slot.shell_widget, XmNwidth, dimension(width), XmNheight, dimension(height),
                  nullptr);
    yywindowresize(window, width, height);
}

void yyMSWindowUpdateResize() {
    for (int i = 0; i < window_slots; ++i)
        if (slot_of(i).open()) hold_size(slot_of(i), may_resize(i));
}

int yygetnextfree() {
    for (int i = 1; i < window_slots; ++i)
        if (!slot_of(i).open()) return i;
    return -1;
}

void yywindowtitle(int window, std::string_view title) {
    WindowSlot& slot = slot_of(window);
    slot.title = without_trailing_blanks(title);
    // Motif puts the application's name in place of an empty title.
    const std::string shown = slot.title.empty() ? " " : slot.title;
    XtVaSetValues(slot.shell_widget, XmNtitle, shown.c_str(), XmNiconName, shown.c_str(), nullptr);
}

Widget yydialogparent() {
    const WindowSlot& root = slot_of(0);
    return root.open() && root.visible ? root.shell_widget : yydisplay.root_widget;
}

Widget yyMSReturnCurrentUserWidget() {
    if (const Widget modal = top_modal_widget()) return modal;
    if (wCurrentWindow >= 0) return slot_of(wCurrentWindow).shell_widget;
    return yydisplay.root_widget;
}

void windowopen2(const WindowRequest& request) {
    winitialise();
    if (slot_of(0).open()) return;
    first_window();
    yydisplay.reserved_colours = reserved_colours(request.colours);
    const int status = yycreatewindow(0, request, plan_on_screen(request), -1);
    report_dialog(status);
    wCurrentWindow = 0;
    yygrselectwindow(0);
}

int windowopenchild2(const WindowRequest& request, int parent) {
    if (!slot_of(0).open()) return -5;
    const bool inside = (request.flags & WindowInsideParent) != 0;
    if (inside)
        if (const int status = parent_status(parent); status != 0) return status;
    if (dialog_loaded(request.dialog)) return -5;
    const int window = yygetnextfree();
    if (window < 0) return -1;
    const Plan plan = inside ? plan_inside(request, slot_of(parent)) : plan_on_screen(request);
    if (plan.status != 0) return plan.status;
    const bool parent_open = parent >= 0 && parent < window_slots && slot_of(parent).open();
    const int status = yycreatewindow(window, request, plan, parent_open ? parent : 0);
    if (status != 0) {
        yyclosechild(window);
        return status;
    }
    wCurrentWindow = window;
    yygrselectwindow(window);
    return window;
}

void yyclosechild(int window) {
    close_children(window);
    yyMSSemiAddRemove(-1, 1, window);
    const bool selected = drawable.type == DrawableType::Window && drawable.number == window;
    destroy_widgets(window);
    if (wCurrentWindow == window) {
        select_root();
    } else if (selected) {
        yygrselectwindow(wCurrentWindow);
    }
}

void windowclosechild(int window) {
    if (window == 0 || !open_window(window, "WindowCloseChild")) {
        if (window == 0) yyerror(InvalidWindow, "WindowCloseChild");
        return;
    }
    yyclosechild(window);
}

void windowclose() {
    if (!yydisplay.display) return;
    yyshutdown();
    // The connection stays until the process ends: closing it crashes in Xft once Motif has drawn
    // text with it.
    XSync(yydisplay.display, False);
}

void windowselect(int window) {
    if (!open_window(window, "WindowSelect")) return;
    wCurrentWindow = window;
    yygrselectwindow(window);
}

void windowunitstopixels(int x_units, int y_units, int& x_pixels, int& y_pixels) {
    const WindowSlot* slot = open_window(wCurrentWindow, "WindowUnitsToPixels");
    if (!slot) return;
    x_pixels = pixels_from_units(x_units, slot->width);
    y_pixels = pixels_from_units(y_units, slot->height);
}

void windowunitsfrompixels(int x_pixels, int y_pixels, int& x_units, int& y_units) {
    const WindowSlot* slot = open_window(wCurrentWindow, "WindowUnitsFromPixels");
    if (!slot) return;
    x_units = units_from_pixels(x_pixels, slot->width);
    y_units = units_from_pixels(y_pixels, slot->height);
}

void windowoutstatusbar(int part, std::string_view text) {
    if (wCurrentWindow >= 0) yysetstatustext2(wCurrentWindow, part, text);
}

int winfowindow(int item) {
    if (wCurrentWindow < 0) return item == 1 ? -1 : 0;
    const WindowSlot& slot = slot_of(wCurrentWindow);
    switch (item) {
        case 1:
            return wCurrentWindow;
        case 2:
            return slot.width;
        case 3:
            return slot.height;
        case 4:
            return slot.x;
        case 5:
            return slot.y;
        case 6:
            return static_cast<int>(slot.type);
        case 7:
            return slot.visible ? 1 : 0;
        default:
            return 0;
    }
}

}  // namespace tesserakit
