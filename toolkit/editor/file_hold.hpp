/// A file that is kept open while its text is being edited: the sign to the rest of the program
/// that it is in use. No X here.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace tesserakit {

class FileHold {
public:
    FileHold() = default;
    /// A file that can't be opened has its path all the same. Never waits for a pipe.
    explicit FileHold(const std::string& name) {
        std::error_code gone;
        path_ = std::filesystem::absolute(name, gone).string();
        if (gone) path_ = name;
        descriptor_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    }
    FileHold(FileHold&& other) noexcept { *this = std::move(other); }
    FileHold& operator=(FileHold&& other) noexcept {
        std::swap(path_, other.path_);
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~FileHold() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    /// From the root directory on: the working directory changes under a program. Empty: no file.
    const std::string& path() const { return path_; }

private:
    std::string path_;
    int descriptor_ = -1;
};

}  // namespace tesserakit
