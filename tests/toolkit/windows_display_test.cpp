#include "tests/support/display_input.hpp"

#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/drawable_copy.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/gl_text.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"
#include "toolkit/windows/windows.hpp"

#include <X11/Xutil.h>
#include <Xm/DrawingA.h>
#include <Xm/PushB.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include <GL/gl.h>

using namespace tesserakit;
using namespace display_input;

namespace {

constexpr unsigned red = 0xff0000;
constexpr unsigned blue = 0x0000ff;
constexpr unsigned white = 0xffffff;

Point centre(const Rectangle& area) { return {area.x + area.width / 2, area.y + area.height / 2}; }

void fill(float r, float g, float b) {
    glClearColor(r, g, b, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    wglswapbuffers();
}

Rectangle open_root(WindowRequest request) {
    request.title = "Root";
    windowopen2(request);
    return window_titled("Root");
}

}  // namespace

TEST(WindowsDisplay, ARootWithoutArgumentsIsFourFifthsOfTheScreenInItsMiddle) {
    const Rectangle area = open_root({});
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(area.width, 1024);
    EXPECT_EQ(area.height, 819);
    EXPECT_EQ(winfowindow(1), 0);
    EXPECT_EQ(winfowindow(2), 1024);
    EXPECT_EQ(winfodrawable(1), 1);
    EXPECT_EQ(winfodrawable(5), 819);
    // The frame of the window manager may shift it by its own thickness.
    EXPECT_NEAR(area.x, 128, 16);
    EXPECT_NEAR(area.y, 102, 40);
}

TEST(WindowsDisplay, AFixedWindowTellsTheWindowManager) {
    const Rectangle area = open_root({.flags = 64, .width = 300, .height = 200});
    EXPECT_EQ(area.width, 300);
    const SizeLimits limits = size_limits("Root");
    EXPECT_EQ(limits.min_width, 300);
    EXPECT_EQ(limits.max_width, 300);
    EXPECT_EQ(limits.min_height, 200);
    EXPECT_EQ(limits.max_height, 200);
}

TEST(WindowsDisplay, AHiddenRootHasNoWindowOnTheScreen) {
    windowopen2({.flags = 7 | 128, .width = 300, .height = 200, .title = "Root"});
    drain();
    EXPECT_FALSE(is_shown("Root"));
    EXPECT_EQ(winfowindow(7), 0);
    EXPECT_EQ(winfowindow(2), 300);
    EXPECT_EQ(windowopenchild2({.flags = 16}, 0), -2) << "nothing opens inside a hidden window";
}

TEST(WindowsDisplay, TheIconIsTheResourcesPicture) {
    open_root({.width = 300, .height = 200});
    const std::vector<unsigned long> icon = property("Root", "_NET_WM_ICON");
    ASSERT_EQ(icon.size(), 2U + 32U * 32U);
    EXPECT_EQ(icon[0], 32U);
    const std::set<unsigned long> colours(icon.begin() + 2, icon.end());
    EXPECT_GT(colours.size(), 2U) << "a picture, not a blank";
}

TEST(WindowsDisplay, AMissingDialogLeavesAnErrorAndAnEmptyWindow) {
    const Rectangle area = open_root({.width = 300, .height = 200, .dialog = 9876});
    EXPECT_EQ(infoerror(1), 1007);
    EXPECT_EQ(area.width, 300);
    EXPECT_EQ(winfowindow(6), 0);
}

TEST(WindowsDisplay, MenuAndToolbarsAndStatusBarSurroundTheClientArea) {
    const Rectangle bare = open_root({.width = 300, .height = 200});
    EXPECT_EQ(bare.height, 200);
    const int child = windowopenchild2({.flags = 7 | 32,
                                        .width = 300,
                                        .height = 200,
                                        .menu = 30001,
                                        .toolbars = {30102, 30101, 0, 0},
                                        .title = "Child"});
    ASSERT_EQ(child, 1);
    EXPECT_EQ(infoerror(1), 0);
    const Rectangle area = window_titled("Child");
    EXPECT_EQ(winfowindow(2), 300);
    EXPECT_EQ(winfowindow(3), 200);
    EXPECT_GT(area.width, 300);
    EXPECT_GT(area.height, 200 + 40);
}

TEST(WindowsDisplay, AMenuThatDoesNotExistIsAnErrorAndTakesNoRoom) {
    const Rectangle area = open_root({.width = 300, .height = 200, .menu = 9876});
    EXPECT_EQ(infoerror(1), 1002);
    EXPECT_EQ(area.height, 200);
}

TEST(WindowsDisplay, ChildrenInsideAParentAreMeasuredInItsUnits) {
    const Rectangle root = open_root({.width = 1000, .height = 500});
    const int child =
        windowopenchild2({.flags = 16, .width = 5000, .height = 5000, .title = "Inside"}, 0);
    ASSERT_EQ(child, 1);
    const Rectangle area = window_titled("Inside");
    EXPECT_EQ(area.width, 500);
    EXPECT_EQ(area.height, 250);
    EXPECT_NEAR(centre(area).x, centre(root).x, 16);
    EXPECT_EQ(windowopenchild2({.flags = 16}, 7), -5) << "no such parent";
}

TEST(WindowsDisplay, ADialogInsideAParentStandsInItsMiddle) {
    const Rectangle root = open_root({.width = 1000, .height = 700});
    constexpr int atom_page = 109;
    ASSERT_EQ(windowopenchild2({.flags = 16, .dialog = atom_page, .title = "Inside"}, 0), 1);
    const Rectangle area = window_titled("Inside");
    EXPECT_LT(area.width, 600);
    EXPECT_NEAR(centre(area).x, centre(root).x, 16);
    EXPECT_NEAR(centre(area).y, centre(root).y, 40);
}

TEST(WindowsDisplay, SlotsAreFilledFromTheLowestAndFiftyIsTheEnd) {
    open_root({.width = 100, .height = 100});
    for (int slot = 1; slot <= 50; ++slot)
        ASSERT_EQ(windowopenchild2({.flags = 128, .width = 10, .height = 10}), slot);
    EXPECT_EQ(windowopenchild2({.flags = 128, .width = 10, .height = 10}), -1);
    EXPECT_EQ(infoerror(1), 0);
    windowclosechild(7);
    EXPECT_EQ(windowopenchild2({.flags = 128, .width = 10, .height = 10}), 7);
}

TEST(WindowsDisplay, ClosingTheCurrentWindowMakesTheRootCurrent) {
    open_root({.width = 300, .height = 200});
    const int child = windowopenchild2({.width = 200, .height = 100, .title = "Child"});
    EXPECT_EQ(winfowindow(1), child);
    EXPECT_EQ(winfodrawable(4), 200);
    windowclosechild(child);
    EXPECT_EQ(winfowindow(1), 0);
    EXPECT_EQ(winfodrawable(4), 300);
    poll_until([] { return !is_shown("Child"); });
    windowselect(child);
    EXPECT_EQ(infoerror(1), 1003);
    windowclosechild(0);
    EXPECT_EQ(infoerror(1), 1003);
}

TEST(WindowsDisplay, ClosingTheSelectedDrawableLeavesTheCurrentWindow) {
    open_root({.width = 300, .height = 200});
    const int drawn = windowopenchild2({.width = 200, .height = 100});
    const int current = windowopenchild2({.width = 150, .height = 100});
    igrselect(1, drawn);
    windowclosechild(drawn);
    EXPECT_EQ(winfowindow(1), current);
    EXPECT_EQ(winfodrawable(4), 150);
}

TEST(WindowsDisplay, StatusBarShowsItsTextAndIgnoresOtherParts) {
    const Rectangle area = open_root({.flags = 7 | 32, .width = 400, .height = 200});
    drain();
    const Rectangle bar{area.x + 3, area.y + 203, area.width - 6, area.height - 206};
    const std::vector<unsigned> empty = pixels(bar);
    windowoutstatusbar(0, "no such part");
    windowoutstatusbar(256, "no such part");
    windowoutstatusbar(2, "no such part");
    drain();
    EXPECT_EQ(pixels(bar), empty);
    windowoutstatusbar(1, "Reading   ");
    drain();
    const std::vector<unsigned> left = pixels(bar);
    EXPECT_NE(left, empty);
    windowoutstatusbar(1, "\t\tReading");
    drain();
    const std::vector<unsigned> right = pixels(bar);
    EXPECT_NE(right, left);
    EXPECT_EQ(std::ranges::count(left, 0U), std::ranges::count(right, 0U))
        << "the same text at another place";
    cover_and_uncover(bar);
    drain();
    EXPECT_EQ(pixels(bar), right) << "repainted by the toolkit";
}

TEST(WindowsDisplay, AnItemsPromptCoversTheStatusBarsPartsUntilItEnds) {
    const Rectangle area = open_root({.flags = 7 | 32, .width = 400, .height = 200});
    StatusBar& bar = *window_slot(0).status_bar;
    const auto shown = [area] {
        drain();
        return pixels({area.x + 3, area.y + 203, area.width - 6, area.height - 206});
    };
    XWindowAttributes only;
    XGetWindowAttributes(yydisplay.display, bar.parts[0].window, &only);
    EXPECT_EQ(only.width, 400) << "one part at first";
    yysetstatusbar2(bar, {rest_of_width, 60, 100});
    windowoutstatusbar(3, "Line: 1");
    const std::vector<unsigned> before = shown();
    yyStatusBarHelp(bar, "Saves the file");
    const std::vector<unsigned> prompt = shown();
    EXPECT_NE(prompt, before);
    windowoutstatusbar(3, "Line: 2");
    EXPECT_EQ(shown(), prompt);
    windowoutstatusbar(3, "Line: 1");
    yyStatusBarHelp(bar, "");
    EXPECT_EQ(shown(), before);
}

TEST(WindowsDisplay, IgrselectFallsBackToTheWindow) {
    open_root({.width = 300, .height = 200});
    const int bitmap = wbitmapcreate(64, 32);
    ASSERT_EQ(bitmap, 1);
    igrselect(2);
    EXPECT_EQ(winfodrawable(1), 2);
    EXPECT_EQ(winfodrawable(4), 64);
    for (const int type : {0, 4, 5}) {
        igrselect(type);
        EXPECT_EQ(infoerror(1), 1019) << type;
        EXPECT_EQ(winfodrawable(1), 1) << type;
    }
    igrselect(2, 20);
    EXPECT_EQ(infoerror(1), 1019);
    wbitmapdestroy(21);
    EXPECT_EQ(infoerror(1), 1021);
    wbitmapdestroy(bitmap);
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(wbitmapcreate(0, 5), 0);
    EXPECT_EQ(infoerror(1), 1020);
}

TEST(WindowsDisplay, AfterTheEndANewRootOpens) {
    open_root({.flags = 7 | 32, .width = 300, .height = 200, .menu = 30001});
    windowopenchild2({.flags = 16, .title = "Child"}, 0);
    wglselect(1, 0, 2);
    ASSERT_EQ(wbitmapcreate(10, 10), 1);
    windowclose();
    EXPECT_FALSE(is_shown("Root"));
    EXPECT_FALSE(is_shown("Child"));
    EXPECT_EQ(winfowindow(1), -1);
    EXPECT_EQ(wbitmapcreate(10, 10), 1);
    EXPECT_EQ(open_root({.width = 200, .height = 100}).width, 200);
    EXPECT_EQ(infoerror(1), 0);
}

TEST(WindowsDisplay, AToolbarWithButtonsKeepsItsPlace) {
    open_root({.width = 600, .height = 400, .toolbars = {30102, 30101, 0, 0}});
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(window_slot(0).window_widget, XmNchildren, &children, XmNnumChildren, &count,
                  nullptr);
    const auto box_of = [](Widget widget) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        XtVaGetValues(widget, XmNx, &x, XmNy, &y, XmNwidth, &width, XmNheight, &height, nullptr);
        return Box{x, y, width, height};
    };
    int toolbars = 0;
    for (const Widget strip : std::span(children, count)) {
        if (std::string_view(XtName(strip)) != "Toolbar") continue;
        ++toolbars;
        const Box before = box_of(strip);
        XtVaCreateManagedWidget("Button", xmPushButtonWidgetClass, strip, XmNx, 5, XmNy, 5,
                                XmNwidth, 24, XmNheight, 22, nullptr);
        drain();
        EXPECT_EQ(box_of(strip), before);
    }
    EXPECT_EQ(toolbars, 2);
}

