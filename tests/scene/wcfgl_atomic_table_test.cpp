#include "scene/wcfgl_atomic_table.hpp"

#include <gmock/gmock.h>

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
