/// Free-format input files: their lines, keywords at the head of a line, and read formats that fit
/// the items on a line.
///
/// Lines are counted from 1. Failures set the error state of string_utilities.
#pragma once

#include "crystal/string_utilities.hpp"

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace string_utilities {

/// The lowest logical unit that is free: a file descriptor number above the standard three.
/// -1 when the process has none left.
int get_logunit();

/// 0 with "Not exist the file" when it can't be opened.
int number_lines(const std::string& file_name);
/// The first `count` lines, without their ends; fewer when the file has fewer.
std::vector<std::string> reading_lines(const std::string& file_name, int count);

/// A line that begins with the keyword.
struct KeyLine {
    int line;               ///< its position in the list
    std::string_view rest;  ///< what follows the keyword, without blanks around it
};
/// What follows the keyword, read as items into the caller's list.
struct KeyItems {
    int line;
    int count;  ///< of the items, as getword, getnum or getnum_std tell it
};

/// The first of lines `first` to `last` (both included, limited to the list) whose first word,
/// raised to upper case, is `keyword`.
std::optional<KeyLine> read_key_str(std::span<const std::string> lines, int first, int last,
                                    std::string_view keyword);
/// The same, with what follows as words, as numbers, or as numbers with standard deviations.
template <std::size_t N, std::size_t Extent>
std::optional<KeyItems> read_key_strval(std::span<const std::string> lines, int first, int last,
                                        std::string_view keyword,
                                        std::span<FixedText<N>, Extent> words) {
    const std::optional<KeyLine> found = read_key_str(lines, first, last, keyword);
    if (!found) return std::nullopt;
    return KeyItems{found->line, getword(found->rest, words)};
}
std::optional<KeyItems> read_key_value(std::span<const std::string> lines, int first, int last,
                                       std::string_view keyword, std::span<float> reals,
                                       std::span<int> integers);
std::optional<KeyItems> read_key_valuest(std::span<const std::string> lines, int first, int last,
                                         std::string_view keyword, std::span<float> values,
                                         std::span<float> sigmas);

enum class FindfmtError {
    none = 0,
    end_of_file = -1,
    empty_format = -2,
    missing_item = 1,     ///< fewer items on the line than the description asks for
    no_number = 2,        ///< an item that isn't the number described
    bad_description = 3,  ///< a letter other than a, f, i
};

/// Starts the counter of lines for findfmt: `line` is the last one read already. The reports name
/// `unit`.
void init_findfmt(int line = 0, int unit = 0);

/// Reads the next line of `file` and builds the fixed format that reads it: of "Fe1  0.25,3" and
/// the description "a,f,i" the format is "(a3,2x,f4.2,1x,i1)".
///
/// A description is a row of the letters a (text), f (real), i (integer) in any case, separated by
/// commas, each with an optional count ("a,3f"). Items are separated by blanks or commas; what
/// stands behind the last one described is left alone. On failure `format` is empty.
FindfmtError findfmt(std::istream& file, std::string_view description, std::string& line,
                     std::string& format);
/// Prints the message of the last findfmt; after a failure also the place in the input.
void findfmt_err(std::ostream& report);

/// The pieces of findfmt.
/// Takes the next letter off a description, raised; '?' for anything else; absent at its end.
std::optional<char> sgetftmfield(std::string& description);
/// Adds one piece to a format that is not closed yet: "(a3" and "2x" give "(a3,2x".
void buildfmt(std::string& format, std::string_view piece);
/// The item at `position` (from 0, moved behind it) as a text, or as a number of type F or I.
FindfmtError treatmcharfield(std::string_view line, std::size_t& position, std::string& format);
FindfmtError treatnumerfield(char type, std::string_view line, std::size_t& position,
                             std::string& format);

}  // namespace string_utilities
