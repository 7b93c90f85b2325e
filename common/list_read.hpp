/// Free-format reading of one record: items in a row, told apart by their separators.
///
/// Items are separated by blanks (tabs count as blanks) or by one comma with blanks around it. Two
/// commas in a row leave one item as it was. A slash ends the record and leaves all further items
/// as they were; this is no error. r*c gives c r times, r* leaves r items as they were. A text item
/// may stand in apostrophes or double quotes (a doubled quote stands for itself); without quotes it
/// ends at the next separator or slash. A text longer than its field is cut.
#pragma once

#include "common/fixed_text.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace list_read {

/// Reads the items of one record in turn. A read is false when the record has ended or the item
/// is no such number; the record then stays failed. Items read before keep their new values, and
/// the failed one keeps its old value.
class Record {
public:
    explicit Record(std::string_view text) : rest_(text) {}

    bool read(float& value);
    bool read(int& value);
    template <std::size_t N>
    bool read(FixedText<N>& value) {
        const std::optional<std::string_view> text = next();
        if (failed_) return false;
        if (text) value = *text;
        return true;
    }
    /// All of `values` in order, stopping at the first that fails.
    bool read(std::span<float> values) {
        for (float& value : values)
            if (!read(value)) return false;
        return true;
    }

    /// The number read last as it was written; empty when it was left as it was. Until the next
    /// read.
    std::string_view written() const { return written_; }

    bool good() const { return !failed_; }

private:
    /// The next item's text, valid until the next call; absent for an item to be left as it is, and
    /// on failure.
    std::optional<std::string_view> next();
    template <class Number>
    bool read_number(Number& value, std::optional<Number> (*convert)(std::string_view));
    bool skip_separator();
    void take_quoted(char quote);
    void take_plain();

    std::string_view rest_;
    std::string_view item_;
    std::string_view written_;
    std::string unquoted_;    ///< the item in place of item_, when it stood in quotes
    int repeats_ = 0;         ///< how often item_ is still to be given
    bool null_item_ = false;  ///< item_ leaves its target as it was
    bool quoted_ = false;     ///< item_ stood in quotes: no number, no repeat
    bool first_ = true;
    bool slash_ = false;
    bool failed_ = false;
};

}  // namespace list_read
