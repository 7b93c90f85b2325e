/// The list of atoms, each with a display list of all its copies in the box.
///
/// Positions in the list are 1-based. The building of lists needs a current context.
#pragma once

#include "scene/display_list.hpp"
#include "scene/node_list.hpp"
#include "scene/wcfgl_glatom.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wcfgl_atom_tree {

using wcfgl_glatom::Atom;

struct AtomNode {
    Atom atom;
    unsigned group_number = 0;  ///< wcfgl_metrix::spacegroup_number of the positions in `atom`
    int nodisplay = 0;
    bool stale = true;
    DisplayList dlist;
    std::unique_ptr<AtomNode> next;
};

struct NewAtom {
    FixedText<10> label;
    FixedText<2> symbol;
    Vector3f xf{};                 ///< folded into the first cell
    float reserved_value = 0.5f;   ///< what all atoms have; used by nothing
    float radius = 1.0f;           ///< factor on the unit sphere
    int nodisplay = 0;             ///< not 0: hidden
    std::optional<Colour> colour;  ///< absent: the element's, and not written to files
};

/// Appends an atom. Makes the group "P 1" if there is none.
void push_atom(const NewAtom& added);

/// An index outside the list changes nothing.
void pop_atom(int index);
void empty_atom_list();

/// What modify_atom is to change; absent fields stay.
struct AtomChange {
    std::optional<FixedText<10>> label;
    std::optional<FixedText<2>> symbol;
    std::optional<Vector3f> xf;  ///< stored as it stands, not folded
    std::optional<float> radius;
    std::optional<int> nodisplay;
    std::optional<Colour> colour;
    bool use_default_colour = false;  ///< takes the element's colour, after `colour`
};

/// An index outside the list changes nothing. Bonds keep what they copied of the atom.
void modify_atom(int index, const AtomChange& change);

/// The atoms whose whole field equals the argument, case included, as copies in list order. True
/// when there is one. On an empty list `atomlist` is left as it is.
bool search_atom_list_by_label(const FixedText<10>& label, std::vector<Atom>& atomlist);
bool search_atom_list_by_symbol(const FixedText<2>& symbol, std::vector<Atom>& atomlist);

/// Sets `nodisplay` on all atoms, or on those with the symbol "H " or "D ".
void change_atoms_plotting_status(int nodisplay);
void change_hatoms_plotting_status(int nodisplay);

/// The main list, a call for each visible atom in order, is compiled anew when it is next called.
void create_main_atom_list();

/// How many spheres would be drawn if `box` were the box.
double objects_in(const wcfgl_metrix::Box& box, shown_box::Count count);

/// Compiles the node's copies in the box, after finding its equivalent positions again where they
/// are those of an earlier group.
void construct_atom_dlist(AtomNode& node);
void update_all_atoms();

/// A part of a frame: compiles new and changed atoms, all if box, cell or group have changed, and
/// calls the main list.
void draw_atoms();

/// "label symbol" of each atom, and a last entry "-New atom-   ".
std::vector<FixedText<13>> generate_atom_label_array();

struct AtomInfo {
    FixedText<10> label = "???";
    FixedText<2> symbol = "??";
    Vector3f xf{};
    float reserved_value = 0.0f;
    float radius = 1.0f;
    int nodisplay = 0;
    Colour colour{};
    int multiplicity = 0;
    int default_colour = 1;
};

/// The start values above for an index outside the list, as for the entry of a new atom.
AtomInfo get_atom_info(int index);

/// Appends an "ATOM" line for each atom to `out`, hidden ones included.
void write_atom_list(std::string& out);

}  // namespace wcfgl_atom_tree
