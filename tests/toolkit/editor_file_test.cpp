#include "toolkit/editor/buffers.hpp"
#include "toolkit/editor/byte_marks.hpp"
#include "toolkit/editor/text_file.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>

#include "tests/support/temp_file.hpp"

using namespace tesserakit;
using namespace std::string_literals;
using testing::ElementsAre;

namespace {

const std::string sign = "\uFFFD";

std::wstring wide(const std::string& text) {
    std::wstring result;
    for (const char c : text)  // of ASCII and the sign, whose first byte stands for it
        if (static_cast<unsigned char>(c) < 0x80U) {
            result += static_cast<wchar_t>(c);
        } else if (c == sign[0]) {
            result += coded::replacement_sign;
        }
    return result;
}

std::string narrow(std::wstring_view text) {
    std::string result;
    for (const wchar_t c : text)
        result += c == coded::replacement_sign ? sign : std::string(1, static_cast<char>(c));
    return result;
}

}  // namespace

TEST(EditorByteMarks, WhatIsShownIsSavedAsTheFilesOwnBytes) {
    struct Case {
        std::string bytes;
        std::string shown;
    };
    const std::array cases{
        Case{"", ""},
        Case{"no end", "no end"},
        Case{"\u00c5 \u03bc\n", "\u00c5 \u03bc\n"},
        Case{"dos\r\nfile\r\n", "dos\nfile\n"},
        Case{"dos\r\nno end", "dos\nno end"},
        Case{"\r\n", "\n"},
        Case{"mostly dos\r\nand\r\none\n", "mostly dos\nand\none\n"},
        Case{"mostly\nunix\nand\r\none", "mostly\nunix\nand\none"},
        Case{"two\r\r\nreturns\n\r\n", "two" + sign + "\nreturns\n\n"},
        Case{"old\rmac\r", "old" + sign + "mac" + sign},
        Case{"zero\0 \0\n"s, "zero" + sign + " " + sign + "\n"},
        Case{"Latin-1 \xe9t\xe9\r\n", "Latin-1 " + sign + "t" + sign + "\n"},
        Case{"cut \xe2\x82", "cut " + sign + sign},
        Case{"surrogate \xed\xa0\x80", "surrogate " + sign + sign + sign},
        Case{"long \xc0\xaf", "long " + sign + sign},
        Case{"the sign itself " + sign, "the sign itself " + sign},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.shown);
        ByteMarks marks;
        EXPECT_EQ(marks.take(one.bytes), one.shown);
        EXPECT_EQ(marks.bytes(one.shown), one.bytes);
    }
    std::string every_byte;
    for (int i = 0; i < 0x10000; ++i) every_byte += {char(i >> 8), char(i & 0xff)};
    ByteMarks marks;
    const std::string shown = marks.take(every_byte);
    EXPECT_EQ(shown.find('\0'), shown.npos);
    EXPECT_EQ(marks.bytes(shown), every_byte);
}

TEST(EditorByteMarks, EditsElsewhereLeaveBytesAsTheyWere) {
    ByteMarks marks;
    std::string text = marks.take("a\xff\r\nb\xfe\r\nc\n");  // shown: a?|b?|c|
    ASSERT_EQ(text, "a" + sign + "\nb" + sign + "\nc\n");
    // "xy" for "b", and a new line at the end.
    marks.change(3, 1, 2);
    marks.change(9, 0, 2);
    EXPECT_EQ(marks.bytes("a" + sign + "\nxy" + sign + "\nc\nd\n"), "a\xff\r\nxy\xfe\r\nc\nd\r\n");
    // The second sign goes; one that is typed or pasted at its place is a sign.
    marks.change(5, 1, 1);
    EXPECT_EQ(marks.bytes("a" + sign + "\nxy" + sign + "\nc\nd\n"),
              "a\xff\r\nxy" + sign + "\r\nc\nd\r\n");
}

TEST(EditorByteMarks, APastedLineEndIsTheFilesOwn) {
    ByteMarks marks;
    marks.take("unix\n");
    EXPECT_EQ(marks.bytes("unix\npasted\r\n"), "unix\npasted\n");
    marks.take("dos\r\n");
    EXPECT_EQ(marks.bytes("dos\npasted\r\n"), "dos\r\npasted\r\n");
}

TEST(EditorByteMarks, CodedTextCarriesMarksThroughAnEdit) {
    std::mt19937 random(3);
    for (int turn = 0; turn < 300; ++turn) {
        std::string bytes;
        for (int i = 0; i < 30; ++i)
            bytes += std::array{"a"s, "\xff"s, "\n"s, "\r\n"s, "\0"s, "\r"s}[random() % 6];
        ByteMarks marks;
        const std::wstring shown = wide(marks.take(bytes));
        // Two neighbouring pieces change places, as when lines are transposed.
        const std::size_t begin = random() % shown.size();
        const std::size_t length = random() % (shown.size() - begin + 1);
        const std::size_t half = random() % (length + 1);
        const std::wstring piece = marks.with_marks(begin, shown.substr(begin, length));
        ASSERT_EQ(coded::shown(piece), shown.substr(begin, length));
        const std::wstring swapped = piece.substr(half) + piece.substr(0, half);
        marks.change(begin, length, length);
        marks.mark(begin, swapped);
        const std::wstring after =
            shown.substr(0, begin) + coded::shown(swapped) + shown.substr(begin + length);
        std::string saved = marks.bytes(narrow(after));

        // And back: the file is what it was.
        const std::wstring again = marks.with_marks(begin, after.substr(begin, length));
        marks.change(begin, length, length);
        marks.mark(begin, again.substr(length - half) + again.substr(0, length - half));
        EXPECT_EQ(marks.bytes(narrow(shown)), bytes);
        std::ranges::sort(saved);
        std::ranges::sort(bytes);
        EXPECT_EQ(saved, bytes);
    }
}

