#include "toolkit/menus/accelerators.hpp"

#include "toolkit/menus/menu_windows.hpp"
#include "toolkit/messages/modifier_masks.hpp"

#include <X11/keysym.h>

namespace tesserakit {

int yyacmodifiers(unsigned state) {
    int bits = 0;
    if (state & ShiftMask) bits |= AcceleratorShift;
    if (state & ControlMask) bits |= AcceleratorControl;
    if (state & (AltMask | MetaMask)) bits |= AcceleratorAlt;
    return bits;
}

int yyacinterpretkey(KeySym key, int window, unsigned state) {
    if (pwActiveMenu) return 0;
    const Menu* menu = menu_of(window_with_menu(window));
    if (!menu) return 0;
    int bits = yyacmodifiers(state);
    if (key == XK_ISO_Left_Tab) {
        key = XK_Tab;
        bits |= AcceleratorShift;
    }
    return accelerator_item(menu->record, key, bits);
}

}  // namespace tesserakit
