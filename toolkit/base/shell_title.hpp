/// The title of a shell, as window managers show it.
#pragma once

#include <X11/Intrinsic.h>

#include <string_view>

namespace tesserakit {

/// Shows a UTF-8 text in the title bar and under the icon. Bytes that are no UTF-8 are shown as a
/// replacement sign.
void show_title(Widget shell, std::string_view title);

}  // namespace tesserakit
