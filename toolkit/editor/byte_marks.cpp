// Most files need no mark and have line feeds: their bytes are handed through without a copy. In
// the others, runs of bytes that are shown as they are go over in one piece.

#include "toolkit/editor/byte_marks.hpp"

#include "toolkit/base/locale_text.hpp"

#include <algorithm>
#include <utility>

namespace tesserakit {

namespace {

constexpr std::uint16_t other_end = 0x100;                // mark of a line end; others are bytes
constexpr std::string_view replacement = "\xef\xbf\xbd";  // U+FFFD

bool continues(char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U; }

/// Whether CR LF is in the majority.
bool mostly_crlf(std::string_view bytes) {
    std::size_t both = 0;
    std::size_t all = 0;
    for (std::size_t at = bytes.find('\n'); at != bytes.npos; at = bytes.find('\n', at + 1)) {
        ++all;
        if (at > 0 && bytes[at - 1] == '\r') ++both;
    }
    return both > all - both;
}

/// How many bytes from the beginning are characters that show themselves.
std::size_t plain_length(std::string_view left, bool file_has_crlf) {
    const auto is_plain = [file_has_crlf](char c) {
        return (c >= ' ' && c <= '~') || c == '\t' || (c == '\n' && !file_has_crlf);
    };
    return static_cast<std::size_t>(std::ranges::find_if_not(left, is_plain) - left.begin());
}

/// What a file begins with, and how it is shown.
struct Piece {
    std::size_t bytes = 1;
    std::string_view shown;  ///< one character
    bool marked = false;
    std::uint16_t mark = 0;
};

Piece first_piece(std::string_view left, bool file_has_crlf) {
    const bool crlf = left.starts_with("\r\n");
    if (crlf || left[0] == '\n') return {crlf ? 2U : 1U, "\n", crlf != file_has_crlf, other_end};
    const std::size_t length = utf8_length(left);
    if (length == 0 || left[0] == '\0' || left[0] == '\r')
        return {1, replacement, true, static_cast<unsigned char>(left[0])};
    return {length, left.substr(0, length)};
}

/// Behind `count` characters.
std::size_t skip(std::string_view text, std::size_t from, std::size_t count) {
    for (; count > 0 && from < text.size(); --count) {
        ++from;
        while (from < text.size() && continues(text[from])) ++from;
    }
    return from;
}

/// A text without marks, with line ends of the file's kind. A carriage return before a line feed
/// has come from a clipboard, and is part of that line end.
void append_plain(std::string& bytes, std::string_view text, bool crlf) {
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        bytes.append(line).append(crlf ? "\r\n" : "\n");
        text.remove_prefix(end + 1);
    }
    bytes += text;
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
    std::size_t copied = 0;
    std::size_t characters = 0;
    const std::string_view all = bytes;
    for (std::size_t at = 0;; ++characters) {
        const std::size_t plain = plain_length(all.substr(at), crlf_);
        at += plain;
        characters += plain;
        if (at == all.size()) break;
        const Piece piece = first_piece(all.substr(at), crlf_);
        if (piece.marked) marks.push_back({position32(characters), piece.mark});
        if (piece.marked || piece.bytes != piece.shown.size()) {
            text.append(all, copied, at - copied).append(piece.shown);
            copied = at + piece.bytes;
        }
        at += piece.bytes;
    }
    marks_ = Marks(std::move(marks), characters);
    if (copied == 0) return bytes;
    return text.append(all, copied);
}

std::string ByteMarks::bytes(std::string_view text) const {
    std::string result;
    result.reserve(text.size());
    std::size_t done = 0;      // bytes of the text
    std::size_t position = 0;  // characters up to there
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        const std::size_t begin = skip(text, done, marks_.at(i) - position);
        append_plain(result, text.substr(done, begin - done), crlf_);
        position = marks_.at(i) + 1;
        done = skip(text, begin, 1);
        const std::uint16_t mark = marks_.payload(i);
        if (mark != other_end) {
            result += static_cast<char>(mark);
        } else {
            result += crlf_ ? "\n" : "\r\n";
        }
    }
    append_plain(result, text.substr(done), crlf_);
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
