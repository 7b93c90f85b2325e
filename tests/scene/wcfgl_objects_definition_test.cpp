#include "scene/wcfgl_objects_definition.hpp"

#include "tests/support/components_near.hpp"
#include "tests/support/gl_record.hpp"

#include <GL/glu.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using namespace wcfgl_objects_definition;
using gl_record::Primitive;
using testing::ElementsAre;

constexpr double inside = GLU_INSIDE;
constexpr double outside = GLU_OUTSIDE;
// The five start values are the 32-bit ones.
constexpr double tenth_error = 1e-7;

void expect_shape(const Primitive& shape, const std::string& name,
                  const std::vector<double>& arguments, const Vector3<double>& base,
                  const Vector3<double>& tip) {
    SCOPED_TRACE(name);
    EXPECT_EQ(shape.name, name);
    EXPECT_THAT(shape.arguments, testing::Pointwise(testing::DoubleNear(tenth_error), arguments));
    const double height = name == "gluCylinder" ? shape.arguments[2] : 0.0;
    EXPECT_THAT(shape.at(0, 0, 0), ComponentsNear(base, tenth_error));
    EXPECT_THAT(shape.at(0, 0, height), ComponentsNear(tip, tenth_error));
}

TEST(Shapes, TheSphereHasAsManySlicesAsStacks) {
    init_atom();
    const std::vector<Primitive> shapes = gl_record::drawn_by(atom_definition);
    ASSERT_EQ(shapes.size(), 1u);
    expect_shape(shapes[0], "gluSphere", {0.3, 20, 20, outside}, {0, 0, 0}, {0, 0, 0});
}

TEST(Shapes, TheArrowLiesAlongXAboutItsMiddle) {
    init_moment();
    const std::vector<Primitive> shapes = gl_record::drawn_by(moment_definition);
    ASSERT_EQ(shapes.size(), 4u);
    expect_shape(shapes[0], "gluDisk", {0, 0.07, 20, 1, inside}, {-0.5, 0, 0}, {-0.5, 0, 0});
    expect_shape(shapes[1], "gluCylinder", {0.07, 0.07, 0.7, 20, 1, outside}, {-0.5, 0, 0},
                 {0.2, 0, 0});
    expect_shape(shapes[2], "gluDisk", {0, 0.27, 20, 1, inside}, {0.2, 0, 0}, {0.2, 0, 0});
    expect_shape(shapes[3], "gluCylinder", {0.27, 0.005, 0.3, 20, 1, outside}, {0.2, 0, 0},
                 {0.5, 0, 0});
}

TEST(Shapes, BothEndsOfTheRodFaceBackwards) {
    init_bond();
    const std::vector<Primitive> shapes = gl_record::drawn_by(bond_definition);
    ASSERT_EQ(shapes.size(), 3u);
    expect_shape(shapes[0], "gluDisk", {0, 0.05, 20, 1, inside}, {0, 0, 0}, {0, 0, 0});
    expect_shape(shapes[1], "gluCylinder", {0.05, 0.05, 1, 20, 1, outside}, {0, 0, 0}, {1, 0, 0});
    expect_shape(shapes[2], "gluDisk", {0, 0.05, 20, 1, inside}, {1, 0, 0}, {1, 0, 0});
}

TEST(Shapes, TheAxisArrowHasAGapInItsTailAtEveryResolution) {
    switch_lowres_objects();
    init_axes();
    const std::vector<Primitive> shapes = gl_record::drawn_by(axes_definition);
    ASSERT_EQ(shapes.size(), 4u);
    expect_shape(shapes[0], "gluDisk", {0, 0.05, 15, 1, inside}, {-0.5, 0, 0}, {-0.5, 0, 0});
    expect_shape(shapes[1], "gluCylinder", {0.07, 0.07, 0.7, 15, 1, outside}, {-0.5, 0, 0},
                 {0.2, 0, 0});
    expect_shape(shapes[2], "gluDisk", {0, 0.27, 15, 1, inside}, {0.2, 0, 0}, {0.2, 0, 0});
    expect_shape(shapes[3], "gluCylinder", {0.27, 0.005, 0.3, 15, 1, outside}, {0.2, 0, 0},
                 {0.5, 0, 0});
}

