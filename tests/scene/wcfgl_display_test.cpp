#include "scene/wcfgl_display.hpp"

#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_poly_tree.hpp"
#include "scene/wcfgl_quaternion.hpp"
#include "scene/wcfgl_trackball.hpp"
#include "tests/support/gl_record.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace wcfgl_display;
using gl_record::Primitive;
using testing::ElementsAre;

std::string call(const std::string& name, GLenum first) {
    return name + "(" + std::to_string(first) + ")";
}

std::string viewport(int width, int height) {
    current_screen_width = width;
    current_screen_height = height;
    gl_record::clear();
    display();
    return gl_record::texts({"glViewport"}).front();
}

TEST(DisplayInit, OpenGLIsSetUpInOrder) {
    display_init();
    const auto enable = [](GLenum capability) { return call("glEnable", capability); };
    EXPECT_THAT(gl_record::texts(),
                ElementsAre(call("glReadBuffer", GL_BACK), call("glDrawBuffer", GL_BACK),
                            enable(GL_LIGHTING), enable(GL_LIGHT0), enable(GL_DEPTH_TEST),
                            call("glShadeModel", GL_SMOOTH), enable(GL_LIGHTING), enable(GL_LIGHT0),
                            enable(GL_LINE_SMOOTH), enable(GL_BLEND), enable(GL_NORMALIZE),
                            "glBlendFunc(" + std::to_string(GL_SRC_ALPHA) + ", " +
                                std::to_string(GL_ONE_MINUS_SRC_ALPHA) + ")",
                            "wgltextfont(102, 0.1)"));
}

TEST(DisplayInit, TheFrameOfAnEarlierBoxSurvivesAndTheModelStandsUpright) {
    wcfgl_metrix::define_box(0, 4, 0, 1, 0, 1);
    wcfgl_trackball::current_rot_matrix.fill(3);
    display_init();
    EXPECT_EQ(wcfgl_metrix::current_maxsize, 4.0);
    EXPECT_EQ(wcfgl_metrix::current_baricentre, (Vector3f{2, 0.5f, 0.5f}));
    EXPECT_EQ(wcfgl_trackball::current_rot_matrix[0], 1.0f);
    wcfgl_trackball::current_rot_matrix[0] = 3;
    init_context();  // a new context keeps the view
    EXPECT_EQ(wcfgl_trackball::current_rot_matrix[0], 3.0f);
}

TEST(DisplayInit, ANewContextTakesOverWhatOneFrameLeavesToTheNext) {
    const Colour green{0, 1, 0, 1};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, green.data());
    leave_context();
    const Colour grey{0.2f, 0.2f, 0.2f, 1};
    glMaterialfv(GL_FRONT, GL_AMBIENT, grey.data());  // as a new context has it
    init_context();
    wcfgl_metrix::define_cell({5, 5, 5}, {90, 90, 90});
    gl_record::clear();
    display();
    ASSERT_FALSE(gl_record::drawn().empty());
    EXPECT_EQ(gl_record::drawn().back().ambient, green) << "the axes";
}

TEST(Display, TheViewportIsASquareOnTheLongerSide) {
    EXPECT_EQ(viewport(600, 400), "glViewport(0, -100, 600, 600)");
    EXPECT_EQ(viewport(400, 600), "glViewport(0, -100, 600, 600)");  // flush left, moved down
    EXPECT_EQ(viewport(600, 401), "glViewport(0, -99, 600, 600)");   // -99.5 toward zero
    calculate_offset(100, 100, 110, 105);
    EXPECT_THAT(current_centroffset, ElementsAre(10, -5));
    EXPECT_EQ(viewport(600, 400), "glViewport(10, -105, 600, 600)");
}

TEST(Display, TheViewingVolumeFollowsZoomAndSize) {
    wcfgl_metrix::define_box(0, 3, 0, 1, 0, 1);
    current_zoomfactor = 2;
    display();
    EXPECT_THAT(gl_record::texts({"glOrtho"}), ElementsAre("glOrtho(-6, 6, -6, 6, -12, 12)"));
    const float infinite = std::numeric_limits<float>::infinity();
    wcfgl_metrix::define_box(-infinite, infinite, 0, 1, 0, 1);
    gl_record::clear();
    display();
    EXPECT_EQ(gl_record::count("glOrtho"), 0u);
}

