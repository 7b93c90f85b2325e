// The writer's own lines, and what saving does to files.
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "tests/support/scene_calls.hpp"
#include "tests/support/temp_file.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr Quaternion no_turn{1, 0, 0, 0};

safe_file::Outcome write(const std::string& name, const Quaternion& view = no_turn) {
    return wcfgl_io::write_gwr_file(std::string_view(name), view);
}
bool is_open(const std::string& name) { return wcfgl_io::file_is_open(std::string_view(name)); }

std::string written(const Quaternion& view = no_turn) {
    const TempDirectory directory;
    write(directory.name("a.gwr"), view);
    EXPECT_EQ(wcfgl_io::err_flag, 0);
    return content_of(directory.name("a.gwr"));
}

TEST(WriteFile, AnEmptyModelHasBackgroundAndViewAlone) {
    wcfgl_metrix::current_cell.reset();
    EXPECT_EQ(written(),
              "BKG  0.000  0.000  0.000  1.000\n"
              "ROTAX     0.000  0.00000  0.00000  0.00000\n");
}

TEST(WriteFile, EveryLineHasItsWidths) {
    wcfgl_display::background_colour = {0.25f, -0.5f, 1.0f, 12.3456f};
    wcfgl_metrix::define_cell({5.43f, 5.43f, 11.00004f}, {90, 90, 120});
    wcfgl_metrix::current_cell->nodisplay = 1;
    wcfgl_metrix::current_box = {-0.1f, 1.1f, -100.5f, 0.0f, -1000.0f, 1e30f};
    crystallographic_symmetry::set_spacegroup("F m -3 m",
                                              wcfgl_metrix::current_space_group.emplace());
    scene_calls::atom_text = "<atoms>\n";
    scene_calls::bond_text = "<bonds>\n";
    scene_calls::magnetic_text = "<block>\n";
    const std::string sixty_about_y = written({0.8660254f, 0, 0.5f, 0});
    EXPECT_EQ(sixty_about_y,
              "BKG  0.250 -0.500  1.000 12.346\n"
              "CELL     5.4300    5.4300   11.0000   90.0000   90.0000  120.0000"
              " COLOR  0.500  0.500  0.500  1.000          NODISPLAY\n"
              "BOX  -0.100   1.100 -100.500   0.000 ******** ********\n"
              "ROTAX    60.000  0.00000  1.00000  0.00000\n"
              "SPACEG F M -3 M            \n"
              "<atoms>\n<bonds>\n<block>\n");
    wcfgl_metrix::current_cell->nodisplay = 0;
    wcfgl_metrix::current_cell->multiple = 1;
    EXPECT_NE(written().find("  1.000 MULTIPLE          \n"), std::string::npos);
}

TEST(WriteFile, AFileThatThisProcessHoldsOpenIsNotWritten) {
    const TempDirectory directory;
    const std::string name = directory.file("a.gwr", "old");
    fs::create_symlink("a.gwr", directory.name("link"));
    const int descriptor = ::open(name.c_str(), O_RDONLY);
    ASSERT_GE(descriptor, 0);
    EXPECT_TRUE(is_open(name));
    EXPECT_TRUE(is_open(directory.name("link")));
    EXPECT_EQ(write(name).reason, "The file is being edited");
    EXPECT_EQ(wcfgl_io::err_flag, 1);
    EXPECT_EQ(wcfgl_io::err_mess.trimmed(),
              " The file is being edited! Please close the file before saving!");
    EXPECT_EQ(content_of(name), "old");
    ::close(descriptor);
    EXPECT_FALSE(is_open(name));
    write(name);
    EXPECT_EQ(wcfgl_io::err_flag, 0);
    EXPECT_TRUE(wcfgl_io::err_mess.blank());
    EXPECT_TRUE(content_of(name).starts_with("BKG"));
}

TEST(WriteFile, FailuresAreToldByStatusAndReason) {
    const TempDirectory directory;
    const std::string name = directory.file("a.gwr", "the old content");
    // A file size limit fails the write halfway, as a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{40, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_EQ(write(name).reason, "File too large");
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(wcfgl_io::err_flag, 1);
    EXPECT_TRUE(wcfgl_io::err_mess.trimmed().starts_with(" Error writing the file /"));
    EXPECT_EQ(content_of(name), "the old content");

    EXPECT_EQ(write(directory.path().string()).reason, "Is a directory");
    EXPECT_EQ(wcfgl_io::err_flag, 1);
    const std::string message = " Error opening the file " + directory.path().string();
    EXPECT_EQ(wcfgl_io::err_mess, FixedText<80>(std::string_view(message)));
    EXPECT_TRUE(write(name));
    EXPECT_EQ(wcfgl_io::err_flag, 0);
}

TEST(WriteFile, ANameBeyondItsFieldIsNotWrittenUnderACutOne) {
    const TempDirectory directory;
    std::string folder = directory.path().string();
    while (folder.size() < 200) folder += "/folder";
    fs::create_directories(folder);
    const std::string cut = folder + '/' + std::string(256 - folder.size() - 1, 'x');
    EXPECT_TRUE(write(cut));
    const std::string before = content_of(cut);
    EXPECT_EQ(write(cut + "y", {0, 1, 0, 0}).reason, "File name too long");
    EXPECT_EQ(wcfgl_io::err_flag, 1);
    EXPECT_EQ(content_of(cut), before);
    EXPECT_FALSE(fs::exists(cut + "y"));
}

}  // namespace
