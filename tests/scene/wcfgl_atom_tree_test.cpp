#include "scene/wcfgl_atom_tree.hpp"

#include "scene/wcfgl_atomic_table.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "tests/support/gl_record.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <vector>

namespace {

using namespace wcfgl_atom_tree;
using gl_record::Primitive;
using testing::ElementsAre;
using testing::UnorderedElementsAre;
using wcfgl_metrix::define_box;
using wcfgl_metrix::define_spacegroup;

constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();

void push(const char* label, const char* symbol, const Vector3f& xf,
          const std::optional<Colour>& colour = {}) {
    push_atom({.label = label, .symbol = symbol, .xf = xf, .radius = 0.7f, .colour = colour});
}

/// What a frame draws; the flags are cleared as at its end.
std::vector<Primitive> frame() {
    gl_record::clear();
    draw_atoms();
    wcfgl_metrix::box_changed = wcfgl_metrix::cell_changed = wcfgl_metrix::spacegroup_changed = 0;
    return gl_record::drawn();
}

std::vector<Vector3f> centres(const std::vector<Primitive>& spheres) {
    std::vector<Vector3f> result;
    for (const Primitive& sphere : spheres) {
        const Vector3<double> c = sphere.centre();
        result.push_back(
            {static_cast<float>(c[0]), static_cast<float>(c[1]), static_cast<float>(c[2])});
    }
    return result;
}

Atom atom_named(const char* label) {
    std::vector<Atom> atoms;
    EXPECT_TRUE(search_atom_list_by_label(label, atoms));
    return atoms.empty() ? Atom{} : atoms.front();
}

TEST(AtomPicture, AnAtomAtTheOriginStandsAtAllCornersOfTheBox) {
    push("Fe1", "Fe", {0, 0, 0});
    const std::vector<Primitive> spheres = frame();
    EXPECT_THAT(
        centres(spheres),
        ElementsAre(Vector3f{0, 0, 0}, Vector3f{0, 0, 1}, Vector3f{0, 1, 0}, Vector3f{0, 1, 1},
                    Vector3f{1, 0, 0}, Vector3f{1, 0, 1}, Vector3f{1, 1, 0}, Vector3f{1, 1, 1}));
    for (const Primitive& sphere : spheres) {
        EXPECT_EQ(sphere.name, "gluSphere");
        EXPECT_NEAR(sphere.at(1, 0, 0)[0] - sphere.centre()[0], 0.7, 1e-7);
        EXPECT_NEAR(sphere.at(0, 0, 1)[2] - sphere.centre()[2], 0.7, 1e-7);
        const Colour iron{0.62f, 0.31f, 0.01f, 1.0f};
        EXPECT_EQ(sphere.material, iron);
        EXPECT_EQ(sphere.back_material, iron);
        EXPECT_EQ(sphere.ambient, iron);
    }
}

TEST(AtomPicture, CallsOfOneAtomComeInTheirOrder) {
    define_box(0, 0.5f, 0, 0.5f, 0, 0.5f);
    push("O", "O", {0.25f, 0.25f, 0.5f}, Colour{0.1f, 0.2f, 0.3f, 0.4f});
    gl_record::clear();
    update_all_atoms();
    const std::vector<std::string> calls = gl_record::texts();
    ASSERT_EQ(calls.size(), 8u);
    EXPECT_THAT(calls[0], testing::StartsWith("glNewList("));
    EXPECT_EQ(calls[1], "glMaterialfv(" + std::to_string(GL_FRONT_AND_BACK) + ", " +
                            std::to_string(GL_AMBIENT_AND_DIFFUSE) + ", 0.1, 0.2, 0.3, 0.4)");
    EXPECT_EQ(calls[2], "glPushMatrix()");
    EXPECT_EQ(calls[3], "glTranslatef(0.25, 0.25, 0.5)");
    EXPECT_EQ(calls[4], "glScalef(0.7, 0.7, 0.7)");
    EXPECT_THAT(calls[5], testing::StartsWith("glCallList("));
    EXPECT_EQ(calls[6], "glPopMatrix()");
    EXPECT_EQ(calls[7], "glEndList()");
}

TEST(AtomPicture, TheGroupsPositionsRunFasterThanTheCells) {
    define_spacegroup("P -1");
    define_box(0, 2, 0, 1, 0, 1);
    push("O", "O", {0.25f, 0.5f, 0.125f});
    EXPECT_THAT(centres(frame()),
                ElementsAre(Vector3f{0.25f, 0.5f, 0.125f}, Vector3f{0.75f, 0.5f, 0.875f},
                            Vector3f{1.25f, 0.5f, 0.125f}, Vector3f{1.75f, 0.5f, 0.875f}));
}

TEST(AtomPicture, AChangeOfBoxCellOrGroupIsTakenUpByTheNextFrameOnly) {
    push("O", "O", {0.25f, 0.25f, 0.25f});
    EXPECT_EQ(frame().size(), 1u);
    gl_record::clear();
    draw_atoms();
    EXPECT_EQ(gl_record::count("glNewList"), 0u);  // nothing has changed
    define_box(0, 2, 0, 1, 0, 1);
    EXPECT_EQ(frame().size(), 2u);
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    EXPECT_FLOAT_EQ(centres(frame())[0][0], 1.0f);
    define_spacegroup("P -1");
    EXPECT_EQ(get_atom_info(1).multiplicity, 1);
    EXPECT_EQ(frame().size(), 4u);
    EXPECT_EQ(get_atom_info(1).multiplicity, 2);
}

TEST(AtomPicture, NumbersThatNoStructureHasDrawNothing) {
    push("A", "O", {not_a_number, 0.5f, 0.5f});
    push("B", "O", {std::numeric_limits<float>::infinity(), 1e30f, -1e30f});
    EXPECT_TRUE(frame().empty());
}

TEST(EquivalentPositions, CopiesOnTheSameSiteAreDropped) {
    define_spacegroup("P -1");
    push("A", "O", {0, 0, 0});
    push("B", "O", {0.5f, 0, 0.5f});
    push("C", "O", {0.1f, 0.2f, 0.3f});
    EXPECT_EQ(atom_named("A").multiplicity, 1);
    EXPECT_EQ(atom_named("B").multiplicity, 1);
    EXPECT_EQ(atom_named("C").multiplicity, 2);
    // Site symmetry of the perovskite's sites: 48 / multiplicity.
    define_spacegroup("P m -3 m");
    push("D", "O", {0.5f, 0, 0});
    EXPECT_EQ(atom_named("D").multiplicity, 3);
}

TEST(EquivalentPositions, TheComparisonDoesNotWrapAroundTheCell) {
    define_spacegroup("P -1");
    push("Near", "O", {0.00005f, 0, 0});  // its image is at 0.99995, beyond the tolerance
    EXPECT_EQ(atom_named("Near").multiplicity, 2);
    // From its image: 0.00019, 0.00021, and 0.0001 along each of three axes, whose sum counts.
    push("Mid", "O", {0.500095f, 0, 0});
    EXPECT_EQ(atom_named("Mid").multiplicity, 1);
    push("Off", "O", {0.500105f, 0, 0});
    EXPECT_EQ(atom_named("Off").multiplicity, 2);
    push("Sum", "O", {0.50005f, 0.50005f, 0.50005f});
    EXPECT_EQ(atom_named("Sum").multiplicity, 2);
}

/// Site a of the polar groups, c of the others, as International Tables count it.
TEST(EquivalentPositions, OnTheAxesOfRhombohedralGroupsLieOnTheFacesOfTheCell) {
    const std::map<std::string, int> published{{"R 3", 3},    {"R -3", 6},  {"R 3 2", 6},
                                               {"R 3 m", 3},  {"R 3 c", 6}, {"R -3 m", 6},
                                               {"R -3 c", 12}};
    const float third = 1.0f / 3.0f;
    for (const auto& [group, multiplicity] : published) {
        define_spacegroup(group);
        for (const Vector3f& xf : {Vector3f{0, 0, 0.1f}, Vector3f{third, 2 * third, 0.1f},
                                   Vector3f{-third, third, 0.1f}}) {
            push("A", "O", xf);
            const Atom atom = atom_named("A");
            EXPECT_EQ(atom.multiplicity, multiplicity) << group;
            for (const Vector3f& x : atom.xf_eq)
                EXPECT_TRUE(x[0] == 0.0f || (x[0] > 0.3f && x[0] < 0.7f)) << group << ' ' << x[0];
            pop_atom(1);
        }
    }
}

TEST(EquivalentPositions, TheFirstIsThePositionItselfEvenUnfolded) {
    define_spacegroup("P -1");
    push("A", "O", {-0.25f, 1.5f, 0.25f});
    EXPECT_EQ(atom_named("A").xf, (Vector3f{0.75f, 0.5f, 0.25f}));
    modify_atom(1, {.xf = Vector3f{-0.25f, 1.5f, 0.25f}});
    const Atom atom = atom_named("A");
    EXPECT_EQ(atom.xf, (Vector3f{-0.25f, 1.5f, 0.25f}));
    EXPECT_THAT(atom.xf_eq,
                ElementsAre(Vector3f{-0.25f, 1.5f, 0.25f}, Vector3f{0.25f, 0.5f, 0.75f}));
}

TEST(EquivalentPositions, OperatorsThatTheRecordHasNoRoomForMakeNoAtoms) {
    crystallographic_symmetry::Space_Group_Type group;
    group.sym_op[0].rot = {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};
    group.multip = 500;
    Atom atom;
    wcfgl_glatom::new_gl_atom("A", "O", {0.5f, 0.5f, 0.5f}, 0.5f, 1, {}, group, atom);
    EXPECT_EQ(atom.multiplicity, 1);
}

TEST(AtomList, HiddenAtomsStayInTheListAndInTheFile) {
    push("Fe1", "Fe", {0.5f, 0.5f, 0.5f});
    push("H1", "H", {0.5f, 0.5f, 0});
    push("h2", "h", {0.5f, 0, 0.5f});
    push("D1", "D", {0, 0.5f, 0.5f});
    change_hatoms_plotting_status(1);
    EXPECT_EQ(get_atom_info(2).nodisplay, 1);
    EXPECT_EQ(get_atom_info(3).nodisplay, 0);  // case counts
    EXPECT_EQ(get_atom_info(4).nodisplay, 1);
    EXPECT_EQ(frame().size(), 3u);
    change_atoms_plotting_status(1);
    EXPECT_TRUE(frame().empty());
    std::string text;
    write_atom_list(text);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
    change_atoms_plotting_status(0);
    EXPECT_EQ(frame().size(), 7u);
}

TEST(AtomList, RemovedAtomsAreNotDrawn) {
    push("A", "O", {0.5f, 0.5f, 0.5f});
    push("B", "O", {0.25f, 0.5f, 0.5f});
    pop_atom(0);
    pop_atom(3);
    EXPECT_EQ(frame().size(), 2u);
    pop_atom(1);
    EXPECT_THAT(centres(frame()), ElementsAre(Vector3f{0.25f, 0.5f, 0.5f}));
    empty_atom_list();
    EXPECT_TRUE(frame().empty());
    EXPECT_EQ(gl_record::count("glCallList"), 0u);
}

TEST(AtomList, AChangeTouchesOnlyWhatIsGiven) {
    push("A", "O", {0.5f, 0.5f, 0.5f});
    gl_record::clear();
    modify_atom(1, {.label = "B", .symbol = "Fe"});
    EXPECT_TRUE(gl_record::calls().empty());
    EXPECT_EQ(get_atom_info(1).colour, wcfgl_atomic_table::get_color_from_symbol("O"));
    modify_atom(1, {.colour = Colour{1, 1, 0, 1}});
    EXPECT_EQ(get_atom_info(1).default_colour, 0);
    modify_atom(1, {.radius = 2.0f, .use_default_colour = true});
    const AtomInfo info = get_atom_info(1);
    EXPECT_EQ(info.default_colour, 1);
    EXPECT_EQ(info.colour, wcfgl_atomic_table::get_color_from_symbol("Fe"));
    EXPECT_EQ(info.radius, 2.0f);
    EXPECT_EQ(info.reserved_value, 0.5f);
    EXPECT_EQ(info.xf, (Vector3f{0.5f, 0.5f, 0.5f}));
    EXPECT_NEAR(frame().front().at(1, 0, 0)[0], 2.5, 1e-7);
    modify_atom(1, {.nodisplay = 1});
    EXPECT_TRUE(frame().empty());
    modify_atom(2, {.label = "C"});
    modify_atom(0, {.label = "C"});
    EXPECT_EQ(get_atom_info(1).label, FixedText<10>("B"));
}

TEST(AtomList, SearchesCompareWholeFieldsAndFindAllInOrder) {
    std::vector<Atom> found{Atom{}};
    EXPECT_FALSE(search_atom_list_by_label("Fe1", found));
    EXPECT_EQ(found.size(), 1u);  // an empty list leaves the argument
    push("Fe1", "Fe", {0.1f, 0, 0});
    push("fe1", "FE", {0.2f, 0, 0});
    push("Fe1", "O", {0.3f, 0, 0});
    EXPECT_TRUE(search_atom_list_by_label("Fe1", found));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[1].symbol, FixedText<2>("O"));
    EXPECT_TRUE(search_atom_list_by_symbol("Fe", found));
    EXPECT_EQ(found.size(), 1u);
    EXPECT_FALSE(search_atom_list_by_symbol("F", found));
    EXPECT_TRUE(found.empty());
    for (int i = 0; i < 500; ++i) push("Many", "C", {0.5f, 0.5f, 0.5f});
    EXPECT_TRUE(search_atom_list_by_label("Many", found));
    EXPECT_EQ(found.size(), 500u);
}

