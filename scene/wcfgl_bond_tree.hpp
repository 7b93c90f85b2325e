/// The list of bond rules. A rule names two atoms by label or two elements by symbol, with a least
/// and a greatest distance, and owns the bonds found when it was pushed.
///
/// The found pairs are a snapshot: a later change of the atoms, the group or the cell never touches
/// them; only their repetition over the box is redone. Distances and radii are in angstrom.
/// Everything that builds display lists needs a current OpenGL context. Failed allocations end the
/// program with their label.
#pragma once

#include "common/fixed_text.hpp"
#include "common/vec.hpp"
#include "scene/display_list.hpp"
#include "scene/node_list.hpp"
#include "scene/wcfgl_glbond.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wcfgl_bond_tree {

using wcfgl_glbond::Bond;
using wcfgl_glbond::Bonds;

struct BondNode {
    FixedText<10> label1;  ///< by symbol: the symbol and eight blanks
    FixedText<10> label2;
    float min_distance = 0.0f;
    float max_distance = 0.0f;
    int by_symbol = 0;
    int custom_colour = 0;  ///< 1: the rule has a colour; 0: each half takes its atom's
    float radius = 1.0f;    ///< of the stick
    Bonds bond;
    int nodisplay = 0;
    bool stale = true;
    DisplayList dlist;
    std::unique_ptr<BondNode> next;
};

/// Appends a rule and searches its bonds. Where either name matches no atom nothing is added, so
/// that a rule must follow its atoms; a rule that finds no pair is kept.
void push_bond_by_label(const FixedText<10>& label1, const FixedText<10>& label2,
                        float min_distance, float max_distance, float radius, int nodisplay,
                        const std::optional<Colour>& colour = std::nullopt);
void push_bond_by_symbol(const FixedText<2>& symbol1, const FixedText<2>& symbol2,
                         float min_distance, float max_distance, float radius, int nodisplay,
                         const std::optional<Colour>& colour = std::nullopt);

/// Removes the rule at the position `index`, from 1; outside the list nothing happens.
void pop_bond(int index);
void empty_bond_list();

/// How many sticks would be drawn if `box` were the box.
double objects_in(const wcfgl_metrix::Box& box, shown_box::Count count);
/// Recompiles the rule's sticks over the box. A bond with an end beyond the box is left out whole.
void construct_bond_dlist(BondNode& node);
/// Compiles new rules, and all while the box is marked as changed: a change of the cell alone
/// leaves the sticks where they are.
void update_all_bonds();
/// Once a frame.
void draw_bonds();
/// The calls of the visible rules' lists are compiled anew when they are next drawn.
void create_main_bond_dlist();
/// Sets `nodisplay` on all rules.
void change_bonds_plotting_status(int nodisplay);

/// One entry for each rule, "Fe--O", and a last one, "-New bond-".
std::vector<FixedText<22>> generate_bond_label_array();

/// What the dialog shows of a rule; the values here are those for an index outside the list.
struct BondInfo {
    FixedText<10> label1 = "???";
    FixedText<10> label2 = "???";
    float min_distance = 0.0f;
    float max_distance = 2.0f;
    float radius = 1.0f;
    int by_symbol = 1;
    int custom_colour = 1;
    int nodisplay = 0;
    Colour colour{1.0f, 1.0f, 1.0f, 1.0f};  ///< of the first half of the first record
};
/// `index` from 1.
BondInfo get_bond_info(int index);

/// All records, those without a bond included, of all rules whose label1 is exactly `label`, in
/// list order; label2 isn't looked at. True when there is such a rule. With no rules at all `list`
/// is left as it is. The columns still belong to the rules.
bool search_bond_list_by_label(const FixedText<10>& label, std::vector<Bond>& list);

/// Appends a "BOND" or "CONN" line for each rule to `out`, hidden ones included.
void write_bond_list(std::string& out);

}  // namespace wcfgl_bond_tree
