/// The spin classes: a number in a text with two arrows that step it. One class for each type
/// of value: int, float and double.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

extern WidgetClass integerspinWidgetClass;
extern WidgetClass realspinWidgetClass;
extern WidgetClass doublespinWidgetClass;

/// Callback list, called with a SpinStep at each step of an arrow.
inline constexpr char spinNstepCallback[] = "spinStepCallback";

struct SpinStep {
    double value = 0;  ///< after the step; the callback writes it into the text
};

/// Steps and range of a spin widget of any of the classes; low not below high: no range. Values
/// are cut to the type of the class.
struct SpinSetup {
    double step = 1;
    double big_step = 1;  ///< with Control held
    double low = 1;
    double high = -1;
};
void spin_configure(Widget spin, const SpinSetup& setup);
SpinSetup spin_setup(Widget spin);
/// The text child (XmTextField).
Widget spin_text(Widget spin);
/// One step as by the arrows: direction 1 up, -1 down.
void spin_step(Widget spin, int direction, bool big);

}  // namespace tesserakit
