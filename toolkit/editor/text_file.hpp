/// The editor's file: reading, saving, whether another program has changed it, and what the user is
/// told when something fails. No X here.
#pragma once

#include "toolkit/editor/byte_marks.hpp"

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tesserakit {

/// A longer file isn't read, in bytes: the text widget takes several times as much memory.
inline constexpr std::size_t largest_text_file = std::size_t{32} << 20;

/// What a message box tells of a failure: the file's name and what is wrong with it.
struct FileTrouble {
    std::string title;
    std::string text;
};

/// A text of this name takes more memory than there is.
FileTrouble too_large(const std::string& name);

/// Which state of a file was read or written, as far as the system tells it. Absent: no file.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    std::int64_t modified = 0;  ///< nanoseconds
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
std::optional<FileStamp> stamp_of(const std::string& name);

enum class FileChange { Nothing, Changed, Gone, Appeared };
/// What has happened to a file since its stamp was taken.
FileChange change_since(const std::string& name, const std::optional<FileStamp>& stamp);

struct LoadedFile {
    std::string text;  ///< as the widget shows it
    ByteMarks marks;
    std::optional<FileStamp> stamp;
};
/// `loaded` is empty after a failure.
std::optional<FileTrouble> load_text_file(const std::string& name, LoadedFile& loaded);

/// Saves the file's bytes (ByteMarks::bytes). On failure the old file is whole. With `backup` the
/// old file is copied to NAME.bak before; where that fails nothing is saved.
std::optional<FileTrouble> save_text_file(const std::string& name, std::string_view bytes,
                                          bool backup);

}  // namespace tesserakit
