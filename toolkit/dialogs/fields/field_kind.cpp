#include "toolkit/dialogs/fields/field_kind.hpp"

#include "toolkit/base/errors.hpp"

#include <X11/Intrinsic.h>

#include <array>

namespace tesserakit {
namespace {

// By FieldType, from 1. A tree view has the plain selection of a list.
constexpr std::array kinds{
    &label_kind,  &picture_kind,  &group_kind, &string_kind,   &number_kind, &number_kind,
    &number_kind, &button_kind,   &check_kind, &radio_kind,    &combo_kind,  &list_kind,
    &tab_kind,    &progress_kind, &grid_kind,  &trackbar_kind, &list_kind,
};
static_assert(kinds.size() == static_cast<std::size_t>(FieldType::TreeView));

}  // namespace

const FieldKind& kind_of(FieldType type) { return *kinds[static_cast<std::size_t>(type) - 1]; }

FieldRecord* current_field_with(int identifier, bool (*serves)(const FieldKind&),
                                const char* routine) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), routine);
    if (!field || serves(kind_of(*field))) return field;
    yyerror(InvalidField, routine, identifier);
    return nullptr;
}

std::string widget_text(const FieldRecord& field) {
    const auto text = kind_of(field).text;
    return text ? text(field) : std::string();
}

void set_widget_text(FieldRecord& field, const std::string& text) {
    if (const auto put_text = kind_of(field).put_text) put_text(field, text);
}

void apply_state(FieldRecord& field, int state) {
    if (!field.position_widget) return;
    const FieldKind& kind = kind_of(field);
    const bool greyed = state == FieldDisabled;
    if (kind.grey)
        kind.grey(field, greyed);
    else
        XtSetSensitive(field.position_widget, greyed ? False : True);
    if (kind.set_read_only) kind.set_read_only(field, state == FieldReadOnly);
    if (state == FieldHidden)
        XtUnmanageChild(field.position_widget);
    else
        XtManageChild(field.position_widget);
    field.state = state;
}

}  // namespace tesserakit
