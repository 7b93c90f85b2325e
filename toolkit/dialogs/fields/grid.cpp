#include "toolkit/widgets/grid.hpp"
#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/units.hpp"

#include <Xm/ScrolledW.h>

#include <algorithm>

namespace tesserakit {
namespace {

int packed_cell(int column, int row) { return ((row + 1) << 18) | (column + 1); }

void grid_changed(Widget, XtPointer client, XtPointer call) {
    const FieldRecord& field = field_of(client);
    const auto& change = *static_cast<GridChange*>(call);
    Mail mail = dialog_mail(FieldChanged, *field.dialog, field.identifier, field.identifier);
    if (!change.edited) mail.value3 = 0;
    mail.x = packed_cell(change.from_column, change.from_row);
    mail.y = packed_cell(change.to_column, change.to_row);
    post(*field.dialog, mail);
}

struct GridSetup {
    int capacity = 0;
    int template_dialog = 0;
    int label_width = 0;
    std::vector<int> widths;  ///< of the columns, in dialog units
};

GridSetup load_grid(const FieldRecord& field) {
    GridSetup setup;
    int count = 0;
    yyrcfieldgridcheck(field.dialog->identifier, field.identifier, count);
    if (count < 1) count = 0;
    std::vector<int> column_fields(static_cast<std::size_t>(count));
    setup.widths.resize(static_cast<std::size_t>(count));
    yyrcfieldgridload(field.dialog->identifier, field.identifier, setup.capacity,
                      setup.template_dialog, setup.label_width, column_fields, setup.widths);
    if (setup.widths.empty()) setup.widths.push_back(0);
    return setup;
}

/// The grid of the current dialog with that row (from 1), or null with its error stored.
FieldRecord* grid_with_row(int identifier, int row, const char* routine) {
    FieldRecord* field = current_field(identifier, FieldType::Grid, routine);
    if (field && (row < 1 || row > grid_rows(field->widget))) {
        yyerror(CellOutOfRange, routine, identifier, row);
        return nullptr;
    }
    return field;
}

FieldRecord* grid_with_cell(int identifier, int column, int row, const char* routine) {
    FieldRecord* field = grid_with_row(identifier, row, routine);
    if (!field) return nullptr;
    int columns = 0;
    XtVaGetValues(field->widget, gridNncol, &columns, nullptr);
    if (column >= 1 && column <= columns) return field;
    yyerror(CellOutOfRange, routine, identifier, column);
    return nullptr;
}

void create_grid(FieldRecord& field) {
    const GridSetup setup = load_grid(field);
    field.capacity = std::max(setup.capacity, 0);
    field.position_widget = create_border(field, false);
    Arguments frame;
    frame(XmNscrollingPolicy, XmAUTOMATIC)(XmNscrollBarDisplayPolicy, XmAS_NEEDED);
    frame(XmNspacing, 1);
    const Widget scrolled =
        frame.create("scrolled", xmScrolledWindowWidgetClass, field.position_widget);
    const int label_width = pixels_across(setup.label_width);
    Arguments args;
    args(gridNrowWidth, label_width)(gridNtemplateIdent, setup.template_dialog);
    args(XmNhighlightThickness, 0)(XmNwidth, 1)(XmNheight, 1);
    field.widget = args.create("grid", gridWidgetClass, scrolled);
    field.focus_widget = field.widget;
    // A column without a width of its own takes its share of what the scroll bar leaves.
    constexpr int scroll_bar = 24;
    const int share =
        (field.box.width - label_width - scroll_bar) / static_cast<int>(setup.widths.size());
    std::vector<int> widths;
    for (const int width : setup.widths)
        widths.push_back(width > 0 ? pixels_across(width) : std::max(1, share));
    grid_set_columns(field.widget, wFonts.dialog, std::move(widths));
    XtManageChild(field.widget);
    XtManageChild(scrolled);
    XtAddCallback(field.widget, gridNchangeCallback, grid_changed, &field);
}

}  // namespace

void wgridrows(int identifier, int rows) {
    constexpr const char* routine = "WGridRows";
    FieldRecord* field = current_field(identifier, FieldType::Grid, routine);
    if (!field) return;
    if (rows < 1 || rows > field->capacity) yyerror(TooManyRows, routine, identifier, rows);
    grid_set_rows(field->widget, std::clamp(rows, 0, field->capacity));
}

void wgridputcellstring(int identifier, int column, int row, std::string_view text) {
    FieldRecord* field = grid_with_cell(identifier, column, row, "WGridPutCellString");
    if (field) grid_set_cell(field->widget, column - 1, row - 1, without_trailing_blanks(text));
}

void wgridgetcellstring(int identifier, int column, int row, std::string& text) {
    const FieldRecord* field = grid_with_cell(identifier, column, row, "WGridGetCellString");
    if (field) text = grid_cell(field->widget, column - 1, row - 1);
}

void wgridlabelrow(int identifier, int row, std::string_view text) {
    FieldRecord* field = grid_with_row(identifier, row, "WGridLabelRow");
    if (field) grid_set_row_label(field->widget, row - 1, without_trailing_blanks(text));
}

namespace {

/// A greyed grid can still be scrolled: its scrolled window stays as it is.
void grey_grid(FieldRecord& field, bool greyed) {
    XtSetSensitive(field.widget, greyed ? False : True);
}

void set_grid_read_only(FieldRecord& field, bool read_only) {
    grid_set_read_only(field.widget, read_only);
}

}  // namespace

const FieldKind grid_kind{
    .create = create_grid,
    .grey = grey_grid,
    .set_read_only = set_grid_read_only,
    .has_cells = true,
};

}  // namespace tesserakit
