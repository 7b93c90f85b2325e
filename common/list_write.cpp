#include "common/list_write.hpp"

#include "common/number_field.hpp"

namespace list_write {
namespace {

bool is_one_item(std::string_view text) {
    if (text.empty() || text.find_first_of(" \t\r\n,/") != std::string_view::npos) return false;
    if (text.front() == '\'' || text.front() == '"') return false;
    const std::size_t behind_digits = text.find_first_not_of("0123456789");
    return behind_digits == 0 || behind_digits == std::string_view::npos ||
           text[behind_digits] != '*';
}

void append_left(std::string& line, std::string field, std::size_t width) {
    if (field.size() < width) field.append(width - field.size(), ' ');
    append(line, field);
}

}  // namespace

void append(std::string& line, std::string_view field) {
    const bool touches =
        !line.empty() && line.back() != ' ' && line.back() != '\n' && !field.starts_with(' ');
    if (touches) line += ' ';
    line += field;
}

void append_fixed(std::string& line, std::span<const float> values, int width, int decimals) {
    for (const float value : values)
        append(line, number_field::fixed(static_cast<double>(value), width, decimals));
}

void append_text(std::string& line, std::string_view text, std::size_t width) {
    if (is_one_item(text))
        append_left(line, std::string(text), width);
    else
        append_quoted(line, text, width);
}

void append_quoted(std::string& line, std::string_view text, std::size_t width) {
    std::string field = "'";
    for (const char c : text) field.append(c == '\'' ? 2 : 1, c);
    append_left(line, field + '\'', width);
}

}  // namespace list_write
