#include "tests/support/display_input.hpp"
#include "tests/support/png_pixels.hpp"
#include "tests/support/temp_file.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

// The program itself, as a user starts it, uses it and closes it.

using namespace display_input;

namespace {

const std::string title = "Gemwright Ver-1.0";
const std::string example = std::string(GEMWRIGHT_EXAMPLES) + "/nacl.gwr";

/// The program as a child process; closed as the window manager closes it, or killed.
class Program {
public:
    explicit Program(const std::vector<std::string>& arguments, bool with_display = true) {
        std::array<int, 2> pipe_ends{};
        if (pipe(pipe_ends.data()) != 0) std::abort();
        pid_ = fork();
        if (pid_ == 0) {
            if (!with_display) unsetenv("DISPLAY");
            dup2(pipe_ends[1], STDERR_FILENO);
            close(pipe_ends[0]);
            std::vector<char*> words{const_cast<char*>(GEMWRIGHT_PROGRAM)};
            for (const std::string& word : arguments)
                words.push_back(const_cast<char*>(word.c_str()));
            words.push_back(nullptr);
            execv(words[0], words.data());
            _exit(127);
        }
        close(pipe_ends[1]);
        errors_ = pipe_ends[0];
    }
    ~Program() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        close(errors_);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Status of its end; -1 when a signal ended it.
    int wait_for_end() {
        int status = 0;
        waitpid(pid_, &status, 0);
        pid_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int close_by_window_manager() {
        close_window(title);
        return wait_for_end();
    }
    std::string errors() const {
        std::string text;
        std::array<char, 512> part{};
        for (ssize_t n = 0; (n = read(errors_, part.data(), part.size())) > 0;)
            text.append(part.data(), static_cast<std::size_t>(n));
        return text;
    }

private:
    pid_t pid_ = 0;
    int errors_ = -1;
};

/// The picture field: where most of a row or column of the window is black, the background.
Rectangle picture_in(const Rectangle& window) {
    const std::vector<unsigned> seen = pixels(window);
    const auto black = [&](int x, int y) {
        return seen[static_cast<std::size_t>(y * window.width + x)] == 0;
    };
    std::vector<int> rows(static_cast<std::size_t>(window.height));
    std::vector<int> columns(static_cast<std::size_t>(window.width));
    for (int y = 0; y < window.height; ++y)
        for (int x = 0; x < window.width; ++x)
            if (black(x, y)) {
                ++rows[static_cast<std::size_t>(y)];
                ++columns[static_cast<std::size_t>(x)];
            }
    const auto range = [](const std::vector<int>& counts, int enough) {
        const auto good = [enough](int n) { return n > enough; };
        const auto first = std::find_if(counts.begin(), counts.end(), good);
        const auto last = std::find_if(counts.rbegin(), counts.rend(), good).base();
        return std::array{static_cast<int>(first - counts.begin()),
                          static_cast<int>(std::max(last, first) - first)};
    };
    const auto [top, height] = range(rows, window.width / 4);
    const auto [left, width] = range(columns, window.height / 4);
    return {window.x + left, window.y + top, width, height};
}

/// Waits until the picture has come, and answers where it is.
Rectangle picture() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    Rectangle found;
    do {
        found = picture_in(window_titled(title));
        if (found.width > 200 && found.height > 200) return found;
        std::this_thread::yield();
    } while (std::chrono::steady_clock::now() < deadline);
    ADD_FAILURE() << "no picture";
    return found;
}

int lit(const std::vector<unsigned>& seen) {
    return static_cast<int>(
        std::count_if(seen.begin(), seen.end(), [](unsigned p) { return p != 0; }));
}

/// Waits until the area shows something for which `good` holds.
template <class Predicate>
bool comes_to_show(const Rectangle& area, Predicate good) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < deadline) {
        if (good(pixels(area))) return true;
        std::this_thread::yield();
    }
    return false;
}

Point in(const Rectangle& area, double x, double y) {
    return {area.x + static_cast<int>(area.width * x), area.y + static_cast<int>(area.height * y)};
}

/// A field of the main dialog by its place in dialog units; the picture measures 371 by 252 of them
/// and begins at (1, 24).
Point field_at(const Rectangle& shown, double x, double y) {
    return {shown.x + static_cast<int>((x - 1) * shown.width / 371),
            shown.y + static_cast<int>((y - 24) * shown.height / 252)};
}

