// The widget is as high as all its rows together and stands in a scrolled window that shows a part
// of it: drawing knows nothing of scrolling, and the scroll bar is moved for the user's cell. A
// widget's record has no constructors, so what does have one stands in GridContents.

#include "toolkit/widgets/grid_p.hpp"

#include "toolkit/base/colours.hpp"

#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <array>

namespace tesserakit {
namespace {

constexpr int cell_room = 3;  ///< beside and above the text of a cell

GridRec& record(Widget widget) { return *reinterpret_cast<GridRec*>(widget); }

std::array<XtResource, 6> resources{{
    resource(gridNncol, XtRInt, sizeof(int), offsetof(GridRec, grid.ncol), 1),
    resource(gridNnrow, XtRInt, sizeof(int), offsetof(GridRec, grid.nrow)),
    resource(gridNrowHeight, XtRInt, sizeof(int), offsetof(GridRec, grid.row_height)),
    resource(gridNtemplateIdent, XtRInt, sizeof(int), offsetof(GridRec, grid.template_ident)),
    resource(gridNrowWidth, XtRInt, sizeof(int), offsetof(GridRec, grid.row_width)),
    resource(gridNchangeCallback, XtRCallback, sizeof(XtCallbackList),
             offsetof(GridRec, grid.change_callback)),
}};

int row_height(const GridRec& self) {
    if (self.grid.row_height > 0) return self.grid.row_height;
    const TextFont* font = self.grid.contents->font;
    return font ? font->height() + 2 * cell_room : 1;
}

Box cell_box(const GridRec& self, int column, int row) {
    const std::vector<int>& widths = self.grid.contents->widths;
    int x = self.grid.row_width;
    for (int c = 0; c < column; ++c) x += widths[static_cast<std::size_t>(c)];
    return {x, row * row_height(self), widths[static_cast<std::size_t>(column)], row_height(self)};
}

void draw_text_in(Widget widget, const Box& box, GC gc, const std::string& text) {
    const TextFont& font = *record(widget).grid.contents->font;
    XRectangle inside{static_cast<short>(box.x + 1), static_cast<short>(box.y + 1),
                      static_cast<unsigned short>(std::max(1, box.width - 2)),
                      static_cast<unsigned short>(std::max(1, box.height - 2))};
    XSetClipRectangles(display_of(widget), gc, 0, 0, &inside, 1, Unsorted);
    draw_text(font, window_of(widget), gc, box.x + cell_room,
              box.y + (box.height - font.height()) / 2 + font.measures.ascent, text);
    XSetClipMask(display_of(widget), gc, 0 /* no mask */);
}

void draw_cell(Widget widget, int column, int row) {
    const GridRec& self = record(widget);
    const GridPart& part = self.grid;
    const Box box = cell_box(self, column, row);
    Display* const display = display_of(widget);
    const Window window = window_of(widget);
    const GC text = XtIsSensitive(widget) ? part.text : part.grey_text;
    XFillRectangle(display, window, part.field, box.x, box.y, static_cast<unsigned>(box.width),
                   static_cast<unsigned>(box.height));
    XDrawRectangle(display, window, part.grey_text, box.x, box.y, static_cast<unsigned>(box.width),
                   static_cast<unsigned>(box.height));
    draw_text_in(
        widget, box, text,
        part.contents->cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    if (self.primitive.highlighted && column == part.column && row == part.row)
        XDrawRectangle(display, window, part.text, box.x + 1, box.y + 1,
                       static_cast<unsigned>(std::max(1, box.width - 2)),
                       static_cast<unsigned>(std::max(1, box.height - 2)));
}

void draw_row(Widget widget, int row) {
    const GridRec& self = record(widget);
    if (self.grid.row_width > 0) {
        const Box box{0, row * row_height(self), self.grid.row_width, row_height(self)};
        XClearArea(display_of(widget), window_of(widget), box.x, box.y,
                   static_cast<unsigned>(box.width), static_cast<unsigned>(box.height), False);
        draw_shadows(widget, self.primitive.top_shadow_GC, self.primitive.bottom_shadow_GC, box.x,
                     box.y, box.width, box.height, 1, XmSHADOW_OUT);
        draw_text_in(widget, box, XtIsSensitive(widget) ? self.grid.text : self.grid.grey_text,
                     self.grid.contents->labels[static_cast<std::size_t>(row)]);
    }
    for (int column = 0; column < self.grid.ncol; ++column) draw_cell(widget, column, row);
}

void redisplay(Widget widget, XEvent* event, Region) {
    const GridRec& self = record(widget);
    if (!self.grid.contents->font) return;
    int first = 0;
    int last = self.grid.nrow - 1;
    if (event && event->type == Expose) {
        first = event->xexpose.y / row_height(self);
        last = std::min(last, (event->xexpose.y + event->xexpose.height) / row_height(self));
    }
    for (int row = first; row <= last; ++row) draw_row(widget, row);
}

void redraw_cell(Widget widget, int column, int row) {
    const GridPart& part = record(widget).grid;
    if (XtIsRealized(widget) && part.contents->font && row < part.nrow && column < part.ncol)
        draw_cell(widget, column, row);
}

void fit(Widget widget) {
    const GridRec& self = record(widget);
    int width = self.grid.row_width + 1;
    for (const int column : self.grid.contents->widths) width += column;
    const int height = std::max(1, self.grid.nrow * row_height(self) + 1);
    XtVaSetValues(widget, XmNwidth, static_cast<Dimension>(width), XmNheight,
                  static_cast<Dimension>(height), nullptr);
    if (XtIsRealized(widget)) XClearArea(display_of(widget), window_of(widget), 0, 0, 0, 0, True);
}

/// Null when all rows are in sight.
Widget scroll_bar_of(Widget widget) {
    const Widget scrolled = XtParent(XtParent(widget));
    if (!scrolled || !XmIsScrolledWindow(scrolled)) return nullptr;
    Widget bar = nullptr;
    XtVaGetValues(scrolled, XmNverticalScrollBar, &bar, nullptr);
    return bar && XtIsManaged(bar) ? bar : nullptr;
}

/// The scrolled window scrolls to whole children only, so its bar is moved to the row.
void scroll_to_row(Widget widget, int row) {
    const Widget bar = scroll_bar_of(widget);
    if (!bar) return;
    int value = 0;
    int slider = 0;
    int increment = 0;
    int page = 0;
    XmScrollBarGetValues(bar, &value, &slider, &increment, &page);
    const int height = row_height(record(widget));
    const int wanted = std::clamp(value, (row + 1) * height - slider + 1, row * height);
    if (wanted != value && slider >= height)
        XmScrollBarSetValues(bar, wanted, slider, increment, page, True);
}

void scroll_by_rows(Widget widget, int rows) {
    const Widget bar = scroll_bar_of(widget);
    if (!bar) return;
    int value = 0;
    int slider = 0;
    int increment = 0;
    int page = 0;
    int maximum = 0;
    XmScrollBarGetValues(bar, &value, &slider, &increment, &page);
    XtVaGetValues(bar, XmNmaximum, &maximum, nullptr);
    const int wanted =
        std::clamp(value + rows * row_height(record(widget)), 0, std::max(0, maximum - slider));
    if (wanted != value) XmScrollBarSetValues(bar, wanted, slider, increment, page, True);
}

void wheel(Widget widget, XEvent*, String* parameters, Cardinal*) {
    constexpr int rows = 3;
    scroll_by_rows(widget, parameters[0][0] == 'u' ? -rows : rows);
}

void move_to(Widget widget, int column, int row) {
    GridPart& part = record(widget).grid;
    if (part.nrow == 0) return;
    column = std::clamp(column, 0, part.ncol - 1);
    row = std::clamp(row, 0, part.nrow - 1);
    if (column == part.column && row == part.row) return;
    GridChange change{part.column, part.row, column, row, false};
    part.column = column;
    part.row = row;
    redraw_cell(widget, change.from_column, change.from_row);
    redraw_cell(widget, column, row);
    scroll_to_row(widget, row);
    XtCallCallbackList(widget, part.change_callback, &change);
}

void step(Widget widget, XEvent*, String* parameters, Cardinal*) {
    const GridPart& part = record(widget).grid;
    switch (parameters[0][0]) {
        case 'u':
            return move_to(widget, part.column, part.row - 1);
        case 'd':
            return move_to(widget, part.column, part.row + 1);
        case 'l':
            return move_to(widget, part.column - 1, part.row);
        default:
            return move_to(widget, part.column + 1, part.row);
    }
}

void press(Widget widget, XEvent* event, String*, Cardinal*) {
    XmProcessTraversal(widget, XmTRAVERSE_CURRENT);
    const GridRec& self = record(widget);
    const int row = event->xbutton.y / row_height(self);
    for (int column = 0; column < self.grid.ncol && row < self.grid.nrow; ++column) {
        const Box box = cell_box(self, column, row);
        if (event->xbutton.x >= box.x && event->xbutton.x < box.x + box.width)
            move_to(widget, column, row);
    }
}

void type(Widget widget, XEvent* event, String*, Cardinal*) {
    GridPart& part = record(widget).grid;
    if (part.contents->read_only || part.row >= part.nrow) return;
    std::array<char, 16> typed{};
    const int count =
        XLookupString(&event->xkey, typed.data(), static_cast<int>(typed.size()), nullptr, nullptr);
    std::string& cell =
        part.contents
            ->cells[static_cast<std::size_t>(part.row)][static_cast<std::size_t>(part.column)];
    const std::string before = cell;
    for (int i = 0; i < count; ++i) {
        const char c = typed[static_cast<std::size_t>(i)];
        if (c == '\b') {
            if (!cell.empty()) cell.pop_back();
        } else if (c >= ' ' && c <= '~') {
            cell += c;
        }
    }
    if (cell == before) return;
    redraw_cell(widget, part.column, part.row);
    GridChange change{part.column, part.row, part.column, part.row, true};
    XtCallCallbackList(widget, part.change_callback, &change);
}

void highlight(Widget widget) {
    GridRec& self = record(widget);
    self.primitive.highlighted = True;
    redraw_cell(widget, self.grid.column, self.grid.row);
}

void unhighlight(Widget widget) {
    GridRec& self = record(widget);
    self.primitive.highlighted = False;
    redraw_cell(widget, self.grid.column, self.grid.row);
}

void initialize(Widget, Widget created, ArgList, Cardinal*) {
    GridPart& part = record(created).grid;
    part.contents = new GridContents;
    part.column = 0;
    part.row = 0;
    XGCValues values{};
    values.foreground = record(created).primitive.foreground;
    // Their clipping and font change with every text, so they can't be shared.
    part.text = XtAllocateGC(created, 0, GCForeground, &values, GCFont | GCClipMask, 0);
    values.foreground = wSchemeCol.disabled;
    part.grey_text = XtAllocateGC(created, 0, GCForeground, &values, GCFont | GCClipMask, 0);
    values.foreground = wSchemeCol.field;
    part.field = XtGetGC(created, GCForeground, &values);
}

void destroy(Widget widget) {
    GridPart& part = record(widget).grid;
    XtReleaseGC(widget, part.text);
    XtReleaseGC(widget, part.grey_text);
    XtReleaseGC(widget, part.field);
    delete part.contents;
}

Boolean set_values(Widget current, Widget, Widget set, ArgList, Cardinal*) {
    return XtIsSensitive(current) != XtIsSensitive(set);
}

constexpr char translations[] =
    "<Btn1Down>: gridPress()\n"
    "<Btn4Down>: gridWheel(u)\n"
    "<Btn5Down>: gridWheel(d)\n"
    "<FocusIn>: PrimitiveFocusIn()\n"
    "<FocusOut>: PrimitiveFocusOut()\n"
    "<Key>osfUp: gridStep(u)\n"
    "<Key>osfDown: gridStep(d)\n"
    "<Key>osfLeft: gridStep(l)\n"
    "<Key>osfRight: gridStep(r)\n"
    "<Key>: gridType()";

std::array<XtActionsRec, 4> actions{{
    {xt_name("gridPress"), press},
    {xt_name("gridStep"), step},
    {xt_name("gridWheel"), wheel},
    {xt_name("gridType"), type},
}};

GridClassRec class_record() {
    GridClassRec made{.core_class = core_part({.superclass = xmPrimitiveWidgetClass,
                                               .name = "TessGrid",
                                               .size = sizeof(GridRec),
                                               .resources = resources,
                                               .actions = actions,
                                               .translations = translations,
                                               .initialize = initialize,
                                               .destroy = destroy,
                                               .redisplay = redisplay,
                                               .set_values = set_values}),
                      .primitive_class = primitive_part(),
                      .grid_class = {.extension = nullptr}};
    made.primitive_class.border_highlight = highlight;
    made.primitive_class.border_unhighlight = unhighlight;
    return made;
}

GridClassRec grid_class_record = class_record();

}  // namespace

WidgetClass gridWidgetClass = reinterpret_cast<WidgetClass>(&grid_class_record);

void grid_set_columns(Widget grid, const TextFont& font, std::vector<int> widths) {
    GridPart& part = record(grid).grid;
    part.contents->font = &font;
    part.ncol = static_cast<int>(widths.size());
    part.contents->widths = std::move(widths);
    grid_set_rows(grid, part.nrow);
}

void grid_set_rows(Widget grid, int rows) {
    GridPart& part = record(grid).grid;
    part.nrow = rows;
    const auto count = static_cast<std::size_t>(rows);
    part.contents->cells.resize(count);
    for (auto& row : part.contents->cells) row.resize(static_cast<std::size_t>(part.ncol));
    part.contents->labels.resize(count);
    part.row = std::clamp(part.row, 0, std::max(0, rows - 1));
    part.column = std::clamp(part.column, 0, std::max(0, part.ncol - 1));
    fit(grid);
}

int grid_rows(Widget grid) { return record(grid).grid.nrow; }

void grid_set_cell(Widget grid, int column, int row, std::string_view text) {
    record(grid)
        .grid.contents->cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
        text;
    redraw_cell(grid, column, row);
}

std::string grid_cell(Widget grid, int column, int row) {
    return record(grid)
        .grid.contents->cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void grid_set_row_label(Widget grid, int row, std::string_view text) {
    record(grid).grid.contents->labels[static_cast<std::size_t>(row)] = text;
    if (XtIsRealized(grid)) draw_row(grid, row);
}

void grid_set_read_only(Widget grid, bool read_only) {
    record(grid).grid.contents->read_only = read_only;
}

}  // namespace tesserakit