TEST(Shapes, EachListIsCompiledBetweenItsOwnBrackets) {
    init_bond();
    const std::string name = std::to_string(bond_definition);
    gl_record::clear();
    init_bond();
    const std::vector<std::string> calls = gl_record::texts();
    EXPECT_EQ(gl_record::count("glGenLists"), 0u);  // the name stays
    EXPECT_THAT(
        gl_record::texts({"glNewList", "glEndList"}),
        ElementsAre("glNewList(" + name + ", " + std::to_string(GL_COMPILE) + ")", "glEndList()"));
    EXPECT_EQ(gl_record::count("gluNewQuadric"), 1u);
    EXPECT_EQ(gl_record::count("gluDeleteQuadric"), 1u);
    EXPECT_EQ(gl_record::count("glPushMatrix"), gl_record::count("glPopMatrix"));
    EXPECT_EQ(calls.back(), "gluDeleteQuadric()");
}

std::vector<double> slices() {
    return {gl_record::drawn_by(atom_definition).front().arguments[1],
            gl_record::drawn_by(bond_definition).front().arguments[2],
            gl_record::drawn_by(moment_definition).front().arguments[2]};
}

TEST(Resolution, ADragIsCoarseAndItsEndBringsTheUsersQualityBack) {
    change_res_objects(33);
    EXPECT_THAT(slices(), ElementsAre(33, 33, 33));
    const GLuint sphere = atom_definition;
    switch_lowres_objects();
    EXPECT_EQ(highres, 0);
    EXPECT_THAT(slices(), ElementsAre(6, 2, 6));
    switch_highres_objects();
    EXPECT_EQ(highres, 1);
    EXPECT_THAT(slices(), ElementsAre(33, 33, 33));
    EXPECT_EQ(atom_definition, sphere);
}

TEST(Resolution, QualitiesFromSixToSixtyCount) {
    switch_highres_objects();
    gl_record::clear();
    for (const int ignored : {-1, 0, 5, 61}) change_res_objects(ignored);
    EXPECT_TRUE(gl_record::calls().empty());
    for (const int taken : {6, 60}) {
        change_res_objects(taken);
        EXPECT_THAT(slices(), ElementsAre(taken, taken, taken));
        EXPECT_EQ(high_resolution.moment_stacks, 1);
    }
}

TEST(ArrowShape, TheHeadsShareOfTheLengthIsFiveToNinetyFive) {
    change_moment_length(96);
    change_moment_length(4);
    EXPECT_EQ(moment_definition, 0u);  // not even built
    change_moment_length(95);
    const std::vector<Primitive> shapes = gl_record::drawn_by(moment_definition);
    expect_shape(shapes[1], "gluCylinder", {0.07, 0.07, 0.05, 20, 1, outside}, {-0.5, 0, 0},
                 {-0.45, 0, 0});
    expect_shape(shapes[3], "gluCylinder", {0.27, 0.005, 0.95, 20, 1, outside}, {-0.45, 0, 0},
                 {0.5, 0, 0});
}

TEST(ArrowShape, TheHeadIsNoNarrowerThanTheShaftButTheShaftMayBeWider) {
    change_moment_width(5);
    change_moment_width(4);
    EXPECT_FLOAT_EQ(static_cast<float>(moment_head_radius), 0.27f);
    change_moment_width(7);  // just the shaft's 0.07
    EXPECT_FLOAT_EQ(static_cast<float>(moment_head_radius), 0.07f);
    change_moment_thickness(4);
    EXPECT_FLOAT_EQ(static_cast<float>(moment_shaft_radius), 0.07f);
    change_moment_thickness(50);
    EXPECT_FLOAT_EQ(static_cast<float>(moment_shaft_radius), 0.5f);
    const std::vector<Primitive> shapes = gl_record::drawn_by(moment_definition);
    EXPECT_FLOAT_EQ(static_cast<float>(shapes[1].arguments[0]), 0.5f);
    EXPECT_FLOAT_EQ(static_cast<float>(shapes[2].arguments[1]), 0.07f);
}

}  // namespace
