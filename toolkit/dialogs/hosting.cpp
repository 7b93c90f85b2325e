// The rooms below know dialogs by slot only, and may ask about one that has been unloaded since:
// every function looks its slot up anew and answers for an empty one, instead of keeping a record.

#include "toolkit/dialogs/hosting.hpp"

#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/keys.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/dialogs/load.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/dialogs/units.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/windows/event_masks.hpp"

#include <Xm/Xm.h>

#include <algorithm>
#include <vector>

namespace tesserakit {

namespace {

Widget yyDGwidget(int slot) {
    const DialogRecord* dialog = loaded_dialog(slot);
    return dialog ? dialog->widget : nullptr;
}

DialogPlace yyDGplace(Widget widget) {
    const DialogRecord* dialog = dialog_around(widget);
    if (!dialog) return {};
    const FieldRecord* field = field_around(widget);
    return {.slot = slot_of(*dialog),
            .identifier = dialog->identifier,
            .field = field ? field->identifier : 0,
            .user_drawn = field ? field->user_drawn : dialog->user_drawn};
}

DialogPlace yyDGfocus(int slot) {
    DialogRecord* dialog = loaded_dialog(slot);
    if (!dialog) return {};
    const FieldRecord* field = focused_field(*dialog);
    return yyDGplace(field ? field->focus_widget : dialog->widget);
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

int yyDGmakecurrent(int slot) {
    const int former = wDialog;
    wDialog = loaded_dialog(slot) ? slot : -1;
    return former;
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
    // A dialog with a frame of its own would show a title bar inside the window.
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
    build_dialog(dialog, parent);
    return slot;
}

void yyDGhostplace(int slot, int x, int y, int width, int height) {
    DialogRecord* dialog = loaded_dialog(slot);
    if (!dialog) return;
    place(dialog->widget, x, y, width, height);
    lay_out_fields(*dialog);
    // The window places its dialog at each of its own sizes; only the first time shows it.
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
    // A page goes with the dialog whose tab holds it.
    for (DialogRecord& dialog : wDialogInfo)
        if (dialog.loaded() && !dialog.is_page()) unload(dialog);
    wDialog = -1;
}

void yyDGInit() { wDialog = -1; }

}  // namespace

void install_dialogs() {
    register_keys();
    dialog_hooks = {
        .place = yyDGplace,
        .focus = yyDGfocus,
        .slot = yyDGslot,
        .identifier = yyDGidentifier,
        .current = yyDGcurrent,
        .make_current = yyDGmakecurrent,
        .posting = yyDGposting,
        .semi_link = yyDGsemilink,
        .widget = yyDGwidget,
        .host_check = yyDGhostcheck,
        .host = yyDGhost,
        .host_place = yyDGhostplace,
        .unload = yyDGunload,
        .shell_resized = yyDGshellresized,
        .picture = yyDGpicture,
        .adopt = yyDGadopt,
        .apply_message_masks = yyDGEnableMessage,
        .open = yyDGInit,
        .shut_down = yyDGshutdown,
    };
}

}  // namespace tesserakit
