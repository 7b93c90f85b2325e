/// The dialog class: a manager whose children stay at the places that the toolkit gives them.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern WidgetClass diagWidgetClass;

/// Callback list, called after the dialog has got another size.
inline constexpr char diagNresizeCallback[] = "diagResizeCallback";

}  // namespace tesserakit
