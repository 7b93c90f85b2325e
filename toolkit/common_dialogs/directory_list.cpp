#include "toolkit/common_dialogs/directory_list.hpp"

#include "toolkit/common_dialogs/filters.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

namespace tesserakit {

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

/// The file system mostly tells the type with the name, which spares a look at each file.
bool is_directory(DIR* directory, const dirent& entry) {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat status {};
    return ::fstatat(::dirfd(directory), entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

DirectoryList read_directory(const std::string& directory, std::string_view pattern) {
    DirectoryList list;
    const std::unique_ptr<DIR, CloseDirectory> open(::opendir(directory.c_str()));
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (is_directory(open.get(), *entry)) {
            if (!name.starts_with('.')) list.directories.push_back(name);
        } else if (matches(name, pattern)) {
            list.files.push_back(name);
        }
    }
    std::ranges::sort(list.directories);
    std::ranges::sort(list.files);
    if (directory.find_first_not_of('/') != std::string::npos)
        list.directories.insert(list.directories.begin(), "..");
    return list;
}

}  // namespace tesserakit
