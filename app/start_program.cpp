#include "app/commands.hpp"
#include "app/dialog_binding.hpp"
#include "app/event_loop.hpp"
#include "app/identifiers.hpp"
#include "app/program_state.hpp"
#include "scene/wcfgl_display.hpp"
#include "toolkit/tesserakit.hpp"

#include <cstdio>
#include <string>

namespace gemwright {
namespace {

using namespace tesserakit;

constexpr int splash_ms = 200;
constexpr int gl_on_field = 3;
constexpr int gl_double_buffered = 2;

void show_splash() {
    wdialogselect(dialog::splash);
    wdialogshow(dialog_centred, dialog_centred, 0, DialogModeless);
    ioswait(splash_ms);
    wdialoghide();
}

/// The mouse is off by default, and so are changes of fields.
void enable_messages() {
    for (const int type : {MouseButUp, MouseMove, FieldChanged}) wmessageenable(type, 1);
}

/// A name without a file is a new structure to be saved under it, and no box stands in its way.
void open_named_file() {
    const safe_file::Outcome outcome = open_current_file();
    if (outcome) return;
    const std::string name(current_file_name.trimmed());
    std::fprintf(stderr, "gemwright: %s: %s\n", name.c_str(), outcome.reason.c_str());
}

}  // namespace

void start_program() {
    winitialise();
    windowopen2({.menu = menu::root,
                 .toolbars = {toolbar::file, toolbar::scene},
                 .dialog = dialog::main,
                 .title = "Gemwright Ver-1.0"});
    load_all_dialogs();
    set_all_fields();
    show_splash();
    wdialogselect(dialog::main);
    wdialogshow(dialog_centred, dialog_centred, 0, DialogModal);
    enable_messages();
    wglselect(gl_on_field, field::picture, gl_double_buffered);
    wcfgl_display::display_init();
    if (!current_file_name.blank()) open_named_file();
    refresh_screen_size();
}

void end_program() {
    wglselect(0, 0, 0);
    windowclose();
}

}  // namespace gemwright
