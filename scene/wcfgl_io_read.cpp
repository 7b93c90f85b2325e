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

// ---- lines --------------------------------------------------------------------------------------

/// One line, cut at its width, without trailing blanks but with one blank behind its last
/// character, which lets "K " match at its end. Tabs have become blanks.
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
OperatorText rest_of(std::string_view operands) {
    operands.remove_prefix(std::min(operands.find_first_not_of(' '), operands.size()));
    return operands;
}

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
    if (read("VIEW", 3)) show(view_along({v[0], v[1], v[2]}));
    if (read("ROTXYZ", 3)) show(view_by_angles({v[0], v[1], v[2]}));
    if (read("ROTAX", 4)) show(wcfgl_quaternion::q_from_rot(v[0], {v[1], v[2], v[3]}));
    if (read("SPHER", 2)) show(view_from_sphere(v[0], v[1]));
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
        at_ = {};
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
        if (!line.has("COLOR")) return std::nullopt;
        return at_.colour;
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

    Progress at_;
    Tables tables_;
    std::string file_;
    LineSource source_;
};

int hidden(const Line& line) { return line.has("NODISPLAY") ? 1 : 0; }

void Reader::read_line(const Line& line, Quaternion* quaternion) {
    read_buffers(line);
    if (quaternion != nullptr) read_view(line, *quaternion);
    if (const auto text = line.behind("SPACEG"))
        wcfgl_metrix::define_spacegroup(rest_of(*text).trimmed());
    if (const auto text = line.behind("GENR"); text && at_.first_generators) {
        read_generators(*text);
        return;
    }
    if (line.has("{")) at_.in_block = true;
    if (line.has("}")) {
        at_.in_block = false;
        at_.k_count = at_.symmetry_count = at_.magnetic_count = 0;
    }
    // BKG has no effect: the background is the user's, and no file changes it.
    if (const auto operands = line.behind("BOX")) read_box(*operands);
    if (const auto operands = line.behind("CELL")) read_cell(line, *operands);
    if (const auto operands = line.behind("ATOM"); operands && !at_.in_block)
        read_atom(line, *operands);
    if (const auto operands = line.behind("BOND")) read_bond(line, *operands);
    if (const auto operands = line.behind("CONN")) read_connection(line, *operands);
    if (at_.in_block) read_block_line(line);
}

void Reader::read_buffers(const Line& line) {
    if (line.has("GROUP")) at_.group = 1;
    if (const auto operands = line.behind("COLOR")) read_reals(*operands, at_.colour);
    if (const auto operands = line.behind("RADIUS")) Record(*operands).read(at_.radius);
    if (const auto operands = line.behind("SCALE"); operands && at_.in_block)
        Record(*operands).read(at_.scale);
}

