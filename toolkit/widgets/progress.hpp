/// The progress bar class.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern WidgetClass progressWidgetClass;

// XtRInt. The bar covers (value - minimum) / (maximum - minimum) of the width.
inline constexpr char progressNminimum[] = "progressMinimum";
inline constexpr char progressNmaximum[] = "progressMaximum";  ///< default 100
inline constexpr char progressNvalue[] = "progressValue";

}  // namespace tesserakit
