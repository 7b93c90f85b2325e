/// What stands in a directory, as a file box lists it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tesserakit {

/// Names as bytes, in their order.
struct DirectoryList {
    std::vector<std::string> directories;  ///< ".." first, unless it is the root
    std::vector<std::string> files;        ///< whatever is no directory
};

/// Directories whose names begin with no dot, and files that match. A directory that can't be read
/// has none.
DirectoryList read_directory(const std::string& directory, std::string_view pattern);

}  // namespace tesserakit
