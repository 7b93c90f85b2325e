#include "crystal/symmetry_tables/rows.hpp"

#include <iterator>

namespace symmetry_tables {
namespace {

// Schoenflies symbols and the transformations to the settings of Miller and Love, Kovalev, Bradley
// and Cracknell, and Zak, by group number. Source of the symbols: International Tables for
// Crystallography, Volume A.
//
// The transformations are known for C3_2 only; every other row is blank in these four columns. A
// row that becomes known is completed as {"C3_2", ml, ko, bc, za}.
// clang-format off
constexpr SystemEquivRow rows[] = {
    {"C1_1"},
    {"C1_i"},
    {"C1_2"},    {"C2_2"},
    {"C3_2", "z,x,y", "-z,x,-y", "z,-x+y,-x-y", "-x,z,y"},
    {"C1_s"},    {"C2_s"},    {"C3_s"},    {"C4_s"},
    {"C1_2h"},   {"C2_2h"},   {"C3_2h"},   {"C4_2h"},   {"C5_2h"},   {"C6_2h"},
    {"D1_2"},    {"D2_2"},    {"D3_2"},    {"D4_2"},    {"D5_2"},    {"D6_2"},    {"D7_2"},
    {"D8_2"},    {"D9_2"},
    {"C1_2v"},   {"C2_2v"},   {"C3_2v"},   {"C4_2v"},   {"C5_2v"},   {"C6_2v"},   {"C7_2v"},
    {"C8_2v"},   {"C9_2v"},   {"C10_2v"},  {"C11_2v"},  {"C12_2v"},  {"C13_2v"},  {"C14_2v"},
    {"C15_2v"},  {"C16_2v"},  {"C17_2v"},  {"C18_2v"},  {"C19_2v"},  {"C20_2v"},  {"C21_2v"},
    {"C22_2v"},
    {"D1_2h"},   {"D2_2h"},   {"D3_2h"},   {"D4_2h"},   {"D5_2h"},   {"D6_2h"},   {"D7_2h"},
    {"D8_2h"},   {"D9_2h"},   {"D10_2h"},  {"D11_2h"},  {"D12_2h"},  {"D13_2h"},  {"D14_2h"},
    {"D15_2h"},  {"D16_2h"},  {"D17_2h"},  {"D18_2h"},  {"D19_2h"},  {"D20_2h"},  {"D21_2h"},
    {"D22_2h"},  {"D23_2h"},  {"D24_2h"},  {"D25_2h"},  {"D26_2h"},  {"D27_2h"},  {"D28_2h"},
    {"C1_4"},    {"C2_4"},    {"C3_4"},    {"C4_4"},    {"C5_4"},    {"C6_4"},
    {"S1_4"},    {"S2_4"},
    {"C1_4h"},   {"C2_4h"},   {"C3_4h"},   {"C4_4h"},   {"C5_4h"},   {"C6_4h"},
    {"D1_4"},    {"D2_4"},    {"D3_4"},    {"D4_4"},    {"D5_4"},    {"D6_4"},    {"D7_4"},
    {"D8_4"},    {"D9_4"},    {"D10_4"},
    {"C1_4v"},   {"C2_4v"},   {"C3_4v"},   {"C4_4v"},   {"C5_4v"},   {"C6_4v"},   {"C7_4v"},
    {"C8_4v"},   {"C9_4v"},   {"C10_4v"},  {"C11_4v"},  {"C12_4v"},
    {"D1_2d"},   {"D2_2d"},   {"D3_2d"},   {"D4_2d"},   {"D5_2d"},   {"D6_2d"},   {"D7_2d"},
    {"D8_2d"},   {"D9_2d"},   {"D10_2d"},  {"D11_2d"},  {"D12_2d"},
    {"D1_4h"},   {"D2_4h"},   {"D3_4h"},   {"D4_4h"},   {"D5_4h"},   {"D6_4h"},   {"D7_4h"},
    {"D8_4h"},   {"D9_4h"},   {"D10_4h"},  {"D11_4h"},  {"D12_4h"},  {"D13_4h"},  {"D14_4h"},
    {"D15_4h"},  {"D16_4h"},  {"D17_4h"},  {"D18_4h"},  {"D19_4h"},  {"D20_4h"},
    {"C1_3"},    {"C2_3"},    {"C3_3"},    {"C4_3"},
    {"C1_3i"},   {"C2_3i"},
    {"D1_3"},    {"D2_3"},    {"D3_3"},    {"D4_3"},    {"D5_3"},    {"D6_3"},    {"D7_3"},
    {"C1_3v"},   {"C2_3v"},   {"C3_3v"},   {"C4_3v"},   {"C5_3v"},   {"C6_3v"},
    {"D1_3d"},   {"D2_3d"},   {"D3_3d"},   {"D4_3d"},   {"D5_3d"},   {"D6_3d"},
    {"C1_6"},    {"C2_6"},    {"C3_6"},    {"C4_6"},    {"C5_6"},    {"C6_6"},
    {"C1_3h"},
    {"C1_6h"},   {"C2_6h"},
    {"D1_6"},    {"D2_6"},    {"D3_6"},    {"D4_6"},    {"D5_6"},    {"D6_6"},
    {"C1_6v"},   {"C2_6v"},   {"C3_6v"},   {"C4_6v"},
    {"D1_3h"},   {"D2_3h"},   {"D3_3h"},   {"D4_3h"},
    {"D1_6h"},   {"D2_6h"},   {"D3_6h"},   {"D4_6h"},
    {"T1"},      {"T2"},      {"T3"},      {"T4"},      {"T5"},
    {"T1_h"},    {"T2_h"},    {"T3_h"},    {"T4_h"},    {"T5_h"},    {"T6_h"},    {"T7_h"},
    {"O1"},      {"O2"},      {"O3"},      {"O4"},      {"O5"},      {"O6"},      {"O7"},
    {"O8"},
    {"T1_d"},    {"T2_d"},    {"T3_d"},    {"T4_d"},    {"T5_d"},    {"T6_d"},
    {"O1_h"},    {"O2_h"},    {"O3_h"},    {"O4_h"},    {"O5_h"},    {"O6_h"},    {"O7_h"},
    {"O8_h"},    {"O9_h"},    {"O10_h"},
};
// clang-format on
static_assert(std::size(rows) == 230);

}  // namespace

std::span<const SystemEquivRow, 230> system_equiv_rows() { return rows; }

}  // namespace symmetry_tables
