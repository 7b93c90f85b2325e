#include "app/commands.hpp"

#include "app/program_state.hpp"
#include "scene/wcfgl_objects_definition.hpp"
#include "scene/wcfgl_trackball.hpp"
#include "tests/app/loaded_dialogs.hpp"
#include "tests/support/gl_record.hpp"
#include "tests/support/temp_file.hpp"
#include "toolkit/resource/yyrc.hpp"

#include <gmock/gmock.h>

#include <filesystem>
#include <limits>
#include <map>

using namespace gemwright;
using dialog_record::answer;
using dialog_record::calls_of;
using dialog_record::text;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::size_t sized(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

/// All that can be chosen, by what the user reads: items that open no further menu by their labels,
/// buttons of the toolbars by their tooltips.
std::map<std::string, int> choices() {
    using namespace tesserakit;
    std::map<std::string, int> found;
    int count = 0, size = 0, unused = 0;
    yyrcmenucheck(menu::root, count, size);
    const std::size_t n = sized(count);
    std::vector<int> identifiers(n), flags(n), next(n), child(n), labels(n), states(n);
    std::string texts(sized(size), ' ');
    yyrcmenuload(menu::root, identifiers, flags, next, child, labels, states, texts);
    for (std::size_t i = 0; i < n; ++i)
        if (child[i] < 0 && identifiers[i] != 0) found[texts.c_str() + labels[i]] = identifiers[i];
    for (const int bar : {toolbar::scene, toolbar::file}) {
        yyrctoolbarcheck(bar, count, unused, unused);
        std::vector<int> buttons(sized(count));
        yyrctoolbarload(bar, buttons);
        for (const int button : buttons) {
            if (button == 0) continue;
            yyrcstringcheck(button, size);
            std::string tip(sized(size), ' ');
            yyrcstringload(button, tip);
            tip.resize(tip.find_last_not_of(std::string(" \0", 2)) + 1);
            found[tip] = button;
        }
    }
    return found;
}

class Commands : public LoadedDialogs {
protected:
    Commands() : start_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder_.path());
    }
    ~Commands() override { std::filesystem::current_path(start_); }

    static bool choose(const std::string& label) {
        dialog_record::clear_calls();
        const auto all = choices();
        const auto found = all.find(label);
        if (found != all.end()) return run_command(found->second);
        ADD_FAILURE() << "neither an item nor a button: " << label;
        return false;
    }

    /// Opens a file of this content, as from the command line.
    std::string open(const std::string& content) {
        const std::string name = folder_.file("open.gwr", content);
        current_file_name = std::string_view(name);
        open_current_file();
        return name;
    }
    static std::string first_atom() {
        return std::string(wcfgl_atom_tree::get_atom_info(1).label.trimmed());
    }

    TempDirectory folder_;

private:
    std::filesystem::path start_;
};

const std::string cell = "CELL 4 4 4 90 90 90\n";
const std::string whole =
    "SPACEG P m\n" + cell +
    "BOX 0 2 0 2 0 2\nATOM Fe1 FE 0 0 0\nATOM H1 H 0.25 0 0\nATOM D1 D 0.5 0 0\n"
    "CONN FE H 0 2\n"
    "{\nLATTICE P\nK 0 0 0.5\nSYMM x,y,z\nMSYM u,v,w,0.0\n"
    "MATOM M1 FE 0 0 0 SCALE 1\nSKP 1 1 1 0 0 0 0 0 0\n}\n";

TEST_F(Commands, EveryItemAndButtonHasOne) {
    int count = 0;
    for (const auto& [label, item] : choices()) {
        ++count;
        EXPECT_TRUE(run_command(item)) << label;
    }
    EXPECT_EQ(count, 22 + 21);
    for (const int head : {0, 40001, 40008, 40010, 40011, 40022, 40024, 40027, 40119})
        EXPECT_FALSE(run_command(head)) << head;
}

TEST_F(Commands, SomeDoNothing) {
    open(whole);
    for (const char* label : {"New", "New file", "Polyhedra", "Magnetic atoms"}) {
        EXPECT_TRUE(choose(label));
        EXPECT_THAT(dialog_record::calls(), IsEmpty()) << label;
        EXPECT_EQ(first_atom(), "Fe1");
    }
}

