/// The status bar of a window: sunken parts with one text each.
#pragma once

#include "toolkit/windows/window_layout.hpp"

#include <X11/Intrinsic.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tesserakit {

inline constexpr int status_parts = 255;

enum class StatusAlignment { Left, Centre, Right };

struct StatusPart {
    Window window = 0;
    int width = rest_of_width;  ///< as asked, in pixels
    StatusAlignment alignment = StatusAlignment::Left;
    std::string text;
};

struct StatusBar {
    Widget widget = nullptr;
    Window window = 0;
    std::vector<StatusPart> parts;
    std::string help;  ///< shown over all parts instead of their texts while not empty
};

/// Height of every status bar in pixels: ascent, descent and 12.
int isbarHeight();

/// Builds a bar of one part in a window's MainWindow.
std::unique_ptr<StatusBar> yystatusbarcreate(Widget main_window, int width);
/// Divides the bar into parts of these widths in pixels, rest_of_width for the one that stretches;
/// parts that there were before keep their texts.
void yysetstatusbar2(StatusBar& bar, const std::vector<int>& widths);
/// Text of a part counted from 1; leading tabs align it. Nothing for a part that isn't there.
void yysetstatustext2(StatusBar& bar, int part, std::string_view text);
/// Draws all parts.
void yystatusbardraw(const StatusBar& bar);
/// Prompt of a menu item over the whole bar; an empty text brings the parts back.
void yyStatusBarHelp(StatusBar& bar, std::string_view prompt);
/// The bar got this width.
void yystatusbarresize(const StatusBar& bar, int width);

}  // namespace tesserakit
