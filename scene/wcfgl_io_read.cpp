// The reader: one pass over the lines, and for each line one pass over the keywords in a fixed
// order. A keyword counts wherever it stands in the line, also inside a label or another word, and
// one line may carry several: users' files rely on both.
//
// Some keywords open a group of lines (GENR, K, MSYM, SKP) that is read to its end on the spot. The
// line behind the group is given back. Inside a group there are no comments. A group longer than
// its table keeps what fits; its other lines are read and dropped.
//
// With the continuous check this runs in the idle loop: all room is taken once, at the first file.

#include "common/fatal.hpp"
#include "common/list_read.hpp"
#include "common/safe_file.hpp"
#include "crystal/math_gen.hpp"
#include "crystal/position_text.hpp"
#include "crystal/string_utilities.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_atomic_table.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_geometry.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_quaternion.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wcfgl_io {
namespace {

using list_read::Record;
using wcfgl_matom_tree::FourierComponent;
using wcfgl_matom_tree::OperatorText;

constexpr std::size_t line_width = 256;
constexpr std::size_t max_generators = 192;
constexpr std::size_t max_symmetry = 192;
constexpr std::size_t max_magnetic_operators = 24;  ///< of one symmetry operator
constexpr std::size_t max_k_vectors = 24;
constexpr std::size_t max_components = 24;  ///< of one magnetic atom

constexpr float view_tolerance = 1e-5f;

// ---- keywords -----------------------------------------------------------------------------------

/// A keyword acts wherever its letters stand, also inside a longer word: MATOM is an ATOM outside
/// the block, SPACEGROUP is SPACEG and GROUP, a label that holds BOX, CELL, BOND, CONN, COLOR or
/// SCALE is that keyword, and the last letter of any word that ends in K is a vector inside the
/// block.
namespace keyword {

// Of any line, in the order in which they act.
constexpr std::string_view group = "GROUP";
constexpr std::string_view colour = "COLOR";
constexpr std::string_view radius = "RADIUS";
constexpr std::string_view scale = "SCALE";  // inside the block
constexpr std::string_view view = "VIEW";
constexpr std::string_view rotxyz = "ROTXYZ";
constexpr std::string_view rotax = "ROTAX";
constexpr std::string_view spher = "SPHER";
constexpr std::string_view spaceg = "SPACEG";
constexpr std::string_view generator = "GENR";
constexpr std::string_view open = "{";
constexpr std::string_view close = "}";
constexpr std::string_view box = "BOX";
constexpr std::string_view cell = "CELL";
constexpr std::string_view atom = "ATOM";  // outside the block
constexpr std::string_view bond = "BOND";
constexpr std::string_view connection = "CONN";

// Inside the block, behind those above.
constexpr std::string_view lattice = "LATTICE";
constexpr std::string_view vector = "K ";       // with a blank, to begin a run
constexpr std::string_view more_vectors = "K";  // without one, to go on with it
constexpr std::string_view symmetry = "SYMM";
constexpr std::string_view magnetic_operator = "MSYM";
constexpr std::string_view magnetic_atom = "MATOM";
constexpr std::string_view component = "SKP";

// Flags of their line.
constexpr std::string_view hidden = "NODISPLAY";
constexpr std::string_view multiple = "MULTIPLE";

}  // namespace keyword

// ---- lines --------------------------------------------------------------------------------------

/// One line, cut at its width, without trailing blanks but with one blank behind its last
/// character, which lets keyword::vector match at its end. Tabs have become blanks.
struct Line {
    std::string_view text;   ///< as it stands
    std::string_view upper;  ///< in capitals: what keywords are looked for in

