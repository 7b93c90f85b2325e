#include "tests/support/png_pixels.hpp"
#include "tests/support/temp_file.hpp"
#include "toolkit/image_write/bmp.hpp"
#include "toolkit/image_write/pcx.hpp"
#include "toolkit/image_write/png.hpp"

#include <gmock/gmock.h>

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace tesserakit;

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Picture {
    int width = 0;
    int height = 0;
    bool indexed = false;
    Bytes pixels{};  // red, green, blue, from the upper left

    PictureRows rows() const {
        return {width, height, indexed, [this](int row) {
                    const auto size = static_cast<std::size_t>(width) * 3;
                    return std::span(pixels).subspan(static_cast<std::size_t>(row) * size, size);
                }};
    }
    /// What a reader finds: with a palette, the colours behind the first 256 are the first one. The
    /// rows are written from the lowest on or from the uppermost.
    Bytes as_written(bool from_below) const {
        Bytes result = pixels;
        std::vector<std::uint32_t> known;
        for (int i = 0; indexed && i < width * height; ++i) {
            const int row = from_below ? height - 1 - i / width : i / width;
            std::uint8_t* rgb = &result[static_cast<std::size_t>(row * width + i % width) * 3];
            const std::uint32_t colour =
                rgb[0] | std::uint32_t{rgb[1]} << 8U | std::uint32_t{rgb[2]} << 16U;
            if (std::ranges::find(known, colour) != known.end()) continue;
            if (known.size() < 256)
                known.push_back(colour);
            else
                for (const unsigned shift : {0U, 8U, 16U})
                    *rgb++ = static_cast<std::uint8_t>(known[0] >> shift);
        }
        return result;
    }
};

std::string png_of(const Picture& picture) {
    std::string file;
    EXPECT_EQ(png_file(picture.rows(), file), 0);
    return file;
}

std::string hex(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        constexpr const char* digits = "0123456789abcdef";
        const auto value = static_cast<unsigned char>(byte);
        text += {digits[value >> 4], digits[value & 15]};
    }
    return text;
}

std::string zeros(int bytes) { return std::string(2 * static_cast<std::size_t>(bytes), '0'); }

/// One row of gray pixels of these values.
Picture gray_row(const Bytes& values, bool indexed = false) {
    Picture picture{static_cast<int>(values.size()), 1, indexed};
    for (const std::uint8_t value : values) picture.pixels.insert(picture.pixels.end(), 3, value);
    return picture;
}

// Three pixels wide: a BMP's row has three bytes to fill up, a PCX's line one.
const Picture small{3,
                    2,
                    false,
                    {1, 2, 3, 1, 2, 3, 200, 2, 3,  //
                     10, 20, 30, 40, 50, 60, 70, 80, 90}};

Picture with_palette(Picture picture) {
    picture.indexed = true;
    return picture;
}

TEST(BmpFile, HasTheHeaderAndItsRowsFromTheLowestUp) {
    const std::string sizes =
        "28000000"
        "0300"
        "0000"
        "0200"
        "0000"
        "0100";
    EXPECT_EQ(hex(bmp_file(small.rows())),
              "424d"
              "4e0000" +
                  zeros(5) + "36000000" + sizes + "1800" + zeros(24) +
                  "1e140a"
                  "3c3228"
                  "5a5046"
                  "000000"
                  "030201"
                  "030201"
                  "0302c8"
                  "000000");
    const std::string indexed = bmp_file(with_palette(small).rows());
    EXPECT_EQ(hex(indexed),
              "424d"
              "3e0400" +
                  zeros(5) + "36040000" + sizes + "0800" + zeros(24) +
                  "1e140a00"
                  "3c322800"
                  "5a504600"
                  "03020100"
                  "0302c800" +
                  zeros(1024 - 20) +
                  "00010200"
                  "03030400");
}

TEST(PcxFile, HasTheHeaderWithTheAreaAndPlanesOfEvenLength) {
    const std::string start =
        "0a050108"
        "0700"
        "0900"
        "0900"
        "0a00"
        "4b004b" +
        zeros(50);
    EXPECT_EQ(hex(pcx_file(small.rows(), 7, 9)), start +
                                                     "03"
                                                     "0400" +
                                                     zeros(60) +
                                                     "c201c1c800"
                                                     "c30200"
                                                     "c30300"
                                                     "0a284600"
                                                     "14325000"
                                                     "1e3c5a00");
    EXPECT_EQ(hex(pcx_file(with_palette(small).rows(), 7, 9)), start +
                                                                   "01"
                                                                   "0400" +
                                                                   zeros(60) +
                                                                   "c2000100"
                                                                   "02030400"
                                                                   "0c"
                                                                   "010203"
                                                                   "c80203"
                                                                   "0a141e"
                                                                   "28323c"
                                                                   "46505a" +
                                                                   zeros(768 - 15));
}

