#include "common/safe_file.hpp"

#include "tests/support/temp_file.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <thread>

namespace {

namespace fs = std::filesystem;
using Failed = safe_file::Outcome::Failed;

constexpr uid_t nobody = 65534;
const std::string new_text(100, 'n');

std::set<std::string> names_in(const TempDirectory& directory) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory.path()))
        names.insert(entry.path().filename());
    return names;
}

struct stat status_of(const std::string& name) {
    struct stat status {};
    EXPECT_EQ(::lstat(name.c_str(), &status), 0) << name;
    return status;
}

/// The test goes on as another user, one that permissions bind.
class AsNobody {
public:
    AsNobody() {
        EXPECT_TRUE(::getuid() != 0 || (::setegid(nobody) == 0 && ::seteuid(nobody) == 0));
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() { EXPECT_TRUE(::getuid() != 0 || (::seteuid(0) == 0 && ::setegid(0) == 0)); }
};

/// Files of more bytes than these can't be written, as on a full disk; with SIGXFSZ ignored a write
/// fails, otherwise it kills.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
        const rlimit small{bytes, before_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_{};
};

/// A saving by a process that is killed when it has written so many bytes.
void save_and_be_killed(const std::string& name, rlim_t bytes) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const FullDisk limit(bytes);
        const rlimit no_core{0, 0};
        ::setrlimit(RLIMIT_CORE, &no_core);
        std::signal(SIGXFSZ, SIG_DFL);
        safe_file::save(name, new_text);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the saving came to its end";
}

void expect_saved(const std::string& name) {
    const safe_file::Outcome outcome = safe_file::save(name, new_text);
    EXPECT_TRUE(outcome) << outcome.reason;
    EXPECT_EQ(content_of(name), new_text);
}

TEST(SafeFile, ReplacesAFileAsAWholeWithItsPermissions) {
    const TempDirectory directory;
    const std::string name = directory.file("a b.gwr", "old");
    fs::permissions(name, fs::perms(0640));
    const ino_t before = status_of(name).st_ino;
    expect_saved(name);
    EXPECT_NE(status_of(name).st_ino, before);
    EXPECT_EQ(status_of(name).st_mode & 07777, 0640u);
    EXPECT_EQ(names_in(directory), std::set<std::string>{"a b.gwr"});
}

TEST(SafeFile, ANewFileHasTheUsersDefaultPermissions) {
    const TempDirectory directory;
    const mode_t before = ::umask(027);
    expect_saved(directory.name("a"));
    expect_saved(directory.name(std::string(250, 'x')));
    ::umask(before);
    EXPECT_EQ(status_of(directory.name("a")).st_mode & 07777, 0640u);
    EXPECT_EQ(names_in(directory).size(), 2u);
}

TEST(SafeFile, SymbolicLinksStayAndTheirTargetIsReplaced) {
    const TempDirectory directory;
    fs::create_directory(directory.path() / "deep");
    directory.file("deep/a", "old");
    fs::create_symlink("deep/a", directory.name("one"));
    fs::create_symlink(directory.path() / "one", directory.name("two"));
    fs::create_symlink("deep/new", directory.name("dangling"));
    for (const char* link : {"two", "dangling"}) {
        expect_saved(directory.name(link));
        EXPECT_TRUE(fs::is_symlink(directory.name(link)));
    }
    EXPECT_TRUE(fs::is_symlink(directory.name("one")));
    EXPECT_EQ(content_of(directory.name("deep/a")), new_text);
    EXPECT_EQ(content_of(directory.name("deep/new")), new_text);
}

TEST(SafeFile, WhatIsNoFileToWriteIsToldAndLeftAlone) {
    const TempDirectory directory;
    fs::create_symlink("ring", directory.name("ring"));
    ASSERT_EQ(::mkfifo(directory.name("pipe").c_str(), 0600), 0);
    const auto reason = [](const std::string& name) {
        const safe_file::Outcome outcome = safe_file::save(name, new_text);
        EXPECT_EQ(outcome.failed, Failed::opening) << name;
        return outcome.reason;
    };
    EXPECT_EQ(reason(directory.path()), "Is a directory");
    EXPECT_EQ(reason(directory.name("none/a")), "No such file or directory");
    EXPECT_EQ(reason(directory.name("ring")), "Too many levels of symbolic links");
    EXPECT_EQ(reason(directory.name("pipe")), "Not a regular file");
    EXPECT_EQ(reason("/dev/zero"), "Not a regular file");
    EXPECT_EQ(reason(directory.name(std::string(300, 'x'))), "File name too long");
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"ring", "pipe"}));
}

