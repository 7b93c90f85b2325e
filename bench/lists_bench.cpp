/// What the lists of the scene cost, with a silent double of OpenGL: distances tried for a bond,
/// the way from a file to the bonds of its cell (beside gemmi's, where that is installed), moments,
/// spheres, and passes of the continuous reading: one, one of a long file, and many. Times are
/// processor time, so that other programs count little.
///
///     lists_bench
#include "bench/commands.hpp"
#include "common/number_field.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "tests/support/gl_silent.hpp"
#include "tests/support/temp_file.hpp"

#ifdef GEMWRIGHT_BENCH_GEMMI
#include <gemmi/cif.hpp>
#include <gemmi/neighbor.hpp>
#include <gemmi/smcif.hpp>
#endif

#include <ctime>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace {

// ---- time ---------------------------------------------------------------------------------------

double processor_seconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// Seconds of one call, over as many calls as fill a tenth of a second.
template <class Function>
double seconds_of(Function function) {
    const double start = processor_seconds();
    double taken = 0.0;
    int calls = 0;
    do {
        function();
        ++calls;
        taken = processor_seconds() - start;
    } while (taken < 0.1);
    return taken / calls;
}

/// The run that other programs disturbed least.
template <class Function>
double least_seconds_of(Function function) {
    double least = seconds_of(function);
    for (int run = 0; run < 8; ++run) least = std::min(least, seconds_of(function));
    return least;
}

// ---- structures ---------------------------------------------------------------------------------

constexpr float least_bond = 0.5f;
constexpr float greatest_bond = 3.0f;

struct AtomLine {
    const char* symbol;
    Vector3f xf;
};

/// Silicon and oxygen in turn, shaken off the points of a grid of 2.6 angstrom.
struct Structure {
    const char* group;
    Vector3f edges;
    float angle;  ///< beta
    std::vector<AtomLine> atoms;
};

/// A grid of that many atoms each way in the first 1/`parts` of the edges.
Structure shaken_grid(const char* group, const Vector3i& counts, const Vector3i& parts,
                      float angle) {
    constexpr float spacing = 2.6f;
    std::mt19937 random(1);
    std::uniform_real_distribution<float> shake(0.4f, 0.6f);
    const Vector3i steps{counts[0] * parts[0], counts[1] * parts[1], counts[2] * parts[2]};
    Structure result{group, {}, angle, {}};
    for (std::size_t axis = 0; axis < 3; ++axis)
        result.edges[axis] = spacing * static_cast<float>(steps[axis]);
    for (int i = 0; i < counts[0]; ++i)
        for (int j = 0; j < counts[1]; ++j)
            for (int k = 0; k < counts[2]; ++k) {
                const std::array<int, 3> place{i, j, k};
                AtomLine atom{(i + j + k) % 2 == 0 ? "Si" : "O", {}};
                for (std::size_t axis = 0; axis < 3; ++axis)
                    atom.xf[axis] = (static_cast<float>(place[axis]) + shake(random)) /
                                    static_cast<float>(steps[axis]);
                result.atoms.push_back(atom);
            }
    return result;
}

void append(std::string& text, const char* before, float value, int decimals) {
    text += before;
    text += number_field::fixed(static_cast<double>(value), 12, decimals);
}

void append_atoms(std::string& text, const char* before, const Structure& structure) {
    for (const AtomLine& atom : structure.atoms) {
        text += before;
        text += atom.symbol;
        for (const float x : atom.xf) append(text, " ", x, 6);
        text += '\n';
    }
}

std::string structure_file(const Structure& structure, int rules) {
    std::string text = "SPACEG ";
    text += structure.group;
    text += "\nCELL";
    for (const float edge : structure.edges) append(text, " ", edge, 5);
    append(text, " 90.0 ", structure.angle, 3);
    text += " 90.0\nBOX 0 1 0 1 0 1\n";
    append_atoms(text, "ATOM X ", structure);
    constexpr std::array<const char*, 4> pairs{"Si O", "O O", "Si Si", "O Si"};
    for (std::size_t rule = 0; rule < static_cast<std::size_t>(rules); ++rule) {
        text += "CONN ";
        text += pairs[rule];
        append(text, " ", least_bond, 3);
        append(text, " ", greatest_bond, 3);
        text += '\n';
    }
    return text;
}

