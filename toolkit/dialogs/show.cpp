#include "toolkit/dialogs/show.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/fields/tab.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/messages/focus.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/modal_loop.hpp"
#include "toolkit/messages/snapshots.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_layout.hpp"
#include "toolkit/windows/window_slots.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/Xm.h>

#include <algorithm>
#include <utility>

namespace tesserakit {
namespace {

struct State {
    Widget opener = nullptr;  // shell named by open_dialogs_from, null: the current window's
};
constinit State state{};

int centred(int extent, int available) { return std::max(0, (available - extent) / 2); }

/// The window that a dialog belongs to: the current one, if it is shown.
const WindowSlot* parent_window() {
    if (wCurrentWindow < 0) return nullptr;
    const WindowSlot& slot = windows[static_cast<std::size_t>(wCurrentWindow)];
    return slot.open() && slot.visible ? &slot : nullptr;
}

/// What `units` count in: the client area of the parent, or the screen.
Box units_area() {
    const WindowSlot* parent = parent_window();
    Box area{0, 0, yydisplay.width, yydisplay.height};
    if (!parent) return area;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, parent->client, yydisplay.root, 0, 0, &area.x, &area.y,
                          &child);
    area.width = parent->width;
    area.height = parent->height;
    return area;
}

void position_shell(DialogRecord& dialog, int x, int y) {
    const Box area = units_area();
    x = x == dialog_centred ? centred(dialog.width, yydisplay.width)
                            : area.x + pixels_from_units(x, area.width);
    y = y == dialog_centred ? centred(dialog.height, yydisplay.height)
                            : area.y + pixels_from_units(y, area.height);
    XtVaSetValues(dialog.shell, XmNx, x, XmNy, y, nullptr);
}

/// The window manager keeps the dialog above the window that opened it.
void hang_on_opener(DialogRecord& dialog) {
    const WindowSlot* parent = parent_window();
    Widget opener = state.opener;
    if (!opener) opener = parent ? parent->shell_widget : yydialogparent();
    XtVaSetValues(dialog.shell, XmNtransientFor, opener, nullptr);
}

void position_child(DialogRecord& dialog, int x, int y) {
    const WindowSlot& slot = windows[static_cast<std::size_t>(std::max(0, wCurrentWindow))];
    x = x == dialog_centred ? centred(dialog.width, slot.width) : pixels_from_units(x, slot.width);
    y = y == dialog_centred ? centred(dialog.height, slot.height)
                            : pixels_from_units(y, slot.height);
    place(dialog.widget, x, y, dialog.width, dialog.height);
}

/// Motif gives the focus to it once the shell has the keyboard.
void focus_at_start(DialogRecord& dialog, int field) {
    FieldRecord* wanted = field != 0 ? find_field(dialog, field) : nullptr;
    if (!wanted || !can_focus(*wanted)) wanted = first_focus(dialog);
    if (!wanted) return;
    XtVaSetValues(dialog.widget, XmNinitialFocus, wanted->focus_widget, nullptr);
    move_focus(*wanted);
}

}  // namespace

Widget open_dialogs_from(Widget shell) { return std::exchange(state.opener, shell); }

/// yydialogshow2
void map_dialog(DialogRecord& dialog, int x, int y, int field, int mode) {
    // It would stand in front, and keep the pointer and the keys from the dialog.
    if (menu_hooks.active()) menu_hooks.deactivate();
    if (dialog.shown()) {
        const Widget top = dialog.shell ? dialog.shell : dialog.widget;
        // Mapping brings a minimised one back.
        XMapRaised(display_of(top), window_of(top));
        if (field != 0) focus_at_start(dialog, field);
        return;
    }
    if (dialog.shell) {
        hang_on_opener(dialog);
        position_shell(dialog, x, y);
    } else {
        position_child(dialog, x, y);
    }
    dialog.show_mode = mode;
    XtManageChild(dialog.widget);
    lay_out_fields(dialog);
    restack_all(dialog);
    focus_at_start(dialog, field);
}

void run_modal(DialogRecord& dialog, int x, int y, int field) {
    // Taken with the dialog on the screen the pictures would lack what it covers.
    yygetwindowbitmap(true);
    map_dialog(dialog, x, y, field, DialogModal);
    yyMSModalMessageLoop(dialog.widget, slot_of(dialog));
    yygetwindowbitmap(false);
    hide_dialog_record(dialog);
}

/// A dialog that fills a window is on the screen with it, whatever the mode.
void show_hosted(DialogRecord& dialog, int field) {
    const WindowSlot& slot = windows[static_cast<std::size_t>(dialog.window)];
    if (!slot.visible) return yyerror(ParentHidden, "WDialogShow");
    yywindowtofront(dialog.window);
    if (field != 0) focus_at_start(dialog, field);
}

void show_page(DialogRecord& page) {
    FieldRecord& tab = *page.tab;
    const auto found = std::ranges::find(tab.pages, slot_of(page), &TabPage::slot);
    if (found != tab.pages.end()) bring_to_front(tab, static_cast<int>(found - tab.pages.begin()));
}

void hide_dialog_record(DialogRecord& dialog) {
    if (!dialog.shown()) return;
    revert_typing(dialog);
    const bool locked_out = dialog.show_mode != DialogModeless;
    if (dialog.show_mode == DialogSemiModal) yyMSSemiAddRemove(-1, 2, slot_of(dialog));
    // Before the widgets go: Motif moves the focus on while they do.
    dialog.show_mode = -1;
    if (dialog.widget) XtUnmanageChild(dialog.widget);
    // The opener may close before the dialog is shown again.
    if (dialog.shell) XtVaSetValues(dialog.shell, XmNtransientFor, yydialogparent(), nullptr);
    if (locked_out) repeat_focus(dialog.shell ? dialog.shell : dialog.widget);
    for (FieldRecord& field : dialog.fields)
        for (const TabPage& page : field.pages)
            if (page.slot >= 0) dialog_slot(page.slot).show_mode = -1;
}

}  // namespace tesserakit
