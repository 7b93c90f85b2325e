#pragma once

#include "toolkit/base/box.hpp"
#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/spin.hpp"

namespace tesserakit {

/// What the three classes have in common, whatever the type of the value.
struct SpinPart {
    XtCallbackList step_callback;
    Widget text;
    GC ink;
    GC grey;
    XtIntervalId timer;  ///< 0 when no arrow is held
    int direction;       ///< of the arrow that is held: 1 up, -1 down, 0 none
    Boolean big;         ///< it steps by the big step
};

template <class Value>
struct SpinRange {
    Value step;
    Value big_step;
    Value low;
    Value high;
};

struct SpinHead {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    SpinPart spin;
};

template <class Value>
struct SpinRec {
    SpinHead head;
    SpinRange<Value> range;
};

struct SpinClassPart {
    XtPointer extension;
};

struct SpinClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    SpinClassPart spin_class;
};

}  // namespace tesserakit
