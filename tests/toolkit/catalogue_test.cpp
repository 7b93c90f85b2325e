/// The generator of the resource block: what it says of a bad catalogue, and its image codes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "toolkit/resource/generator/image_file.hpp"
#include "toolkit/resource/generator/reader.hpp"
#include "toolkit/resource/resource_image.hpp"

namespace {

using catalogue::Catalogue;
using catalogue::Errors;
using testing::HasSubstr;

struct Bad {
    std::string text;
    int line;
    std::string message;
};

Errors errors_of(const std::string& text) {
    Catalogue read;
    Errors errors;
    catalogue::read_text(text, "bad.txt", read, errors);
    if (errors.empty()) catalogue::check(read, errors);
    return errors;
}

void expect_one_error(const Bad& bad) {
    SCOPED_TRACE(bad.text);
    const Errors errors = errors_of(bad.text);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].place.file, "bad.txt");
    EXPECT_EQ(errors[0].place.line, bad.line);
    EXPECT_THAT(errors[0].message, HasSubstr(bad.message));
}

TEST(Catalogue, ABadLineIsNotedWithItsNumber) {
    const std::string dialog = "# comment\ndialog 1 10x10 \"Title\"\n";
    const std::vector<Bad> lines = {
        {"  1 label 0,0 1x1\n", 1, "opening above"},
        {"window 1\n", 1, "left edge"},
        {"dialog x 1x1\n", 1, "no integer: 'x'"},
        {"dialog 99999999999 1x1\n", 1, "no integer"},
        {"dialog 1 10\n", 1, "no pair"},
        {"dialog 1 -1x10\n", 1, "negative"},
        {"dialog 1 1x1 \"open\n", 1, "closing quote"},
        {"dialog 1 1x1 \"a\\n\"\n", 1, "backslash"},
        {"dialog 1 1x1 \"a\\", 1, "backslash"},
        {dialog + "  1 slider 0,0 1x1\n", 3, "no type of field: 'slider'"},
        {dialog + "  1 label 0;0 1x1\n", 3, "position is no pair"},
        {dialog + "  1 label 0,0\n", 3, "size is missing before the line's end"},
        {dialog + "  0 label 0,0 1x1\n", 3, "above 0"},
        {dialog + "  1 label 0,0 1x1 \"a\" \"b\"\n", 3, "an attribute is missing before 'b'"},
        {dialog + "  1 label 0,0 1x1 shiny\n", 3, "'shiny'"},
        {dialog + "  1 label 0,0 1x1 set\n", 3, "has no 'set'"},
        {dialog + "  1 real 0,0 1x1 range 2 1\n", 3, "isn't below"},
        {dialog + "  1 real 0,0 1x1 range nan nan\n", 3, "isn't below"},
        {dialog + "  1 real 0,0 1x1 range 1e999 2\n", 3, "no number"},
        {dialog + "  1 trackbar 0,0 1x1\n", 3, "needs a range"},
        {dialog + "  1 trackbar 0,0 1x1 range 0 1e300\n", 3, "integers"},
        {dialog + "  1 trackbar 0,0 1x1 range 0 9 value 10\n", 3, "outside"},
        {dialog + "  1 list 0,0 1x1 item \"a\" selected 2\n", 3, "selected"},
        {dialog + "  1 label 0,0 1x1 key \"ab\"\n", 3, "one letter"},
        {dialog + "  1 label 0,0 1x1 colour 0 0 0 0 0 257\n", 3, "0 to 256"},
        {"menu 1\n  1 \"a\"\n      2 \"b\"\n", 3, "no level"},
        {"menu 1\n   1 \"a\"\n", 2, "no level"},
        {"menu 1\n  ---\n    1 \"a\"\n", 3, "no level"},
        {"menu 1\n  1 \"\"\n", 2, "needs a label"},
        {"toolbar 1 0x16\n", 1, "above 0"},
        {"images\n  1 photo 1x1 \"a.png\"\n", 2, "bitmap or an icon"},
        {"strings\n  1 \"a\" b\n", 2, "not understood here: 'b'"},
    };
    for (const Bad& bad : lines) expect_one_error(bad);
}

