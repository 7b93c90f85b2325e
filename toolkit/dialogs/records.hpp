/// The dialogs: their slots, and what stands in a slot.
///
/// A dialog is loaded from the resource block once, as records (load.hpp), then as widgets
/// (build.hpp); from then on its values live in the widgets. A dialog has a shell of its own,
/// or fills a window, or is the page of a tab in another dialog.
///
/// Sizes and positions are pixels. Nothing of this is seen by the application.
#pragma once

#include "toolkit/base/box.hpp"
#include "toolkit/base/resource_pixmap.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/widgets/numeric_field.hpp"
#include "toolkit/windows/dialog_hooks.hpp"

#include <X11/Intrinsic.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tesserakit {

using FieldType = ResourceField;

/// A set of field types.
class FieldTypes {
public:
    constexpr FieldTypes(FieldType type) : bits_(bit(type)) {}
    constexpr FieldTypes(std::initializer_list<FieldType> types) {
        for (const FieldType type : types) bits_ |= bit(type);
    }
    constexpr bool has(FieldType type) const { return (bits_ & bit(type)) != 0; }
    static constexpr FieldTypes all() {
        FieldTypes types{};
        types.bits_ = ~0U;
        return types;
    }

private:
    static constexpr unsigned bit(FieldType type) { return 1U << static_cast<int>(type); }
    unsigned bits_ = 0;
};
/// The user types into these.
inline constexpr FieldTypes typed_fields{FieldType::String, FieldType::Integer, FieldType::Real,
                                         FieldType::Double};
inline constexpr FieldTypes numeric_fields{FieldType::Integer, FieldType::Real, FieldType::Double};

struct DialogRecord;

struct TabPage {
    int dialog = 0;
    std::string label;
    int slot = -1;  ///< -1: not in the resource
};

struct FieldRecord {
    int identifier = 0;
    FieldType type = FieldType::Label;
    DialogRecord* dialog = nullptr;    ///< that it stands in
    Widget widget = nullptr;           ///< shows the value
    Widget position_widget = nullptr;  ///< outermost one, a child of the dialog: placed and hidden
    Widget focus_widget = nullptr;     ///< takes the keys; null where the focus can't go
    Box box;                           ///< as laid out now
    Box loaded_box;
    int right_margin = 0;  ///< to the dialog's edges at load
    int bottom_margin = 0;
    int resize_mask = 0;  ///< ResizeBit
    int style = 0;
    int extended_style = 0;
    int third_style = 0;
    std::string text;     ///< from the resource, without its mnemonic mark
    char mnemonic = 0;    ///< lower case letter or digit, 0 none
    int underlined = -1;  ///< character of `text` that is the mnemonic, -1 none
    int state = FieldEnabled;
    bool user_drawn = false;
    bool initially_set = false;  ///< Check and Radio
    std::unique_ptr<NumericField> numeric;
    std::vector<TabPage> pages;         ///< of a Tab
    int front_page = 0;                 ///< index of the one in front
    int capacity = 0;                   ///< most rows of a Grid
    int line_step = 1, page_step = 10;  ///< of a Trackbar
    int progress_low = 0, progress_high = 100;
    std::string password;  ///< what a password field holds behind its asterisks
    ResourcePixmap image;

    bool has_style(int mask) const { return (style & mask) != 0; }
};

struct DialogRecord {
    int identifier = -1;      ///< -1: the slot is free
    Widget widget = nullptr;  ///< of diagWidgetClass
    Widget shell = nullptr;   ///< null for a page and in a window
    SemiModalLink previous;   ///< semi-modal chain
    int show_mode = -1;       ///< -1 hidden, else a DialogMode
    int width = 0;
    int height = 0;
    int style = 0;
    int flags = 0;
    int resize_field = 0;  ///< identifier, 0 for a dialog of fixed size
    std::string title;
    std::vector<FieldRecord> fields;  ///< in the resource's order; never resized after the load
    FieldRecord* current_field = nullptr;   ///< has or had the focus last
    FieldRecord* previous_field = nullptr;  ///< the one before
    FieldRecord* default_button = nullptr;
    FieldRecord* framed_button = nullptr;  ///< shows the frame of the default button now
    bool user_drawn = false;
    PostingState posting;
    int window = -1;             ///< window slot that it fills
    FieldRecord* tab = nullptr;  ///< field of another dialog whose page it is

    bool loaded() const { return identifier != -1; }
    bool is_page() const { return tab != nullptr; }
    bool shown() const { return show_mode != -1; }
};

extern std::array<DialogRecord, dialog_slots>& wDialogInfo;
extern int wDialog;  ///< current slot, -1 none

/// The slot of a loaded dialog, -1 if it isn't loaded.
int yyDGslot(int identifier);
/// The current dialog, or null with 1005 stored under `routine`.
DialogRecord* current_dialog(const char* routine);
/// The field of the current dialog, or null with 1005 (no dialog) or 1006 (no such field, or of
/// another type) stored under `routine`.
FieldRecord* current_field(int identifier, FieldTypes allowed, const char* routine);
FieldRecord* find_field(DialogRecord& dialog, int identifier);
/// The record and field around a widget; null outside all dialogs, and for the dialog itself.
DialogRecord* dialog_around(Widget widget);
FieldRecord* field_around(Widget widget);
/// The dialog itself, or for a page the one with the tab, outwards to the last.
DialogRecord& outermost(DialogRecord& dialog);
int slot_of(const DialogRecord& dialog);
/// The record of a slot, loaded or free.
DialogRecord& dialog_slot(int slot);
/// The record of a slot, null for a free one and outside 0 to 99.
DialogRecord* loaded_dialog(int slot);
/// -1 when all are taken.
int free_slot();

/// While it lives the dialog's fields change without a message.
class Suppression {
public:
    explicit Suppression(DialogRecord& dialog) : dialog_(dialog) { ++dialog_.posting.suppression; }
    ~Suppression() { --dialog_.posting.suppression; }
    Suppression(const Suppression&) = delete;
    Suppression& operator=(const Suppression&) = delete;

private:
    DialogRecord& dialog_;
};

}  // namespace tesserakit
