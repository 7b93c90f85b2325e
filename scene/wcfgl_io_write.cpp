// The writer: one fixed layout.

#include "common/list_read.hpp"
#include "common/list_write.hpp"
#include "common/number_field.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "crystal/group_symbol.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_quaternion.hpp"

#include <dirent.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace wcfgl_io {

constinit int err_flag = 0;
constinit FixedText<80> err_mess;

namespace {

using crystallographic_symmetry::Space_Group_Type;

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
    // A turn that prints as a whole one is none, and its axis may point either way.
    if (view.angle > 359.9995f) view = {};
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

/// By the symbol that people know it by, or its Hall symbol, or else by generators.
void append_group(std::string& out, const Space_Group_Type& group) {
    const std::string symbol = group_symbol::shown(group);
    if (!symbol.empty()) {
        out += "SPACEG ";
        out += FixedText<20>(symbol).field();
        out += '\n';
        return;
    }
    for (const std::string& triplet : group_symbol::generators(group))
        out.append("GENR ").append(triplet) += '\n';
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
    if (wcfgl_metrix::current_space_group) append_group(out, *wcfgl_metrix::current_space_group);
    wcfgl_atom_tree::write_atom_list(out);
    wcfgl_bond_tree::write_bond_list(out);
    wcfgl_matom_tree::write_magnetic_structure(out);
    return out;
}

void set_error(std::string_view message, std::string_view name = {}) {
    err_flag = 1;
    err_mess = std::string_view(std::string(message).append(name));
}

}  // namespace

bool file_is_open(std::string_view file_name) {
    const std::string name(file_name);
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

safe_file::Outcome write_gwr_file(std::string_view file_name, const Quaternion& quaternion) {
    using Failed = safe_file::Outcome::Failed;
    err_flag = 0;
    err_mess = "";
    safe_file::Outcome outcome;
    if (file_name.size() > longest_name) {
        outcome = {Failed::opening, std::strerror(ENAMETOOLONG)};
    } else if (file_is_open(file_name)) {
        set_error(" The file is being edited! Please close the file before saving!");
        return {Failed::opening, "The file is being edited"};
    } else {
        outcome = safe_file::save(std::string(file_name), model_text(quaternion));
    }
    if (outcome.failed == Failed::opening) set_error(" Error opening the file ", file_name);
    if (outcome.failed == Failed::writing) set_error(" Error writing the file ", file_name);
    return outcome;
}

}  // namespace wcfgl_io