TEST(WindowsDisplay, ContentStandsInTheClientAreasPlace) {
    open_root({.width = 300, .height = 200});
    const int child = windowopenchild2(
        {.flags = 39, .width = 300, .height = 200, .menu = 30001, .title = "Text"});
    window_titled("Text");
    const WindowSlot& slot = window_slot(child);
    const Widget content =
        XtVaCreateWidget("Content", xmDrawingAreaWidgetClass, slot.window_widget, nullptr);
    yywindowcontent(child, content);
    const auto size = [](Widget widget) {
        Dimension width = 0, height = 0;
        XtVaGetValues(widget, XmNwidth, &width, XmNheight, &height, nullptr);
        return std::pair{int{width}, int{height}};
    };
    EXPECT_EQ(size(content), (std::pair{300, 200}));
    EXPECT_FALSE(XtIsManaged(slot.client_widget));
    const Rectangle area = window_titled("Text");
    resize_window("Text", area.width + 50, area.height + 30);
    poll_until([&] { return winfowindow(2) == 350; });
    EXPECT_EQ(size(content), (std::pair{350, 230}));
    XtDestroyWidget(content);
    EXPECT_TRUE(XtIsManaged(slot.client_widget));
    EXPECT_EQ(size(slot.client_widget), (std::pair{350, 230}));
}