void Reader::read_generators(std::string_view first) {
    at_.first_generators = false;
    std::size_t count = 0;
    const auto store = [this, &count](std::string_view operands) {
        if (count < max_generators) tables_.generators[count++] = rest_of(operands);
    };
    store(first);
    while_taken([&store](const Line& line) {
        const auto operands = line.behind("GENR");
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
    wcfgl_metrix::current_cell->multiple = line.has("MULTIPLE") ? 1 : 0;
}

void Reader::read_atom(const Line& line, std::string_view operands) {
    Record record(operands);
    if (!(record.read(at_.label) && record.read(at_.symbol) && read_position(record, at_.xf)))
        return;
    if (!line.has("RADIUS")) at_.radius = wcfgl_atomic_table::get_radius_from_symbol(at_.symbol);
    wcfgl_atom_tree::push_atom({.label = at_.label,
                                .symbol = at_.symbol,
                                .xf = at_.xf,
                                .radius = at_.radius,
                                .nodisplay = hidden(line),
                                .colour = own_colour(line)});
}

void Reader::read_bond(const Line& line, std::string_view operands) {
    Record record(operands);
    if (!(record.read(at_.label) && record.read(at_.label2) && record.read(at_.min_distance) &&
          record.read(at_.max_distance)))
        return;
    if (!line.has("RADIUS")) at_.radius = 1.0f;
    wcfgl_bond_tree::push_bond_by_label(at_.label, at_.label2, at_.min_distance, at_.max_distance,
                                        at_.radius, hidden(line), own_colour(line));
}

void Reader::read_connection(const Line& line, std::string_view operands) {
    Record record(operands);
    if (!(record.read(at_.symbol) && record.read(at_.symbol2) && record.read(at_.min_distance) &&
          record.read(at_.max_distance)))
        return;
    if (!line.has("RADIUS")) at_.radius = 1.0f;
    wcfgl_bond_tree::push_bond_by_symbol(at_.symbol, at_.symbol2, at_.min_distance,
                                         at_.max_distance, at_.radius, hidden(line),
                                         own_colour(line));
}

// ---- the magnetic block -------------------------------------------------------------------------

void Reader::read_block_line(const Line& line) {
    if (const auto operands = line.behind("LATTICE")) Record(*operands).read(at_.lattice);
    // This takes an atom of potassium for a vector, and the line is lost as an atom.
    if (const auto text = line.from("K ")) {
        read_k_group(text->substr(1));
        return;
    }
    if (const auto operands = line.behind("SYMM")) read_symmetry(*operands);
    if (const auto text = line.from("MSYM"); text && at_.msym_allowed) {
        read_magnetic_operators(*text);
        return;
    }
    if (const auto operands = line.behind("MATOM")) read_magnetic_atom(line, *operands);
    if (const auto operands = line.behind("SKP"); operands && at_.moments_pending)
        read_components(*operands);
}

void Reader::read_k_group(std::string_view operands) {
    const auto store = [this](std::string_view text) {
        read_reals(text, at_.k.c);
        if (at_.k_count < max_k_vectors) tables_.k[at_.k_count++] = at_.k;
    };
    store(operands);
    // The group goes on while a line holds the letter, in whatever word.
    while_taken([&store](const Line& line) {
        const auto text = line.behind("K");
        if (text) store(*text);
        return text.has_value();
    });
}

void Reader::read_symmetry(std::string_view operands) {
    at_.msym_allowed = at_.symmetry_count < max_symmetry;
    if (!at_.msym_allowed) return;
    tables_.symmetry[at_.symmetry_count] = rest_of(operands);
    tables_.magnetic[at_.symmetry_count].fill({});
    ++at_.symmetry_count;
    at_.magnetic_count = 0;
}

/// Operators before any SYMM belong to nothing and are dropped.
void Reader::read_magnetic_operators(std::string_view first) {
    at_.msym_allowed = false;
    const auto store = [this](std::string_view text) {
        if (at_.symmetry_count == 0 || at_.magnetic_count == max_magnetic_operators) return;
        tables_.magnetic[at_.symmetry_count - 1][at_.magnetic_count++] = text;
    };
    store(first);
    while_taken([&store](const Line& line) {
        const auto text = line.from("MSYM");
        if (text) store(*text);
        return text.has_value();
    });
}

/// The number of operator sets is that of the last symmetry operator.
void Reader::define_phase() {
    at_.phase_defined = true;
    tables_.magnetic_rows.clear();
    for (std::size_t s = 0; s < at_.symmetry_count; ++s) {
        const auto row = std::span(tables_.magnetic[s]).first(at_.magnetic_count);
        tables_.magnetic_rows.insert(tables_.magnetic_rows.end(), row.begin(), row.end());
    }
    wcfgl_matom_tree::define_magnetic_phase(at_.lattice[0], std::span(tables_.k).first(at_.k_count),
                                            std::span(tables_.symmetry).first(at_.symmetry_count),
                                            tables_.magnetic_rows, at_.magnetic_count);
}

void Reader::read_magnetic_atom(const Line& line, std::string_view operands) {
    if (!at_.phase_defined) define_phase();
    Record record(operands);
    at_.moments_pending = record.read(at_.magnetic_label) && record.read(at_.magnetic_symbol) &&
                          read_position(record, at_.magnetic_xf);
    at_.component_count = 0;
    if (!line.has("COLOR"))
        at_.colour = wcfgl_atomic_table::get_color_from_symbol(at_.magnetic_symbol);
}

void Reader::store_component(std::string_view operands) {
    std::array<float, 7> values{};
    for (std::size_t i = 0; i < 3; ++i) {
        values[i] = at_.component.skp[i].real();
        values[i + 3] = at_.component.skp[i].imag();
    }
    values[6] = at_.component.phase;
    Record record(operands);
    if (record.read(at_.component.k_index) && record.read(at_.component.msym_index))
        record.read(values);
    for (std::size_t i = 0; i < 3; ++i) at_.component.skp[i] = {values[i], values[i + 3]};
    at_.component.phase = values[6];
    at_.component.colour = at_.colour;
    if (at_.component_count < max_components)
        tables_.components[at_.component_count++] = at_.component;
}

/// The atom is pushed shown, even if its line said NODISPLAY.
void Reader::read_components(std::string_view first) {
    store_component(first);
    while_taken([this](const Line& line) {
        if (const auto operands = line.behind("COLOR")) read_reals(*operands, at_.colour);
        const auto operands = line.behind("SKP");
        if (operands) store_component(*operands);
        return operands.has_value();
    });
    at_.moments_pending = false;
    wcfgl_matom_tree::push_matom(at_.magnetic_label, at_.magnetic_symbol, at_.magnetic_xf,
                                 std::span(tables_.components).first(at_.component_count),
                                 at_.scale, 0, at_.group);
    at_.group = 0;
    at_.scale = 1.0f;
}

}  // namespace

void read_gwr_file(std::string_view file_name, Quaternion* quaternion) {
    static Reader& reader =
        *fatal::allocate("structure file", [] { return new Reader; });  // lives as long as we do
    safe_file::Outcome outcome{safe_file::Outcome::Failed::opening, {}};
    if (file_name.size() <= longest_name)
        outcome = fatal::allocate("structure file", [&] { return reader.load(file_name); });
    // Between two states of a file the picture stays.
    if (outcome.failed == safe_file::Outcome::Failed::changing) return;
    wcfgl_metrix::define_spacegroup("P 1");
    if (!outcome) return;

    wcfgl_metrix::init_box();
    wcfgl_atom_tree::empty_atom_list();
    wcfgl_bond_tree::empty_bond_list();
    wcfgl_matom_tree::empty_matom_list();
    wcfgl_matom_tree::erase_magnetic_phase();
    if (quaternion != nullptr) *quaternion = wcfgl_quaternion::identity;
    reader.run(quaternion);
}

}  // namespace wcfgl_io
