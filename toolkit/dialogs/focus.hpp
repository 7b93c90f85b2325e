/// Who has the focus, and where it can go.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Installs the watch of the focus on the widgets of a field.
void watch_field(FieldRecord& field);
/// Visible, enabled and inside its dialog: the focus can go there.
bool can_focus(const FieldRecord& field);
void move_focus(FieldRecord& field);
/// The field that has the focus first.
FieldRecord* first_focus(DialogRecord& dialog);
/// The radio button of a group that the Tab key goes to: the one that is set. Any other field
/// stands for itself.
FieldRecord& tab_target(FieldRecord& field);
/// The user goes to the field by a key.
void enter_by_key(FieldRecord& field);
/// The field that has the focus, or had it last, in a dialog and the pages of its tabs; null for
/// none.
FieldRecord* focused_field(DialogRecord& dialog);
/// The next or previous field with a tab stop, around from the last to the first.
void yyDGNextPreviousField(DialogRecord& dialog, FieldRecord* from, bool forward);
/// Validates what is being typed and takes it as the field's value; tells the application of a new
/// value. False, with the field marked invalid, for a bad text.
bool commit_typing();
/// Brings the last valid value back in the field that is being typed in, if it is `dialog`'s.
void revert_typing(DialogRecord& dialog);
/// The same whether its text is valid or not.
void revert_focused(DialogRecord& dialog);
/// Nothing points to a field of a dialog that goes away.
void forget_focus(DialogRecord& dialog);
void yyDGDefaultButtonAddRemove(FieldRecord& button, bool add);

}  // namespace tesserakit
