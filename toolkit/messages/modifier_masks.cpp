#include "toolkit/messages/modifier_masks.hpp"

#include "toolkit/base/display.hpp"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <initializer_list>

namespace tesserakit {

constinit unsigned AltMask = 0;
constinit unsigned MetaMask = 0;

namespace {

/// Meta often is the second level of the Alt key.
bool has_keysym(KeyCode code, KeySym left, KeySym right) {
    for (const int level : {0, 1}) {
        const KeySym keysym = XkbKeycodeToKeysym(yydisplay.display, code, 0, level);
        if (keysym == left || keysym == right) return true;
    }
    return false;
}

/// Shift, Lock and Control stand in the rows before these, and are what they are.
unsigned mask_of(const XModifierKeymap& map, KeySym left, KeySym right) {
    unsigned mask = 0;
    for (int row = Mod1MapIndex; row <= Mod5MapIndex; ++row)
        for (int i = 0; i < map.max_keypermod; ++i) {
            const KeyCode code = map.modifiermap[row * map.max_keypermod + i];
            if (code != 0 && has_keysym(code, left, right)) mask |= 1U << row;
        }
    return mask;
}

}  // namespace

void load_modifier_masks() {
    XModifierKeymap* map = XGetModifierMapping(yydisplay.display);
    AltMask = mask_of(*map, XK_Alt_L, XK_Alt_R);
    MetaMask = mask_of(*map, XK_Meta_L, XK_Meta_R);
    XFreeModifiermap(map);
}

}  // namespace tesserakit
