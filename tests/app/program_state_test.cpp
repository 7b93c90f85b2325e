#include "app/program_state.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string name_of(std::vector<const char*> words) {
    words.insert(words.begin(), "gemwright");
    return std::string(
        gemwright::file_name_from_command_line(static_cast<int>(words.size()), words.data())
            .trimmed());
}

TEST(CommandLine, IsOneFileNameWithItsExtensionAddedUnlessItStandsAnywhere) {
    EXPECT_EQ(name_of({}), "");
    EXPECT_EQ(name_of({"foo"}), "foo.gwr");
    EXPECT_EQ(name_of({"my.gwr.bak"}), "my.gwr.bak");
    EXPECT_EQ(name_of({"FOO.GWR"}), "FOO.GWR");
    EXPECT_EQ(name_of({"my", "file"}), "my file.gwr");
    EXPECT_EQ(name_of({"", " "}), "");
    const std::string longest(300, 'x');
    EXPECT_EQ(name_of({longest.c_str()}), longest.substr(0, 256));
}

}  // namespace