TEST(Display, StateIsSetBeforeAnythingIsDrawn) {
    background_colour = {0.1f, 0.2f, 0.3f, 1};
    display();
    const std::vector<std::string> calls = gl_record::texts();
    const auto is = [](const std::string& name) { return testing::StartsWith(name + "("); };
    EXPECT_THAT(
        calls,
        ElementsAre("glClearColor(0.1, 0.2, 0.3, 1)", is("glMaterialfv"), is("glMateriali"),
                    is("glViewport"), call("glMatrixMode", GL_PROJECTION), "glLoadIdentity()",
                    is("glOrtho"), call("glMatrixMode", GL_MODELVIEW), "glLoadIdentity()",
                    call("glClear", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT), is("glLightfv"),
                    is("glLightfv"), is("glLightfv"), is("glTranslatef"), "glPushMatrix()",
                    is("glTranslatef"), is("glMultMatrixf"), is("glTranslatef"), "glPopMatrix()",
                    "wglswapbuffers()"));
    const auto light = [](GLenum property, const std::string& values) {
        return "glLightfv(" + std::to_string(GL_LIGHT0) + ", " + std::to_string(property) + ", " +
               values + ")";
    };
    EXPECT_THAT(
        gl_record::texts({"glLightfv"}),
        ElementsAre(light(GL_AMBIENT, "0.05, 0.05, 0.05, 1"), light(GL_DIFFUSE, "0.9, 0.9, 0.9, 1"),
                    light(GL_POSITION, "0, 0, 50, 0")));
    EXPECT_EQ(calls[2], "glMateriali(" + std::to_string(GL_FRONT) + ", " +
                            std::to_string(GL_SHININESS) + ", 80)");
}

TEST(Display, TheModelTurnsAboutTheCentreOfTheBox) {
    wcfgl_metrix::define_box(0, 2, 0, 2, 0, 2);
    wcfgl_atom_tree::push_atom({.label = "A", .symbol = "O", .xf = {0.5f, 0, 0}});
    const Quaternion quarter = wcfgl_quaternion::q_from_rot(90, {0, 0, 1});
    wcfgl_trackball::current_rot_matrix = wcfgl_quaternion::quat2mat(quarter);
    gl_record::clear();
    display();
    // The copy at (1.5, 1, 1) is half a cell right of the centre; turned, half a cell above it.
    const auto& spheres = gl_record::drawn();
    EXPECT_TRUE(std::any_of(spheres.begin(), spheres.end(), [](const Primitive& sphere) {
        const Vector3<double> c = sphere.centre();
        return std::abs(c[0]) < 1e-6 && std::abs(c[1] - 0.5) < 1e-6 && std::abs(c[2]) < 1e-6;
    }));
}

/// A sphere with an arrow, bonds to its neighbours and lines between these.
void define_one_of_everything() {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    wcfgl_atom_tree::push_atom({.label = "A", .symbol = "Fe", .xf = {0.5f, 0.5f, 0.5f}});
    wcfgl_atom_tree::push_atom({.label = "O", .symbol = "O", .xf = {0.5f, 0.5f, 0}});
    wcfgl_bond_tree::push_bond_by_label("A", "O", 1, 2.5f, 1, 0);
    wcfgl_poly_tree::push_poly("A", 0);
    const std::vector<Vector3f> k{{0, 0, 0}};
    const std::vector<FixedText<80>> identity{"x,y,z"}, unchanged{"MSYM u,v,w,0.0"};
    wcfgl_matom_tree::define_magnetic_phase('P', k, identity, unchanged, 1);
    wcfgl_matom_tree::FourierComponent component;
    component.skp = {1, 0, 0};
    wcfgl_matom_tree::push_matom("A", "Fe", {0.5f, 0.5f, 0.5f}, std::span(&component, 1), 1, 0, 0);
}

/// What a shape belongs to; empty for disks. Rods have length 1, and only the axes 15 slices.
std::string kind_of(const Primitive& shape) {
    if (shape.name == "line") return "lines";
    if (shape.name == "wgltextstring") return "letter";
    if (shape.name == "gluSphere") return "sphere";
    if (shape.name != "gluCylinder") return "";
    if (shape.arguments[2] == 1.0) return "rod";
    return shape.arguments[3] == 15 ? "axis" : "moment";
}

TEST(Display, OpaqueOrNotObjectsAreDrawnInAFixedOrder) {
    define_one_of_everything();
    gl_record::clear();
    display();
    std::vector<std::string> order;
    for (const Primitive& shape : gl_record::drawn()) {
        const std::string kind = kind_of(shape);
        if (!kind.empty() && (order.empty() || order.back() != kind)) order.push_back(kind);
    }
    EXPECT_THAT(order, ElementsAre("lines", "axis", "letter", "axis", "letter", "axis", "letter",
                                   "sphere", "moment", "rod", "lines"));
}

TEST(Display, ChangesAreTakenUpAndThenForgotten) {
    wcfgl_atom_tree::push_atom({.label = "A", .symbol = "O", .xf = {0.5f, 0.5f, 0.5f}});
    display();
    wcfgl_metrix::define_box(0, 2, 0, 1, 0, 1);
    wcfgl_metrix::cell_changed = 1;
    gl_record::clear();
    display();
    EXPECT_EQ(gl_record::drawn().size(), 2u);
    EXPECT_EQ(wcfgl_metrix::box_changed, 0);
    EXPECT_EQ(wcfgl_metrix::cell_changed, 0);
    EXPECT_EQ(wcfgl_metrix::spacegroup_changed, 0);
    gl_record::clear();
    display();
    EXPECT_EQ(gl_record::count("glNewList"), 0u);
}

}  // namespace
