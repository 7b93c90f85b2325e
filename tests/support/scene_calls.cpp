#include "tests/support/scene_calls.hpp"

#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace scene_calls {

std::string atom_text;
std::string bond_text;
std::string magnetic_text;
bool cells_refused = false;

namespace {

std::vector<std::string> calls;
bool recording = true;

std::string number(float value) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

std::string list(std::span<const float> values) {
    std::string text = "(";
    for (const float value : values) text += (text.size() > 1 ? "," : "") + number(value);
    return text + ")";
}

std::string colour_text(const std::optional<Colour>& colour) {
    return " colour=" + (colour ? list(*colour) : std::string("none"));
}

std::string fields(std::initializer_list<std::string_view> texts) {
    std::string text;
    for (const std::string_view one : texts) text.append(" ").append(one);
    return text;
}

std::string component_text(const wcfgl_matom_tree::FourierComponent& c) {
    std::string text = " [k=" + std::to_string(c.k_index) + " m=" + std::to_string(c.msym_index);
    for (const std::complex<float>& z : c.skp) text += " " + list(std::array{z.real(), z.imag()});
    return text + " phase=" + number(c.phase) + colour_text(c.colour) + "]";
}

void add(std::string text) { calls.push_back(std::move(text)); }

std::string bond_call(float min_distance, float max_distance, float radius, int nodisplay,
                      const std::optional<Colour>& colour) {
    return fields({number(min_distance), number(max_distance)}) + " r=" + number(radius) +
           " hidden=" + std::to_string(nodisplay) + colour_text(colour);
}

}  // namespace

const std::vector<std::string>& all() { return calls; }

std::vector<std::string> of(const std::vector<std::string>& names) {
    std::vector<std::string> found;
    for (const std::string& call : calls)
        if (std::any_of(names.begin(), names.end(),
                        [&call](const std::string& name) { return call.starts_with(name); }))
            found.push_back(call);
    return found;
}

void clear() { calls.clear(); }
void record(bool on) { recording = on; }

}  // namespace scene_calls

using namespace scene_calls;

namespace wcfgl_metrix {

std::optional<Cell> current_cell;
std::optional<Box> current_box;
std::optional<crystallographic_symmetry::Space_Group_Type> current_space_group;

void define_cell(const Vector3f& cell_length, const Vector3f& cell_angle) {
    if (!recording) return;
    add("define_cell " + list(cell_length.c) + " " + list(cell_angle.c));
    if (cells_refused) return;
    if (!current_cell) current_cell.emplace();
    current_cell->cell_length = cell_length;
    current_cell->cell_angle = cell_angle;
}

void define_box(float xmin, float xmax, float ymin, float ymax, float zmin, float zmax) {
    if (recording) add("define_box " + list(std::array{xmin, xmax, ymin, ymax, zmin, zmax}));
}

void init_box() {
    if (recording) add("init_box");
}

void define_spacegroup(std::string_view symbol,
                       std::optional<std::span<const FixedText<80>>> generators) {
    if (!recording) return;
    std::string text = "define_spacegroup <" + std::string(symbol) + ">";
    if (generators)
        for (const FixedText<80>& generator : *generators)
            text += " <" + std::string(generator.trimmed()) + ">";
    add(text);
}

}  // namespace wcfgl_metrix

namespace wcfgl_display {
Colour background_colour{0.0f, 0.0f, 0.0f, 1.0f};
}

namespace wcfgl_atom_tree {

void push_atom(const NewAtom& added) {
    if (!recording) return;
    add("push_atom" +
        fields({added.label.trimmed(), added.symbol.trimmed(), list(added.xf.c),
                number(added.reserved_value)}) +
        " r=" + number(added.radius) + " hidden=" + std::to_string(added.nodisplay) +
        colour_text(added.colour));
}

void empty_atom_list() {
    if (recording) add("empty_atom_list");
}

void write_atom_list(std::string& out) { out += atom_text; }

}  // namespace wcfgl_atom_tree

namespace wcfgl_bond_tree {

void push_bond_by_label(const FixedText<10>& label1, const FixedText<10>& label2,
                        float min_distance, float max_distance, float radius, int nodisplay,
                        const std::optional<Colour>& colour) {
    if (recording)
        add("push_bond_by_label" + fields({label1.trimmed(), label2.trimmed()}) +
            bond_call(min_distance, max_distance, radius, nodisplay, colour));
}

void push_bond_by_symbol(const FixedText<2>& symbol1, const FixedText<2>& symbol2,
                         float min_distance, float max_distance, float radius, int nodisplay,
                         const std::optional<Colour>& colour) {
    if (recording)
        add("push_bond_by_symbol" + fields({symbol1.trimmed(), symbol2.trimmed()}) +
            bond_call(min_distance, max_distance, radius, nodisplay, colour));
}

void empty_bond_list() {
    if (recording) add("empty_bond_list");
}

void write_bond_list(std::string& out) { out += bond_text; }

}  // namespace wcfgl_bond_tree

namespace wcfgl_matom_tree {

void define_magnetic_phase(char lattice, std::span<const Vector3f> k_list,
                           std::span<const OperatorText> xsym_list,
                           std::span<const OperatorText> msym_list, std::size_t nmsym) {
    if (!recording) return;
    std::string text = std::string("define_magnetic_phase ") + lattice;
    for (const Vector3f& k : k_list) text += " k" + list(k.c);
    for (std::size_t s = 0; s < xsym_list.size(); ++s) {
        text += " " + std::string(xsym_list[s].trimmed()) + ":";
        for (const OperatorText& m : msym_list.subspan(s * nmsym, nmsym))
            text += "<" + std::string(m.trimmed()) + ">";
    }
    add(text);
}

void erase_magnetic_phase() {
    if (recording) add("erase_magnetic_phase");
}

void push_matom(const FixedText<10>& label, const FixedText<2>& symbol, const Vector3f& xf,
                std::span<const FourierComponent> components, float scale, int nodisplay,
                int group) {
    if (!recording) return;
    std::string text = "push_matom" + fields({label.trimmed(), symbol.trimmed(), list(xf.c)}) +
                       " scale=" + number(scale) + " hidden=" + std::to_string(nodisplay) +
                       " group=" + std::to_string(group);
    for (const FourierComponent& component : components) text += component_text(component);
    add(text);
}

void empty_matom_list() {
    if (recording) add("empty_matom_list");
}

void write_magnetic_structure(std::string& out) { out += magnetic_text; }

}  // namespace wcfgl_matom_tree
