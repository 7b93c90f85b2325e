/// The combo class: a text with an arrow that opens the list of its options.
#pragma once

#include <X11/Intrinsic.h>

#include <span>
#include <string>

namespace tesserakit {

extern WidgetClass comboWidgetClass;

/// Replaces the options; none is selected then.
void combo_set_options(Widget combo, std::span<const std::string> options);
/// Selects an option, counted from 1; 0 for none. No callback is called.
void combo_select(Widget combo, int option);
/// Selected option, counted from 1, 0 for none.
int combo_selected(Widget combo);
int combo_count(Widget combo);
/// The text child, which shows the selected option.
Widget combo_text(Widget combo);
Widget combo_list(Widget combo);

}  // namespace tesserakit
