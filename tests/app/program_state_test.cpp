#include "app/program_state.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string name_of(std::vector<const char*> words) {
    words.insert(words.begin(), "gemwright");
    const auto name =
        gemwright::file_name_from_command_line(static_cast<int>(words.size()), words.data());
    return name ? std::string(name->trimmed()) : "none";
}

TEST(CommandLine, IsOneFileNameWithItsExtensionAddedUnlessItStandsAnywhere) {
    EXPECT_EQ(name_of({}), "");
    EXPECT_EQ(name_of({"foo"}), "foo.gwr");
    EXPECT_EQ(name_of({"my.gwr.bak"}), "my.gwr.bak");
    EXPECT_EQ(name_of({"FOO.GWR"}), "FOO.GWR");
    EXPECT_EQ(name_of({"my", "file"}), "my file.gwr");
    EXPECT_EQ(name_of({"", " "}), "");
}

// Cut, it would be that of another file; the extension counts.
TEST(CommandLine, ANameOfMoreThan256BytesIsNone) {
    const std::string folder(248, 'x');
    EXPECT_EQ(name_of({(folder + "/abc").c_str()}), folder + "/abc.gwr");
    EXPECT_EQ(name_of({(folder + "/abcd").c_str()}), "none");
    EXPECT_EQ(name_of({(folder + "/abc.gwr").c_str()}), folder + "/abc.gwr");
    EXPECT_EQ(name_of({(folder + "/abcd.gwr").c_str()}), "none");
}

}  // namespace