TEST(WindowsDisplay, AWindowsRecordEndsWithIt) {
    open_root({.width = 300, .height = 200});
    const int child = windowopenchild2({.width = 100, .height = 100});
    const auto record = std::make_shared<int>(7);
    window_slot(child).extension = record;
    windowclosechild(child);
    EXPECT_EQ(record.use_count(), 1);
}

TEST(WindowsDisplay, DialogsHangOnTheWindowThatTheyBelongTo) {
    open_root({.width = 300, .height = 200});
    const int child = windowopenchild2({.width = 100, .height = 100});
    const int hidden = windowopenchild2({.flags = 128, .width = 100, .height = 100});
    EXPECT_EQ(yydialogparent(), window_slot(0).shell_widget);
    EXPECT_EQ(yydialogparent(child), window_slot(child).shell_widget);
    EXPECT_EQ(yydialogparent(hidden), window_slot(0).shell_widget);
    windowclosechild(child);
    EXPECT_EQ(yydialogparent(child), window_slot(0).shell_widget);
}

TEST(WindowsDisplay, AMinimisedWindowComesBackWhenItIsSelected) {
    open_root({.width = 300, .height = 200});
    const int child = windowopenchild2({.width = 200, .height = 100, .title = "Child"});
    window_titled("Child");
    windowselect(0);
    XIconifyWindow(yydisplay.display, window_slot(child).shell, yydisplay.screen_number);
    poll_until([] { return !is_shown("Child"); });
    windowselect(0);
    drain();
    EXPECT_FALSE(is_shown("Child")) << "another one is selected";
    windowselect(child);
    poll_until([] { return is_shown("Child"); });
}

