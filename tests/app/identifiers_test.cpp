#include "toolkit/resource/yyrc.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Type = tesserakit::ResourceField;

/// What stands behind `mark` in a line, up to one of `ends`; empty without the mark.
std::string behind(const std::string& line, const std::string& mark, const char* ends) {
    const std::size_t at = line.find(mark);
    if (at == std::string::npos) return {};
    const std::string rest = line.substr(at + mark.size());
    return rest.substr(0, rest.find_first_of(ends));
}

/// The numbers of app/identifiers.hpp by namespace and name, as the file has them: a line each,
/// "inline constexpr int name = 1;" or "inline constexpr std::array name{1, 2};".
std::map<std::string, std::map<std::string, std::vector<int>>> identifiers() {
    std::map<std::string, std::map<std::string, std::vector<int>>> found;
    std::ifstream in(GEMWRIGHT_IDENTIFIERS);
    std::string inside;
    for (std::string line; std::getline(in, line);) {
        const std::string space = behind(line, "namespace ", " {");
        if (!space.empty() && !line.starts_with("}")) inside = space;
        std::string name = behind(line, "inline constexpr int ", " ={");
        if (name.empty()) name = behind(line, "inline constexpr std::array ", " ={");
        if (name.empty()) continue;
        std::string values = behind(line, name, ";");
        std::replace_if(
            values.begin(), values.end(), [](char c) { return c < '0' || c > '9'; }, ' ');
        std::istringstream numbers(values);
        for (int number = 0; numbers >> number;) found[inside][name].push_back(number);
    }
    return found;
}

/// What the program takes each field for, and the dialog it looks for it in.
struct Use {
    int dialog;
    Type type;
};

const std::map<std::string, Use>& uses_of_fields() {
    static const std::map<std::string, Use> uses{
        {"picture", {101, Type::Picture}},
        {"mouse_mode", {101, Type::Radio}},
        {"information", {101, Type::String}},
        {"continuous_read", {101, Type::Check}},
        {"symbol_label", {102, Type::Label}},
        {"symbol", {102, Type::String}},
        {"by_symbol", {102, Type::Radio}},
        {"generators_group", {102, Type::Group}},
        {"generators", {102, Type::Grid}},
        {"hall", {102, Type::String}},
        {"crystal_system", {102, Type::String}},
        {"hermann_mauguin", {102, Type::String}},
        {"box_limits", {103, Type::Real}},
        {"cell_lengths", {105, Type::Real}},
        {"cell_angles", {105, Type::Real}},
        {"atom_list", {107, Type::List}},
        {"atom_label", {109, Type::String}},
        {"atom_symbol", {109, Type::String}},
        {"atom_coordinates", {109, Type::Real}},
        {"atom_multiplicity", {109, Type::Integer}},
        {"atom_shown", {114, Type::Check}},
        {"atom_radius", {114, Type::Real}},
        {"atom_default_colour", {114, Type::Radio}},
        {"atom_own_colour", {114, Type::Radio}},
        {"atom_colour", {114, Type::Trackbar}},
        {"atom_colour_labels", {114, Type::Label}},
        {"magnetic_lattice", {110, Type::Combo}},
        {"k_list", {110, Type::List}},
        {"k_components", {110, Type::Real}},
        {"bond_list", {112, Type::List}},
        {"bond_by_symbol", {115, Type::Radio}},
        {"bond_by_label", {115, Type::Radio}},
        {"bond_names", {115, Type::String}},
        {"bond_distances", {115, Type::Real}},
        {"bond_shown", {116, Type::Check}},
        {"bond_radius", {116, Type::Real}},
        {"bond_atoms_colour", {116, Type::Radio}},
        {"bond_own_colour", {116, Type::Radio}},
        {"bond_colour", {116, Type::Trackbar}},
        {"bond_colour_labels", {116, Type::Label}},
        {"quality", {117, Type::Trackbar}},
        {"shininess", {117, Type::Trackbar}},
        {"specular", {117, Type::Trackbar}},
        {"lamp_position", {118, Type::Real}},
        {"lamp_colour", {118, Type::Trackbar}},
        {"moment_head_length", {120, Type::Trackbar}},
        {"moment_head_width", {120, Type::Trackbar}},
        {"moment_thickness", {120, Type::Trackbar}},
    };
    return uses;
}

