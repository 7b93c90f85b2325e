#include "common/list_write.hpp"
#include "common/number_field.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_matom_tree.hpp"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace wcfgl_matom_tree {
namespace {

using list_write::append_fixed;

void append_integer(std::string& out, int value, int width) {
    list_write::append(out, number_field::integer(value, width));
}

void append_operators(std::string& out) {
    for (std::size_t s = 0; s < current_xsym_list->size(); ++s) {
        out += "SYMM ";
        out += (*current_xsym_list)[s].field();
        out += '\n';
        for (std::size_t j = 0; j < current_msym_list->columns; ++j) {
            out += current_msym_list->at(s, j).field();
            out += '\n';
        }
    }
}

void append_component(std::string& out, const FourierComponent& component) {
    out += "SKP ";
    append_integer(out, component.k_index, 3);
    append_integer(out, component.msym_index, 3);
    const auto& [a, b, c] = component.skp;
    append_fixed(
        out,
        std::array{a.real(), b.real(), c.real(), a.imag(), b.imag(), c.imag(), component.phase}, 9,
        3);
    out += " COLOR ";
    append_fixed(out, component.colour, 6, 3);
    out += '\n';
}

/// A K before a blank is a propagation vector to the reader; before an apostrophe it is none.
template <std::size_t N>
void append_name(std::string& out, const FixedText<N>& name) {
    const std::string_view text = name.trimmed();
    if (text.ends_with('K') || text.ends_with('k'))
        list_write::append_quoted(out, text, N);
    else
        list_write::append_text(out, name);
}

void append_atom(std::string& out, const MatomNode& node) {
    out += "MATOM ";
    append_name(out, node.label);
    append_name(out, node.symbol);
    append_fixed(out, node.xf.c, 8, 4);
    out += " SCALE ";
    append_fixed(out, {&node.scale, 1}, 5, 2);
    out += node.group ? " GROUP" : "      ";
    out += node.nodisplay ? " NODISPLAY\n" : "          \n";
    for (const MomentRecord& moment : node.moment) append_component(out, moment);
}

/// The lines of one place in the box: its translation, the terms, their sum and its length.
void append_site(std::string& out, const MatomNode& node, const MomentSite& site) {
    std::string translation = "(";
    translation += number_field::integer(site.translation[0], 4);
    translation += ',';
    translation += number_field::integer(site.translation[1], 4);
    translation += ',';
    translation += number_field::integer(site.translation[2], 4);
    translation += ')';
    out.append(30, ' ');
    out += FixedText<80>(translation).field();
    out += '\n';
    Vector3f sum{};
    for (std::size_t m = 0; m < site.terms.size(); ++m) {
        out.append(46, ' ');
        append_integer(out, node.moment[m].k_index, 5);
        append_integer(out, node.moment[m].msym_index, 5);
        append_fixed(out, site.terms[m].c, 9, 3);
        out += '\n';
        sum = sum + site.terms[m];
    }
    out.append(56, ' ').append(36, '-') += '\n';
    out.append(56, ' ');
    const float total = wcfgl_geometry::vect_norm_3d(moment_to_cartesian(sum));
    append_fixed(out, std::array{sum[0], sum[1], sum[2], total}, 9, 3);
    out += '\n';
}

void append_moments(std::string& out, const MatomNode& node) {
    out += "Atom : ";
    out += node.label.field();
    out += node.symbol.field();
    out += '\n';
    out.append(84, '-') += '\n';
    out +=
        "        x        y        z        Translation    k MSYM     m(a)     m(b)     m(c)     "
        "Mtot\n";
    for (std::size_t p = 0; p < node.xf_eq.size(); ++p) {
        append_fixed(out, node.xf_eq[p].c, 9, 3);
        out += '\n';
        visit_moments(node, p, [&](const MomentSite& site) { append_site(out, node, site); });
    }
}

}  // namespace

void write_magnetic_structure(std::string& out) {
    out += "{\n";
    if (current_magnetic_lattice) (out += "LATTICE ") += {*current_magnetic_lattice, '\n'};
    if (current_k_list)
        for (const Vector3f& k : *current_k_list) {
            out += "K ";
            append_fixed(out, k.c, 8, 4);
            out += '\n';
        }
    if (current_xsym_list && current_msym_list) append_operators(out);
    for (const MatomNode* node = matom_list_head(); node; node = node->next.get())
        append_atom(out, *node);
    out += "}\n";
}

void write_magnetic_moment_list(std::string& out) {
    const MatomNode* const head = matom_list_head();
    if (!head) {
        out += "No moments found\n";
        return;
    }
    if (current_magnetic_lattice)
        (out += " Magnetic lattice type : ") += {*current_magnetic_lattice, '\n'};
    out += " \n";
    if (current_k_list) {
        out += " Magnetic k-vectors :\n";
        for (const Vector3f& k : *current_k_list) {
            append_fixed(out, k.c, 8, 3);
            out += '\n';
        }
    }
    out += " \n";
    if (current_xsym_list && current_msym_list) {
        out += " Symmetry operations :\n";
        append_operators(out);
    }
    out += " \n";
    for (const MatomNode* node = head; node; node = node->next.get()) append_moments(out, *node);
}

}  // namespace wcfgl_matom_tree
