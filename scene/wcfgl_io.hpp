/// The structure file: its forgiving reader and its writer of one fixed layout.
///
/// The two are no mirror images. The background colour, the cell's colour and the hiding of a
/// magnetic atom are written but not taken back. docs/file_format.md tells users about all of it.
#pragma once

#include "common/fixed_text.hpp"
#include "common/safe_file.hpp"
#include "common/vec.hpp"

#include <cstddef>
#include <string_view>

namespace wcfgl_io {

/// A longer name is neither read nor written: cut, it would be that of another file.
inline constexpr std::size_t longest_name = 256;
using FileName = FixedText<longest_name>;

/// How the last write_gwr_file went: 0 and blank, or 1 and what was tried.
extern int err_flag;
extern FixedText<80> err_mess;

/// Reads a file into the model, in place of its atoms, bonds and magnetic structure. The group
/// becomes "P 1" first; cell, axes and box stay where the file doesn't tell them.
///
/// With `quaternion` it becomes the identity and then the view of the file; without one, view lines
/// are passed over. A file that isn't there, can't be read or is no regular file changes nothing
/// but the group; one that another program is writing without a pause changes nothing at all. The
/// outcome holds the reason for the user. What can't be read in a file costs its line and is
/// reported nowhere.
safe_file::Outcome read_gwr_file(std::string_view file_name, Quaternion* quaternion = nullptr);
inline safe_file::Outcome read_gwr_file(const FileName& file_name,
                                        Quaternion* quaternion = nullptr) {
    return read_gwr_file(file_name.trimmed(), quaternion);
}

/// Writes the model, with `quaternion` as its view, as safe_file::save does. A file that this
/// process has open is not written. On failure the old file is whole, err_flag and err_mess are
/// set, and the outcome holds the reason for the user.
safe_file::Outcome write_gwr_file(std::string_view file_name, const Quaternion& quaternion);
inline safe_file::Outcome write_gwr_file(const FileName& file_name, const Quaternion& quaternion) {
    return write_gwr_file(file_name.trimmed(), quaternion);
}

/// Whether this process holds the file open, under whatever name. An editor that keeps its file's
/// descriptor open while it works on it thereby keeps write_gwr_file away.
bool file_is_open(std::string_view file_name);
inline bool file_is_open(const FileName& file_name) { return file_is_open(file_name.trimmed()); }

}  // namespace wcfgl_io
