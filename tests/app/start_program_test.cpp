#include "app/dialog_binding.hpp"
#include "app/event_loop.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_trackball.hpp"
#include "tests/support/dialog_record.hpp"
#include "tests/support/gl_record.hpp"
#include "tests/support/temp_file.hpp"

#include <gmock/gmock.h>

using namespace gemwright;
using dialog_record::calls_of;
using dialog_record::text;
using testing::ElementsAre;

namespace {

TEST(StartProgram, OpensTheWindowShowsTheSplashAndTurnsMessagesOn) {
    start_program();
    EXPECT_EQ(dialog_record::calls().front(), "winitialise");
    EXPECT_THAT(calls_of("windowopen2"), ElementsAre("30001 30102 30101 101 Gemwright Ver-1.0"));
    EXPECT_THAT(calls_of("wdialogload"),
                ElementsAre("102", "103", "105", "108", "106", "107", "112", "110", "111", "117",
                            "118", "119", "120"));
    EXPECT_THAT(calls_of("wdialogshow"), ElementsAre("119 2", "101 1"));
    EXPECT_THAT(calls_of("ioswait"), ElementsAre("200"));
    EXPECT_THAT(calls_of("wdialoghide"), ElementsAre("119"));
    EXPECT_THAT(calls_of("wmessageenable"), ElementsAre("5 1", "6 1", "10 1"));
    EXPECT_EQ(gl_record::texts({"wglselect"}), std::vector<std::string>{"wglselect(3, 1001, 2)"});
    EXPECT_EQ(wcfgl_display::current_screen_width, dialog_record::drawable_width);
    EXPECT_EQ(wcfgl_display::current_screen_height, dialog_record::drawable_height);
    EXPECT_EQ(dialog_record::current_dialog(), dialog::main);
    EXPECT_EQ(text({dialog::main, field::information}), "");
    EXPECT_EQ(dialog_record::value({dialog::material, field::shininess}), 80);
    EXPECT_EQ(text({dialog::lamp, field::lamp_position[2]}), "50.0000");
    EXPECT_EQ(dialog_record::value({dialog::moment, field::moment_head_width}), 27);
}

TEST(StartProgram, AFileFillsTheDialogsAndTurnsTheModel) {
    const TempDirectory folder;
    const std::string name = folder.file("one.gwr",
                                         "SPACEG P -1\nCELL 5 6 7 80 90 100\nBOX 0 2 0 3 0 4\n"
                                         "ROTAX 90 0 0 1\nATOM Mn1 MN .1 .2 .3\n");
    current_file_name = std::string_view(name);
    start_program();
    EXPECT_EQ(text({dialog::main, field::information}), current_file_name.trimmed());
    EXPECT_EQ(text({dialog::space_group, field::symbol}), "P -1");
    EXPECT_EQ(text({dialog::cell, field::cell_lengths[1]}), "6.0000");
    EXPECT_EQ(text({dialog::box, field::box_limits[3]}), "3.00");
    EXPECT_EQ(text({dialog::atom_position, field::atom_label}), "Mn1");
    // A quarter about z takes x to y.
    EXPECT_NEAR(wcfgl_trackball::current_rot_matrix[1], 1, 1e-6);
    EXPECT_NEAR(wcfgl_trackball::current_rot_matrix[0], 0, 1e-6);
    EXPECT_NEAR(view_quaternion[3], 0.70710678, 1e-6);
}

TEST(StartProgram, TheEndGivesTheContextBackFirst) {
    end_program();
    EXPECT_EQ(gl_record::texts({"wglselect"}), std::vector<std::string>{"wglselect(0, 0, 0)"});
    EXPECT_THAT(dialog_record::calls(), ElementsAre("windowclose"));
}

}  // namespace
