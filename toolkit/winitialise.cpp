// The start: the rooms are joined from the ground up. Each lower room holds a record of functions
// for what it asks of a later one, and here the later one fills it.

#include "toolkit/tesserakit.hpp"

#include "toolkit/base/start.hpp"
#include "toolkit/dialogs/hosting.hpp"
#include "toolkit/editor/editor.hpp"
#include "toolkit/menus/menus.hpp"
#include "toolkit/messages/messages.hpp"

namespace tesserakit {

namespace {

constexpr int initialised = -9999;
constinit int guard = 0;

}  // namespace

void winitialise(std::string_view inifile) {
    if (guard == initialised) return;
    yystart(inifile);
    install_messages();
    install_dialogs();
    install_menus();
    install_editors();
    guard = initialised;
}

}  // namespace tesserakit
