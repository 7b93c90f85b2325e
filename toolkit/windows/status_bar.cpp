#include "toolkit/windows/status_bar.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"

#include <X11/Xlib.h>
#include <Xm/DrawP.h>
#include <Xm/DrawingA.h>

#include <algorithm>
#include <utility>

namespace tesserakit {

namespace {

constexpr int beside_text = 12;  // of the bar's height
constexpr int text_indent = 6;   // pixels before and behind a text
constexpr int shadow_thickness = 1;

struct State {
    GC gc = nullptr;
    GC top_shadow = nullptr;
    GC bottom_shadow = nullptr;
};
State& state = *new State;

GC gc_of(Pixel foreground) {
    XGCValues values{};
    values.foreground = foreground;
    values.graphics_exposures = False;
    return XCreateGC(yydisplay.display, yydisplay.root, GCForeground | GCGraphicsExposures,
                     &values);
}

void make_gcs() {
    if (state.gc) return;
    state.gc = gc_of(wSchemeCol.foreground);
    state.top_shadow = gc_of(wSchemeCol.top_shadow);
    state.bottom_shadow = gc_of(wSchemeCol.bottom_shadow);
}

int bar_width(const StatusBar& bar) {
    Dimension width = 1;
    XtVaGetValues(bar.widget, XmNwidth, &width, nullptr);
    return width;
}

std::vector<Box> part_boxes(const StatusBar& bar, int width) {
    std::vector<int> widths;
    for (const StatusPart& part : bar.parts) widths.push_back(part.width);
    return status_part_boxes(widths, width, isbarHeight());
}

void make_part_window(const StatusBar& bar, StatusPart& part, const Box& box) {
    part.window = XCreateSimpleWindow(
        yydisplay.display, bar.window, box.x, box.y, static_cast<unsigned>(box.width),
        static_cast<unsigned>(box.height), 0, 0, wSchemeCol.background);
    XSelectInput(yydisplay.display, part.window, ExposureMask);
    XMapWindow(yydisplay.display, part.window);
}

int text_x(const StatusPart& part, int width) {
    const int own = text_width(wFonts.status, part.text);
    switch (part.alignment) {
        case StatusAlignment::Centre:
            return std::max((width - own) / 2, text_indent);
        case StatusAlignment::Right:
            return std::max(width - own - text_indent, text_indent);
        case StatusAlignment::Left:
            break;
    }
    return text_indent;
}

void draw_part(const StatusPart& part, const Box& box) {
    Display* display = yydisplay.display;
    XClearWindow(display, part.window);
    // Sunken: the light falls on the lower edges.
    XmeDrawShadows(display, part.window, state.top_shadow, state.bottom_shadow, 0, 0,
                   static_cast<Dimension>(box.width), static_cast<Dimension>(box.height),
                   shadow_thickness, XmSHADOW_IN);
    draw_text(wFonts.status, part.window, state.gc, text_x(part, box.width),
              beside_text / 2 + wFonts.status.measures.ascent, part.text);
}

void draw_prompt(const StatusBar& bar, const StatusPart& part, const Box& box) {
    XClearWindow(yydisplay.display, part.window);
    // One text across all parts, each showing its piece.
    draw_text(wFonts.status, part.window, state.gc, text_indent - box.x,
              beside_text / 2 + wFonts.status.measures.ascent, bar.help);
}

}  // namespace

int isbarHeight() { return wFonts.status.height() + beside_text; }

std::unique_ptr<StatusBar> yystatusbarcreate(Widget main_window, int width) {
    make_gcs();
    auto bar = std::make_unique<StatusBar>();
    bar->widget = XtVaCreateManagedWidget("StatusBar", xmDrawingAreaWidgetClass, main_window,
                                          XmNmarginWidth, 0, XmNmarginHeight, 0, XmNtraversalOn,
                                          False, XmNbackground, wSchemeCol.background, XmNwidth,
                                          std::max(width, 1), XmNheight, isbarHeight(), nullptr);
    bar->window = XtWindowOfObject(bar->widget);
    yysetstatusbar2(*bar, {rest_of_width});
    return bar;
}

void yysetstatusbar2(StatusBar& bar, const std::vector<int>& widths) {
    for (const StatusPart& part : bar.parts) XDestroyWindow(yydisplay.display, part.window);
    const std::size_t count =
        std::clamp<std::size_t>(widths.size(), 1, static_cast<std::size_t>(status_parts));
    std::vector<StatusPart> parts(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (i < widths.size()) parts[i].width = widths[i];
        if (i < bar.parts.size()) parts[i].text = bar.parts[i].text;
        if (i < bar.parts.size()) parts[i].alignment = bar.parts[i].alignment;
    }
    bar.parts = std::move(parts);
    const std::vector<Box> boxes = part_boxes(bar, bar_width(bar));
    for (std::size_t i = 0; i < count; ++i) make_part_window(bar, bar.parts[i], boxes[i]);
}

void yysetstatustext2(StatusBar& bar, int part, std::string_view text) {
    if (part < 1 || part > static_cast<int>(bar.parts.size())) return;
    StatusPart& target = bar.parts[static_cast<std::size_t>(part - 1)];
    target.alignment = StatusAlignment::Left;
    if (text.starts_with("\t\t")) {
        target.alignment = StatusAlignment::Right;
        text.remove_prefix(2);
    } else if (text.starts_with('\t')) {
        target.alignment = StatusAlignment::Centre;
        text.remove_prefix(1);
    }
    target.text = without_trailing_blanks(text);
    if (bar.help.empty())
        draw_part(target, part_boxes(bar, bar_width(bar))[static_cast<std::size_t>(part - 1)]);
}

void yystatusbardraw(const StatusBar& bar) {
    const std::vector<Box> boxes = part_boxes(bar, bar_width(bar));
    for (std::size_t i = 0; i < bar.parts.size(); ++i) {
        const Box& box = boxes[i];
        if (bar.help.empty()) {
            draw_part(bar.parts[i], box);
        } else {
            draw_prompt(bar, bar.parts[i], box);
        }
    }
}

void yyStatusBarHelp(StatusBar& bar, std::string_view prompt) {
    if (bar.help == prompt) return;
    bar.help = prompt;
    yystatusbardraw(bar);
}

void yystatusbarresize(const StatusBar& bar, int width) {
    const std::vector<Box> boxes = part_boxes(bar, width);
    for (std::size_t i = 0; i < bar.parts.size(); ++i) {
        const Box& box = boxes[i];
        XMoveResizeWindow(yydisplay.display, bar.parts[i].window, box.x, box.y,
                          static_cast<unsigned>(box.width), static_cast<unsigned>(box.height));
    }
}

}  // namespace tesserakit
