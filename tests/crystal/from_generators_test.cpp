#include "crystal/crystallographic_symmetry/from_generators.hpp"
#include "crystal/crystallographic_symmetry/centring.hpp"

#include "crystal/crystallographic_symmetry/group_table.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace crystallographic_symmetry;

namespace {

std::vector<Sym_Oper_Type> operators(std::initializer_list<const char*> texts) {
    std::vector<Sym_Oper_Type> ops;
    for (const char* text : texts) {
        Sym_Oper_Type op;
        read_xsym(text, 1, op.rot, &op.tr);
        ops.push_back(op);
    }
    return ops;
}

ReducedList closed(std::initializer_list<const char*> texts) {
    return get_so_from_gener(operators(texts));
}

char letter_of(const ReducedList& list) {
    return lattice_letters[static_cast<std::size_t>(list.lattice_index - 1)];
}

}  // namespace

TEST(Generators, CentringAndInversionAreToldApart) {
    const ReducedList c = closed({"x+1/2,y+1/2,z", "-x,-y,-z"});
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(letter_of(c), 'C');
    EXPECT_EQ(c.centred, 2);
    EXPECT_EQ(c.count, 1);
    EXPECT_EQ(c.generator_count, 0);
    EXPECT_EQ(c.lat_symbol.field(), "aC");
    const ReducedList off = closed({"-x+1/2,-y+1/2,-z", "-x,-y,z"});
    EXPECT_EQ(off.centred, 0);
    EXPECT_EQ(off.centre_coord, (Vector3f{0.25f, 0.25f, 0.0f}));
    EXPECT_EQ(off.count, 2);
    EXPECT_EQ(off.generator_count, 1);
}

TEST(Generators, LatticeFollowsFromTheVectors) {
    EXPECT_EQ(letter_of(closed({"x,y,z", "-x,y,-z"})), 'P');
    EXPECT_EQ(letter_of(closed({"x,y+1/2,z+1/2"})), 'A');
    EXPECT_EQ(letter_of(closed({"x+1/2,y,z+1/2"})), 'B');
    EXPECT_EQ(letter_of(closed({"x+1/2,y+1/2,z+1/2"})), 'I');
    EXPECT_EQ(letter_of(closed({"x+1/3,y+2/3,z+2/3"})), 'R');
    EXPECT_EQ(letter_of(closed({"x+1/2,y,z+1/2", "x,y+1/2,z+1/2"})), 'F');
    EXPECT_EQ(num_lat, 4);
    // A vector a whole cell away is the same vector; a whole cell is none.
    EXPECT_EQ(letter_of(closed({"x-1/2,y+1/2,z"})), 'C');
    EXPECT_EQ(letter_of(closed({"x+1,y,z-2"})), 'P');
    // A mixture is no conventional lattice.
    EXPECT_EQ(letter_of(closed({"x+1/2,y+1/2,z+1/2", "x,y+1/2,z+1/2"})), 'Z');
    EXPECT_EQ(letter_of(closed({"x+2/3,y+1/3,z+1/3", "x+1/2,y+1/2,z"})), 'Z');
    EXPECT_EQ(num_lat, 6);
}

TEST(Generators, UnconventionalVectorsAreCompleted) {
    const ReducedList z = closed({"x+1/3,y,z", "-x,-y,z"});
    EXPECT_EQ(letter_of(z), 'Z');
    EXPECT_EQ(num_lat, 3);
    EXPECT_NEAR(lat_trans[1][0], 1.0f / 3.0f, 1e-6f);
    EXPECT_NEAR(lat_trans[2][0], 2.0f / 3.0f, 1e-6f);
    EXPECT_EQ(z.count, 2);
    // Generators that differ by one of the vectors are one.
    EXPECT_EQ(closed({"x+1/3,y,z", "-x,-y,z", "-x+1/3,-y,z"}).count, 2);
}

TEST(Generators, CombinationsOfVectorsFillTheListAtMost) {
    std::array<Vector3f, 11> vectors{};
    vectors[0] = {0.5f, 0.0f, 0.0f};
    vectors[1] = {0.0f, 0.5f, 0.0f};
    EXPECT_EQ(get_centring_vectors(2, vectors), 3u);
    EXPECT_EQ(vectors[2], (Vector3f{0.5f, 0.5f, 0.0f}));
    vectors[2] = {0.0f, 0.0f, 0.25f};
    EXPECT_EQ(get_centring_vectors(3, vectors), 11u);
    vectors[0] = {0.0003f, 0.0f, 0.0f};
    EXPECT_EQ(get_centring_vectors(3, vectors), 11u);
    EXPECT_EQ(get_centring_vectors(0, vectors), 0u);
    EXPECT_EQ(get_centring_vectors(40, vectors), 11u);
}

