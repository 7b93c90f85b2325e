#include "toolkit/resource/generator/field_line.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace catalogue {
namespace {

using tesserakit::ResourceField;
using namespace tesserakit::field_style;

struct TypeName {
    std::string_view word;
    ResourceField type;
    int style;  ///< beside child and visible
};

constexpr int text_style = border | tab_stop | auto_scroll;

// clang-format off
constexpr TypeName type_names[] = {
    {"label",    ResourceField::Label,    0},
    {"picture",  ResourceField::Picture,  0},
    {"group",    ResourceField::Group,    group_box},
    {"string",   ResourceField::String,   text_style},
    {"integer",  ResourceField::Integer,  text_style},
    {"real",     ResourceField::Real,     text_style},
    {"double",   ResourceField::Double,   text_style},
    {"button",   ResourceField::Button,   tab_stop},
    {"check",    ResourceField::Check,    tab_stop | auto_check},
    {"radio",    ResourceField::Radio,    auto_radio},
    {"combo",    ResourceField::Combo,    tab_stop | vertical_scroll | drop_down_list},
    {"list",     ResourceField::List,     tab_stop | vertical_scroll | border | notify},
    {"tab",      ResourceField::Tab,      tab_stop | tabs},
    {"progress", ResourceField::Progress, border},
    {"grid",     ResourceField::Grid,     tab_stop | vertical_scroll | border},
    {"trackbar", ResourceField::Trackbar, tab_stop},
    {"tree",     ResourceField::TreeView, tab_stop | vertical_scroll | border},
};
// clang-format on

void read_range(Field& field, LineWords& words) {
    const double low = words.real("the range's lower end");
    const double high = words.real("the range's upper end");
    if (!(low < high)) words.fail("the range's lower end isn't below its upper end");
    field.range = {low, high};
}

void read_colour(Field& field, LineWords& words) {
    std::array<int, 6> colour{};
    for (int& component : colour) {
        component = words.integer("a colour component");
        if (component < 0 || component > 256) words.fail("a colour component is 0 to 256");
    }
    field.colour = colour;
}

void read_key(Field& field, LineWords& words) {
    const std::string key = words.text("the mnemonic letter");
    if (key.size() != 1) return words.fail("a mnemonic is one letter");
    field.key = key[0];
}

void read_length(Field& field, LineWords& words) {
    field.length = words.integer("the number of characters");
    if (*field.length <= 0) words.fail("the number of characters is above 0");
}

void read_page(Field& field, LineWords& words) {
    const int dialog = words.integer("the page's dialog");
    field.pages.push_back({dialog, words.text("the page's label")});
}

void read_steps(Field& field, LineWords& words) {
    const int line = words.integer("the line step");
    field.steps = {line, words.integer("the page step")};
}

void read_bar(Field& field, LineWords& words) {
    std::array<int, 3> bar{};
    for (int& number : bar) number = words.integer("minimum, maximum or step");
    field.progress = bar;
}

template <typename... Types>
constexpr unsigned on(Types... types) {
    return ((1U << static_cast<unsigned>(types)) | ...);
}

constexpr unsigned anything = ~0U;
constexpr unsigned text_field = on(ResourceField::String);
constexpr unsigned number = on(ResourceField::Integer, ResourceField::Real, ResourceField::Double);
constexpr unsigned toggle = on(ResourceField::Check, ResourceField::Radio);
constexpr unsigned trackbar = on(ResourceField::Trackbar);
constexpr unsigned choice = on(ResourceField::Combo, ResourceField::List);
constexpr unsigned grid = on(ResourceField::Grid);
constexpr unsigned tab = on(ResourceField::Tab);

struct Attribute {
    std::string_view word;
    unsigned types;  ///< bits of the types that may have it
    void (*read)(Field&, LineWords&);
};

constexpr Attribute attributes[] = {
    {"group", on(ResourceField::Radio),
     [](Field& field, LineWords&) { field.style |= group_start | tab_stop; }},
    {"set", toggle, [](Field& field, LineWords&) { field.set = true; }},
    {"disabled", anything, [](Field& field, LineWords&) { field.style |= disabled; }},
    {"hidden", anything, [](Field& field, LineWords&) { field.style &= ~visible; }},
    {"picture", toggle | on(ResourceField::Button),
     [](Field& field, LineWords&) { field.style |= picture; }},
    {"default", on(ResourceField::Button),
     [](Field& field, LineWords&) { field.style |= default_button; }},
    {"vertical", trackbar, [](Field& field, LineWords&) { field.style |= vertical_track; }},
    {"readonly", text_field | number,
     [](Field& field, LineWords&) { field.style = (field.style | read_only) & ~tab_stop; }},
    {"multiline", text_field,
     [](Field& field, LineWords&) { field.style |= multi_line | vertical_scroll; }},
    {"password", text_field, [](Field& field, LineWords&) { field.style |= password; }},
    {"spin", number, [](Field& field, LineWords&) { field.third_style |= third_spinner; }},
    {"range", number | trackbar, read_range},
    {"format", number,
     [](Field& field, LineWords& words) { field.format = words.text("the format"); }},
    {"value", trackbar,
     [](Field& field, LineWords& words) { field.value = words.integer("the value"); }},
    {"steps", trackbar, read_steps},
    {"length", text_field, read_length},
    {"key", anything, read_key},
    {"colour", anything, read_colour},
    {"item", choice,
     [](Field& field, LineWords& words) { field.items.push_back(words.text("the item")); }},
    {"selected", choice | tab,
     [](Field& field, LineWords& words) { field.selected = words.integer("the selection"); }},
    {"page", tab, read_page},
    {"template", grid,
     [](Field& field, LineWords& words) {
         field.grid.template_dialog = words.integer("the template dialog");
     }},
    {"rows", grid,
     [](Field& field, LineWords& words) { field.grid.maximum_rows = words.integer("the rows"); }},
    {"labels", grid,
     [](Field& field, LineWords& words) {
         field.grid.row_label_width = words.integer("the width of the row labels");
     }},
    {"bar", on(ResourceField::Progress), read_bar},
};

void read_type(Field& field, LineWords& words) {
    const std::string word = words.word("the field's type");
    const auto found = std::ranges::find(type_names, word, &TypeName::word);
    if (found == std::end(type_names)) return words.fail("no type of field: '" + word + '\'');
    field.type = found->type;
    field.style = child | visible | found->style;
}

void read_attributes(Field& field, LineWords& words) {
    while (!words.at_end() && !words.failed()) {
        const std::string word = words.word("an attribute");
        const auto found = std::ranges::find(attributes, word, &Attribute::word);
        if (found == std::end(attributes)) {
            words.fail("no attribute of a field: '" + word + '\'');
        } else if ((found->types & on(field.type)) == 0) {
            words.fail("a field of this type has no '" + word + '\'');
        } else {
            found->read(field, words);
        }
    }
}

void check_trackbar(const Field& field, LineWords& words) {
    if (!field.range) return words.fail("a trackbar needs a range");
    const auto [low, high] = *field.range;
    constexpr double largest = 1e9;
    if (low < -largest || high > largest || low != std::trunc(low) || high != std::trunc(high)) {
        words.fail("a trackbar's range is of integers");
    } else if (field.value < low || field.value > high) {
        words.fail("the value lies outside the range");
    }
}

/// What only the whole line shows.
void check_line(const Field& field, LineWords& words) {
    const bool menu = field.type == ResourceField::Combo || field.type == ResourceField::List;
    if (field.width < 0 || field.height < 0) words.fail("the field's size is negative");
    if (field.type == ResourceField::Trackbar) check_trackbar(field, words);
    if (menu && (field.selected < 0 || field.selected > static_cast<int>(field.items.size()))) {
        words.fail("no item has the number that is selected");
    }
    if (field.type == ResourceField::Grid && field.grid.template_dialog == 0) {
        words.fail("a grid needs a template dialog");
    }
}

}  // namespace

Field field_of_line(LineWords& words) {
    Field field;
    field.place = words.place();
    field.identifier = words.integer("the field's identifier");
    if (field.identifier <= 0) words.fail("a field's identifier is above 0");
    read_type(field, words);
    std::tie(field.x, field.y) = words.integers(',', "the field's position");
    std::tie(field.width, field.height) = words.integers('x', "the field's size");
    if (words.text_follows()) field.text = words.text("the text");
    read_attributes(field, words);
    check_line(field, words);
    return field;
}

}  // namespace catalogue
