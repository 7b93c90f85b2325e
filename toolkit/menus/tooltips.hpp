/// Tooltips: what a toolbar button does, shown while the pointer rests on it.
#pragma once

#include "toolkit/windows/window_slots.hpp"

#include <X11/Intrinsic.h>

#include <string>
#include <string_view>

namespace tesserakit {

inline constexpr int tooltip_rest_ms = 500;  ///< under the pointer before the tooltip comes

/// Adds or replaces a tooltip of a window; an empty text takes it away.
void yytooltip(int identifier, std::string_view text, int window = wCurrentWindow);
/// The tooltip of an identifier in a window; empty for none.
std::string tooltip_of(int identifier, int window);
/// Forgets the tooltips of a window that closes.
void forget_tooltips(int window);

/// Shows a window's tooltip of an identifier after the rest, unless something happens before. One
/// that is there goes.
void start_tooltip(int identifier, int window);

extern bool bDisplayedTooltip;
/// Takes the tooltip away, or one that was about to come; nothing without one.
void yymnDestroyCurrentTooltip();
/// Takes away one that is shown; one that is about to come still does.
void yymnHideTooltip();

}  // namespace tesserakit
