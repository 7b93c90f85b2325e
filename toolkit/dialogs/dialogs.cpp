// The public calls on a whole dialog. Each acts on the current one and stores an error where it
// can't; nothing here ends the program or leaves a dialog half shown. How a dialog comes onto the
// screen stands in show.cpp, how it is left in exit.cpp.

#include "common/fixed_text.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/shell_title.hpp"
#include "toolkit/dialogs/build.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/dialogs/load.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/Xm.h>

#include <algorithm>

namespace tesserakit {
namespace {

/// The mode that the dialog is shown in: nothing modeless beside a semi-modal object.
int allowed_mode(int mode) {
    if (mode == DialogModeless && wObjCurType != 0) {
        yyerror(InvalidDialogMode, "WDialogShow", -1);
        return DialogSemiModal;
    }
    return mode;
}

/// 0, or why a child-style dialog can't be shown in the current window.
int child_error() {
    if (wCurrentWindow < 0) return ParentHidden;
    const WindowSlot& slot = windows[static_cast<std::size_t>(wCurrentWindow)];
    if (!slot.open() || !slot.visible) return ParentHidden;
    if (slot.type == WindowType::Dialog) return ParentHoldsDialog;
    return slot.type == WindowType::Plain ? 0 : int{DialogHoldsWindow};
}

bool hideable(const DialogRecord& dialog, const char* routine) {
    if (dialog.is_page()) {
        yyerror(SubDialogNotHidden, routine);
        return false;
    }
    if (dialog.window >= 0) {
        yyerror(DialogHoldsWindow, routine);
        return false;
    }
    return true;
}

/// Position on the screen of the dialog's upper left corner.
void screen_position(const DialogRecord& dialog, int& x, int& y) {
    x = 0;
    y = 0;
    if (!dialog.widget || !XtIsRealized(dialog.widget)) return;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, window_of(dialog.widget), yydisplay.root, 0, 0, &x, &y,
                          &child);
}

}  // namespace

void wdialogload(int dialog) {
    int slot = yyDGslot(dialog);
    if (slot < 0) slot = load_dialog(dialog);
    if (slot < 0) return yyerror(DialogNotInResource, "WDialogLoad", dialog);
    wDialog = slot;
}

void wdialogselect(int dialog) {
    const int slot = yyDGslot(dialog);
    if (slot < 0) return yyerror(DialogNotSelectable, "WDialogSelect", dialog);
    wDialog = slot;
}

void wdialogshow(int x, int y, int field, int mode) {
    DialogRecord* dialog = current_dialog("WDialogShow");
    if (!dialog) return;
    if (mode < DialogModal || mode > DialogSemiModal)
        return yyerror(InvalidDialogMode, "WDialogShow", mode);
    if (dialog->is_page()) return show_page(*dialog);
    if (dialog->window >= 0) return show_hosted(*dialog, field);
    if (!dialog->shell)
        if (const int error = child_error()) return yyerror(error, "WDialogShow");
    // One that is on the screen already is raised, and keeps its mode.
    const bool was_shown = dialog->shown();
    mode = was_shown ? mode : allowed_mode(mode);
    if (mode == DialogModal && !was_shown) return run_modal(*dialog, x, y, field);
    map_dialog(*dialog, x, y, field, mode);
    if (mode == DialogSemiModal && !was_shown) yyMSSemiAddRemove(1, 2, slot_of(*dialog));
}

void wdialoghide() {
    DialogRecord* dialog = current_dialog("WDialogHide");
    if (dialog && hideable(*dialog, "WDialogHide")) hide_dialog_record(*dialog);
}

void wdialogunload() {
    DialogRecord* dialog = current_dialog("WDialogUnload");
    if (!dialog || !hideable(*dialog, "WDialogUnload")) return;
    hide_dialog_record(*dialog);
    unload(*dialog);
}

void wdialogtitle(std::string_view title) {
    DialogRecord* dialog = current_dialog("WDialogTitle");
    if (!dialog) return;
    dialog->title = without_trailing_blanks(title);
    if (dialog->shell) show_title(dialog->shell, dialog->title);
}

void wdialogsetfield(int identifier) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), "WDialogSetField");
    if (field && can_focus(*field)) move_focus(*field);
}

int winfodialog(int item) {
    if (item == 5) return last_exit_dialog();
    // A common dialog has no record; the button that left it is asked for like any other's.
    if (item == 1 || item == 4)
        if (const std::optional<int> button = common_exit()) return *button;
    DialogRecord* dialog = current_dialog("WInfoDialog");
    if (!dialog) return 0;
    int x = 0;
    int y = 0;
    screen_position(*dialog, x, y);
    switch (item) {
        case 1:
            return dialog->posting.exit_button;
        case 2:
            return dialog->current_field ? dialog->current_field->identifier : 0;
        case 3:
            return dialog->identifier;
        case 4:
            return dialog->posting.exit_field;
        case 6:
            return x;
        case 7:
            return y;
        case 8:
            return dialog->width;
        case 9:
            return dialog->height;
        case 10:
            return std::max(0, dialog->show_mode);
        default:
            return 0;
    }
}

}  // namespace tesserakit
