#include "toolkit/base/errors.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/dialogs/dialogs.hpp"
#include "toolkit/widgets/combo.hpp"
#include "toolkit/widgets/grid.hpp"
#include "toolkit/widgets/list_items.hpp"
#include "toolkit/widgets/progress.hpp"
#include "toolkit/widgets/spin.hpp"

#include "common/fixed_text.hpp"

#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>
#include <Xm/ToggleB.h>

#include <algorithm>

namespace tesserakit {
namespace {

constexpr FieldTypes menu_fields{FieldType::Combo, FieldType::List, FieldType::TreeView};
constexpr FieldTypes typed_fields{FieldType::String, FieldType::Integer, FieldType::Real,
                                  FieldType::Double};
constexpr FieldTypes labelled_fields{FieldType::Label, FieldType::Group, FieldType::Button,
                                     FieldType::Check, FieldType::Radio};
constexpr FieldTypes text_fields{
    FieldType::String, FieldType::Integer, FieldType::Real,  FieldType::Double, FieldType::Label,
    FieldType::Group,  FieldType::Button,  FieldType::Check, FieldType::Radio,  FieldType::Combo};

void set_label(FieldRecord& field, const std::string& text) {
    // A group without a title label has its frame alone.
    if (!XmIsLabel(field.widget)) return;
    const CompoundText label(text);
    XtVaSetValues(field.widget, XmNlabelString, label.get(), nullptr);
}

/// A put into the field that is being typed in takes the place of what was typed.
void forget_typing(const FieldRecord& field) {
    if (bInvalidField && field.dialog->current_field == &field) bInvalidField = false;
}

template <class Value>
void get_number(int identifier, FieldType type, Value& value, Value undefined,
                const char* routine) {
    const FieldRecord* field = current_field(identifier, type, routine);
    if (!field) return;
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
    forget_typing(*field);
}

FieldRecord* option_field(int identifier, int option, int least, const char* routine) {
    FieldRecord* field = current_field(identifier, menu_fields, routine);
    if (field && (option < least || option > option_count(*field))) {
        yyerror(OptionOutOfRange, routine, identifier, option);
        return nullptr;
    }
    return field;
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

/// yyDGIsStartRadioGroup
bool starts_group(const std::vector<FieldRecord>& fields, std::size_t i) {
    return i == 0 || fields[i].has_style(field_style::group_start) ||
           fields[i - 1].type != FieldType::Radio;
}

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

}  // namespace

// Widgets

std::string widget_text(const FieldRecord& field) {
    if (!field.password.empty()) return field.password;
    if (typed_fields.has(field.type)) return taken(XmTextGetString(field.widget));
    if (field.type == FieldType::Combo) return taken(XmTextGetString(combo_text(field.widget)));
    return field.text;
}

void set_widget_text(FieldRecord& field, const std::string& text) {
    char* const value = xt_name(text);
    if (typed_fields.has(field.type))
        XmTextSetString(field.widget, value);
    else if (field.type == FieldType::Combo)
        XmTextSetString(combo_text(field.widget), value);
    else
        set_label(field, text);
    if (labelled_fields.has(field.type)) field.text = text;
}

void set_toggle(FieldRecord& field, bool set) {
    XmToggleButtonSetState(field.widget, set ? True : False, False);
}

bool toggle_is_set(const FieldRecord& field) {
    return XmToggleButtonGetState(field.widget) != False;
}

std::vector<FieldRecord*> radio_group(FieldRecord& radio) {
    std::vector<FieldRecord>& fields = radio.dialog->fields;
    auto i = static_cast<std::size_t>(&radio - fields.data());
    while (!starts_group(fields, i)) --i;
    std::vector<FieldRecord*> group{&fields[i]};
    while (++i < fields.size() && fields[i].type == FieldType::Radio && !starts_group(fields, i))
        group.push_back(&fields[i]);
    return group;
}

void set_radio(FieldRecord& radio) {
    for (FieldRecord* other : radio_group(radio)) set_toggle(*other, other == &radio);
}

void set_options(FieldRecord& field, std::span<const std::string> options) {
    if (field.type == FieldType::Combo) return combo_set_options(field.widget, options);
    set_items(field.widget, options);
}

int option_count(const FieldRecord& field) {
    if (field.type == FieldType::Combo) return combo_count(field.widget);
    return item_count(field.widget);
}

int selected_option(const FieldRecord& field) {
    if (field.type == FieldType::Combo) return combo_selected(field.widget);
    return selected_item(field.widget);
}

void select_option(FieldRecord& field, int option) {
    if (field.type == FieldType::Combo) return combo_select(field.widget, option);
    select_item(field.widget, option);
    if (option < 1) return;
    int top = 0;
    int visible = 0;
    XtVaGetValues(field.widget, XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, nullptr);
    if (option < top) XmListSetPos(field.widget, option);
    if (visible > 0 && option >= top + visible) XmListSetBottomPos(field.widget, option);
}

void apply_state(FieldRecord& field, int state) {
    // A greyed grid can still be scrolled: its scrolled window stays as it is.
    const Widget greyed = field.type == FieldType::Grid ? field.widget : field.position_widget;
    if (!greyed) return;
    XtSetSensitive(greyed, state == FieldDisabled ? False : True);
    const bool read_only = state == FieldReadOnly;
    if (typed_fields.has(field.type)) XmTextSetEditable(field.widget, read_only ? False : True);
    if (field.type == FieldType::Grid) grid_set_read_only(field.widget, read_only);
    if (state == FieldHidden)
        XtUnmanageChild(field.position_widget);
    else
        XtManageChild(field.position_widget);
    field.state = state;
}

// Numbers

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

// Texts

void wdialoggetstring(int identifier, std::string& text) {
    const FieldRecord* field = current_field(identifier, text_fields, "WDialogGetString");
    if (field) text = without_trailing_blanks(widget_text(*field));
}

void wdialoggetstringlength(int identifier, int& length) {
    const FieldRecord* field = current_field(identifier, text_fields, "WDialogGetStringLen");
    if (field) length = static_cast<int>(trimmed_length(widget_text(*field)));
}

void wdialogputstring(int identifier, std::string_view text) {
    FieldRecord* field = current_field(identifier, text_fields, "WDialogPutString");
    if (!field) return;
    const Suppression quiet(*field->dialog);
    field->password.clear();
    set_widget_text(*field, std::string(without_trailing_blanks(text)));
    if (field->numeric) field->numeric->text_changed = true;
    forget_typing(*field);
}

// Buttons

void wdialoggetcheckbox(int identifier, int& state) {
    const FieldRecord* field = current_field(identifier, FieldType::Check, "WDialogGetCheckBox");
    if (field) state = toggle_is_set(*field) ? 1 : 0;
}

void wdialogputcheckbox(int identifier, int state) {
    FieldRecord* field = current_field(identifier, FieldType::Check, "WDialogPutCheckBox");
    if (field) set_toggle(*field, state != 0);
}

void wdialoggetradiobutton(int identifier, int& ordinal) {
    FieldRecord* field = current_field(identifier, FieldType::Radio, "WDialogGetRadioButton");
    if (!field) return;
    const std::vector<FieldRecord*> group = radio_group(*field);
    const auto set = std::ranges::find_if(group, [](auto* radio) { return toggle_is_set(*radio); });
    ordinal = set == group.end() ? 0 : static_cast<int>(set - group.begin()) + 1;
}

void wdialogputradiobutton(int identifier) {
    FieldRecord* field = current_field(identifier, FieldType::Radio, "WDialogPutRadioButton");
    if (field) set_radio(*field);
}

// Menus

void wdialoggetmenu1(int identifier, int& option) {
    const FieldRecord* field = current_field(identifier, menu_fields, "WDialogGetMenu");
    if (field) option = selected_option(*field);
}

void wdialoggetmenu2(int identifier, std::string& text) {
    const FieldRecord* field = current_field(identifier, menu_fields, "WDialogGetMenu");
    if (!field) return;
    if (field->type == FieldType::Combo) {
        text = without_trailing_blanks(widget_text(*field));
        return;
    }
    text = without_trailing_blanks(item_text(field->widget, selected_option(*field)));
}

void wdialogputmenu1(int identifier, std::span<const std::string> options, int selected) {
    constexpr const char* routine = "WDialogPutMenu";
    FieldRecord* field = current_field(identifier, menu_fields, routine);
    if (!field) return;
    const Suppression quiet(*field->dialog);
    std::vector<std::string> trimmed;
    for (const std::string& option : options) trimmed.emplace_back(without_trailing_blanks(option));
    set_options(*field, trimmed);
    const bool there = selected >= 0 && selected <= static_cast<int>(options.size());
    if (!there) yyerror(OptionOutOfRange, routine, identifier, selected);
    select_option(*field, there ? selected : 0);
}

void wdialogputmenu2(int identifier, int option) {
    FieldRecord* field = option_field(identifier, option, 0, "WDialogPutMenu");
    if (!field) return;
    const Suppression quiet(*field->dialog);
    select_option(*field, option);
}

void wdialogputoption1(int identifier, int option) {
    FieldRecord* field = option_field(identifier, option, 1, "WDialogPutOption");
    if (!field) return;
    const Suppression quiet(*field->dialog);
    select_option(*field, option);
}

// Trackbars and progress bars

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
    XtVaSetValues(field->widget, XmNminimum, range.minimum, XmNmaximum, range.maximum, XmNvalue,
                  range.value, nullptr);
}

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

// Tabs

void wdialogputtab(int identifier, int dialog) {
    constexpr const char* routine = "WDialogSetTab";
    FieldRecord* field = current_field(identifier, FieldType::Tab, routine);
    if (!field) return;
    const auto page = std::ranges::find(field->pages, dialog, &TabPage::dialog);
    if (page == field->pages.end()) return yyerror(InvalidTab, routine, identifier, dialog);
    const Suppression quiet(*field->dialog);
    bring_to_front(*field, static_cast<int>(page - field->pages.begin()));
}

void wdialoggettab(int identifier, int& dialog) {
    const FieldRecord* field = current_field(identifier, FieldType::Tab, "WDialogGetTab");
    if (!field) return;
    dialog =
        field->pages.empty() ? 0 : field->pages[static_cast<std::size_t>(field->front_page)].dialog;
}

// Grids

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

// States

void wdialogfieldstate(int identifier, int state) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), "WDialogFieldState");
    if (!field || state < FieldDisabled || state > FieldHidden) return;
    const Suppression quiet(*field->dialog);
    apply_state(*field, state);
    if (field->type == FieldType::Tab) place_pages(*field);
    restack(*field->dialog);
}

}  // namespace tesserakit