TEST_F(Commands, ShowDialogs) {
    for (const auto& [label, dialog] : {std::pair{"Symmetry", 102},
                                        {"Lattice parameters", 105},
                                        {"Atoms", 107},
                                        {"Bonds", 112},
                                        {"Lattice and K vectors", 110},
                                        {"Magnetic Operators", 111},
                                        {"Graphics", 117},
                                        {"Lamp", 118},
                                        {"Box limits", 103},
                                        {"Axes", 106},
                                        {"Magnetic moment", 120}}) {
        EXPECT_FALSE(dialog_record::is_shown(dialog));
        choose(label);
        EXPECT_TRUE(dialog_record::is_shown(dialog)) << label;
        EXPECT_THAT(calls_of("wdialogshow"), ElementsAre(std::to_string(dialog) + " 2")) << label;
        EXPECT_EQ(dialog_record::current_dialog(), dialog::main) << "the loop looks there";
    }
    choose("About");
    EXPECT_THAT(calls_of("wdialogshow"), ElementsAre("108 1"));
}

TEST_F(Commands, GiveTheSpinnersOfADialogTheirSteps) {
    for (const char* label : {"Atoms", "Bonds", "Box limits"}) choose(label);
    EXPECT_EQ(dialog_record::steps({114, 1103}), std::pair(0.1f, 0.5f));
    EXPECT_EQ(dialog_record::steps({116, 1156}), std::pair(0.1f, 0.3f));
    for (const int limit : {1015, 1017, 1019, 1021, 1023, 1025})
        EXPECT_EQ(dialog_record::steps({103, limit}), std::pair(0.1f, 0.5f)) << limit;
}

TEST_F(Commands, OpenPutsAFileInPlaceOfTheModelAndItsView) {
    const std::string other =
        folder_.file("other.gwr", cell + "ROTAX 90 0 0 1\nATOM Mn1 MN 0 0 0\n");
    for (const char* label : {"Open", "Open File"}) {
        const std::string before = open(whole);
        answer({.button = 1, .file = other});
        choose(label);
        EXPECT_THAT(calls_of("wselectfile2"),
                    ElementsAre("138 Gemwright Input File|*.gwr| Open Gemwright files " + before));
        EXPECT_EQ(current_file_name.trimmed(), other);
        EXPECT_EQ(first_atom(), "Mn1");
        EXPECT_EQ(text({dialog::main, field::information}), other);
        EXPECT_EQ(text({dialog::atom_position, field::atom_label}), "Mn1");
        EXPECT_NEAR(wcfgl_trackball::current_rot_matrix[1], 1, 1e-6);  // x turns to y
    }
    answer({.button = 1, .file = folder_.file("third.gwr", cell)});
    choose("Open");
    EXPECT_EQ(view_quaternion, (Quaternion{1, 0, 0, 0})) << "a file without a view stands upright";
}

TEST_F(Commands, OpenCancelledLeavesAll) {
    const std::string name = open(whole);
    answer({.button = 2});
    choose("Open");
    EXPECT_EQ(current_file_name.trimmed(), name);
    EXPECT_EQ(first_atom(), "Fe1");
}

// A Save afterwards writes the structure that is shown into its own file, with its group.
TEST_F(Commands, WhatCannotBeReadIsToldAndLeavesAll) {
    const std::string name = open(whole);
    const auto expect_told = [&](const std::string& file, const char* reason) {
        EXPECT_THAT(calls_of("wmessagebox"),
                    ElementsAre(testing::AllOf(HasSubstr(file + "\n"), HasSubstr(reason))));
        EXPECT_EQ(current_file_name.trimmed(), name);
        EXPECT_EQ(first_atom(), "Fe1");
        EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 6);
        EXPECT_EQ(text({dialog::main, field::information}), name);
    };
    const std::string gone = folder_.name("gone.gwr");
    const std::pair<std::string, const char*> unreadable[]{
        {gone, "No such file or directory"}, {folder_.path().string(), "Not a regular file"}};
    for (const auto& [file, reason] : unreadable) {
        answer({.button = 1, .file = file});
        choose("Open");
        expect_told(file, reason);
    }
    std::filesystem::rename(name, gone);
    choose("Reload file");
    expect_told(name, "No such file or directory");

    // Regular, and refused only when it is read.
    answer({.button = 1, .file = "/proc/self/mem"});
    choose("Open");
    EXPECT_THAT(calls_of("wmessagebox"), ElementsAre(HasSubstr("Input/output error")));
    EXPECT_EQ(current_file_name.trimmed(), name);
    EXPECT_EQ(text({dialog::main, field::information}), name);
}

