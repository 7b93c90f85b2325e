/// What becomes of a number when the focus leaves it: the one owner of the invalid state.
///
/// At most one field holds a bad number. It keeps the focus, and the application hears nothing,
/// until the number is good, is put anew, or is reverted.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yyDGFieldWidgetValidate: takes a typed text as the value and tells the application of a new one.
/// False, with the field marked invalid, for a bad text.
bool validate(FieldRecord& field);
/// Brings the last valid value back.
void revert(FieldRecord& field);
/// Ends the invalid state if it is this field's, and no other's.
void release_invalid(const FieldRecord& field);
/// Whether another field holds a bad number, so that this one has to stay as it is.
bool locked_out(const FieldRecord& field);
/// The field that holds a bad number, or null.
FieldRecord* invalid_field();
/// `field` has the focus while another one holds a bad number.
void note_intruder(FieldRecord& field);
/// Nothing points to a field of a dialog that goes away.
void forget_validity(DialogRecord& dialog);
/// Both stand in the same dialog or its pages.
bool same_window(const FieldRecord& a, const FieldRecord& b);

}  // namespace tesserakit
