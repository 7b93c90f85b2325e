#include "toolkit/widgets/tab_p.hpp"

#include "toolkit/base/colours.hpp"

#include <algorithm>
#include <array>

namespace tesserakit {
namespace {

constexpr int frame = 1;      ///< shadows
constexpr int side_room = 8;  ///< beside a label
constexpr int raised_by = 2;  ///< the tab in front stands out by so much

TabRec& record(Widget widget) { return *reinterpret_cast<TabRec*>(widget); }

std::array<XtResource, 1> resources{{
    resource(tabNselectCallback, XtRCallback, sizeof(XtCallbackList),
             offsetof(TabRec, tab.select_callback)),
}};

/// Labels that are too wide for the strip together give up the room beside them.
std::vector<Box> label_boxes(const TabRec& self) {
    const TabContents& contents = *self.tab.contents;
    std::vector<Box> boxes;
    if (!contents.font) return boxes;
    int total = 0;
    for (const std::string& label : contents.labels) {
        const int width = text_width(*contents.font, label) + 2 * side_room;
        boxes.push_back({0, 0, width, tab_strip_height(*contents.font)});
        total += width;
    }
    const int excess = total - (self.core.width - 2 * raised_by);
    const int count = static_cast<int>(boxes.size());
    const int cut = excess > 0 ? std::min((excess + count - 1) / count, 2 * side_room - 2) : 0;
    int x = raised_by;
    for (Box& box : boxes) {
        box.x = x;
        box.width -= cut;
        x += box.width;
    }
    return boxes;
}

void draw_tab(Widget widget, const TextFont& font, int index, Box box) {
    const TabRec& self = record(widget);
    const TabContents& contents = *self.tab.contents;
    const bool front = index == contents.front;
    if (front)
        box = {box.x - raised_by, 0, box.width + 2 * raised_by, box.height};
    else
        box = {box.x, raised_by, box.width, box.height - raised_by};
    XClearArea(display_of(widget), window_of(widget), box.x, box.y,
               static_cast<unsigned>(box.width), static_cast<unsigned>(box.height + frame), False);
    // The lower edge of the frame falls below what is shown of it.
    XRectangle shown{static_cast<short>(box.x), static_cast<short>(box.y),
                     static_cast<unsigned short>(box.width),
                     static_cast<unsigned short>(box.height + (front ? frame : 0))};
    for (GC gc : {self.primitive.top_shadow_GC, self.primitive.bottom_shadow_GC})
        XSetClipRectangles(display_of(widget), gc, 0, 0, &shown, 1, Unsorted);
    draw_shadows(widget, self.primitive.top_shadow_GC, self.primitive.bottom_shadow_GC, box.x,
                 box.y, box.width, box.height + 2 * frame, frame, XmSHADOW_OUT);
    for (GC gc : {self.primitive.top_shadow_GC, self.primitive.bottom_shadow_GC})
        XSetClipMask(display_of(widget), gc, 0 /* no mask */);
    const std::string& label = contents.labels[static_cast<std::size_t>(index)];
    const int x = box.x + (box.width - text_width(font, label)) / 2;
    const int baseline = box.y + (box.height - font.height()) / 2 + font.measures.ascent;
    draw_text(font, window_of(widget), XtIsSensitive(widget) ? self.tab.text : self.tab.grey_text,
              x, baseline, label);
    if (front && self.primitive.highlighted)
        XDrawRectangle(display_of(widget), window_of(widget), self.tab.text, x - 3, box.y + 3,
                       static_cast<unsigned>(text_width(font, label) + 5),
                       static_cast<unsigned>(box.height - 5));
}

void redisplay(Widget widget, XEvent*, Region) {
    const TabRec& self = record(widget);
    const TabContents& contents = *self.tab.contents;
    const int strip = contents.font ? tab_strip_height(*contents.font) : 0;
    draw_shadows(widget, self.primitive.top_shadow_GC, self.primitive.bottom_shadow_GC, 0, strip,
                 self.core.width, self.core.height - strip, frame, XmSHADOW_OUT);
    if (!contents.font) return;
    const std::vector<Box> boxes = label_boxes(self);
    const auto draw = [&](int i) {
        draw_tab(widget, *contents.font, i, boxes[static_cast<std::size_t>(i)]);
    };
    const int count = static_cast<int>(boxes.size());
    for (int i = 0; i < count; ++i)
        if (i != contents.front) draw(i);
    if (contents.front < count) draw(contents.front);
}

void redraw(Widget widget) {
    if (!XtIsRealized(widget)) return;
    XClearWindow(display_of(widget), window_of(widget));
    redisplay(widget, nullptr, nullptr);
}

void highlight(Widget widget) {
    record(widget).primitive.highlighted = True;
    redraw(widget);
}

void unhighlight(Widget widget) {
    record(widget).primitive.highlighted = False;
    redraw(widget);
}

void choose(Widget widget, int index) {
    const TabRec& self = record(widget);
    if (index == self.tab.contents->front || index < 0 ||
        index >= static_cast<int>(self.tab.contents->labels.size()))
        return;
    TabChoice choice{index, true};
    XtCallCallbackList(widget, self.tab.select_callback, &choice);
    if (choice.allow) tab_select(widget, index);
}

void press(Widget widget, XEvent* event, String*, Cardinal*) {
    XmProcessTraversal(widget, XmTRAVERSE_CURRENT);
    const std::vector<Box> boxes = label_boxes(record(widget));
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (event->xbutton.x >= boxes[i].x && event->xbutton.x < boxes[i].x + boxes[i].width &&
            event->xbutton.y < boxes[i].height)
            choose(widget, static_cast<int>(i));
}

void step(Widget widget, XEvent*, String* parameters, Cardinal*) {
    const TabContents& contents = *record(widget).tab.contents;
    const int count = static_cast<int>(contents.labels.size());
    if (count == 0) return;
    const int direction = parameters[0][0] == 'b' ? -1 : 1;
    choose(widget, (contents.front + direction + count) % count);
}

void initialize(Widget, Widget created, ArgList, Cardinal*) {
    TabRec& self = record(created);
    self.tab.contents = new TabContents;
    XGCValues values{};
    values.foreground = self.primitive.foreground;
    // Their font changes with every text, so they can't be shared.
    self.tab.text = XtAllocateGC(created, 0, GCForeground, &values, GCFont, 0);
    values.foreground = wSchemeCol.disabled;
    self.tab.grey_text = XtAllocateGC(created, 0, GCForeground, &values, GCFont, 0);
}

void destroy(Widget widget) {
    TabPart& part = record(widget).tab;
    XtReleaseGC(widget, part.text);
    XtReleaseGC(widget, part.grey_text);
    delete part.contents;
}

Boolean set_values(Widget current, Widget, Widget set, ArgList, Cardinal*) {
    return XtIsSensitive(current) != XtIsSensitive(set);
}

constexpr char translations[] =
    "<Btn1Down>: tabPress()\n"
    "<FocusIn>: PrimitiveFocusIn()\n"
    "<FocusOut>: PrimitiveFocusOut()\n"
    "<Key>osfLeft: tabStep(b)\n"
    "<Key>osfRight: tabStep(f)";

std::array<XtActionsRec, 2> actions{{
    {xt_name("tabPress"), press},
    {xt_name("tabStep"), step},
}};

TabClassRec class_record() {
    TabClassRec made{.core_class = core_part({.superclass = xmPrimitiveWidgetClass,
                                              .name = "TessTab",
                                              .size = sizeof(TabRec),
                                              .resources = resources,
                                              .actions = actions,
                                              .translations = translations,
                                              .initialize = initialize,
                                              .destroy = destroy,
                                              .redisplay = redisplay,
                                              .set_values = set_values}),
                     .primitive_class = primitive_part(),
                     .tab_class = {.extension = nullptr}};
    made.primitive_class.border_highlight = highlight;
    made.primitive_class.border_unhighlight = unhighlight;
    return made;
}

TabClassRec tab_class_record = class_record();

}  // namespace

WidgetClass tabWidgetClass = reinterpret_cast<WidgetClass>(&tab_class_record);

void tab_set_labels(Widget tab, const TextFont& font, std::vector<std::string> labels) {
    TabContents& contents = *record(tab).tab.contents;
    contents.font = &font;
    contents.labels = std::move(labels);
    contents.front = 0;
    redraw(tab);
}

void tab_select(Widget tab, int index) {
    record(tab).tab.contents->front = index;
    redraw(tab);
}

int tab_strip_height(const TextFont& font) { return font.height() + 4; }

Box tab_page_box(Widget tab) {
    const TabRec& self = record(tab);
    const TabContents& contents = *self.tab.contents;
    const int strip = contents.font ? tab_strip_height(*contents.font) : 0;
    return {frame, strip + frame, std::max(1, self.core.width - 2 * frame),
            std::max(1, self.core.height - strip - 2 * frame)};
}

}  // namespace tesserakit
