/// The items of a Motif list: those of a list field, and of the list that a combo opens.
#pragma once

#include <X11/Intrinsic.h>

#include <span>
#include <string>

namespace tesserakit {

/// Replaces the items; none is selected then.
void set_items(Widget list, std::span<const std::string> items);
int item_count(Widget list);
/// Selected item, counted from 1, 0 for none.
int selected_item(Widget list);
/// Selects an item, counted from 1; 0 for none. No callback is called.
void select_item(Widget list, int item);
/// Text of an item, counted from 1; empty for one that isn't there.
std::string item_text(Widget list, int item);

}  // namespace tesserakit
