/// What a catalogue says, before it becomes tables: dialogs, menus, toolbars, strings, images.
#pragma once

#include "toolkit/resource/yyrc.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace catalogue {

/// Where something stands, for messages.
struct Place {
    std::string file;
    int line = 0;  ///< from 1
};

struct Error {
    Place place;
    std::string message;
};
using Errors = std::vector<Error>;

struct MenuItem {
    Place place;
    int identifier = 0;  ///< 0 in a separator
    int depth = 0;       ///< 0 in the bar
    int flags = 0;       ///< tesserakit::menu_flag, without the one for pop-ups
    int state = -1;
    std::string label;
};

struct Menu {
    Place place;
    int identifier = 0;
    std::vector<MenuItem> items;  ///< each parent before its children
};

struct Page {
    int dialog = 0;
    std::string label;
};

struct Grid {
    int template_dialog = 0;
    int maximum_rows = 0;
    int row_label_width = 0;
};

struct Field {
    Place place;
    int identifier = 0;
    tesserakit::ResourceField type = tesserakit::ResourceField::Label;
    int x = 0, y = 0, width = 0, height = 0;
    int style = 0, third_style = 0;
    std::string text;
    bool set = false;
    std::optional<int> length;
    std::optional<std::pair<double, double>> range;
    std::optional<char> key;
    std::optional<std::array<int, 6>> colour;
    std::optional<std::string> format;
    int value = 0;                               ///< trackbar
    std::optional<std::pair<int, int>> steps;    ///< trackbar: line, page
    std::optional<std::array<int, 3>> progress;  ///< minimum, maximum, step
    std::vector<std::string> items;              ///< combo, list
    int selected = 0;                            ///< item from 1, or dialog of a tab's page
    std::vector<Page> pages;                     ///< tab
    Grid grid;
};

struct Dialog {
    Place place;
    int identifier = 0;
    int width = 0, height = 0;
    int style = 0, flags = 0;
    int resize_field = 0;
    std::string title;
    std::vector<Field> fields;
};

struct Toolbar {
    Place place;
    int identifier = 0;
    int width = 0, height = 0;
    std::vector<int> buttons;  ///< 0 for a gap
};

struct String {
    Place place;
    int identifier = 0;
    std::string text;
};

/// One pixel of the pool: red, green, blue in four bits each from the lowest up, or transparent.
inline constexpr std::uint16_t transparent = 0x1000;

struct Image {
    Place place;
    int identifier = 0;
    int kind = 0;
    int width = 0, height = 0;
    std::string file;
    std::vector<std::uint16_t> pixels;  ///< rows from the top; empty until the file is read
};

struct Catalogue {
    std::vector<Menu> menus;
    std::vector<Dialog> dialogs;
    std::vector<Toolbar> toolbars;
    std::vector<String> strings;
    std::vector<Image> images;
};

}  // namespace catalogue
