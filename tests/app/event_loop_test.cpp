#include "app/event_loop.hpp"

#include "app/program_state.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "scene/wcfgl_trackball.hpp"
#include "tests/app/loaded_dialogs.hpp"
#include "tests/support/gl_record.hpp"
#include "tests/support/temp_file.hpp"

#include <gmock/gmock.h>

#include <chrono>

using namespace gemwright;
using namespace tesserakit;
using dialog_record::post;
using dialog_record::text;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

using Clock = std::chrono::steady_clock;

int frames() { return static_cast<int>(gl_record::count("wglswapbuffers")); }

class EventLoop : public LoadedDialogs {
protected:
    /// Serves what is posted, and `idle_passes` looks at an empty queue; then the program is
    /// closed.
    static void run(int idle_passes = 0) {
        int passes = 0;
        dialog_record::when_idle = [&passes, idle_passes] {
            if (passes++ == idle_passes) post(CloseRequest);
        };
        gl_record::clear();
        run_event_loop();
        dialog_record::when_idle = nullptr;
    }
    static void press(int button, int dialog = dialog::main) {
        post(PushButton, {.WIN = dialog, .VALUE1 = button});
        run();
    }
};

TEST_F(EventLoop, BeginsWithAFrameAndEndsWhenTheRootWindowIsClosed) {
    post(CloseRequest, {.WIN = 0});
    post(PushButton, {.WIN = dialog::main, .VALUE1 = button::recentre});
    wcfgl_display::current_centroffset = {5, 7};
    run();
    EXPECT_EQ(frames(), 1);
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{5, 7}));
}

TEST_F(EventLoop, DrawsAfterAMessageOfAnyKindActedOnOrNot) {
    const std::vector<int> types{KeyDown,      MenuSelect,    PushButton,   MouseButDown,
                                 MouseButUp,   ExposeMessage, Resize,       CloseRequest,
                                 FieldChanged, TabChanged,    TimerExpired, 0};
    for (const int type : types) post(type, {.WIN = 7});
    run();
    const int before_the_command = 1;
    EXPECT_EQ(frames(), 1 + static_cast<int>(types.size()) + before_the_command);
}

TEST_F(EventLoop, ACommandIsRunAndTheExitEndsTheProgramWithoutAQuestion) {
    post(MenuSelect, {.VALUE1 = item::lamp});
    post(MenuSelect, {.VALUE1 = item::exit});
    post(MenuSelect, {.VALUE1 = item::box});
    current_file_name = "any.gwr";
    run();
    EXPECT_TRUE(dialog_record::is_shown(dialog::lamp));
    EXPECT_FALSE(dialog_record::is_shown(dialog::box));
    EXPECT_THAT(dialog_record::calls_of("wmessagebox"), SizeIs(0));
}

// A box that the command opens leaves no time for it.
TEST_F(EventLoop, WhatAMenuHasCoveredIsDrawnBeforeItsCommand) {
    post(MenuSelect, {.VALUE1 = item::exit});
    run();
    EXPECT_EQ(frames(), 2);
}

TEST_F(EventLoop, AnIdlePassWaitsForTheDisplayAndDrawsNothing) {
    run(3);
    EXPECT_EQ(frames(), 1);
    EXPECT_THAT(dialog_record::waits(), ElementsAre(10, 10, 10));
}

// A renderer too slow for a frame a move must not leave the picture behind the pointer.
TEST_F(EventLoop, MovesThatWaitShareAFrame) {
    constexpr int moves = 400;
    for (int i = 0; i < moves; ++i) post(MouseMove, {.X = i, .Y = i});
    const auto start = Clock::now();
    run(1);
    const auto took = Clock::now() - start;
    EXPECT_GE(frames(), 2);
    // The first, the last, and one for each 40 ms that the moves may have taken.
    EXPECT_LE(frames(), 2 + took / std::chrono::milliseconds(40));
    EXPECT_LT(frames(), moves / 4);
    EXPECT_THAT(dialog_record::waits(), SizeIs(0)) << "a frame that is due isn't waited for";
}

TEST_F(EventLoop, MovesWithoutEndAreShownEvery40Milliseconds) {
    const auto start = Clock::now();
    dialog_record::when_idle = [start] {
        const bool shown = frames() > 3;
        const bool late = Clock::now() - start > std::chrono::seconds(20);
        post(shown || late ? CloseRequest : MouseMove);
    };
    gl_record::clear();
    run_event_loop();
    dialog_record::when_idle = nullptr;
    EXPECT_GT(frames(), 3);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(3 * 40 - 1));
}

