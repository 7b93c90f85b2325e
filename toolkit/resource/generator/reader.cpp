#include "toolkit/resource/generator/reader.hpp"

#include "toolkit/resource/generator/field_line.hpp"
#include "toolkit/resource/generator/line_words.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

namespace catalogue {
namespace {

using namespace tesserakit;

/// What the indented lines belong to. Below an opening line that isn't one they are skipped, so
/// that they don't land in the section before it.
enum class Section { None, Skipped, Menu, Toolbar, Dialog, Strings, Images };

struct Reader {
    Catalogue& catalogue;
    Section section = Section::None;
};

void expect_end(LineWords& words) {
    if (!words.failed() && !words.at_end()) {
        const bool quoted = words.text_follows();
        const std::string rest = quoted ? words.text("") : words.word("");
        words.fail("not understood here: '" + rest + '\'');
    }
}

void open_menu(LineWords& words, Catalogue& catalogue) {
    Menu menu;
    menu.place = words.place();
    menu.identifier = words.integer("the menu's identifier");
    catalogue.menus.push_back(std::move(menu));
}

void open_toolbar(LineWords& words, Catalogue& catalogue) {
    Toolbar toolbar;
    toolbar.place = words.place();
    toolbar.identifier = words.integer("the toolbar's identifier");
    std::tie(toolbar.width, toolbar.height) = words.integers('x', "the buttons' size");
    if (toolbar.width <= 0 || toolbar.height <= 0) words.fail("a button needs a size above 0");
    catalogue.toolbars.push_back(std::move(toolbar));
}

void open_dialog(LineWords& words, Catalogue& catalogue) {
    Dialog dialog;
    dialog.place = words.place();
    dialog.identifier = words.integer("the dialog's identifier");
    std::tie(dialog.width, dialog.height) = words.integers('x', "the dialog's size");
    if (dialog.width < 0 || dialog.height < 0) words.fail("the dialog's size is negative");
    if (words.text_follows()) dialog.title = words.text("the title");
    dialog.style = dialog_style::popup | dialog_style::caption | dialog_style::system_menu |
                   dialog_style::modal_frame | dialog_style::three_d;
    while (!words.at_end() && !words.failed()) {
        if (words.take("child")) {
            dialog.style =
                dialog_style::child | dialog_style::control_parent | dialog_style::three_d;
        } else if (words.take("bare")) {
            dialog.style = dialog_style::popup | dialog_style::three_d;
        } else if (words.take("resize")) {
            dialog.resize_field = words.integer("the field that grows");
            if ((dialog.style & dialog_style::caption) != 0) {
                dialog.style |= dialog_style::resizing_frame;
            }
        } else if (words.take("keep-edges")) {
            dialog.flags |= dialog_flag::keep_edges;
        } else {
            break;
        }
    }
    catalogue.dialogs.push_back(std::move(dialog));
}

void open_section(LineWords& words, Reader& reader) {
    using Opener = void (*)(LineWords&, Catalogue&);
    struct Opening {
        std::string_view word;
        Section section;
        Opener open;
    };
    static constexpr auto nothing = [](LineWords&, Catalogue&) {};
    static constexpr Opening openings[] = {
        {"menu", Section::Menu, open_menu},       {"toolbar", Section::Toolbar, open_toolbar},
        {"dialog", Section::Dialog, open_dialog}, {"strings", Section::Strings, nothing},
        {"images", Section::Images, nothing},
    };
    for (const Opening& opening : openings) {
        if (!words.take(opening.word)) continue;
        reader.section = opening.section;
        opening.open(words, reader.catalogue);
        expect_end(words);
        return;
    }
    reader.section = Section::Skipped;
    words.fail("a line at the left edge begins with menu, toolbar, dialog, strings or images");
}

/// Two blanks of indentation a level, the bar at the first.
int menu_depth(LineWords& words, const Menu& menu) {
    const int depth = words.indent() / 2 - 1;
    const bool child_of_last = !menu.items.empty() && menu.items.back().identifier != 0 &&
                               depth == menu.items.back().depth + 1;
    const bool sibling = depth == 0 || (!menu.items.empty() && depth <= menu.items.back().depth);
    if (words.indent() % 2 != 0 || depth < 0 || (!sibling && !child_of_last)) {
        words.fail("this indentation is no level of the menu");
    }
    return depth;
}

void read_menu_item(LineWords& words, Menu& menu) {
    MenuItem item;
    item.place = words.place();
    item.depth = menu_depth(words, menu);
    if (words.take("---")) {
        item.flags = menu_flag::separator;
    } else {
        item.identifier = words.integer("the item's identifier");
        if (item.identifier <= 0) words.fail("an item's identifier is above 0");
        item.label = words.text("the label");
        if (item.label.empty()) words.fail("an item needs a label");
        if (words.take("disabled")) item.flags |= menu_flag::disabled;
        if (words.take("checked")) {
            item.state = 1;
        } else if (words.take("unchecked")) {
            item.state = 0;
        }
    }
    expect_end(words);
    if (!words.failed()) menu.items.push_back(std::move(item));
}

void read_button(LineWords& words, Toolbar& toolbar) {
    const int button = words.take("---") ? 0 : words.integer("the button's identifier");
    expect_end(words);
    if (!words.failed()) toolbar.buttons.push_back(button);
}

void read_field(LineWords& words, Dialog& dialog) {
    Field field = field_of_line(words);
    expect_end(words);
    if (!words.failed()) dialog.fields.push_back(std::move(field));
}

void read_string(LineWords& words, Catalogue& catalogue) {
    String string;
    string.place = words.place();
    string.identifier = words.integer("the string's identifier");
    string.text = words.text("the text");
    expect_end(words);
    if (!words.failed()) catalogue.strings.push_back(std::move(string));
}

void read_image(LineWords& words, Catalogue& catalogue) {
    Image image;
    image.place = words.place();
    image.identifier = words.integer("the image's identifier");
    const std::string kind = words.word("'bitmap' or 'icon'");
    if (kind != "bitmap" && kind != "icon") words.fail("an image is a bitmap or an icon");
    image.kind = kind == "icon" ? image_kind::icon : image_kind::bitmap;
    std::tie(image.width, image.height) = words.integers('x', "the image's size");
    image.file = words.text("the file");
    expect_end(words);
    if (!words.failed()) catalogue.images.push_back(std::move(image));
}

void read_row(LineWords& words, Reader& reader) {
    switch (reader.section) {
        case Section::None:
            return words.fail("this line needs a dialog, menu or other opening above it");
        case Section::Skipped:
            return;
        case Section::Menu:
            read_menu_item(words, reader.catalogue.menus.back());
            break;
        case Section::Toolbar:
            read_button(words, reader.catalogue.toolbars.back());
            break;
        case Section::Dialog:
            read_field(words, reader.catalogue.dialogs.back());
            break;
        case Section::Strings:
            read_string(words, reader.catalogue);
            break;
        case Section::Images:
            read_image(words, reader.catalogue);
            break;
    }
}

}  // namespace

void read_text(std::string_view text, const std::string& file, Catalogue& catalogue,
               Errors& errors) {
    Reader reader{.catalogue = catalogue};
    for (int line = 1; !text.empty(); ++line) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        LineWords words(text.substr(0, end), {file, line}, errors);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (words.empty() || words.failed()) continue;
        if (words.indent() == 0) {
            open_section(words, reader);
        } else {
            read_row(words, reader);
        }
    }
}

}  // namespace catalogue
