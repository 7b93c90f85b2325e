/// The editor's window beside a bare text widget of Motif's with the same file in the same font, in
/// one process: processor time of opening, of a key in the middle, and of Replace All. Medians of
/// turns taken in turn.
#include "toolkit/base/display.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/editor/editor_commands.hpp"
#include "toolkit/editor/editor_record.hpp"
#include "toolkit/messages/interpreters.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/Shell.h>
#include <Xm/Text.h>

#include <unistd.h>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tesserakit;
constexpr int width = 800;
constexpr int height = 600;

/// Processor time of this program: what else runs on the machine doesn't count.
double milliseconds_of(const std::function<void()>& task) {
    const std::clock_t start = std::clock();
    task();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Serves the program's events, or Xt's alone, until the display has nothing more.
void serve_program() {
    XSync(yydisplay.display, False);
    int type = 0;
    MessageRecord record;
    do wmessagepeek(type, record);
    while (type != NoMessage);
    XSync(yydisplay.display, False);
}

void serve_bare() {
    XSync(yydisplay.display, False);
    while (XtAppPending(yydisplay.app) != 0) XtAppProcessEvent(yydisplay.app, XtIMAll);
    XSync(yydisplay.display, False);
}

/// A text widget in a shell, with a file read in the plainest way.
struct Bare {
    Widget shell = nullptr;
    Widget text = nullptr;

    explicit Bare(const std::string& file) {
        shell = XtVaAppCreateShell(nullptr, application_class, applicationShellWidgetClass,
                                   yydisplay.display, XmNwidth, width, XmNheight, height, nullptr);
        Arguments args;
        args(XmNeditMode, XmMULTI_LINE_EDIT)(XmNrenderTable, wFonts.fixed.table);
        text = XmCreateScrolledText(shell, xt_name("TextEdit"), args.data(), args.count());
        XtManageChild(text);
        XtRealizeWidget(shell);
        serve_bare();
        std::ifstream in(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        XmTextSetString(text, xt_name(bytes));
        serve_bare();
    }
    ~Bare() {
        XtDestroyWidget(shell);
        serve_bare();
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
};

int open_editor(const std::string& file) {
    const int window = windowopenchild2({.flags = 39, .width = width, .height = height});
    serve_program();
    weditfile(file);
    serve_program();
    return window;
}

/// Types one letter at the caret, through the events of a key, and waits until it is drawn.
double milliseconds_of_key(Widget text, void (*serve)()) {
    XEvent event{};
    event.xkey.type = KeyPress;
    event.xkey.display = yydisplay.display;
    event.xkey.window = XtWindow(text);
    event.xkey.root = yydisplay.root;
    event.xkey.same_screen = True;
    event.xkey.keycode = XKeysymToKeycode(yydisplay.display, 'a');
    return milliseconds_of([&] {
        XSendEvent(yydisplay.display, XtWindow(text), False, KeyPressMask, &event);
        serve();
    });
}

void go_to_middle(Widget text, void (*serve)()) {
    const XmTextPosition middle = XmTextGetLastPosition(text) / 2;
    XmTextSetInsertionPosition(text, middle);
    XmTextShowPosition(text, middle);
    serve();
}

void report(const char* what, const std::vector<double>& editor, const std::vector<double>& bare) {
    std::printf("  %-24s editor %9.3f ms   bare %9.3f ms   ratio %.2f\n", what, median(editor),
                median(bare), median(editor) / median(bare));
}

void compare(const std::string& file, std::size_t lines) {
    std::printf("%zu lines\n", lines);
    std::vector<double> opened, opened_bare, key, key_bare;
    constexpr int turns = 7;
    for (int turn = 0; turn < turns; ++turn) {
        std::unique_ptr<Bare> bare;
        opened_bare.push_back(milliseconds_of([&] { bare = std::make_unique<Bare>(file); }));
        bare.reset();
        int window = 0;
        opened.push_back(milliseconds_of([&] { window = open_editor(file); }));
        windowclosechild(window);
        serve_program();
    }
    report("opening", opened, opened_bare);
    const Bare bare(file);
    const int window = open_editor(file);
    const Widget text = editor_of(window)->text;
    go_to_middle(bare.text, serve_bare);
    go_to_middle(text, serve_program);
    constexpr int keys = 200;
    for (int i = 0; i < keys; ++i) {
        key_bare.push_back(milliseconds_of_key(bare.text, serve_bare));
        key.push_back(milliseconds_of_key(text, serve_program));
    }
    if (XmTextGetLastPosition(text) != XmTextGetLastPosition(bare.text))
        std::puts("  the two texts are not the same");
    report("a key in the middle", key, key_bare);
    windowclosechild(window);
    serve_program();
}

std::string write_lines(const std::string& file, std::size_t lines) {
    std::ofstream out(file);
    for (std::size_t i = 0; i < lines; ++i)
        out << "ATOM Fe1 FE  0.00000 0.25000 0.50000 DISPLAY 1 COLOR 1 0 0 RADIUS 0.60 ! line no. "
            << 1'000'000 + i << " of many\n";
    return file;
}

void replace_ten_thousand(const std::string& file) {
    const int window = open_editor(write_lines(file, 10'000));
    yyEditInterpretMessage(*editor_of(window), editor_item::replace);
    serve_program();
    constexpr int dialog = 32104;
    constexpr int replace_all_button = 1009;
    wdialogselect(dialog);
    wdialogputstring(1002, "fe1");
    wdialogputstring(1006, "Mn12");
    Mail press{.type = PushButton, .value1 = replace_all_button, .win = dialog};
    const double time = milliseconds_of([&press] {
        interpreters.editor_message(press);
        serve_program();
    });
    std::string text;
    windowselect(window);
    weditgettext1(text);
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find("Mn12", at)) != std::string::npos; ++at) ++count;
    std::printf("Replace All of %zu matches: %.1f ms\n", count, time);
    windowclosechild(window);
}

}  // namespace

int main() {
    const std::string file = "/tmp/gemwright_bench_" + std::to_string(getpid()) + ".txt";
    winitialise();
    windowopen2({.width = 200, .height = 100});
    serve_program();
    for (const std::size_t lines : {std::size_t{1000}, std::size_t{100'000}})
        compare(write_lines(file, lines), lines);
    replace_ten_thousand(file);
    std::remove(file.c_str());
    windowclose();
    return 0;
}
