#include "toolkit/editor/byte_marks.hpp"

#include <algorithm>

namespace tesserakit {

namespace {

constexpr std::uint16_t other_end = 0x100;  // the mark of a line end; others are bytes
constexpr std::string_view replacement = "\xef\xbf\xbd";  // U+FFFD

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U; }

/// Bytes of the character that `text` begins with; 0 when it begins with none.
std::size_t character_length(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80U) return 1;
    if (first < 0xc2U || first > 0xf4U) return 0;
    const std::size_t length = first < 0xe0U ? 2 : first < 0xf0U ? 3 : 4;
    if (text.size() < length || !std::ranges::all_of(text.substr(1, length - 1), continues))
        return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    const bool wrong = (first == 0xe0U && second < 0xa0U) || (first == 0xedU && second > 0x9fU) ||
                       (first == 0xf0U && second < 0x90U) || (first == 0xf4U && second > 0x8fU);
    return wrong ? 0 : length;
}

/// Whether CR LF is in the majority.
bool mostly_crlf(std::string_view bytes) {
    std::size_t both = 0;
    std::size_t all = 0;
    for (std::size_t at = bytes.find('\n'); at != std::string_view::npos;
         at = bytes.find('\n', at + 1)) {
        ++all;
        if (at > 0 && bytes[at - 1] == '\r') ++both;
    }
    return both > all - both;
}

std::uint32_t position32(std::size_t position) { return static_cast<std::uint32_t>(position); }

}  // namespace

std::wstring coded::shown(std::wstring_view text) {
    std::wstring result(text);
    std::ranges::transform(result, result.begin(), [](wchar_t c) { return shown(c); });
    return result;
}

std::string ByteMarks::take(std::string bytes) {
    crlf_ = mostly_crlf(bytes);
    std::vector<Marks::Entry> marks;
    std::string text;
    text.reserve(bytes.size());
    std::size_t characters = 0;
    for (std::string_view left = bytes; !left.empty(); ++characters) {
        const bool crlf = left.starts_with("\r\n");
        if (crlf || left.starts_with('\n')) {
            if (crlf != crlf_) marks.push_back({position32(characters), other_end});
            text += '\n';
            left.remove_prefix(crlf ? 2 : 1);
            continue;
        }
        const std::size_t length = character_length(left);
        if (length == 0 || left[0] == '\0' || left[0] == '\r') {
            const auto byte = static_cast<unsigned char>(left[0]);
            marks.push_back({position32(characters), byte});
            text += replacement;
            left.remove_prefix(1);
            continue;
        }
        text += left.substr(0, length);
        left.remove_prefix(length);
    }
    marks_ = Marks(std::move(marks), characters);
    return text;
}

std::string ByteMarks::bytes(std::string_view text) const {
    std::string result;
    result.reserve(text.size());
    std::size_t position = 0;
    std::size_t next = 0;  // mark
    for (std::size_t i = 0; i < text.size(); ++position) {
        const std::size_t begin = i++;
        while (i < text.size() && continues(text[i])) ++i;
        const bool marked = next < marks_.size() && marks_.at(next) == position;
        const std::uint16_t mark = marked ? marks_.payload(next++) : std::uint16_t{0};
        if (text[begin] == '\n') {
            result += crlf_ != (marked && mark == other_end) ? "\r\n" : "\n";
        } else if (marked && mark != other_end) {
            result += static_cast<char>(mark);
        } else {
            result += text.substr(begin, i - begin);
        }
    }
    return result;
}

void ByteMarks::change(std::size_t position, std::size_t removed, std::size_t inserted) {
    marks_.change(position, removed, inserted);
}

std::wstring ByteMarks::with_marks(std::size_t position, std::wstring text) const {
    for (std::size_t i = marks_.first_from(position); i < marks_.size(); ++i) {
        const std::size_t at = marks_.at(i) - position;
        if (at >= text.size()) break;
        const std::uint16_t mark = marks_.payload(i);
        text[at] = mark == other_end ? coded::other_line_end : coded::first_byte + mark;
    }
    return text;
}

void ByteMarks::mark(std::size_t position, std::wstring_view coded_text) {
    for (std::size_t i = 0; i < coded_text.size(); ++i) {
        const wchar_t c = coded_text[i];
        if (c < coded::first_byte) continue;
        const int mark = c == coded::other_line_end ? other_end : c - coded::first_byte;
        marks_.put({position32(position + i), static_cast<std::uint16_t>(mark)});
    }
}

std::size_t ByteMarks::replaced_bytes() const {
    std::size_t count = 0;
    for (std::size_t i = 0; i < marks_.size(); ++i)
        if (marks_.payload(i) != other_end) ++count;
    return count;
}

}  // namespace tesserakit