// Cut, it would be the name of another file.
TEST_F(Commands, ANameThatCannotBeKeptWholeIsRefused) {
    const std::string name = open(whole), before = content_of(name);
    for (const std::string& file : {name + std::string(257 - name.size(), 'x'), name + " "}) {
        for (const char* label : {"Open", "Save as"}) {
            answer({.button = 1, .file = file});
            choose(label);
            EXPECT_THAT(calls_of("wmessagebox"), ElementsAre(HasSubstr(file))) << label;
            EXPECT_EQ(current_file_name.trimmed(), name);
            EXPECT_EQ(content_of(name), before);
            EXPECT_EQ(first_atom(), "Fe1");
        }
    }
}

TEST_F(Commands, ReloadReadsTheFileAnewAndKeepsTheView) {
    const std::string name = open(whole);
    const Quaternion view{0, 0, 1, 0};
    view_quaternion = view;
    folder_.file("open.gwr", cell + "ROTAX 90 0 0 1\nATOM New NI 0 0 0\n");
    choose("Reload file");
    EXPECT_EQ(first_atom(), "New");
    EXPECT_EQ(text({dialog::atom_position, field::atom_label}), "New");
    EXPECT_EQ(view_quaternion, view);

    current_file_name = "";
    choose("Reload file");
    EXPECT_EQ(first_atom(), "New");
    EXPECT_THAT(dialog_record::calls(), IsEmpty());
}

TEST_F(Commands, SaveWritesUnderTheNameOrAsksForOne) {
    for (const char* label : {"Save", "Save File"}) {
        const std::string name = open(whole);
        folder_.file("open.gwr", "");
        choose(label);
        EXPECT_THAT(content_of(name), HasSubstr("Fe1"));
        EXPECT_THAT(dialog_record::calls(), IsEmpty());

        const std::string other = folder_.name("asked.gwr");
        current_file_name = "";
        answer({.button = 1, .file = other});
        choose(label);
        EXPECT_THAT(calls_of("wselectfile2"),
                    ElementsAre("43 Gemwright Input File|*.gwr| Save Gemwright files "));
        EXPECT_THAT(content_of(other), HasSubstr("Fe1"));
        EXPECT_EQ(current_file_name.trimmed(), other);
        EXPECT_EQ(text({dialog::main, field::information}), other);
        std::filesystem::remove(other);
    }
    current_file_name = "";
    choose("Save");  // cancelled
    EXPECT_TRUE(current_file_name.blank());
    EXPECT_THAT(calls_of("wmessagebox"), IsEmpty());
}

TEST_F(Commands, SaveAsAlwaysAsks) {
    for (const char* label : {"Save as", "Save as..."}) {
        const std::string name = open(whole), other = folder_.name("other.gwr");
        answer({.button = 1, .file = other});
        choose(label);
        EXPECT_THAT(calls_of("wselectfile2"),
                    ElementsAre("43 Gemwright Input File|*.gwr| Save Gemwright files " + name));
        EXPECT_THAT(content_of(other), HasSubstr("Fe1"));
        EXPECT_EQ(current_file_name.trimmed(), other);
        EXPECT_EQ(content_of(name), whole);
        std::filesystem::remove(other);
    }
}

TEST_F(Commands, ASaveThatFailsIsTold) {
    const std::string name = open(whole), lost = folder_.name("none/lost.gwr");
    answer({.button = 1, .file = lost});
    choose("Save as");
    EXPECT_THAT(calls_of("wmessagebox"),
                ElementsAre(testing::AllOf(testing::StartsWith("0 3 1 Save " + lost + "\n"),
                                           HasSubstr("No such file or directory"))));
    EXPECT_EQ(current_file_name.trimmed(), name) << "a reload finds the old file";

    current_file_name = std::string_view(lost);
    choose("Save");
    EXPECT_THAT(calls_of("wmessagebox"), ElementsAre(HasSubstr(lost)));
}