TEST(PcxFile, CountsRunsOf63AtMost) {
    struct Case {
        Bytes values;
        const char* encoded;
    };
    const auto run = [](std::size_t length, std::uint8_t value) { return Bytes(length, value); };
    for (const auto& [values, encoded] : std::vector<Case>{{{5, 6}, "0506"},
                                                           {{191, 192}, "bfc1c0"},
                                                           {{255, 7}, "c1ff07"},
                                                           {run(2, 7), "c207"},
                                                           {run(62, 7), "fe07"},
                                                           {run(63, 7), "ff0700"},
                                                           {run(64, 7), "ff0707"},
                                                           {run(64, 192), "ffc0c1c0"},
                                                           {run(126, 7), "ff07ff07"},
                                                           {run(200, 7), "ff07ff07ff07cb07"},
                                                           {{7}, "0700"},
                                                           {{0}, "0000"},
                                                           {{192}, "c1c000"}}) {
        const std::string plane = encoded;
        EXPECT_EQ(hex(pcx_file(gray_row(values).rows(), 0, 0)).substr(256), plane + plane + plane)
            << values.size() << " from " << int{values[0]};
    }
}

/// Types of the chunks, their lengths found; all checksums are the reference's.
std::vector<std::string> chunks(const std::string& file) {
    std::vector<std::string> types;
    const auto word = [&file](std::size_t at) {
        return static_cast<unsigned long>(std::stoul(hex(file.substr(at, 4)), nullptr, 16));
    };
    for (std::size_t at = 8; at + 12 <= file.size();) {
        const std::size_t length = word(at);
        types.push_back(file.substr(at + 4, 4));
        EXPECT_EQ(word(at + 8 + length), crc32(0, reinterpret_cast<const Bytef*>(&file[at + 4]),
                                               static_cast<uInt>(length) + 4))
            << types.back();
        at += length + 12;
    }
    return types;
}

TEST(PngFile, HasItsChunksInOrderAndRowsWithoutFilter) {
    using testing::ElementsAre;
    const std::string file = png_of(small);
    EXPECT_EQ(hex(file.substr(0, 29)),
              "89504e470d0a1a0a"
              "0000000d"
              "49484452"
              "00000003"
              "00000002"
              "0802"
              "000000");
    EXPECT_THAT(chunks(file), ElementsAre("IHDR", "IDAT", "IEND"));

    Bytes raw{0};
    raw.insert(raw.end(), small.pixels.begin(), small.pixels.begin() + 9);
    raw.push_back(0);
    raw.insert(raw.end(), small.pixels.begin() + 9, small.pixels.end());
    Bytes packed(compressBound(raw.size()));
    uLongf size = packed.size();
    ASSERT_EQ(compress(packed.data(), &size, raw.data(), raw.size()), Z_OK);
    EXPECT_EQ(file.substr(41, size),
              std::string(packed.begin(), packed.begin() + static_cast<std::ptrdiff_t>(size)))
        << "as zlib packs it at its default level";

    const std::string indexed = png_of(with_palette(small));
    EXPECT_EQ(hex(indexed.substr(24, 2)), "0803");
    EXPECT_THAT(chunks(indexed), ElementsAre("IHDR", "PLTE", "IDAT", "IEND"));
    EXPECT_EQ(hex(indexed.substr(33, 8 + 768)),
              "00000300"
              "504c5445"
              "010203"
              "c80203"
              "0a141e"
              "28323c"
              "46505a" +
                  zeros(768 - 15));
}

// ---- read by other programs ---------------------------------------------------------------------

