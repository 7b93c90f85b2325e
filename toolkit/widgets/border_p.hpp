#pragma once

#include "toolkit/widgets/border.hpp"
#include "toolkit/widgets/class_record.hpp"

namespace tesserakit {

struct BorderPart {
    Boolean border;
    Boolean sunken;
    Boolean client;
    Boolean fixed;  ///< "static"
    Boolean modal;
    GC line;
};

struct BorderRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    BorderPart border;
};

struct BorderClassPart {
    XtPointer extension;
};

struct BorderClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    BorderClassPart border_class;
};

}  // namespace tesserakit
