/// The colours of an indexed picture, collected while its rows are written.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>

namespace tesserakit {

class Palette {
public:
    static constexpr std::size_t most = 256;

    /// A byte for each pixel of a row of red, green and blue. A new colour takes the next entry.
    /// When all are taken it gets entry 0: a picture of more than 256 colours, which no display of
    /// indexed colours shows, loses them without a word.
    void index(std::span<const std::uint8_t> row, std::uint8_t* indices);

    /// Red, green and blue of the entries in the order in which they came; 0 behind the last one.
    const std::array<std::uint8_t, 3 * most>& entries() const { return entries_; }

private:
    std::unordered_map<std::uint32_t, std::uint8_t> index_of_;
    std::array<std::uint8_t, 3 * most> entries_{};
};

}  // namespace tesserakit
