#include "toolkit/image_write/palette.hpp"

#include <algorithm>

namespace tesserakit {

void Palette::index(std::span<const std::uint8_t> row, std::uint8_t* indices) {
    for (std::size_t at = 0; at + 2 < row.size(); at += 3) {
        const std::uint32_t colour =
            row[at] | std::uint32_t{row[at + 1]} << 8U | std::uint32_t{row[at + 2]} << 16U;
        auto found = index_of_.find(colour);
        if (found == index_of_.end() && index_of_.size() < most) {
            const std::size_t entry = index_of_.size();
            found = index_of_.emplace(colour, static_cast<std::uint8_t>(entry)).first;
            std::copy_n(&row[at], 3, &entries_[3 * entry]);
        }
        *indices++ = found == index_of_.end() ? std::uint8_t{0} : found->second;
    }
}

}  // namespace tesserakit