TEST(SafeFile, HardLinksAndAttributesStay) {
    const TempDirectory directory;
    const std::string name = directory.file("a", "an old text");
    fs::create_hard_link(name, directory.name("b"));
    expect_saved(name);
    EXPECT_EQ(content_of(directory.name("b")), new_text);
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "b"}));

    const std::string other = directory.file("c", "an old text");
    if (::setxattr(other.c_str(), "user.origin", "me", 2, 0) != 0)
        GTEST_SKIP() << "no attributes in the folder for temporary files";
    expect_saved(other);
    char value[2] = {};
    EXPECT_EQ(::getxattr(other.c_str(), "user.origin", value, 2), 2);
}

TEST(SafeFile, AWritableFileInAFolderThatIsNotIsSaved) {
    const TempDirectory directory;
    const std::string name = directory.file("a", "old");
    fs::permissions(name, fs::perms(0666));
    fs::permissions(directory.path(), fs::perms(0555));
    {
        const AsNobody user;
        expect_saved(name);
        EXPECT_EQ(safe_file::save(directory.name("b"), new_text).reason, "Permission denied");
    }
    fs::permissions(directory.path(), fs::perms(0755));
    EXPECT_EQ(names_in(directory), std::set<std::string>{"a"});
}

TEST(SafeFile, AForeignFileKeepsOwnerAndGroup) {
    if (::getuid() != 0) GTEST_SKIP() << "giving files away needs root";
    const TempDirectory directory;
    fs::permissions(directory.path(), fs::perms(01777));
    const std::string foreign = directory.file("foreign", "old");
    fs::permissions(foreign, fs::perms(0666));
    const std::string group = directory.file("group", "old");
    ASSERT_EQ(::chown(group.c_str(), nobody, 4), 0);
    const std::string given = directory.file("given", "old");
    ASSERT_EQ(::chown(given.c_str(), nobody, nobody), 0);
    const std::string locked = directory.file("locked", "old");
    fs::permissions(locked, fs::perms(0644));
    {
        const AsNobody user;
        expect_saved(foreign);  // in a folder where only owners rename
        expect_saved(group);    // of a group that isn't the user's
        EXPECT_EQ(safe_file::save(locked, new_text).reason, "Permission denied");
    }
    expect_saved(given);
    EXPECT_EQ(status_of(foreign).st_uid, 0u);
    EXPECT_EQ(status_of(group).st_gid, 4u);
    EXPECT_EQ(status_of(given).st_uid, nobody);
    EXPECT_EQ(content_of(locked), "old");
    EXPECT_EQ(names_in(directory).size(), 4u);
}

TEST(SafeFile, AFullDiskLeavesTheOldTextAndNothingBeside) {
    const TempDirectory directory;
    const std::string name = directory.file("a", "the old text");
    fs::create_hard_link(directory.file("b", "another"), directory.name("c"));
    for (const char* file : {"a", "b"}) {
        const FullDisk limit(40);
        const safe_file::Outcome outcome = safe_file::save(directory.name(file), new_text);
        EXPECT_EQ(outcome.failed, Failed::writing);
        EXPECT_EQ(outcome.reason, "File too large");
    }
    EXPECT_EQ(content_of(name), "the old text");
    EXPECT_EQ(content_of(directory.name("c")), "another");
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "b", "c"}));
}

TEST(SafeFile, AKilledSavingLeavesTheOldTextAndTheNextOneClearsUp) {
    const TempDirectory directory;
    const std::string name = directory.file("a", "the old text");
    save_and_be_killed(name, 40);
    EXPECT_EQ(content_of(name), "the old text");
    EXPECT_EQ(names_in(directory).size(), 2u);
    expect_saved(directory.name("b"));
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "b"}));
    save_and_be_killed(name, 40);
    expect_saved(name);
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "b"}));
}