void read(const std::string& file) { wcfgl_io::read_gwr_file(wcfgl_io::FileName(file)); }

// ---- bonds --------------------------------------------------------------------------------------

struct BondCount {
    std::size_t bonds = 0;
    std::size_t tests = 0;
};

/// The searches of the rules in the list, made again.
BondCount count_bonds() {
    BondCount count;
    const std::size_t rules = wcfgl_bond_tree::generate_bond_label_array().size() - 1;
    for (std::size_t rule = 1; rule <= rules; ++rule) {
        const auto info = wcfgl_bond_tree::get_bond_info(static_cast<int>(rule));
        std::vector<wcfgl_glatom::Atom> list1, list2;
        if (info.by_symbol != 0) {
            wcfgl_atom_tree::search_atom_list_by_symbol(info.label1.trimmed(), list1);
            wcfgl_atom_tree::search_atom_list_by_symbol(info.label2.trimmed(), list2);
        } else {
            wcfgl_atom_tree::search_atom_list_by_label(info.label1, list1);
            wcfgl_atom_tree::search_atom_list_by_label(info.label2, list2);
        }
        const wcfgl_glbond::Bonds bonds = wcfgl_glbond::new_gl_bonds(
            list1, list2, info.min_distance, info.max_distance, info.by_symbol != 0);
        count.tests += bonds.distance_tests();
        for (std::size_t n = 0; n < bonds.filled(); ++n) count.bonds += bonds.filled(n).xf.size();
    }
    return count;
}

void print_tests(const std::string& name) {
    const BondCount count = count_bonds();
    if (count.bonds == 0) return;
    std::printf("  %-24s %7zu bonds %8zu tests %6.2f a bond\n", name.c_str(), count.bonds,
                count.tests, static_cast<double>(count.tests) / static_cast<double>(count.bonds));
}

/// The examples, then grids: orthogonal and strongly monoclinic.
void bench_distance_tests(const TempDirectory& folder) {
    std::printf("distances tried for a bond (goal: at most 10)\n");
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(GEMWRIGHT_EXAMPLES))
        if (entry.path().extension() == ".gwr") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
        read(file.string());
        print_tests(file.filename().string());
    }
    for (const float beta : {90.0f, 125.0f}) {
        for (const int n : {2, 4, 8}) {
            read(folder.file("grid.gwr",
                             structure_file(shaken_grid("P 1", {n, n, n}, {1, 1, 1}, beta), 1)));
            std::printf("  beta %.0f:", static_cast<double>(beta));
            print_tests("grid of " + std::to_string(n * n * n));
        }
    }
}

#ifdef GEMWRIGHT_BENCH_GEMMI

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

std::string cif_file(const Structure& structure) {
    std::string text = "data_x\n_symmetry_space_group_name_H-M '";
    text += structure.group;
    append(text, "'\n_cell_length_a ", structure.edges[0], 5);
    append(text, "\n_cell_length_b ", structure.edges[1], 5);
    append(text, "\n_cell_length_c ", structure.edges[2], 5);
    append(text, "\n_cell_angle_alpha 90\n_cell_angle_beta ", structure.angle, 3);
    text +=
        "\n_cell_angle_gamma 90\nloop_\n_atom_site_label\n_atom_site_type_symbol\n"
        "_atom_site_fract_x\n_atom_site_fract_y\n_atom_site_fract_z\n";
    append_atoms(text, "X ", structure);
    return text;
}

/// From the file to the two ends of each silicon-oxygen bond of one cell.
std::size_t bonds_by_gemmi(const std::string& file) {
    const gemmi::cif::Document document = gemmi::cif::read_file(file);
    gemmi::SmallStructure small = gemmi::make_small_structure_from_block(document.sole_block());
    gemmi::NeighborSearch search(small, static_cast<double>(greatest_bond));
    search.populate();
    std::vector<std::array<gemmi::Position, 2>> bonds;
    for (const gemmi::SmallStructure::Site& site : small.get_all_unit_cell_sites()) {
        if (site.element != gemmi::El::Si) continue;
        const gemmi::Position position = small.cell.orthogonalize(site.fract);
        search.for_each(
            position, '\0', greatest_bond,
            [&](gemmi::NeighborSearch::Mark& mark, float distance_squared) {
                if (mark.element == gemmi::El::O && distance_squared >= least_bond * least_bond)
                    bonds.push_back({position, mark.pos()});
            });
    }
    return bonds.size();
}

