#include "crystal/string_utilities/free_format.hpp"

#include "common/number_field.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <istream>
#include <limits>
#include <ostream>

namespace string_utilities {
namespace {

struct FindfmtState {
    int line_number = 0;
    int unit = 0;
    FindfmtError error = FindfmtError::none;
    std::size_t position = 0;  ///< in the line last read, from 0
    FixedText<512> line;
};
constinit FindfmtState state;

constexpr std::string_view item_separators = " \t,";

void set_error(const char* message) {
    err_string = true;
    err_string_mess = message;
}

bool next_line(std::istream& file, std::string& line) {
    if (!std::getline(file, line)) return false;
    if (line.ends_with('\r')) line.pop_back();
    return true;
}

std::string piece_of(char letter, std::size_t width) { return letter + std::to_string(width); }

/// Skips to the next item, writing the skipped columns to the format, and returns its text; empty
/// at the end of the line.
std::string_view item_at(std::string_view line, std::size_t& position, std::string& format) {
    const std::size_t begin = line.find_first_not_of(item_separators, position);
    if (begin == std::string_view::npos) {
        position = line.size();
        return {};
    }
    if (begin > position) buildfmt(format, std::to_string(begin - position) + 'x');
    position = begin;
    return line.substr(begin, line.find_first_of(item_separators, begin) - begin);
}

FindfmtError format_of(std::string_view line, std::string description, std::string& format) {
    bool any = false;
    while (const std::optional<char> type = sgetftmfield(description)) {
        any = true;
        if (*type == '?') return FindfmtError::bad_description;
        const FindfmtError error = *type == 'A'
                                       ? treatmcharfield(line, state.position, format)
                                       : treatnumerfield(*type, line, state.position, format);
        if (error != FindfmtError::none) return error;
    }
    return any ? FindfmtError::none : FindfmtError::empty_format;
}

void tell_failure(FindfmtError error, bool blank_line) {
    if (error == FindfmtError::none) return;
    set_error(blank_line ? "Blank line" : "Bad format");
}

}  // namespace

int get_logunit() {
    const long limit = sysconf(_SC_OPEN_MAX);
    const int last =
        limit > 0 && limit < std::numeric_limits<int>::max() ? static_cast<int>(limit) : 1024;
    for (int unit = 3; unit < last; ++unit)
        if (fcntl(unit, F_GETFD) == -1) return unit;
    return -1;
}

int number_lines(const std::string& file_name) {
    init_err_string();
    std::ifstream file(file_name);
    if (!file) set_error("Not exist the file");
    int count = 0;
    for (std::string line; next_line(file, line);) ++count;
    return count;
}

std::vector<std::string> reading_lines(const std::string& file_name, int count) {
    init_err_string();
    std::vector<std::string> lines;
    std::ifstream file(file_name);
    if (!file) set_error("Not exist the file");
    for (std::string line; static_cast<int>(lines.size()) < count && next_line(file, line);)
        lines.push_back(line);
    return lines;
}

std::optional<KeyLine> read_key_str(std::span<const std::string> lines, int first, int last,
                                    std::string_view keyword) {
    const int end = std::min(last, static_cast<int>(lines.size()));
    for (int i = std::max(first, 1); i <= end; ++i) {
        std::string_view rest = lines[static_cast<std::size_t>(i - 1)];
        const std::string_view word = cutst(rest);
        if (!word.empty() && u_case(word) == keyword) return KeyLine{i, rest};
    }
    return std::nullopt;
}

std::optional<KeyItems> read_key_value(std::span<const std::string> lines, int first, int last,
                                       std::string_view keyword, std::span<float> reals,
                                       std::span<int> integers) {
    const std::optional<KeyLine> found = read_key_str(lines, first, last, keyword);
    if (!found) return std::nullopt;
    return KeyItems{found->line, getnum(found->rest, reals, integers)};
}

std::optional<KeyItems> read_key_valuest(std::span<const std::string> lines, int first, int last,
                                         std::string_view keyword, std::span<float> values,
                                         std::span<float> sigmas) {
    const std::optional<KeyLine> found = read_key_str(lines, first, last, keyword);
    if (!found) return std::nullopt;
    return KeyItems{found->line, getnum_std(found->rest, values, sigmas)};
}

void init_findfmt(int line, int unit) {
    state = {};
    state.line_number = line;
    state.unit = unit;
}

FindfmtError findfmt(std::istream& file, std::string_view description, std::string& line,
                     std::string& format) {
    init_err_string();
    format.clear();
    line.clear();
    state.position = 0;
    state.line = {};
    if (!next_line(file, line)) return state.error = FindfmtError::end_of_file;
    ++state.line_number;
    state.line = std::string_view(line);
    std::string built = "(";
    state.error = format_of(line, std::string(description), built);
    tell_failure(state.error, line.find_first_not_of(item_separators) == std::string::npos);
    if (state.error == FindfmtError::none) format = built + ')';
    return state.error;
}

void findfmt_err(std::ostream& report) {
    switch (state.error) {
        case FindfmtError::none:
            report << "FindFMT: no error\n";
            return;
        case FindfmtError::end_of_file:
            report << "FindFMT: End of file !\n => Non FATAL End of file !,  logical unit: "
                   << state.unit << '\n';
            return;
        case FindfmtError::empty_format:
            report << "FindFMT: empty format\n";
            break;
        default:
            report << "FindFMT: Read error on the data line, error number: "
                   << static_cast<int>(state.error) << '\n';
    }
    report << " => Please check your input file at line: " << state.line_number << '\n'
           << "   " << state.line.trimmed() << '\n'
           << std::string(std::min(state.position, state.line.width), ' ') << "   ^----\n";
}

std::optional<char> sgetftmfield(std::string& description) {
    const std::size_t begin = description.find_first_not_of(" ,()");
    description.erase(0, begin);
    if (description.empty()) return std::nullopt;
    const std::size_t digits =
        std::min(description.find_first_not_of("0123456789"), description.size());
    const char letter = digits < description.size() ? raised(description[digits]) : '?';
    const int count =
        digits == 0 ? 1 : number_field::to_int(description.substr(0, digits)).value_or(0);
    if ((letter != 'A' && letter != 'F' && letter != 'I') || count < 1) return '?';
    description.replace(0, digits + (count == 1), count == 1 ? "" : std::to_string(count - 1));
    return letter;
}

void buildfmt(std::string& format, std::string_view piece) {
    if (!format.empty() && format != "(") format += ',';
    format += piece;
}

FindfmtError treatmcharfield(std::string_view line, std::size_t& position, std::string& format) {
    const std::string_view item = item_at(line, position, format);
    if (item.empty()) return FindfmtError::missing_item;
    buildfmt(format, piece_of('a', item.size()));
    position += item.size();
    return FindfmtError::none;
}

FindfmtError treatnumerfield(char type, std::string_view line, std::size_t& position,
                             std::string& format) {
    const std::string_view item = item_at(line, position, format);
    if (item.empty()) return FindfmtError::missing_item;
    if (type == 'I') {
        if (!number_field::to_int(item)) return FindfmtError::no_number;
        buildfmt(format, piece_of('i', item.size()));
    } else {
        if (!number_field::to_float(item)) return FindfmtError::no_number;
        const std::size_t exponent = std::min(item.find_first_of("EeDd"), item.size());
        const std::size_t point = std::min(item.find('.'), exponent);
        const std::size_t decimals = exponent - std::min(point + 1, exponent);
        buildfmt(format, piece_of('f', item.size()) + '.' + std::to_string(decimals));
    }
    position += item.size();
    return FindfmtError::none;
}

}  // namespace string_utilities
