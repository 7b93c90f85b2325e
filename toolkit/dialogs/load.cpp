// A dialog is made in two steps: its records from the resource block, in pixels of the present
// dialog font, then its widgets, in the order of the records. The pages of a tab are dialogs in
// slots of their own and come last, for they are built inside the finished dialog.

#include "toolkit/dialogs/load.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/build.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/resize.hpp"
#include "toolkit/dialogs/units.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/gl_target.hpp"
#include "toolkit/windows/window_slots.hpp"

namespace tesserakit {
namespace {

std::size_t size_of(int count) { return count > 0 ? static_cast<std::size_t>(count) : 0; }

struct FieldColumns {
    explicit FieldColumns(std::size_t count)
        : identifier(count),
          type(count),
          x(count),
          y(count),
          width(count),
          height(count),
          style(count),
          extended_style(count),
          third_style(count),
          text_offset(count) {}

    std::vector<int> identifier, type, x, y, width, height, style, extended_style, third_style,
        text_offset;
    std::vector<char> text;
};

FieldColumns load_columns(int dialog, int count) {
    FieldColumns columns(size_of(count));
    int text_size = 0;
    yyrcfieldcheck(dialog, text_size);
    columns.text.resize(size_of(text_size) + 1, '\0');
    yyrcfieldload(dialog, columns.identifier, columns.type, columns.x, columns.y, columns.width,
                  columns.height, columns.style, columns.extended_style, columns.third_style,
                  columns.text_offset, columns.text);
    return columns;
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// yyDGStringGetMnemonic: "&" marks the letter behind it, "&&" stands for one "&".
void take_mnemonic(FieldRecord& field) {
    std::string plain;
    for (std::size_t i = 0; i < field.text.size(); ++i) {
        if (field.text[i] == '&' && i + 1 < field.text.size()) {
            ++i;
            if (field.text[i] != '&' && field.mnemonic == 0) {
                field.underlined = static_cast<int>(plain.size());
                field.mnemonic = lower(field.text[i]);
            }
        }
        plain += field.text[i];
    }
    field.text = plain;
}

void load_mnemonic(int dialog, FieldRecord& field) {
    if (kind_of(field).marks_mnemonic) take_mnemonic(field);
    int character = 0;
    yyrcfieldshortcut(dialog, field.identifier, character);
    // The table's own mnemonic wins over one marked in the text.
    if (character > ' ' && character < 127) field.mnemonic = lower(static_cast<char>(character));
}

FieldRecord field_record(DialogRecord& dialog, const FieldColumns& columns, std::size_t i) {
    FieldRecord field;
    field.identifier = columns.identifier[i];
    field.type = static_cast<FieldType>(columns.type[i]);
    field.dialog = &dialog;
    field.loaded_box = {pixels_across(columns.x[i]), pixels_down(columns.y[i]),
                        pixels_across(columns.width[i]), pixels_down(columns.height[i])};
    field.box = field.loaded_box;
    // What a resizing keeps of a field that is bound to the right or lower edge.
    field.right_margin = dialog.width - field.box.x - field.box.width;
    field.bottom_margin = dialog.height - field.box.y - field.box.height;
    field.style = columns.style[i];
    field.extended_style = columns.extended_style[i];
    field.third_style = columns.third_style[i];
    if (columns.text_offset[i] >= 0)
        field.text = columns.text.data() + static_cast<std::size_t>(columns.text_offset[i]);
    int set = 0;
    yyrcfieldcheckbox(dialog.identifier, field.identifier, set);
    field.initially_set = set != 0;
    load_mnemonic(dialog.identifier, field);
    if (const auto load = kind_of(field).load) load(field);
    return field;
}

void set_resize_masks(DialogRecord& dialog) {
    if (dialog.resize_field == 0) return;
    std::vector<Box> boxes;
    std::size_t resize = dialog.fields.size();
    for (const FieldRecord& field : dialog.fields) {
        if (field.identifier == dialog.resize_field) resize = boxes.size();
        boxes.push_back(field.box);
    }
    if (resize == dialog.fields.size()) return;
    const std::vector<int> masks =
        resize_masks(boxes, resize, (dialog.flags & dialog_flag::keep_edges) != 0);
    for (std::size_t i = 0; i < masks.size(); ++i) dialog.fields[i].resize_mask = masks[i];
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

void free_images(DialogRecord& dialog) {
    for (FieldRecord& field : dialog.fields) {
        if (!field.image.pixmap) continue;
        yyResourceFreeImagePixels(field.image);
        XFreePixmap(yydisplay.display, field.image.pixmap);
    }
}

}  // namespace

bool load_records(DialogRecord& dialog, int identifier) {
    int count = 0;
    int title_length = 0;
    yyrcdialogcheck(identifier, count, title_length);
    if (count < 0) return false;
    dialog.identifier = identifier;
    dialog.title.assign(size_of(title_length), ' ');
    yyrcdialogload(identifier, dialog.width, dialog.height, dialog.style, dialog.flags,
                   dialog.resize_field, count, dialog.title);
    dialog.width = pixels_across(dialog.width);
    dialog.height = pixels_down(dialog.height);
    const FieldColumns columns = load_columns(identifier, count);
    dialog.fields.reserve(size_of(count));
    for (std::size_t i = 0; i < size_of(count); ++i)
        dialog.fields.push_back(field_record(dialog, columns, i));
    set_resize_masks(dialog);
    return true;
}

namespace {

int load_page(FieldRecord& tab, int identifier) {
    const int slot = free_slot();
    if (slot < 0 || yyDGslot(identifier) >= 0) return -1;
    DialogRecord& page = dialog_slot(slot);
    if (!load_records(page, identifier)) return -1;
    page.tab = &tab;
    build_dialog(page, tab.dialog->widget);
    return slot;
}

}  // namespace

void build_dialog(DialogRecord& dialog, Widget parent) {
    create_widgets(dialog, parent);
    for (FieldRecord& field : dialog.fields) {
        if (field.pages.empty()) continue;
        for (TabPage& page : field.pages) page.slot = load_page(field, page.dialog);
        kind_of(field).fit(field);
    }
}

int load_dialog(int identifier) {
    const int slot = free_slot();
    if (slot < 0 || !yydisplay.display) return -1;
    DialogRecord& dialog = dialog_slot(slot);
    if (!load_records(dialog, identifier)) return -1;
    build_dialog(dialog, child_style(dialog) ? loose_parent() : nullptr);
    return slot;
}

void unload(DialogRecord& dialog) {
    for (FieldRecord& field : dialog.fields)
        for (const TabPage& page : field.pages)
            if (page.slot >= 0) unload(dialog_slot(page.slot));
    // Whoever holds the slot or the identifier lets go of it before the widgets die.
    forget_focus(dialog);
    if (dialog.show_mode == DialogSemiModal) yyMSSemiAddRemove(-1, 2, slot_of(dialog));
    gl_forget_dialog(slot_of(dialog));
    yygrforgetdialog(dialog.identifier);
    if (wDialog == slot_of(dialog)) wDialog = -1;
    destroy_widgets(dialog);
    free_images(dialog);
    dialog = DialogRecord{};
}

}  // namespace tesserakit
