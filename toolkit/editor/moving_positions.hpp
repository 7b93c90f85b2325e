/// Places in a text, in rising order, that move with the changes of the text before them.
///
/// The entries stand in one array with a gap at the last change. Those before the gap tell their
/// position from the start of the text, those behind it from the end: so a change moves all that
/// stand behind it without touching them. Only the entries between a change and the one before it
/// are rewritten, and typing costs the same in a text of any length.
///
/// Positions count from 0, in whatever unit the owner counts, below 2^32.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace tesserakit {

struct NoPayload {};

template <class Payload = NoPayload>
class MovingPositions {
public:
    struct Entry {
        std::uint32_t at = 0;
        [[no_unique_address]] Payload payload{};
    };

    MovingPositions() = default;
    /// Entries of a whole text.
    MovingPositions(std::vector<Entry> entries, std::size_t length)
        : entries_(std::move(entries)),
          gap_begin_(entries_.size()),
          gap_end_(entries_.size()),
          length_(static_cast<std::uint32_t>(length)) {}

    std::size_t size() const { return entries_.size() - (gap_end_ - gap_begin_); }
    std::size_t length() const { return length_; }  ///< of the text
    std::size_t at(std::size_t index) const {
        if (index < gap_begin_) return entries_[index].at;
        return length_ - entries_[index + (gap_end_ - gap_begin_)].at;
    }
    const Payload& payload(std::size_t index) const {
        return entries_[index < gap_begin_ ? index : index + (gap_end_ - gap_begin_)].payload;
    }

    /// Index of the first entry at or behind a position; size() when there is none.
    std::size_t first_from(std::size_t position) const {
        std::size_t low = 0;
        std::size_t high = size();
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (at(middle) < position) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

    /// The text changes: `removed` characters behind `position` go, with their entries, and
    /// `inserted` come, with `entries` at positions of the new text. What lies outside of the text
    /// is cut.
    void change(std::size_t position, std::size_t removed, std::size_t inserted,
                std::span<const Entry> entries = {}) {
        position = std::min<std::size_t>(position, length_);
        removed = std::min(removed, length_ - position);
        const std::size_t end = first_from(position + removed);
        move_gap(first_from(position));
        gap_end_ += end - gap_begin_;
        length_ += static_cast<std::uint32_t>(inserted) - static_cast<std::uint32_t>(removed);
        insert(entries);
    }

    /// One more entry, where none stands yet; the text stays.
    void put(const Entry& entry) {
        move_gap(first_from(entry.at));
        insert({&entry, 1});
    }

private:
    /// Puts the gap before an entry.
    void move_gap(std::size_t index) {
        while (gap_begin_ > index) entries_[--gap_end_] = from_other_end(entries_[--gap_begin_]);
        while (gap_begin_ < index) entries_[gap_begin_++] = from_other_end(entries_[gap_end_++]);
    }

    Entry from_other_end(Entry entry) const {
        entry.at = length_ - entry.at;
        return entry;
    }

    void insert(std::span<const Entry> entries) {
        if (gap_end_ - gap_begin_ < entries.size()) widen_gap(entries.size());
        std::ranges::copy(entries, entries_.begin() + static_cast<std::ptrdiff_t>(gap_begin_));
        gap_begin_ += entries.size();
    }

    /// By a share of the whole, so that many insertions copy each entry a few times only.
    void widen_gap(std::size_t room) {
        const std::size_t more = room + size() / 2 + 16;
        entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(gap_end_), more, Entry{});
        gap_end_ += more;
    }

    std::vector<Entry> entries_;
    std::size_t gap_begin_ = 0;
    std::size_t gap_end_ = 0;
    std::uint32_t length_ = 0;
};

}  // namespace tesserakit
