/// The grid class: cells of text in rows and columns, with a label before each row.
///
/// It is as tall as its rows; a scrolled window around it shows a piece. The cell of the user
/// is framed, and typing edits it.
#pragma once

#include "toolkit/base/fonts.hpp"

#include <X11/Intrinsic.h>

#include <string>
#include <string_view>
#include <vector>

namespace tesserakit {

extern WidgetClass gridWidgetClass;

// Resources, all XtRInt.
inline constexpr char gridNncol[] = "ncol";
inline constexpr char gridNnrow[] = "nrow";
inline constexpr char gridNrowHeight[] = "rowHeight";  ///< pixels; 0: as the font asks
inline constexpr char gridNtemplateIdent[] = "templateIdent";
inline constexpr char gridNrowWidth[] = "rowWidth";  ///< of the row labels, pixels; 0: none
/// Callback list, called with a GridChange.
inline constexpr char gridNchangeCallback[] = "gridChangeCallback";

/// What the user did: moved from one cell to another, or (edited) changed the text of `to`.
/// Columns and rows count from 0.
struct GridChange {
    int from_column = 0;
    int from_row = 0;
    int to_column = 0;
    int to_row = 0;
    bool edited = false;
};

/// `font` must outlive the widget. Widths are those of the columns, in pixels.
void grid_set_columns(Widget grid, const TextFont& font, std::vector<int> widths);
/// Rows that stay keep their texts.
void grid_set_rows(Widget grid, int rows);
int grid_rows(Widget grid);
/// Columns and rows count from 0 and must be there.
void grid_set_cell(Widget grid, int column, int row, std::string_view text);
std::string grid_cell(Widget grid, int column, int row);
void grid_set_row_label(Widget grid, int row, std::string_view text);
/// Cells can be moved through, but not typed into.
void grid_set_read_only(Widget grid, bool read_only);

}  // namespace tesserakit
