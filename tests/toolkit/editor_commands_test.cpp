#include "toolkit/editor/byte_marks.hpp"
#include "toolkit/editor/letters.hpp"
#include "toolkit/editor/line_commands.hpp"
#include "toolkit/editor/text_search.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

using namespace tesserakit;

namespace {

/// A text with its selection in square brackets, or its caret as a bar.
struct Marked {
    std::wstring text;
    TextSelection selection;
};

Marked read(std::wstring_view marked) {
    Marked result;
    for (const wchar_t c : marked) {
        const std::size_t here = result.text.size();
        if (c == L'[' || c == L'|') result.selection = {here, here};
        if (c == L']') result.selection.end = here;
        if (c != L'[' && c != L']' && c != L'|') result.text += c;
    }
    return result;
}

std::wstring write(Marked marked) {
    const auto [begin, end] = marked.selection;
    if (begin == end) return marked.text.insert(begin, L"|");
    return marked.text.insert(end, L"]").insert(begin, L"[");
}

/// The text after a command; "-" where there is nothing to do.
std::wstring after(LineCommand command, std::wstring_view marked) {
    Marked before = read(marked);
    const std::optional<TextEdit> edit = edit_lines(command, before.text, before.selection);
    if (!edit) return L"-";
    before.text.replace(edit->begin, edit->end - edit->begin, edit->text);
    return write({before.text, edit->selection});
}

}  // namespace

TEST(EditorLineCommands, ChangeTheLinesOfTheSelectionOrTheCaret) {
    using enum LineCommand;
    struct Case {
        LineCommand command;
        std::wstring_view before;
        std::wstring_view after;
    };
    const std::array cases{
        Case{DeleteLine, L"a\nb|b\nc", L"a\n|c"},
        Case{DeleteLine, L"a|\nb", L"|b"},
        Case{DeleteLine, L"a\nb|", L"|a"},
        Case{DeleteLine, L"a\n|", L"|a"},
        Case{DeleteLine, L"a\nb|\n", L"a\n|"},
        Case{DeleteLine, L"a|", L"|"},
        Case{DeleteLine, L"a\n[b\n]c\n", L"a\n|c\n"},
        Case{DeleteLine, L"a\nb[b\nc]c\nd", L"a\n|d"},
        Case{DeleteLine, L"[a\nb]", L"|"},

        Case{JoinLines, L"a|b  \n  c\nd", L"ab| c\nd"},
        Case{JoinLines, L"|\nc", L"|c"},
        Case{JoinLines, L"a|\n \nc", L"a|\nc"},
        Case{JoinLines, L"x\na[a\nb\n\nc]c\nd", L"x\n[aa b cc]\nd"},
        Case{JoinLines, L"a\nb|", L"-"},

        Case{TransposeLines, L"a\nb|b\nc", L"bb\na|\nc"},
        Case{TransposeLines, L"a\nbb|", L"bb\na|"},
        Case{TransposeLines, L"a|\nb\nc", L"b\na|\nc"},
        Case{TransposeLines, L"[a\nb\nc\n]d", L"[c\nb\na]\nd"},
        Case{TransposeLines, L"a|", L"-"},

        Case{Indent, L"a\nb|c\n", L"a\n    b|c\n"},
        Case{Indent, L"|a", L"    |a"},
        Case{Indent, L"[a\n\nb]\n", L"[    a\n\n    b]\n"},
        Case{Indent, L"a[a\nb\n]c", L"    a[a\n    b\n]c"},
        Case{Indent, L"a\n|\nb", L"-"},
        Case{Unindent, L"      a|\n", L"  a|\n"},
        Case{Unindent, L" [ a\n\tb\nc]", L"[a\nb\nc]"},
        Case{Unindent, L"  |      a", L"|    a"},
        Case{Unindent, L"a|  ", L"-"},

        Case{Comment, L"ATOM| A\n", L"!ATOM| A\n"},
        Case{Comment, L"a\n[b\n\n]c", L"a\n[!b\n!\n]c"},
        Case{Uncomment, L"!a|", L"a|"},
        Case{Uncomment, L"[!!a\n  ! b !\nc]", L"[!a\n   b !\nc]"},
        Case{Uncomment, L"a ! b|", L"-"},

        Case{UpperCase, L"a\u00e9[\u03bc\u044f\u00df]b", L"a\u00e9[\u039c\u042f\u00df]b"},
        Case{LowerCase, L"A\nB|C\nD", L"A\nb|c\nD"},
        Case{InvertCase, L"[aB\n\u00c9\u00e9]", L"[Ab\n\u00e9\u00c9]"},
        Case{UpperCase, L"1|2", L"-"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(one.before)));
        EXPECT_EQ(after(one.command, one.before), one.after) << static_cast<int>(one.command);
    }
}

