/// The tab class: a strip of labels over the frame in which the page in front stands.
///
/// The pages are no children of it; they stand in front of its frame.
#pragma once

#include "toolkit/base/box.hpp"
#include "toolkit/base/fonts.hpp"

#include <X11/Intrinsic.h>

#include <string>
#include <vector>

namespace tesserakit {

extern WidgetClass tabWidgetClass;

/// Callback list, called with a TabChoice when the user chooses another tab.
inline constexpr char tabNselectCallback[] = "tabSelectCallback";

struct TabChoice {
    int tab = 0;        ///< chosen one, from 0
    bool allow = true;  ///< a callback that clears it leaves the tab in front as it was
};

/// `font` must outlive the widget. The first tab comes to the front.
void tab_set_labels(Widget tab, const TextFont& font, std::vector<std::string> labels);
/// Brings a tab to the front without a callback.
void tab_select(Widget tab, int index);
/// Where a page goes, in pixels inside the widget.
Box tab_page_box(Widget tab);
/// Height of the strip of labels in a font.
int tab_strip_height(const TextFont& font);

}  // namespace tesserakit