TEST_F(Commands, CloseEmptiesTheModelAndKeepsTheName) {
    for (const int button : {1, 2}) {
        const std::string name = open(whole);
        folder_.file("open.gwr", "");
        answer({.button = button});
        choose("Close");
        EXPECT_THAT(calls_of("wmessagebox"),
                    ElementsAre("3 2 1 Save Do you want to save the changes ?"));
        EXPECT_EQ(content_of(name).empty(), button == 2);
        EXPECT_EQ(first_atom(), "???");
        EXPECT_THAT(wcfgl_bond_tree::generate_bond_label_array(), SizeIs(1));  // "-New bond-"
        EXPECT_EQ(wcfgl_matom_tree::matom_list_head(), nullptr);
        EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 1);
        EXPECT_EQ(current_file_name.trimmed(), name);
        // What stays: the box, the magnetic phase, and what the dialogs show.
        EXPECT_EQ(wcfgl_metrix::current_box, (wcfgl_metrix::Box{0, 2, 0, 2, 0, 2}));
        EXPECT_THAT(*wcfgl_matom_tree::current_k_list, SizeIs(1));
        EXPECT_EQ(text({dialog::main, field::information}), name);
        EXPECT_EQ(text({dialog::space_group, field::symbol}), "P M");
    }
}

TEST_F(Commands, CloseWithoutAFileDoesNothing) {
    two_atoms();
    choose("Close");
    EXPECT_EQ(first_atom(), "Fe1");
    EXPECT_THAT(dialog_record::calls(), IsEmpty());
}

TEST_F(Commands, CloseClosesNothingWhenSavingFails) {
    open(whole);
    current_file_name = std::string_view(folder_.name("none/lost.gwr"));
    answer({.button = 1});
    choose("Close");
    EXPECT_THAT(calls_of("wmessagebox"), SizeIs(2));
    EXPECT_EQ(first_atom(), "Fe1");
    EXPECT_EQ(wcfgl_metrix::current_space_group->num_spg, 6);
}

class Export : public Commands {
protected:
    Export() : name_(open(whole)) {
        wcfgl_display::current_screen_width = 640;
        wcfgl_display::current_screen_height = 480;
    }
    ~Export() override { dialog_record::no_picture_because.clear(); }
    void run(int button) {
        gl_record::clear();
        answer({.button = button, .file = folder_.name("a.png")});
        choose("Export bitmap");
    }
    static void expect_window_back() {
        EXPECT_THAT(calls_of("igrselect").back(), "3 101.1001");
        EXPECT_EQ(gl_record::texts({"wglselect"}).back(), "wglselect(3, 1001, 2)");
        EXPECT_THAT(gl_record::texts({"glDrawBuffer"}), ElementsAre("glDrawBuffer(1029)"))
            << "GL_BACK, and of the window only";
        EXPECT_EQ(wcfgl_display::current_screen_width, dialog_record::drawable_width);
        EXPECT_EQ(wcfgl_display::current_centroffset, (std::array{64, -32}));
    }

    std::string name_;
};

TEST_F(Export, DrawsAndSavesAndTakesTheName) {
    using namespace wcfgl_objects_definition;
    wcfgl_display::current_centroffset = {64, -32};
    switch_lowres_objects();  // as in the middle of a drag
    run(1);
    EXPECT_THAT(calls_of("wselectfile2"),
                ElementsAre("43 Bitmap file|*.bmp| Save as Bitmap " + name_));
    EXPECT_THAT(calls_of("wbitmapcreate"), ElementsAre("600 480"));
    EXPECT_THAT(calls_of("igrselect"), ElementsAre("2 101.7", "3 101.1001"));
    EXPECT_THAT(calls_of("igrsaveimage"), ElementsAre(folder_.name("a.png")));
    EXPECT_THAT(calls_of("wbitmapdestroy"), ElementsAre("7"));
    EXPECT_THAT(gl_record::texts({"wglselect", "glViewport", "wglswapbuffers"}),
                ElementsAre("wglselect(2, 7, 0)", "glViewport(60, -90, 600, 600)",
                            "wglswapbuffers()", "wglselect(0, 0, 0)", "wglselect(3, 1001, 2)"));
    // One sphere of each quality was built: the fine one for the picture, the coarse one behind it.
    EXPECT_THAT(gl_record::texts({"gluSphere"}),
                ElementsAre(HasSubstr("20, 20"), HasSubstr("6, 6")));
    EXPECT_EQ(highres, 0);
    expect_window_back();
    EXPECT_THAT(calls_of("wmessagebox"), IsEmpty());
    // Kept: what is saved or reloaded next is the picture's file.
    EXPECT_EQ(current_file_name.trimmed(), folder_.name("a.png"));
    EXPECT_EQ(followed_file_name().trimmed(), name_);
    run(1);
    EXPECT_EQ(followed_file_name().trimmed(), name_) << "also after a second one";
    switch_highres_objects();
}

