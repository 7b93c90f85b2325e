// Two programs may save into one folder at once, and one of them may die. So a file beside is
// locked by its writer as long as it lives: what nobody holds locked is a leftover. Between the
// creation of a file and its lock another one may take it for a leftover and remove it; whoever
// holds a lock therefore looks whether the name still leads to the locked file, and begins again if
// not.

#include "common/safe_file.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <functional>
#include <optional>
#include <utility>

namespace safe_file {
namespace {

using Failed = Outcome::Failed;

constexpr std::string_view new_suffix = ".gemwright-new";
constexpr std::string_view old_suffix = ".gemwright-old";

/// A descriptor that closes itself.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    explicit operator bool() const { return number_ >= 0; }
    int operator*() const { return number_; }

private:
    int number_ = -1;
};

Descriptor open_file(const std::string& name, int flags, mode_t mode = 0) {
    return Descriptor(::open(name.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode));
}

Outcome failure(Failed failed, int error) { return {failed, std::strerror(error), error}; }
Outcome failure(Failed failed) { return failure(failed, errno); }

// ---- names --------------------------------------------------------------------------------------

/// What the name leads to through symbolic links, whether it exists or not; absent for a ring of
/// links.
std::optional<std::string> link_target(std::string path) {
    constexpr int most_links = 40;
    for (int links = 0; links < most_links; ++links) {
        std::string target(4096, '\0');
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return path;
        target.resize(static_cast<std::size_t>(length));
        path.resize(target.starts_with('/') ? 0 : path.rfind('/') + 1);  // 0 without a slash
        path += target;
    }
    return std::nullopt;
}

/// Ends with a slash, or is empty for the working directory.
std::string folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string beside(const std::string& path, std::string_view suffix) {
    constexpr std::size_t room = 200;  // names end at 255 bytes
    const std::string folder = folder_of(path);
    std::string base = path.substr(folder.size());
    if (base.size() > room) {
        const std::size_t hash = std::hash<std::string>{}(base);
        base = base.substr(0, room) + '~' + std::to_string(hash);
    }
    return (folder + '.' + base).append(suffix);
}

// ---- bytes --------------------------------------------------------------------------------------

bool write_all(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// From the start of an open file, which becomes as long as the text.
bool overwrite(int descriptor, std::string_view text) {
    return ::lseek(descriptor, 0, SEEK_SET) == 0 && write_all(descriptor, text) &&
           ::ftruncate(descriptor, static_cast<off_t>(text.size())) == 0 &&
           ::fsync(descriptor) == 0;
}

bool read_all(int descriptor, std::string& text) {
    constexpr std::size_t block = std::size_t{1} << 16;
    text.clear();
    for (;;) {
        const std::size_t old_size = text.size();
        text.resize(old_size + block);
        const ssize_t got = ::read(descriptor, text.data() + old_size, block);
        text.resize(old_size + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) return true;
        if (got < 0 && errno != EINTR) return false;
        if (text.size() > largest) {
            errno = EFBIG;
            return false;
        }
    }
}

/// A name is on the disk when its folder is. What can't be synchronised was still written.
void sync_folder(const std::string& path) {
    const std::string folder = folder_of(path);
    const Descriptor descriptor = open_file(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (descriptor) ::fsync(*descriptor);
}

// ---- files beside -------------------------------------------------------------------------------

bool is_still(const std::string& name, int descriptor) {
    struct stat by_name {};
    struct stat by_descriptor {};
    return ::lstat(name.c_str(), &by_name) == 0 && ::fstat(descriptor, &by_descriptor) == 0 &&
           by_name.st_dev == by_descriptor.st_dev && by_name.st_ino == by_descriptor.st_ino;
}

/// False when another process holds it. A file system without locks has no other process.
bool lock(int descriptor) {
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// Removes a file of ours that nobody is writing. False, with errno, when it stays: EBUSY when
/// somebody is writing it.
bool clear_leftover(const std::string& name) {
    const Descriptor descriptor = open_file(name, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!descriptor) return errno == ENOENT;
    struct stat status {};
    errno = EPERM;
    if (::fstat(*descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid())
        return false;
    if (!lock(*descriptor)) {
        errno = EBUSY;
        return false;
    }
    return !is_still(name, *descriptor) || ::unlink(name.c_str()) == 0;
}

/// New and locked; none, with errno, when it can't be: EBUSY when another process is saving the
/// same file.
Descriptor create_locked(const std::string& name, mode_t mode) {
    constexpr int most_attempts = 10;
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        Descriptor created = open_file(name, O_WRONLY | O_CREAT | O_EXCL, mode);
        if (created) {
            if (lock(*created) && is_still(name, *created)) return created;
        } else if (errno != EEXIST || !clear_leftover(name)) {
            return {};
        }
    }
    errno = EBUSY;
    return {};
}

/// What savings that were killed have left in the folder of `path`, of whatever file.
void clear_leftovers(const std::string& path) {
    const std::string folder = folder_of(path);
    DIR* const entries = ::opendir(folder.empty() ? "." : folder.c_str());
    if (entries == nullptr) return;
    while (const dirent* entry = ::readdir(entries)) {
        const std::string_view name = entry->d_name;
        if (name.starts_with('.') && name.ends_with(new_suffix))
            clear_leftover(folder + std::string(name));
    }
    ::closedir(entries);
}

// ---- saving -------------------------------------------------------------------------------------

/// An access list or an attribute of the user, which a new file would not have.
bool has_attributes(const std::string& path) {
    const ssize_t size = ::listxattr(path.c_str(), nullptr, 0);
    if (size <= 0) return false;
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::listxattr(path.c_str(), names.data(), names.size());
    if (got <= 0) return true;
    names.resize(static_cast<std::size_t>(got));
    for (std::string_view rest = names; !rest.empty();) {
        const std::size_t end = rest.find('\0');
        const std::string_view name = rest.substr(0, end);
        if (name.starts_with("user.") || name.starts_with("system.posix_acl")) return true;
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return false;
}

/// Reasons that concern the folder or a new file in it, and not the old file.
bool forbids_new_file(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == ENAMETOOLONG;
}

/// By a new file beside. Absent when this is no way for this file; nothing has changed then.
std::optional<Outcome> save_beside(const std::string& path, const struct stat* old,
                                   std::string_view text) {
    if (old != nullptr && (old->st_nlink != 1 || has_attributes(path))) return std::nullopt;
    const std::string name = beside(path, new_suffix);
    // Until it is whole, a text that others may not read must not be theirs to read.
    const Descriptor created = create_locked(name, old != nullptr ? 0600 : 0666);
    if (!created) {
        if (errno == EBUSY) return Outcome{Failed::opening, "Another program is saving this file"};
        if (old != nullptr && forbids_new_file(errno)) return std::nullopt;
        return failure(Failed::opening);
    }
    std::optional<Outcome> outcome = Outcome{};
    if (old != nullptr && (::fchown(*created, old->st_uid, old->st_gid) != 0 ||
                           ::fchmod(*created, old->st_mode & 07777) != 0)) {
        outcome.reset();
    } else if (!write_all(*created, text) || ::fsync(*created) != 0) {
        outcome = failure(Failed::writing);
    } else if (::rename(name.c_str(), path.c_str()) != 0) {
        outcome = failure(Failed::writing);
        if (old != nullptr && forbids_new_file(errno)) outcome.reset();
    } else {
        sync_folder(path);
        return outcome;
    }
    ::unlink(name.c_str());
    return outcome;
}

/// A copy of an old text: beside its file or, where that can't be, in the folder for temporary
/// files. Empty, with errno, when it can be in neither.
std::string keep_copy(const std::string& path, std::string_view text) {
    std::string name = beside(path, old_suffix);
    Descriptor copy = open_file(name, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (!copy) {
        std::error_code none;
        name = (std::filesystem::temp_directory_path(none) / "gemwright-old-XXXXXX").string();
        copy = Descriptor(::mkostemp(name.data(), O_CLOEXEC));
    }
    if (!copy) return {};
    if (overwrite(*copy, text)) {
        sync_folder(name);
        return name;
    }
    const int error = errno;
    ::unlink(name.c_str());
    errno = error;
    return {};
}

/// Over the old text. A copy beside that a killed saving has left stays what it is, the last whole
/// text, until the file is whole again: what stands in the file may be half of one.
Outcome save_in_place(const std::string& path, std::string_view text) {
    const Descriptor file = open_file(path, O_RDWR);
    std::string old_text;
    if (!file || !read_all(*file, old_text)) return failure(Failed::opening);
    std::string copy = beside(path, old_suffix);
    struct stat left {};
    const bool from_before = ::lstat(copy.c_str(), &left) == 0 && left.st_uid == ::geteuid();
    if (!from_before) copy = keep_copy(path, old_text);
    if (copy.empty()) return failure(Failed::writing);

    Outcome outcome;
    if (!overwrite(*file, text)) {
        outcome = failure(Failed::writing);
        if (!overwrite(*file, old_text)) {
            outcome.reason += "; the old text is kept in " + copy;
            return outcome;
        }
        if (from_before) return outcome;
    }
    ::unlink(copy.c_str());
    return outcome;
}

// ---- reading ------------------------------------------------------------------------------------

/// The state of a file, as far as the system tells it.
struct State {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec modified{};

    explicit State(const struct stat& status)
        : device(status.st_dev),
          inode(status.st_ino),
          size(status.st_size),
          modified(status.st_mtim) {}
    bool operator==(const State& other) const {
        return device == other.device && inode == other.inode && size == other.size &&
               modified.tv_sec == other.modified.tv_sec &&
               modified.tv_nsec == other.modified.tv_nsec;
    }
};

/// The system's clock for files moves in steps, of 10 ms at most: a second change within the step
/// of the first leaves no trace.
bool may_hide_a_change(const timespec& modified) {
    constexpr long step = 10'000'000;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const auto seconds = now.tv_sec - modified.tv_sec;
    if (seconds > 1 || seconds < 0) return false;
    return seconds * 1'000'000'000L + (now.tv_nsec - modified.tv_nsec) < 2 * step;
}

/// Opens a regular file that isn't too large.
Outcome open_to_read(const std::string& name, Descriptor& file, struct stat& status) {
    // Opening a pipe must not wait for its writer.
    file = open_file(name, O_RDONLY | O_NONBLOCK);
    if (!file || ::fstat(*file, &status) != 0) return failure(Failed::opening);
    if (!S_ISREG(status.st_mode)) return {Failed::opening, "Not a regular file"};
    if (status.st_size > static_cast<off_t>(largest)) return failure(Failed::reading, EFBIG);
    return {};
}

}  // namespace

Outcome save(const std::string& name, std::string_view text) {
    const std::optional<std::string> path = link_target(name);
    if (!path) return failure(Failed::opening, ELOOP);
    struct stat status {};
    const bool exists = ::stat(path->c_str(), &status) == 0;
    if (!exists && errno != ENOENT) return failure(Failed::opening);
    if (exists && S_ISDIR(status.st_mode)) return failure(Failed::opening, EISDIR);
    if (exists && !S_ISREG(status.st_mode)) return {Failed::opening, "Not a regular file"};
    // Renaming needs no leave of the old file itself, so a protected one is told apart here.
    if (exists && ::faccessat(AT_FDCWD, path->c_str(), W_OK, AT_EACCESS) != 0)
        return failure(Failed::opening);

    clear_leftovers(*path);
    const std::optional<Outcome> by_rename = save_beside(*path, exists ? &status : nullptr, text);
    Outcome outcome = by_rename ? *by_rename : save_in_place(*path, text);
    if (outcome) ::unlink(beside(*path, old_suffix).c_str());
    return outcome;
}

Outcome read(const std::string& name, std::string& text) {
    constexpr int most_passes = 5;
    std::string before;
    bool compare = false;
    for (int pass = 0; pass < most_passes; ++pass) {
        Descriptor file;
        struct stat status {};
        if (Outcome opened = open_to_read(name, file, status); !opened) return opened;
        const State at_start(status);
        if (!read_all(*file, text)) return failure(Failed::reading);
        struct stat named {};
        const bool unchanged = ::fstat(*file, &status) == 0 && State(status) == at_start &&
                               ::stat(name.c_str(), &named) == 0 && State(named) == at_start;
        if (unchanged && !may_hide_a_change(status.st_mtim)) return {};
        // Of a file so fresh two readings in a row must agree.
        if (unchanged && compare && text == before) return {};
        compare = unchanged;
        before.swap(text);
    }
    return {Failed::changing, "The file is being written"};
}

Outcome can_be_read(const std::string& name) {
    Descriptor file;
    struct stat status {};
    return open_to_read(name, file, status);
}

}  // namespace safe_file