TEST(WindowsDisplay, ANewWindowHasRoomForAMenuOfSeveralRows) {
    open_root({.width = 300, .height = 200});
    // A bar of 20 pixels a row that wraps below 400.
    static int height;
    menu_hooks.height_of = [](int menu, int width) {
        return menu == 0 ? 0 : width < 400 ? 40 : 20;
    };
    menu_hooks.create = [](int, int) {};
    menu_hooks.resize = [](int, int width) { return height = width < 400 ? 40 : 20; };
    menu_hooks.height = [](int) { return height; };
    for (const int width : {300, 399, 400}) {
        windowopenchild2({.width = width, .height = 100, .menu = 1, .title = "Child"});
        EXPECT_EQ(winfowindow(2), width);
        EXPECT_EQ(winfowindow(3), 100);
    }
}

TEST(WindowsDisplay, AnOpenMenuEndsBeforeAWindowCloses) {
    open_root({.width = 300, .height = 200});
    const int child = windowopenchild2({.width = 200, .height = 100, .title = "Child"});
    static bool active;
    static Window closed_with;
    active = true;
    menu_hooks.active = [] { return active; };
    menu_hooks.deactivate = [] {
        active = false;
        closed_with = window_slot(1).window;
    };
    const Window window = window_slot(child).window;
    windowclosechild(child);
    EXPECT_FALSE(active);
    EXPECT_EQ(closed_with, window) << "while the window was still there";
}

TEST(GlDisplay, AWindowShowsWhatIsDrawn) {
    const Rectangle area = open_root({.width = 300, .height = 200});
    wglselect(1, 0, 2);
    ASSERT_EQ(infoerror(1), 0);
    drain();
    fill(1.0f, 0.0f, 0.0f);
    drain();
    EXPECT_EQ(pixel(centre(area)), red);
    GLint depth = 0;
    glGetIntegerv(GL_DEPTH_BITS, &depth);
    EXPECT_GE(depth, 16);
    wglselect(0, 0, 0);
    wglswapbuffers();  // nothing
    EXPECT_EQ(infoerror(1), 0);
}

