#include "tests/support/display_input.hpp"

#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/shell_title.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <GL/glx.h>
#include <X11/Xutil.h>
#include <Xm/Label.h>
#include <Xm/Xm.h>
#include <dlfcn.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

using namespace tesserakit;
using namespace display_input;

namespace {

/// A property of a window as text, as a window manager reads it.
std::string text_property(Window window, const char* name) {
    Display* display = yydisplay.display;
    XTextProperty property{};
    if (!XGetTextProperty(display, window, &property, XInternAtom(display, name, False))) return {};
    char** list = nullptr;
    int count = 0;
    Xutf8TextPropertyToTextList(display, &property, &list, &count);
    const std::string text = count > 0 ? list[0] : "";
    XFreeStringList(list);
    XFree(property.value);
    return text;
}

class LocaleDisplay : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(LocaleDisplay, TextsGoThroughFieldsAndTitlesUnharmed) {
    constexpr int dialog = 102;
    constexpr int symbol_field = 1008;
    setenv("LC_ALL", GetParam(), 1);
    windowopen2({.width = 300, .height = 200, .title = "Root"});
    window_titled("Root");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(text_width(wFonts.dialog, "M\u00fcller"), text_width(wFonts.dialog, "Muller"));

    wdialogload(dialog);
    const auto back = [](const std::string& text) {
        std::string read;
        wdialogputstring(symbol_field, text);
        wdialoggetstring(symbol_field, read);
        return read;
    };
    for (const char* text : {"M\u00fcller", "\u03b1 \u03b2  \u03b3", "  \u20ac", "M\xfcller"}) {
        SCOPED_TRACE(text);
        const bool sound = std::string(text) != "M\xfcller";
        const std::string shown = sound ? text : "M\ufffdller";
        EXPECT_EQ(back(text), shown);
        show_title(window_slot(0).shell_widget, text);
        for (const char* name : {"WM_NAME", "_NET_WM_NAME", "WM_ICON_NAME"})
            EXPECT_EQ(text_property(window_slot(0).shell, name), shown) << name;
    }
    EXPECT_EQ(infoerror(1), 0);
}

TEST(StartDisplay, XFontsDrawCharactersAndNotBytes) {
    winitialise();
    const TextFont font = load_font("fixed");
    ASSERT_GT(font.measures.largest_width, 0);
    EXPECT_EQ(text_width(font, "M\u00fcller"), text_width(font, "Muller"));
    EXPECT_EQ(text_width(load_font("nosuchfont"), "x"), text_width(font, "x")) << "in its place";
}

TEST(StartDisplay, MotifsOwnWidgetsHaveTheDialogsFont) {
    setenv("XMODIFIERS", "@im=somebodys", 1);
    winitialise();
    const Widget label =
        XtVaCreateWidget("Label", xmLabelWidgetClass, yydisplay.root_widget, XmNmarginWidth, 0,
                         XmNshadowThickness, 0, XmNhighlightThickness, 0, nullptr);
    Dimension width = 0;
    XtVaGetValues(label, XmNwidth, &width, nullptr);
    EXPECT_EQ(int{width}, text_width(wFonts.dialog, "Label")) << "named as it is";
    EXPECT_STREQ(XSetLocaleModifiers(nullptr), "@im=somebodys") << "the user's input method";
}

TEST(StartDisplay, AnEmptyTitleIsNotTheProgramsName) {
    windowopen2({.width = 300, .height = 200});
    EXPECT_EQ(text_property(window_slot(0).shell, "WM_NAME"), " ");
    EXPECT_EQ(text_property(window_slot(0).shell, "_NET_WM_NAME"), " ");
}

TEST(StartDisplay, AllShellsAreOfTheClassOfTheUsersResources) {
    winitialise();
    XrmDatabase database = XtDatabase(yydisplay.display);
    XrmPutLineResource(&database, "Tess*MainWindow.foreground: #123456");
    windowopen2({.width = 300, .height = 200, .title = "Root"});
    const int child = windowopenchild2({.width = 200, .height = 100, .title = "Child"});
    const int owned = windowopenchild2({.flags = 7 | 256, .width = 100, .height = 50});
    for (const int window : {0, child, owned}) {
        SCOPED_TRACE(window);
        XClassHint hint{};
        ASSERT_TRUE(XGetClassHint(yydisplay.display, window_slot(window).shell, &hint));
        EXPECT_STREQ(hint.res_class, "Tess");
        XFree(hint.res_name);
        XFree(hint.res_class);
        Pixel foreground = 0;
        XtVaGetValues(window_slot(window).window_widget, XmNforeground, &foreground, nullptr);
        EXPECT_EQ(foreground, 0x123456U);
    }
}

TEST(StartDisplay, TheMiddleButtonStartsNoDrag) {
    constexpr int dialog = 32103;
    windowopen2({.width = 300, .height = 200, .title = "Root"});
    wdialogload(dialog);
    wdialogshow(0, 0);
    const auto& fields = wDialogInfo[static_cast<std::size_t>(wDialog)].fields;
    const auto button = std::ranges::find(fields, FieldType::Button, &FieldRecord::type);
    ASSERT_NE(button, fields.end());
    poll_until([&] { return XtIsManaged(button->widget) && winfodialog(6) > 0; });
    drain();
    const Point middle{winfodialog(6) + button->box.x + button->box.width / 2,
                       winfodialog(7) + button->box.y + button->box.height / 2};
    move_to(middle);
    press(2);
    move_to({middle.x + 40, middle.y + 40});
    alarm(20);  // a drag's own loop doesn't come back while the button is held
    drain();
    alarm(0);
    release(2);
}

namespace {

/// An X server of its own kind, without a window manager.
class OtherServer {
public:
    explicit OtherServer(std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), {"Xvfb", "-displayfd", "3", "-nolisten", "tcp"});
        arguments.push_back(nullptr);
        int ends[2];
        if (pipe(ends) != 0) return;
        process_ = fork();
        if (process_ == 0) {
            dup2(ends[1], 3);
            execvp("Xvfb", const_cast<char**>(arguments.data()));
            _exit(127);
        }
        close(ends[1]);
        char digit = 0;
        while (read(ends[0], &digit, 1) == 1 && digit != '\n') name_ += digit;
        close(ends[0]);
        setenv("DISPLAY", name_.c_str(), 1);
    }
    ~OtherServer() {
        kill(process_, SIGTERM);
        waitpid(process_, nullptr, 0);
    }
    OtherServer(const OtherServer&) = delete;
    OtherServer& operator=(const OtherServer&) = delete;
    bool runs() const { return name_.size() > 1; }
    pid_t process() const { return process_; }

private:
    pid_t process_ = -1;
    std::string name_ = ":";
};

}  // namespace

