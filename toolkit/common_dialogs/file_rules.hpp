/// What OK does in a file box: from its flags, the name, and what the file system says of the name.
///
/// Names are bytes, as the file system has them.
#pragma once

#include <string>
#include <string_view>

namespace tesserakit {

/// The bits of wselectfile2's flags.
struct FileFlags {
    bool saving = false;            ///< otherwise loading
    bool prompting = false;         ///< asks before it overwrites or creates
    bool bad_path_allowed = false;  ///< the directory need not exist
    bool keep_directory = false;    ///< the chosen directory becomes the working directory
    bool select_directory = false;  ///< a directory is wanted, never with `saving`
    bool further = false;           ///< stored only
    bool must_exist = false;
};
FileFlags file_flags(int bits);

/// Longest name given back: a longer one would be cut on its way, and be another file's.
inline constexpr std::size_t longest_file_name = 256;

struct SplitName {
    std::string directory;  ///< with its slash; empty for a bare name
    std::string base;
};
/// yysplitp: at the last slash, without the blanks that pad the name.
SplitName yysplitp(std::string_view name);

/// The whole name of what is typed while `directory` (absolute) is shown: "~" is the user's home,
/// "." and ".." are resolved as text. A slash at the end stays.
std::string whole_name(const std::string& typed, const std::string& directory);

/// What the file system says of a whole name.
struct NameState {
    bool exists = false;
    bool is_directory = false;
    bool can_enter = false;         ///< the directory that it is, or that it stands in
    bool directory_exists = false;  ///< that it stands in
};
NameState look_at(const std::string& name);

enum class FileVerdict {
    NewPattern,   ///< lists by another pattern
    Enter,        ///< shows another directory
    CannotEnter,  ///< this and the next ones are told, and the box stays
    NameTooLong,
    EndsInBlank,
    NoPath,
    NotFound,
    AskCreate,  ///< this and the next are asked: Yes ends the box
    AskOverwrite,
    End
};
FileVerdict judge(const FileFlags& flags, const std::string& name, const NameState& state);

/// Whether the verdict is a question, for Yes and No, or a message.
bool asks(FileVerdict verdict);
bool tells(FileVerdict verdict);
/// The text of a question or message about `name`.
std::string text_of(FileVerdict verdict, const std::string& name);

}  // namespace tesserakit
