#include "toolkit/editor/line_commands.hpp"

#include "toolkit/editor/byte_marks.hpp"
#include "toolkit/editor/letters.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace tesserakit {

namespace {

constexpr std::wstring_view one_indent = L"    ";
constexpr wchar_t comment_mark = L'!';  // of the structure file

constexpr std::array commands{
    LineCommand::DeleteLine, LineCommand::JoinLines, LineCommand::TransposeLines,
    LineCommand::Indent,     LineCommand::Unindent,  LineCommand::Comment,
    LineCommand::Uncomment,  LineCommand::UpperCase, LineCommand::LowerCase,
    LineCommand::InvertCase,
};

bool is_blank(wchar_t c) { return c == L' ' || c == L'\t'; }

/// A line without its line end.
struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t length() const { return end - begin; }
};

Line line_around(std::wstring_view text, std::size_t position) {
    Line line{position, position};
    while (line.begin > 0 && !coded::is_line_end(text[line.begin - 1])) --line.begin;
    while (line.end < text.size() && !coded::is_line_end(text[line.end])) ++line.end;
    return line;
}

/// The lines that a selection touches, one at least.
std::vector<Line> lines_of(std::wstring_view text, const TextSelection& selection) {
    std::vector<Line> lines{line_around(text, selection.begin)};
    while (lines.back().end + 1 < selection.end)
        lines.push_back(line_around(text, lines.back().end + 1));
    return lines;
}

std::wstring_view of(std::wstring_view text, const Line& line) {
    return text.substr(line.begin, line.length());
}

/// A change of a line's beginning.
struct HeadEdit {
    std::size_t at = 0;  ///< from the line's beginning
    std::size_t removed = 0;
    std::wstring_view inserted{};
    bool changes() const { return removed > 0 || !inserted.empty(); }
};

/// Where a position of the old text has gone. One at the place of an insertion stays behind what
/// has come, if `behind`.
std::size_t moved(std::size_t position, std::size_t at, const HeadEdit& head, bool behind) {
    if (position < at || (position == at && !behind)) return position;
    return std::max(position, at + head.removed) - head.removed + head.inserted.size();
}

/// Changes the beginnings of all lines touched, in one replacement.
template <class Head>
std::optional<TextEdit> edit_heads(std::wstring_view text, const TextSelection& selection,
                                   Head head_of) {
    const std::vector<Line> lines = lines_of(text, selection);
    const bool caret = selection.begin == selection.end;
    TextEdit edit{lines.front().begin, lines.back().end, {}, selection};
    bool changes = false;
    // From the last line up, so that positions still to come are the old ones.
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        const HeadEdit head = head_of(of(text, *line));
        changes = changes || head.changes();
        const std::size_t at = line->begin + head.at;
        edit.selection.end = moved(edit.selection.end, at, head, true);
        edit.selection.begin = moved(edit.selection.begin, at, head, caret);
    }
    for (const Line& line : lines) {
        const std::wstring_view old = of(text, line);
        const HeadEdit head = head_of(old);
        if (line.begin != edit.begin) edit.text += text[line.begin - 1];
        edit.text += old.substr(0, head.at);
        edit.text += head.inserted;
        edit.text += old.substr(head.at + head.removed);
    }
    if (!changes) return std::nullopt;
    return edit;
}

HeadEdit indented(std::wstring_view line) {
    return line.empty() ? HeadEdit{} : HeadEdit{.inserted = one_indent};
}

HeadEdit unindented(std::wstring_view line) {
    if (line.starts_with(L'\t')) return {.removed = 1};
    const std::size_t blanks = std::min(line.find_first_not_of(L' '), line.size());
    return {.removed = std::min(blanks, one_indent.size())};
}

HeadEdit commented(std::wstring_view) { return {.inserted = std::wstring_view(&comment_mark, 1)}; }

HeadEdit uncommented(std::wstring_view line) {
    const std::size_t first = line.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos || line[first] != comment_mark) return {};
    return {.at = first, .removed = 1};
}

/// The last line goes with the line end before it, as it has none of its own.
std::optional<TextEdit> delete_lines(std::wstring_view text, const TextSelection& selection) {
    const std::vector<Line> lines = lines_of(text, selection);
    std::size_t begin = lines.front().begin;
    std::size_t end = lines.back().end;
    if (end < text.size()) {
        ++end;
    } else if (begin > 0) {
        --begin;
    }
    if (begin == end) return std::nullopt;
    std::size_t caret = begin;
    if (end == text.size()) caret = line_around(text, begin).begin;
    return TextEdit{begin, end, {}, {caret, caret}};
}

