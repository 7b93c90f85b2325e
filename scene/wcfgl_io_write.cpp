// The writer: one fixed layout, and a file that is replaced whole or not at all.

#include "common/list_read.hpp"
#include "common/list_write.hpp"
#include "common/number_field.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_quaternion.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace wcfgl_io {

constinit int err_flag = 0;
constinit FixedText<80> err_mess;

namespace {

// ---- the text -----------------------------------------------------------------------------------

using list_write::append_fixed;

/// A keyword without operands, or as many blanks.
void append_flag(std::string& out, std::string_view keyword, bool set) {
    set ? out.append(keyword) : out.append(keyword.size(), ' ');
}

/// Edges and angles. One that is too small for the decimals stands in exponent form: as 0 it would
/// be no cell.
void append_cell_sizes(std::string& out, const Vector3f& sizes) {
    for (const float size : sizes) {
        const auto value = static_cast<double>(size);
        std::string field = number_field::fixed(value, 10, 4);
        if (size > 0.0f && number_field::to_float(field) == 0.0f)
            field = *number_field::by_format(value, "(E10.4)");
        list_write::append(out, field);
    }
}

void append_cell(std::string& out, const wcfgl_metrix::Cell& cell) {
    out += "CELL ";
    append_cell_sizes(out, cell.cell_length);
    append_cell_sizes(out, cell.cell_angle);
    out += " COLOR";
    append_fixed(out, cell.colour, 7, 3);
    append_flag(out, " MULTIPLE", cell.multiple != 0);
    append_flag(out, " NODISPLAY", cell.nodisplay != 0);
    out += '\n';
}

std::string view_line(const Quaternion& quaternion) {
    wcfgl_quaternion::AngleAxis view = wcfgl_quaternion::rot_from_q(quaternion);
    constexpr float least = 0.0005f;  // less prints as no turn, or as a whole one: no axis is left
    if (view.angle < least || view.angle > 360.0f - least) view = {};
    std::string out = "ROTAX ";
    append_fixed(out, {&view.angle, 1}, 9, 3);
    append_fixed(out, view.axis.c, 9, 5);
    return out + '\n';
}

/// The view as it will be read, so that saving it again writes the same line. An axis of five
/// decimals is not quite of length 1; made so in reading, it can round to another one.
std::string settled_view_line(const Quaternion& quaternion) {
    constexpr int enough = 20;  // two are usual
    std::string line = view_line(quaternion);
    for (int round = 0; round < enough; ++round) {
        std::array<float, 4> v{};
        if (!list_read::Record(std::string_view(line).substr(6)).read(v)) break;
        std::string next = view_line(wcfgl_quaternion::q_from_rot(v[0], {v[1], v[2], v[3]}));
        if (next == line) break;
        line = std::move(next);
    }
    return line;
}

std::string model_text(const Quaternion& quaternion) {
    std::string out = "BKG";
    append_fixed(out, wcfgl_display::background_colour, 7, 3);
    out += '\n';
    if (wcfgl_metrix::current_cell) append_cell(out, *wcfgl_metrix::current_cell);
    if (wcfgl_metrix::current_box) {
        out += "BOX";
        append_fixed(out, *wcfgl_metrix::current_box, 8, 3);
        out += '\n';
    }
    out += settled_view_line(quaternion);
    if (wcfgl_metrix::current_space_group) {
        out += "SPACEG ";
        out += wcfgl_metrix::current_space_group->spg_symb.field();
        out += '\n';
    }
    wcfgl_atom_tree::write_atom_list(out);
    wcfgl_bond_tree::write_bond_list(out);
    wcfgl_matom_tree::write_magnetic_structure(out);
    return out;
}

// ---- the file -----------------------------------------------------------------------------------

/// What the name leads to through symbolic links, whether it exists or not; absent for a ring of
/// links.
std::optional<std::string> link_target(std::string path) {
    for (int links = 0; links < 40; ++links) {
        std::string target(4096, '\0');
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return path;
        target.resize(static_cast<std::size_t>(length));
        const std::size_t slash = path.rfind('/');
        const bool from_here = target.starts_with('/') || slash == std::string::npos;
        path = from_here ? target : path.substr(0, slash + 1) + target;
    }
    return std::nullopt;
}

/// A new file in the directory of `path`, open for writing, or -1; `name` receives its name.
int create_beside(const std::string& path, std::string& name) {
    const std::size_t slash = path.rfind('/');
    const std::string directory = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    for (int attempt = 0; attempt < 100; ++attempt) {
        name =
            directory + ".gemwright-" + std::to_string(::getpid()) + '-' + std::to_string(attempt);
        const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
    return -1;
}

bool write_all(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(descriptor) == 0;
}

enum class Outcome { written, not_opened, not_written };

Outcome replace_file(const std::string& name, std::string_view text) {
    const std::optional<std::string> path = link_target(name);
    if (!path) return Outcome::not_opened;
    struct stat old {};
    const bool exists = ::stat(path->c_str(), &old) == 0;
    // Renaming needs no leave of the old file itself, so a protected one is told apart here.
    if (exists && (!S_ISREG(old.st_mode) || ::faccessat(AT_FDCWD, path->c_str(), W_OK, AT_EACCESS)))
        return Outcome::not_opened;

    std::string beside;
    const int descriptor = create_beside(*path, beside);
    if (descriptor < 0) return Outcome::not_opened;
    // Another owner's file can become ours; it keeps its owner where we may give it away.
    bool good = !exists || ::fchown(descriptor, old.st_uid, old.st_gid) == 0 || errno == EPERM;
    good = good && (!exists || ::fchmod(descriptor, old.st_mode & 07777) == 0);
    good = good && write_all(descriptor, text);
    good = ::close(descriptor) == 0 && good;
    good = good && ::rename(beside.c_str(), path->c_str()) == 0;
    if (!good) ::unlink(beside.c_str());
    return good ? Outcome::written : Outcome::not_written;
}

void set_error(std::string_view message, std::string_view name = {}) {
    err_flag = 1;
    err_mess = std::string_view(std::string(message).append(name));
}

}  // namespace

bool file_is_open(const FileName& file_name) {
    const std::string name(file_name.trimmed());
    struct stat file {};
    if (::stat(name.c_str(), &file) != 0) return false;
    DIR* const descriptors = ::opendir("/proc/self/fd");
    if (descriptors == nullptr) return false;
    bool found = false;
    while (const dirent* entry = ::readdir(descriptors)) {
        const std::optional<int> descriptor = number_field::to_int(entry->d_name);
        struct stat status {};
        if (!descriptor || ::fstat(*descriptor, &status) != 0) continue;
        found = found || (status.st_dev == file.st_dev && status.st_ino == file.st_ino);
    }
    ::closedir(descriptors);
    return found;
}

void write_gwr_file(const FileName& file_name, const Quaternion& quaternion) {
    err_flag = 0;
    err_mess = "";
    if (file_is_open(file_name)) {
        set_error(" The file is being edited! Please close the file before saving!");
        return;
    }
    const std::string name(file_name.trimmed());
    switch (replace_file(name, model_text(quaternion))) {
        case Outcome::written:
            break;
        case Outcome::not_opened:
            set_error(" Error opening the file ", name);
            break;
        case Outcome::not_written:
            set_error(" Error writing the file ", name);
            break;
    }
}

}  // namespace wcfgl_io
