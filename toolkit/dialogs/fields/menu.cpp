#include "toolkit/dialogs/fields/menu.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/values.hpp"
#include "toolkit/widgets/combo.hpp"
#include "toolkit/widgets/list_items.hpp"

#include <Xm/List.h>

namespace tesserakit {
namespace {

constexpr FieldTypes menu_fields{FieldType::Combo, FieldType::List, FieldType::TreeView};

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

FieldRecord* option_field(int identifier, int option, int least, const char* routine) {
    FieldRecord* field = current_field(identifier, menu_fields, routine);
    if (field && (option < least || option > option_count(*field))) {
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
    set_options(field, menu.options);
    if (menu.selected > 0 && menu.selected <= option_count(field))
        select_option(field, menu.selected);
}

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

}  // namespace tesserakit