// The file box goes to another folder.
TEST_F(Export, ARelativeNameGoesOnLeadingToItsFile) {
    for (const char* reason : {"Input/output error", ""}) {
        current_file_name = "open.gwr";
        dialog_record::no_picture_because = reason;
        run(1);
        EXPECT_EQ(followed_file_name().trimmed(), name_) << reason;
    }
}

TEST_F(Export, CancelledOrFailedLeavesTheNameAndTells) {
    wcfgl_display::current_centroffset = {64, -32};
    run(2);
    EXPECT_THAT(calls_of("igrsaveimage"), IsEmpty());
    expect_window_back();
    EXPECT_THAT(calls_of("wmessagebox"), IsEmpty());
    dialog_record::no_picture_because = "No space left on device";
    run(1);
    expect_window_back();
    EXPECT_THAT(calls_of("wmessagebox"),
                ElementsAre(testing::AllOf(HasSubstr(folder_.name("a.png") + "\n"),
                                           HasSubstr("No space left on device"))));
    EXPECT_EQ(gl_record::texts({"wglselect", "wglswapbuffers"}).back(), "wglswapbuffers()")
        << "the window's picture, below the message";
    EXPECT_EQ(current_file_name.trimmed(), name_);
}

TEST_F(Commands, AListingOfMomentsReplacesTheLastOne) {
    open(whole);
    choose("List magnetic moments");
    EXPECT_THAT(content_of("temp.dat"), HasSubstr("M1"));
    answer({.button = 2});
    choose("Close");
    choose("List magnetic moments");
    EXPECT_THAT(content_of("temp.dat"), testing::Not(HasSubstr("M1")));
    // 39: frame and status bar; 256: neither New nor Open.
    EXPECT_THAT(dialog_record::calls(),
                ElementsAre("windowselect 1", "weditfile 256 temp.dat", "windowselect 0"));

    // With another working directory it is another file.
    std::filesystem::create_directory("other");
    std::filesystem::current_path("other");
    answer({.button = 1});
    choose("List magnetic moments");
    EXPECT_THAT(calls_of("weditclose"), ElementsAre("1"));
    EXPECT_THAT(calls_of("windowopenchild2"), ElementsAre("39 Gemwright Magnetic list"));

    std::filesystem::remove("temp.dat");
    std::filesystem::create_directory("temp.dat");
    choose("List magnetic moments");
    EXPECT_THAT(calls_of("wmessagebox"), ElementsAre(HasSubstr("temp.dat")));
}

// A second window on a file would let two texts of it overwrite each other.
TEST_F(Commands, EditOpensOneWindowForTheFile) {
    choose("Edit *.gwr file");
    EXPECT_THAT(dialog_record::calls(), IsEmpty()) << "without a file";

    const std::string first = open(whole);
    choose("Edit *.gwr file");
    EXPECT_THAT(dialog_record::calls(),
                ElementsAre("windowselect 0", "windowopenchild2 39 Edition of file: " + first,
                            "weditfile 256 " + first, "windowselect 0"));
    choose("Edit *.gwr file");
    EXPECT_THAT(dialog_record::calls(),
                ElementsAre("windowselect 1", "weditfile 256 " + first, "windowselect 0"));

    const std::string second = folder_.file("second.gwr", whole);
    current_file_name = std::string_view(second);
    answer({.button = 3});
    choose("Edit *.gwr file");
    EXPECT_THAT(dialog_record::calls(), ElementsAre("weditclose 1")) << "the user stays";
    answer({.button = 1});
    choose("Edit *.gwr file");
    EXPECT_THAT(dialog_record::calls(),
                ElementsAre("weditclose 1", "windowselect 0",
                            "windowopenchild2 39 Edition of file: " + second,
                            "weditfile 256 " + second, "windowselect 0"));
}

