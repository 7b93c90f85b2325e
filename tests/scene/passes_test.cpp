// What reading costs in calls of OpenGL: they grow as the lines of the file, and not at all from
// one reading of the same file to the next.
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "tests/support/gl_silent.hpp"
#include "tests/support/temp_file.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

/// What the continuous read does at each pass.
std::size_t calls_of_a_pass(const std::string& file) {
    const std::size_t before = gl_silent::calls();
    wcfgl_io::read_gwr_file(std::string_view(file));
    wcfgl_metrix::define_box(0, 1, 0, 1, 0, 1);
    wcfgl_display::display();
    return gl_silent::calls() - before;
}

std::string file_of(const TempDirectory& folder, int atoms) {
    std::string text = "SPACEG P 1\nCELL 10 10 10 90 90 90\n";
    for (int n = 0; n < atoms; ++n) text += "ATOM A C .5 .5 .5\n";
    return folder.file("atoms.gwr", text);
}

TEST(Passes, CallsGrowAsTheLinesOfTheFile) {
    const TempDirectory folder;
    wcfgl_display::display_init();
    calls_of_a_pass(file_of(folder, 1));  // shapes are made once
    const std::size_t none = calls_of_a_pass(file_of(folder, 0));
    const std::size_t few = calls_of_a_pass(file_of(folder, 100));
    const std::size_t many = calls_of_a_pass(file_of(folder, 1000));
    // A name taken, one list of eight calls, a call of it; the names of the pass before given back.
    EXPECT_LE(few - none, 100u * 11u + 3u);
    EXPECT_LE(many - few, 900u * 11u + 100u);
}

TEST(Passes, NamesAndCallsDoNotPileUp) {
    const TempDirectory folder;
    wcfgl_display::display_init();
    const std::string file =
        folder.file("all.gwr",
                    "CELL 4 4 4 90 90 90\nATOM A Fe .5 .5 .5\nATOM B O .5 .5 0\nBOND A B 1 2.5\n"
                    "{\nK 0 0 0\nSYMM x,y,z\nMSYM u,v,w,0\nMATOM M Fe .5 .5 .5\n"
                    "SKP 1 1 1 0 0 0 0 0 0\n}\n");
    calls_of_a_pass(file);
    const std::size_t calls = calls_of_a_pass(file);
    const std::size_t names = gl_silent::names();
    for (int pass = 0; pass < 1000; ++pass) ASSERT_EQ(calls_of_a_pass(file), calls) << pass;
    EXPECT_EQ(gl_silent::names(), names);
}

}  // namespace