TEST(AtomList, EntriesEndWithTheOneForANewAtom) {
    EXPECT_THAT(generate_atom_label_array(), ElementsAre(FixedText<13>("-New atom-")));
    push("Fe1", "Fe", {});
    push("Longlabel1", "Fe", {});
    EXPECT_THAT(generate_atom_label_array(),
                ElementsAre(FixedText<13>("Fe1 Fe"), FixedText<13>("Longlabel1 Fe"),
                            FixedText<13>("-New atom-")));
    const AtomInfo none = get_atom_info(3);
    EXPECT_EQ(none.label, FixedText<10>("???"));
    EXPECT_EQ(none.symbol, FixedText<2>("??"));
    EXPECT_EQ(none.radius, 1.0f);
    EXPECT_EQ(none.colour, Colour{});
    EXPECT_EQ(none.multiplicity, 0);
    EXPECT_EQ(none.default_colour, 1);
}

TEST(AtomList, LinesOfTheFileHaveFixedColumns) {
    push("Fe1", "Fe", {0.25f, 0.5f, 0.33333f});
    push_atom({.label = "O1",
               .symbol = "O",
               .xf = {0, 0, 0.125f},
               .radius = 1.26f,
               .nodisplay = 1,
               .colour = Colour{1, 0.5f, 0, 0.25f}});
    std::string text;
    write_atom_list(text);
    EXPECT_EQ(text,
              "ATOM Fe1       Fe  0.2500  0.5000  0.3333 RADIUS 0.700          \n"
              "ATOM O1        O   0.0000  0.0000  0.1250 COLOR 1.000 0.500 0.000 0.250 RADIUS"
              " 1.260 NODISPLAY\n");
}

TEST(AtomList, TheFirstAtomBringsGroupBoxAndSphere) {
    push("A", "O", {0.5f, 0.5f, 0.5f});
    ASSERT_TRUE(wcfgl_metrix::current_space_group);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 1);
    ASSERT_TRUE(wcfgl_metrix::current_box);
    EXPECT_EQ(gl_record::count("gluSphere"), 1u);
    push("B", "O", {0.5f, 0.5f, 0.5f});
    EXPECT_EQ(gl_record::count("gluSphere"), 1u);
}

}  // namespace
