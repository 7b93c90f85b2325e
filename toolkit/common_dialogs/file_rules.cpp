#include "toolkit/common_dialogs/file_rules.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/common_dialogs/filters.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace tesserakit {

namespace {

bool is_directory(const std::string& name) {
    struct stat status {};
    return ::stat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string with_home(const std::string& typed) {
    const bool home = typed == "~" || typed.starts_with("~/");
    const char* directory = home ? std::getenv("HOME") : nullptr;
    return directory ? directory + typed.substr(1) : typed;
}

}  // namespace

FileFlags file_flags(int bits) {
    FileFlags flags;
    flags.saving = (bits & 1) != 0;
    flags.prompting = (bits & 2) != 0;
    flags.bad_path_allowed = (bits & 4) != 0;
    flags.keep_directory = (bits & 8) != 0;
    flags.select_directory = (bits & 16) != 0 && !flags.saving;
    flags.further = (bits & 32) != 0;
    flags.must_exist = (bits & 128) != 0;
    return flags;
}

SplitName yysplitp(std::string_view name) {
    name = without_trailing_blanks(name);
    const std::size_t slash = name.rfind('/');
    const std::size_t base = slash == std::string_view::npos ? 0 : slash + 1;
    return {std::string(name.substr(0, base)), std::string(name.substr(base))};
}

std::string whole_name(const std::string& typed, const std::string& directory) {
    const std::filesystem::path name = std::filesystem::path(directory) / with_home(typed);
    return name.lexically_normal().string();
}

NameState look_at(const std::string& name) {
    NameState state;
    struct stat status {};
    const std::string directory = name.substr(0, name.rfind('/') + 1);
    state.exists = ::stat(name.c_str(), &status) == 0;
    state.is_directory = state.exists && S_ISDIR(status.st_mode);
    state.directory_exists = is_directory(directory);
    const std::string& entered = state.is_directory ? name : directory;
    state.can_enter = ::access(entered.c_str(), R_OK | X_OK) == 0;
    return state;
}

FileVerdict judge(const FileFlags& flags, const std::string& name, const NameState& state) {
    const std::string base = name.substr(name.rfind('/') + 1);
    // A file whose name has a star in it can be chosen from the list.
    if (has_wildcard(base) && !state.exists && state.directory_exists)
        return state.can_enter ? FileVerdict::NewPattern : FileVerdict::CannotEnter;
    if (state.is_directory && !flags.select_directory)
        return state.can_enter ? FileVerdict::Enter : FileVerdict::CannotEnter;
    if (name.size() > longest_file_name) return FileVerdict::NameTooLong;
    if (name.ends_with(' ')) return FileVerdict::EndsInBlank;
    if (!state.directory_exists && !flags.bad_path_allowed) return FileVerdict::NoPath;
    if (flags.select_directory)
        return state.is_directory || (!state.exists && flags.bad_path_allowed)
                   ? FileVerdict::End
                   : FileVerdict::NoPath;
    if (!flags.prompting && !flags.must_exist) return FileVerdict::End;
    if (!flags.saving && !state.exists)
        return flags.must_exist ? FileVerdict::NotFound : FileVerdict::AskCreate;
    if (flags.saving && state.exists) return FileVerdict::AskOverwrite;
    return FileVerdict::End;
}

bool asks(FileVerdict verdict) {
    return verdict == FileVerdict::AskCreate || verdict == FileVerdict::AskOverwrite;
}

bool tells(FileVerdict verdict) {
    return verdict >= FileVerdict::CannotEnter && verdict < FileVerdict::AskCreate;
}

std::string text_of(FileVerdict verdict, const std::string& name) {
    switch (verdict) {
        case FileVerdict::CannotEnter:
            return name + "\nThis directory can't be opened.";
        case FileVerdict::NameTooLong:
            return name + "\nThe name is too long: " + std::to_string(name.size()) + " bytes of " +
                   std::to_string(longest_file_name) + " at most, with its directories.";
        case FileVerdict::EndsInBlank:
            return name + "\nA name can't end in a blank here.";
        case FileVerdict::NoPath:
            return name + "\nPath does not exist.\nPlease verify the correct path was given.";
        case FileVerdict::NotFound:
            return name + "\nFile not found.\n\nPlease verify the correct file name was given.";
        case FileVerdict::AskCreate:
            return name + "\nThis file does not exist.\n\nCreate the file?";
        case FileVerdict::AskOverwrite:
            return name + " already exists.\nDo you want to replace it?";
        default:
            return {};
    }
}

}  // namespace tesserakit
