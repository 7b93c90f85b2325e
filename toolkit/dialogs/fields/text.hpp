/// Fields that are typed in: strings, and what numbers have in common with them.
#pragma once

#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Callback: the user types.
void typed(Widget, XtPointer client, XtPointer);
Arguments text_arguments(const FieldRecord& field);
/// A put into the field that is being typed in takes the place of what was typed.
void forget_typing(const FieldRecord& field);

}  // namespace tesserakit