struct FieldRow {
    int identifier;
    Type type;
    std::string text;
};

std::vector<FieldRow> fields_of(int dialog) {
    int count = 0, length = 0, size = 0;
    tesserakit::yyrcdialogcheck(dialog, count, length);
    if (count < 0) return {};
    const auto n = static_cast<std::size_t>(count);
    std::vector<int> identifiers(n), types(n), offsets(n), unused(n);
    tesserakit::yyrcfieldcheck(dialog, size);
    std::string text(static_cast<std::size_t>(size) + 1, '\0');
    tesserakit::yyrcfieldload(dialog, identifiers, types, unused, unused, unused, unused, unused,
                              unused, unused, offsets, text);
    std::vector<FieldRow> rows;
    for (std::size_t i = 0; i < n; ++i)
        rows.push_back({identifiers[i], static_cast<Type>(types[i]),
                        offsets[i] < 0 ? "" : std::string(text.data() + offsets[i])});
    return rows;
}

bool has(int dialog, int identifier, Type type) {
    const std::vector<FieldRow> rows = fields_of(dialog);
    return std::any_of(rows.begin(), rows.end(), [&](const FieldRow& row) {
        return row.identifier == identifier && row.type == type;
    });
}

TEST(Identifiers, OfFieldsStandInTheCatalogueWithTheTypeTheyAreUsedAs) {
    const auto fields = identifiers().at("field");
    EXPECT_EQ(fields.size(), uses_of_fields().size());
    for (const auto& [name, numbers] : fields) {
        const auto use = uses_of_fields().find(name);
        ASSERT_NE(use, uses_of_fields().end()) << name << ": what is it used as?";
        EXPECT_FALSE(numbers.empty()) << name;
        for (const int number : numbers)
            EXPECT_TRUE(has(use->second.dialog, number, use->second.type)) << name << " " << number;
    }
}

// OK and Cancel have no field: they come of Return and of the window manager.
TEST(Identifiers, OfButtonsAreButtonsOfOneDialogAtLeast) {
    const auto buttons = identifiers().at("button");
    for (const auto& [name, numbers] : buttons) {
        if (numbers == std::vector{1} || numbers == std::vector{2}) continue;
        bool found = false;
        for (int dialog = 101; dialog <= 121; ++dialog)
            found = found || has(dialog, numbers.at(0), Type::Button);
        EXPECT_TRUE(found) << name;
    }
}

TEST(Identifiers, OfDialogsMenusAndToolbarsAreThere) {
    const auto all = identifiers();
    int count = 0, second = 0, third = 0;
    for (const auto& [name, numbers] : all.at("dialog"))
        EXPECT_FALSE(fields_of(numbers.at(0)).empty()) << name;
    for (const auto& [name, numbers] : all.at("menu")) {
        tesserakit::yyrcmenucheck(numbers.at(0), count, second);
        EXPECT_GT(count, 0) << name;
    }
    for (const auto& [name, numbers] : all.at("toolbar")) {
        tesserakit::yyrctoolbarcheck(numbers.at(0), count, second, third);
        EXPECT_GT(count, 0) << name;
    }
}

std::string format_of(int dialog, int field) {
    int length = 0;
    tesserakit::yyrcfieldformatcheck(dialog, field, length);
    std::string format(static_cast<std::size_t>(std::max(length, 0)), ' ');
    tesserakit::yyrcfieldformatload(dialog, field, format);
    return format;
}

// Without one a number shows in powers of ten, the exponent beyond the field's edge.
TEST(Identifiers, RealFieldsShowAsManyDecimalsAsTheirFirstText) {
    int reals = 0;
    for (int dialog = 101; dialog <= 121; ++dialog)
        for (const FieldRow& row : fields_of(dialog)) {
            if (row.type != Type::Real && row.type != Type::Double) continue;
            ++reals;
            const std::size_t decimals = row.text.size() - row.text.find('.') - 1;
            EXPECT_THAT(format_of(dialog, row.identifier),
                        testing::MatchesRegex("\\(f[0-9]+\\." + std::to_string(decimals) + "\\)"))
                << dialog << "." << row.identifier << " " << row.text;
        }
    EXPECT_GT(reals, 30);
}

}  // namespace
