/// Tabs and their pages.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Puts the pages of a tab at its inner rectangle, the one in front shown.
void place_pages(FieldRecord& tab);
/// Brings a page to the front, without a message.
void bring_to_front(FieldRecord& tab, int page);

}  // namespace tesserakit