TEST(GlDisplay, WithoutATargetThereIsAnErrorAndNothingToSwap) {
    open_root({.width = 300, .height = 200});
    wglselect(1, 9, 2);
    EXPECT_EQ(infoerror(1), 1019);
    wglselect(2, 1, 0);
    EXPECT_EQ(infoerror(1), 1019);
    wglselect(3, 1001, 2);
    EXPECT_EQ(infoerror(1), 1019) << "no dialog, no field";
    wglswapbuffers();
    wglselect(9, 0, 0);
    EXPECT_EQ(infoerror(1), 0) << "other types only close OpenGL down";
}

TEST(GlDisplay, DisplayListsSurviveTheWayToABitmapAndBack) {
    const Rectangle area = open_root({.width = 300, .height = 200});
    wglselect(1, 0, 2);
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glEndList();

    const int bitmap = wbitmapcreate(60, 40);
    wglselect(2, bitmap, 0);
    ASSERT_EQ(infoerror(1), 0);
    glCallList(list);
    wglswapbuffers();
    unsigned char rgb[3] = {};
    glReadPixels(30, 20, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, rgb);
    EXPECT_EQ(rgb[0], 255);
    EXPECT_EQ(rgb[1], 0);

    wglselect(1, 0, 2);
    ASSERT_EQ(infoerror(1), 0);
    glCallList(list);
    wglswapbuffers();
    drain();
    EXPECT_EQ(pixel(centre(area)), red);
    wbitmapdestroy(bitmap);
    EXPECT_EQ(infoerror(1), 0);
}

TEST(GlDisplay, ASecondSelectionOfTheWindowDrawsAgain) {
    const Rectangle area = open_root({.width = 300, .height = 200});
    for (int i = 0; i < 3; ++i) wglselect(1, 0, 2);
    ASSERT_EQ(infoerror(1), 0);
    drain();
    fill(0.0f, 0.0f, 1.0f);
    drain();
    EXPECT_EQ(pixel(centre(area)), blue);
}

TEST(GlDisplay, TextWithASystemFontLeavesNoMarkAndNoState) {
    const Rectangle area = open_root({.width = 300, .height = 200});
    wglselect(1, 0, 2);
    drain();
    wgltextfont(102);
    EXPECT_EQ(infoerror(1), 0);
    glListBase(17);
    glFrontFace(GL_CW);
    glCullFace(GL_FRONT);
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(1.0f, 0.0f, 0.0f);
    wgltextstring("a");
    wglswapbuffers();
    drain();
    const std::vector<unsigned> shown = pixels({area.x, area.y, 300, 200});
    EXPECT_EQ(std::ranges::count(shown, 0xffffffU), std::ssize(shown));
    GLint value = 0;
    glGetIntegerv(GL_LIST_BASE, &value);
    EXPECT_EQ(value, 17);
    glGetIntegerv(GL_FRONT_FACE, &value);
    EXPECT_EQ(value, GL_CW);
    glGetIntegerv(GL_CULL_FACE_MODE, &value);
    EXPECT_EQ(value, GL_FRONT);

    const GLuint next = glGenLists(1);
    wgltextfont(102);
    EXPECT_EQ(glGenLists(1), next + 1) << "the same font again makes no lists";
    wgltextfont(100);
    EXPECT_EQ(infoerror(1), 1104) << "family 0 wants a name";
}

TEST(GlDisplay, TextWithoutListsOfItsOwnCallsNoOthers) {
    const Rectangle area = open_root({.width = 300, .height = 200});
    wglselect(3, 1, 2);
    ASSERT_EQ(infoerror(1), 1019) << "no dialog, and so no context";
    wgltextfont(102);
    EXPECT_EQ(glFontList, ~0U);

    wglselect(1, 0, 2);
    drain();
    const GLuint first = glGenLists(256);
    for (GLuint list = first; list < first + 256; ++list) {
        glNewList(list, GL_COMPILE);
        glRectf(-1.0f, -1.0f, 1.0f, 1.0f);
        glEndList();
    }
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(1.0f, 0.0f, 0.0f);
    wgltextstring("abc");
    wglswapbuffers();
    drain();
    EXPECT_EQ(pixel(centre(area)), white);
}

TEST(GlDisplay, ListsOfCharactersEndWithTheirContexts) {
    open_root({.width = 300, .height = 200});
    wglselect(1, 0, 2);
    wgltextfont(102);
    EXPECT_NE(glFontList, ~0U);
    windowclose();
    open_root({.width = 300, .height = 200});
    wglselect(1, 0, 2);
    EXPECT_EQ(glFontList, ~0U);
    wgltextfont(102);
    EXPECT_TRUE(glIsList(glFontList));
}