TEST(SafeFile, AKilledSavingInPlaceLeavesTheOldTextBesideUntilTheFileIsWhole) {
    const TempDirectory directory;
    const std::string name = directory.file("a", "the old text");
    fs::create_hard_link(name, directory.name("link"));
    const auto kept = [&directory] { return content_of(directory.name(".a.gemwright-old")); };
    save_and_be_killed(name, 40);
    EXPECT_EQ(content_of(name), new_text.substr(0, 40));
    EXPECT_EQ(kept(), "the old text");
    {
        const FullDisk limit(60);
        EXPECT_FALSE(safe_file::save(name, new_text));
    }
    EXPECT_EQ(kept(), "the old text") << "half a text takes no copy's place";
    expect_saved(directory.name("other"));
    EXPECT_EQ(kept(), "the old text");
    expect_saved(name);
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "link", "other"}));
    // Also when the next one is a renaming.
    save_and_be_killed(name, 40);
    fs::remove(directory.name("link"));
    expect_saved(name);
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "other"}));
}

TEST(SafeFile, WhatAnotherProcessIsSavingIsLeftToIt) {
    const TempDirectory directory;
    const std::string name = directory.file("a", "old");
    const std::string beside = directory.file(".a.gemwright-new", "half");
    const int other = ::open(beside.c_str(), O_WRONLY);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_EQ(safe_file::save(name, new_text).reason, "Another program is saving this file");
    expect_saved(directory.name("b"));
    EXPECT_EQ(content_of(beside), "half");
    ::close(other);
    expect_saved(name);
    EXPECT_EQ(names_in(directory), (std::set<std::string>{"a", "b"}));
}

// ---- reading

std::string read(const std::string& name) {
    std::string text = "before";
    const safe_file::Outcome outcome = safe_file::read(name, text);
    EXPECT_EQ(safe_file::can_be_read(name).reason, outcome.reason);
    return outcome ? text : "! " + outcome.reason;
}

TEST(SafeFile, ReadsRegularFilesOnly) {
    const TempDirectory directory;
    const std::string bytes("a\0\xff\n", 4);
    EXPECT_EQ(read(directory.file("a", bytes)), bytes);
    EXPECT_EQ(read(directory.file("empty", "")), "");
    EXPECT_EQ(read(directory.file("long", std::string(200'000, 'x'))), std::string(200'000, 'x'));
    ASSERT_EQ(::mkfifo(directory.name("pipe").c_str(), 0600), 0);
    EXPECT_EQ(read(directory.name("pipe")), "! Not a regular file");
    EXPECT_EQ(read("/dev/zero"), "! Not a regular file");
    EXPECT_EQ(read(directory.name("none")), "! No such file or directory");
    const std::string huge = directory.file("huge", "");
    fs::resize_file(huge, safe_file::largest + 1);
    EXPECT_EQ(read(huge), "! File too large");
}

/// A writer in the manner of editors: the old file cut to nothing, then written anew, in pieces.
/// What is read is all of one letter, and each text is as long as its letter says or breaks off
/// there.
TEST(SafeFile, NeverMixesTwoStatesOfAFile) {
    const TempDirectory directory;
    const std::string name = directory.file("a", std::string(4'000'000, 'a'));
    std::atomic<bool> writing = true;
    std::thread writer([&] {
        for (int n = 0; n < 150; ++n) {
            const int file = ::open(name.c_str(), O_WRONLY | O_TRUNC);
            const std::string piece(40'000, static_cast<char>('a' + n % 2));
            for (int i = 0; i < 100; ++i)
                if (::write(file, piece.data(), piece.size()) < 0) break;
            ::close(file);
        }
        writing = false;
    });
    int readings = 0;
    while (writing) {
        std::string text;
        const safe_file::Outcome outcome = safe_file::read(name, text);
        if (!outcome) {
            EXPECT_EQ(outcome.failed, Failed::changing);
            continue;
        }
        ++readings;
        EXPECT_TRUE(text.empty() || text.find_first_not_of(text.front()) == std::string::npos);
    }
    writer.join();
    RecordProperty("readings", readings);
    EXPECT_EQ(read(name).size(), 4'000'000u);
}

}  // namespace
