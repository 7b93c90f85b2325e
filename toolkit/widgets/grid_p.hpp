#pragma once

#include "toolkit/base/box.hpp"
#include "toolkit/widgets/class_record.hpp"
#include "toolkit/widgets/grid.hpp"

namespace tesserakit {

struct GridContents {
    const TextFont* font = nullptr;
    std::vector<int> widths;
    std::vector<std::vector<std::string>> cells;  ///< by row
    std::vector<std::string> labels;              ///< by row
    bool read_only = false;
};

struct GridPart {
    int ncol;
    int nrow;
    int row_height;
    int template_ident;
    int row_width;
    XtCallbackList change_callback;
    GridContents* contents;  ///< owned
    int column;              ///< cell of the user
    int row;
    GC text;
    GC grey_text;
    GC field;
};

struct GridRec {
    CorePart core;
    XmPrimitivePart primitive;
    GridPart grid;
};

struct GridClassPart {
    XtPointer extension;
};

struct GridClassRec {
    CoreClassPart core_class;
    XmPrimitiveClassPart primitive_class;
    GridClassPart grid_class;
};

}  // namespace tesserakit
