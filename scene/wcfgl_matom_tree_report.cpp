#include "common/number_field.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_matom_tree.hpp"

namespace wcfgl_matom_tree {
namespace {

void append(std::string& out, float value, int width, int decimals) {
    out += number_field::fixed(static_cast<double>(value), width, decimals);
}

void append(std::string& out, const Vector3f& v, int width, int decimals) {
    for (const float value : v) append(out, value, width, decimals);
}

void append(std::string& out, int value, int width) { out += number_field::integer(value, width); }

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
    append(out, component.k_index, 3);
    append(out, component.msym_index, 3);
    for (const std::complex<float>& c : component.skp) append(out, c.real(), 9, 3);
    for (const std::complex<float>& c : component.skp) append(out, c.imag(), 9, 3);
    append(out, component.phase, 9, 3);
    out += " COLOR ";
    for (const float c : component.colour) append(out, c, 6, 3);
    out += '\n';
}

void append_atom(std::string& out, const MatomNode& node) {
    out += "MATOM ";
    out += node.label.field();
    out += node.symbol.field();
    append(out, node.xf, 8, 4);
    out += " SCALE ";
    append(out, node.scale, 5, 2);
    out += node.group ? " GROUP" : "      ";
    out += node.nodisplay ? " NODISPLAY\n" : "          \n";
    for (const MomentRecord& moment : node.moment) append_component(out, moment);
}

/// The lines of one place in the box: its translation, the terms, their sum and its length.
void append_site(std::string& out, const MatomNode& node, const MomentSite& site) {
    std::string translation = "(";
    append(translation, site.translation[0], 4);
    translation += ',';
    append(translation, site.translation[1], 4);
    translation += ',';
    append(translation, site.translation[2], 4);
    translation += ')';
    out.append(30, ' ');
    out += FixedText<80>(translation).field();
    out += '\n';
    Vector3f sum{};
    for (std::size_t m = 0; m < site.terms.size(); ++m) {
        out.append(46, ' ');
        append(out, node.moment[m].k_index, 5);
        append(out, node.moment[m].msym_index, 5);
        append(out, site.terms[m], 9, 3);
        out += '\n';
        sum = sum + site.terms[m];
    }
    out.append(56, ' ').append(36, '-') += '\n';
    out.append(56, ' ');
    append(out, sum, 9, 3);
    append(out, wcfgl_geometry::vect_norm_3d(moment_to_cartesian(sum)), 9, 3);
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
        append(out, node.xf_eq[p], 9, 3);
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
            append(out, k, 8, 4);
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
            append(out, k, 8, 3);
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
