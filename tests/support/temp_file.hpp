/// A directory for one test's files, removed with all it holds.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

class TempDirectory {
public:
    TempDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "gemwright-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;
    ~TempDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::string name(std::string_view file) const { return (path_ / file).string(); }

    /// Writes a file and returns its whole name.
    std::string file(std::string_view file, std::string_view content) const {
        std::ofstream(name(file), std::ios::binary) << content;
        return name(file);
    }

private:
    std::filesystem::path path_;
};

inline std::string content_of(const std::string& name) {
    std::ifstream in(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
