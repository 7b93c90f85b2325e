/// The structure file: its forgiving reader and its writer of one fixed layout.
///
/// The two are no mirror images. The background colour, the cell's colour and the hiding of a
/// magnetic atom are written but not taken back; generators are read but written only as the symbol
/// of their group; a label of ten characters runs into its symbol. docs/file_format.md tells users
/// about all of it.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"

namespace wcfgl_io {

using FileName = FixedText<256>;

/// How the last write_gwr_file went: 0 and blank, or 1 and the reason. The reader has no status.
extern int err_flag;
extern FixedText<80> err_mess;

/// Reads a file into the model, in place of its atoms, bonds and magnetic structure. The group
/// becomes "P 1" first; cell, axes and box stay where the file doesn't tell them.
///
/// With `quaternion` it becomes the identity and then the view of the file; without one, view lines
/// are passed over. A file that isn't there, can't be read or is no regular file changes nothing
/// but the group. What can't be read in a file costs its line and is reported nowhere.
void read_gwr_file(const FileName& file_name, Quaternion* quaternion = nullptr);

/// Writes the model, with `quaternion` as its view. The old file is replaced as a whole, by a
/// finished new one; it keeps its permissions, and behind a symbolic link the link's target is
/// replaced. A file that this process has open is not written. On failure the old file is whole
/// and err_flag and err_mess are set.
void write_gwr_file(const FileName& file_name, const Quaternion& quaternion);

/// Whether this process holds the file open, under whatever name. An editor that keeps its file's
/// descriptor open while it works on it thereby keeps write_gwr_file away.
bool file_is_open(const FileName& file_name);

}  // namespace wcfgl_io
