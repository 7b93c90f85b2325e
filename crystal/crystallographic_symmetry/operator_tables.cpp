#include "crystal/crystallographic_symmetry/operator_tables.hpp"

#include <cstddef>
#include <string_view>

// The rotations are written once, as triplets; matrices and texts are made from them when the
// program is compiled.

namespace crystallographic_symmetry {
namespace {

// clang-format off
constexpr std::array<std::string_view, 36> triplets{
    // cubic set
    "x,y,z",    "-x,-y,z",  "-x,y,-z",  "x,-y,-z",
    "z,x,y",    "z,-x,-y",  "-z,-x,y",  "-z,x,-y",
    "y,z,x",    "-y,z,-x",  "y,-z,-x",  "-y,-z,x",
    "y,x,-z",   "-y,-x,-z", "y,-x,z",   "-y,x,z",
    "x,z,-y",   "-x,z,y",   "-x,-z,-y", "x,-z,y",
    "z,y,-x",   "z,-y,x",   "-z,y,x",   "-z,-y,-x",
    // hexagonal set
    "x,y,z",    "-y,x-y,z", "-x+y,-x,z", "-x,-y,z",  "y,-x+y,z",  "x-y,x,z",
    "y,x,-z",   "x-y,-y,-z", "-x,-x+y,-z", "-y,-x,-z", "-x+y,y,-z", "x,x-y,-z"};
// clang-format on

template <std::size_t N>
class Writer {
public:
    constexpr void put(char c) { text_[length_++] = c; }
    constexpr void put(std::string_view more) {
        for (const char c : more) put(c);
    }
    constexpr FixedText<N> text() const { return text_; }

private:
    FixedText<N> text_;
    std::size_t length_ = 0;
};

struct RowText {
    std::array<char, 4> letters{};
    std::size_t length = 0;
    constexpr std::string_view view() const { return {letters.data(), length}; }
};

/// "x-y", a minus in front where there is one.
constexpr RowText row_text(const Vector3i& row) {
    RowText text;
    for (std::size_t j = 0; j < 3; ++j) {
        if (row[j] == 0) continue;
        if (row[j] < 0) text.letters[text.length++] = '-';
        if (row[j] > 0 && text.length > 0) text.letters[text.length++] = '+';
        text.letters[text.length++] = static_cast<char>('x' + static_cast<int>(j));
    }
    return text;
}

/// Each row in as many columns as told, at their right end.
constexpr FixedText<14> seitz_text(const Matrix3i& rot, const std::array<std::size_t, 3>& columns) {
    Writer<14> writer;
    for (std::size_t i = 0; i < 3; ++i) {
        writer.put(i == 0 ? '(' : ',');
        const RowText text = row_text(rot[i]);
        for (std::size_t n = text.length; n < columns[i]; ++n) writer.put(' ');
        writer.put(text.view());
    }
    writer.put(')');
    return writer.text();
}

/// The letters x, y, z as Mx, My, Mz.
constexpr FixedText<19> on_moments(std::string_view seitz) {
    Writer<19> writer;
    for (const char c : seitz) {
        if (c >= 'x' && c <= 'z') writer.put('M');
        writer.put(c);
    }
    return writer.text();
}

constexpr std::array<Matrix3i, 36> all_matrices() {
    std::array<Matrix3i, 36> matrices{};
    for (std::size_t i = 0; i < 36; ++i) matrices[i] = matrix_of(triplets[i]);
    return matrices;
}

template <std::size_t Width, std::size_t Count>
constexpr std::array<FixedText<Width>, 2 * Count> seitz_texts(
    std::size_t first, const std::array<std::size_t, 3>& columns) {
    std::array<FixedText<Width>, 2 * Count> texts;
    for (std::size_t i = 0; i < Count; ++i) {
        const Matrix3i rot = matrix_of(triplets[first + i]);
        texts[i] = seitz_text(rot, columns).field();
        texts[Count + i] = seitz_text(-rot, columns).field();
    }
    return texts;
}

constexpr std::array<FixedText<14>, 24> hexagonal_texts() {
    std::array<FixedText<14>, 24> texts = seitz_texts<14, 12>(24, {4, 4, 2});
    texts[0] = "( x  ,   y, z)";  // the one spelled otherwise
    return texts;
}

}  // namespace

constexpr std::array<Matrix3i, 36> rot_table = all_matrices();
constexpr std::array<FixedText<10>, 48> seitz_cubic = seitz_texts<10, 24>(0, {2, 2, 2});
constexpr std::array<FixedText<14>, 24> seitz_hexa = hexagonal_texts();

constexpr std::array<FixedText<19>, 72> moment_text = [] {
    std::array<FixedText<19>, 72> texts;
    for (std::size_t i = 0; i < 48; ++i) texts[i] = on_moments(seitz_cubic[i].trimmed());
    for (std::size_t i = 0; i < 24; ++i) texts[48 + i] = on_moments(seitz_hexa[i].trimmed());
    return texts;
}();

// clang-format off
constexpr std::array<float, 16> fraction_values{
    0.0f,        1.0f / 2.0f, 1.0f / 3.0f, 2.0f / 3.0f, 1.0f / 4.0f, 3.0f / 4.0f, 1.0f / 6.0f, 5.0f / 6.0f,
    1.0f / 8.0f, 3.0f / 8.0f, 5.0f / 8.0f, 7.0f / 8.0f, 1.0f,        2.0f,        3.0f,        4.0f};
constexpr std::array<FixedText<3>, 16> fraction_text{
    " 0 ",       "1/2",       "1/3",       "2/3",       "1/4",       "3/4",       "1/6",       "5/6",
    "1/8",       "3/8",       "5/8",       "7/8",       "1  ",       "2  ",       "3  ",       "4  "};
// clang-format on

}  // namespace crystallographic_symmetry
