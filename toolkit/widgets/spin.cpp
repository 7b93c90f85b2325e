// Three classes whose records differ in the type of their range, behind one common head: all but
// the range works on the head, whatever the type. The number itself is the text; a step computes
// the new one and tells it, and whoever listens writes it.

#include "toolkit/widgets/spin_p.hpp"

#include "common/number_field.hpp"
#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/widgets/numeric_field.hpp"

#include <Xm/TextF.h>

#include <algorithm>
#include <array>
#include <memory>
#include <type_traits>
#include <utility>

namespace tesserakit {
namespace {

constexpr unsigned long first_delay = 400;  ///< ms from the press to the first repeated step
constexpr unsigned long next_delay = 60;    ///< ms between repeated steps
constexpr int arrow_width = 14;             ///< pixels

SpinHead& head(Widget widget) { return *reinterpret_cast<SpinHead*>(widget); }

template <class Value>
SpinRange<Value>& range(Widget widget) {
    return reinterpret_cast<SpinRec<Value>*>(widget)->range;
}

/// Calls `action` with the range of the widget's own type of value.
template <class Action>
auto with_range(Widget widget, Action action) {
    if (XtIsSubclass(widget, integerspinWidgetClass)) return action(range<int>(widget));
    if (XtIsSubclass(widget, realspinWidgetClass)) return action(range<float>(widget));
    return action(range<double>(widget));
}

/// A setup value in the class's own type; an integer keeps to its range.
template <class Value>
Value cut(double value) {
    if constexpr (std::is_same_v<Value, int>) {
        constexpr double most = 2147483647.0;
        return static_cast<int>(std::clamp(value, -most, most));
    } else {
        return static_cast<Value>(value);
    }
}

std::array<XtResource, 1> resources{{
    resource(spinNstepCallback, XtRCallback, sizeof(XtCallbackList),
             offsetof(SpinHead, spin.step_callback)),
}};

Box arrow_box(Widget widget, int direction) {
    const CorePart& core = head(widget).core;
    const int half = core.height / 2;
    const int x = std::max(0, core.width - arrow_width);
    if (direction > 0) return {x, 0, arrow_width, half};
    return {x, half, arrow_width, core.height - half};
}

void draw_arrow(Widget widget, int direction) {
    const SpinHead& self = head(widget);
    const Box box = arrow_box(widget, direction);
    const bool pressed = self.spin.direction == direction;
    draw_shadows(widget, self.manager.top_shadow_GC, self.manager.bottom_shadow_GC, box.x, box.y,
                 box.width, box.height, 1, pressed ? XmSHADOW_IN : XmSHADOW_OUT);
    const GC gc = XtIsSensitive(widget) ? self.spin.ink : self.spin.grey;
    // A triangle with a base of 7 pixels.
    const int x = box.x + box.width / 2;
    const int y = box.y + box.height / 2;
    std::array<XPoint, 3> corners{
        {{static_cast<short>(x - 4), static_cast<short>(y + 2 * direction)},
         {static_cast<short>(x + 4), static_cast<short>(y + 2 * direction)},
         {static_cast<short>(x), static_cast<short>(y - 2 * direction)}}};
    XFillPolygon(display_of(widget), window_of(widget), gc, corners.data(),
                 static_cast<int>(corners.size()), Convex, CoordModeOrigin);
}

void redisplay(Widget widget, XEvent*, Region) {
    draw_arrow(widget, 1);
    draw_arrow(widget, -1);
}

void fit_text(Widget widget) {
    const SpinHead& self = head(widget);
    if (self.spin.text)
        place(self.spin.text, 0, 0, std::max(1, self.core.width - arrow_width),
              std::max<int>(1, self.core.height));
}

void change_managed(Widget widget) {
    fit_text(widget);
    XmeNavigChangeManaged(widget);
}

std::string text_of(Widget widget) {
    const std::unique_ptr<char, void (*)(char*)> text(XmTextFieldGetString(head(widget).spin.text),
                                                      XtFree);
    return text ? text.get() : "";
}

/// XCheckIfEvent's predicate: looks through the queue and takes nothing.
Bool note_release(Display*, XEvent* event, XPointer note) {
    auto& [window, found] = *reinterpret_cast<std::pair<Window, bool>*>(note);
    if (event->type == ButtonRelease && event->xbutton.window == window) found = true;
    return False;
}

/// While the program was busy the release may have come, and still wait behind other events.
bool release_waits(Widget widget) {
    std::pair<Window, bool> note{window_of(widget), false};
    XEvent event;
    XCheckIfEvent(display_of(widget), &event, note_release, reinterpret_cast<XPointer>(&note));
    return note.second;
}

void repeat(XtPointer client, XtIntervalId*) {
    const Widget widget = static_cast<Widget>(client);
    SpinPart& part = head(widget).spin;
    part.timer = 0;
    if (release_waits(widget)) return;
    spin_step(widget, part.direction, part.big);
    part.timer = XtAppAddTimeOut(XtWidgetToApplicationContext(widget), next_delay, repeat, widget);
}

void press(Widget widget, XEvent* event, String*, Cardinal*) {
    SpinPart& part = head(widget).spin;
    if (part.timer) return;
    XmProcessTraversal(part.text, XmTRAVERSE_CURRENT);
    part.direction = event->xbutton.y < head(widget).core.height / 2 ? 1 : -1;
    part.big = (event->xbutton.state & ControlMask) != 0;
    draw_arrow(widget, part.direction);
    part.timer = XtAppAddTimeOut(XtWidgetToApplicationContext(widget), first_delay, repeat, widget);
    spin_step(widget, part.direction, part.big);
}

void let_go(SpinPart& part) {
    if (part.timer) XtRemoveTimeOut(part.timer);
    part.timer = 0;
    part.direction = 0;
}

void release(Widget widget, XEvent*, String*, Cardinal*) {
    let_go(head(widget).spin);
    redisplay(widget, nullptr, nullptr);
}

/// The keys arrive in the text child.
void key_step(Widget text, XEvent* event, String* parameters, Cardinal*) {
    const bool big = (event->xkey.state & ControlMask) != 0;
    spin_step((XtParent)(text), parameters[0][0] == 'u' ? 1 : -1, big);
}

void add_keys(Widget text) {
    static const XtTranslations keys = [] {
        static std::array<XtActionsRec, 1> actions{{{xt_name("spinKey"), key_step}}};
        XtAppAddActions(yydisplay.app, actions.data(), static_cast<Cardinal>(actions.size()));
        return XtParseTranslationTable(
            "<Key>osfUp: spinKey(u)\n"
            "<Key>osfDown: spinKey(d)");
    }();
    XtOverrideTranslations(text, keys);
}

template <class Value>
void initialize(Widget, Widget created, ArgList, Cardinal*) {
    SpinHead& self = head(created);
    range<Value>(created) = {Value{1}, Value{1}, Value{1}, Value{-1}};
    self.spin.timer = 0;
    self.spin.direction = 0;
    self.spin.big = False;
    XGCValues values{};
    values.foreground = self.manager.foreground;
    self.spin.ink = XtGetGC(created, GCForeground, &values);
    values.foreground = wSchemeCol.disabled;
    self.spin.grey = XtGetGC(created, GCForeground, &values);
    self.spin.text = XtVaCreateManagedWidget("text", xmTextFieldWidgetClass, created,
                                             XmNhighlightThickness, 0, nullptr);
    add_keys(self.spin.text);
}

void destroy(Widget widget) {
    let_go(head(widget).spin);
    XtReleaseGC(widget, head(widget).spin.ink);
    XtReleaseGC(widget, head(widget).spin.grey);
}

Boolean set_values(Widget current, Widget, Widget set, ArgList, Cardinal*) {
    return XtIsSensitive(current) != XtIsSensitive(set);
}

constexpr char translations[] =
    "<Btn1Down>: spinPress()\n"
    "<Btn1Up>: spinRelease()";

std::array<XtActionsRec, 2> actions{{
    {xt_name("spinPress"), press},
    {xt_name("spinRelease"), release},
}};

template <class Value>
SpinClassRec class_record(const char* name) {
    return {.core_class = core_part({.superclass = xmManagerWidgetClass,
                                     .name = name,
                                     .size = sizeof(SpinRec<Value>),
                                     .resources = resources,
                                     .actions = actions,
                                     .translations = translations,
                                     .initialize = initialize<Value>,
                                     .destroy = destroy,
                                     .resize = fit_text,
                                     .redisplay = redisplay,
                                     .set_values = set_values}),
            .composite_class = composite_part(refuse_geometry, change_managed),
            .constraint_class = constraint_part(),
            .manager_class = manager_part(),
            .spin_class = {.extension = nullptr}};
}

SpinClassRec integerspin_class_record = class_record<int>("TessIntegerSpin");
SpinClassRec realspin_class_record = class_record<float>("TessRealSpin");
SpinClassRec doublespin_class_record = class_record<double>("TessDoubleSpin");

}  // namespace

WidgetClass integerspinWidgetClass = reinterpret_cast<WidgetClass>(&integerspin_class_record);
WidgetClass realspinWidgetClass = reinterpret_cast<WidgetClass>(&realspin_class_record);
WidgetClass doublespinWidgetClass = reinterpret_cast<WidgetClass>(&doublespin_class_record);

void spin_configure(Widget spin, const SpinSetup& setup) {
    with_range(spin, [&]<class Value>(SpinRange<Value>& own) {
        own = {cut<Value>(setup.step), cut<Value>(setup.big_step), cut<Value>(setup.low),
               cut<Value>(setup.high)};
    });
}

SpinSetup spin_setup(Widget spin) {
    return with_range(spin, [](const auto& own) {
        return SpinSetup{static_cast<double>(own.step), static_cast<double>(own.big_step),
                         static_cast<double>(own.low), static_cast<double>(own.high)};
    });
}

Widget spin_text(Widget spin) { return head(spin).spin.text; }

void spin_step(Widget spin, int direction, bool big) {
    if (!XtIsSensitive(spin) || !XmTextFieldGetEditable(head(spin).spin.text)) return;
    const SpinSetup setup = spin_setup(spin);
    // A text that is no number steps from 0.
    const double value = number_field::to_double(text_of(spin)).value_or(0.0);
    SpinStep step{
        stepped(value, direction * (big ? setup.big_step : setup.step), setup.low, setup.high)};
    XtCallCallbackList(spin, head(spin).spin.step_callback, &step);
}

}  // namespace tesserakit
