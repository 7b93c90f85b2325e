/// The commands of the editor's pop-up that change lines or letters, as replacements of a piece of
/// the text. No X here.
///
/// They act on the lines that the selection touches, or on the caret's where nothing is selected.
/// A selection that ends at the beginning of a line doesn't touch that line. Changes of case act on
/// the selected characters, or on the caret's line.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tesserakit {

/// By their items' identifiers.
enum class LineCommand : int {
    DeleteLine = 45001,
    JoinLines = 45002,
    TransposeLines = 45003,
    Indent = 45011,
    Unindent = 45012,
    Comment = 45013,
    Uncomment = 45014,
    UpperCase = 45021,
    LowerCase = 45022,
    InvertCase = 45023,
};
/// Nothing for an identifier that is none of them.
std::optional<LineCommand> line_command_of(int identifier);

/// Begin and end in characters from 0; a caret where they are the same.
struct TextSelection {
    std::size_t begin = 0;
    std::size_t end = 0;
    friend bool operator==(const TextSelection&, const TextSelection&) = default;
};

/// The characters from `begin` up to `end` give way to `text`; then this is selected.
struct TextEdit {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::wstring text;
    TextSelection selection;
};

/// What a command does, or nothing where it changes nothing. `text` is the whole text, or a piece
/// of whole lines around the selection's with one line more on either side, where there is one; it
/// may be coded (byte_marks.hpp). All positions count from the beginning of `text`.
std::optional<TextEdit> edit_lines(LineCommand command, std::wstring_view text,
                                   TextSelection selection);

}  // namespace tesserakit
