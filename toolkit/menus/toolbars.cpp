#include "toolkit/menus/toolbars.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/menus/menu_windows.hpp"
#include "toolkit/menus/tooltips.hpp"
#include "toolkit/resource/yyrc.hpp"

#include <X11/IntrinsicP.h>
#include <X11/Xutil.h>
#include <Xm/DrawP.h>
#include <Xm/DrawingA.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <array>

namespace tesserakit {

namespace {

constexpr int beside_height = 12;  // of a picture, in a toolbar at the top or bottom
constexpr int beside_width = 10;   // at the left or right
constexpr int around_picture = 6;  // of a button
constexpr int gap = 6;
constexpr int button_shadow = 2;
constexpr int strip_shadow = 1;

bool lies(int side) { return side == TopSide || side == BottomSide; }

using Toolbars = std::array<std::unique_ptr<Toolbar>, 4>;  // top, left, right, bottom

struct State {
    std::array<Toolbars, window_slots> toolbars;  ///< pwToolbar, by window
};
State& state = *new State;  // never destroyed: at exit the display may be gone

std::unique_ptr<Toolbar>& toolbar_of(int side, int window) {
    return state.toolbars[static_cast<std::size_t>(window)][static_cast<std::size_t>(side)];
}

int thickness_of(int side, int width, int height) {
    return lies(side) ? height + beside_height : width + beside_width;
}

int enlargement_of(int height) { return button_enlargement(height, wFonts.dialog.height()); }

/// The strip's own edge. Its buttons draw themselves.
void yymntbarDrawCB(Widget widget, XtPointer, XtPointer) {
    const Window window = XtWindowOfObject(widget);
    if (window == 0) return;
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(widget, XmNwidth, &width, XmNheight, &height, nullptr);
    XGCValues values{};
    values.foreground = wSchemeCol.top_shadow;
    const GC light = XtGetGC(widget, GCForeground, &values);
    values.foreground = wSchemeCol.bottom_shadow;
    const GC dark = XtGetGC(widget, GCForeground, &values);
    // At a new size the old edge is inside the strip.
    XClearWindow(yydisplay.display, window);
    XmeDrawShadows(yydisplay.display, window, light, dark, 0, 0, width, height, strip_shadow,
                   XmSHADOW_OUT);
    XtReleaseGC(widget, light);
    XtReleaseGC(widget, dark);
}

void put_state(const ToolbarButton& button) {
    XtVaSetValues(button.widget, XmNset, button.on ? XmSET : XmUNSET, nullptr);
}

/// The button springs back; a checkable one stays, unless a bad number holds the message back.
void yymnButtonPressedCB(Widget, XtPointer client, XtPointer) {
    auto& button = *static_cast<ToolbarButton*>(client);
    if (button.checkable && !bInvalidField) button.on = !button.on;
    put_state(button);
    yyDGSendTesserakitMessage(
        nullptr, {.type = MenuSelect, .value1 = button.identifier, .win = button.window});
}

std::unique_ptr<Toolbar> create_strip(int side, int identifier, int thickness, int window) {
    auto bar = std::make_unique<Toolbar>();
    bar->identifier = identifier;
    bar->side = side;
    bar->thickness = thickness;
    // With a resize policy the strip would shrink to its buttons, away from where it was put.
    bar->widget = XtVaCreateManagedWidget(
        "Toolbar", xmDrawingAreaWidgetClass, window_slot(window).window_widget, XmNmarginWidth, 0,
        XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE, XmNtraversalOn, False, XmNbackground,
        wSchemeCol.background, XmNwidth, lies(side) ? 1 : thickness, XmNheight,
        lies(side) ? thickness : 1, nullptr);
    XtAddCallback(bar->widget, XmNexposeCallback, yymntbarDrawCB, nullptr);
    XtAddCallback(bar->widget, XmNresizeCallback, yymntbarDrawCB, nullptr);
    return bar;
}

Widget create_button(const Toolbar& bar, const Box& box, const ButtonPictures& pictures) {
    const CompoundText blank("");
    Arguments args;
    args(XmNx, box.x)(XmNy, box.y)(XmNwidth, box.width)(XmNheight, box.height);
    args(XmNlabelString, blank.get());
    args(XmNindicatorOn, XmINDICATOR_NONE)(XmNfillOnSelect, True);
    args(XmNshadowThickness, button_shadow)(XmNhighlightThickness, 0);
    args(XmNmarginWidth, 0)(XmNmarginHeight, 0);
    args(XmNrecomputeSize, False)(XmNtraversalOn, False);
    args(XmNbackground, wSchemeCol.background)(XmNselectColor, wSchemeCol.select);
    if (pictures.plain != 0) {
        args(XmNlabelType, XmPIXMAP)(XmNlabelPixmap, pictures.plain);
        args(XmNselectPixmap, pictures.armed)(XmNlabelInsensitivePixmap, pictures.greyed);
        args(XmNselectInsensitivePixmap, pictures.greyed);
    }
    return args.create("ToolbarButton", xmToggleButtonWidgetClass, bar.widget);
}

void add_button(Toolbar& bar, const DynamicToolbarRow& row, const Box& box, int window) {
    const std::size_t number = bar.buttons.size();
    bar.buttons.push_back(std::make_unique<ToolbarButton>());
    ToolbarButton& button = *bar.buttons.back();
    button.identifier = row.identifier;
    button.checkable = row.checkable;
    button.window = window;
    const bool has_picture = number < bar.strip.buttons.size();
    button.widget =
        create_button(bar, box, has_picture ? bar.strip.buttons[number] : ButtonPictures{});
    XtAddCallback(button.widget, XmNvalueChangedCallback, yymnButtonPressedCB, &button);
    XtSetSensitive(button.widget, row.greyed ? False : True);
    yytooltip(row.identifier, row.tooltip, window);
    XtManageChild(button.widget);
}

std::string string_of(int identifier) {
    int length = 0;
    yyrcstringcheck(identifier, length);
    if (length <= 0) return {};
    std::string text(static_cast<std::size_t>(length), ' ');
    yyrcstringload(identifier, text);
    return text;
}

template <class Change>
bool change_buttons(int identifier, int window, const Change& change) {
    bool found = false;
    for (const auto& bar : state.toolbars[static_cast<std::size_t>(window)]) {
        if (!bar) continue;
        for (const auto& button : bar->buttons) {
            if (button->identifier != identifier) continue;
            change(*button);
            found = true;
        }
    }
    return found;
}

const ToolbarButton* button_of(Window window) {
    for (const Toolbars& bars : state.toolbars)
        for (const auto& bar : bars) {
            if (!bar) continue;
            for (const auto& button : bar->buttons)
                if (XtWindowOfObject(button->widget) == window) return button.get();
        }
    return nullptr;
}

/// Check marks and greying of an item of the window's menu hold for its button too.
void follow_menu(int identifier, int window) {
    const Menu* menu = menu_of(window);
    const int row = menu ? menu->record.row_of(identifier) : -1;
    if (row < 0) return;
    const MenuItem& item = menu->record.item(row);
    if (item.is_greyed()) grey_button(identifier, true, window);
    if (item.state >= 0) check_button(identifier, item.state == 1, window);
}

}  // namespace

std::vector<Box> place_buttons(int side, std::span<const int> identifiers, int width, int height) {
    const Box button{0, 0, width + around_picture, height + around_picture};
    const int across =
        (thickness_of(side, width, height) - (lies(side) ? button.height : button.width)) / 2;
    std::vector<Box> boxes;
    int along = across;
    for (const int identifier : identifiers) {
        if (identifier == 0) {
            along += gap;
            continue;
        }
        Box box = button;
        box.x = lies(side) ? along : across;
        box.y = lies(side) ? across : along;
        along += lies(side) ? box.width : box.height;
        boxes.push_back(box);
    }
    return boxes;
}

int yymntbarthickness(int side, int toolbar) {
    if (toolbar == 0) return 0;
    int buttons = 0;
    int width = 0;
    int height = 0;
    yyrctoolbarcheck(toolbar, buttons, width, height);
    if (buttons < 0) return 0;
    const int enlargement = enlargement_of(height);
    return thickness_of(side, width * enlargement, height * enlargement);
}

void yymntbar(int side, int toolbar, int window) {
    if (yymntbarthickness(side, toolbar) == 0) return;
    int count = 0;
    int width = 0;
    int height = 0;
    yyrctoolbarcheck(toolbar, count, width, height);
    std::vector<int> identifiers(static_cast<std::size_t>(count));
    yyrctoolbarload(toolbar, identifiers);
    std::vector<std::string> tooltips;
    tooltips.reserve(identifiers.size());
    for (const int identifier : identifiers) tooltips.push_back(string_of(identifier));
    std::vector<DynamicToolbarRow> rows;
    for (std::size_t i = 0; i < identifiers.size(); ++i)
        rows.push_back({.identifier = identifiers[i], .tooltip = tooltips[i]});
    yymnloaddynamictoolbar(side, toolbar, width, height, rows, window);
}

void yymnloaddynamictoolbar(int side, int strip, int width, int height,
                            std::span<const DynamicToolbarRow> rows, int window) {
    yymntbardestroy(side, window);
    const int enlargement = enlargement_of(height);
    const int across = width * enlargement;
    const int down = height * enlargement;
    auto& bar = toolbar_of(side, window);
    bar = create_strip(side, strip, thickness_of(side, across, down), window);
    bar->strip = load_button_strip(strip, width, height, enlargement);
    std::vector<int> identifiers;
    for (const DynamicToolbarRow& row : rows) identifiers.push_back(row.identifier);
    const std::vector<Box> boxes = place_buttons(side, identifiers, across, down);
    for (const DynamicToolbarRow& row : rows) {
        if (row.identifier == 0) continue;
        add_button(*bar, row, boxes[bar->buttons.size()], window);
        follow_menu(row.identifier, window);
    }
}

int yymntbarthicknessnow(int side, int window) {
    const auto& bar = toolbar_of(side, window);
    return bar ? bar->thickness : 0;
}

void yymntbarresize(int side, int window, const Box& box) {
    const auto& bar = toolbar_of(side, window);
    if (!bar) return;
    XtConfigureWidget(bar->widget, static_cast<Position>(box.x), static_cast<Position>(box.y),
                      static_cast<Dimension>(box.width), static_cast<Dimension>(box.height), 0);
}

void yymntbardestroy(int side, int window) {
    auto& bar = toolbar_of(side, window);
    if (!bar) return;
    yymnDestroyCurrentTooltip();
    XtDestroyWidget(bar->widget);
    free_button_strip(bar->strip);
    bar.reset();
}

bool check_button(int identifier, bool on, int window) {
    return change_buttons(identifier, window, [on](ToolbarButton& button) {
        button.checkable = true;
        button.on = on;
        put_state(button);
    });
}

bool grey_button(int identifier, bool greyed, int window) {
    return change_buttons(identifier, window, [greyed](const ToolbarButton& button) {
        XtSetSensitive(button.widget, greyed ? False : True);
    });
}

// Xt tells a greyed widget nothing, and what a greyed button would do is worth knowing, too.
void yymnChangeFocusEH(const XCrossingEvent& event) {
    const ToolbarButton* button = button_of(event.window);
    if (!button) return;
    yymnDestroyCurrentTooltip();
    if (event.type == EnterNotify && event.mode == NotifyNormal)
        start_tooltip(button->identifier, button->window);
}

bool has_button(int identifier, int window) {
    return change_buttons(identifier, window, [](const ToolbarButton&) {});
}

}  // namespace tesserakit