    bool has(std::string_view keyword) const {
        return upper.find(keyword) != std::string_view::npos;
    }
    /// From the first occurrence of the keyword on.
    std::optional<std::string_view> from(std::string_view keyword) const {
        const std::size_t at = upper.find(keyword);
        if (at == std::string_view::npos) return std::nullopt;
        return text.substr(at);
    }
    std::optional<std::string_view> behind(std::string_view keyword) const {
        std::optional<std::string_view> operands = from(keyword);
        if (operands) operands->remove_prefix(keyword.size());
        return operands;
    }
    bool is_comment() const { return text.find_first_of("!#") != std::string_view::npos; }
};

/// The lines of a file in memory.
class LineSource {
public:
    void start(std::string_view file) {
        rest_ = file;
        given_back_ = false;
    }
    /// False at the end of the file. The line lives until the next call.
    bool next(Line& line) {
        if (!given_back_ && !read_line()) return false;
        given_back_ = false;
        line = {{text_.data(), length_ + 1}, {upper_.data(), length_ + 1}};
        return true;
    }
    /// The line given last comes once more.
    void give_back() { given_back_ = true; }

private:
    bool read_line() {
        if (rest_.empty()) return false;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        length_ = std::min(end, line_width);
        std::copy_n(rest_.data(), length_, text_.data());
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        finish_line();
        return true;
    }

    void finish_line() {
        if (length_ > 0 && text_[length_ - 1] == '\r') --length_;
        std::replace(text_.data(), text_.data() + length_, '\t', ' ');
        length_ = trimmed_length({text_.data(), length_});
        text_[length_] = ' ';
        std::transform(text_.data(), text_.data() + length_ + 1, upper_.data(),
                       string_utilities::raised);
    }

    std::string_view rest_;
    bool given_back_ = false;
    std::size_t length_ = 0;
    std::array<char, line_width + 1> text_;
    std::array<char, line_width + 1> upper_;
};

bool read_reals(std::string_view operands, std::span<float> values) {
    return Record(operands).read(values);
}

/// Three fractions of the cell.
bool read_position(Record& record, Vector3f& xf) {
    for (float& x : xf) {
        if (!record.read(x)) return false;
        x = position_text::component(record.written(), x);
    }
    return true;
}

/// The rest of a line as one text. The blanks that set it off from its keyword are no part of it.
OperatorText rest_of(std::string_view operands) { return without_leading_blanks(operands); }

// ---- the view -----------------------------------------------------------------------------------

/// Turned by `angle` about `axis`; nothing for an axis that is as good as zero.
std::optional<Quaternion> turned(float angle, const Vector3f& axis) {
    const float length = wcfgl_geometry::vect_norm_3d(axis);
    if (length <= view_tolerance) return std::nullopt;
    const float c = math_gen::cosd(angle * 0.5f);
    const float s = math_gen::sind(angle * 0.5f);
    return Quaternion{c, s * (axis[0] / length), s * (axis[1] / length), s * (axis[2] / length)};
}

/// The least turn that brings the model's z onto the direction. For a direction along z, either
/// way, there is none.
std::optional<Quaternion> view_along(const Vector3f& direction) {
    const float length = wcfgl_geometry::vect_norm_3d(direction);
    if (length <= view_tolerance) return std::nullopt;
    const Vector3f v{direction[0] / length, direction[1] / length, direction[2] / length};
    return turned(math_gen::acosd(v[2]), {-v[1], v[0], 0.0f});
}

/// About x first, then y, then z.
Quaternion view_by_angles(const Vector3f& angle) {
    std::array<Quaternion, 3> q{};
    for (std::size_t i = 0; i < 3; ++i) {
        q[i][0] = math_gen::cosd(angle[i] * 0.5f);
        q[i][i + 1] = math_gen::sind(angle[i] * 0.5f);
    }
    return wcfgl_quaternion::q_mult_q(wcfgl_quaternion::q_mult_q(q[2], q[1]), q[0]);
}

std::optional<Quaternion> view_from_sphere(float theta, float phi) {
    return turned(theta, {-math_gen::sind(phi) * math_gen::sind(theta),
                          math_gen::cosd(phi) * math_gen::sind(theta), 0.0f});
}

void read_view(const Line& line, Quaternion& quaternion) {
    const auto show = [&quaternion](const std::optional<Quaternion>& view) {
        if (view) quaternion = *view;
    };
    std::array<float, 4> v{};
    const auto read = [&line, &v](std::string_view keyword, std::size_t count) {
        const auto operands = line.behind(keyword);
        return operands && read_reals(*operands, std::span(v).first(count));
    };
    if (read(keyword::view, 3)) show(view_along({v[0], v[1], v[2]}));
    if (read(keyword::rotxyz, 3)) show(view_by_angles({v[0], v[1], v[2]}));
    if (read(keyword::rotax, 4)) show(wcfgl_quaternion::q_from_rot(v[0], {v[1], v[2], v[3]}));
    if (read(keyword::spher, 2)) show(view_from_sphere(v[0], v[1]));
}

// ---- one pass -----------------------------------------------------------------------------------

/// What the lines read so far have left behind. An operand that couldn't be read, or was left out
/// between two commas, keeps the value of the line before: hence the buffers.
struct Progress {
    bool in_block = false;
    bool first_generators = true;
    bool phase_defined = false;  ///< by the first MATOM of the file, for good
    bool moments_pending = false;
    bool msym_allowed = true;
    int group = 0;
    float scale = 1.0f;
    Colour colour{0.5f, 0.5f, 0.5f, 1.0f};
    float radius = 1.0f;

