#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/dialogs/build.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/dialogs/load.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/windows/windows.hpp"

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

// What the rest of the toolkit asks

DialogPlace yyDGplace(Widget widget) {
    const DialogRecord* dialog = dialog_around(widget);
    if (!dialog) return {};
    const FieldRecord* field = field_around(widget);
    return {.slot = slot_of(*dialog),
            .identifier = dialog->identifier,
            .field = field ? field->identifier : 0,
            .user_drawn = field ? field->user_drawn : dialog->user_drawn};
}

int yyDGslot(int identifier) {
    if (identifier == -1) return -1;
    const auto found = std::ranges::find(wDialogInfo, identifier, &DialogRecord::identifier);
    return found == wDialogInfo.end() ? -1 : static_cast<int>(found - wDialogInfo.begin());
}

int yyDGidentifier(int slot) {
    const DialogRecord* dialog = loaded_dialog(slot);
    return dialog ? dialog->identifier : -1;
}

int yyDGcurrent() { return wDialog; }

PostingState* yyDGposting(int slot) {
    DialogRecord* dialog = loaded_dialog(slot);
    return dialog ? &dialog->posting : nullptr;
}

SemiModalLink* yyDGsemilink(int slot) {
    DialogRecord* dialog = loaded_dialog(slot);
    return dialog ? &dialog->previous : nullptr;
}

Widget yyDGwidget(int slot) {
    const DialogRecord* dialog = loaded_dialog(slot);
    return dialog ? dialog->widget : nullptr;
}

int yyDGmakecurrent(int slot) {
    const int former = wDialog;
    wDialog = loaded_dialog(slot) ? slot : -1;
    return former;
}

int yyDGwindow(int slot) {
    const DialogRecord* dialog = loaded_dialog(slot);
    return dialog ? dialog->window : -1;
}

HostedDialog yyDGhostcheck(int identifier) {
    int fields = 0;
    int title_length = 0;
    yyrcdialogcheck(identifier, fields, title_length);
    if (fields < 0) return {.status = -1};
    HostedDialog hosted;
    int style = 0;
    int flags = 0;
    int resize_field = 0;
    std::vector<char> title(static_cast<std::size_t>(title_length));
    yyrcdialogload(identifier, hosted.width, hosted.height, style, flags, resize_field, fields,
                   title);
    constexpr int wanted = dialog_style::child | dialog_style::control_parent;
    const bool framed = (style & dialog_style::caption) == dialog_style::caption ||
                        (style & dialog_style::system_menu) != 0;
    if ((style & wanted) != wanted || framed) return {.status = -2};
    if (yyDGslot(identifier) >= 0) return {.status = -5};
    if (free_slot() < 0) return {.status = -3};
    hosted.width = pixels_across(hosted.width);
    hosted.height = pixels_down(hosted.height);
    hosted.resizable = resize_field != 0;
    return hosted;
}

int yyDGhost(int identifier, int window, Widget parent) {
    const HostedDialog check = yyDGhostcheck(identifier);
    if (check.status != 0) return check.status;
    const int slot = free_slot();
    DialogRecord& dialog = dialog_slot(slot);
    load_records(dialog, identifier);
    dialog.window = window;
    create_widgets(dialog, parent);
    return slot;
}

void yyDGhostplace(int slot, int x, int y, int width, int height) {
    DialogRecord* dialog = loaded_dialog(slot);
    if (!dialog) return;
    place(dialog->widget, x, y, width, height);
    lay_out_fields(*dialog);
    if (dialog->shown()) return;
    dialog->show_mode = DialogModeless;
    XtManageChild(dialog->widget);
    restack_all(*dialog);
}

void yyDGunload(int slot) {
    if (DialogRecord* dialog = loaded_dialog(slot)) unload(*dialog);
}

bool yyDGshellresized(int slot, int width, int height) {
    DialogRecord* dialog = loaded_dialog(slot);
    if (!dialog || !dialog->shell || (dialog->width == width && dialog->height == height))
        return false;
    dialog->width = width;
    dialog->height = height;
    return true;
}

PictureField yyDGpicture(int slot, int identifier) {
    DialogRecord* dialog = loaded_dialog(slot);
    const FieldRecord* field = dialog ? find_field(*dialog, identifier) : nullptr;
    if (!field) return {};
    return {.exists = true,
            .picture = field->type == FieldType::Picture,
            .widget = field->widget,
            .x = field->box.x,
            .y = field->box.y,
            .width = field->box.width,
            .height = field->box.height};
}

void yyDGadopt(int slot, int identifier, Widget widget) {
    DialogRecord* dialog = loaded_dialog(slot);
    FieldRecord* field = dialog ? find_field(*dialog, identifier) : nullptr;
    if (!field) return;
    // The widget of a former context may have been destroyed with it; ours is still there.
    if (field->position_widget && field->position_widget != widget)
        XtDestroyWidget(field->position_widget);
    field->widget = widget;
    field->position_widget = widget;
    field->user_drawn = true;
    dialog->fields_user_drawn = true;
    dialog->user_drawn = true;
    apply_message_mask(widget);
}

void yyDGEnableMessage() {
    for (DialogRecord& dialog : wDialogInfo) {
        if (!dialog.loaded() || !dialog.user_drawn) continue;
        for (FieldRecord& field : dialog.fields)
            if (field.user_drawn && field.widget) apply_message_mask(field.widget);
    }
}

void yyDGshutdown() {
    for (DialogRecord& dialog : wDialogInfo)
        if (dialog.loaded() && !dialog.is_page()) unload(dialog);
    wDialog = -1;
}

void yyDGInit() { wDialog = -1; }

// Public calls

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
    if (!dialog->shell) return;
    const std::string shown = dialog->title.empty() ? " " : dialog->title;
    XtVaSetValues(dialog->shell, XmNtitle, shown.c_str(), nullptr);
}

void wdialogsetfield(int identifier) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), "WDialogSetField");
    if (field && can_focus(*field)) move_focus(*field);
}

int winfodialog(int item) {
    DialogRecord* dialog = loaded_dialog(wDialog);
    if (item == 5) return last_exit_dialog();
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