TEST(Generators, RepetitionsAndNothingsDoNotCount) {
    const ReducedList list =
        closed({"x,y,z", "-x,y+1/2,-z", "-x,y+1/2,-z", "x,y,z", "-x,y+0.50001,-z"});
    EXPECT_EQ(list.count, 2);
    EXPECT_EQ(list.generator_count, 1);
    EXPECT_EQ(get_so_from_gener({}).count, 1);
    const std::vector<Sym_Oper_Type> zero(3);
    EXPECT_EQ(get_so_from_gener(zero).count, 1);
    EXPECT_FALSE(err_symm);
}

TEST(Generators, AnInversionFoundByClosureHalvesTheList) {
    const ReducedList list = closed({"-x,y,-z+1/2", "x,-y,z+1/2"});
    EXPECT_EQ(list.centred, 2);
    EXPECT_EQ(list.count, 2);
    EXPECT_EQ(list.ops[1].rot, operators({"-x,y,-z"})[0].rot);
    const ReducedList off = closed({"-x,y,-z", "x+1/2,-y,z"});
    EXPECT_EQ(off.centred, 0);
    EXPECT_EQ(off.centre_coord, (Vector3f{0.25f, 0.0f, 0.0f}));
    // -3 about [111]: closure has six operators.
    EXPECT_EQ(closed({"-z,-x,-y"}).count, 3);
}

TEST(Generators, ListsBeyondTheTableAreRefused) {
    closed({"x+y,y,z"});  // a shear: of infinite order
    EXPECT_EQ(err_symm_mess.trimmed(), " Dimension of Table exceeded (II)");
    EXPECT_EQ(closed({"2x,y,z"}).count, 0);
    EXPECT_TRUE(err_symm);
    closed({"9x+9y+9z,9x-9y+9z,9x+9y-8z", "9x,9y+z,8z"});
    EXPECT_TRUE(err_symm);
    // 48 operators, whether or not the inversion is among the generators.
    EXPECT_EQ(closed({"z,x,y", "-y,x,z", "x,y,-z"}).count, 24);
    EXPECT_EQ(closed({"z,x,y", "-y,x,z", "-x,-y,-z"}).count, 24);
    EXPECT_FALSE(err_symm);
    const Sym_Oper_Type huge{{{{{2000000000, 1, 0}, {0, 2000000000, 0}, {0, 0, 1}}}}, {}};
    get_so_from_gener(std::span(&huge, 1));
    EXPECT_EQ(err_symm_mess.trimmed(), " Error in generators");
}

TEST(FixedList, IsAnalysedAsItStands) {
    // C 2/m with its centring and inversion.
    const auto ops = operators({"x,y,z", "-x,y,-z", "-x,-y,-z", "x,-y,z", "x+1/2,y+1/2,z",
                                "-x+1/2,y+1/2,-z", "-x+1/2,-y+1/2,-z", "x+1/2,-y+1/2,z"});
    const ReducedList list = get_so_from_fix(ops);
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(letter_of(list), 'C');
    EXPECT_EQ(list.centred, 2);
    EXPECT_EQ(list.count, 8);
    EXPECT_EQ(list.crystal_system, 2);
    EXPECT_EQ(list.lat_symbol.field(), "mC");
    EXPECT_EQ(get_so_from_fix(operators({"x,y,z", "-x,-y,-z+1/2"})).centred, 0);
    EXPECT_EQ(letter_of(get_so_from_fix(operators({"x,y,z", "x,y,z+1/4"}))), 'Z');
}

TEST(Twelfths, AreWholeAndInTheCell) {
    EXPECT_EQ(twelfths({1.0f / 3.0f, -0.25f, 1.0f}), (Vector3i{4, 9, 0}));
    EXPECT_EQ(twelfths({1e30f, std::numeric_limits<float>::quiet_NaN(), 0.0f}),
              (Vector3i{0, 0, 0}));
    EXPECT_EQ(cell_fractions({6, 3, 0}), (Vector3f{0.5f, 0.25f, 0.0f}));
}
