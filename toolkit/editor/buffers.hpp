/// The texts that an editor keeps for its View menu: one is in the widget, the others stand here.
/// No X here.
#pragma once

#include "toolkit/editor/text_file.hpp"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tesserakit {

struct TextBuffer {
    std::string name;  ///< of its file; empty for a text without one
    std::string text;  ///< as the widget shows it, UTF-8
    ByteMarks marks;
    std::optional<FileStamp> stamp;
    std::size_t position = 0;  ///< of the caret
    std::size_t top = 0;       ///< of the first character in sight
    std::optional<std::size_t> bookmark;
    bool modified = false;
};

inline constexpr int most_buffers = 9;

/// Slots from 0 up to most_buffers; the slot of the text in the widget is stored like the others,
/// and brought up to date when another takes its place.
class TextBuffers {
public:
    /// A free slot, -1 when all are taken.
    int free_slot() const;
    /// Into a slot, in place of what stood there. A slot that doesn't exist takes nothing.
    void yyeditstorebuffer(int slot, TextBuffer buffer);
    /// Takes the text out, but not its name, which the menu shows: the slot stays taken. Nothing
    /// from an empty slot.
    std::optional<TextBuffer> yyeditretrievebuffer(int slot);
    void close(int slot);
    /// The slots taken, in order.
    std::vector<int> taken() const;
    const TextBuffer* at(int slot) const;  ///< null for an empty slot

private:
    std::array<std::optional<TextBuffer>, most_buffers> buffers_;
};

}  // namespace tesserakit
