#include "toolkit/widgets/progress.hpp"
#include "toolkit/base/colours.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/Xm.h>

#include <algorithm>

namespace tesserakit {
namespace {

void create_progress(FieldRecord& field) {
    int step = 0;
    int low = 0;
    int high = 0;
    yyrcfieldprogressbar(field.dialog->identifier, field.identifier, low, high, step);
    if (low < high) {
        field.progress_low = low;
        field.progress_high = high;
    }
    Arguments args = placed(field.box);
    args(progressNminimum, field.progress_low)(progressNmaximum, field.progress_high);
    args(progressNvalue, field.progress_low)(XmNforeground, wSchemeCol.highlight);
    field.widget = args.create("progress", progressWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
}

}  // namespace

void wdialogputprogressbar(int identifier, int value) {
    FieldRecord* field = current_field(identifier, FieldType::Progress, "WDialogPutProgressBar");
    if (!field) return;
    value = std::clamp(value, field->progress_low, field->progress_high);
    XtVaSetValues(field->widget, progressNvalue, value, nullptr);
}

void wdialograngeprogressbar(int identifier, int minimum, int maximum) {
    constexpr const char* routine = "WDialogRangeProgressBar";
    FieldRecord* field = current_field(identifier, FieldType::Progress, routine);
    if (!field) return;
    if (minimum >= maximum) return yyerror(InvalidProgressRange, routine, identifier);
    field->progress_low = minimum;
    field->progress_high = maximum;
    XtVaSetValues(field->widget, progressNminimum, minimum, progressNmaximum, maximum, nullptr);
}

const FieldKind progress_kind{
    .create = create_progress,
};

}  // namespace tesserakit
