#include "toolkit/base/colours.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/Scale.h>

#include <algorithm>

namespace tesserakit {
namespace {

struct TrackRange {
    int value = 0;
    int minimum = 0;
    int maximum = 0;
};

TrackRange track_range(const FieldRecord& field) {
    TrackRange range;
    XtVaGetValues(field.widget, XmNvalue, &range.value, XmNminimum, &range.minimum, XmNmaximum,
                  &range.maximum, nullptr);
    return range;
}

void create_trackbar(FieldRecord& field) {
    std::array<int, 8> values{};
    yyrcfieldtrackbar(field.dialog->identifier, field.identifier, values);
    const int low = values[1];
    const int high = values[1] < values[2] ? values[2] : values[1] + 100;
    const bool vertical = field.has_style(field_style::vertical_track);
    Arguments args = placed(field.box);
    args(XmNorientation, vertical ? XmVERTICAL : XmHORIZONTAL);
    args(XmNprocessingDirection, vertical ? XmMAX_ON_TOP : XmMAX_ON_RIGHT);
    args(XmNscaleWidth, field.box.width)(XmNscaleHeight, field.box.height);
    args(XmNminimum, low)(XmNmaximum, high)(XmNvalue, std::clamp(values[0], low, high));
    field.page_step = values[3] > 0 ? values[3] : std::max(1, (high - low) / 10);
    field.line_step = std::max(1, values[4]);
    args(XmNscaleMultiple, std::min(field.page_step, high - low));
    args(XmNshowValue, False)(XmNhighlightThickness, 1);
    field.widget = args.create("trackbar", xmScaleWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
    field.focus_widget = XtNameToWidget(field.widget, "Scrollbar");
    if (!field.focus_widget) field.focus_widget = field.widget;
    XtAddCallback(field.widget, XmNvalueChangedCallback, changed, &field);
    XtAddCallback(field.widget, XmNdragCallback, changed, &field);
}

}  // namespace

void wdialoggettrackbar(int identifier, int& value) {
    const FieldRecord* field = current_field(identifier, FieldType::Trackbar, "WDialogGetTrackbar");
    if (field) value = track_range(*field).value;
}

void wdialoggettrackbar(int identifier, int& value, int& minimum, int& maximum) {
    const FieldRecord* field = current_field(identifier, FieldType::Trackbar, "WDialogGetTrackbar");
    if (!field) return;
    const TrackRange range = track_range(*field);
    value = range.value;
    minimum = range.minimum;
    maximum = range.maximum;
}

void wdialogputtrackbar(int identifier, int value, std::optional<int> minimum,
                        std::optional<int> maximum) {
    constexpr const char* routine = "WDialogPutTrackbar";
    FieldRecord* field = current_field(identifier, FieldType::Trackbar, routine);
    if (!field) return;
    TrackRange range = track_range(*field);
    range.minimum = minimum.value_or(range.minimum);
    range.maximum = maximum.value_or(range.maximum);
    if (range.minimum >= range.maximum) return yyerror(ValueOutOfRange, routine, identifier);
    range.value = std::clamp(value, range.minimum, range.maximum);
    const Suppression quiet(*field->dialog);
    // Motif takes no page that is longer than the range.
    XtVaSetValues(field->widget, XmNminimum, range.minimum, XmNmaximum, range.maximum, XmNvalue,
                  range.value, XmNscaleMultiple,
                  std::min(field->page_step, range.maximum - range.minimum), nullptr);
}

namespace {

/// Motif draws dense dots over a bar that is insensitive, which stand out more than a bar that can
/// be moved. Here it only can't be moved, and its trough is the background's.
void grey_trackbar(FieldRecord& field, bool greyed) {
    const Boolean moves = greyed ? False : True;
    XtVaSetValues(field.widget, XmNeditable, moves, nullptr);
    XtVaSetValues(field.focus_widget, XmNtraversalOn, moves, XmNtroughColor,
                  greyed ? wSchemeCol.background : wSchemeCol.select, nullptr);
}

// Motif's own keys know no step but 1 and the page.
constexpr char trackbar_keys[] =
    "<Key>osfLeft: yyDGKeyTrans(-)\n"
    "<Key>osfDown: yyDGKeyTrans(-)\n"
    "<Key>osfRight: yyDGKeyTrans(+)\n"
    "<Key>osfUp: yyDGKeyTrans(+)\n"
    "<Key>osfPageUp: yyDGKeyTrans(P)\n"
    "<Key>osfPageDown: yyDGKeyTrans(p)\n";

std::string trackbar_keys_of(const FieldRecord&) { return trackbar_keys; }

void step_by_key(FieldRecord& field, char key, bool, const XEvent&) {
    const int size = key == '+' || key == '-' ? field.line_step : field.page_step;
    const int step = key == '+' || key == 'P' ? size : -size;
    const TrackRange range = track_range(field);
    // No overflow: the range is at most that of int, and steps are cut to it.
    const long long wanted = static_cast<long long>(range.value) + step;
    const int value = static_cast<int>(std::clamp<long long>(wanted, range.minimum, range.maximum));
    if (value == range.value) return;
    XmScaleSetValue(field.widget, value);
    // As the pointer would: whoever follows the bar hears of it, the application among them.
    XmScaleCallbackStruct call{XmCR_VALUE_CHANGED, nullptr, value};
    XtCallCallbacks(field.widget, XmNvalueChangedCallback, &call);
}

}  // namespace

const FieldKind trackbar_kind{
    .create = create_trackbar,
    .grey = grey_trackbar,
    .keys = trackbar_keys_of,
    .key = step_by_key,
};

}  // namespace tesserakit