constexpr std::array<double, 2> zoom_radio{28, 12}, translate_radio{44, 12}, recentre{68, 12},
    continuous_read{96, 12};

void click_field(const Rectangle& shown, const std::array<double, 2>& place) {
    click(field_at(shown, place[0], place[1]));
}

/// What the picture shows once the program has acted on all that came before. A press on the button
/// that recentres is the mark behind it: the button shows it, and let go elsewhere it does nothing.
std::vector<unsigned> at_rest(const Rectangle& shown) {
    const Point at = field_at(shown, recentre[0], recentre[1]);
    const Rectangle button{at.x - 20, at.y - 12, 40, 24};  // with its edges, which sink in
    const std::vector<unsigned> before = pixels(button);
    move_to(at);
    press();
    EXPECT_TRUE(comes_to_show(button, [&](const auto& now) { return now != before; }));
    move_to(field_at(shown, 200, 12));
    release();
    return pixels(shown);
}

int count(const std::vector<unsigned>& seen, bool (*is)(int r, int g, int b)) {
    return static_cast<int>(std::count_if(seen.begin(), seen.end(), [is](unsigned p) {
        return is(static_cast<int>(p >> 16 & 255), static_cast<int>(p >> 8 & 255),
                  static_cast<int>(p & 255));
    }));
}
bool has_colour(const std::vector<unsigned>& seen, bool (*is)(int r, int g, int b)) {
    return count(seen, is) > 0;
}

TEST(ProgramDisplay, ShowsAFileAndEndsByTheWindowManagersClose) {
    Program program({example});
    const Rectangle shown = picture();
    EXPECT_GT(lit(at_rest(shown)), shown.width * shown.height / 50);
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

TEST(ProgramDisplay, OpensWithoutAFileAndWithOneThatIsNotThere) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, std::vector<std::string>{"no", "such file"}}) {
        Program program(arguments);
        const Rectangle shown = picture();
        EXPECT_EQ(lit(pixels(shown)), 0);
        EXPECT_EQ(program.close_by_window_manager(), 0);
    }
}

TEST(ProgramDisplay, WithoutADisplayItSaysSoAndEnds) {
    Program program({example}, false);
    EXPECT_GT(program.wait_for_end(), 0);
    EXPECT_NE(program.errors().find("Cannot open X display. Check DISPLAY environment variable."),
              std::string::npos);
}

TEST(ProgramDisplay, ADragTurnsTheModel) {
    Program program({example});
    const Rectangle shown = picture();
    const auto before = at_rest(shown);
    drag(in(shown, 0.5, 0.5), in(shown, 0.7, 0.6), 10);
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& now) { return now != before; }));
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

TEST(ProgramDisplay, TheRadioButtonsChooseWhatADragDoes) {
    Program program({example});
    const Rectangle shown = picture();
    const int at_first = lit(at_rest(shown));
    click_field(shown, zoom_radio);
    drag(in(shown, 0.5, 0.4), in(shown, 0.5, 0.6), 10);  // down: smaller, 1.05 a move
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& now) { return lit(now) < at_first * 3 / 4; }));

    click_field(shown, translate_radio);
    const auto centred = at_rest(shown);
    drag(in(shown, 0.5, 0.5), in(shown, 0.7, 0.5), 5);
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& now) { return now != centred; }));
    click_field(shown, recentre);
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& now) { return now == centred; }));
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

TEST(ProgramDisplay, ThePictureFollowsTheWindowsSize) {
    Program program({example});
    const Rectangle before = picture();
    const Rectangle window = window_titled(title);
    resize_window(title, window.width + 100, window.height + 60);
    Rectangle after;
    comes_to_show(before, [&](const auto&) {
        after = picture_in(window_titled(title));
        return after.width > before.width && after.height > before.height;
    });
    EXPECT_NEAR(after.width - before.width, 100, 2);
    EXPECT_NEAR(after.height - before.height, 60, 2);
    EXPECT_GT(lit(at_rest(after)), 0);
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

TEST(ProgramDisplay, ACoveredPictureComesBack) {
    Program program({example});
    const Rectangle shown = picture();
    const auto before = at_rest(shown);
    cover_and_uncover(shown);
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& now) { return now == before; }));
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