namespace {

constexpr int main_dialog = 101;
constexpr int picture_field = 1001;

Rectangle open_main() {
    return open_root({.menu = 30001, .toolbars = {30102, 30101, 0, 0}, .dialog = main_dialog});
}

/// Where the picture field's content is on the screen: a press at a known place tells it.
Point field_origin(Point somewhere) {
    click(somewhere);
    const MessageRecord press = wait_for(MouseButDown);
    return {somewhere.x - press.X, somewhere.y - press.Y};
}

void draw_halves() {
    glViewport(0, 0, winfodrawable(4), winfodrawable(5));
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glColor3f(0.0f, 0.0f, 1.0f);
    glRectf(-1.0f, -1.0f, 0.0f, 1.0f);
    wglswapbuffers();
}

}  // namespace

TEST(DialogWindowDisplay, ADialogFillsTheClientArea) {
    const Rectangle area = open_main();
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(winfowindow(6), 3);
    EXPECT_LT(winfowindow(2), area.width);
    const SizeLimits limits = size_limits("Root");
    EXPECT_EQ(limits.max_width, 0) << "its picture grows, so the window may";
    EXPECT_EQ(windowopenchild2({.dialog = main_dialog}), -5) << "loaded already";
    EXPECT_EQ(windowopenchild2({.flags = 16}, 0), -3) << "the parent carries a dialog";
    EXPECT_EQ(windowopenchild2({.dialog = 9876}), -1);
}

TEST(DialogWindowDisplay, ShowingItsDialogBringsAMinimisedWindowBack) {
    open_main();
    XIconifyWindow(yydisplay.display, window_slot(0).shell, yydisplay.screen_number);
    poll_until([] { return !is_shown("Root"); });
    wdialogselect(main_dialog);
    wdialogshow();
    poll_until([] { return is_shown("Root"); });
    EXPECT_EQ(infoerror(1), 0);
}

TEST(DialogWindowDisplay, WithALargeFontTheFrameStaysOnTheScreen) {
    winitialise();
    // As with a font with which the dialog is larger than the screen.
    dialog_units = {2 * dialog_units.horizontal, 3 * dialog_units.vertical};
    open_main();
    const Rectangle frame = frame_of("Root");
    EXPECT_GE(frame.x, 0);
    EXPECT_GE(frame.y, 0);
    EXPECT_LE(frame.x + frame.width, 1280);
    EXPECT_LE(frame.y + frame.height, 1024);
    EXPECT_GT(frame.height, 900) << "no smaller than need be";
}

TEST(DialogWindowDisplay, APictureFieldIsADrawableAndTellsThePointerInPixels) {
    const Rectangle area = open_main();
    igrselect(3, picture_field);
    EXPECT_EQ(infoerror(1), 0);
    EXPECT_EQ(winfodrawable(1), 3);
    EXPECT_EQ(winfodrawable(3), main_dialog);
    wglselect(3, picture_field, 2);
    ASSERT_EQ(infoerror(1), 0);
    drain();
    const Point at = centre(area);
    click(at);
    const MessageRecord first = wait_for(MouseButDown);
    EXPECT_EQ(first.WIN, main_dialog);
    EXPECT_EQ(first.VALUE3, SourceField);
    EXPECT_EQ(first.VALUE4, picture_field);
    click({at.x + 17, at.y + 5});
    const MessageRecord second = wait_for(MouseButDown);
    EXPECT_EQ(second.X - first.X, 17);
    EXPECT_EQ(second.Y - first.Y, 5);
    wmessageenable(MouseMove, 1);
    drain();
    move_to(at);
    const MessageRecord move = wait_for(MouseMove);
    EXPECT_EQ(move.VALUE1, -1);
    EXPECT_EQ(move.VALUE4, picture_field);
}

TEST(DialogWindowDisplay, APictureFieldShowsOpenGLAndGrowsWithTheWindow) {
    const Rectangle area = open_main();
    wglselect(3, picture_field, 2);
    EXPECT_EQ(wait_for(ExposeMessage).VALUE4, picture_field);
    igrselect(3, picture_field);
    const int width = winfodrawable(4);
    const int height = winfodrawable(5);
    draw_halves();
    drain();
    const Point origin = field_origin(centre(area));
    EXPECT_EQ(pixel({origin.x + 2, origin.y + 2}), blue);
    EXPECT_EQ(pixel({origin.x + width - 3, origin.y + height - 3}), red);

    resize_window("Root", area.width + 60, area.height - 40);
    EXPECT_EQ(wait_for(Resize).WIN, 0);
    EXPECT_EQ(winfodrawable(4), width + 60);
    EXPECT_EQ(winfodrawable(5), height - 40);
    drain();
    draw_halves();
    drain();
    EXPECT_EQ(pixel({origin.x + width + 57, origin.y + height - 43}), red);
}

