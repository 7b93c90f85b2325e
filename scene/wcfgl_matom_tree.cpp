#include "scene/wcfgl_matom_tree.hpp"

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/math_gen.hpp"
#include "scene/box_cells.hpp"
#include "scene/shown_box.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"

#include <cmath>
#include <span>

namespace wcfgl_matom_tree {
namespace {

struct State {
    NodeList<MatomNode> matoms;

    State() { shown_box::add_counter(objects_in); }
};
State& state = *new State;  // never destroyed: at exit the GL context is gone

constexpr float two_pi = 6.2831855f;

std::complex<float> turn_back(float turns) {
    const float angle = two_pi * turns;
    return {std::cos(angle), -std::sin(angle)};
}

/// Without std::complex's operator, which looks out for infinities.
std::complex<float> times(const std::complex<float>& a, const std::complex<float>& b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

/// The matrix acts on the real and on the imaginary part alike.
ComplexVector product(const Matrix3i& m, const ComplexVector& v) {
    const Vector3f re = m * Vector3f{v[0].real(), v[1].real(), v[2].real()};
    const Vector3f im = m * Vector3f{v[0].imag(), v[1].imag(), v[2].imag()};
    return {{{re[0], im[0]}, {re[1], im[1]}, {re[2], im[2]}}};
}

/// How one symmetry operator moves an atom, and what the phase's operator sets do to its moment.
struct Image {
    Vector3f position;        ///< R x + t, not folded
    Vector3f back_into_cell;  ///< the lattice vector that folds it, without the centring
};

Image image_of(const Vector3f& xf, const OperatorText& text) {
    Matrix3i rotation{};
    Vector3f translation{};
    crystallographic_symmetry::read_xsym(text.field(), 1, rotation, &translation);
    const Vector3f position = rotation * xf + translation;
    return {position, math_gen::into_cell(position) - position};
}

/// The coefficient of `component` at the image, but for the centring.
ComplexVector coefficient(const FourierComponent& component, const Vector3f& k,
                          const OperatorText& msym, const Image& image) {
    Matrix3i matrix{};
    float phase = 0.0f;
    crystallographic_symmetry::read_msymm(msym.field(), matrix, phase);
    ComplexVector s = product(matrix, component.skp);
    for (std::complex<float>& c : s)
        c = times(times(c, turn_back(phase)), turn_back(dot(k, image.back_into_cell)));
    return s;
}

/// Fills xf_eq and every Skj_eq: all operators for the first lattice point, then for the next.
void expand(MatomNode& node) {
    // A letter that is none leaves the cell primitive.
    const std::span<const Vector3f> centring =
        crystallographic_symmetry::lattice_points(*current_magnetic_lattice);
    const std::size_t nsym = current_xsym_list->size();
    const std::size_t n = nsym * centring.size();
    fatal::allocate("current_node%xf_eq", [&] { node.xf_eq.resize(n); });
    for (MomentRecord& moment : node.moment)
        fatal::allocate("current_node%moment%Skj_eq", [&] { moment.Skj_eq.resize(n); });

    for (std::size_t s = 0; s < nsym; ++s) {
        const Image image = image_of(node.xf, (*current_xsym_list)[s]);
        for (std::size_t l = 0; l < centring.size(); ++l)
            node.xf_eq[l * nsym + s] = math_gen::into_cell(image.position + centring[l]);
        for (MomentRecord& moment : node.moment) {
            const Vector3f& k = (*current_k_list)[static_cast<std::size_t>(moment.k_index - 1)];
            const OperatorText& msym =
                current_msym_list->at(s, static_cast<std::size_t>(moment.msym_index - 1));
            const ComplexVector first = coefficient(moment, k, msym, image);
            for (std::size_t l = 0; l < centring.size(); ++l)
                for (std::size_t i = 0; i < 3; ++i)
                    moment.Skj_eq[l * nsym + s][i] =
                        times(first[i], turn_back(dot(k, centring[l])));
        }
    }
}

bool phase_is_defined() {
    return current_magnetic_lattice && current_k_list && current_xsym_list && current_msym_list;
}

/// Whether both indices lie within the phase's lists.
bool in_phase(const FourierComponent& component) {
    const auto within = [](int index, std::size_t size) {
        return index >= 1 && static_cast<std::size_t>(index) <= size;
    };
    return within(component.k_index, current_k_list->size()) &&
           within(component.msym_index, current_msym_list->columns);
}

}  // namespace

std::optional<char> current_magnetic_lattice;
std::optional<std::vector<Vector3f>> current_k_list;
std::optional<std::vector<OperatorText>> current_xsym_list;
std::optional<MsymTable> current_msym_list;

void define_magnetic_phase(char lattice, std::span<const Vector3f> k_list,
                           std::span<const OperatorText> xsym_list,
                           std::span<const OperatorText> msym_list, std::size_t nmsym) {
    current_magnetic_lattice = lattice;
    fatal::allocate("current_k_list",
                    [&] { current_k_list.emplace(k_list.begin(), k_list.end()); });
    fatal::allocate("current_xsym_list",
                    [&] { current_xsym_list.emplace(xsym_list.begin(), xsym_list.end()); });
    fatal::allocate("current_msym_list", [&] {
        current_msym_list.emplace(MsymTable{nmsym, {msym_list.begin(), msym_list.end()}});
        current_msym_list->texts.resize(xsym_list.size() * nmsym);
    });
}

void erase_magnetic_phase() {
    current_magnetic_lattice.reset();
    current_k_list.reset();
    current_xsym_list.reset();
    current_msym_list.reset();
}

void append_k_vector(const Vector3f& k) {
    if (!current_k_list) current_k_list.emplace();
    fatal::allocate("temp_k_list", [&] { current_k_list->push_back(k); });
}

void erase_k_vector(int index) {
    if (!current_k_list || index < 1 || static_cast<std::size_t>(index) > current_k_list->size())
        return;
    current_k_list->erase(current_k_list->begin() + (index - 1));
}

void modify_k_vector(int index, const Vector3f& k) {
    if (!current_k_list || index < 1 || static_cast<std::size_t>(index) > current_k_list->size())
        return;
    (*current_k_list)[static_cast<std::size_t>(index - 1)] = k;
}

void push_matom(const FixedText<10>& label, const FixedText<2>& symbol, const Vector3f& xf,
                std::span<const FourierComponent> components, float scale, int nodisplay,
                int group) {
    if (!phase_is_defined()) return;
    std::vector<MomentRecord> moments;
    for (const FourierComponent& component : components)
        if (in_phase(component)) moments.push_back({component, {}});
    if (moments.empty()) return;

    const bool first = state.matoms.empty();
    MatomNode& node = state.matoms.push_back(first ? "matom_list_head" : "current_node%next");
    if (first && wcfgl_objects_definition::moment_definition == 0)
        wcfgl_objects_definition::init_moment();
    if (!wcfgl_metrix::current_box) wcfgl_metrix::init_box();  // the first frame is framed by it
    node.label = label;
    node.symbol = symbol;
    node.xf = math_gen::into_cell(xf);
    node.group = group;
    node.nodisplay = nodisplay;
    node.scale = scale;
    node.dlist.generate();
    node.moment = std::move(moments);
    expand(node);
}

void pop_matom(int index) { state.matoms.remove(index); }

void empty_matom_list() { state.matoms.clear(); }

void create_main_matom_list() { state.matoms.renew_main_list(); }

void change_matoms_plotting_status(int nodisplay) {
    state.matoms.change_plotting_status(nodisplay);
}

const MatomNode* matom_list_head() { return state.matoms.at(1); }

double objects_in(const wcfgl_metrix::Box& box, shown_box::Count count) {
    const box_cells::Finder find = finder(box);
    double arrows = 0.0;
    for (const MatomNode& node : state.matoms) {
        const double of_a_place = node.group ? 1.0 : static_cast<double>(node.moment.size());
        if (count == shown_box::Count::AtMost)
            arrows += of_a_place * static_cast<double>(node.xf_eq.size()) * find.most_cells();
        else
            for (const Vector3f& x : node.xf_eq) arrows += of_a_place * find.cells_of(x).count();
    }
    return arrows;
}

void update_all_matoms() { state.matoms.compile_nodes(true, construct_matom_dlist); }

void draw_matoms() {
    const bool all = wcfgl_metrix::box_changed || wcfgl_metrix::cell_changed;
    state.matoms.compile_nodes(all, construct_matom_dlist);
    state.matoms.call_main_list();
}

}  // namespace wcfgl_matom_tree
