#pragma once

#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/tess.hpp"

namespace tesserakit {

struct TessPart {
    Pixmap pixmap;
    int pixmap_width;
    int pixmap_height;
    GC gc;
};

struct TessRec {
    CorePart core;
    XmPrimitivePart primitive;
    TessPart tess;
};

struct TessClassPart {
    XtPointer extension;
};

struct TessClassRec {
    CoreClassPart core_class;
    XmPrimitiveClassPart primitive_class;
    TessClassPart tess_class;
};

}  // namespace tesserakit
