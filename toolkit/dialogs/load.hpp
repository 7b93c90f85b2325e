/// A dialog of the resource block as records, and in a slot.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yyDGrcLoad: fills a free record from the resource, its fields without widgets. False, and the
/// record still free, when the resource has no such dialog.
bool load_records(DialogRecord& dialog, int identifier);
int pixels_across(int units);
int pixels_down(int units);

/// Loads into a free slot, with widgets: the slot, or -1.
int load_dialog(int identifier);
/// Loads the page of a tab into a slot of its own; -1 when that can't be.
int load_page(FieldRecord& tab, int identifier);
/// Frees a slot, and those of its pages.
void unload(DialogRecord& dialog);

}  // namespace tesserakit
