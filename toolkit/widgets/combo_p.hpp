#pragma once

#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/combo.hpp"

#include <Xm/ComboBoxP.h>

namespace tesserakit {

struct ComboPart {
    GC ink;  ///< of the arrow
    GC grey;
};

struct ComboRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmComboBoxPart combo_box;
    ComboPart combo;
};

struct ComboClassPart {
    XtPointer extension;
};

struct ComboClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmComboBoxClassPart combo_box_class;
    ComboClassPart combo_class;
};

}  // namespace tesserakit
