// A window is built whole and then shown: shell, MainWindow and client area, its bars, the dialog
// that fills it, and last its sizes and hints, which a window manager reads when the window is
// mapped. It is taken down from the inside: windows that it owns, OpenGL and the dialog let go of
// widgets that end with the shell.

#include "toolkit/windows/windows.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/base/shell_title.hpp"
#include "toolkit/base/window_icon.hpp"
#include "toolkit/widgets/wind.hpp"
#include "toolkit/windows/bitmap_slots.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/event_masks.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/message_hooks.hpp"
#include "toolkit/windows/window_layout.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"

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

namespace {

bool is_owned(int flags) { return (flags & (WindowOwned | WindowInsideParent)) != 0; }

XtPointer window_closure(int window) {
    return reinterpret_cast<XtPointer>(static_cast<std::intptr_t>(window));
}

int window_of_closure(XtPointer closure) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(closure));
}

void forget_content(Widget content, XtPointer closure, XtPointer) {
    WindowSlot& slot = window_slot(window_of_closure(closure));
    // A window that closes has left the slot already, maybe to another one.
    if (!slot.open() || slot.content != content) return;
    slot.content = nullptr;
    XtManageChild(slot.client_widget);
}

void yyWindowWMCloseCB(Widget, XtPointer closure, XtPointer) {
    message_hooks.close_request(window_of_closure(closure));
}

Widget create_shell(const WindowSlot& slot) {
    const bool owned = is_owned(slot.flags) && slot.parent >= 0;
    // A shell without a parent heads the names of its resources, and of all shells only an
    // application's goes by the class that it is given there.
    const Widget shell =
        owned ? XtVaCreatePopupShell("Window", xmDialogShellWidgetClass,
                                     window_slot(slot.parent).shell_widget, nullptr)
              : XtVaAppCreateShell(nullptr, application_class, applicationShellWidgetClass,
                                   yydisplay.display, nullptr);
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, XmNautoUnmanage, False,
                  XmNmappedWhenManaged, False, XmNallowShellResize, False, nullptr);
    return shell;
}

void create_widgets(WindowSlot& slot, int width, int height) {
    slot.shell_widget = create_shell(slot);
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
    menu_hooks.create(request.menu, window);
    for (int side = 0; side < 4; ++side)
        menu_hooks.toolbar_create(side, request.toolbars[static_cast<std::size_t>(side)], window);
    if ((request.flags & WindowStatusBar) != 0) {
        WindowSlot& slot = window_slot(window);
        slot.status_bar = yystatusbarcreate(slot.window_widget, slot.width);
    }
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
                            window_closure(window));
}

/// Frame size and client size that a request comes to, and the flags with them.
struct Plan {
    int status = 0;  ///< of the dialog
    int flags = 0;
    Box client;  ///< position is the shell's
};

