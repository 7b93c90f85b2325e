// Numbers are typed as text: what the user sees is the widget's text, what the program gets is the
// number that the text stands for (numeric_field.hpp). A spinner is the same field with two arrows,
// whose steps put a formatted number as the program would.

#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/text.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/validity.hpp"
#include "toolkit/widgets/spin.hpp"

#include <Xm/Text.h>

#include <algorithm>

namespace tesserakit {
namespace {

void load_numeric(FieldRecord& field) {
    const int dialog = field.dialog->identifier;
    field.numeric = std::make_unique<NumericField>();
    NumericField& numeric = *field.numeric;
    numeric.type = field.type == FieldType::Integer ? NumericType::Integer
                   : field.type == FieldType::Real  ? NumericType::Real
                                                    : NumericType::Double;
    yyrcfieldrange(dialog, field.identifier, numeric.low, numeric.high);
    int length = 0;
    yyrcfieldformatcheck(dialog, field.identifier, length);
    numeric.format.assign(static_cast<std::size_t>(std::max(0, length)), ' ');
    yyrcfieldformatload(dialog, field.identifier, numeric.format);
    if (const auto value = number_of(numeric.type, field.text)) {
        numeric.last_valid = *value;
        numeric.defined = true;
    }
}

void spun(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    const double value = static_cast<SpinStep*>(call)->value;
    {
        const Suppression quiet(*field.dialog);
        const auto text = put_number(*field.numeric, value, {});
        if (!text) return;
        set_widget_text(field, *text);
    }
    release_invalid(field);
    post_changed(field);  // yyReportSpinner
}

void create_spin(FieldRecord& field) {
    constexpr double real_step = 0.1;
    const NumericField& numeric = *field.numeric;
    const bool whole = numeric.type == NumericType::Integer;
    const WidgetClass type = whole                               ? integerspinWidgetClass
                             : numeric.type == NumericType::Real ? realspinWidgetClass
                                                                 : doublespinWidgetClass;
    field.position_widget = placed(field.box).create("spin", type, field.dialog->widget);
    const double step = whole ? 1.0 : real_step;
    spin_configure(field.position_widget, {step, step, numeric.low, numeric.high});
    field.widget = spin_text(field.position_widget);
    field.focus_widget = field.widget;
    Arguments args = text_arguments(field);
    XtSetValues(field.widget, args.data(), args.count());
    XtAddCallback(field.position_widget, spinNstepCallback, spun, &field);
    XtAddCallback(field.widget, XmNvalueChangedCallback, typed, &field);
    const Suppression quiet(*field.dialog);
    set_widget_text(field, field.text);
}

template <class Value>
void get_number(int identifier, FieldType type, Value& value, Value undefined,
                const char* routine) {
    const FieldRecord* field = current_field(identifier, type, routine);
    if (!field) return;
    // A caller that goes on in spite of the error gets a number that no user would type.
    const auto current = current_value(*field->numeric, widget_text(*field));
    if (!current) yyerror(ValueUndefined, routine, identifier);
    value = current ? static_cast<Value>(*current) : undefined;
}

void put_value(int identifier, FieldType type, double value, std::string_view format,
               const char* routine) {
    FieldRecord* field = current_field(identifier, type, routine);
    if (!field) return;
    const auto text = put_number(*field->numeric, value, format);
    if (!text) return yyerror(ValueOutOfRange, routine, identifier);
    const Suppression quiet(*field->dialog);
    set_widget_text(*field, *text);
    release_invalid(*field);
}

void create_number(FieldRecord& field) {
    if (field.third_style & field_style::third_spinner)
        create_spin(field);
    else
        create_text(field);
}

}  // namespace

void wdialoggetinteger(int field, int& value) {
    get_number(field, FieldType::Integer, value, undefined_integer, "WDialogGetInteger");
}

void wdialoggetreal(int field, float& value) {
    get_number(field, FieldType::Real, value, undefined_real, "WDialogGetReal");
}

void wdialoggetdouble(int field, double& value) {
    get_number(field, FieldType::Double, value, undefined_double, "WDialogGetDouble");
}

std::string wdialoggettypedtext(int identifier) {
    const FieldRecord* field = current_field(identifier, numeric_fields, "WDialogGetTypedText");
    if (!field) return {};
    const std::string text = widget_text(*field);
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : std::string(without_trailing_blanks(text.substr(first)));
}

void wdialogputinteger(int field, int value, std::string_view format) {
    put_value(field, FieldType::Integer, value, format, "WDialogPutInteger");
}

void wdialogputreal(int field, float value, std::string_view format) {
    put_value(field, FieldType::Real, static_cast<double>(value), format, "WDialogPutReal");
}

void wdialogputdouble(int field, double value, std::string_view format) {
    put_value(field, FieldType::Double, value, format, "WDialogPutDouble");
}

void wdialograngeinteger(int identifier, int low, int high) {
    FieldRecord* field = current_field(identifier, FieldType::Integer, "WDialogRangeInteger");
    if (!field) return;
    field->numeric->low = low;
    field->numeric->high = high;
    if (!(field->third_style & field_style::third_spinner)) return;
    SpinSetup setup = spin_setup(field->position_widget);
    setup.low = low;
    setup.high = high;
    spin_configure(field->position_widget, setup);
}

void wdialogspinnerstep2(int identifier, float step, std::optional<float> big_step) {
    constexpr const char* routine = "WDialogSpinnerStep";
    FieldRecord* field = current_field(identifier, FieldType::Real, routine);
    if (!field) return;
    if (!(field->third_style & field_style::third_spinner))
        return yyerror(InvalidField, routine, identifier);
    SpinSetup setup = spin_setup(field->position_widget);
    setup.step = static_cast<double>(step);
    setup.big_step = static_cast<double>(big_step.value_or(step));
    spin_configure(field->position_widget, setup);
}

const FieldKind number_kind{
    .load = load_numeric,
    .create = create_number,
    .text = typed_text,
    .put_text = put_typed_text,
    .set_read_only = set_text_read_only,
    .entered_by_key = select_text,
    .keys = text_keys,
    .key = edit_by_key,
};

}  // namespace tesserakit
