#pragma once

#include "toolkit/widgets/wind.hpp"

#include <X11/IntrinsicP.h>

#include <X11/CoreP.h>

namespace tesserakit {

struct WindPart {
    Visual* visual;
    long mask;
    const XSetWindowAttributes* attributes;
};

struct WindRec {
    CorePart core;
    WindPart wind;
};

struct WindClassPart {
    XtPointer extension;
};

struct WindClassRec {
    CoreClassPart core_class;
    WindClassPart wind_class;
};

}  // namespace tesserakit