TEST(ProgramDisplay, TheContinuousReadFollowsAnEditor) {
    const TempDirectory folder;
    const std::string name = folder.name("live.gwr");
    const auto write = [&](const char* colour) {
        std::ofstream(name) << "CELL 4 4 4 90 90 90\nATOM A FE 0.5 0.5 0.5 RADIUS 3 COLOR "
                            << colour << "\n";
    };
    write("1 0 0 1");
    Program program({name});
    const Rectangle shown = picture();
    const auto reddish = [](int r, int g, int b) { return r > 100 && g < 60 && b < 60; };
    const auto greenish = [](int r, int g, int b) { return g > 100 && r < 60 && b < 60; };
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& s) { return has_colour(s, reddish); }));
    write("0 1 0 1");
    click_field(shown, continuous_read);
    EXPECT_TRUE(comes_to_show(shown, [&](const auto& s) { return has_colour(s, greenish); }));
    click_field(shown, continuous_read);
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

/// An item of the first menu, so many steps down from its first; by the keyboard, as its place
/// depends on the font.
void choose_in_file_menu(int steps) {
    key("F10");
    for (int i = 0; i < steps; ++i) key("Down");
    key("Return");
}
constexpr int open_item = 1, close_item = 2, save_item = 3, save_as_item = 4, export_item = 5,
              exit_item = 6;

/// Buttons of 22 pixels, the first two pixels from the toolbar's corner. The toolbar of the scene
/// is to the left of the main dialog, that of the file above both.
constexpr int to_middle = 13, next_button = 22, gap = 6;
void click_scene_button(const Rectangle& shown, int buttons_before, int gaps_before) {
    const int below = to_middle + buttons_before * next_button + gaps_before * gap;
    click({window_titled(title).x + to_middle, field_at(shown, 1, 0).y + below});
}
void click_reload(const Rectangle& shown) {
    click({window_titled(title).x + to_middle + 2 * next_button,
           field_at(shown, 1, 0).y - to_middle});
}

void click_edit(const Rectangle& shown) {
    click({window_titled(title).x + to_middle + 5 * next_button + gap,
           field_at(shown, 1, 0).y - to_middle});
}

void wait_until_gone(const std::string& box) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (is_shown(box) && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    EXPECT_FALSE(is_shown(box)) << box;
}

/// The name's field is a fifth of the box above its lower edge.
void answer_file_box(const std::string& box, const std::string& name) {
    click(in(window_titled(box), 0.5, 0.8));
    key("ctrl+slash");
    type(name);
    key("Return");
    wait_until_gone(box);
}

TEST(ProgramDisplay, ARoundThroughTheMenusEndsInAFileThatReadsBack) {
    const auto reddish = [](int r, int g, int b) { return r > 100 && g < 60 && b < 60; };
    const auto greenish = [](int r, int g, int b) { return g > 100 && r < 60 && b < 60; };
    const TempDirectory folder;
    const std::string atom = "CELL 4 4 4 90 90 90\nATOM A FE 0.5 0.5 0.5 RADIUS 3 COLOR ";
    const std::string opened = folder.file("opened.gwr", atom + "1 0 0 1\n");
    const std::string saved = folder.name("saved.gwr");
    const auto written = [&] { return content_of(saved).find("SPACEG") != std::string::npos; };
    Program program({});
    const Rectangle shown = picture();
    // The atom is large, the axes have both colours too.
    const auto shows = [&](auto colour, bool wanted = true) {
        return comes_to_show(shown, [&](const auto& seen) {
            return (count(seen, colour) > shown.width * shown.height / 50) == wanted;
        });
    };
    click(field_at(shown, 200, 12));  // gives the window the keys

    choose_in_file_menu(open_item);
    answer_file_box("Open Gemwright files", opened);
    EXPECT_TRUE(shows(reddish));
    click_scene_button(shown, 7, 3);  // Hide atoms
    EXPECT_TRUE(shows(reddish, false));
    click_scene_button(shown, 8, 3);  // Display atoms
    EXPECT_TRUE(shows(reddish));

    choose_in_file_menu(save_as_item);
    answer_file_box("Save Gemwright files", saved);
    EXPECT_TRUE(comes_to_show(shown, [&](const auto&) { return written(); }));
    folder.file("saved.gwr", atom + "0 1 0 1\n");
    click_reload(shown);
    EXPECT_TRUE(shows(greenish));

    choose_in_file_menu(close_item);
    window_titled("Save");
    key("Return");  // Yes
    wait_until_gone("Save");
    EXPECT_TRUE(shows(greenish, false));
    choose_in_file_menu(exit_item);
    EXPECT_EQ(program.wait_for_end(), 0);
    EXPECT_TRUE(written());

    Program again({saved});
    EXPECT_TRUE(shows(greenish));
    EXPECT_EQ(again.close_by_window_manager(), 0);
}

