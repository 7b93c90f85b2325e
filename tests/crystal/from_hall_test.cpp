#include "crystal/crystallographic_symmetry/from_hall.hpp"

#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/symmetry_tables.hpp"

#include <gtest/gtest.h>
#include <algorithm>
#include <random>
#include <string>
#include <vector>

using namespace crystallographic_symmetry;

namespace {

std::vector<std::string> texts(const ReducedList& list) {
    std::vector<std::string> result;
    for (int i = 0; i < list.count; ++i) {
        const Sym_Oper_Type& op = list.ops[static_cast<std::size_t>(i)];
        FixedText<40> text;
        get_symsymb(op.rot, op.tr, text);
        result.emplace_back(text.trimmed());
    }
    return result;
}

std::vector<std::string> sorted_texts(const char* hall) {
    std::vector<std::string> result = texts(get_so_from_hall(hall));
    std::sort(result.begin(), result.end());
    return result;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(Hall, OperatorsByHand) {
    EXPECT_EQ(texts(get_so_from_hall("P 1")), (Texts{"x,y,z"}));
    EXPECT_EQ(texts(get_so_from_hall("-P 2ybc")), (Texts{"x,y,z", "-x,y+1/2,-z+1/2"}));
    EXPECT_EQ(sorted_texts("P 2ac 2ab"),
              (Texts{"-x+1/2,-y,z+1/2", "-x,y+1/2,-z+1/2", "x+1/2,-y+1/2,-z", "x,y,z"}));
    EXPECT_EQ(sorted_texts("P 3*"), (Texts{"x,y,z", "y,z,x", "z,x,y"}));
    EXPECT_EQ(sorted_texts("p 41"), (Texts{"-x,-y,z+1/2", "-y,x,z+1/4", "x,y,z", "y,-x,z+3/4"}));
    EXPECT_EQ(sorted_texts("P -4n"),
              (Texts{"-x,-y,z", "-y+1/2,x+1/2,-z+1/2", "x,y,z", "y+1/2,-x+1/2,-z+1/2"}));
}

TEST(Hall, AxesFollowFromThePlaceInTheSymbol) {
    // The second two-fold axis lies along x behind a 2 or 4, along a-b behind a 3 or 6.
    const auto holds = [](const char* hall, const char* text) {
        const Texts all = texts(get_so_from_hall(hall));
        return std::find(all.begin(), all.end(), text) != all.end();
    };
    EXPECT_TRUE(holds("P 2 2", "x,-y,-z"));
    EXPECT_TRUE(holds("P 4 2", "x,-y,-z"));
    EXPECT_TRUE(holds("P 3 2", "-y,-x,-z"));
    EXPECT_FALSE(holds("P 3 2", "y,x,-z"));
    EXPECT_TRUE(holds("P 3 2\"", "y,x,-z"));
    EXPECT_TRUE(holds("P 2 2 3", "z,x,y"));
    EXPECT_TRUE(holds("P 2x 2'", "-x,-z,-y"));
    EXPECT_TRUE(holds("P 2y 2\"", "z,-y,x"));
    EXPECT_TRUE(holds("P 6x", "x,y-z,y"));
    EXPECT_TRUE(holds("P 4y", "z,y,-x"));
}

TEST(Hall, InversionStandsInFrontOrBehind) {
    EXPECT_EQ(get_so_from_hall("-P 2 2").centred, 2);
    EXPECT_EQ(get_so_from_hall("P 2 2").centred, 1);
    const ReducedList shifted = get_so_from_hall("P 2 2 -1n");
    EXPECT_EQ(shifted.centred, 0);
    EXPECT_EQ(shifted.centre_coord, (Vector3f{0.25f, 0.25f, 0.25f}));
    EXPECT_EQ(shifted.count, 4);
    EXPECT_EQ(shifted.generator_count, 2);
    const ReducedList diamond = get_so_from_hall("F 4d 2 3 -1cd");
    EXPECT_EQ(diamond.centred, 0);
    EXPECT_FLOAT_EQ(diamond.centre_coord[0], 0.125f);
    EXPECT_FLOAT_EQ(diamond.centre_coord[2], 0.375f);
    EXPECT_EQ(get_so_from_hall("P -1").centred, 2);
    EXPECT_EQ(get_so_from_hall("P 2 -1").centred, 2);
}

TEST(Hall, OriginShiftMovesTheGenerators) {
    // P 61 2 2 of International Tables: two-fold axes along a at 0, along a-b at 5/12.
    const Texts all = texts(get_so_from_hall("P 61 2 (0 0 -1)"));
    EXPECT_EQ(all.size(), 12u);
    for (const char* text : {"x-y,x,z+1/6", "y,x,-z+1/3", "x-y,-y,-z", "-y,-x,-z+5/6"})
        EXPECT_NE(std::find(all.begin(), all.end(), text), all.end()) << text;
    // Entries that aren't 1 to 5 count as 0.
    EXPECT_EQ(sorted_texts("P 2 (7 x 1)"), sorted_texts("P 2 (0 0 1)"));
    EXPECT_EQ(sorted_texts("P 2y (0 0 -3)"), (Texts{"-x,y,-z+1/2", "x,y,z"}));
    // What follows the shift counts, and is moved too.
    EXPECT_EQ(sorted_texts("P 2 (0 0 3) 2"),
              (Texts{"-x,-y,z", "-x,y,-z+1/2", "x,-y,-z+1/2", "x,y,z"}));
    for (const char* wrong : {"P 2 (0 0 1) 5", "P 2 (0 0", "P 2(1)", "P 2 ()"}) {
        get_so_from_hall(wrong);
        EXPECT_TRUE(err_symm) << wrong;
    }
}

TEST(Hall, LatticeReachesListAndModule) {
    const ReducedList r = get_so_from_hall("R 3");
    EXPECT_EQ(r.lattice_index, 6);
    EXPECT_EQ(r.count, 3);
    EXPECT_EQ(r.lat_symbol.field(), "hR");
    EXPECT_EQ(num_lat, 3);
    EXPECT_EQ(lat_type.field(), "R");
    // A lattice letter alone is a group as well: the lattice of a magnetic structure.
    const ReducedList body = get_so_from_hall("I");
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(body.count, 1);
    EXPECT_EQ(num_lat, 2);
}

TEST(Hall, FailuresLeaveTheModuleAsItWas) {
    get_so_from_hall("F 2 2");
    for (const char* hall : {"Q 2", "", "Z 1", "-", "-1", "2 P", "P-1"}) {
        get_so_from_hall(hall);
        const bool lattice = hall[0] == 'P';  // "P-1" is P with an inversion
        EXPECT_EQ(err_symm_mess.trimmed(), lattice ? "" : " IBRAVL is Equal Zero") << hall;
        EXPECT_EQ(err_symm, !lattice) << hall;
    }
    get_so_from_hall("F 2 2");
    for (const char* hall : {"P 5", "P 7", "P -", "P 2q", "P 21", "P 11", "P 4*", "P 2'", "P 3'",
                             "P 3* 2\"", "P 2*", "P 36", "P 31*", "P 2 2 5"}) {
        const ReducedList list = get_so_from_hall(hall);
        EXPECT_TRUE(err_symm && err_symm_mess.blank()) << hall;
        EXPECT_EQ(list.count, 0) << hall;
    }
    EXPECT_EQ(num_lat, 4);
}

TEST(Hall, GroupsThatDoNotCloseAreRefused) {
    get_so_from_hall("P 6 6x");
    EXPECT_EQ(err_symm_mess.trimmed(), " Dimension of Table exceeded (II)");
    get_so_from_hall("P 4 3");  // a three-fold axis along a, on a tetragonal cell
    EXPECT_TRUE(err_symm);
}

TEST(Hall, AnyBytesEndInAListOrAnError) {
    std::mt19937 random(11);
    const std::string alphabet = "PABCIRFZ 123456-'\"*XYZabcnuvwd()\n\xfe";
    for (int n = 0; n < 30000; ++n) {
        std::string text(random() % 20, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        text.insert(0, n % 2 ? "P " : "");
        const ReducedList list = get_so_from_hall(text);
        ASSERT_LE(list.count, 24) << text;
        ASSERT_TRUE(err_symm || list.count > 0) << text;
    }
}

TEST(FromHall, APowerThatIsACentringVectorAwayIsLeftToTheProducts) {
    // The square of the 41 axis is the two-fold at the origin moved by the centring; the cube,
    // found as a power, stands before it.
    const ReducedList list = get_so_from_hall("I 4bw");
    ASSERT_EQ(list.count, 4);
    EXPECT_EQ(list.ops[1].rot, (Matrix3i{{{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}}));
    EXPECT_EQ(list.ops[2].rot, (Matrix3i{{{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}}));
    EXPECT_EQ(list.ops[3].rot, (Matrix3i{{{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}}));
}
