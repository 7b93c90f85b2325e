#include "crystal/crystallographic_symmetry/operators.hpp"

#include "crystal/crystallographic_symmetry/operator_tables.hpp"
#include "crystal/math_gen.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace crystallographic_symmetry;

namespace {

Sym_Oper_Type read(std::string_view text) {
    Sym_Oper_Type op;
    read_xsym(text, 1, op.rot, &op.tr);
    return op;
}

std::string printed(const Sym_Oper_Type& op) {
    FixedText<80> text;
    get_symsymb(op.rot, op.tr, text);
    return std::string(text.trimmed());
}

std::string printed(const Matrix3f& m, const Vector3f& tr) {
    FixedText<40> text;
    get_symsymb(m, tr, text);
    return std::string(text.trimmed());
}

std::string error_of(std::string_view text) {
    read(text);
    return err_symm ? std::string(err_symm_mess.trimmed()) : "no error";
}

constexpr Matrix3i unit{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};

}  // namespace

TEST(ReadXsym, SpellingsOfOneOperatorGiveOneOperator) {
    const Sym_Oper_Type expected{{{{{-1, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}}, {0.5f, 0.0f, 0.25f}};
    for (const char* text :
         {"-x+y+1/2,-x,z+1/4", "1/2-x+y,-x,1/4+z", "Y-X+0.5 , -X , Z+0.25", "+1/2+y-x*-x*z+.25,",
          " - x + y + 1 / 2 ,-x,z+1/4", "1/2-1x+1y,-1x,1z+1/4", "1/2-x+y,-x,1/4+z,more"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(read(text), expected);
        EXPECT_FALSE(err_symm);
    }
}

TEST(ReadXsym, FailuresAreToldToTheLetter) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"x,y", " The above operator is wrong: x,y"},
        {"x,y,", " Blank operator field"},
        {"x,,z", " Blank operator field"},
        {"", " Blank operator field"},
        {"x+y,x+y,z", " The above operator is wrong: x+y,x+y,z"},
        {"x,y,a", " Invalid character... a in Sym. Op."},
        {"x;y;z", " Invalid character... ; in Sym. Op."},
        {"0,y,1/4", " The above operator is wrong: 0,y,1/4"},
        {"2x,y,z", "no error"},
        {"x,y,z,", "no error"},
    };
    for (const auto& [text, message] : cases) EXPECT_EQ(error_of(text), message) << text;
    read("x,y,z");
    EXPECT_TRUE(err_symm_mess.blank());
}

// Kept as they are: files rely on what they have always been read as.
TEST(ReadXsym, OddRowsKeepTheirReading) {
    EXPECT_EQ(read("x+1/2+1/4,y,z").tr[0], 0.125f);  // each number behind a slash divides
    EXPECT_EQ(read("x+y+x,y,z").rot[0], (Vector3i{1, 1, 0}));
    EXPECT_EQ(read("x-x,y,z").rot[0], (Vector3i{-1, 0, 0}));  // the later mention counts
    EXPECT_EQ(read("1/2-2x,y,z").tr[0], -0.5f);               // a coefficient's sign counts too
    EXPECT_EQ(read("12x,y,z").rot[0], (Vector3i{2, 0, 0}));   // one digit of coefficient
    EXPECT_EQ(read("12x,y,z").tr[0], 1.0f);
    EXPECT_EQ(read("x+0.125,y,z").tr[0], 0.125f);
}

TEST(ReadXsym, BeginsWhereItIsToldTo) {
    Matrix3i rot;
    Vector3f tr;
    read_xsym("SYMM z,x,y+1/2", 6, rot, &tr);
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(rot, (Matrix3i{{{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}}}));
    EXPECT_EQ(tr, (Vector3f{0.0f, 0.0f, 0.5f}));
    read_xsym("x,y,z", 400, rot);
    EXPECT_EQ(err_symm_mess.trimmed(), " Blank operator field");
    read_xsym("x,y,z", -3, rot);
    EXPECT_EQ(rot, unit);
}

