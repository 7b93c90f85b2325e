#include "tests/support/temp_file.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "toolkit/common_dialogs/directory_list.hpp"
#include "toolkit/common_dialogs/file_rules.hpp"
#include "toolkit/common_dialogs/filters.hpp"

#include <cstdlib>

using namespace tesserakit;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int saving = 1, prompting = 2, any_path = 4, directory_wanted = 16, must_exist = 128;
constexpr int open_flags = 138, save_flags = 43;  // the application's

constexpr NameState file{.exists = true, .can_enter = true, .directory_exists = true};
constexpr NameState folder{
    .exists = true, .is_directory = true, .can_enter = true, .directory_exists = true};
constexpr NameState missing{.can_enter = true, .directory_exists = true};
constexpr NameState nowhere{};

FileVerdict verdict(int flags, const NameState& state, const std::string& name = "/d/a.gwr") {
    return judge(file_flags(flags), name, state);
}

}  // namespace

TEST(Filters, PairsAreReadWithoutTheBlanksAroundThem) {
    const auto filters = read_filters("  Structure file | *.gwr |All files|*|  Odd ||");
    ASSERT_EQ(filters.size(), 3U);
    EXPECT_EQ(filters[0].description, "Structure file");
    EXPECT_EQ(filters[0].pattern, "*.gwr");
    EXPECT_EQ(filters[1].description, "All files");
    EXPECT_EQ(filters[1].pattern, "*");
    EXPECT_EQ(filters[2].pattern, "*") << "a blank pattern";
    EXPECT_EQ(read_filters("Structure|*.gwr").at(0).pattern, "*.gwr") << "no bar at the end";
    EXPECT_THAT(read_filters(""), IsEmpty());
    EXPECT_THAT(read_filters("no bar"), IsEmpty());
}

