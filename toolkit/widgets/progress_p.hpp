#pragma once

#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/progress.hpp"

namespace tesserakit {

struct ProgressPart {
    int minimum;
    int maximum;
    int value;
    GC bar;
};

struct ProgressRec {
    CorePart core;
    XmPrimitivePart primitive;
    ProgressPart progress;
};

struct ProgressClassPart {
    XtPointer extension;
};

struct ProgressClassRec {
    CoreClassPart core_class;
    XmPrimitiveClassPart primitive_class;
    ProgressClassPart progress_class;
};

}  // namespace tesserakit
