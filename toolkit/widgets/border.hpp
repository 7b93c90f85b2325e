/// The frame around a field: a manager of one child that fills what the frame leaves.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern WidgetClass borderWidgetClass;

// Which edges the frame has, from the outside in; Boolean, all off by default.
inline constexpr char borderNborder[] = "border";  ///< plain line, 1 pixel
inline constexpr char borderNsunken[] = "sunken";  ///< 1 pixel
inline constexpr char borderNclient[] = "client";  ///< sunken, 2 pixels
inline constexpr char borderNstatic[] = "static";  ///< sunken, 1 pixel
inline constexpr char borderNmodal[] = "modal";    ///< raised, 2 pixels

}  // namespace tesserakit