TEST(EditorLineCommands, DoNothingInAnEmptyTextButComment) {
    for (int identifier = 44990; identifier < 45050; ++identifier) {
        const auto command = line_command_of(identifier);
        if (!command) continue;
        EXPECT_EQ(after(*command, L"|"), *command == LineCommand::Comment ? L"!|" : L"-")
            << identifier;
        EXPECT_FALSE(edit_lines(*command, L"", {7, 3}) && *command != LineCommand::Comment);
    }
    EXPECT_FALSE(line_command_of(45004));
}

TEST(EditorLineCommands, APieceWithALineMoreOnEitherSideDoesForTheWholeText) {
    const std::wstring whole = L"1\n22\n  333\n\n55555\n6";
    std::vector<std::size_t> starts{0};
    for (std::size_t i = 0; i < whole.size(); ++i)
        if (whole[i] == L'\n') starts.push_back(i + 1);
    starts.push_back(whole.size());
    const auto line_at = [&](std::size_t position) {
        const auto behind = std::upper_bound(starts.begin(), starts.end() - 1, position);
        return static_cast<std::size_t>(behind - starts.begin()) - 1;
    };
    for (int identifier = 45001; identifier < 45030; ++identifier) {
        const auto command = line_command_of(identifier);
        if (!command) continue;
        for (std::size_t begin = 0; begin <= whole.size(); ++begin) {
            for (std::size_t end = begin; end <= whole.size(); ++end) {
                const std::size_t first = starts[line_at(begin) - (line_at(begin) > 0 ? 1 : 0)];
                const std::size_t last = starts[std::min(line_at(end) + 2, starts.size() - 1)];
                const auto all = edit_lines(*command, whole, {begin, end});
                const auto piece = edit_lines(*command, whole.substr(first, last - first),
                                              {begin - first, end - first});
                ASSERT_EQ(all.has_value(), piece.has_value()) << identifier << ' ' << begin;
                if (!all) continue;
                ASSERT_EQ(all->begin, piece->begin + first) << identifier << ' ' << begin;
                ASSERT_EQ(all->end, piece->end + first);
                ASSERT_EQ(all->text, piece->text);
                ASSERT_EQ(all->selection.begin, piece->selection.begin + first);
                ASSERT_EQ(all->selection.end, piece->selection.end + first);
            }
        }
    }
}

TEST(EditorLineCommands, OtherLineEndsAndHiddenBytesStayThemselves) {
    const std::wstring end(1, coded::other_line_end);
    const std::wstring byte(1, coded::first_byte + 0xe9);
    const auto edit = edit_lines(LineCommand::Indent, L"a" + byte + end + L"b\nc", {0, 5});
    ASSERT_TRUE(edit);
    EXPECT_EQ(edit->text, L"    a" + byte + end + L"    b");
    const auto upper_case = edit_lines(LineCommand::UpperCase, byte + L"a" + end, {0, 3});
    ASSERT_TRUE(upper_case);
    EXPECT_EQ(upper_case->text, byte + L"A" + end);
}

TEST(EditorLetters, OneLetterIsFoundInAllItsForms) {
    const std::array<std::wstring_view, 8> forms{L"aA",
                                                 L"\u00e9\u00c9",
                                                 L"\u00e5\u00c5\u212b",
                                                 L"\u00b5\u03bc\u039c",
                                                 L"\u03c3\u03c2\u03a3",
                                                 L"\u044f\u042f",
                                                 L"\u0159\u0158",
                                                 L"\u00df"};
    for (const std::wstring_view letter : forms)
        for (const wchar_t form : letter) EXPECT_EQ(folded(form), folded(letter[0])) << int(form);
    EXPECT_NE(folded(L'e'), folded(L'\u00e9'));
    EXPECT_NE(folded(L'['), folded(L'{'));
}