TEST(Catalogue, WhatNoSingleLineShowsIsNotedToo) {
    const std::vector<Bad> files = {
        {"dialog 1 1x1\ndialog 1 1x1\n", 2, "dialog 1 stands twice"},
        {"dialog 1 1x1\n  7 label 0,0 1x1\n  7 label 0,0 1x1\n", 3, "field 7 stands twice"},
        {"menu 1\n  7 \"a\"\n  7 \"b\"\n", 3, "menu item 7 stands twice"},
        {"strings\n  7 \"a\"\n  7 \"b\"\n", 3, "string 7 stands twice"},
        {"images\n  7 icon 1x1 \"a\"\n  7 bitmap 1x1 \"b\"\n  7 icon 1x1 \"c\"\n", 4, "twice"},
        {"dialog 1 1x1 resize 9\n", 1, "no field 9"},
        {"dialog 1 1x1\n  2 tab 0,0 1x1 page 5 \"a\"\n", 2, "no dialog 5"},
        {"dialog 1 1x1\n  2 tab 0,0 1x1 page 1 \"a\"\n", 2, "no child"},
        {"dialog 1 1x1\n  2 tab 0,0 1x1 selected 1\n", 2, "isn't among the pages"},
        {"dialog 1 1x1\n  2 grid 0,0 1x1 template 5\n", 2, "no dialog 5"},
        {"toolbar 1 2x2\n  5\n", 1, "no bitmap"},
        {"toolbar 1 2x2\n  5\n  6\nimages\n  1 bitmap 2x2 \"a\"\n", 5, "no frame"},
    };
    for (const Bad& bad : files) expect_one_error(bad);
}

TEST(Catalogue, ABadLineCostsOnlyItself) {
    Catalogue read;
    Errors errors;
    catalogue::read_text("dialog 1 9x9\n  1 lable 0,0 1x1\n  2 label 0,0 1x1\nbad\n  3 label\n",
                         "bad.txt", read, errors);
    EXPECT_EQ(errors.size(), 2U);  // the line below the bad opening is skipped
    ASSERT_EQ(read.dialogs.size(), 1U);
    ASSERT_EQ(read.dialogs[0].fields.size(), 1U);
    EXPECT_EQ(read.dialogs[0].fields[0].identifier, 2);
}

TEST(Catalogue, ImageFilesThatAreNoneAreNoted) {
    catalogue::Image image;
    image.place = {"images.txt", 3};
    Errors errors;
    catalogue::read_image_file("no such file.png", image, errors);
    catalogue::read_image_file(GEMWRIGHT_SMALL_BLOCK "/small.txt", image, errors);
    image.width = 3;
    image.height = 3;
    catalogue::read_image_file(GEMWRIGHT_SMALL_BLOCK "/images/dots.png", image, errors);
    ASSERT_EQ(errors.size(), 3U);
    EXPECT_EQ(errors[2].place.line, 3);
    EXPECT_THAT(errors[2].message, HasSubstr("3x2"));
    EXPECT_TRUE(image.pixels.empty());
}

TEST(Catalogue, CodesDecodeToThePixels) {
    constexpr int width = 1500;  // more than the longest run
    std::vector<std::uint16_t> pixels(width * 2, 0x123);
    pixels[457] = 0xFFF;
    pixels[width - 1] = pixels[width] = catalogue::transparent;
    const std::string codes = catalogue::image_codes(pixels, width);
    for (const char c : codes) EXPECT_TRUE(c >= '#' && c <= '\x7f');

    std::vector<std::uint16_t> decoded;
    tesserakit::ImageRuns runs(codes, width, 2);
    while (const auto run = runs.next()) {
        EXPECT_EQ(decoded.size(), static_cast<std::size_t>(run->y * width + run->x));
        const int pixel = run->colour | (run->transparent ? catalogue::transparent : 0);
        decoded.insert(decoded.end(), static_cast<std::size_t>(run->length),
                       static_cast<std::uint16_t>(pixel));
    }
    EXPECT_EQ(decoded, pixels);
}

TEST(Generator, TellsTheLineWritesNothingAndFails) {
    namespace fs = std::filesystem;
    const fs::path folder =
        fs::temp_directory_path() / ("generator_test_" + std::to_string(::getpid()));
    fs::create_directory(folder);
    const std::string file = (folder / "bad.txt").string();
    std::ofstream(file) << "dialog 1 9x9\n  1 lable 0,0 1x1\n";
    const std::string output = (folder / "out.cpp").string();
    const std::string messages = (folder / "messages").string();
    const std::string command =
        std::string(GEMWRIGHT_RESOURCE_GENERATOR) + ' ' + output + " " + file + " 2> " + messages;
    EXPECT_NE(std::system(command.c_str()), 0);
    EXPECT_FALSE(fs::exists(output));
    std::ostringstream told;
    told << std::ifstream(messages).rdbuf();
    EXPECT_EQ(told.str(), file + ":2: no type of field: 'lable'\n");
    fs::remove_all(folder);
}

}  // namespace
