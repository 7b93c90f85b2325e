#include "scene/wcfgl_atomic_table.hpp"

#include <algorithm>
#include <array>

namespace wcfgl_atomic_table {
namespace {

struct ElementRow {
    Symbol symbol;
    Symbol capitals;  ///< blank where the symbol has one letter only
    float radius;
    float red, green, blue;
};

// By atomic number. The radii are this program's own mix of covalent and ionic ones (those of the
// anions are large on purpose), tuned with the colours for how structures look.
// clang-format off
constexpr std::array<ElementRow, 86> rows{{
    {"H",  "",    0.37f, 0.80f, 0.80f, 0.80f},
    {"He", "HE",  0.32f, 0.80f, 0.80f, 0.80f},
    {"Li", "LI",  0.90f, 0.80f, 0.20f, 0.45f},
    {"Be", "BE",  0.50f, 0.10f, 0.50f, 0.65f},
    {"B",  "",    0.32f, 0.40f, 0.90f, 0.25f},
    {"C",  "",    0.77f, 0.60f, 0.60f, 0.60f},
    {"N",  "",    0.75f, 0.20f, 0.70f, 0.20f},
    {"O",  "",    1.26f, 0.80f, 0.10f, 0.10f},
    {"F",  "",    1.18f, 0.23f, 0.23f, 0.89f},
    {"Ne", "NE",  0.38f, 0.50f, 0.50f, 0.50f},
    {"Na", "NA",  1.21f, 0.70f, 0.70f, 0.15f},
    {"Mg", "MG",  0.86f, 0.70f, 0.00f, 0.74f},
    {"Al", "AL",  0.60f, 0.00f, 0.40f, 0.94f},
    {"Si", "SI",  1.11f, 0.50f, 0.50f, 0.24f},
    {"P",  "",    1.06f, 0.00f, 0.56f, 0.14f},
    {"S",  "",    1.84f, 0.90f, 0.90f, 0.05f},
    {"Cl", "CL",  1.67f, 0.05f, 0.90f, 0.10f},
    {"Ar", "AR",  0.71f, 0.50f, 0.50f, 0.50f},
    {"K",  "",    1.52f, 0.10f, 0.70f, 0.23f},
    {"Ca", "CA",  1.20f, 0.75f, 0.10f, 0.74f},
    {"Sc", "SC",  0.95f, 0.78f, 0.98f, 0.24f},
    {"Ti", "TI",  0.74f, 0.28f, 0.38f, 0.48f},
    {"V",  "",    0.81f, 0.68f, 0.22f, 0.11f},
    {"Cr", "CR",  0.75f, 0.18f, 0.45f, 0.87f},
    {"Mn", "MN",  0.81f, 0.68f, 0.07f, 0.68f},
    {"Fe", "FE",  0.75f, 0.62f, 0.31f, 0.01f},
    {"Co", "CO",  0.78f, 0.78f, 0.18f, 0.28f},
    {"Ni", "NI",  0.70f, 0.28f, 0.68f, 0.81f},
    {"Cu", "CU",  0.70f, 0.05f, 0.05f, 0.59f},
    {"Zn", "ZN",  0.88f, 0.85f, 0.15f, 0.59f},
    {"Ga", "GA",  0.69f, 0.05f, 0.15f, 0.49f},
    {"Ge", "GE",  1.22f, 0.45f, 0.45f, 0.49f},
    {"As", "AS",  1.19f, 0.75f, 0.75f, 0.79f},
    {"Se", "SE",  1.98f, 0.95f, 0.15f, 0.59f},
    {"Br", "BR",  1.95f, 0.45f, 0.75f, 0.19f},
    {"Kr", "KR",  0.88f, 0.95f, 0.65f, 0.89f},
    {"Rb", "RR",  1.70f, 0.55f, 0.05f, 0.59f},  // the doubled letter stands in files: "RB" isn't known
    {"Sr", "SR",  1.35f, 0.75f, 0.65f, 0.29f},
    {"Y",  "",    1.09f, 0.85f, 0.65f, 0.59f},
    {"Zr", "ZR",  0.86f, 0.95f, 0.15f, 0.89f},
    {"Nb", "NB",  0.82f, 0.15f, 0.35f, 0.59f},
    {"Mo", "MO",  0.78f, 0.45f, 0.55f, 0.39f},
    {"Tc", "TC",  0.72f, 0.45f, 0.15f, 0.69f},
    {"Ru", "RU",  0.76f, 0.35f, 0.95f, 0.19f},
    {"Rh", "RH",  0.74f, 0.75f, 0.15f, 0.19f},
    {"Pd", "PD",  0.90f, 0.85f, 0.15f, 0.39f},
    {"Ag", "AG",  1.08f, 0.95f, 0.15f, 0.79f},
    {"Cd", "CD",  1.09f, 0.05f, 0.15f, 0.89f},
    {"In", "IN",  0.94f, 0.05f, 0.65f, 0.79f},
    {"Sn", "SN",  1.41f, 0.05f, 0.85f, 0.49f},
    {"Sb", "SB",  1.38f, 0.25f, 0.85f, 0.79f},
    {"Te", "TE",  2.21f, 0.15f, 0.45f, 0.39f},
    {"I",  "",    2.06f, 0.75f, 0.85f, 0.19f},
    {"Xe", "XE",  1.08f, 0.05f, 0.45f, 0.59f},
    {"Cs", "CS",  1.85f, 0.15f, 0.35f, 0.59f},
    {"Ba", "BA",  1.52f, 0.65f, 0.65f, 0.59f},
    {"La", "LA",  1.40f, 0.85f, 0.05f, 0.89f},
    {"Ce", "CE",  1.30f, 0.95f, 0.05f, 0.29f},
    {"Pr", "PR",  1.20f, 0.05f, 0.95f, 0.59f},
    {"Nd", "ND",  1.18f, 0.15f, 0.15f, 0.89f},
    {"Pm", "PM",  1.17f, 0.45f, 0.45f, 0.59f},
    {"Sm", "SM",  1.15f, 0.25f, 0.85f, 0.09f},
    {"Eu", "EU",  1.25f, 0.85f, 0.15f, 0.59f},
    {"Gd", "GD",  1.13f, 0.15f, 0.75f, 0.19f},
    {"Tb", "TB",  1.12f, 0.55f, 0.55f, 0.59f},
    {"Dy", "DY",  1.10f, 0.85f, 0.85f, 0.06f},
    {"Ho", "HO",  1.10f, 0.35f, 0.45f, 0.59f},
    {"Er", "ER",  1.08f, 0.45f, 0.75f, 0.59f},
    {"Tm", "TM",  1.07f, 0.75f, 0.15f, 0.09f},
    {"Yb", "YB",  1.15f, 0.12f, 0.65f, 0.49f},
    {"Lu", "LU",  1.05f, 0.85f, 0.85f, 0.59f},
    {"Hf", "HF",  0.85f, 0.95f, 0.35f, 0.69f},
    {"Ta", "TA",  0.83f, 0.55f, 0.15f, 0.59f},
    {"W",  "",    0.76f, 0.75f, 0.95f, 0.79f},
    {"Re", "RE",  0.72f, 0.55f, 0.45f, 0.59f},
    {"Os", "OS",  0.70f, 0.85f, 0.95f, 0.59f},
    {"Ir", "IR",  0.76f, 0.05f, 0.05f, 0.59f},
    {"Pt", "PT",  0.82f, 0.55f, 0.05f, 0.59f},
    {"Au", "AU",  1.16f, 0.55f, 0.45f, 0.59f},
    {"Hg", "HG",  1.16f, 0.45f, 0.45f, 0.59f},
    {"Tl", "TL",  1.48f, 0.15f, 0.05f, 0.59f},
    {"Pb", "PB",  1.33f, 0.05f, 0.75f, 0.59f},
    {"Bi", "BI",  1.46f, 0.85f, 0.65f, 0.59f},
    {"Po", "PO",  1.08f, 0.35f, 0.35f, 0.59f},
    {"At", "AT",  0.76f, 0.15f, 0.65f, 0.89f},
    {"Rn", "RN",  1.20f, 0.35f, 0.35f, 0.59f},
}};
// clang-format on

const ElementRow* find_row(const Symbol& symbol) {
    if (symbol.blank()) return nullptr;
    const auto* row = std::find_if(rows.begin(), rows.end(), [&](const ElementRow& candidate) {
        return candidate.symbol == symbol || candidate.capitals == symbol;
    });
    return row == rows.end() ? nullptr : row;
}

}  // namespace

float get_radius_from_symbol(const Symbol& symbol) {
    const ElementRow* row = find_row(symbol);
    return row != nullptr ? row->radius : 1.0f;
}

Colour get_color_from_symbol(const Symbol& symbol) {
    const ElementRow* row = find_row(symbol);
    if (row == nullptr) return {0.5f, 0.5f, 0.5f, 1.0f};
    return {row->red, row->green, row->blue, 1.0f};
}

}  // namespace wcfgl_atomic_table