TEST(DialogWindowDisplay, AFieldShowsTheSamePictureAfterABitmap) {
    const Rectangle area = open_main();
    wglselect(3, picture_field, 2);
    igrselect(3, picture_field);
    drain();
    draw_halves();
    drain();
    const std::vector<unsigned> before = pixels(area);
    const int bitmap = wbitmapcreate(600, 480);
    wglselect(2, bitmap, 0);
    ASSERT_EQ(infoerror(1), 0);
    glClear(GL_COLOR_BUFFER_BIT);
    wglswapbuffers();
    wglselect(3, picture_field, 2);
    wbitmapdestroy(bitmap);
    ASSERT_EQ(infoerror(1), 0);
    draw_halves();
    drain();
    EXPECT_EQ(pixels(area), before);
}

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Red, green, blue of a pixel of rows that were read from the uppermost on.
unsigned colour_at(const Bytes& rows, int width, int x, int y) {
    const auto at = static_cast<std::size_t>((y * width + x) * 3);
    if (at + 2 >= rows.size()) return ~0U;
    return static_cast<unsigned>(rows[at] << 16 | rows[at + 1] << 8 | rows[at + 2]);
}

/// Rows of the selected drawable.
Bytes read_rows(int top, int rows) {
    return DrawableCopy({0, top, winfodrawable(4), rows}).rows(0, rows);
}

/// Fills the selected drawable with X: left of `split` one colour, right of it another.
void fill_with_x(int split, const char* left, const char* right) {
    Display* display = yydisplay.display;
    const Drawable target = selected_x_drawable();
    const auto paint = [&](const char* name, int x, int width) {
        XColor colour{};
        XColor exact{};
        XAllocNamedColor(display, yydisplay.colormap, name, &colour, &exact);
        XGCValues values{};
        values.foreground = colour.pixel;
        const GC gc = XCreateGC(display, target, GCForeground, &values);
        XFillRectangle(display, target, gc, x, 0, static_cast<unsigned>(width), 1000);
        XFreeGC(display, gc);
    };
    paint(left, 0, split);
    paint(right, split, drawable.width - split);
}

}  // namespace

TEST(DrawableRowsDisplay, WhatXHasDrawnIsReadFromTheTopOn) {
    open_root({.width = 300, .height = 200});
    drain();
    ASSERT_EQ(wbitmapcreate(65, 33), 1);
    for (const int type : {1, 2}) {
        SCOPED_TRACE(type);
        igrselect(type, type == 1 ? 0 : 1);
        const int width = winfodrawable(4);
        const int height = winfodrawable(5);
        fill_with_x(40, "#12ab34", "#fe0180");
        const Bytes rows = read_rows(0, height);
        ASSERT_EQ(rows.size(), static_cast<std::size_t>(width * height * 3));
        EXPECT_EQ(colour_at(rows, width, 39, 0), 0x12ab34U);
        EXPECT_EQ(colour_at(rows, width, 40, height - 1), 0xfe0180U);
        EXPECT_EQ(DrawableCopy({39, 1, 2, 9}).rows(7, 1), (Bytes{0x12, 0xab, 0x34, 0xfe, 1, 0x80}));
    }
    wbitmapdestroy(1);
    EXPECT_TRUE(read_rows(0, 1).empty());
}

TEST(DrawableRowsDisplay, APartlyHiddenWindowIsStillRead) {
    open_root({.x = 1200, .width = 300, .height = 200});
    drain();
    // The window manager may have moved it on to the screen; here it leaves it.
    XMoveWindow(yydisplay.display, window_slot(0).shell, 1150, 300);
    drain();
    fill_with_x(40, "#12ab34", "#fe0180");
    const Bytes rows = read_rows(0, 200);
    ASSERT_EQ(rows.size(), 300U * 200U * 3U);
    EXPECT_EQ(colour_at(rows, 300, 5, 199), 0x12ab34U);
}