TEST(Filters, PatternsMatchAsInAShell) {
    EXPECT_TRUE(matches("uo2.gwr", "*.gwr"));
    EXPECT_TRUE(matches("a.gwr.gwr", "*.gwr"));
    EXPECT_FALSE(matches("a.gwr~", "*.gwr"));
    EXPECT_FALSE(matches("a.GWR", "*.gwr"));
    EXPECT_TRUE(matches("abcabd", "*ab?"));
    EXPECT_FALSE(matches("abcab", "*ab?"));
    EXPECT_TRUE(matches("", "*"));
    EXPECT_FALSE(matches("", "?"));
    EXPECT_FALSE(matches(".hidden.gwr", "*.gwr"));
    EXPECT_TRUE(matches(".hidden.gwr", ".*.gwr"));
    EXPECT_TRUE(matches("M\u00fcller", "M?ller")) << "one character of two bytes";
    EXPECT_TRUE(matches("M\xfcller", "M?ller")) << "a byte that is no UTF-8";
    // Time would be exponential if each star were tried anew.
    EXPECT_FALSE(matches(std::string(250, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(FileRules, NamesAreSplitAtTheLastSlash) {
    EXPECT_EQ(yysplitp("/home/me/a b.gwr   ").directory, "/home/me/");
    EXPECT_EQ(yysplitp("/home/me/a b.gwr   ").base, "a b.gwr");
    EXPECT_EQ(yysplitp("a.gwr").directory, "");
    EXPECT_EQ(yysplitp("/a.gwr").directory, "/");
    EXPECT_EQ(yysplitp("sub/").base, "");
    EXPECT_EQ(yysplitp("   ").base, "");
}

TEST(FileRules, TypedNamesStandInTheDirectoryShown) {
    ::setenv("HOME", "/home/me", 1);
    EXPECT_EQ(whole_name("a.gwr", "/d/e/"), "/d/e/a.gwr");
    EXPECT_EQ(whole_name("/x/a.gwr", "/d/e/"), "/x/a.gwr");
    EXPECT_EQ(whole_name("../a.gwr", "/d/e/"), "/d/a.gwr");
    EXPECT_EQ(whole_name("..", "/d/e/"), "/d/");
    EXPECT_EQ(whole_name("../../..", "/d/e/"), "/");
    EXPECT_EQ(whole_name("sub//./deeper/", "/d/"), "/d/sub/deeper/");
    EXPECT_EQ(whole_name("~", "/d/"), "/home/me");
    EXPECT_EQ(whole_name("~/a.gwr", "/d/"), "/home/me/a.gwr");
    EXPECT_EQ(whole_name("~a.gwr", "/d/"), "/d/~a.gwr");
    EXPECT_EQ(whole_name("M\xfcller.gwr", "/d/"), "/d/M\xfcller.gwr");
}

TEST(FileRules, OkEndsAsksOrTellsByTheFlags) {
    struct Case {
        int flags;
        NameState state;
        FileVerdict wanted;
    };
    using enum FileVerdict;
    const Case cases[]{
        {open_flags, file, End},
        {open_flags, missing, NotFound},
        {open_flags, nowhere, NoPath},
        {open_flags, folder, Enter},
        {save_flags, file, AskOverwrite},
        {save_flags, missing, End},
        {save_flags, nowhere, NoPath},
        {save_flags, folder, Enter},
        {0, missing, End},
        {0, nowhere, NoPath},
        {any_path, nowhere, End},
        {any_path | must_exist, nowhere, NotFound},
        {prompting, missing, AskCreate},
        {prompting, file, End},
        {must_exist, missing, NotFound},
        {saving, file, End},
        {saving | must_exist, file, AskOverwrite},
        {directory_wanted, folder, End},
        {directory_wanted, file, NoPath},
        {directory_wanted, missing, NoPath},
        {directory_wanted | any_path, missing, End},
        {directory_wanted | saving, folder, Enter},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "flags " << c.flags << ", exists " << c.state.exists
                                        << ", directory " << c.state.is_directory);
        EXPECT_EQ(verdict(c.flags, c.state), c.wanted);
    }
}

TEST(FileRules, WildcardsAskForAnotherList) {
    using enum FileVerdict;
    EXPECT_EQ(verdict(open_flags, missing, "/d/*.cif"), NewPattern);
    EXPECT_EQ(verdict(save_flags, missing, "/d/a?"), NewPattern);
    EXPECT_EQ(verdict(open_flags, nowhere, "/d/*.cif"), NoPath);
    EXPECT_EQ(verdict(open_flags, {.directory_exists = true}, "/d/*.cif"), CannotEnter);
    EXPECT_EQ(verdict(open_flags, missing, "/d*/a.gwr"), NotFound) << "not in the file's name";
    EXPECT_EQ(verdict(open_flags, file, "/d/what?.gwr"), End) << "chosen in the list";
}

TEST(FileRules, NamesThatCantBeKeptAreRefused) {
    using enum FileVerdict;
    const std::string longest = "/" + std::string(255, 'a');
    EXPECT_EQ(verdict(save_flags, missing, longest), End);
    EXPECT_EQ(verdict(save_flags, missing, longest + "a"), NameTooLong);
    EXPECT_EQ(verdict(open_flags, file, longest + "a"), NameTooLong);
    EXPECT_EQ(verdict(open_flags, folder, longest + "a"), Enter) << "only on the way";
    EXPECT_EQ(verdict(directory_wanted, folder, longest + "a"), NameTooLong);
    EXPECT_EQ(verdict(open_flags, file, "/d/a.gwr "), EndsInBlank);
    EXPECT_EQ(verdict(open_flags, {.exists = true, .is_directory = true}, "/d/closed"),
              CannotEnter);
}

TEST(FileRules, TextsNameTheFile) {
    using enum FileVerdict;
    EXPECT_EQ(text_of(NoPath, "/d/a"),
              "/d/a\nPath does not exist.\nPlease verify the correct path was given.");
    EXPECT_EQ(text_of(NotFound, "/d/a"),
              "/d/a\nFile not found.\n\nPlease verify the correct file name was given.");
    EXPECT_EQ(text_of(AskCreate, "/d/a"), "/d/a\nThis file does not exist.\n\nCreate the file?");
    EXPECT_EQ(text_of(AskOverwrite, "/d/a"), "/d/a already exists.\nDo you want to replace it?");
    for (const FileVerdict told : {CannotEnter, NameTooLong, EndsInBlank, NoPath, NotFound}) {
        EXPECT_TRUE(tells(told) && !asks(told));
        EXPECT_TRUE(text_of(told, "/d/a").starts_with("/d/a\n"));
    }
    for (const FileVerdict asked : {AskCreate, AskOverwrite})
        EXPECT_TRUE(asks(asked) && !tells(asked));
    for (const FileVerdict other : {NewPattern, Enter, End})
        EXPECT_FALSE(asks(other) || tells(other));
}

TEST(FileRules, TheFileSystemIsAsked) {
    const TempDirectory directory;
    const std::string name = directory.file("a.gwr", "");
    EXPECT_TRUE(look_at(name).exists);
    EXPECT_FALSE(look_at(name).is_directory);
    EXPECT_TRUE(look_at(directory.path().string()).is_directory);
    EXPECT_TRUE(look_at(directory.path().string()).can_enter);
    EXPECT_TRUE(look_at(directory.path().string() + "/").is_directory);
    EXPECT_FALSE(look_at(directory.name("b.gwr")).exists);
    EXPECT_TRUE(look_at(directory.name("b.gwr")).directory_exists);
    EXPECT_FALSE(look_at(directory.name("none/b.gwr")).directory_exists);
    EXPECT_FALSE(look_at(name + "/b.gwr").directory_exists) << "a file is no directory";
    EXPECT_FALSE(look_at(name + "/").exists);
    EXPECT_FALSE(look_at(directory.name(std::string(300, 'a'))).exists);
}

TEST(DirectoryList, DirectoriesAndMatchingFilesAreListedInOrder) {
    const TempDirectory directory;
    for (const char* file : {"b.gwr", "a b.gwr", "a.cif", ".hidden.gwr", "M\xfcller.gwr"})
        directory.file(file, "");
    for (const char* name : {"sub", ".git", "dir.gwr"})
        std::filesystem::create_directory(directory.path() / name);
    std::filesystem::create_symlink(directory.path() / "sub", directory.path() / "link.gwr");
    std::filesystem::create_symlink("nothing", directory.path() / "broken.gwr");
    const DirectoryList list = read_directory(directory.path().string() + "/", "*.gwr");
    EXPECT_THAT(list.directories, ElementsAre("..", "dir.gwr", "link.gwr", "sub"));
    EXPECT_THAT(list.files, ElementsAre("M\xfcller.gwr", "a b.gwr", "b.gwr", "broken.gwr"));
    EXPECT_THAT(read_directory("/", "no such name").files, IsEmpty());
    EXPECT_NE(read_directory("/", "*").directories.at(0), "..");
    EXPECT_THAT(read_directory(directory.name("none"), "*").files, IsEmpty());
}
