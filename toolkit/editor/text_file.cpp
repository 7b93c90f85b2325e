#include "toolkit/editor/text_file.hpp"

#include "common/safe_file.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace tesserakit {

namespace {

using Failed = safe_file::Outcome::Failed;

constexpr const char* open_error = "Open Error";
constexpr const char* allocation_error = "Allocation Error";
constexpr const char* read_error = "Read Error";
constexpr const char* write_error = "Write Error";

/// `reason`: the system's, behind the rest; may be empty.
FileTrouble trouble(const char* title, const std::string& name, std::string_view what,
                    std::string_view reason = {}) {
    std::string text = name;
    text.append("\n").append(what);
    if (!reason.empty()) text.append("\n").append(reason);
    return {title, std::move(text)};
}

/// Whether the bytes, the text and the widget's copies of it find room. Where the system promises
/// more memory than it has this says yes to everything; a limit of the process is seen.
bool has_room_for(std::size_t size) {
    constexpr std::size_t bytes_each = 16;
    const std::unique_ptr<void, decltype(&std::free)> room(std::malloc(size * bytes_each + 1),
                                                           &std::free);
    return room != nullptr;
}

FileStamp stamp_from(const struct stat& status) {
    constexpr std::int64_t second = 1'000'000'000;
    return {status.st_dev, status.st_ino, status.st_size,
            status.st_mtim.tv_sec * second + status.st_mtim.tv_nsec};
}

}  // namespace

FileTrouble too_large(const std::string& name) {
    return trouble(allocation_error, name, "File too large - not enough memory.");
}

std::optional<FileStamp> stamp_of(const std::string& name) {
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) return std::nullopt;
    return stamp_from(status);
}

FileChange change_since(const std::string& name, const std::optional<FileStamp>& stamp) {
    const std::optional<FileStamp> now = stamp_of(name);
    if (now == stamp) return FileChange::Nothing;
    if (!now) return FileChange::Gone;
    return stamp ? FileChange::Changed : FileChange::Appeared;
}

std::optional<FileTrouble> load_text_file(const std::string& name, LoadedFile& loaded) {
    loaded = {};
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) {
        if (errno != ENOENT && errno != ENOTDIR)
            return trouble(open_error, name, "Could not open file.", std::strerror(errno));
        return trouble(open_error, name,
                       "File not found.\nPlease verify the correct file name was given");
    }
    if (!S_ISREG(status.st_mode))
        return trouble(open_error, name, "File is not of a regular type.");
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > largest_text_file || !has_room_for(size)) return too_large(name);

    std::string bytes;
    const safe_file::Outcome outcome = safe_file::read(name, bytes);
    if (outcome.failed == Failed::opening)
        return trouble(open_error, name, "Could not open file.", outcome.reason);
    if (!outcome) return trouble(read_error, name, "Failed to read entire file.", outcome.reason);
    if (bytes.size() > largest_text_file) return too_large(name);
    // The stamp is older than the bytes, never younger: a change between the two is told later.
    loaded.stamp = stamp_from(status);
    loaded.text = loaded.marks.take(std::move(bytes));
    return std::nullopt;
}

std::optional<FileTrouble> save_text_file(const std::string& name, std::string_view bytes,
                                          bool backup) {
    if (backup && stamp_of(name)) {
        std::string old;
        safe_file::Outcome kept = safe_file::read(name, old);
        if (kept) kept = safe_file::save(name + ".bak", old);
        if (!kept)
            return trouble(write_error, name, "Could not make a backup of the file.", kept.reason);
    }
    const safe_file::Outcome outcome = safe_file::save(name, bytes);
    if (outcome) return std::nullopt;
    if (outcome.failed == Failed::opening)
        return trouble(open_error, name, "Could not open file to write.", outcome.reason);
    return trouble(write_error, name, "Failed to write entire file.", outcome.reason);
}

}  // namespace tesserakit