TEST(DrawableRowsDisplay, WhatOpenGLHasDrawnIsReadFromTheTopOn) {
    open_main();
    const int bitmap = wbitmapcreate(601, 481);
    for (const int type : {3, 2}) {
        SCOPED_TRACE(type);
        const int number = type == 3 ? picture_field : bitmap;
        wglselect(type, number, type == 3 ? 2 : 0);
        ASSERT_EQ(infoerror(1), 0);
        igrselect(type, number);
        const int width = winfodrawable(4);
        const int height = winfodrawable(5);
        drain();
        // Below the middle blue on the left, else red: the rows begin at the top.
        glViewport(0, 0, width, height);
        glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glColor3f(0.0f, 0.0f, 1.0f);
        glRectf(-1.0f, -1.0f, 0.0f, 0.0f);
        // A bitmap has nothing to swap: the reading waits for what was drawn.
        if (type == 3) wglswapbuffers();
        const Bytes rows = read_rows(0, height);
        ASSERT_EQ(rows.size(), static_cast<std::size_t>(width * height * 3));
        EXPECT_EQ(colour_at(rows, width, 2, 2), red);
        EXPECT_EQ(colour_at(rows, width, 2, height - 3), blue);
        EXPECT_EQ(colour_at(rows, width, width - 3, height - 3), red);
        EXPECT_GE(drawable.depth, 24);
        EXPECT_TRUE(drawable.visual);
    }
    // The window shows OpenGL again, and the bitmap is the X picture that it was.
    wglselect(3, picture_field, 2);
    igrselect(2, bitmap);
    EXPECT_EQ(colour_at(read_rows(0, 1), 601, 5, 0), white);
    wdialogselect(main_dialog);
    igrselect(3, picture_field);
    wbitmapdestroy(bitmap);
    EXPECT_EQ(winfodrawable(1), 3) << "another drawable is selected";
}

TEST(DrawablesDisplay, WhatGoesAwayIsNoLongerSelected) {
    open_root({.width = 300, .height = 200});
    ASSERT_EQ(wbitmapcreate(64, 32), 1);
    igrselect(2, 1);
    wbitmapdestroy(1);
    EXPECT_EQ(winfodrawable(1), 0);
    ASSERT_EQ(wbitmapcreate(10, 10), 1);
    EXPECT_EQ(winfodrawable(4), 0) << "the next bitmap of the number isn't selected by itself";
    igrselect(2, 1);
    {
        const DrawableScope elsewhere(DrawableType::Window, 0, 0);
        EXPECT_EQ(drawable.width, 300);
        wbitmapdestroy(1);
    }
    EXPECT_EQ(drawable.type, DrawableType::Nothing) << "gone while another one was selected";

    wdialogload(102);
    const int field = wDialogInfo[static_cast<std::size_t>(wDialog)].fields.front().identifier;
    igrselect(3, field);
    ASSERT_EQ(winfodrawable(1), 3);
    wdialogload(103);
    wdialogunload();
    EXPECT_EQ(winfodrawable(1), 3) << "of another dialog";
    wdialogselect(102);
    wdialogunload();
    EXPECT_EQ(winfodrawable(1), 0);
    wdialogload(102);
    EXPECT_EQ(winfodrawable(1), 0);
    EXPECT_EQ(infoerror(1), 0);
}

TEST(DialogWindowDisplay, OnlyAPictureTakesOpenGL) {
    open_main();
    for (const int field : {1002, 1006, 5555}) {
        wglselect(3, field, 2);
        EXPECT_EQ(infoerror(1), 1019) << field;
        wglswapbuffers();
    }
    igrselect(3, 5555);
    EXPECT_EQ(infoerror(1), 1019);
    EXPECT_EQ(winfodrawable(1), 1);
}

TEST(DialogWindowDisplay, HelpIsAskedForByKey) {
    const Rectangle area = open_main();
    wglselect(3, picture_field, 2);
    click(centre(area));
    wait_for(MouseButDown);
    key("F1");
    const MessageRecord help = wait_for(PushButton);
    EXPECT_EQ(help.WIN, main_dialog);
    EXPECT_EQ(help.VALUE1, 9);
}

TEST(LostDisplayDisplay, TheProgramSaysSoAndEnds) {
    EXPECT_EXIT(
        {
            windowopen2({.width = 300, .height = 200, .title = "Root"});
            wglselect(1, 0, 2);
            kill_client("Root");
            for (int i = 0; i < 1000; ++i) {
                int type = 0;
                MessageRecord record;
                wmessagepeek(type, record);
                wglswapbuffers();
                wmessagewait(10);
            }
            std::exit(0);
        },
        testing::ExitedWithCode(1), "Lost connection to the X display");
}