TEST(EditorSearch, FindsForwardAndBackwardFromThePlace) {
    struct Case {
        std::wstring_view text, wanted;
        std::size_t from;
        SearchRules rules;
        std::optional<TextMatch> match;
    };
    const std::array cases{
        Case{L"Fe fe FE", L"fe", 0, {}, TextMatch{0, 2}},
        Case{L"Fe fe FE", L"fe", 1, {}, TextMatch{3, 5}},
        Case{L"Fe fe FE", L"fe", 7, {}, std::nullopt},
        Case{L"Fe fe FE", L"FE", 0, {.match_case = true}, TextMatch{6, 8}},
        Case{L"Fe fe FE", L"fe", 8, {.backward = true}, TextMatch{6, 8}},
        Case{L"Fe fe FE", L"fe", 7, {.backward = true}, TextMatch{3, 5}},
        Case{L"Fe fe FE", L"fe", 1, {.backward = true}, std::nullopt},
        Case{L"Fe fe FE", L"fe", 99, {.backward = true}, TextMatch{6, 8}},
        Case{L"Fe fe FE", L"fe", 99, {}, std::nullopt},
        Case{L"aaa", L"aa", 3, {.backward = true}, TextMatch{1, 3}},
        Case{L"Fe1 Fe_ _Fe 1Fe \u00e9Fe (Fe)", L"Fe", 0, {.whole_word = true}, TextMatch{21, 23}},
        Case{L"Fe", L"Fe", 0, {.whole_word = true}, TextMatch{0, 2}},
        Case{L"x (a)b", L"(a)", 0, {.whole_word = true}, TextMatch{2, 5}},
        Case{L"\u00c5NGSTR\u00d6M", L"\u00e5ngstr\u00f6m", 0, {}, TextMatch{0, 8}},
        Case{L"a\nb", L"a\nb", 0, {}, TextMatch{0, 3}},
        Case{L"text", L"", 0, {}, std::nullopt},
        Case{L"", L"text", 0, {}, std::nullopt},
        Case{L"", L"text", 0, {.backward = true}, std::nullopt},
    };
    for (const Case& one : cases)
        EXPECT_EQ(find_text(one.text, one.wanted, one.from, one.rules), one.match)
            << testing::PrintToString(std::wstring(one.text)) << " from " << one.from;
}

TEST(EditorSearch, FindsWhatAPlainComparisonFinds) {
    std::mt19937 random(5);
    const auto letters = [&random](std::size_t length) {
        std::wstring text;
        while (text.size() < length) text += L"aab "[random() % 4];
        return text;
    };
    for (int turn = 0; turn < 2000; ++turn) {
        const std::wstring text = letters(random() % 40);
        const std::wstring wanted = letters(1 + random() % 5);
        const std::size_t from = random() % (text.size() + 1);
        const auto ends = [&](std::size_t at) { return at == text.size() || text[at] == L' '; };
        std::size_t at = text.find(wanted, from);
        ASSERT_EQ(find_text(text, wanted, from, {}).value_or(TextMatch{text.npos, 0}).begin, at)
            << testing::PrintToString(text) << testing::PrintToString(wanted) << from;
        const std::size_t last =
            from < wanted.size() ? text.npos : text.rfind(wanted, from - wanted.size());
        ASSERT_EQ(find_text(text, wanted, from, {.backward = true})
                      .value_or(TextMatch{text.npos, 0})
                      .begin,
                  last)
            << testing::PrintToString(text) << testing::PrintToString(wanted) << from;
        if (wanted.front() == L' ' || wanted.back() == L' ') continue;
        while (at != text.npos && !((at == 0 || ends(at - 1)) && ends(at + wanted.size())))
            at = text.find(wanted, at + 1);
        ASSERT_EQ(find_text(text, wanted, from, {.whole_word = true})
                      .value_or(TextMatch{text.npos, 0})
                      .begin,
                  at);
    }
}

TEST(EditorSearch, ReplacesEachMatchOnce) {
    EXPECT_EQ(replace_all(L"aaaaa", L"aa", L"a", {}).text, L"aaa")
        << "what comes in isn't searched";
    EXPECT_EQ(replace_all(L"Fe fe", L"FE", L"Co", {.backward = true}).text, L"Co Co");
    EXPECT_EQ(replace_all(L"Fe fe Fe1", L"Fe", L"", {.match_case = true, .whole_word = true}).text,
              L" fe Fe1");
    EXPECT_EQ(replace_all(L"aaaaa", L"aa", L"a", {}).count, 2U);
    EXPECT_EQ(replace_all(L"text", L"none", L"x", {}).count, 0U);
    EXPECT_EQ(replace_all(L"text", L"", L"x", {}).text, L"text");

    const std::wstring hidden{coded::first_byte + 0xe9, L'a', coded::other_line_end};
    EXPECT_EQ(replace_all(hidden, L"a", L"b", {}).text, (std::wstring{hidden[0], L'b', hidden[2]}));
    EXPECT_EQ(replace_all(hidden, L"\uFFFDa\n", L"c", {}).text, L"c") << "as it is shown";

    const ReplacedText huge =
        replace_all(std::wstring(100'000, L'a'), L"a", std::wstring(1000, L'b'), {});
    EXPECT_TRUE(huge.too_long);
    EXPECT_EQ(huge.count, 0U);
}