TEST_F(EventLoop, AMoveIsShownBeforeAnythingElseIsDone) {
    post(MouseMove);
    post(CloseRequest, {.WIN = 0});
    run();
    EXPECT_EQ(frames(), 2);
}

TEST_F(EventLoop, ADragGoesFromPressToRelease) {
    mouse_mode = 3;
    post(MouseButDown, {.X = 10, .Y = 10});
    post(MouseMove, {.X = 25, .Y = 13});
    post(MouseButUp);
    post(MouseMove, {.X = 99, .Y = 99});
    run();
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{15, -3}));
    EXPECT_EQ(wcfgl_objects_definition::highres, 1);
    EXPECT_EQ(dragging, 0);
}

TEST_F(EventLoop, TheSizeOfThePictureIsTakenOverWhenItMayHaveChanged) {
    for (const int type : {ExposeMessage, Resize}) {
        wcfgl_display::current_screen_width = wcfgl_display::current_screen_height = 1;
        dialog_record::clear_calls();
        wdialogselect(dialog::lamp);  // as a dialog that has just been opened is
        post(type, {.WIN = dialog::lamp});
        run();
        EXPECT_EQ(wcfgl_display::current_screen_width, dialog_record::drawable_width);
        EXPECT_EQ(wcfgl_display::current_screen_height, dialog_record::drawable_height);
        EXPECT_THAT(dialog_record::calls_of("igrselect"), ElementsAre("3 101.1001"));
    }
}

TEST_F(EventLoop, ATextWindowThatHasClosedItselfIsForgotten) {
    child_window = 4;
    list_window = 2;
    post(CloseRequest, {.WIN = 4});
    dialog_record::answer({.button = 1});
    run(1);
    EXPECT_THAT(dialog_record::calls_of("weditclose"), ElementsAre("2")) << "at the end";
    EXPECT_THAT(dialog_record::waits(), SizeIs(1));
}

TEST_F(EventLoop, EndsOnlyWhenTheTextWindowsMayClose) {
    child_window = 4;
    list_window = 2;
    // The list's user presses Cancel at first.
    for (const int button : {1, 3, 1}) dialog_record::answer({.button = button});
    post(CloseRequest, {.WIN = 0});
    post(PushButton, {.WIN = dialog::main, .VALUE1 = button::recentre});
    post(CloseRequest, {.WIN = 0});
    wcfgl_display::current_centroffset = {5, 7};
    run();
    EXPECT_THAT(dialog_record::calls_of("weditclose"), ElementsAre("4", "2", "2"));
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{0, 0})) << "it went on meanwhile";
}

TEST_F(EventLoop, OkReadsADialogAndCancelHidesIt) {
    type(dialog::lamp, field::lamp_position, {"7", "8", "9"});
    wdialogselect(dialog::lamp);
    wdialogshow();
    press(button::ok, dialog::lamp);
    EXPECT_THAT(wcfgl_display::lamp_position, ElementsAre(7, 8, 9, 0));
    EXPECT_TRUE(dialog_record::is_shown(dialog::lamp));
}

TEST_F(EventLoop, CancelHidesTheDialog) {
    wdialogselect(dialog::lamp);
    wdialogshow();
    press(button::cancel, dialog::lamp);
    EXPECT_FALSE(dialog_record::is_shown(dialog::lamp));
}

TEST_F(EventLoop, RecentreTakesTheShiftAwayAndNothingElse) {
    wcfgl_display::current_centroffset = {5, 7};
    wcfgl_display::current_zoomfactor = 2;
    press(button::recentre);
    EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{0, 0}));
    EXPECT_EQ(wcfgl_display::current_zoomfactor, 2);
}