    FixedText<10> label, label2;
    FixedText<2> symbol, symbol2;
    Vector3f xf{};
    float min_distance = 0.0f;
    float max_distance = 0.0f;

    FixedText<1> lattice = "P";
    Vector3f k{};
    std::size_t k_count = 0;
    std::size_t symmetry_count = 0;
    std::size_t magnetic_count = 0;  ///< of the last symmetry operator

    FixedText<10> magnetic_label;
    FixedText<2> magnetic_symbol;
    Vector3f magnetic_xf{};
    FourierComponent component;
    std::size_t component_count = 0;
};

/// The tables that a pass fills; the counts tell what of them is in use.
struct Tables {
    std::array<OperatorText, max_generators> generators;
    std::array<Vector3f, max_k_vectors> k;
    std::array<OperatorText, max_symmetry> symmetry;
    std::array<std::array<OperatorText, max_magnetic_operators>, max_symmetry> magnetic;
    std::vector<OperatorText> magnetic_rows;  ///< as many columns as the phase has
    std::array<FourierComponent, max_components> components;
};

class Reader {
public:
    safe_file::Outcome load(std::string_view file_name) {
        return safe_file::read(std::string(file_name), file_);
    }
    /// Over the file loaded last.
    void run(Quaternion* quaternion) {
        source_.start(file_);
        seen_ = {};
        for (Line line; source_.next(line);)
            if (!line.is_comment()) read_line(line, quaternion);
    }

private:
    void read_line(const Line& line, Quaternion* quaternion);
    void read_buffers(const Line& line);
    void read_generators(std::string_view first);
    void read_box(std::string_view operands);
    void read_cell(const Line& line, std::string_view operands);
    void read_atom(const Line& line, std::string_view operands);
    void read_bond(const Line& line, std::string_view operands);
    void read_connection(const Line& line, std::string_view operands);
    void read_block_line(const Line& line);
    void read_k_group(std::string_view operands);
    void read_symmetry(std::string_view operands);
    void read_magnetic_operators(std::string_view first);
    void read_magnetic_atom(const Line& line, std::string_view operands);
    void read_components(std::string_view first);
    void store_component(std::string_view operands);
    void define_phase();

    std::optional<Colour> own_colour(const Line& line) const {
        if (!line.has(keyword::colour)) return std::nullopt;
        return seen_.colour;
    }

    /// Hands the lines that follow to `take` as long as it returns true.
    template <class Function>
    void while_taken(Function take) {
        Line line;
        while (source_.next(line)) {
            if (take(line)) continue;
            source_.give_back();
            return;
        }
    }

