#include "scene/shown_box.hpp"

#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "tests/support/gl_silent.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace {

using shown_box::Box;
using wcfgl_metrix::define_box;

constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();

void push_atom_at(const Vector3f& x) {
    wcfgl_atom_tree::push_atom({.label = "A", .symbol = "C", .xf = x});
}

void push_moment_at(const Vector3f& x) {
    using namespace wcfgl_matom_tree;
    FourierComponent component;
    component.skp = {1, 0, 0};
    push_matom("M", "Fe", x, std::span(&component, 1), 1, 0, 0);
}

void define_phase() {
    const std::vector<Vector3f> k{{0, 0, 0}};
    const std::vector<FixedText<80>> identity{"x,y,z"}, unchanged{"MSYM u,v,w,0.0"};
    wcfgl_matom_tree::define_magnetic_phase('P', k, identity, unchanged, 1);
}

/// The objects that a frame compiles; wires are drawn anew in each.
struct Compiled {
    std::size_t spheres = 0;
    std::size_t arrows = 0;
    std::size_t sticks = 0;
    std::size_t wires = 0;

    std::size_t all() const { return spheres + arrows + sticks + wires; }
};

Compiled calls_so_far() {
    using namespace wcfgl_objects_definition;
    const auto calls = [](GLuint list) { return list == 0 ? 0 : gl_silent::calls_of_list(list); };
    Compiled compiled{calls(atom_definition), calls(moment_definition), calls(bond_definition) / 2,
                      0};
    if (wcfgl_metrix::current_cell) compiled.wires = calls(wcfgl_metrix::current_cell->dlist);
    return compiled;
}

Compiled frame() {
    const Compiled before = calls_so_far();
    wcfgl_display::display();
    const Compiled after = calls_so_far();
    return {after.spheres - before.spheres, after.arrows - before.arrows,
            after.sticks - before.sticks, after.wires - before.wires};
}

TEST(ShownBox, ThePictureIsWholeUpToItsLastObject) {
    push_atom_at({0.5f, 0.5f, 0.5f});
    define_box(0, 64, 0, 64, 0, 64);
    EXPECT_EQ(frame().spheres, 64u * 64u * 64u);
    EXPECT_EQ(frame().all(), 0u) << "nothing has changed";
    push_atom_at({0.25f, 0.5f, 0.5f});
    const std::size_t of_both = frame().spheres;
    EXPECT_LE(of_both, shown_box::most_objects);
    EXPECT_GT(of_both, shown_box::most_objects / 2);
    EXPECT_EQ(of_both % 2, 0u) << "the same cells for both";
    wcfgl_atom_tree::pop_atom(2);
    EXPECT_EQ(frame().spheres, 64u * 64u * 64u) << "the first comes back whole";
}

// Eight magnetic atoms in a box of a hundred cells cubed are eight million arrows, and each list
// for itself would stay below a bound of its own.
TEST(ShownBox, AllListsCountTogetherAndShowTheSamePart) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    wcfgl_metrix::current_cell->multiple = 1;
    push_atom_at({0.5f, 0.5f, 0.5f});
    push_atom_at({0.5f, 0.5f, 0.25f});
    wcfgl_bond_tree::push_bond_by_symbol("C", "C", 0.9f, 1.1f, 1, 0);
    define_phase();
    for (int n = 0; n < 8; ++n) push_moment_at({0.5f, 0.5f, 0.5f});
    define_box(0, 100, 0, 100, 0, 100);
    const Compiled compiled = frame();
    EXPECT_LE(compiled.all(), shown_box::most_objects);
    EXPECT_GT(compiled.all(), shown_box::most_objects * 2 / 3);
    EXPECT_EQ(compiled.spheres, 2 * compiled.wires);
    EXPECT_EQ(compiled.arrows, 8 * compiled.wires);
    EXPECT_EQ(compiled.sticks, compiled.wires);

    // Menus write the cell's flags without a word.
    wcfgl_metrix::current_cell->multiple = 0;
    EXPECT_GT(frame().arrows, compiled.arrows) << "room for more without the wires";
}

