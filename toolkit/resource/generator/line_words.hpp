/// One line of a catalogue as words, and the reading of numbers and texts from them.
#pragma once

#include "toolkit/resource/generator/catalogue.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace catalogue {

struct Word {
    std::string text;
    bool quoted = false;
};

/// The words of a line, read from the left. The first thing that is wrong is noted with the
/// line's place and ends the line: later calls answer 0 or an empty text and note nothing.
class LineWords {
public:
    /// Splits at blanks. A text in double quotes is one word, with \" \\ \t \b in it; '#' begins
    /// a comment.
    LineWords(std::string_view line, Place place, Errors& errors);

    const Place& place() const { return place_; }
    int indent() const { return indent_; }
    bool empty() const { return words_.empty(); }
    bool at_end() const { return next_ == words_.size(); }
    bool failed() const { return failed_; }

    /// Whether the next word is a quoted text.
    bool text_follows() const { return !at_end() && words_[next_].quoted; }

    /// Takes the next word if it is this one.
    bool take(std::string_view word);

    std::string word(std::string_view what);  ///< not quoted
    std::string text(std::string_view what);  ///< quoted
    int integer(std::string_view what);
    double real(std::string_view what);
    /// Two integers in one word, such as "12,40" or "296x255".
    std::pair<int, int> integers(char separator, std::string_view what);

    void fail(const std::string& message);

private:
    void split(std::string_view line);
    std::string take_next(std::string_view what, bool quoted);

    Place place_;
    Errors& errors_;
    std::vector<Word> words_;
    std::size_t next_ = 0;
    int indent_ = 0;
    bool failed_ = false;
};

}  // namespace catalogue
