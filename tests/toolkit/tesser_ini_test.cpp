#include "toolkit/base/tesser_ini.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace tesserakit;

namespace {

class TesserIni : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"TESSROOT", "TKIDE", "TESSINIT", "TESSDEBUG"}) unsetenv(name);
        folder_ = std::filesystem::temp_directory_path() /
                  ("tesser_ini." + std::to_string(getpid()) + "." +
                   testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(folder_);
        former_ = std::filesystem::current_path();
        std::filesystem::current_path(folder_);
    }
    void TearDown() override {
        std::filesystem::current_path(former_);
        std::filesystem::remove_all(folder_);
    }

    std::string write(const std::string& name, const std::string& text) {
        const std::filesystem::path path = folder_ / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
        return path.string();
    }

    std::string folder() const { return folder_.string(); }

private:
    std::filesystem::path folder_;
    std::filesystem::path former_;
};

Settings after(const std::string& line) {
    Settings values;
    read_ini_line(line, values);
    return values;
}

}  // namespace

TEST_F(TesserIni, KeywordsInAnyCaseWithBlanksAndTabs) {
    EXPECT_EQ(after("browser=firefox").browser, "firefox");
    EXPECT_EQ(after("\t PdfRead\t=  evince -f \r").pdf_reader, "evince -f");
    EXPECT_EQ(after("CHARSET = a=b").character_set, "a=b");
    EXPECT_EQ(after("DEBUG=2").debug_level, 2);
    EXPECT_EQ(after("hpgl2 = 1").hpgl_dialect, 1);
    EXPECT_EQ(after("PLOTTER=3").plotter, 3);
    EXPECT_EQ(after("PRINTER=4").printer, 4);
    EXPECT_EQ(after("CHARDIR=/fonts/").character_directory, "/fonts/");
}

TEST_F(TesserIni, OtherLinesChangeNothing) {
    for (const char* line :
         {"", "=1", "DEBUG", "DEBUG=", "DEBUG=x", "DEBUG=1.5", "PRINT=9", "  "}) {
        SCOPED_TRACE(line);
        const Settings values = after(line);
        EXPECT_EQ(values.debug_level, 0);
        EXPECT_EQ(values.printer, 0);
        EXPECT_EQ(values.browser, "mozilla");
    }
}

TEST_F(TesserIni, KeywordsAreCutAtEightCharacters) {
    // Nine characters, of which the first eight are no keyword; eight are none either.
    EXPECT_EQ(after("BROWSERXX=a").browser, "mozilla");
    EXPECT_EQ(after("BROWSER =a").browser, "a");
}

TEST_F(TesserIni, TheRootComesFromTheEnvironment) {
    EXPECT_EQ(settings_of_environment().root_directory, "/usr/local/tess/");
    EXPECT_EQ(settings_of_environment().character_directory, "/usr/local/tess/charsets/");
    setenv("TKIDE", "/opt/tess/TkIde/bin", 1);
    EXPECT_EQ(settings_of_environment().root_directory, "/opt/tess/");
    setenv("TESSROOT", "/home/tess", 1);
    EXPECT_EQ(settings_of_environment().root_directory, "/home/tess/");
    EXPECT_EQ(settings_of_environment().character_directory, "/home/tess/charsets/");
    setenv("TESSDEBUG", "25", 1);
    EXPECT_EQ(settings_of_environment().debug_level, 2);
    setenv("TESSDEBUG", "x", 1);
    EXPECT_EQ(settings_of_environment().debug_level, 0);
}

TEST_F(TesserIni, TheFileIsTheFirstThatExists) {
    setenv("TESSROOT", (folder() + "/root").c_str(), 1);
    const Settings values = settings_of_environment();
    EXPECT_EQ(find_ini_file("", values), "");
    const std::string in_root = write("root/tesser.ini", "");
    EXPECT_EQ(find_ini_file("", values), in_root);
    write("tesser.ini", "");
    EXPECT_EQ(find_ini_file("", values), "tesser.ini");
    const std::string named = write("named.ini", "");
    setenv("TESSINIT", named.c_str(), 1);
    EXPECT_EQ(find_ini_file("", values), named);
    EXPECT_EQ(find_ini_file("absent.ini", values), named);
    EXPECT_EQ(find_ini_file("tesser.ini  ", values), "tesser.ini");
}

TEST_F(TesserIni, WhatIsNoShortFileOfTextIsNotRead) {
    setenv("TESSROOT", (folder() + "/root").c_str(), 1);
    const std::string in_root = write("root/tesser.ini", "");
    ASSERT_EQ(mkfifo("tesser.ini", 0600), 0);
    const Settings values = settings_of_environment();
    EXPECT_EQ(find_ini_file(folder(), values), in_root);
    std::filesystem::create_symlink("/dev/zero", "zeros");
    setenv("TESSINIT", "zeros", 1);
    EXPECT_EQ(find_ini_file("", values), in_root) << "endless";
    const std::string megabyte = write("large.ini", std::string(1048576, 'x'));
    setenv("TESSINIT", megabyte.c_str(), 1);
    EXPECT_EQ(find_ini_file("", values), megabyte);
    std::filesystem::resize_file(megabyte, 1048577);
    EXPECT_EQ(find_ini_file("", values), in_root);
}

TEST_F(TesserIni, TheFileGoesBeforeTheEnvironment) {
    setenv("TESSDEBUG", "1", 1);
    setenv("TESSROOT", folder().c_str(), 1);
    yywinitialise("");
    EXPECT_EQ(settings.debug_level, 1);
    EXPECT_EQ(settings.browser, "mozilla");
    yywinitialise(write("own.ini", "debug = 0\n=\nnonsense\nBROWSER=lynx"));
    EXPECT_EQ(settings.debug_level, 0);
    EXPECT_EQ(settings.browser, "lynx");
    EXPECT_EQ(settings.pdf_reader, "xpdf");
}