void plan_dialog(Plan& plan, int dialog) {
    const HostedDialog hosted = dialog_hooks.host_check(dialog);
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
    Box& client = plan.client;
    // A large font makes a dialog larger than the screen: one that can do with less gets less.
    const bool shrinks = (plan.flags & WindowFixedSize) == 0;
    Surroundings around = surroundings_of(request, client.width);
    const int most = largest_extent(yydisplay.width, frame_width);
    if (shrinks && client.width + around.horizontal() > most) {
        client.width = std::max(most - around.horizontal(), 1);
        around = surroundings_of(request, client.width);
    }
    const int tallest = largest_extent(yydisplay.height, frame_height);
    if (shrinks) client.height = std::min(client.height, std::max(tallest - around.vertical(), 1));
    const int width = client.width + around.horizontal();
    const int height = client.height + around.vertical();
    client.x = position_on_screen(default_position(request.x, width, yydisplay.width), width,
                                  frame_width, yydisplay.width);
    client.y = position_on_screen(default_position(request.y, height, yydisplay.height), height,
                                  frame_height, yydisplay.height);
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
    WindowSlot& slot = window_slot(window);
    slot = {};
    slot.flags = plan.flags;
    slot.parent = parent;
    slot.x = plan.client.x;
    slot.y = plan.client.y;
    slot.width = plan.client.width;
    slot.height = plan.client.height;
    const Surroundings around = surroundings_of(request, plan.client.width);
    const int width = slot.width + around.horizontal();
    const int height = slot.height + around.vertical();
    create_widgets(slot, width, height);
    yywindowtitle(window, request.title);
    build_parts(window, request);
    set_window_icon(slot.shell_widget);
    listen_to_window_manager(slot, window);
    int status = plan.status;
    if (request.dialog != 0 && status == 0) {
        slot.dialog = dialog_hooks.host(request.dialog, window, slot.window_widget);
        status = std::min(slot.dialog, 0);
        slot.dialog = std::max(slot.dialog, -1);
        if (status == 0) {
            slot.type = WindowType::Dialog;
            dialog_hooks.make_current(slot.dialog);
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

/// Why a parent can't hold a window inside its client area, 0 when it can.
int parent_status(int parent) {
    if (parent < 0 || parent >= window_slots || !window_slot(parent).open()) return -5;
    const WindowSlot& slot = window_slot(parent);
    if (!slot.visible) return -2;
    if (slot.type == WindowType::Dialog) return -3;
    return slot.type == WindowType::Plain ? 0 : -4;
}

bool dialog_loaded(int dialog) { return dialog != 0 && dialog_hooks.slot(dialog) >= 0; }

void show_error(std::string_view text) {
    if (const auto& bar = window_slot(0).status_bar) yysetstatustext2(*bar, 1, text);
}

void first_window() {
    message_hooks.open();
    yycolorschemeinit();
    yyResourceImageInit();
    dialog_hooks.open();
    error_display = show_error;
}

bool minimised(const WindowSlot& slot) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(yydisplay.display, slot.shell, yydisplay.wm_state, 0, 1, False,
                       yydisplay.wm_state, &type, &format, &count, &rest, &data);
    const bool iconic =
        data && format == 32 && count > 0 && *reinterpret_cast<long*>(data) == IconicState;
    if (data) XFree(data);
    return iconic;
}

/// What is done in a minimised window would go unseen.
void bring_back(int window) {
    if (minimised(window_slot(window))) yywindowtofront(window);
}

void close_children(int window) {
    for (int i = 1; i < window_slots; ++i)
        if (window_slot(i).open() && window_slot(i).parent == window &&
            is_owned(window_slot(i).flags))
            yyclosechild(i);
}

void destroy_widgets(int window) {
    WindowSlot& slot = window_slot(window);
    // An open menu holds the pointer, and its pop-ups stand on this window perhaps.
    if (menu_hooks.active()) menu_hooks.deactivate();
    gl_forget_window(window);
    if (slot.dialog >= 0) {
        gl_forget_dialog(slot.dialog);
        dialog_hooks.unload(slot.dialog);
    }
    menu_hooks.destroy(window);
    for (int side = 0; side < 4; ++side) menu_hooks.toolbar_destroy(side, window);
    XtDestroyWidget(slot.shell_widget);
    slot = {};
}

void select_root() {
    wCurrentWindow = window_slot(0).open() ? 0 : -1;
    yygrselectwindow(wCurrentWindow);
}

void yyshutdown() {
    gl_shutdown();
    // Dialogs first: their shells hang on the root window's, and end with it.
    dialog_hooks.shut_down();
    for (WindowSlot& slot : windows) slot.dialog = -1;
    for (int i = window_slots - 1; i >= 0; --i)
        if (window_slot(i).open()) yyclosechild(i);
    free_bitmaps();
    wCurrentWindow = -1;
    yygrselectnone();
    message_hooks.shut_down();
    error_display = nullptr;
}

}  // namespace

void yywindowtitle(int window, std::string_view title) {
    WindowSlot& slot = window_slot(window);
    slot.title = without_trailing_blanks(title);
    show_title(slot.shell_widget, slot.title);
}

void yywindowtofront(int window) {
    const WindowSlot& slot = window_slot(window);
    if (!slot.open() || !slot.visible) return;
    // Mapping is how a program asks for a minimised window back.
    XMapRaised(yydisplay.display, slot.shell);
}

Widget yydialogparent(int window) {
    for (const int candidate : {window, 0}) {
        const WindowSlot& slot = window_slot(candidate);
        if (slot.open() && slot.visible) return slot.shell_widget;
    }
    return yydisplay.root_widget;
}

void yywindowcontent(int window, Widget content) {
    WindowSlot& slot = window_slot(window);
    if (!slot.open() || slot.dialog >= 0 || slot.content == content) return;
    if (slot.content)
        XtRemoveCallback(slot.content, XmNdestroyCallback, forget_content, window_closure(window));
    slot.content = content;
    if (content) {
        XtUnmanageChild(slot.client_widget);
        XtManageChild(content);
        XtAddCallback(content, XmNdestroyCallback, forget_content, window_closure(window));
    } else {
        XtManageChild(slot.client_widget);
    }
    yywindowreplace(window);
}

void windowopen2(const WindowRequest& request) {
    winitialise();
    if (window_slot(0).open()) return;
    first_window();
    const int status = yycreatewindow(0, request, plan_on_screen(request), -1);
    report_dialog(status);
    wCurrentWindow = 0;
    yygrselectwindow(0);
}

int windowopenchild2(const WindowRequest& request, int parent) {
    if (!window_slot(0).open()) return -5;
    const bool inside = (request.flags & WindowInsideParent) != 0;
    if (inside)
        if (const int status = parent_status(parent); status != 0) return status;
    if (dialog_loaded(request.dialog)) return -5;
    const int window = yygetnextfree();
    if (window < 0) return -1;
    const Plan plan = inside ? plan_inside(request, window_slot(parent)) : plan_on_screen(request);
    if (plan.status != 0) return plan.status;
    const bool parent_open = parent >= 0 && parent < window_slots && window_slot(parent).open();
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
    message_hooks.window_closes(window);
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
    bring_back(window);
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
    if (wCurrentWindow < 0) return;
    if (const auto& bar = window_slot(wCurrentWindow).status_bar)
        yysetstatustext2(*bar, part, text);
}

int winfowindow(int item) {
    if (wCurrentWindow < 0) return item == 1 ? -1 : 0;
    const WindowSlot& slot = window_slot(wCurrentWindow);
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
