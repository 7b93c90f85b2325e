#include "toolkit/dialogs/fields/menu.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"

namespace tesserakit {
namespace {

const MenuOperations& menu_of(const FieldRecord& field) { return *kind_of(field).menu; }

bool has_menu(const FieldKind& kind) { return kind.menu != nullptr; }

void select_option(FieldRecord& field, int option) {
    menu_of(field).select(field.widget, option);
    if (kind_of(field).fit) kind_of(field).fit(field);
}

FieldRecord* option_field(int identifier, int option, int least, const char* routine) {
    FieldRecord* field = current_field_with(identifier, has_menu, routine);
    if (field && (option < least || option > menu_of(*field).count(field->widget))) {
        yyerror(OptionOutOfRange, routine, identifier, option);
        return nullptr;
    }
    return field;
}

struct Menu {
    int selected = 0;
    std::vector<std::string> options;
};

Menu load_menu(const FieldRecord& field) {
    Menu menu;
    int count = 0;
    int text_size = 0;
    yyrcfieldmenucheck(field.dialog->identifier, field.identifier, count, text_size);
    if (count <= 0) return menu;
    std::vector<int> offsets(static_cast<std::size_t>(count) + 1);
    std::string text(static_cast<std::size_t>(text_size), ' ');
    yyrcfieldmenuload(field.dialog->identifier, field.identifier, menu.selected, offsets, text);
    for (std::size_t i = 0; i + 1 < offsets.size(); ++i) {
        const auto start = static_cast<std::size_t>(offsets[i]);
        menu.options.push_back(
            text.substr(start, static_cast<std::size_t>(offsets[i + 1]) - start));
    }
    return menu;
}

}  // namespace

void fill_menu(FieldRecord& field) {
    const Menu menu = load_menu(field);
    const Suppression quiet(*field.dialog);
    menu_of(field).set(field.widget, menu.options);
    if (menu.selected > 0 && menu.selected <= menu_of(field).count(field.widget))
        select_option(field, menu.selected);
}

void wdialoggetmenu1(int identifier, int& option) {
    const FieldRecord* field = current_field_with(identifier, has_menu, "WDialogGetMenu");
    if (field) option = menu_of(*field).selected(field->widget);
}

void wdialoggetmenu2(int identifier, std::string& text) {
    const FieldRecord* field = current_field_with(identifier, has_menu, "WDialogGetMenu");
    if (!field) return;
    text = without_trailing_blanks(menu_of(*field).text(field->widget));
}

void wdialogputmenu1(int identifier, std::span<const std::string> options, int selected) {
    constexpr const char* routine = "WDialogPutMenu";
    FieldRecord* field = current_field_with(identifier, has_menu, routine);
    if (!field) return;
    const Suppression quiet(*field->dialog);
    std::vector<std::string> trimmed;
    for (const std::string& option : options) trimmed.emplace_back(without_trailing_blanks(option));
    menu_of(*field).set(field->widget, trimmed);
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

}  // namespace tesserakit