// 256ths: neither end of the chooser's range may come out as 1.
TEST_F(Commands, AChosenColourCountsIn256ths) {
    answer({.button = 1, .colour = 255 + 256 * 64 + 65536 * 128});
    choose("Background color");
    EXPECT_THAT(calls_of("wselectcolour1"), ElementsAre("0"));
    EXPECT_EQ(wcfgl_display::background_colour, (Colour{0.99609375f, 0.25f, 0.5f, 1.0f}));
    choose("Background color");  // cancelled
    EXPECT_EQ(wcfgl_display::background_colour, (Colour{0.99609375f, 0.25f, 0.5f, 1.0f}));

    answer({.button = 1, .colour = 65536});
    choose("Change cell color");
    EXPECT_THAT(calls_of("wselectcolour1"), SizeIs(1));
    EXPECT_FALSE(wcfgl_metrix::current_cell) << "dropped";
    open(whole);
    answer({.button = 1, .colour = 65536});
    choose("Change cell color");
    EXPECT_THAT(calls_of("wselectcolour1"), ElementsAre("8421504"));  // 128 of each
    EXPECT_EQ(wcfgl_metrix::current_cell->colour, (Colour{0, 0, 0.00390625f, 1}));
}

// What no chooser can show; a file can hold it.
TEST_F(Commands, TheChooserBeginsInsideItsRange) {
    wcfgl_display::background_colour = {-1, 1e30f, std::numeric_limits<float>::quiet_NaN(), 1};
    choose("Background color");
    EXPECT_THAT(calls_of("wselectcolour1"), ElementsAre(std::to_string(256 * 255)));
}

TEST_F(Commands, HideAndShowTheCellAndTheAxes) {
    for (const char* label : {"Hide Cell", "Display single cell", "Display multiple cells",
                              "Hide axes", "Display axes"})
        EXPECT_TRUE(choose(label)) << "without a cell nothing happens";
    EXPECT_FALSE(wcfgl_metrix::current_cell || wcfgl_metrix::current_axes);

    open(whole);
    const auto& shown = wcfgl_metrix::current_cell;
    choose("Display multiple cells");
    EXPECT_EQ(std::pair(shown->nodisplay, shown->multiple), std::pair(0, 1));
    choose("Hide Cell");
    EXPECT_EQ(std::pair(shown->nodisplay, shown->multiple), std::pair(1, 1));
    choose("Display single cell");
    EXPECT_EQ(std::pair(shown->nodisplay, shown->multiple), std::pair(0, 0));
    choose("Hide Cell");
    choose("Display multiple cells");
    EXPECT_EQ(shown->nodisplay, 0);
    choose("Hide axes");
    EXPECT_EQ(wcfgl_metrix::current_axes->nodisplay, 1);
    choose("Display axes");
    EXPECT_EQ(wcfgl_metrix::current_axes->nodisplay, 0);
}

TEST_F(Commands, HideAndShowAtomsBondsAndMoments) {
    open(whole);
    dialog_record::set({dialog::atoms, field::atom_list}, 3);  // D1
    dialog_record::set({dialog::bonds, field::bond_list}, 1);
    struct Case {
        const char* label;
        std::array<int, 5> hidden;  ///< Fe1, H1, D1, the bond, the moment
    };
    for (const auto& [label, hidden] : std::vector<Case>{{"Hide atoms", {1, 1, 1, 0, 0}},
                                                         {"Display H atoms", {1, 0, 0, 0, 0}},
                                                         {"Display atoms", {0, 0, 0, 0, 0}},
                                                         {"Hide H atoms", {0, 1, 1, 0, 0}},
                                                         {"Hide bonds", {0, 1, 1, 1, 0}},
                                                         {"Hide moments", {0, 1, 1, 1, 1}},
                                                         {"Display bonds", {0, 1, 1, 0, 1}},
                                                         {"Display moments", {0, 1, 1, 0, 0}}}) {
        choose(label);
        const auto atom = [](int i) { return wcfgl_atom_tree::get_atom_info(i).nodisplay; };
        EXPECT_EQ(
            (std::array{atom(1), atom(2), atom(3), wcfgl_bond_tree::get_bond_info(1).nodisplay,
                        wcfgl_matom_tree::matom_list_head()->nodisplay}),
            hidden)
            << label;
        EXPECT_EQ(dialog_record::value({dialog::atom_look, field::atom_shown}), 1 - hidden[2])
            << label;
        EXPECT_EQ(dialog_record::value({dialog::bond_look, field::bond_shown}), 1 - hidden[3])
            << label;
    }
}

}  // namespace
