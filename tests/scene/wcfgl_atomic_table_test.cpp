#include "scene/wcfgl_atomic_table.hpp"

#include <gmock/gmock.h>

#include <array>
#include <string_view>

namespace {

using namespace wcfgl_atomic_table;

constexpr Colour grey{0.5f, 0.5f, 0.5f, 1.0f};

void expect_unknown(const Symbol& symbol) {
    SCOPED_TRACE(symbol.field());
    EXPECT_EQ(get_radius_from_symbol(symbol), 1.0f);
    EXPECT_EQ(get_color_from_symbol(symbol), grey);
}

TEST(AtomicTable, SymbolsAreKnownInMixedCaseAndInCapitals) {
    for (const char* iron : {"Fe", "FE"}) {
        EXPECT_EQ(get_radius_from_symbol(iron), 0.75f);
        EXPECT_EQ(get_color_from_symbol(iron), (Colour{0.62f, 0.31f, 0.01f, 1.0f}));
    }
    EXPECT_EQ(get_radius_from_symbol("K"), 1.52f);
    EXPECT_EQ(get_radius_from_symbol("KR"), 0.88f);
    EXPECT_EQ(get_radius_from_symbol("H"), 0.37f);   // first row
    EXPECT_EQ(get_radius_from_symbol("RN"), 1.20f);  // last row
}

// Sums over the list of elements as it was given, each value weighted by its atomic number: any
// one that is off, and any two in each other's place, change them.
TEST(AtomicTable, NoValueOfTheWholeTableIsOff) {
    constexpr std::array symbols{
        "H",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na", "Mg", "Al", "Si", "P",
        "S",  "Cl", "Ar", "K",  "Ca", "Sc", "Ti", "V",  "Cr", "Mn", "Fe", "Co", "Ni", "Cu", "Zn",
        "Ga", "Ge", "As", "Se", "Br", "Kr", "Rb", "Sr", "Y",  "Zr", "Nb", "Mo", "Tc", "Ru", "Rh",
        "Pd", "Ag", "Cd", "In", "Sn", "Sb", "Te", "I",  "Xe", "Cs", "Ba", "La", "Ce", "Pr", "Nd",
        "Pm", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm", "Yb", "Lu", "Hf", "Ta", "W",  "Re",
        "Os", "Ir", "Pt", "Au", "Hg", "Tl", "Pb", "Bi", "Po", "At", "Rn"};
    double radii = 0, colours = 0;
    for (std::size_t n = 0; n < symbols.size(); ++n) {
        const std::string_view symbol(symbols[n]);
        const Colour colour = get_color_from_symbol(symbol);
        const auto number = static_cast<double>(n + 1);
        radii += number * static_cast<double>(get_radius_from_symbol(symbol));
        colours += number * static_cast<double>(colour[0] + 2 * colour[1] + 4 * colour[2]);
        EXPECT_EQ(colour[3], 1.0f);
    }
    // A hundredth of one value changes a sum by 0.01 or more; 32-bit values by 0.0005 in all.
    EXPECT_NEAR(radii, 4163.61, 0.002);
    EXPECT_NEAR(colours, 13414.73, 0.002);
}

TEST(AtomicTable, AnythingElseIsASphereOfOneAngstromInGrey) {
    for (const char* symbol : {"fe", "fE", "Kx", "D", "U", "  ", " H", "h"}) expect_unknown(symbol);
}

TEST(AtomicTable, RubidiumInCapitalsIsSpeltWithADoubledLetter) {
    EXPECT_EQ(get_radius_from_symbol("RR"), get_radius_from_symbol("Rb"));
    EXPECT_EQ(get_radius_from_symbol("RR"), 1.70f);
    EXPECT_EQ(get_color_from_symbol("RR"), (Colour{0.55f, 0.05f, 0.59f, 1.0f}));
    expect_unknown("RB");
}

}  // namespace