void bench_against_gemmi(const TempDirectory& folder, const Vector3i& counts) {
    constexpr int pairs = 7;
    const Structure structure = shaken_grid("P m m m", counts, {2, 2, 2}, 90.0f);
    const std::string ours = folder.file("cell.gwr", structure_file(structure, 1));
    const std::string theirs = folder.file("cell.cif", cif_file(structure));
    read(ours);
    std::printf("file to the bonds of one cell, %zu atoms: %zu bonds, gemmi %zu\n",
                8 * structure.atoms.size(), count_bonds().bonds, bonds_by_gemmi(theirs));
    std::vector<double> ratios;
    for (int pair = 0; pair < pairs; ++pair) {
        const double here = seconds_of([&] { read(ours); });
        const double there = seconds_of([&] { bonds_by_gemmi(theirs); });
        ratios.push_back(here / there);
        std::printf("  %8.3f ms, gemmi %8.3f ms, ratio %.2f\n", 1e3 * here, 1e3 * there,
                    here / there);
    }
    std::printf("  median ratio %.2f\n", median(ratios));
}

void bench_reading(const TempDirectory& folder) {
    bench_against_gemmi(folder, {3, 4, 5});
    bench_against_gemmi(folder, {6, 8, 10});
}

#else

void bench_reading(const TempDirectory&) {
    std::printf("file to bonds: gemmi isn't installed, no comparison\n");
}

#endif

// ---- moments, spheres, passes -------------------------------------------------------------------

void define_box_of(int cells) {
    const float edge = static_cast<float>(cells);
    wcfgl_metrix::define_box(0, edge, 0, edge, 0, edge);
}

void print_moments(const char* what, const Vector3f& k, std::size_t components) {
    using namespace wcfgl_matom_tree;
    const std::vector<OperatorText> xsym{"x,y,z", "-x,-y,-z"};
    const std::vector<OperatorText> msym{"MSYM u,v,w,0.0", "MSYM u,v,w,0.0"};
    define_magnetic_phase('P', {&k, 1}, xsym, msym, 1);
    FourierComponent component;
    component.skp = {{{1.0f, 0.5f}, {2.0f, -1.0f}, {0.25f, 3.0f}}};
    push_matom("Fe1", "Fe", {0.1f, 0.2f, 0.3f},
               std::vector<FourierComponent>(components, component), 1.0f, 0, 0);
    std::size_t moments = 0;
    float sum = 0.0f;
    const double seconds = least_seconds_of([&] {
        moments = 0;
        for (std::size_t p = 0; p < matom_list_head()->xf_eq.size(); ++p)
            visit_moments(*matom_list_head(), p, [&](const MomentSite& site) {
                moments += site.terms.size();
                sum += site.terms[0][0];
            });
    });
    std::printf("  %-34s %6zu moments %6.2f ns a moment%s\n", what, moments,
                1e9 * seconds / static_cast<double>(moments), sum == 1.0f ? " " : "");
    empty_matom_list();
}

void bench_moments() {
    std::printf("moments in a box of 20 cells cubed (goal: at most 20 ns)\n");
    wcfgl_bond_tree::empty_bond_list();
    wcfgl_atom_tree::empty_atom_list();
    wcfgl_metrix::define_cell({5, 6, 7}, {90, 100, 90});
    define_box_of(20);
    print_moments("k = (0.217, 0.1, 0.3)", {0.217f, 0.1f, 0.3f}, 1);
    print_moments("k = (1/2, 0, 1/2)", {0.5f, 0.0f, 0.5f}, 1);
    print_moments("k = (0.217, 0.1, 0.3), 4 components", {0.217f, 0.1f, 0.3f}, 4);
    wcfgl_matom_tree::erase_magnetic_phase();
    define_box_of(1);
}

