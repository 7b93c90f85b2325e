#include "toolkit/menus/tooltips.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/menus/menu_record.hpp"

#include <X11/Shell.h>
#include <Xm/Label.h>

#include <array>
#include <map>

namespace tesserakit {

constinit bool bDisplayedTooltip = false;

namespace {

constexpr int below_pointer = 20;  // clear of the cursor
constexpr int margin = 3;

struct State {
    std::array<std::map<int, std::string>, window_slots> texts;  // pTooltip, by window
    XtIntervalId timer = 0;
    int next = 0;  // identifier, of the timer
    int next_window = 0;
    Widget shell = nullptr;  // made with the first tooltip and kept
    Widget label = nullptr;
};
State& state = *new State;  // never destroyed: at exit the display may be gone

void make_shell() {
    if (state.shell) return;
    state.shell = XtVaCreatePopupShell(
        "Tooltip", overrideShellWidgetClass, yydisplay.root_widget, XmNallowShellResize, True,
        XmNsaveUnder, True, XmNborderWidth, 1, XmNborderColor, wSchemeCol.black, XmNdepth,
        yydisplay.depth, XmNvisual, yydisplay.visual, XmNcolormap, yydisplay.colormap, nullptr);
    state.label = XtVaCreateManagedWidget("TooltipText", xmLabelWidgetClass, state.shell,
                                          XmNrenderTable, wFonts.menu.table, XmNforeground,
                                          wSchemeCol.black, XmNbackground, wSchemeCol.tooltip,
                                          XmNmarginWidth, margin, XmNmarginHeight, margin, nullptr);
    XtRealizeWidget(state.shell);
}

Place place_below_pointer() {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(state.shell, XmNwidth, &width, XmNheight, &height, nullptr);
    Window ignored = 0;
    int root_x = 0, root_y = 0, x = 0, y = 0;
    unsigned buttons = 0;
    XQueryPointer(yydisplay.display, yydisplay.root, &ignored, &ignored, &root_x, &root_y, &x, &y,
                  &buttons);
    // The pointer counts as an item as high as the cursor: the tooltip is above it where the
    // screen ends below.
    return place_below({root_x, root_y - 2, 1, below_pointer}, width + 2, height + 2,
                       {0, 0, yydisplay.width, yydisplay.height});
}

void yymnTooltipCB(XtPointer, XtIntervalId*) {
    state.timer = 0;
    const std::string text = tooltip_of(state.next, state.next_window);
    if (text.empty()) return;
    make_shell();
    const CompoundText label(text);
    XtVaSetValues(state.label, XmNlabelString, label.get(), nullptr);
    const Place place = place_below_pointer();
    XtVaSetValues(state.shell, XmNx, place.x, XmNy, place.y, nullptr);
    XtPopup(state.shell, XtGrabNone);
    bDisplayedTooltip = true;
}

}  // namespace

void yytooltip(int identifier, std::string_view text, int window) {
    if (window < 0 || window >= window_slots) return;
    auto& texts = state.texts[static_cast<std::size_t>(window)];
    if (text.empty()) {
        texts.erase(identifier);
    } else {
        texts[identifier] = text;
    }
}

std::string tooltip_of(int identifier, int window) {
    const auto& texts = state.texts[static_cast<std::size_t>(window)];
    const auto found = texts.find(identifier);
    return found == texts.end() ? std::string() : found->second;
}

void forget_tooltips(int window) {
    yymnDestroyCurrentTooltip();
    state.texts[static_cast<std::size_t>(window)].clear();
}

void start_tooltip(int identifier, int window) {
    yymnDestroyCurrentTooltip();
    state.next = identifier;
    state.next_window = window;
    state.timer = XtAppAddTimeOut(yydisplay.app, tooltip_rest_ms, yymnTooltipCB, nullptr);
}

void yymnDestroyCurrentTooltip() {
    if (state.timer != 0) XtRemoveTimeOut(state.timer);
    state.timer = 0;
    yymnHideTooltip();
}

void yymnHideTooltip() {
    if (!bDisplayedTooltip) return;
    XtPopdown(state.shell);
    bDisplayedTooltip = false;
}

}  // namespace tesserakit
