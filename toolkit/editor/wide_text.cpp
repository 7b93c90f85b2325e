#include "toolkit/editor/wide_text.hpp"

#include <cstddef>

namespace tesserakit {

std::wstring wide_text(std::string_view text) {
    std::wstring result;
    const auto* byte = reinterpret_cast<const unsigned char*>(text.data());
    for (std::size_t i = 0; i < text.size();) {
        const unsigned first = byte[i];
        const std::size_t length = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
        unsigned character = length == 1 ? first : first & (0x7fU >> length);
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
            character = character << 6 | (byte[i + k] & 0x3fU);
        result += static_cast<wchar_t>(character);
        i += length;
    }
    return result;
}

std::string utf8_text(std::wstring_view text) {
    std::string result;
    for (const wchar_t c : text) {
        const auto character = static_cast<unsigned>(c);
        const auto last = [character](unsigned shift) {
            return static_cast<char>(0x80U | (character >> shift & 0x3fU));
        };
        if (character < 0x80) {
            result += static_cast<char>(character);
        } else if (character < 0x800) {
            result += static_cast<char>(0xc0U | character >> 6);
            result += last(0);
        } else if (character < 0x10000) {
            result += static_cast<char>(0xe0U | character >> 12);
            result += last(6);
            result += last(0);
        } else {
            result += static_cast<char>(0xf0U | character >> 18);
            result += last(12);
            result += last(6);
            result += last(0);
        }
    }
    return result;
}

}  // namespace tesserakit