/// One blank parts what is joined, in place of the blanks at the ends that meet.
std::optional<TextEdit> join_lines(std::wstring_view text, const TextSelection& selection) {
    std::vector<Line> lines = lines_of(text, selection);
    if (lines.size() == 1) {
        if (lines.back().end == text.size()) return std::nullopt;
        lines.push_back(line_around(text, lines.back().end + 1));
    }
    TextEdit edit{lines.front().begin, lines.back().end, std::wstring(of(text, lines.front())), {}};
    std::size_t joint = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::wstring_view next = of(text, lines[i]);
        while (!next.empty() && is_blank(next.front())) next.remove_prefix(1);
        while (!edit.text.empty() && is_blank(edit.text.back())) edit.text.pop_back();
        joint = edit.text.size();
        if (!edit.text.empty() && !next.empty()) edit.text += L' ';
        edit.text += next;
    }
    const bool caret = selection.begin == selection.end;
    edit.selection = caret ? TextSelection{edit.begin + joint, edit.begin + joint}
                           : TextSelection{edit.begin, edit.begin + edit.text.size()};
    return edit;
}

/// The caret's line changes places with the one above it, the first one with that below; several
/// selected lines come in reverse order. The line ends stay where they are.
std::optional<TextEdit> transpose_lines(std::wstring_view text, const TextSelection& selection) {
    std::vector<Line> lines = lines_of(text, selection);
    const bool one = lines.size() == 1;
    if (one && lines.front().begin > 0) {
        lines.insert(lines.begin(), line_around(text, lines.front().begin - 1));
    } else if (one && lines.back().end < text.size()) {
        lines.push_back(line_around(text, lines.back().end + 1));
    }
    if (lines.size() == 1) return std::nullopt;
    TextEdit edit{lines.front().begin, lines.back().end, {}, {}};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) edit.text += text[lines[i].begin - 1];
        edit.text += of(text, lines[lines.size() - 1 - i]);
    }
    edit.selection = {edit.begin, edit.end};
    if (one) edit.selection.begin = edit.selection.end;
    return edit;
}

wchar_t inverted(wchar_t c) { return lower(c) == c ? upper(c) : lower(c); }

std::optional<TextEdit> change_case(std::wstring_view text, const TextSelection& selection,
                                    wchar_t (*change)(wchar_t)) {
    TextEdit edit{selection.begin, selection.end, {}, selection};
    if (selection.begin == selection.end) {
        const Line line = line_around(text, selection.begin);
        edit.begin = line.begin;
        edit.end = line.end;
    }
    const std::wstring_view old = text.substr(edit.begin, edit.end - edit.begin);
    edit.text = old;
    std::ranges::transform(edit.text, edit.text.begin(), change);
    if (edit.text == old) return std::nullopt;
    return edit;
}

}  // namespace

std::optional<LineCommand> line_command_of(int identifier) {
    const auto found = std::ranges::find(commands, static_cast<LineCommand>(identifier));
    if (found == commands.end()) return std::nullopt;
    return *found;
}

std::optional<TextEdit> edit_lines(LineCommand command, std::wstring_view text,
                                   TextSelection selection) {
    selection.end = std::min(selection.end, text.size());
    selection.begin = std::min(selection.begin, selection.end);
    switch (command) {
        case LineCommand::DeleteLine:
            return delete_lines(text, selection);
        case LineCommand::JoinLines:
            return join_lines(text, selection);
        case LineCommand::TransposeLines:
            return transpose_lines(text, selection);
        case LineCommand::Indent:
            return edit_heads(text, selection, indented);
        case LineCommand::Unindent:
            return edit_heads(text, selection, unindented);
        case LineCommand::Comment:
            return edit_heads(text, selection, commented);
        case LineCommand::Uncomment:
            return edit_heads(text, selection, uncommented);
        case LineCommand::UpperCase:
            return change_case(text, selection, upper);
        case LineCommand::LowerCase:
            return change_case(text, selection, lower);
        case LineCommand::InvertCase:
            return change_case(text, selection, inverted);
    }
    return std::nullopt;
}

}  // namespace tesserakit
