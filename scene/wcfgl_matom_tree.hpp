/// The magnetic structure: one phase (lattice letter, propagation vectors, operators) and the list
/// of magnetic atoms, whose moments are Fourier sums over the phase's vectors.
///
/// The phase has operators of its own: magnetic atoms are expanded by the SYMM lines of their block
/// and never by current_space_group. A node keeps Fourier coefficients, not moments; a moment
/// exists only as the value of the sum at one lattice translation.
///
/// Positions are cell fractions, propagation vectors reciprocal lattice units, moments components
/// along unit vectors of a, b and c (their length doesn't depend on the cell's edges), phases
/// turns. Everything that builds display lists needs a current OpenGL context. Failed allocations
/// end the program with their label.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "scene/box_cells.hpp"
#include "scene/display_list.hpp"
#include "scene/node_list.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <array>
#include <complex>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace wcfgl_matom_tree {

// ---- the phase ----------------------------------------------------------------------------------

using OperatorText = FixedText<80>;

/// Magnetic operators: one row for each symmetry operator, one column for each operator set.
struct MsymTable {
    std::size_t columns = 0;
    std::vector<OperatorText> texts;  ///< row by row; each begins with its keyword "MSYM"

    /// Both from 0.
    const OperatorText& at(std::size_t row, std::size_t column) const {
        return texts[row * columns + column];
    }
};

/// The four exist independently; each is absent until a phase is defined and after it is erased.
/// A list that exists may be empty.
extern std::optional<char> current_magnetic_lattice;
extern std::optional<std::vector<Vector3f>> current_k_list;
extern std::optional<std::vector<OperatorText>> current_xsym_list;  ///< "x,y,z", no keyword
extern std::optional<MsymTable> current_msym_list;

/// Replaces all four by copies of what is given. Nothing is parsed. `msym_list` has
/// xsym_list.size() rows of `nmsym` texts, row by row.
void define_magnetic_phase(char lattice, std::span<const Vector3f> k_list,
                           std::span<const OperatorText> xsym_list,
                           std::span<const OperatorText> msym_list, std::size_t nmsym);

void erase_magnetic_phase();

/// Edits of the k list. They touch neither the coefficients of the atoms (a snapshot of the phase
/// at their push) nor any display list: the new vector enters the picture at the next rebuild.
/// Append makes the list when there is none. `index` counts from 1; outside the list, erase and
/// modify change nothing. Erasing leaves the indices of existing moments alone, so that they may
/// then mean another vector or none; the list stays, empty, when its last vector goes.
void append_k_vector(const Vector3f& k);
void erase_k_vector(int index);
void modify_k_vector(int index, const Vector3f& k);

// ---- the atoms ----------------------------------------------------------------------------------

/// Three complex components, along a, b, c.
using ComplexVector = std::array<std::complex<float>, 3>;

/// One Fourier component of an atom's moment, as a "SKP" line gives it.
struct FourierComponent {
    int k_index = 1;     ///< into current_k_list, from 1
    int msym_index = 1;  ///< column of current_msym_list, from 1
    ComplexVector skp{};
    float phase = 0.0f;  ///< turns
    Colour colour{};     ///< of the arrow
};

struct MomentRecord : FourierComponent {
    std::vector<ComplexVector> Skj_eq;  ///< the coefficient at each column of the node's xf_eq
};

struct MatomNode {
    FixedText<10> label;
    FixedText<2> symbol;
    Vector3f xf{};  ///< folded into the first cell
    /// Column (L - 1) nsym + S for lattice point L and operator S, both from 1. Equal positions
    /// stay apart: on a special position the arrows lie on top of each other.
    std::vector<Vector3f> xf_eq;
    std::vector<MomentRecord> moment;
    int nodisplay = 0;
    bool stale = true;
    int group = 0;       ///< non-zero: the components are summed into one arrow
    float scale = 1.0f;  ///< length of the arrow for one unit of moment
    DisplayList dlist;
    std::unique_ptr<MatomNode> next;
};

/// Appends an atom and expands it by the present phase: positions R x + t + T folded into the first
/// cell, coefficients with the operator's matrix, its phase, and the phases of the returning
/// lattice vector and of the centring vector.
///
/// A component whose k_index or msym_index lies outside the phase's lists is dropped; an atom left
/// without components, or pushed while there is no phase, is not added. An operator text that
/// doesn't parse acts by what of it was read.
void push_matom(const FixedText<10>& label, const FixedText<2>& symbol, const Vector3f& xf,
                std::span<const FourierComponent> components, float scale, int nodisplay,
                int group);

/// Removes the atom at the position `index`, from 1; outside the list nothing happens.
void pop_matom(int index);
void empty_matom_list();

/// The calls of the visible atoms' lists are compiled anew when they are next drawn.
void create_main_matom_list();
/// Sets `nodisplay` on all atoms.
void change_matoms_plotting_status(int nodisplay);

/// The first node, or null; the nodes stay the unit's.
const MatomNode* matom_list_head();

// ---- moments and arrows -------------------------------------------------------------------------

/// The real moment of one component at column `p` (from 0) of the node's xf_eq, in the cell at the
/// lattice translation `t`: the real part of S exp(-2 pi i (k.t + phase)). Where k and -k are not
/// equivalent under the lattice, half the sum with the conjugate term, which is the same number up
/// to rounding. Computed wider, rounded once. Zero for a k_index that an erasure left beyond the
/// list.
Vector3f moment_term(const MomentRecord& moment, std::size_t p, const Vector3i& t);

/// One place of an atom inside the box.
struct MomentSite {
    Vector3i translation{};
    Vector3f position{};              ///< fractional
    std::span<const Vector3f> terms;  ///< moment_term of each component
};
/// For the lattice translations that bring a column of xf_eq into the box.
box_cells::Finder finder(const wcfgl_metrix::Box& box);
/// Calls `visit` for each lattice translation that brings column `p` (from 0) of xf_eq into the
/// box, or the part of it that is shown, the third index running fastest. The terms live for the
/// length of the call.
void visit_moments(const MatomNode& node, std::size_t p,
                   const std::function<void(const MomentSite&)>& visit);

/// The Cartesian moment for components along a, b, c; the components themselves without a cell.
Vector3f moment_to_cartesian(const Vector3f& moment);

/// How many arrows would be drawn if `box` were the box.
double objects_in(const wcfgl_metrix::Box& box, shown_box::Count count);
/// Recompiles the node's arrows: one for each position inside the box and component (or sum, with
/// `group`, in the colour of the first component), centred on the atom. A moment of at most 0.0001
/// has none.
void construct_matom_dlist(MatomNode& node);
void update_all_matoms();
/// Once a frame: compiles new atoms, all when the box or the cell has changed (not for the group,
/// which doesn't matter here), then calls the main list.
void draw_matoms();

// ---- text ---------------------------------------------------------------------------------------

/// Appends the magnetic block of a structure file, from "{" to "}", to `out`; a block without atoms
/// still tells lattice, vectors and operators.
void write_magnetic_structure(std::string& out);

/// Appends the table of all moments in the box, term by term, with totals in Cartesian length
/// (of the components as they stand while there is no cell); one line when there are no atoms.
void write_magnetic_moment_list(std::string& out);

}  // namespace wcfgl_matom_tree