TEST(EditorFile, AFailureIsToldByItsKind) {
    const TempDirectory folder;
    const std::string pipe = folder.name("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string huge = folder.file("huge", "");
    std::filesystem::resize_file(huge, std::uintmax_t{1} << 30);
    const std::string blocked = folder.file("blocked", "x") + "/below";
    const std::string long_name = folder.name(std::string(300, 'n'));
    struct Case {
        std::string name;
        const char* title;
        std::string text;
    };
    const std::string not_found =
        "\nFile not found.\nPlease verify the correct file name was given";
    const std::array cases{
        Case{folder.name("none"), "Open Error", not_found},
        Case{blocked, "Open Error", not_found},
        Case{"", "Open Error", not_found},
        Case{folder.path(), "Open Error", "\nFile is not of a regular type."},
        Case{pipe, "Open Error", "\nFile is not of a regular type."},
        Case{"/dev/null", "Open Error", "\nFile is not of a regular type."},
        Case{long_name, "Open Error", "\nCould not open file.\nFile name too long"},
        Case{huge, "Allocation Error", "\nFile too large - not enough memory."},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        LoadedFile loaded{.text = "old"};
        const auto trouble = load_text_file(one.name, loaded);
        ASSERT_TRUE(trouble);
        EXPECT_EQ(trouble->title, one.title);
        EXPECT_EQ(trouble->text, one.name + one.text);
        EXPECT_EQ(loaded.text, "");
    }
    if (::geteuid() == 0) return;  // may read and write everything
    const std::string locked = folder.file("locked", "x");
    ASSERT_EQ(::chmod(locked.c_str(), 0), 0);
    LoadedFile loaded;
    EXPECT_EQ(load_text_file(locked, loaded)->text,
              locked + "\nCould not open file.\nPermission denied");
}

TEST(EditorFile, AFailedSavingKeepsTheOldFileAndSaysWhy) {
    const TempDirectory folder;
    const std::string file = folder.file("file", "old");
    EXPECT_EQ(save_text_file(folder.path(), "new", false)->text,
              folder.path().string() + "\nCould not open file to write.\nIs a directory");

    // As a full disk: no file may be longer than four bytes.
    rlimit old_limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old_limit), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{4, old_limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto trouble = save_text_file(file, "longer", false);
    ::setrlimit(RLIMIT_FSIZE, &old_limit);
    ASSERT_TRUE(trouble);
    EXPECT_EQ(trouble->title, "Write Error");
    EXPECT_EQ(trouble->text, file + "\nFailed to write entire file.\nFile too large");
    EXPECT_EQ(content_of(file), "old");

    EXPECT_FALSE(save_text_file(file, "new", true));
    EXPECT_EQ(content_of(file), "new");
    EXPECT_EQ(content_of(file + ".bak"), "old");
    std::filesystem::remove(file + ".bak");
    std::filesystem::create_directory(file + ".bak");
    EXPECT_TRUE(save_text_file(file, "newer", true));
    EXPECT_EQ(content_of(file), "new") << "nothing is saved without its backup";
    EXPECT_FALSE(save_text_file(folder.name("first"), "text", true)) << "nothing to back up";
}

TEST(EditorFile, AChangeByAnotherProgramIsSeen) {
    const TempDirectory folder;
    const std::string file = folder.file("file", "one");
    LoadedFile loaded;
    ASSERT_FALSE(load_text_file(file, loaded));
    EXPECT_EQ(change_since(file, loaded.stamp), FileChange::Nothing);
    // The same length, and a nanosecond later.
    const auto set_time = [&](long nanoseconds) {
        const std::array<timespec, 2> times{timespec{100, 0}, timespec{100, nanoseconds}};
        ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
    };
    set_time(1);
    const auto stamp = stamp_of(file);
    folder.file("file", "two");
    set_time(2);
    EXPECT_EQ(change_since(file, stamp), FileChange::Changed);
    // Another file under the name, with length and time of the old one.
    const auto before = stamp_of(file);
    std::filesystem::rename(folder.file("other", "333"), file);
    set_time(2);
    EXPECT_EQ(change_since(file, before), FileChange::Changed);
    std::filesystem::remove(file);
    EXPECT_EQ(change_since(file, before), FileChange::Gone);
    EXPECT_EQ(change_since(file, std::nullopt), FileChange::Nothing);
    folder.file("file", "");
    EXPECT_EQ(change_since(file, std::nullopt), FileChange::Appeared);
}

TEST(EditorBuffers, KeepTextsInTheirSlots) {
    TextBuffers buffers;
    EXPECT_EQ(buffers.free_slot(), 0);
    buffers.yyeditstorebuffer(0, {.name = "a", .text = "text", .position = 3});
    buffers.yyeditstorebuffer(2, {});
    buffers.yyeditstorebuffer(most_buffers, {.name = "beyond"});
    EXPECT_THAT(buffers.taken(), ElementsAre(0, 2));
    EXPECT_EQ(buffers.free_slot(), 1);

    const auto text = buffers.yyeditretrievebuffer(0);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->text, "text");
    EXPECT_EQ(text->position, 3U);
    ASSERT_TRUE(buffers.at(0));
    EXPECT_EQ(buffers.at(0)->name, "a") << "the menu goes on showing it";
    EXPECT_FALSE(buffers.yyeditretrievebuffer(1));
    EXPECT_FALSE(buffers.yyeditretrievebuffer(-1));
    buffers.close(0);
    EXPECT_FALSE(buffers.at(0));
    for (int slot = 0; slot < most_buffers; ++slot) buffers.yyeditstorebuffer(slot, {});
    EXPECT_EQ(buffers.free_slot(), -1);
}
