#include "toolkit/resource/generator/reader.hpp"

#include <algorithm>
#include <set>

namespace catalogue {
namespace {

std::string number(int value) { return std::to_string(value); }

/// Notes each row whose key an earlier row has already.
template <typename Rows, typename Key>
void check_unique(const Rows& rows, Key key, const std::string& what, Errors& errors) {
    std::set<decltype(key(*rows.begin()))> seen;
    for (const auto& row : rows) {
        if (seen.insert(key(row)).second) continue;
        errors.push_back({row.place, what + ' ' + number(row.identifier) + " stands twice"});
    }
}

constexpr auto identifier_of = [](const auto& row) { return row.identifier; };

const Dialog* find_dialog(const Catalogue& catalogue, int identifier) {
    const auto found = std::ranges::find(catalogue.dialogs, identifier, &Dialog::identifier);
    return found == catalogue.dialogs.end() ? nullptr : &*found;
}

void check_field(const Field& field, const Catalogue& catalogue, Errors& errors) {
    const int row_template = field.grid.template_dialog;
    if (row_template != 0 && !find_dialog(catalogue, row_template)) {
        errors.push_back({field.place, "no dialog " + number(row_template) + " for a template"});
    }
    for (const Page& page : field.pages) {
        const Dialog* dialog = find_dialog(catalogue, page.dialog);
        if (!dialog) {
            errors.push_back({field.place, "no dialog " + number(page.dialog) + " for a page"});
        } else if ((dialog->style & tesserakit::dialog_style::child) == 0) {
            errors.push_back({field.place, "dialog " + number(page.dialog) + " is no child"});
        }
    }
    const bool tab = field.type == tesserakit::ResourceField::Tab;
    if (tab && field.selected != 0 &&
        std::ranges::find(field.pages, field.selected, &Page::dialog) == field.pages.end()) {
        errors.push_back({field.place, "the page selected isn't among the pages"});
    }
}

void check_dialog(const Dialog& dialog, const Catalogue& catalogue, Errors& errors) {
    check_unique(dialog.fields, identifier_of, "field", errors);
    for (const Field& field : dialog.fields) check_field(field, catalogue, errors);
    const int grows = dialog.resize_field;
    if (grows != 0 &&
        std::ranges::find(dialog.fields, grows, &Field::identifier) == dialog.fields.end()) {
        errors.push_back({dialog.place, "no field " + number(grows) + " to grow"});
    }
}

/// A toolbar's strip has the buttons' height and a frame for each.
void check_strip(const Toolbar& toolbar, const Catalogue& catalogue, Errors& errors) {
    const auto is_strip = [&](const Image& image) {
        return image.identifier == toolbar.identifier &&
               image.kind == tesserakit::image_kind::bitmap;
    };
    const auto strip = std::ranges::find_if(catalogue.images, is_strip);
    if (strip == catalogue.images.end()) {
        errors.push_back({toolbar.place, "no bitmap has the toolbar's identifier"});
        return;
    }
    const auto gaps = std::ranges::count(toolbar.buttons, 0);
    const auto frames = static_cast<long>(toolbar.buttons.size()) - gaps;
    if (strip->height != toolbar.height || strip->width % toolbar.width != 0 ||
        strip->width / toolbar.width < frames) {
        errors.push_back({strip->place, "the strip has no frame for each button"});
    }
}

void check_menu(const Menu& menu, Errors& errors) {
    std::vector<MenuItem> items;  // without separators
    std::ranges::copy_if(menu.items, std::back_inserter(items),
                         [](const MenuItem& item) { return item.identifier != 0; });
    check_unique(items, identifier_of, "menu item", errors);
}

}  // namespace

void check(const Catalogue& catalogue, Errors& errors) {
    check_unique(catalogue.menus, identifier_of, "menu", errors);
    check_unique(catalogue.dialogs, identifier_of, "dialog", errors);
    check_unique(catalogue.toolbars, identifier_of, "toolbar", errors);
    check_unique(catalogue.strings, identifier_of, "string", errors);
    const auto image_key = [](const Image& image) {
        return std::pair{image.identifier, image.kind};
    };
    check_unique(catalogue.images, image_key, "image", errors);
    for (const Menu& menu : catalogue.menus) check_menu(menu, errors);
    for (const Dialog& dialog : catalogue.dialogs) check_dialog(dialog, catalogue, errors);
    for (const Toolbar& toolbar : catalogue.toolbars) check_strip(toolbar, catalogue, errors);
}

}  // namespace catalogue
