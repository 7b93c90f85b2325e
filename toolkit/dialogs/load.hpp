/// A dialog of the resource block as records, and in a slot.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yyDGrcLoad: fills a free record from the resource, its fields without widgets. False, and the
/// record still free, when the resource has no such dialog.
bool load_records(DialogRecord& dialog, int identifier);

/// Makes the widgets of loaded records, and loads the pages of its tabs, each into a slot of its
/// own; a page that the resource hasn't, or that is loaded already, stays away.
void build_dialog(DialogRecord& dialog, Widget parent);
/// Loads into a free slot, with widgets: the slot, or -1.
int load_dialog(int identifier);
/// Frees a slot, and those of its pages.
void unload(DialogRecord& dialog);

}  // namespace tesserakit
