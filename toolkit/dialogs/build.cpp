// From records to widgets. What differs between kinds of fields stands in fields/; here is what all
// have in common: room for the text, colours, keys, the state at the start. A shell is made first
// where the dialog has a window of its own.

#include "toolkit/dialogs/build.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/shell_title.hpp"
#include "toolkit/dialogs/exit.hpp"
#include "toolkit/dialogs/fields/buttons.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/radio.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/keys.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/widgets/diag.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/DialogS.h>
#include <Xm/MwmUtil.h>
#include <Xm/Protocols.h>

#include <algorithm>

namespace tesserakit {
namespace {

/// Where the free space to the right of a field ends: at its neighbour, or inside the box or
/// dialog around it.
int free_until(const FieldRecord& field) {
    constexpr int frame = 3;
    const Box& own = field.box;
    int end = field.dialog->width - frame;
    for (const FieldRecord& other : field.dialog->fields) {
        const Box& box = other.box;
        if (&other == &field || box.y >= own.y + own.height || box.y + box.height <= own.y)
            continue;
        if (box.x >= own.x + own.width)
            end = std::min(end, box.x);
        else if (kind_of(other).behind && box.x <= own.x)
            end = std::min(end, box.x + box.width - frame);
    }
    return end;
}

/// A text that is too wide for its field, in whatever font, takes free space beside it.
void widen_for_text(FieldRecord& field) {
    const auto wanted_width = kind_of(field).wanted_width;
    const int wanted = wanted_width && !field.text.empty() ? wanted_width(field) : 0;
    if (wanted == 0) return;
    const int room = std::max(field.box.width, free_until(field) - field.box.x);
    field.box.width = std::clamp(wanted, field.box.width, room);
    field.right_margin = field.dialog->width - field.box.x - field.box.width;
    field.loaded_box = field.box;
}

void set_colours(const FieldRecord& field) {
    constexpr int standard = 256;
    std::array<int, 6> c{};
    yyrcfieldcolour(field.dialog->identifier, field.identifier, c);
    const auto allocate = [&](std::size_t first, const char* resource) {
        if (c[first] >= standard) return;
        XColor colour{};
        colour.red = static_cast<unsigned short>(c[first] * 257);
        colour.green = static_cast<unsigned short>(c[first + 1] * 257);
        colour.blue = static_cast<unsigned short>(c[first + 2] * 257);
        if (XAllocColor(yydisplay.display, yydisplay.colormap, &colour))
            XtVaSetValues(field.widget, resource, colour.pixel, nullptr);
    };
    allocate(0, XmNforeground);
    allocate(3, XmNbackground);
}

void create_field(FieldRecord& field) {
    widen_for_text(field);
    kind_of(field).create(field);
    if (!field.position_widget) return;
    set_colours(field);
    install_keys(field);
    watch_field(field);
    if (field.has_style(field_style::visible))
        XtManageChild(field.position_widget);
    else
        field.state = FieldHidden;
    if (field.has_style(field_style::disabled)) apply_state(field, FieldDisabled);
    if (field.has_style(field_style::read_only)) field.state = FieldReadOnly;
}

/// A group without a set button starts with its first one set.
void set_first_radios(DialogRecord& dialog) {
    for (FieldRecord& field : dialog.fields) {
        if (field.type != FieldType::Radio) continue;
        const std::vector<FieldRecord*> group = radio_group(field);
        if (std::ranges::none_of(group, [](auto* radio) { return toggle_is_set(*radio); }))
            set_toggle(*group.front(), true);
    }
}

void resized(Widget, XtPointer client, XtPointer) {
    lay_out_fields(*static_cast<DialogRecord*>(client));
}

/// The parent was destroyed, by its window say, while the dialog is still loaded: the records stay
/// and answer as a dialog without widgets.
void widgets_gone(Widget, XtPointer client, XtPointer) {
    DialogRecord& dialog = *static_cast<DialogRecord*>(client);
    dialog.widget = nullptr;
    dialog.shell = nullptr;
    for (FieldRecord& field : dialog.fields)
        field.widget = field.position_widget = field.focus_widget = nullptr;
}

void yyDGDialogWMCloseCB(Widget, XtPointer client, XtPointer) {
    cancel_dialog(*static_cast<DialogRecord*>(client));
}

long decorations(const DialogRecord& dialog) {
    using namespace dialog_style;
    if ((dialog.style & caption) != caption) return 0;
    long parts = MWM_DECOR_BORDER | MWM_DECOR_TITLE;
    if (dialog.style & system_menu) parts |= MWM_DECOR_MENU;
    if (dialog.style & minimise_box) parts |= MWM_DECOR_MINIMIZE;
    if (dialog.resize_field != 0) parts |= MWM_DECOR_RESIZEH | MWM_DECOR_MAXIMIZE;
    return parts;
}

Widget create_shell(DialogRecord& dialog) {
    Arguments args;
    args(XmNdeleteResponse, XmDO_NOTHING)(XmNallowShellResize, False);
    args(XmNminWidth, dialog.width)(XmNminHeight, dialog.height);
    long functions = MWM_FUNC_MOVE | MWM_FUNC_CLOSE;
    // Smaller than its records no dialog can be laid out without fields on top of each other.
    if (dialog.resize_field != 0)
        functions |= MWM_FUNC_RESIZE | MWM_FUNC_MAXIMIZE;
    else
        args(XmNmaxWidth, dialog.width)(XmNmaxHeight, dialog.height);
    args(XmNmwmFunctions, functions)(XmNmwmDecorations, decorations(dialog));
    const Widget shell =
        XmCreateDialogShell(yydialogparent(), xt_name("TessShell"), args.data(), args.count());
    show_title(shell, dialog.title);
    XmAddWMProtocolCallback(shell, yydisplay.wm_delete_window, yyDGDialogWMCloseCB, &dialog);
    return shell;
}

}  // namespace

void create_widgets(DialogRecord& dialog, Widget parent) {
    if (!parent) {
        dialog.shell = create_shell(dialog);
        parent = dialog.shell;
    }
    Arguments args;
    args(XmNwidth, dialog.width)(XmNheight, dialog.height)(XmNshadowThickness, 0);
    args(XmNnavigationType, XmTAB_GROUP);
    dialog.widget = args.create("TessDialog", diagWidgetClass, parent);
    for (FieldRecord& field : dialog.fields) create_field(field);
    set_first_radios(dialog);
    lay_out_fields(dialog);
    install_keys(dialog);
    if (dialog.default_button) yyDGDefaultButtonAddRemove(*dialog.default_button, true);
    XtAddCallback(dialog.widget, diagNresizeCallback, resized, &dialog);
    XtAddCallback(dialog.widget, XmNdestroyCallback, widgets_gone, &dialog);
}

void destroy_widgets(DialogRecord& dialog) {
    if (!dialog.widget) return;
    // Xt tells of a destruction later, when the slot may hold another dialog.
    XtRemoveCallback(dialog.widget, XmNdestroyCallback, widgets_gone, &dialog);
    XtDestroyWidget(dialog.shell ? dialog.shell : dialog.widget);
}

}  // namespace tesserakit