TEST_F(EventLoop, InsertAndDeleteAreToldApartByTheButtonAlone) {
    struct Case {
        int button;
        int dialog;
        std::vector<int> sizes;  ///< atoms, bonds, vectors
    };
    wcfgl_metrix::define_cell({4, 4, 4}, {90, 90, 90});
    set_all_fields();
    dialog_record::set({dialog::atoms, field::atom_list}, 1);
    type(dialog::bond_rule, field::bond_names, {"??", "??"});
    dialog_record::set({dialog::bonds, field::bond_list}, 1);
    const auto entries = [](int dialog, int list) {
        return static_cast<int>(dialog_record::options({dialog, list}).size()) - 1;
    };
    std::vector<Case> cases{{button::insert_atom, dialog::atoms, {1, 0, 0}},
                            {button::insert_bond, dialog::bonds, {1, 1, 0}},
                            {button::insert_k_vector, dialog::magnetic, {1, 1, 1}},
                            {button::delete_bond, dialog::bonds, {1, 0, 1}},
                            {button::delete_atom, dialog::atoms, {0, 0, 1}},
                            // A page of the atoms dialog has a button of this number too.
                            {button::delete_k_vector, dialog::atom_look, {0, 0, 0}}};
    std::size_t next = 0;
    dialog_record::when_idle = [&] {
        if (next > 0) {
            const Case& done = cases[next - 1];
            EXPECT_EQ((std::vector{entries(dialog::atoms, field::atom_list),
                                   entries(dialog::bonds, field::bond_list),
                                   entries(dialog::magnetic, field::k_list)}),
                      done.sizes)
                << done.button;
        }
        if (next == cases.size()) return post(CloseRequest);
        dialog_record::set({dialog::magnetic, field::k_list}, 1);
        post(PushButton, {.WIN = cases[next].dialog, .VALUE1 = cases[next].button});
        ++next;
    };
    run_event_loop();
    dialog_record::when_idle = nullptr;
}

TEST_F(EventLoop, AChangedFieldIsReadByTheOneThatGainsTheFocus) {
    dialog_record::set({dialog::material, field::shininess}, 12);
    post(FieldChanged, {.WIN = dialog::material, .VALUE1 = 1, .VALUE2 = field::shininess});
    run();
    EXPECT_EQ(wcfgl_display::shininess, 12);
}

class ContinuousRead : public EventLoop {
protected:
    ContinuousRead() {
        folder_.file("live.gwr",
                     "CELL 5 5 5 90 90 90\nBOX -3 3 -3 3 -3 3\nROTAX 90 1 0 0\nATOM A C 0 0 0\n");
        current_file_name = std::string_view(folder_.name("live.gwr"));
        view_quaternion = {0, 0, 0, 1};
        wcfgl_trackball::current_rot_matrix = {};
        type(dialog::box, field::box_limits, {"0", "2", "0", "2", "0", "2"});
        dialog_record::set({dialog::main, field::continuous_read}, 1);
    }
    TempDirectory folder_;
};

TEST_F(ContinuousRead, FollowsTheFileAtEachIdlePassWithoutWaiting) {
    run(3);
    EXPECT_EQ(frames(), 4);
    EXPECT_THAT(dialog_record::waits(), SizeIs(0));
    EXPECT_EQ(wcfgl_atom_tree::get_atom_info(1).label.trimmed(), "A");
    EXPECT_EQ(wcfgl_atom_tree::get_atom_info(2).label.trimmed(), "???");
    EXPECT_EQ(text({dialog::main, field::information}), "READ CONTINUOUS");
}

// Its file is then the current one, and holds no structure.
TEST_F(ContinuousRead, GoesOnWithTheStructureBehindAnExportedPicture) {
    folder_.file("live.png", "\211PNG");
    take_picture_name(std::string_view(folder_.name("live.png")));
    run(1);
    EXPECT_EQ(wcfgl_atom_tree::get_atom_info(1).label.trimmed(), "A");
}

TEST_F(ContinuousRead, LeavesTheViewAndTakesTheBoxOfTheDialog) {
    const Matrix4f before = wcfgl_trackball::current_rot_matrix;
    run(1);
    EXPECT_EQ(view_quaternion, (Quaternion{0, 0, 0, 1}));
    EXPECT_EQ(wcfgl_trackball::current_rot_matrix, before);
    EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{0, 2, 0, 2, 0, 2}));
}

TEST_F(ContinuousRead, GoesOnWithTheOldBoxWhileANumberOfItIsBeingTyped) {
    run(1);
    dialog_record::type({dialog::box, field::box_limits[0]}, "-");
    dialog_record::type({dialog::box, field::box_limits[5]}, "");
    run(2);
    EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{0, 2, 0, 2, 0, 2}));
}

TEST_F(ContinuousRead, ServesAMessageFirst) {
    post(KeyDown);
    run();
    EXPECT_EQ(wcfgl_atom_tree::get_atom_info(1).label.trimmed(), "???");
}

TEST_F(ContinuousRead, WithoutAFileShowsAnEmptyModelInP1) {
    current_file_name = "";
    two_atoms();
    run(1);
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 1);
    EXPECT_EQ(text({dialog::main, field::information}), "READ CONTINUOUS");
}

}  // namespace
