/// Whole files: read in one piece, and saved so that at every moment, also after a kill or with a
/// full disk, there is either the old text or the new one.
///
/// A saving writes a new file beside the old one (".NAME.gemwright-new") and renames it over it.
/// Where that would lose something (another owner's or group's file that we can't give back, a hard
/// link, an access list) or isn't allowed (the folder can't be written), the old file is written in
/// place, while a copy of the old text stands beside it (".NAME.gemwright-old"), or in the folder
/// for temporary files. What a killed saving has left beside is cleared by the next one in that
/// folder; the copy of an old text only once its own file is whole again.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace safe_file {

/// How it went. `reason` is one sentence for the user, without the name of the file, as the system
/// words it ("No space left on device"); empty when all is well. `error` is its errno, 0 where the
/// reason isn't the system's.
struct Outcome {
    enum class Failed { nothing, opening, reading, changing, writing };
    Failed failed = Failed::nothing;
    std::string reason;
    int error = 0;

    explicit operator bool() const { return failed == Failed::nothing; }
};

/// Names are taken as they are, bytes and blanks. Symbolic links are followed, also to a file that
/// isn't there yet. An old file keeps owner, group, permissions, access list and links; a new one
/// has the user's default permissions. On failure the old text is whole, in the file itself, or, if
/// not even that could be written back, where `reason` says.
Outcome save(const std::string& name, std::string_view text);

/// A file larger than this isn't read.
inline constexpr std::size_t largest = std::size_t{256} << 20;

/// The text of a regular file. A file that changes meanwhile is read again, a few times at most,
/// and given up then (`changing`): `text` is never a mixture of two states. A pause in the writing
/// of another program can't be told from its end, though. On failure `text` is unspecified. Never
/// waits for a pipe.
Outcome read(const std::string& name, std::string& text);

/// What `read` would say without a look at the text: whether the file is there, regular, small
/// enough, and may be read.
Outcome can_be_read(const std::string& name);

}  // namespace safe_file