TEST(WithoutOpenGLDisplay, OneLineSaysWhatIsMissing) {
    for (const std::vector<const char*>& arguments :
         {std::vector<const char*>{"-screen", "0", "800x600x24", "-extension", "GLX"},
          std::vector<const char*>{"-screen", "0", "800x600x8"}}) {
        const OtherServer server(arguments);
        ASSERT_TRUE(server.runs());
        EXPECT_EXIT(
            {
                windowopen2({.width = 300, .height = 200});
                wglselect(1, 0, 2);
                const int error = infoerror(1);
                wglselect(1, 0, 2);
                wglswapbuffers();
                std::_Exit(error == 1035 ? 0 : 1);
            },
            testing::ExitedWithCode(0), "^No OpenGL: the X display has no [^\n]*\n$");
    }
}

namespace {

/// What the OpenGL library does when it is asked for a visual; its own way when empty.
std::function<XVisualInfo*()> visual_for_opengl;

/// As the library does on an answer that hasn't come.
XVisualInfo* crash() {
    volatile std::uintptr_t address = 64;
    return *reinterpret_cast<XVisualInfo* volatile*>(address);
}

}  // namespace

/// Found before the library's, for the whole of this program.
extern "C" XVisualInfo* glXChooseVisual(Display* display, int screen, int* wanted) {
    if (visual_for_opengl) return visual_for_opengl();
    static const auto library =
        reinterpret_cast<decltype(&glXChooseVisual)>(dlsym(RTLD_NEXT, "glXChooseVisual"));
    return library(display, screen, wanted);
}

TEST(WithoutOpenGLDisplay, NoVisualIsToldOnceWithTheDepth) {
    EXPECT_EXIT(
        {
            visual_for_opengl = [] { return nullptr; };
            windowopen2({.width = 300, .height = 200});
            for (const int mode : {0, 2}) wglselect(1, 0, mode);
            std::_Exit(infoerror(1) == 1035 ? 0 : 1);
        },
        testing::ExitedWithCode(0),
        "^No OpenGL: the X display has no visual for it [^\n]*depth is 24[^\n]*\n$");
}

TEST(WithoutOpenGLDisplay, AServerThatGoesInsideTheLibraryEndsTheProgramWithItsMessage) {
    const OtherServer server({"-screen", "0", "800x600x24"});
    ASSERT_TRUE(server.runs());
    const auto start = [](const std::function<XVisualInfo*()>& choose) {
        visual_for_opengl = choose;
        windowopen2({.width = 300, .height = 200});
        wglselect(1, 0, 2);
    };
    const auto crash_without_server = [&server] {
        kill(server.process(), SIGKILL);
        pollfd connection{ConnectionNumber(yydisplay.display), POLLRDHUP, 0};
        poll(&connection, 1, -1);
        return crash();
    };
    EXPECT_EXIT(start(crash), testing::KilledBySignal(SIGSEGV), "^$") << "no lost display";
    EXPECT_EXIT(start(crash_without_server), testing::ExitedWithCode(1),
                "^Lost connection to the X display.\n$");
}

INSTANTIATE_TEST_SUITE_P(Locales, LocaleDisplay,
                         testing::Values("C", "C.UTF-8", "de_DE.UTF-8", "de_DE.ISO-8859-1",
                                         "xx_YY.UTF-8"));