TEST(ProgramDisplay, TheEditorDrivesThePictureAndHoldsItsFile) {
    const auto greenish = [](int r, int g, int b) { return g > 100 && r < 60 && b < 60; };
    const TempDirectory folder;
    const std::string start = "CELL 4 4 4 90 90 90\nATOM A FE 0.5 0.5 0.5 RADIUS 3 COLOR ";
    const std::string name = folder.file("live.gwr", start + "1 0 0 1");
    Program program({name});
    const Rectangle shown = picture();
    const auto is_green = [&] {
        return comes_to_show(shown, [&](const auto& s) { return has_colour(s, greenish); });
    };
    click_field(shown, continuous_read);
    click_edit(shown);
    const std::string editor = "Edition of file: " + name + " - [" + name + "]";
    click(in(window_titled(editor), 0.5, 0.5));
    for (const char* each : {"ctrl+End", "BackSpace", "BackSpace", "BackSpace", "BackSpace",
                             "BackSpace", "BackSpace", "BackSpace"})
        key(each);
    type("0 1 0 1");
    key("ctrl+s");
    EXPECT_TRUE(is_green());
    EXPECT_EQ(content_of(name), start + "0 1 0 1");

    click_field(shown, continuous_read);
    choose_in_file_menu(save_item);
    window_titled("Save");
    key("Return");
    wait_until_gone("Save");
    EXPECT_EQ(content_of(name), start + "0 1 0 1") << "refused while it is being edited";
    close_window(editor);
    wait_until_gone(editor);
    click(field_at(shown, 200, 12));
    choose_in_file_menu(save_item);
    EXPECT_TRUE(comes_to_show(
        shown, [&](const auto&) { return content_of(name).find("SPACEG") != std::string::npos; }));
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

/// Colours of a PNG file's pixels as 0xrrggbb; none until it is whole.
std::vector<unsigned> colours_of_png(const std::string& name) {
    const auto bytes = png_pixels(content_of(name));
    std::vector<unsigned> colours;
    for (std::size_t i = 0; i < bytes.size(); i += 3)
        colours.push_back(static_cast<unsigned>(bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]));
    return colours;
}

// In a window whose picture is as large as the exported one both are the same, pixel for pixel, and
// the window stays so.
TEST(ProgramDisplay, AnExportIsTheWindowsPictureAndLeavesItAsItIs) {
    const TempDirectory folder;
    Program program({std::string(GEMWRIGHT_EXAMPLES) + "/mno.gwr"});
    Rectangle shown = picture();
    const Rectangle window = window_titled(title);
    resize_window(title, window.width + 600 - shown.width, window.height + 480 - shown.height);
    ASSERT_TRUE(comes_to_show(window, [&](const auto&) {
        shown = picture_in(window_titled(title));
        return shown.width == 600 && shown.height == 480;
    }));
    click(field_at(shown, 200, 12));  // gives the window the keys
    const std::vector<unsigned> before = at_rest(shown);
    ASSERT_GT(lit(before), 600 * 480 / 50);
    for (const char* name : {"first.png", "second.png"}) {
        choose_in_file_menu(export_item);
        answer_file_box("Save as Bitmap", folder.name(name));
        EXPECT_TRUE(comes_to_show(shown, [&](const auto&) {
            return colours_of_png(folder.name(name)) == before;
        })) << name;
        EXPECT_TRUE(at_rest(shown) == before);
        // The second time with the file read again and again.
        click_field(shown, continuous_read);
        EXPECT_TRUE(at_rest(shown) == before);
    }
    EXPECT_EQ(program.close_by_window_manager(), 0);
}

}  // namespace