    Progress seen_;
    Tables tables_;
    std::string file_;
    LineSource source_;
};

int hidden(const Line& line) { return line.has(keyword::hidden) ? 1 : 0; }

void Reader::read_line(const Line& line, Quaternion* quaternion) {
    read_buffers(line);
    if (quaternion != nullptr) read_view(line, *quaternion);
    if (const auto text = line.behind(keyword::spaceg))
        wcfgl_metrix::define_spacegroup(rest_of(*text).trimmed());
    if (const auto text = line.behind(keyword::generator); text && seen_.first_generators) {
        read_generators(*text);
        return;
    }
    if (line.has(keyword::open)) seen_.in_block = true;
    if (line.has(keyword::close)) {
        seen_.in_block = false;
        seen_.k_count = seen_.symmetry_count = seen_.magnetic_count = 0;
    }
    // BKG has no effect: the background is the user's, and no file changes it.
    if (const auto operands = line.behind(keyword::box)) read_box(*operands);
    if (const auto operands = line.behind(keyword::cell)) read_cell(line, *operands);
    if (const auto operands = line.behind(keyword::atom); operands && !seen_.in_block)
        read_atom(line, *operands);
    if (const auto operands = line.behind(keyword::bond)) read_bond(line, *operands);
    if (const auto operands = line.behind(keyword::connection)) read_connection(line, *operands);
    if (seen_.in_block) read_block_line(line);
}

void Reader::read_buffers(const Line& line) {
    if (line.has(keyword::group)) seen_.group = 1;
    if (const auto operands = line.behind(keyword::colour)) read_reals(*operands, seen_.colour);
    if (const auto operands = line.behind(keyword::radius)) Record(*operands).read(seen_.radius);
    if (const auto operands = line.behind(keyword::scale); operands && seen_.in_block)
        Record(*operands).read(seen_.scale);
}

void Reader::read_generators(std::string_view first) {
    seen_.first_generators = false;
    std::size_t count = 0;
    const auto store = [this, &count](std::string_view operands) {
        if (count < max_generators) tables_.generators[count++] = rest_of(operands);
    };
    store(first);
    while_taken([&store](const Line& line) {
        const auto operands = line.behind(keyword::generator);
        if (operands) store(*operands);
        return operands.has_value();
    });
    wcfgl_metrix::define_spacegroup("", std::span(tables_.generators).first(count));
}

/// Limits that the line leaves out stay as they are.
void Reader::read_box(std::string_view operands) {
    std::array<float, 6> box = wcfgl_metrix::current_box.value_or(wcfgl_metrix::Box{});
    if (read_reals(operands, box))
        wcfgl_metrix::define_box(box[0], box[1], box[2], box[3], box[4], box[5]);
    else
        wcfgl_metrix::init_box();
}

/// Edges and angles that the line leaves out stay as they are.
void Reader::read_cell(const Line& line, std::string_view operands) {
    std::array<float, 6> cell{};
    if (const auto& current = wcfgl_metrix::current_cell) {
        std::copy(current->cell_length.begin(), current->cell_length.end(), cell.begin());
        std::copy(current->cell_angle.begin(), current->cell_angle.end(), cell.begin() + 3);
    }
    if (!read_reals(operands, cell)) {
        wcfgl_metrix::define_cell({10.0f, 10.0f, 10.0f}, {90.0f, 90.0f, 90.0f});
        return;
    }
    wcfgl_metrix::define_cell({cell[0], cell[1], cell[2]}, {cell[3], cell[4], cell[5]});
    if (!wcfgl_metrix::current_cell) return;
    wcfgl_metrix::current_cell->nodisplay = hidden(line);
    wcfgl_metrix::current_cell->multiple = line.has(keyword::multiple) ? 1 : 0;
}

void Reader::read_atom(const Line& line, std::string_view operands) {
    Record record(operands);
    if (!(record.read(seen_.label) && record.read(seen_.symbol) && read_position(record, seen_.xf)))
        return;
    if (!line.has(keyword::radius))
        seen_.radius = wcfgl_atomic_table::get_radius_from_symbol(seen_.symbol);
    wcfgl_atom_tree::push_atom({.label = seen_.label,
                                .symbol = seen_.symbol,
                                .xf = seen_.xf,
                                .radius = seen_.radius,
                                .nodisplay = hidden(line),
                                .colour = own_colour(line)});
}

void Reader::read_bond(const Line& line, std::string_view operands) {
    Record record(operands);
    if (!(record.read(seen_.label) && record.read(seen_.label2) &&
          record.read(seen_.min_distance) && record.read(seen_.max_distance)))
        return;
    if (!line.has(keyword::radius)) seen_.radius = 1.0f;
    wcfgl_bond_tree::push_bond_by_label(seen_.label, seen_.label2, seen_.min_distance,
                                        seen_.max_distance, seen_.radius, hidden(line),
                                        own_colour(line));
}

void Reader::read_connection(const Line& line, std::string_view operands) {
    Record record(operands);
    if (!(record.read(seen_.symbol) && record.read(seen_.symbol2) &&
          record.read(seen_.min_distance) && record.read(seen_.max_distance)))
        return;
    if (!line.has(keyword::radius)) seen_.radius = 1.0f;
    wcfgl_bond_tree::push_bond_by_symbol(seen_.symbol, seen_.symbol2, seen_.min_distance,
                                         seen_.max_distance, seen_.radius, hidden(line),
                                         own_colour(line));
}

// ---- the magnetic block -------------------------------------------------------------------------

void Reader::read_block_line(const Line& line) {
    if (const auto operands = line.behind(keyword::lattice)) Record(*operands).read(seen_.lattice);
    // This takes an atom of potassium for a vector, and the line is lost as an atom.
    if (const auto text = line.from(keyword::vector)) {
        read_k_group(text->substr(1));
        return;
    }
    if (const auto operands = line.behind(keyword::symmetry)) read_symmetry(*operands);
    if (const auto text = line.from(keyword::magnetic_operator); text && seen_.msym_allowed) {
        read_magnetic_operators(*text);
        return;
    }
    if (const auto operands = line.behind(keyword::magnetic_atom))
        read_magnetic_atom(line, *operands);
    if (const auto operands = line.behind(keyword::component); operands && seen_.moments_pending)
        read_components(*operands);
}

void Reader::read_k_group(std::string_view operands) {
    const auto store = [this](std::string_view text) {
        read_reals(text, seen_.k.c);
        if (seen_.k_count < max_k_vectors) tables_.k[seen_.k_count++] = seen_.k;
    };
    store(operands);
    // The group goes on while a line holds the letter, in whatever word.
    while_taken([&store](const Line& line) {
        const auto text = line.behind(keyword::more_vectors);
        if (text) store(*text);
        return text.has_value();
    });
}

void Reader::read_symmetry(std::string_view operands) {
    seen_.msym_allowed = seen_.symmetry_count < max_symmetry;
    if (!seen_.msym_allowed) return;
    tables_.symmetry[seen_.symmetry_count] = rest_of(operands);
    tables_.magnetic[seen_.symmetry_count].fill({});
    ++seen_.symmetry_count;
    seen_.magnetic_count = 0;
}

/// Operators before any SYMM belong to nothing and are dropped.
void Reader::read_magnetic_operators(std::string_view first) {
    seen_.msym_allowed = false;
    const auto store = [this](std::string_view text) {
        if (seen_.symmetry_count == 0 || seen_.magnetic_count == max_magnetic_operators) return;
        tables_.magnetic[seen_.symmetry_count - 1][seen_.magnetic_count++] = text;
    };
    store(first);
    while_taken([&store](const Line& line) {
        const auto text = line.from(keyword::magnetic_operator);
        if (text) store(*text);
        return text.has_value();
    });
}

/// The number of operator sets is that of the last symmetry operator.
void Reader::define_phase() {
    seen_.phase_defined = true;
    tables_.magnetic_rows.clear();
    for (std::size_t s = 0; s < seen_.symmetry_count; ++s) {
        const auto row = std::span(tables_.magnetic[s]).first(seen_.magnetic_count);
        tables_.magnetic_rows.insert(tables_.magnetic_rows.end(), row.begin(), row.end());
    }
    wcfgl_matom_tree::define_magnetic_phase(seen_.lattice[0],
                                            std::span(tables_.k).first(seen_.k_count),
                                            std::span(tables_.symmetry).first(seen_.symmetry_count),
                                            tables_.magnetic_rows, seen_.magnetic_count);
}

void Reader::read_magnetic_atom(const Line& line, std::string_view operands) {
    if (!seen_.phase_defined) define_phase();
    Record record(operands);
    seen_.moments_pending = record.read(seen_.magnetic_label) &&
                            record.read(seen_.magnetic_symbol) &&
                            read_position(record, seen_.magnetic_xf);
    seen_.component_count = 0;
    if (!line.has(keyword::colour))
        seen_.colour = wcfgl_atomic_table::get_color_from_symbol(seen_.magnetic_symbol);
}

void Reader::store_component(std::string_view operands) {
    std::array<float, 7> values{};
    for (std::size_t i = 0; i < 3; ++i) {
        values[i] = seen_.component.skp[i].real();
        values[i + 3] = seen_.component.skp[i].imag();
    }
    values[6] = seen_.component.phase;
    Record record(operands);
    if (record.read(seen_.component.k_index) && record.read(seen_.component.msym_index))
        record.read(values);
    for (std::size_t i = 0; i < 3; ++i) seen_.component.skp[i] = {values[i], values[i + 3]};
    seen_.component.phase = values[6];
    seen_.component.colour = seen_.colour;
    if (seen_.component_count < max_components)
        tables_.components[seen_.component_count++] = seen_.component;
}

/// The atom is pushed shown, even if its line said NODISPLAY.
void Reader::read_components(std::string_view first) {
    store_component(first);
    while_taken([this](const Line& line) {
        if (const auto operands = line.behind(keyword::colour)) read_reals(*operands, seen_.colour);
        const auto operands = line.behind(keyword::component);
        if (operands) store_component(*operands);
        return operands.has_value();
    });
    seen_.moments_pending = false;
    wcfgl_matom_tree::push_matom(seen_.magnetic_label, seen_.magnetic_symbol, seen_.magnetic_xf,
                                 std::span(tables_.components).first(seen_.component_count),
                                 seen_.scale, 0, seen_.group);
    seen_.group = 0;
    seen_.scale = 1.0f;
}

}  // namespace

safe_file::Outcome read_gwr_file(std::string_view file_name, Quaternion* quaternion) {
    static Reader& reader =
        *fatal::allocate("structure file", [] { return new Reader; });  // lives as long as we do
    safe_file::Outcome outcome{safe_file::Outcome::Failed::opening, "The name is too long"};
    if (file_name.size() <= longest_name)
        outcome = fatal::allocate("structure file", [&] { return reader.load(file_name); });
    // Between two states of a file the picture stays.
    if (outcome.failed == safe_file::Outcome::Failed::changing) return outcome;
    wcfgl_metrix::define_spacegroup("P 1");
    if (!outcome) return outcome;

    wcfgl_metrix::init_box();
    wcfgl_atom_tree::empty_atom_list();
    wcfgl_bond_tree::empty_bond_list();
    wcfgl_matom_tree::empty_matom_list();
    wcfgl_matom_tree::erase_magnetic_phase();
    if (quaternion != nullptr) *quaternion = wcfgl_quaternion::identity;
    reader.run(quaternion);
    return outcome;
}

}  // namespace wcfgl_io
