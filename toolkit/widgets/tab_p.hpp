#pragma once

#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/tab.hpp"

namespace tesserakit {

struct TabContents {
    const TextFont* font = nullptr;
    std::vector<std::string> labels;
    int front = 0;
};

struct TabPart {
    XtCallbackList select_callback;
    TabContents* contents;  ///< owned
    GC text;
    GC grey_text;
};

struct TabRec {
    CorePart core;
    XmPrimitivePart primitive;
    TabPart tab;
};

struct TabClassPart {
    XtPointer extension;
};

struct TabClassRec {
    CoreClassPart core_class;
    XmPrimitiveClassPart primitive_class;
    TabClassPart tab_class;
};

}  // namespace tesserakit