TEST(ReadXsym, AnyBytesEndInAnOperatorOrAnError) {
    std::mt19937 random(7);
    const std::string alphabet = "xyzXYZ+-/.*, 0123456789uvw\0\xff\t(";
    for (int n = 0; n < 20000; ++n) {
        std::string text(random() % 120, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        const Sym_Oper_Type op = read(text);
        printed(op);
        float phase = 0.0f;
        Matrix3i rot;
        read_msymm(text, rot, phase);
    }
    EXPECT_EQ(error_of(std::string(100000, 'q')), " Invalid character... q in Sym. Op.");
    EXPECT_EQ(error_of("x+" + std::string(5000, '9') + ",y,z"), "no error");
}

TEST(ReadMsymm, ReadsLettersAndPhase) {
    Matrix3i rot;
    float phase = 9.0f;
    read_msymm("MSYM u,v,w,0.5", rot, phase);
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(rot, unit);
    EXPECT_EQ(phase, 0.5f);
    read_msymm("MSYM -U, u-V ,-w, -0.25 degrees", rot, phase);
    EXPECT_EQ(rot, (Matrix3i{{{{-1, 0, 0}, {1, -1, 0}, {0, 0, -1}}}}));
    EXPECT_EQ(phase, -0.25f);
    read_msymm("MSYM u,v,w,nothing", rot, phase);
    EXPECT_FALSE(err_symm);
    EXPECT_EQ(phase, 0.0f);
}

TEST(ReadMsymm, FailuresAreToldToTheLetter) {
    const auto error = [](std::string_view line) {
        Matrix3i rot;
        float phase = 0.0f;
        read_msymm(line, rot, phase);
        return std::string(err_symm_mess.trimmed());
    };
    // Without a phase the last row takes its place, and the one before is read twice.
    EXPECT_EQ(error("MSYM u,v,w"), " The above operator is wrong MSYM u,v,w");
    EXPECT_EQ(error("MSYM u,,w,0"), " Blank operator field MSYM u,,w,0");
    EXPECT_EQ(error("MSYM 2u,v,w,0"), " Invalid character... 2 in Sym. Op.");
    EXPECT_EQ(error("MSYM"), " Blank operator field MSYM");
}

TEST(GetSymsymb, PrintsTripletsWithoutBlanks) {
    for (const char* text : {"x,y,z", "-x+y,-x,z+1/3", "x-y,x,z+5/6", "-z+3/4,-x+1/4,y+7/8",
                             "-2x,y,z", "x+1,y+2,z", "x-1/2,y,z", "x+1/7,y,z"})
        EXPECT_EQ(printed(read(text)), text);
    EXPECT_EQ(printed({unit, {0.00015f, 0.0f, -0.00015f}}), "x,y,z");
    EXPECT_EQ(printed({unit, {0.123f, 0.0f, 0.0f}}), "x***/**,y,z");
    EXPECT_EQ(printed(read("x+2y,y,z")), "x2y,y,z");  // a further coefficient has no plus
    EXPECT_EQ(printed({{}, {0.5f, 0.0f, 0.0f}}), "1/2,,");
    FixedText<5> narrow;
    get_symsymb(unit, {0.5f, 0.0f, 0.0f}, narrow);
    EXPECT_EQ(narrow.field(), "x+1/2");
    const float none = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(printed({unit, {none, 1e30f, -1e30f}}).substr(0, 2), "x*");
}

TEST(GetSymsymb, EveryFractionReadsBack) {
    for (int denominator = 2; denominator <= 24; ++denominator)
        for (int numerator = 1; numerator < denominator; ++numerator) {
            const float value = static_cast<float>(numerator) / static_cast<float>(denominator);
            const std::string text = printed({unit, {value, -value, 0.0f}});
            const Sym_Oper_Type op = read(text);
            EXPECT_FLOAT_EQ(op.tr[0], value) << text;
            EXPECT_FLOAT_EQ(op.tr[1], -value) << text;
        }
    EXPECT_EQ(read("5/12-x,y,z + 1/1 2").tr, (Vector3f{5.0f / 12.0f, 0.0f, 1.0f / 12.0f}));
    EXPECT_EQ(read("x+1/10,1/05+y,11/24-z").tr, (Vector3f{0.1f, 0.2f, 11.0f / 24.0f}));
}
TEST(GetSymsymb, PrintsFractionalCoefficients) {
    const Matrix3f halves{{{{0.5f, -0.75f, 0.0f}, {2.0f, 1.0f, 0.0f}, {0.0f, 0.0f, -1.0f}}}};
    EXPECT_EQ(printed(halves, {0.0f, 0.25f, 2.0f / 3.0f}), "x/2-3y/4,2x+y+1/4,-z+2/3");
    EXPECT_EQ(printed(Matrix3f{}, {0.0f, 0.5f, 1.0f}), "0,1/2,1");
    EXPECT_EQ(printed({{{{-0.5f, 0, 0}, {0, 1.5f, 0}, {0, 0, 0.12f}}}}, {7.0f / 12.0f, 0, -0.5f}),
              "-x/2**/*,3y/2,**z/*-1/2");
}

TEST(GetSymsymb, FractionsAreInLowestTerms) {
    constexpr const char* expected[] = {"",     "+1/24",  "+1/12", "+1/8", "+1/6",   "+5/24",
                                        "+1/4", "+7/24",  "+1/3",  "+3/8", "+5/12",  "+11/24",
                                        "+1/2", "+13/24", "+7/12", "+5/8", "+2/3",   "+17/24",
                                        "+3/4", "+19/24", "+5/6",  "+7/8", "+11/12", "+23/24"};
    for (int n = 0; n < 24; ++n) {
        // What folding in 32 bits leaves of the fraction.
        const float folded = math_gen::modulo_lat(static_cast<float>(n) / 24.0f);
        EXPECT_EQ(printed({unit, {folded, 0.0f, 0.0f}}), "x" + std::string(expected[n]) + ",y,z");
    }
    EXPECT_EQ(printed({unit, {4.0f / 7.0f, 9.0f / 22.0f, -1.0f / 12.0f}}), "x+4/7,y+9/22,z-1/12");
}

TEST(Products, FoldOnlyWhenTold) {
    const Sym_Oper_Type step = read("x+3/4,y,z");
    EXPECT_EQ(product_symop(step, step).tr[0], 1.5f);
    EXPECT_EQ(sym_prod(step, step).tr[0], 0.5f);
    EXPECT_EQ(sym_prod(step, step, false).tr[0], 1.5f);
    // b acts first: a three-fold axis about c after a translation along b.
    EXPECT_EQ(sym_prod_st("-y,x-y,z", "x,y+1/4,z+1/3").trimmed(), "-y+3/4,x-y+3/4,z+1/3");
    EXPECT_EQ(applyso(read("-y,x-y,z+1/3"), {0.25f, 0.5f, 0.0f}),
              (Vector3f{-0.5f, -0.25f, 1.0f / 3.0f}));
}

TEST(Products, AnUnreadableFactorStaysReported) {
    sym_prod_st("x,y,q", "x,y,z");
    EXPECT_EQ(err_symm_mess.trimmed(), " Invalid character... q in Sym. Op.");
}

TEST(InverseSymm, UndoesTheOperator) {
    for (const char* text : {"-y,x-y,z+1/3", "y+1/4,-x+3/4,z+1/4", "-x,-y,-z+1/2"}) {
        const Sym_Oper_Type op = read(text);
        Sym_Oper_Type inverse;
        inverse_symm(op.rot, op.tr, inverse.rot, inverse.tr);
        EXPECT_EQ(printed(product_symop(op, inverse)), "x,y,z") << text;
    }
    init_err_symm();
    Sym_Oper_Type inverse = read("x,y,z");
    inverse_symm({}, {0.5f, 0, 0}, inverse.rot, inverse.tr);
    EXPECT_EQ(err_symm_mess.trimmed(), "Inversion Matrix Failed");
    EXPECT_EQ(inverse, Sym_Oper_Type{});
}

TEST(Comparison, TakesTranslationsAsTheyStand) {
    EXPECT_TRUE(equal_symop(read("x+0.3333,y,z"), read("x+1/3,y,z")));
    EXPECT_FALSE(equal_symop(read("x+0.333,y,z"), read("x+1/3,y,z")));
    EXPECT_FALSE(equal_symop(read("x,y,z"), read("x+1,y,z")));
    EXPECT_FALSE(equal_symop(read("x,y,z"), read("x,y,-z")));
    const std::vector<Sym_Oper_Type> known{read("x,y,z"), read("-x,-y,z")};
    EXPECT_FALSE(is_new_op(read("-x,-y,z"), known));
    EXPECT_TRUE(is_new_op(read("-x,-y,z+1/2"), known));
}

TEST(RotTable, RowsAreTheProperRotationsOfTwoGroups) {
    for (int row = 1; row <= 36; ++row) {
        const Matrix3i& rot = rot_table[static_cast<std::size_t>(row - 1)];
        EXPECT_EQ(math_gen::determ_a_i(rot), 1) << row;
        const int first = row <= 24 ? 1 : 25;
        const int last = row <= 24 ? 24 : 36;
        EXPECT_EQ(searchop(rot, first, last), row);
        EXPECT_EQ(searchop({-rot[0], -rot[1], -rot[2]}, first, last), -row);
        // Each set is closed.
        for (int other = first; other <= last; ++other) {
            init_err_symm();
            const Sym_Oper_Type product =
                product_symop({rot, {}}, {rot_table[static_cast<std::size_t>(other - 1)], {}});
            EXPECT_GT(searchop(product.rot, first, last), 0);
        }
    }
}

TEST(RotTable, AStrangerIsToldByTheSetSearched) {
    const Matrix3i stranger = read("2x,y,z").rot;
    const std::string begin =
        " Try to re-write your S.O. using a rotational part identical to a S.O. of the space "
        "group ";
    const auto message = [&](int first, int last) {
        EXPECT_EQ(searchop(stranger, first, last), 0);
        return std::string(err_symm_mess.trimmed());
    };
    EXPECT_EQ(message(1, 24), begin + "P m -3 m");
    EXPECT_EQ(message(25, 36), begin + "P 6/m m m");
    EXPECT_EQ(message(1, 36), begin + "P m -3 m or P 6/m m m");
}

TEST(SeitzTexts, SayTheirRotations) {
    EXPECT_EQ(seitz_cubic[0].field(), "( x, y, z)");
    EXPECT_EQ(seitz_cubic[1].field(), "(-x,-y, z)");
    EXPECT_EQ(seitz_cubic[26].field(), "( x,-y, z)");
    EXPECT_EQ(seitz_hexa[0].field(), "( x  ,   y, z)");
    EXPECT_EQ(seitz_hexa[1].field(), "(  -y, x-y, z)");
    EXPECT_EQ(moment_text[4].field(), "( Mz, Mx, My)      ");
    for (std::size_t i = 0; i < 72; ++i) {
        std::string letters;
        for (const char c : moment_text[i].trimmed())
            if (c != '(' && c != ')' && c != 'M') letters += c;
        const std::size_t row = i < 48 ? i % 24 : 24 + (i - 48) % 12;
        const bool inverted = i < 48 ? i >= 24 : i >= 60;
        const Matrix3i& m = rot_table[row];
        EXPECT_EQ(read(letters).rot, inverted ? (Matrix3i{-m[0], -m[1], -m[2]}) : m) << i;
    }
}

TEST(SeitzTexts, SymbolHasRotationAndFractions) {
    EXPECT_EQ(get_seitz(2, {0.5f, 0.0f, -1.0f / 3.0f}).trimmed(), "{-x,-y, z| 1/2,  0 ,-1/3}");
    EXPECT_EQ(get_seitz(-1, {}).trimmed(), "{-x,-y,-z|  0 ,  0 ,  0 }");
    EXPECT_EQ(get_seitz(1, {0.123f, 0.25f, 0.1f}).trimmed(), "{ x, y, z| 1/4}");
    EXPECT_TRUE(get_seitz(0, {}).blank());
    EXPECT_TRUE(get_seitz(49, {}).blank());
    EXPECT_EQ(decodmatmag(read("-x,-y,-z").rot).trimmed(), "(-Mx,-My,-Mz)");
    EXPECT_TRUE(decodmatmag(read("2x,y,z").rot).blank());
    hexa = true;
    EXPECT_EQ(get_seitz(2, {0.0f, 0.0f, 2.0f / 3.0f}).trimmed(), "{  -y, x-y, z|  0 ,  0 , 2/3}");
    EXPECT_EQ(decodmatmag(read("-y,x-y,z").rot).trimmed(), "(  -My, Mx-My, Mz)");
    EXPECT_EQ(decodmatmag(read("-x,-y,z").rot).trimmed(), "(-Mx,-My, Mz)");
    hexa = false;
}

TEST(LatticeTrans, KnowsTheVectorsOfEachLetter) {
    const Vector3f a{0.0f, 0.5f, 1.5f}, i{0.5f, -0.5f, 0.5f},
        r{2.0f / 3.0f, 1.0f / 3.0f, 1.0f / 3.0f};
    for (const char letter : {'P', 'A', 'z', '?'}) EXPECT_TRUE(lattice_trans({1, -2, 0}, letter));
    EXPECT_TRUE(lattice_trans(a, 'A') && lattice_trans(a, 'a') && lattice_trans(a, 'F'));
    EXPECT_TRUE(lattice_trans(i, 'I') && lattice_trans(r, 'R') && lattice_trans(-r, 'r'));
    EXPECT_FALSE(lattice_trans(a, 'P') || lattice_trans(a, 'B') || lattice_trans(i, 'F') ||
                 lattice_trans({1.0f / 3.0f, 2.0f / 3.0f, 1.0f / 3.0f}, 'R'));
    num_lat = 2;
    lat_trans[1] = {1.0f / 3.0f, 0.0f, 0.0f};
    EXPECT_TRUE(lattice_trans({4.0f / 3.0f, 0.0f, 1.0f}, 'Z'));
    EXPECT_FALSE(lattice_trans({2.0f / 3.0f, 0.0f, 0.0f}, 'Z') ||
                 lattice_trans({1.0f / 3.0f, 0.0f, 0.0f}, 'z'));
}

TEST(OperatorCodes, ReadAndWriteAlike) {
    const auto read_code = [](const char* text) {
        int number = 0;
        Vector3f tr{9, 9, 9};
        read_symtrans_code(text, number, tr);
        return std::pair(number, tr);
    };
    EXPECT_EQ(read_code("_5.465"), std::pair(5, (Vector3f{-1, 1, 0})));
    EXPECT_EQ(read_code("  _12"), std::pair(12, (Vector3f{})));
    EXPECT_EQ(read_code(""), std::pair(1, (Vector3f{})));
    EXPECT_EQ(read_code("_x.9"), std::pair(1, (Vector3f{})));
    EXPECT_EQ(write_symtrans_code(5, {-1, 1, 0}).trimmed(), "_5.465");
    EXPECT_EQ(write_symtrans_code(12, {}).trimmed(), "_12");
    EXPECT_EQ(write_symtrans_code(1, {0, 0, 1}).trimmed(), "_1.556");
    EXPECT_TRUE(write_symtrans_code(1, {}).blank());
    EXPECT_EQ(write_symtrans_code(1, {7, 0, 1e30f}).trimmed(), "_1.*5*");
}

TEST(ModTrans, FoldsAndSwapsTheFlag) {
    std::vector<Sym_Oper_Type> ops{read("x-1/4,y+1,z+1/2")};
    int swapped = 0;
    mod_trans(ops, 1, &swapped);
    EXPECT_EQ(ops[0].tr, (Vector3f{0.75f, 0.0f, 0.5f}));
    EXPECT_EQ(swapped, 1);
    mod_trans(ops, 0, &swapped);
    EXPECT_EQ(swapped, 2);
}
