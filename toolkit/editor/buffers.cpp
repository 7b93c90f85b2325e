#include "toolkit/editor/buffers.hpp"

#include <algorithm>
#include <utility>

namespace tesserakit {

namespace {

bool exists(int slot) { return slot >= 0 && slot < most_buffers; }
std::size_t index(int slot) { return static_cast<std::size_t>(slot); }

}  // namespace

int TextBuffers::free_slot() const {
    const auto free = std::ranges::find(buffers_, false, &std::optional<TextBuffer>::has_value);
    return free == buffers_.end() ? -1 : static_cast<int>(free - buffers_.begin());
}

void TextBuffers::yyeditstorebuffer(int slot, TextBuffer buffer) {
    if (exists(slot)) buffers_[index(slot)] = std::move(buffer);
}

std::optional<TextBuffer> TextBuffers::yyeditretrievebuffer(int slot) {
    if (!at(slot)) return std::nullopt;
    std::optional<TextBuffer>& stored = buffers_[index(slot)];
    std::string name = stored->name;
    return std::exchange(stored, TextBuffer{.name = std::move(name)});
}

void TextBuffers::close(int slot) {
    if (exists(slot)) buffers_[index(slot)].reset();
}

std::vector<int> TextBuffers::taken() const {
    std::vector<int> slots;
    for (int slot = 0; slot < most_buffers; ++slot)
        if (at(slot)) slots.push_back(slot);
    return slots;
}

const TextBuffer* TextBuffers::at(int slot) const {
    return exists(slot) && buffers_[index(slot)] ? &*buffers_[index(slot)] : nullptr;
}

}  // namespace tesserakit
