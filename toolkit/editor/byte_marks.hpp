/// A file's bytes as the text widget can hold them, and back, byte for byte.
///
/// The widget holds UTF-8 with line feeds. What a file has beside, it shows in its own way, and the
/// marks keep what stands behind it: U+FFFD for a byte that is no part of a character, a zero or a
/// lone carriage return; a line feed for the file's other kind of line end. A mark moves with the
/// text and goes with its character; what nobody touches is saved as it was.
///
/// Text on its way through an edit (a line moved, indented, replaced) is carried as coded text,
/// whose characters tell their marks: see below. Positions are the text widget's: characters from
/// 0. No X here.
#pragma once

#include "toolkit/editor/moving_positions.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace tesserakit {

/// Characters of coded text that no Unicode has. They never reach the widget.
namespace coded {
inline constexpr wchar_t first_byte = 0x110000;      ///< and the byte: shown as U+FFFD
inline constexpr wchar_t other_line_end = 0x110100;  ///< shown as a line feed

inline constexpr wchar_t replacement_sign = 0xfffd;

constexpr bool is_line_end(wchar_t c) { return c == L'\n' || c == other_line_end; }
/// As the widget shows it.
constexpr wchar_t shown(wchar_t c) {
    return c < first_byte ? c : c == other_line_end ? L'\n' : replacement_sign;
}
std::wstring shown(std::wstring_view text);
}  // namespace coded

class ByteMarks {
public:
    /// Takes a file's bytes, forgetting all before, and answers the text that shows them. The kind
    /// of line end that is in the majority is the file's own: LF, also without any, or CR LF.
    std::string take(std::string bytes);

    /// The file's bytes for the whole text shown (UTF-8). New line ends are of the file's own kind.
    std::string bytes(std::string_view text) const;

    /// `removed` characters behind `position` gave way to `inserted` ones without marks.
    void change(std::size_t position, std::size_t removed, std::size_t inserted);

    /// A piece of the text shown, which begins at `position`, as coded text.
    std::wstring with_marks(std::size_t position, std::wstring text) const;
    /// Gives coded text that was put into the widget, as `coded::shown` tells it, its marks. The
    /// change itself must have been told.
    void mark(std::size_t position, std::wstring_view coded_text);

    /// Characters of the text that aren't what the file has: bytes shown as U+FFFD.
    std::size_t replaced_bytes() const;

private:
    using Marks = MovingPositions<std::uint16_t>;  // of a byte, or `other_end`

    Marks marks_;
    bool crlf_ = false;  // the file's own line end
};

}  // namespace tesserakit