/// Pictures of all the shapes that rows, lines and runs take.
std::vector<Picture> gallery() {
    std::vector<Picture> pictures;
    std::mt19937 random(1);
    const auto any = [&random](unsigned below) { return static_cast<unsigned>(random()) % below; };
    const auto add = [&](int width, int height, bool indexed, auto colour) {
        Picture picture{width, height, indexed};
        for (int i = 0; i < width * height; ++i) {
            const unsigned rgb = colour(i);
            for (const unsigned shift : {16U, 8U, 0U})
                picture.pixels.push_back(static_cast<std::uint8_t>(rgb >> shift));
        }
        pictures.push_back(std::move(picture));
    };
    for (const int width : {1, 2, 3, 4, 5, 63, 64, 65, 1001}) {
        for (const int height : {1, 6}) {
            add(width, height, false, [](int) { return 0xc0bfffU; });
            add(width, height, false, [&](int) { return any(1U << 24); });
            add(width, height, false, [&](int i) {
                return any(30) == 0 ? 0xffffffU : static_cast<unsigned>(i) / 80 * 0x1fc0U;
            });
            add(width, height, false,
                [&](int i) { return static_cast<unsigned>(i % width) * 0x10203U; });
            for (const unsigned colours : {1U, 2U, 255U, 256U, 257U})
                add(width, height, true, [&](int i) {
                    return static_cast<unsigned>(i) % colours * 0x12345U & 0xffffffU;
                });
        }
    }
    return pictures;
}

std::string output_of(const std::string& command) {
    std::string output;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::array<char, 65536> part{};
    while (pipe) {
        const std::size_t got = fread(part.data(), 1, part.size(), pipe.get());
        if (got == 0) break;
        output.append(part.data(), got);
    }
    return output;
}

/// All pictures in files of one format in a folder, and what they show, one behind the other.
struct Exhibition {
    TempDirectory folder;
    std::vector<Picture> pictures = gallery();
    std::string shown;

    Exhibition(std::string (*write)(const Picture&), bool from_below) {
        int number = 1000;  // names in order
        for (const Picture& picture : pictures) {
            folder.file(std::to_string(number++), write(picture));
            const Bytes colours = picture.as_written(from_below);
            shown.append(colours.begin(), colours.end());
        }
    }
    /// By a command that puts the pixels of the file "$f" on its output.
    void expect_read_by(const std::string& command) const {
        const std::string read = output_of("cd " + folder.path().string() + " && for f in *; do " +
                                           command + " || exit; done");
        EXPECT_TRUE(read == shown)
            << command << ": differs at byte "
            << std::ranges::mismatch(read, shown).in1 - read.begin() << " of " << shown.size();
    }
};

/// Drops the header that tells each picture's size, and makes grays colours.
constexpr const char* to_pixels = " | ppmtoppm -quiet | pamdepth -quiet 255 | tail -n +4";

std::string bmp_of(const Picture& picture) { return bmp_file(picture.rows()); }
std::string pcx_of(const Picture& picture) { return pcx_file(picture.rows(), 0, 0); }

TEST(ImageFiles, NetpbmReadsThem) {
    Exhibition(bmp_of, true).expect_read_by(std::string("bmptopnm -quiet \"$f\"") + to_pixels);
    Exhibition(pcx_of, false).expect_read_by(std::string("pcxtoppm -quiet \"$f\"") + to_pixels);
    Exhibition(png_of, false).expect_read_by(std::string("pngtopnm -quiet \"$f\"") + to_pixels);
}

TEST(ImageFiles, ImageMagickReadsThem) {
    for (const auto& [format, write] :
         {std::pair{"bmp", &bmp_of}, {"pcx", &pcx_of}, {"png", &png_of}}) {
        const Exhibition all(write, write == bmp_of);
        std::string names;
        for (std::size_t i = 0; i < all.pictures.size(); ++i)
            names += std::string(" ") + format + ":" + std::to_string(1000 + i);
        const std::string read = output_of("cd " + all.folder.path().string() + " && convert" +
                                           names + " -depth 8 rgb:- 2>&1");
        EXPECT_TRUE(read == all.shown) << format << ": " << read.size() << " " << all.shown.size();
    }
}

TEST(ImageFiles, LibpngReadsPngWithoutARemark) {
    for (const Picture& picture : gallery())
        EXPECT_EQ(png_pixels(png_of(picture)), picture.as_written(false))
            << picture.width << " x " << picture.height;
}

// The header's fields are as short as the format's first readers expect them.
TEST(ImageFiles, LongRowsWrapInTheHeaderOfABmp) {
    const std::string file = bmp_of(gray_row(Bytes(70000, 9)));
    EXPECT_EQ(hex(file.substr(18, 4)), "70110000");
    EXPECT_EQ(file.size(), 54U + 210000U);
}

}  // namespace
