#include "tests/support/dialog_record.hpp"

#include "common/fixed_text.hpp"
#include "common/number_field.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/widgets/numeric_field.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <deque>
#include <initializer_list>
#include <map>
#include <set>
#include <string_view>

namespace dialog_record {

using namespace tesserakit;
using Type = ResourceField;

namespace {

struct Field {
    Type type = Type::Label;
    bool begins_group = false;  ///< of radio buttons
    std::string text;
    NumericField number;
    int value = 0;  ///< check, radio, trackbar; option of a list or combo
    int low = 0, high = 0;
    std::vector<std::string> options;
    std::vector<int> pages;
    int capacity = 0;  ///< rows of a grid
    std::vector<std::pair<std::string, std::string>> rows;
    int state = FieldEnabled;
    std::pair<float, float> steps{};
};

struct Dialog {
    std::map<int, Field> fields;
    std::vector<int> order;  ///< identifiers as in the block
    bool shown = false;
};

struct State {
    std::map<int, Dialog> dialogs;
    int current = 0;
    int error = 0;
    std::vector<std::string> calls;
    std::deque<std::pair<int, MessageRecord>> queue;
    std::deque<Answer> answers;
    int common_button = 0;  ///< that ended the last common dialog
    int windows = 0;        ///< opened beside the root
    std::vector<int> waits;
};
State& record = *new State;

std::size_t size_of(int count) { return count > 0 ? static_cast<std::size_t>(count) : 0; }

bool is_number(Type type) {
    return type == Type::Integer || type == Type::Real || type == Type::Double;
}

void load_number(int dialog, int identifier, Field& field) {
    field.number.type = field.type == Type::Integer ? NumericType::Integer
                        : field.type == Type::Real  ? NumericType::Real
                                                    : NumericType::Double;
    yyrcfieldrange(dialog, identifier, field.number.low, field.number.high);
    int length = 0;
    yyrcfieldformatcheck(dialog, identifier, length);
    field.number.format.assign(size_of(length), ' ');
    yyrcfieldformatload(dialog, identifier, field.number.format);
    const auto value = number_of(field.number.type, field.text);
    field.number.defined = value.has_value();
    field.number.last_valid = value.value_or(0.0);
}

void load_options(int dialog, int identifier, Field& field) {
    int count = 0, size = 0;
    yyrcfieldmenucheck(dialog, identifier, count, size);
    std::vector<int> offsets(size_of(count) + 1);
    std::string text(size_of(size), ' ');
    yyrcfieldmenuload(dialog, identifier, field.value, offsets, text);
    for (std::size_t i = 0; i < size_of(count); ++i)
        field.options.push_back(text.substr(static_cast<std::size_t>(offsets[i]),
                                            static_cast<std::size_t>(offsets[i + 1] - offsets[i])));
    field.value = std::clamp(field.value, 0, std::max(count, 0));
}

void load_pages(int dialog, int identifier, Field& field) {
    int count = 0, size = 0, selected = 0;
    yyrcfieldtabcheck(dialog, identifier, count, size);
    field.pages.resize(size_of(count));
    std::vector<int> offsets(size_of(count) + 1);
    std::string text(size_of(size), ' ');
    yyrcfieldtabload(dialog, identifier, selected, field.pages, offsets, text);
}

void load_rest(int dialog, int identifier, Field& field) {
    if (is_number(field.type)) load_number(dialog, identifier, field);
    if (field.type == Type::List || field.type == Type::Combo)
        load_options(dialog, identifier, field);
    if (field.type == Type::Tab) load_pages(dialog, identifier, field);
    if (field.type == Type::Check || field.type == Type::Radio)
        yyrcfieldcheckbox(dialog, identifier, field.value);
    if (field.type == Type::Trackbar) {
        std::array<int, 8> values{};
        yyrcfieldtrackbar(dialog, identifier, values);
        field.value = values[0], field.low = values[1], field.high = values[2];
    }
    if (field.type == Type::Grid) {
        int ignored = 0;
        std::array<int, 1> column{}, width{};
        yyrcfieldgridload(dialog, identifier, field.capacity, ignored, ignored, column, width);
    }
}

/// The fields of one radio group; the first of them is set where none is.
std::vector<int> radio_group(const Dialog& dialog, int member) {
    std::vector<int> group;
    bool found = false;
    for (const int identifier : dialog.order) {
        const Field& field = dialog.fields.at(identifier);
        const bool radio = field.type == Type::Radio;
        if (!radio || field.begins_group) {
            if (found) return group;
            group.clear();
        }
        if (radio) group.push_back(identifier);
        found = found || identifier == member;
    }
    return group;
}

bool load(int identifier) {
    int count = 0, length = 0;
    yyrcdialogcheck(identifier, count, length);
    if (count < 0) {
        ADD_FAILURE() << "no dialog " << identifier << " in the resource block";
        return false;
    }
    const std::size_t n = size_of(count);
    std::vector<int> identifiers(n), types(n), style(n), offsets(n), unused(n);
    int size = 0;
    yyrcfieldcheck(identifier, size);
    std::string text(size_of(size) + 1, '\0');
    yyrcfieldload(identifier, identifiers, types, unused, unused, unused, unused, style, unused,
                  unused, offsets, text);
    Dialog& dialog = record.dialogs[identifier];
    dialog.order = identifiers;
    for (std::size_t i = 0; i < n; ++i) {
        Field& field = dialog.fields[identifiers[i]];
        field.type = static_cast<Type>(types[i]);
        field.begins_group = (style[i] & field_style::group_start) != 0;
        if (offsets[i] >= 0) field.text = text.data() + offsets[i];
        load_rest(identifier, identifiers[i], field);
        for (const int page : field.pages) load(page);
    }
    for (const int one : identifiers) {
        if (dialog.fields.at(one).type != Type::Radio) continue;
        const std::vector<int> group = radio_group(dialog, one);
        if (std::none_of(group.begin(), group.end(),
                         [&](int radio) { return dialog.fields.at(radio).value != 0; }))
            dialog.fields.at(group.front()).value = 1;
    }
    return true;
}

std::string number(float value) {
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

std::string place_text(int field) {
    return std::to_string(record.current) + "." + std::to_string(field);
}

void note(std::string_view name, std::initializer_list<std::string> words) {
    std::string text(name);
    for (const std::string& word : words) text += " " + word;
    record.calls.push_back(std::move(text));
}

/// The field of the current dialog; a field that isn't there or of a type that isn't allowed fails
/// the test. Notes the call.
Field* current_field(std::string_view name, int identifier, std::initializer_list<Type> allowed,
                     std::initializer_list<std::string> words = {}) {
    std::string text(name);
    text += " " + place_text(identifier);
    for (const std::string& word : words) text += " " + word;
    record.calls.push_back(text);
    const auto dialog = record.dialogs.find(record.current);
    if (dialog == record.dialogs.end()) {
        ADD_FAILURE() << text << ": no dialog is selected";
        record.error = 1005;
        return nullptr;
    }
    const auto field = dialog->second.fields.find(identifier);
    const bool there = field != dialog->second.fields.end();
    if (!there ||
        (allowed.size() > 0 && std::ranges::find(allowed, field->second.type) == allowed.end())) {
        ADD_FAILURE() << text << ": no such field of that type";
        record.error = 1006;
        return nullptr;
    }
    return &field->second;
}

Field& field_at(Place place) {
    static Field none;
    const auto dialog = record.dialogs.find(place.dialog);
    if (dialog != record.dialogs.end()) {
        const auto field = dialog->second.fields.find(place.field);
        if (field != dialog->second.fields.end()) return field->second;
    }
    ADD_FAILURE() << "the test asks for the field " << place.field << " of dialog " << place.dialog
                  << ", which isn't loaded or has none";
    return none = {};
}

void set_radio(Dialog& dialog, int identifier) {
    for (const int one : radio_group(dialog, identifier))
        dialog.fields.at(one).value = one == identifier ? 1 : 0;
}

}  // namespace

std::function<void()> when_idle;
std::string no_picture_because;

const std::vector<std::string>& calls() { return record.calls; }

std::vector<std::string> calls_of(const std::string& name) {
    std::vector<std::string> found;
    for (const std::string& call : record.calls)
        if (call.starts_with(name + " ")) found.push_back(call.substr(name.size() + 1));
    return found;
}

void clear_calls() { record.calls.clear(); }

int current_dialog() { return record.current; }
bool is_loaded(int dialog) { return record.dialogs.contains(dialog); }
bool is_shown(int dialog) { return is_loaded(dialog) && record.dialogs.at(dialog).shown; }

std::string text(Place place) {
    const Field& field = field_at(place);
    if (field.type != Type::List && field.type != Type::Combo) return field.text;
    return field.value > 0 ? field.options[static_cast<std::size_t>(field.value - 1)] : "";
}

int value(Place place) { return field_at(place).value; }
std::vector<std::string> options(Place place) { return field_at(place).options; }

std::vector<std::string> rows(Place place) {
    std::vector<std::string> texts;
    for (const auto& [label, cell] : field_at(place).rows) texts.push_back(label + "|" + cell);
    return texts;
}

int state(Place place) { return field_at(place).state; }
std::pair<float, float> steps(Place place) { return field_at(place).steps; }

void type(Place place, const std::string& text) {
    Field& field = field_at(place);
    if (field.type != Type::String && !is_number(field.type)) ADD_FAILURE() << "no typed field";
    field.text = text;
    field.number.text_changed = true;
}

void set(Place place, int value) {
    Field& field = field_at(place);
    if (field.type == Type::Radio)
        set_radio(record.dialogs.at(place.dialog), place.field);
    else
        field.value = value;
}

void answer(const Answer& answer) { record.answers.push_back(answer); }

void post(int type, const MessageRecord& message) { record.queue.emplace_back(type, message); }
std::vector<int> waits() { return record.waits; }

}  // namespace dialog_record

namespace tesserakit {

using namespace dialog_record;

// Start, windows, drawables

void winitialise(std::string_view) { note("winitialise", {}); }
void windowclose() { note("windowclose", {}); }
void ioswait(int milliseconds) {
    note("ioswait", {std::to_string(milliseconds)});
    record.waits.push_back(milliseconds);
}

int infoerror(int slot) { return slot == 1 ? std::exchange(record.error, 0) : 0; }

void windowopen2(const WindowRequest& request) {
    note("windowopen2", {std::to_string(request.menu), std::to_string(request.toolbars[0]),
                         std::to_string(request.toolbars[1]), std::to_string(request.dialog),
                         std::string(request.title)});
    if (request.dialog == 0 || !load(request.dialog)) return;
    record.current = request.dialog;
    record.dialogs[request.dialog].shown = true;
}

Answer next_answer() {
    Answer answer;
    if (!record.answers.empty()) {
        answer = record.answers.front();
        record.answers.pop_front();
    }
    record.common_button = answer.button;
    return answer;
}

int windowopenchild2(const WindowRequest& request, int) {
    note("windowopenchild2", {std::to_string(request.flags), std::string(request.title)});
    return ++record.windows;
}

int winfowindow(int item) { return item == 4 || item == 5 ? 0 : drawable_width; }

void windowselect(int window) { note("windowselect", {std::to_string(window)}); }

void weditfile(std::string_view filename, const EditorRequest& request) {
    note("weditfile", {std::to_string(request.flags), std::string(filename)});
}

bool weditclose(int window) {
    note("weditclose", {std::to_string(window)});
    return next_answer().button == 1;
}

void igrselect(int type, std::optional<int> number) {
    note("igrselect", {std::to_string(type), place_text(number.value_or(0))});
}

int winfodrawable(int item) { return item == 4 ? drawable_width : item == 5 ? drawable_height : 0; }

int wbitmapcreate(int width, int height) {
    note("wbitmapcreate", {std::to_string(width), std::to_string(height)});
    return 7;
}

void wbitmapdestroy(int handle) { note("wbitmapdestroy", {std::to_string(handle)}); }

void igrsaveimage(std::string_view filename, std::string* reason) {
    note("igrsaveimage", {std::string(filename)});
    if (!no_picture_because.empty()) *reason = no_picture_because;
}

std::string_view winfoerrormessage(int) { return "an error"; }

// Messages

void wmessagepeek(int& type, MessageRecord& message) {
    if (record.queue.empty() && when_idle) when_idle();
    type = NoMessage;
    if (record.queue.empty()) return;
    std::tie(type, message) = record.queue.front();
    record.queue.pop_front();
}

void wmessagewait(int milliseconds) { record.waits.push_back(milliseconds); }

void wmessageenable(int type, int state) {
    note("wmessageenable", {std::to_string(type), std::to_string(state)});
}

// Dialogs

void wdialogload(int dialog) {
    note("wdialogload", {std::to_string(dialog)});
    if (!is_loaded(dialog) && !load(dialog)) return;
    record.current = dialog;
}

void wdialogselect(int dialog) {
    note("wdialogselect", {std::to_string(dialog)});
    if (!is_loaded(dialog)) {
        ADD_FAILURE() << "dialog " << dialog << " is selected and isn't loaded";
        return;
    }
    record.current = dialog;
}

void wdialogshow(int, int, int, int mode) {
    note("wdialogshow", {std::to_string(record.current), std::to_string(mode)});
    record.dialogs.at(record.current).shown = true;
}

void wdialoghide() {
    note("wdialoghide", {std::to_string(record.current)});
    record.dialogs.at(record.current).shown = false;
}

void wdialogfieldstate(int identifier, int state) {
    if (Field* field = current_field("wdialogfieldstate", identifier, {}, {std::to_string(state)}))
        field->state = state;
}

// Numbers

template <class Value>
void get_number(const char* name, Type type, int identifier, Value& value, Value undefined) {
    const Field* field = current_field(name, identifier, {type});
    if (!field) return;
    const auto number = current_value(field->number, field->text);
    if (!number) record.error = 1010;
    value = number ? static_cast<Value>(*number) : undefined;
}

void put(Field* field, double value, std::string_view format) {
    if (!field) return;
    const auto text = put_number(field->number, value, format);
    if (text)
        field->text = *text;
    else
        record.error = 1009;
}

void wdialoggetinteger(int field, int& value) {
    get_number("wdialoggetinteger", Type::Integer, field, value, undefined_integer);
}

void wdialoggetreal(int field, float& value) {
    get_number("wdialoggetreal", Type::Real, field, value, undefined_real);
}

std::string wdialoggettypedtext(int identifier) {
    const Field* field =
        current_field("wdialoggettypedtext", identifier, {Type::Integer, Type::Real, Type::Double});
    return field ? field->text : std::string();
}

void wdialogputinteger(int field, int value, std::string_view format) {
    put(current_field("wdialogputinteger", field, {Type::Integer}, {std::to_string(value)}), value,
        format);
}

void wdialogputreal(int field, float value, std::string_view format) {
    put(current_field("wdialogputreal", field, {Type::Real}, {number(value)}),
        static_cast<double>(value), format);
}

void wdialogspinnerstep2(int field, float step, std::optional<float> big_step) {
    if (Field* spinner = current_field("wdialogspinnerstep2", field, {Type::Real}))
        spinner->steps = {step, big_step.value_or(step)};
}

// Texts

void wdialoggetstring(int identifier, std::string& text) {
    const Field* field =
        current_field("wdialoggetstring", identifier,
                      {Type::String, Type::Integer, Type::Real, Type::Double, Type::Label,
                       Type::Group, Type::Button, Type::Check, Type::Radio, Type::Combo});
    if (field) text = without_trailing_blanks(field->text);
}

void wdialogputstring(int identifier, std::string_view text) {
    Field* field =
        current_field("wdialogputstring", identifier,
                      {Type::String, Type::Label, Type::Group, Type::Button}, {std::string(text)});
    if (field) field->text = without_trailing_blanks(text);
}

// Buttons

void wdialoggetcheckbox(int identifier, int& state) {
    if (const Field* field = current_field("wdialoggetcheckbox", identifier, {Type::Check}))
        state = field->value;
}

void wdialogputcheckbox(int identifier, int state) {
    Field* field =
        current_field("wdialogputcheckbox", identifier, {Type::Check}, {std::to_string(state)});
    if (field) field->value = state != 0 ? 1 : 0;
}

void wdialoggetradiobutton(int identifier, int& ordinal) {
    if (!current_field("wdialoggetradiobutton", identifier, {Type::Radio})) return;
    const Dialog& dialog = record.dialogs.at(record.current);
    ordinal = 0;
    int n = 0;
    for (const int radio : radio_group(dialog, identifier)) {
        ++n;
        if (dialog.fields.at(radio).value != 0) ordinal = n;
    }
}

void wdialogputradiobutton(int identifier) {
    if (current_field("wdialogputradiobutton", identifier, {Type::Radio}))
        set_radio(record.dialogs.at(record.current), identifier);
}

// Lists and trackbars

void select_option(Field* field, int option) {
    if (!field) return;
    const bool there = option >= 0 && option <= static_cast<int>(field->options.size());
    if (!there) record.error = 1011;
    field->value = there ? option : 0;
}

void wdialoggetmenu1(int identifier, int& option) {
    if (const Field* field =
            current_field("wdialoggetmenu1", identifier, {Type::List, Type::Combo}))
        option = field->value;
}

void wdialoggetmenu2(int identifier, std::string& text) {
    if (current_field("wdialoggetmenu2", identifier, {Type::List, Type::Combo}))
        text = without_trailing_blanks(dialog_record::text({record.current, identifier}));
}

void wdialogputmenu1(int identifier, std::span<const std::string> options, int selected) {
    Field* field = current_field("wdialogputmenu1", identifier, {Type::List, Type::Combo},
                                 {std::to_string(options.size()), std::to_string(selected)});
    if (!field) return;
    field->options.clear();
    for (const std::string& option : options)
        field->options.emplace_back(without_trailing_blanks(option));
    select_option(field, selected);
}

void wdialogputoption1(int identifier, int option) {
    select_option(current_field("wdialogputoption1", identifier, {Type::List, Type::Combo},
                                {std::to_string(option)}),
                  option);
}

void wdialoggettrackbar(int identifier, int& value) {
    if (const Field* field = current_field("wdialoggettrackbar", identifier, {Type::Trackbar}))
        value = field->value;
}

void wdialogputtrackbar(int identifier, int value, std::optional<int>, std::optional<int>) {
    Field* field =
        current_field("wdialogputtrackbar", identifier, {Type::Trackbar}, {std::to_string(value)});
    if (field) field->value = std::clamp(value, field->low, field->high);
}

// Grids

void wgridrows(int identifier, int rows) {
    Field* field = current_field("wgridrows", identifier, {Type::Grid}, {std::to_string(rows)});
    if (!field) return;
    if (rows < 1 || rows > field->capacity) record.error = 1018;
    field->rows.resize(size_of(std::min(rows, field->capacity)));
}

void wgridputcellstring(int identifier, int column, int row, std::string_view text) {
    Field* field = current_field("wgridputcellstring", identifier, {Type::Grid});
    if (!field) return;
    if (column != 1 || row < 1 || size_of(row) > field->rows.size())
        ADD_FAILURE() << "no cell " << column << ", " << row << " in grid " << identifier;
    else
        field->rows[size_of(row) - 1].second = text;
}

void wgridlabelrow(int identifier, int row, std::string_view text) {
    Field* field = current_field("wgridlabelrow", identifier, {Type::Grid});
    if (!field) return;
    if (row < 1 || size_of(row) > field->rows.size())
        ADD_FAILURE() << "no row " << row << " in grid " << identifier;
    else
        field->rows[size_of(row) - 1].first = text;
}

// Common dialogs

int winfodialog(int item) { return item == 1 || item == 4 ? record.common_button : 0; }

void wmessagebox(int buttons, int icon, int default_button, std::string_view message,
                 std::string_view title) {
    note("wmessagebox", {std::to_string(buttons), std::to_string(icon),
                         std::to_string(default_button), std::string(title), std::string(message)});
    next_answer();
}

void wselectfile2(std::string_view filter, int flags, std::string& filename, std::string_view title,
                  int*) {
    note("wselectfile2",
         {std::to_string(flags), std::string(filter), std::string(title), filename});
    const Answer answer = next_answer();
    if (answer.button == 1) filename = answer.file;
}

void wselectcolour1(int& colour) {
    note("wselectcolour1", {std::to_string(colour)});
    const Answer answer = next_answer();
    if (answer.button == 1) colour = answer.colour;
}

int wrgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

void wrgbsplit(int colour, int* red, int* green, int* blue) {
    if (red) *red = colour % 256;
    if (green) *green = colour / 256 % 256;
    if (blue) *blue = colour / 65536;
}

}  // namespace tesserakit