/// Nanoseconds for each sphere of a rebuild of all atoms.
double bench_spheres(int cells) {
    constexpr std::size_t calls_of_a_sphere = 5;
    constexpr std::size_t calls_of_a_list = 3;
    define_box_of(cells);
    wcfgl_metrix::spacegroup_changed = 0;
    const std::size_t before = gl_silent::calls();
    wcfgl_atom_tree::update_all_atoms();
    const std::size_t spheres = (gl_silent::calls() - before - calls_of_a_list) / calls_of_a_sphere;
    const double nanoseconds =
        1e9 * least_seconds_of(wcfgl_atom_tree::update_all_atoms) / static_cast<double>(spheres);
    std::printf("  %2d cells cubed: %6zu spheres, %.2f ns a sphere\n", cells, spheres, nanoseconds);
    return nanoseconds;
}

void bench_spheres(const TempDirectory& folder) {
    std::printf("spheres of a rebuild (goal: the same within 25 %%)\n");
    read(folder.file("atom.gwr",
                     structure_file(shaken_grid("P m m m", {1, 1, 1}, {2, 2, 2}, 90), 0)));
    const double small = bench_spheres(5);
    const double large = bench_spheres(20);
    std::printf("  20 against 5 cells: %+.0f %%\n", 100.0 * (large / small - 1.0));
    define_box_of(1);
}

/// What the idle loop does at each pass: read, set the dialog's box, draw.
void pass_over(const std::string& file) {
    read(file);
    define_box_of(1);
    wcfgl_display::display();
}

/// Time for each line of files that grow.
void bench_long_files(const TempDirectory& folder) {
    std::printf("a pass over a file of ATOM lines (goal: the same a line within 25 %%)\n");
    for (const int n : {960, 1920, 3840}) {
        std::string text = "SPACEG P 1\nCELL 50 50 50 90 90 90\nBOX 0 1 0 1 0 1\n";
        for (int line = 0; line < n; ++line) text += "ATOM C1 C 0.51 0.52 0.53\n";
        const std::string file = folder.file("long.gwr", text);
        const double seconds = least_seconds_of([&] { pass_over(file); });
        std::printf("  %4d lines: %8.1f us, %.3f us a line\n", n, 1e6 * seconds, 1e6 * seconds / n);
    }
}

/// Nothing may pile up from pass to pass.
void bench_many_passes(const TempDirectory& folder) {
    constexpr int passes = 100'000, part = 1000;
    std::printf("%d passes over one file, the first and the last thousand\n", passes);
    const std::string file =
        folder.file("passes.gwr", structure_file(shaken_grid("P 1", {2, 2, 2}, {1, 1, 1}, 90), 2) +
                                      "{\nK 0 0 0.5\nSYMM x,y,z\nMSYM u,v,w,0\n"
                                      "MATOM Fe1 Fe .5 .5 .5\nSKP 1 1 1 0 0 0 0 0 0\n}\n");
    double start = processor_seconds();
    for (int pass = 0; pass < passes; ++pass) {
        if (pass == passes - part) start = processor_seconds();
        pass_over(file);
        if (pass != part - 1 && pass != passes - 1) continue;
        std::printf("  %6.2f us a pass, %zu names of lists, %ld kB\n",
                    1e6 * (processor_seconds() - start) / part, gl_silent::names(),
                    bench::resident_kilobytes());
    }
}

void bench_passes(const TempDirectory& folder) {
    std::printf("a pass of the continuous reading, 50 atoms and 4 rules (goal: 500 us)\n");
    for (const Structure& structure : {shaken_grid("P 1", {5, 5, 2}, {1, 1, 1}, 90.0f),
                                       shaken_grid("P 21/c", {5, 2, 5}, {1, 4, 1}, 90.0f)}) {
        const std::string file = folder.file("pass.gwr", structure_file(structure, 4));
        const double reading = least_seconds_of([&] { read(file); });
        const double whole = least_seconds_of([&] { pass_over(file); });
        std::printf("  %-8s %6.1f us to read, %6.1f us with the box and the frame\n",
                    structure.group, 1e6 * reading, 1e6 * whole);
    }
}

}  // namespace

int main() {
    wcfgl_display::display_init();
    const TempDirectory folder;
    bench_distance_tests(folder);
    bench_reading(folder);
    bench_moments();
    bench_passes(folder);
    bench_long_files(folder);
    bench_many_passes(folder);
    bench_spheres(folder);
    return 0;
}
