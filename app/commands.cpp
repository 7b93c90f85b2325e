#include "app/commands.hpp"

#include "app/dialog_binding.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "app/text_windows.hpp"
#include "app/write_bitmap.hpp"
#include "common/safe_file.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_quaternion.hpp"
#include "scene/wcfgl_trackball.hpp"
#include "toolkit/tesserakit.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace gemwright {
namespace {

using namespace tesserakit;
using wcfgl_io::FileName;

/// What winfodialog(4) says behind a common dialog: OK, or Yes.
bool agreed() { return winfodialog(4) == 1; }

// ---- files --------------------------------------------------------------------------------------

constexpr std::string_view structure_files = "Gemwright Input File|*.gwr|";
constexpr std::string_view picture_files = "Bitmap file|*.bmp|";
constexpr int for_opening = FileMustExist | FileKeepDirectory | FilePrompting;
constexpr int stored_only = 32;  ///< a bit that the file box takes and makes nothing of
constexpr int for_saving = stored_only | FileKeepDirectory | FilePrompting | FileSaving;

/// What a file box has covered of the picture would stay unpainted behind the message.
void warn(std::string_view file, std::string_view text, std::string_view title) {
    wcfgl_display::display();
    wmessagebox(MessageOk, MessageWarning, 1, std::string(file) + "\n" + std::string(text), title);
}

/// From the root on, where that fits.
FileName absolute_name(const FileName& name) {
    std::error_code error;
    const std::string whole =
        std::filesystem::absolute(std::string(name.trimmed()), error).string();
    return name.blank() || error || whole.size() > FileName::width ? name : FileName(whole);
}

/// The name that the user chooses, the box beginning with the current one. Absent when the box is
/// cancelled, and, with a message, for a name that current_file_name can't hold as it is: it would
/// become that of another file. The box goes to the folder of the chosen name, where a current name
/// from the command line would lead elsewhere: that one is made whole.
std::optional<FileName> ask_for_file(int flags, std::string_view title,
                                     std::string_view filter = structure_files) {
    std::string name(current_file_name.trimmed());
    const FileName current = absolute_name(current_file_name);
    wselectfile2(filter, flags, name, title);
    if (!agreed()) return std::nullopt;
    current_file_name = current;
    const FileName kept{std::string_view(name)};
    if (kept.trimmed() == name) return kept;
    warn(name, "The name is longer than 256 bytes, or ends with a blank.", title);
    return std::nullopt;
}

/// Tells the user why a file could not be saved or read; true when it could.
bool told(const safe_file::Outcome& outcome, std::string_view file,
          const std::string& done = "saved", std::string_view title = "Save") {
    if (!outcome) warn(file, "The file could not be " + done + ".\n" + outcome.reason, title);
    return static_cast<bool>(outcome);
}

bool write_model(const FileName& name) {
    return told(wcfgl_io::write_gwr_file(name, view_quaternion), name.trimmed());
}

/// Looked at before the reader, which makes the group P 1 before anything else: a Save would then
/// put that into the file that is open.
bool can_be_read(const FileName& name, std::string_view title) {
    return told(safe_file::can_be_read(std::string(name.trimmed())), name.trimmed(), "read", title);
}

/// What is open goes without a question, but not for a file that can't be read.
void open_file() {
    const auto name = ask_for_file(for_opening, "Open Gemwright files");
    if (!name || !can_be_read(*name, "Open")) return;
    const FileName former = std::exchange(current_file_name, *name);
    if (told(open_current_file(), name->trimmed(), "read", "Open")) return;
    current_file_name = former;
    set_info_fields();
}

/// The view stays.
void reload_file() {
    constexpr std::string_view title = "Reload";
    if (current_file_name.blank() || !can_be_read(current_file_name, title)) return;
    told(wcfgl_io::read_gwr_file(current_file_name), current_file_name.trimmed(), "read", title);
    set_all_fields();
}

/// A name whose file couldn't be written isn't taken over: a reload would look for that file.
void save_file_as() {
    const auto name = ask_for_file(for_saving, "Save Gemwright files");
    if (!name || !write_model(*name)) return;
    current_file_name = *name;
    set_info_fields();
}

void save_file() {
    if (current_file_name.blank()) return save_file_as();
    write_model(current_file_name);
}

/// The question offers no way back: any answer closes, unless saving fails. The name stays, so that
/// a reload brings the model back, and so do the box, the magnetic lattice with its vectors and
/// operators, and what the dialogs show.
void close_file() {
    if (current_file_name.blank()) return;
    wmessagebox(MessageYesNo, MessageQuestion, 1, "Do you want to save the changes ?", "Save");
    if (agreed() && !write_model(current_file_name)) return;
    wcfgl_metrix::init_box();
    wcfgl_metrix::init_spacegroup();
    wcfgl_atom_tree::empty_atom_list();
    wcfgl_bond_tree::empty_bond_list();
    wcfgl_matom_tree::empty_matom_list();
}

/// Of a picture that couldn't be written the name isn't taken over either.
void export_bitmap() {
    constexpr std::string_view title = "Save as Bitmap";
    const auto name = ask_for_file(for_saving, title, picture_files);
    wcfgl_display::leave_context();
    const std::string reason = name ? write_bitmap(name->trimmed()) : std::string();
    return_to_window();
    if (!name) return;
    if (reason.empty()) return take_picture_name(*name);
    warn(name->trimmed(), "The picture could not be saved.\n" + reason, title);
}

/// Into the working directory; the next listing replaces it.
void list_moments() {
    constexpr const char* file = "temp.dat";
    std::string text;
    wcfgl_matom_tree::write_magnetic_moment_list(text);
    if (told(safe_file::save(file, text), file)) show_moment_list(file);
}

// ---- dialogs ------------------------------------------------------------------------------------

template <int id, int mode = DialogModeless>
void show() {
    const DialogSelection selection(id);
    wdialogshow(dialog_centred, dialog_centred, 0, mode);
}

void put_steps(int page, std::span<const int> spinners, float big_step) {
    const DialogSelection selection(page);
    for (const int spinner : spinners) wdialogspinnerstep2(spinner, 0.1f, big_step);
}

void show_atoms() {
    show<dialog::atoms>();
    put_steps(dialog::atom_look, std::array{field::atom_radius}, 0.5f);
}

void show_bonds() {
    show<dialog::bonds>();
    put_steps(dialog::bond_look, std::array{field::bond_radius}, 0.3f);
}

void show_box() {
    show<dialog::box>();
    put_steps(dialog::box, field::box_limits, 0.5f);
}

// ---- colours ------------------------------------------------------------------------------------

constexpr float colour_step = 1.0f / 256.0f;

int in_steps(float component) {
    if (!(component > 0.0f)) return 0;  // nor is NaN
    return static_cast<int>(std::lround(std::min(component / colour_step, 255.0f)));
}

/// What the chooser returns counts, whichever button ended it; it begins with `colour`, which a
/// Cancel thereby keeps, but for what 256 steps can't tell. A component is so many 256ths, so white
/// comes out a little below 1. Nothing shines through.
Colour chosen_colour(const Colour& colour) {
    int rgb = wrgb(in_steps(colour[0]), in_steps(colour[1]), in_steps(colour[2]));
    wselectcolour1(rgb);
    int red = 0, green = 0, blue = 0;
    wrgbsplit(rgb, &red, &green, &blue);
    return {static_cast<float>(red) * colour_step, static_cast<float>(green) * colour_step,
            static_cast<float>(blue) * colour_step, 1.0f};
}

void choose_background() {
    wcfgl_display::background_colour = chosen_colour(wcfgl_display::background_colour);
}

/// Without a cell the user still chooses, and the colour is dropped.
void choose_cell_colour() {
    auto& cell = wcfgl_metrix::current_cell;
    const Colour colour = chosen_colour(cell ? cell->colour : wcfgl_metrix::Cell().colour);
    if (cell) cell->colour = colour;
}

// ---- what the picture shows ---------------------------------------------------------------------

enum Nodisplay : int { shown = 0, hidden = 1 };

/// Without a cell nothing happens.
void hide_cell() {
    if (wcfgl_metrix::current_cell) wcfgl_metrix::current_cell->nodisplay = hidden;
}

template <int multiple>
void show_cell() {
    if (!wcfgl_metrix::current_cell) return;
    wcfgl_metrix::current_cell->nodisplay = shown;
    wcfgl_metrix::current_cell->multiple = multiple;
}

/// Without axes nothing happens.
template <Nodisplay nodisplay>
void plot_axes() {
    if (wcfgl_metrix::current_axes) wcfgl_metrix::current_axes->nodisplay = nodisplay;
}

template <Nodisplay nodisplay>
void plot_atoms() {
    wcfgl_atom_tree::change_atoms_plotting_status(nodisplay);
    set_atom_field();
}

template <Nodisplay nodisplay>
void plot_hydrogens() {
    wcfgl_atom_tree::change_hatoms_plotting_status(nodisplay);
    set_atom_field();
}

template <Nodisplay nodisplay>
void plot_bonds() {
    wcfgl_bond_tree::change_bonds_plotting_status(nodisplay);
    set_bond_field();
}

template <Nodisplay nodisplay>
void plot_moments() {
    wcfgl_matom_tree::change_matoms_plotting_status(nodisplay);
}

void nothing() {}

void exit_program() { ending = close_text_windows(); }

constexpr struct {
    int item;
    void (*handler)();
} commands[]{
    // clang-format off
    {item::new_file,            nothing},
    {item::new_button,          nothing},
    {item::open,                open_file},
    {item::open_button,         open_file},
    {item::close,               close_file},
    {item::save,                save_file},
    {item::save_button,         save_file},
    {item::save_as,             save_file_as},
    {item::save_as_button,      save_file_as},
    {item::export_bitmap,       export_bitmap},
    {item::exit,                exit_program},
    {item::reload_button,       reload_file},
    {item::edit_button,         edit_current_file},
    {item::space_group,         show<dialog::space_group>},
    {item::cell,                show<dialog::cell>},
    {item::atoms,               show_atoms},
    {item::bonds,               show_bonds},
    {item::polyhedra,           nothing},
    {item::magnetic,            show<dialog::magnetic>},
    {item::magnetic_operators,  show<dialog::magnetic_operators>},
    {item::magnetic_atoms,      nothing},
    {item::list_moments,        list_moments},
    {item::material,            show<dialog::material>},
    {item::lamp,                show<dialog::lamp>},
    {item::box,                 show_box},
    {item::axes,                show<dialog::axes>},
    {item::moment,              show<dialog::moment>},
    {item::about,               show<dialog::about, DialogModal>},
    {item::background_colour,   choose_background},
    {item::cell_colour,         choose_cell_colour},
    {item::hide_cell,           hide_cell},
    {item::show_single_cell,    show_cell<0>},
    {item::show_multiple_cells, show_cell<1>},
    {item::hide_axes,           plot_axes<hidden>},
    {item::show_axes,           plot_axes<shown>},
    {item::hide_atoms,          plot_atoms<hidden>},
    {item::show_atoms,          plot_atoms<shown>},
    {item::hide_hydrogens,      plot_hydrogens<hidden>},
    {item::show_hydrogens,      plot_hydrogens<shown>},
    {item::hide_bonds,          plot_bonds<hidden>},
    {item::show_bonds,          plot_bonds<shown>},
    {item::hide_moments,        plot_moments<hidden>},
    {item::show_moments,        plot_moments<shown>},
    // clang-format on
};

}  // namespace

bool run_command(int item) {
    const auto row =
        std::ranges::find_if(commands, [item](const auto& r) { return r.item == item; });
    if (row == std::end(commands)) return false;
    row->handler();
    return true;
}

safe_file::Outcome open_current_file() {
    const auto outcome = wcfgl_io::read_gwr_file(current_file_name, &view_quaternion);
    set_all_fields();
    wcfgl_trackball::current_rot_matrix = wcfgl_quaternion::quat2mat(view_quaternion);
    return outcome;
}

}  // namespace gemwright
