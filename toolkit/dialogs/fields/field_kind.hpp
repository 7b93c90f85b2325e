/// The kinds of field: what the rest of the dialogs does with a field of whatever kind.
///
/// A kind is one source in this folder with one record of operations, found by the type of the
/// field. A new kind touches these files:
///
///     toolkit/resource/yyrc.hpp                   its type in ResourceField
///     toolkit/resource/generator/field_line.cpp   its word in the catalogue
///     toolkit/dialogs/fields/KIND.cpp             its record, its callbacks and its public calls
///     toolkit/dialogs/fields/field_kind.{hpp,cpp} the record's name and its row in the table
///     toolkit/tesserakit.hpp                      its public calls
///     toolkit/CMakeLists.txt                      the source
///
/// and toolkit/widgets for a kind that no widget of Motif can show. One with rows of its own in the
/// resource block (a range, items, pages) also touches rows.hpp, yyrc and
/// generator/tables_writer.cpp in toolkit/resource.
#pragma once

#include "toolkit/dialogs/records.hpp"

#include <span>
#include <string>

namespace tesserakit {

/// Options of a combo or a list, counted from 1, 0 for none. No callback is called.
struct MenuOperations {
    void (*set)(Widget, std::span<const std::string> options);
    int (*count)(Widget);
    int (*selected)(Widget);
    void (*select)(Widget, int option);
    std::string (*text)(Widget);  ///< of the selected one; what stands in a combo
};

/// Operations of a kind. All but `create` may be null: nothing beyond what every field does.
struct FieldKind {
    /// Reads the tables that the resource has for this kind, before there are widgets.
    void (*load)(FieldRecord&) = nullptr;
    /// Makes the widgets, and sets the widgets of the record.
    void (*create)(FieldRecord&) = nullptr;
    /// Text that the field shows, and a new one, without a message. Null: it shows none.
    std::string (*text)(const FieldRecord&) = nullptr;
    void (*put_text)(FieldRecord&, const std::string&) = nullptr;
    /// In place of XtSetSensitive on the position widget.
    void (*grey)(FieldRecord&, bool greyed) = nullptr;
    void (*set_read_only)(FieldRecord&, bool read_only) = nullptr;
    /// Has a new place or size, or was shown or hidden.
    void (*fit)(FieldRecord&) = nullptr;
    /// Height on the screen where it isn't that of the resource.
    int (*height)(const FieldRecord&) = nullptr;
    /// Width that its text asks for, 0 where the field is to stay as wide as it is.
    int (*wanted_width)(const FieldRecord&) = nullptr;
    /// The field that the Tab key stops at in its place.
    FieldRecord& (*tab_stop)(FieldRecord&) = nullptr;
    /// The dialog inside it, null for none.
    DialogRecord* (*page)(FieldRecord&) = nullptr;
    /// The user has come by the Tab key or the mnemonic.
    void (*entered_by_key)(FieldRecord&) = nullptr;
    /// Translations in front of those of every field, and what yyDGKeyTrans does by them: the
    /// letter, and for moves the direction.
    std::string (*keys)(const FieldRecord&) = nullptr;
    void (*key)(FieldRecord&, char key, bool forward, const XEvent&) = nullptr;
    const MenuOperations* menu = nullptr;
    bool marks_mnemonic = false;   ///< its text comes from the resource, "&" marking a letter
    bool behind = false;           ///< other fields stand inside its box
    bool pressed_by_keys = false;  ///< Return and the mnemonic press it
    bool has_cells = false;        ///< the focus moves inside it
};

const FieldKind& kind_of(FieldType type);
inline const FieldKind& kind_of(const FieldRecord& field) { return kind_of(field.type); }

/// current_field for calls that serve every kind with some operation.
FieldRecord* current_field_with(int identifier, bool (*serves)(const FieldKind&),
                                const char* routine);

/// The text that a field shows, empty where it shows none, and a new one, without a message.
std::string widget_text(const FieldRecord& field);
void set_widget_text(FieldRecord& field, const std::string& text);
/// FieldDisabled and the like.
void apply_state(FieldRecord& field, int state);

extern const FieldKind label_kind;
extern const FieldKind picture_kind;
extern const FieldKind group_kind;
extern const FieldKind string_kind;
extern const FieldKind number_kind;
extern const FieldKind button_kind;
extern const FieldKind check_kind;
extern const FieldKind radio_kind;
extern const FieldKind combo_kind;
extern const FieldKind list_kind;
extern const FieldKind tab_kind;
extern const FieldKind progress_kind;
extern const FieldKind grid_kind;
extern const FieldKind trackbar_kind;

}  // namespace tesserakit
