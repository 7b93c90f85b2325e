#include "toolkit/dialogs/dialogs.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/Xm.h>

#include <algorithm>

namespace tesserakit {

// Never destroyed: at exit the display may be gone.
std::array<DialogRecord, dialog_slots>& wDialogInfo = *new std::array<DialogRecord, dialog_slots>;
constinit int wDialog = -1;

namespace {

struct State {
    int last_exit_dialog = 0;  // identifier
};
constinit State state{};

DialogRecord& record_of(int slot) { return wDialogInfo[static_cast<std::size_t>(slot)]; }

DialogRecord* record_or_null(int slot) {
    if (slot < 0 || slot >= dialog_slots || !record_of(slot).loaded()) return nullptr;
    return &record_of(slot);
}

int free_slot() {
    const auto found =
        std::ranges::find_if(wDialogInfo, [](const DialogRecord& d) { return !d.loaded(); });
    return found == wDialogInfo.end() ? -1 : static_cast<int>(found - wDialogInfo.begin());
}

bool child_style(const DialogRecord& dialog) { return (dialog.style & dialog_style::child) != 0; }

/// What a child-style dialog that is neither a page nor in a window is built in.
Widget loose_parent() {
    if (wCurrentWindow >= 0) {
        const WindowSlot& slot = windows[static_cast<std::size_t>(wCurrentWindow)];
        if (slot.open()) return slot.window_widget;
    }
    return yydisplay.root_widget;
}

/// Loads into a free slot: the slot, or -1.
int load_dialog(int identifier) {
    const int slot = free_slot();
    if (slot < 0 || !yydisplay.display) return -1;
    DialogRecord& dialog = record_of(slot);
    if (!load_records(dialog, identifier)) return -1;
    create_widgets(dialog, child_style(dialog) ? loose_parent() : nullptr);
    return slot;
}

void free_images(DialogRecord& dialog) {
    for (FieldRecord& field : dialog.fields) {
        if (!field.image.pixmap) continue;
        yyResourceFreeImagePixels(field.image);
        XFreePixmap(yydisplay.display, field.image.pixmap);
    }
}

void unload(DialogRecord& dialog) {
    for (FieldRecord& field : dialog.fields)
        for (const TabPage& page : field.pages)
            if (page.slot >= 0) unload(record_of(page.slot));
    forget_focus(dialog);
    if (dialog.show_mode == DialogSemiModal) yyMSSemiAddRemove(-1, 2, slot_of(dialog));
    gl_forget_dialog(slot_of(dialog));
    if (wDialog == slot_of(dialog)) wDialog = -1;
    destroy_widgets(dialog);
    free_images(dialog);
    dialog = DialogRecord{};
}

// Showing

int centred(int extent, int available) { return std::max(0, (available - extent) / 2); }

void position_shell(DialogRecord& dialog, int x, int y) {
    x = x == dialog_centred ? centred(dialog.width, yydisplay.width) : x;
    y = y == dialog_centred ? centred(dialog.height, yydisplay.height) : y;
    XtVaSetValues(dialog.shell, XmNx, static_cast<int>(x), XmNy, static_cast<int>(y), nullptr);
}

void position_child(DialogRecord& dialog, int x, int y) {
    const WindowSlot& slot = windows[static_cast<std::size_t>(std::max(0, wCurrentWindow))];
    x = x == dialog_centred ? centred(dialog.width, slot.width) : pixels_from_units(x, slot.width);
    y = y == dialog_centred ? centred(dialog.height, slot.height)
                            : pixels_from_units(y, slot.height);
    place(dialog.widget, x, y, dialog.width, dialog.height);
}

void restack_all(DialogRecord& dialog) {
    restack(dialog);
    for (FieldRecord& field : dialog.fields)
        for (const TabPage& page : field.pages)
            if (page.slot >= 0) restack(record_of(page.slot));
}

/// Motif gives the focus to it once the shell has the keyboard.
void focus_at_start(DialogRecord& dialog, int field) {
    FieldRecord* wanted = field != 0 ? find_field(dialog, field) : nullptr;
    if (!wanted || !can_focus(*wanted)) wanted = first_focus(dialog);
    if (!wanted) return;
    XtVaSetValues(dialog.widget, XmNinitialFocus, wanted->focus_widget, nullptr);
    move_focus(*wanted);
}

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

/// yydialogshow2
void map_dialog(DialogRecord& dialog, int x, int y, int field, int mode) {
    if (dialog.shown()) {
        const Widget top = dialog.shell ? dialog.shell : dialog.widget;
        XRaiseWindow(display_of(top), window_of(top));
        if (field != 0) focus_at_start(dialog, field);
        return;
    }
    if (dialog.shell)
        position_shell(dialog, x, y);
    else
        position_child(dialog, x, y);
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
    XRaiseWindow(yydisplay.display, slot.shell);
    if (field != 0) focus_at_start(dialog, field);
}

void show_page(DialogRecord& page) {
    FieldRecord& tab = *page.tab;
    const auto found = std::ranges::find(tab.pages, slot_of(page), &TabPage::slot);
    if (found != tab.pages.end()) bring_to_front(tab, static_cast<int>(found - tab.pages.begin()));
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

/// A window that was clicked while a dialog locked it out has the focus of the display, but its
/// widgets haven't heard of it: the news was held back as all input is. This repeats it.
void repeat_focus(const DialogRecord& leaving) {
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(yydisplay.display, &focus, &revert);
    const Widget widget =
        focus > PointerRoot ? XtWindowToWidget(yydisplay.display, focus) : nullptr;
    if (!widget || dialog_around(widget) == &leaving) return;
    XSetInputFocus(yydisplay.display, PointerRoot, RevertToPointerRoot, CurrentTime);
    XSetInputFocus(yydisplay.display, focus, revert, CurrentTime);
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

// The records

DialogRecord* current_dialog(const char* routine) {
    DialogRecord* dialog = record_or_null(wDialog);
    if (!dialog) yyerror(NoDialogSelected, routine);
    return dialog;
}

FieldRecord* find_field(DialogRecord& dialog, int identifier) {
    const auto found = std::ranges::find(dialog.fields, identifier, &FieldRecord::identifier);
    return found == dialog.fields.end() ? nullptr : &*found;
}

FieldRecord* current_field(int identifier, FieldTypes allowed, const char* routine) {
    DialogRecord* dialog = current_dialog(routine);
    if (!dialog) return nullptr;
    FieldRecord* field = find_field(*dialog, identifier);
    if (field && field->widget && allowed.has(field->type)) return field;
    yyerror(InvalidField, routine, identifier);
    return nullptr;
}

DialogRecord* dialog_around(Widget widget) {
    for (; widget; widget = (XtParent)(widget)) {
        for (DialogRecord& dialog : wDialogInfo)
            if (dialog.loaded() && (dialog.widget == widget || dialog.shell == widget))
                return &dialog;
        // A list that a combo has opened is a window of its own.
        if (XtIsShell(widget)) return nullptr;
    }
    return nullptr;
}

FieldRecord* field_around(Widget widget) {
    DialogRecord* dialog = dialog_around(widget);
    for (; dialog && widget && widget != dialog->widget; widget = (XtParent)(widget))
        for (FieldRecord& field : dialog->fields)
            if (field.position_widget == widget) return &field;
    return nullptr;
}

DialogRecord& outermost(DialogRecord& dialog) {
    return dialog.is_page() ? outermost(*dialog.tab->dialog) : dialog;
}

int slot_of(const DialogRecord& dialog) { return static_cast<int>(&dialog - wDialogInfo.data()); }

int load_page(FieldRecord& tab, int identifier) {
    const int slot = free_slot();
    if (slot < 0 || yyDGslot(identifier) >= 0) return -1;
    DialogRecord& page = record_of(slot);
    if (!load_records(page, identifier)) return -1;
    page.tab = &tab;
    create_widgets(page, tab.dialog->widget);
    return slot;
}

void hide_dialog_record(DialogRecord& dialog) {
    if (!dialog.shown()) return;
    revert_typing(dialog);
    const bool locked_out = dialog.show_mode != DialogModeless;
    if (dialog.show_mode == DialogSemiModal) yyMSSemiAddRemove(-1, 2, slot_of(dialog));
    // Before the widgets go: Motif moves the focus on while they do.
    dialog.show_mode = -1;
    if (dialog.widget) XtUnmanageChild(dialog.widget);
    if (locked_out) repeat_focus(dialog);
    for (FieldRecord& field : dialog.fields)
        for (const TabPage& page : field.pages)
            if (page.slot >= 0) record_of(page.slot).show_mode = -1;
}

void note_exit(const DialogRecord& dialog) { state.last_exit_dialog = dialog.identifier; }

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
    const DialogRecord* dialog = record_or_null(slot);
    return dialog ? dialog->identifier : -1;
}

int yyDGcurrent() { return wDialog; }

PostingState* yyDGposting(int slot) {
    DialogRecord* dialog = record_or_null(slot);
    return dialog ? &dialog->posting : nullptr;
}

SemiModalLink* yyDGsemilink(int slot) {
    DialogRecord* dialog = record_or_null(slot);
    return dialog ? &dialog->previous : nullptr;
}

Widget yyDGwidget(int slot) {
    const DialogRecord* dialog = record_or_null(slot);
    return dialog ? dialog->widget : nullptr;
}

int yyDGmakecurrent(int slot) {
    const int former = wDialog;
    wDialog = record_or_null(slot) ? slot : -1;
    return former;
}

int yyDGwindow(int slot) {
    const DialogRecord* dialog = record_or_null(slot);
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
    DialogRecord& dialog = record_of(slot);
    load_records(dialog, identifier);
    dialog.window = window;
    create_widgets(dialog, parent);
    return slot;
}

void yyDGhostplace(int slot, int x, int y, int width, int height) {
    DialogRecord* dialog = record_or_null(slot);
    if (!dialog) return;
    place(dialog->widget, x, y, width, height);
    lay_out_fields(*dialog);
    if (dialog->shown()) return;
    dialog->show_mode = DialogModeless;
    XtManageChild(dialog->widget);
    restack_all(*dialog);
}

void yyDGunload(int slot) {
    if (DialogRecord* dialog = record_or_null(slot)) unload(*dialog);
}

bool yyDGshellresized(int slot, int width, int height) {
    DialogRecord* dialog = record_or_null(slot);
    if (!dialog || !dialog->shell || (dialog->width == width && dialog->height == height))
        return false;
    dialog->width = width;
    dialog->height = height;
    return true;
}

PictureField yyDGpicture(int slot, int identifier) {
    DialogRecord* dialog = record_or_null(slot);
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
    DialogRecord* dialog = record_or_null(slot);
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
    DialogRecord* dialog = record_or_null(wDialog);
    if (item == 5) return state.last_exit_dialog;
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
