#include "crystal/crystallographic_symmetry/symmetry_element.hpp"

#include "crystal/crystallographic_symmetry/space_group.hpp"
#include "crystal/symmetry_tables/rows.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

namespace {

using namespace crystallographic_symmetry;

std::string element_of(std::string_view triplet) {
    Sym_Oper_Type op;
    read_xsym(triplet, 1, op.rot, &op.tr);
    return symmetry_element(op);
}

// As the published tables of P 2/m, P 21/c, P 4 b m, P 6, P 2 3, P -4 3 m and others print them.
TEST(SymmetryElement, IsToldAsInThePublishedTables) {
    const std::pair<const char*, const char*> cases[]{
        {"x,y,z", "1"},
        {"x+1/2,y+1/2,z", "t (1/2,1/2,0)"},
        {"-x,-y,-z", "-1 0,0,0"},
        {"-x+1/2,-y,-z+1/2", "-1 1/4,0,1/4"},
        {"-x,y,-z", "2 0,y,0"},
        {"-x,y+1/2,-z+1/2", "2 (0,1/2,0) 0,y,1/4"},
        {"x,-y+1/2,z+1/2", "c x,1/4,z"},
        {"x,-y,z", "m x,0,z"},
        {"x+1/2,y+1/2,-z", "n (1/2,1/2,0) x,y,0"},
        {"-x+1/4,y+1/4,z+1/4", "d (0,1/4,1/4) 1/8,y,z"},
        {"-x+1/4,y+3/4,z+1/4", "d (0,3/4,1/4) 1/8,y,z"},
        {"-y,x,z", "4+ 0,0,z"},
        {"y,-x,z+3/4", "4- (0,0,3/4) 0,0,z"},
        {"y+1/2,x+1/2,z", "g (1/2,1/2,0) x,x,z"},
        {"-y+1/2,-x+1/2,z", "m x,-x+1/2,z"},
        {"y,x,-z", "2 x,x,0"},
        {"-y,-x,-z", "2 x,-x,0"},
        {"y+1/2,x+1/2,z+1/2", "n (1/2,1/2,1/2) x,x,z"},
        {"-y,x-y,z+1/3", "3+ (0,0,1/3) 0,0,z"},
        {"-x+y,-x,z+2/3", "3- (0,0,2/3) 0,0,z"},
        {"x-y,x,z+1/2", "6+ (0,0,1/2) 0,0,z"},
        {"x-y,-y,-z", "2 x,0,0"},
        {"x,x-y,-z", "2 2x,x,0"},
        {"-x,-x+y,-z", "2 0,y,0"},
        {"-x+y,y,z", "m x,2x,z"},
        {"x,x-y,z+1/2", "c 2x,x,z"},
        {"z,x,y", "3+ x,x,x"},
        {"z,-x,-y", "3+ -x,x,-x"},
        {"-z,-x,y", "3+ x,-x,-x"},
        {"-z,x,-y", "3+ -x,-x,x"},
        {"y,z,x", "3- x,x,x"},
        {"-y,z,-x", "3- x,-x,-x"},
        {"y,-x,-z", "-4+ 0,0,z; 0,0,0"},
        {"-y,x,-z", "-4- 0,0,z; 0,0,0"},
        {"-y+1/2,x,-z+1/4", "-4- 1/4,1/4,z; 1/4,1/4,1/8"},
        {"y,-x+y,-z", "-3+ 0,0,z; 0,0,0"},
        {"2x,y,z", ""},
    };
    for (const auto& [triplet, element] : cases) EXPECT_EQ(element_of(triplet), element) << triplet;
}

/// A row of three numbers or letters, with some values for the letters.
Vector3f point_of(std::string_view text) {
    Sym_Oper_Type place;
    read_xsym(text, 1, place.rot, &place.tr);
    return applyso(place, {0.3f, 0.45f, 0.85f});
}

/// How far the text says that the operator moves the points of its element.
Vector3f told_move(const std::string& text) {
    if (const std::size_t open = text.find('('); open != std::string::npos)
        return point_of(text.substr(open + 1, text.find(')') - open - 1));
    Vector3f move;
    if (text[0] >= 'a' && text[0] <= 'c') move[static_cast<std::size_t>(text[0] - 'a')] = 0.5f;
    return move;
}

TEST(SymmetryElement, PointsOfItMoveByItsPartAlone) {
    std::set<std::string> seen;
    Space_Group_Type group;
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        set_spacegroup(row.hall.field(), group, {.mode = "HAL"});
        for (int i = 0; i < group.multip; ++i) {
            const std::string triplet(group.sym_op_text[static_cast<std::size_t>(i)].trimmed());
            if (!seen.insert(triplet).second) continue;
            const Sym_Oper_Type& op = group.sym_op[static_cast<std::size_t>(i)];
            const std::string text = symmetry_element(op);
            SCOPED_TRACE(triplet + " is " + text);
            ASSERT_FALSE(text.empty());
            EXPECT_EQ(text.find('*'), std::string::npos);
            if (text[0] == '1' || text[0] == 't') continue;
            const Vector3f point = point_of(text.substr(text.find_last_of(";) ") + 1));
            const Vector3f moved = applyso(op, point) - point - told_move(text);
            for (const float c : moved.c) EXPECT_NEAR(c, 0, 1e-5f);  // sums of 24-bit fractions
        }
    }
    EXPECT_GT(seen.size(), 800u);
}

}  // namespace
