// A file is a signature and chunks: the header, the palette of an indexed picture, one chunk with
// all rows compressed, and the end. Rows aren't filtered: pictures of flat colour, as ours are,
// compress well without.

#include "toolkit/image_write/png.hpp"

#include "toolkit/image_write/palette.hpp"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace tesserakit {

namespace {

constexpr std::string_view signature{"\211PNG\r\n\032\n", 8};
constexpr std::size_t word_size = 4;
constexpr std::size_t palette_size = 3 * Palette::most;

using CrcTables = std::array<std::array<std::uint32_t, 256>, 8>;

/// Table k tells what a byte becomes with k zero bytes behind it, so that eight bytes take one
/// step.
constexpr CrcTables crc_tables = [] {
    CrcTables tables{};
    for (std::uint32_t n = 0; n < 256; ++n) {
        std::uint32_t c = n;
        for (int bit = 0; bit < 8; ++bit) c = (c & 1U) != 0 ? 0xEDB88320U ^ (c >> 1U) : c >> 1U;
        tables[0][n] = c;
    }
    for (std::size_t k = 1; k < tables.size(); ++k)
        for (std::size_t n = 0; n < 256; ++n) {
            const std::uint32_t c = tables[k - 1][n];
            tables[k][n] = tables[0][c & 255U] ^ (c >> 8U);
        }
    return tables;
}();

std::uint32_t yypngcrc2(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    const auto* at = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto* const end = at + bytes.size();
    for (; end - at >= 8; at += 8) {
        const auto byte = [&](unsigned i) { return (i < 4 ? crc >> 8U * i & 255U : 0U) ^ at[i]; };
        crc = crc_tables[7][byte(0)] ^ crc_tables[6][byte(1)] ^ crc_tables[5][byte(2)] ^
              crc_tables[4][byte(3)] ^ crc_tables[3][byte(4)] ^ crc_tables[2][byte(5)] ^
              crc_tables[1][byte(6)] ^ crc_tables[0][byte(7)];
    }
    for (; at != end; ++at) crc = crc_tables[0][(crc ^ *at) & 255U] ^ (crc >> 8U);
    return ~crc;
}

/// Big end first.
std::array<char, word_size> yypngword(std::size_t value) {
    std::array<char, word_size> bytes{};
    for (auto at = bytes.rbegin(); at != bytes.rend(); ++at, value >>= 8U)
        *at = static_cast<char>(value & 255U);
    return bytes;
}

void append_word(std::string& file, std::size_t value) {
    const auto bytes = yypngword(value);
    file.append(bytes.data(), bytes.size());
}

/// A chunk: its length, which is known when it is closed, its type and data, and their checksum.
std::size_t open_chunk(std::string& file, std::string_view type) {
    const std::size_t start = file.size();
    append_word(file, 0);
    file += type;
    return start;
}

void close_chunk(std::string& file, std::size_t start) {
    const std::size_t type_at = start + word_size;
    std::ranges::copy(yypngword(file.size() - type_at - word_size),
                      file.begin() + static_cast<std::ptrdiff_t>(start));
    append_word(file, yypngcrc2(std::string_view(file).substr(type_at)));
}

void append_header(std::string& file, const PictureRows& picture) {
    constexpr char depth = 8, indexed = 3, true_colour = 2;
    file += signature;
    const std::size_t chunk = open_chunk(file, "IHDR");
    append_word(file, static_cast<std::size_t>(picture.width));
    append_word(file, static_cast<std::size_t>(picture.height));
    file += depth;
    file += picture.indexed ? indexed : true_colour;
    file.append(3, '\0');  // compression, filter, interlace: the plain ones
    close_chunk(file, chunk);
}

/// zlib at its default level, writing at the end of a text.
class Compression {
public:
    Compression(std::string& file, std::size_t raw_size)
        : file_(file), status_(deflateInit(&stream_, Z_DEFAULT_COMPRESSION)) {
        // What isn't used of it costs no memory; growing would cost a copy.
        if (status_ == Z_OK) file_.reserve(file_.size() + deflateBound(&stream_, raw_size) + 64);
    }
    ~Compression() { deflateEnd(&stream_); }
    Compression(const Compression&) = delete;
    Compression& operator=(const Compression&) = delete;

    void add(std::span<const std::uint8_t> bytes) {
        stream_.next_in = bytes.data();
        stream_.avail_in = static_cast<uInt>(bytes.size());
        while (status_ == Z_OK && stream_.avail_in > 0) step(Z_NO_FLUSH);
    }
    /// Zlib's return; 0 when all went well.
    int finish() {
        while (status_ == Z_OK) step(Z_FINISH);
        return status_ == Z_STREAM_END ? Z_OK : status_;
    }

private:
    void step(int flush) {
        stream_.next_out = buffer_.data();
        stream_.avail_out = static_cast<uInt>(buffer_.size());
        status_ = deflate(&stream_, flush);
        file_.append(buffer_.data(), stream_.next_out);
    }

    std::string& file_;
    z_stream stream_{};
    int status_;
    std::array<Bytef, std::size_t{1} << 16U> buffer_;
};

}  // namespace

int png_file(const PictureRows& picture, std::string& file) {
    file.clear();
    append_header(file, picture);
    const std::size_t palette_chunk = file.size();
    if (picture.indexed) file.append(word_size + 4 + palette_size + word_size, '\0');

    // A row begins with the number of its filter: none.
    std::vector<std::uint8_t> row(1 + static_cast<std::size_t>(picture.width) *
                                          (picture.indexed ? 1 : 3));
    Palette palette;
    const std::size_t data_chunk = open_chunk(file, "IDAT");
    Compression compression(file, row.size() * static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y) {
        if (picture.indexed)
            palette.index(picture.row(y), &row[1]);
        else
            std::ranges::copy(picture.row(y), &row[1]);
        compression.add(row);
    }
    if (const int status = compression.finish(); status != Z_OK) return status;
    close_chunk(file, data_chunk);

    if (picture.indexed) {
        // Its place stands before the rows that fill it.
        std::string colours;
        const std::size_t chunk = open_chunk(colours, "PLTE");
        colours.append(palette.entries().begin(), palette.entries().end());
        close_chunk(colours, chunk);
        file.replace(palette_chunk, colours.size(), colours);
    }
    close_chunk(file, open_chunk(file, "IEND"));
    return Z_OK;
}

}  // namespace tesserakit