TEST(ShownBox, ThePartStandsAboutTheMiddleAndKeepsTheMargins) {
    push_atom_at({0.5f, 0.5f, 0.5f});
    define_box(-0.25f, 1000.25f, -500, 500, 0, 2);
    const Box part = shown_box::box();
    EXPECT_EQ(part[0] + part[1], 1000.0f);
    EXPECT_EQ(part[0] - std::floor(part[0]), 0.75f);
    EXPECT_EQ(part[2] + part[3], 0.0f);
    EXPECT_GT(part[1] - part[0], 300.0f);
    EXPECT_EQ(part[4], 0.0f) << "the short direction stays";
    EXPECT_EQ(part[5], 2.0f);
}

TEST(ShownBox, WhatOneCellCannotHoldEndsInTheOrderOfDrawing) {
    define_phase();
    for (int n = 0; n < 40'000; ++n) push_atom_at({0, 0, 0});  // at eight corners
    push_moment_at({0.5f, 0.5f, 0.5f});
    define_box(0, 1, 0, 1, 0, 1);
    Compiled compiled = frame();
    EXPECT_EQ(compiled.spheres, shown_box::most_objects);
    EXPECT_EQ(compiled.arrows, 0u);
    wcfgl_atom_tree::empty_atom_list();
    push_atom_at({0, 0, 0});
    compiled = frame();
    EXPECT_EQ(compiled.spheres, 8u);
    EXPECT_EQ(compiled.arrows, 1u);
}

TEST(ShownBox, OnlyLargePicturesAreDrawnWithFewerSlices) {
    const auto slices = [](float cells, int quality) {
        wcfgl_objects_definition::change_res_objects(quality);
        define_box(0, cells, 0, cells, 0, cells);
        frame();
        return gl_silent::slices_of_sphere();
    };
    push_atom_at({0.5f, 0.5f, 0.5f});
    EXPECT_EQ(slices(32, 20), 20);
    EXPECT_EQ(slices(64, 20), 7);  // 262,144 spheres, as many facets as 32,768 of quality 20
    EXPECT_EQ(shown_box::objects(), 262'144u);
    EXPECT_EQ(slices(15, 60), 60);
    EXPECT_EQ(slices(20, 60), 40);  // 8,000 spheres
    EXPECT_EQ(shown_box::objects(), 8000u);
    EXPECT_EQ(slices(1, 20), 20);
    wcfgl_objects_definition::switch_lowres_objects();
    frame();
    EXPECT_EQ(gl_silent::slices_of_sphere(), 6) << "a drag's";
    wcfgl_objects_definition::switch_highres_objects();
}

TEST(ShownBox, NoBoxTakesLongOrMoreThanItsShare) {
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    wcfgl_metrix::define_spacegroup("P -1");
    wcfgl_metrix::current_cell->multiple = 1;
    push_atom_at({0.1f, 0.1f, 0.1f});
    wcfgl_atom_tree::modify_atom(1, {.xf = Vector3f{0.1f, 0.1f, 7.1f}});
    push_atom_at({0.15f, 0.1f, 0.1f});
    wcfgl_bond_tree::push_bond_by_symbol("C", "C", 0.1f, 1, 1, 0);
    define_phase();
    push_moment_at({0.1f, 0.1f, 0.1f});
    for (const Box& box : std::vector<Box>{{0, 1e9f, 0, 1e9f, 1, 0},
                                           {0, 1e9f, 0, 1e9f, 0, 0.5f},
                                           {0, 1e5f, 0, 1e5f, 0.3f, 0.4f},
                                           {0, 1e9f, 0, 1e9f, 0, 1e9f},
                                           {-1e30f, 1e30f, -1e30f, 1e30f, -1e30f, 1e30f},
                                           {-infinite, infinite, 0, 1, 0, 1},
                                           {not_a_number, 1e9f, 0, 1e9f, 0, 1},
                                           {0, 1e9f, 0, 0, 0, 0}}) {
        SCOPED_TRACE(testing::PrintToString(box));
        define_box(box[0], box[1], box[2], box[3], box[4], box[5]);
        EXPECT_LE(frame().all(), shown_box::most_objects);
        const std::size_t calls = gl_silent::calls();
        wcfgl_display::display();
        EXPECT_LE(gl_silent::calls() - calls, 5 * shown_box::most_objects)
            << "compiled again, or more wires than cells";
    }
}

}  // namespace
