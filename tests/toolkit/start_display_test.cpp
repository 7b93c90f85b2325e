#include "tests/support/display_input.hpp"

#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/shell_title.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/Xutil.h>
#include <Xm/Xm.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>

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

INSTANTIATE_TEST_SUITE_P(Locales, LocaleDisplay,
                         testing::Values("C", "C.UTF-8", "de_DE.UTF-8", "de_DE.ISO-8859-1",
                                         "xx_YY.UTF-8"));
