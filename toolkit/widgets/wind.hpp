/// The client window class: a bare X window that may have a visual of its own.
///
/// It draws nothing and has no behaviour. Create it with XtNdepth (XtRInt), XmNcolormap and the
/// resources below when its visual isn't its parent's; without them it is like its parent.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern WidgetClass windWidgetClass;

/// Visual*, default CopyFromParent.
inline constexpr char windNvisual[] = "windVisual";
/// Mask (XtRLong) of the attributes that are taken from windNattributes: CW... bits.
inline constexpr char windNmask[] = "windMask";
/// const XSetWindowAttributes*, read when the widget is realized.
inline constexpr char windNattributes[] = "windAttributes";

}  // namespace tesserakit
