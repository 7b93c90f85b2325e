#pragma once

#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/diag.hpp"

namespace tesserakit {

struct DiagPart {
    XtCallbackList resize_callback;
};

struct DiagRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    DiagPart diag;
};

struct DiagClassPart {
    XtPointer extension;
};

struct DiagClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    DiagClassPart diag_class;
};

}  // namespace tesserakit
