#include "toolkit/base/tesser_ini.hpp"

#include "common/fixed_text.hpp"
#include "common/letter_case.hpp"
#include "common/number_field.hpp"
#include "common/safe_file.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace tesserakit {

Settings& settings = *new Settings;

namespace {

constexpr std::size_t keyword_length = 8;
constexpr std::string_view default_name = "tesser.ini";

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string with_slash(std::string path) {
    if (!path.ends_with('/')) path += '/';
    return path;
}

std::string root_of_environment(const std::string& otherwise) {
    if (const std::string root = variable("TESSROOT"); !root.empty()) return with_slash(root);
    const std::string tool = variable("TKIDE");
    if (tool.empty()) return otherwise;
    return with_slash(tool.substr(0, letter_case::in_capitals(tool).find("TKIDE")));
}

/// A pipe would keep the start waiting, a device such as /dev/zero or a file that is no text take
/// all memory; the working directory may be anyone's.
bool usable(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(path, failure) &&
           std::filesystem::file_size(path, failure) <= largest_ini_file && !failure;
}

struct TextKeyword {
    std::string_view keyword;
    std::string Settings::*member;
};
constexpr std::array text_keywords{
    TextKeyword{"CHARDIR", &Settings::character_directory},
    TextKeyword{"CHARSET", &Settings::character_set},
    TextKeyword{"PDFREAD", &Settings::pdf_reader},
    TextKeyword{"BROWSER", &Settings::browser},
};

struct NumberKeyword {
    std::string_view keyword;
    int Settings::*member;
};
constexpr std::array number_keywords{
    NumberKeyword{"DEBUG", &Settings::debug_level},
    NumberKeyword{"HPGL2", &Settings::hpgl_dialect},
    NumberKeyword{"PLOTTER", &Settings::plotter},
    NumberKeyword{"PRINTER", &Settings::printer},
};

void read_ini_file(const std::string& path, Settings& values) {
    std::string text;
    if (!safe_file::read(path, text)) return;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) read_ini_line(line, values);
}

}  // namespace

Settings settings_of_environment() {
    Settings values;
    values.root_directory = root_of_environment(values.root_directory);
    values.character_directory = values.root_directory + "charsets/";
    const std::string debug = variable("TESSDEBUG");
    if (!debug.empty()) values.debug_level = number_field::to_int(debug.substr(0, 1)).value_or(0);
    return values;
}

void read_ini_line(std::string_view line, Settings& values) {
    std::string text{line};
    std::ranges::replace(text, '\t', ' ');
    std::ranges::replace(text, '\r', ' ');
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos) return;
    const std::string_view name = without_blanks_around(std::string_view(text).substr(0, equals));
    const std::string keyword = letter_case::in_capitals(name.substr(0, keyword_length));
    const std::string_view value = without_blanks_around(std::string_view(text).substr(equals + 1));
    for (const TextKeyword& row : text_keywords)
        if (row.keyword == keyword) values.*row.member = value;
    for (const NumberKeyword& row : number_keywords)
        if (row.keyword == keyword)
            values.*row.member = number_field::to_int(value).value_or(values.*row.member);
}

std::string find_ini_file(std::string_view name, const Settings& values) {
    for (const std::string& path :
         {std::string{without_trailing_blanks(name)}, variable("TESSINIT"),
          std::string{default_name}, values.root_directory + std::string{default_name}})
        if (usable(path)) return path;
    return {};
}

void yywinitialise(std::string_view inifile) {
    settings = settings_of_environment();
    const std::string path = find_ini_file(inifile, settings);
    if (!path.empty()) read_ini_file(path, settings);
}

}  // namespace tesserakit
