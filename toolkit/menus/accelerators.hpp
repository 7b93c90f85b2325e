/// Keys that stand for menu items while no menu is open.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// AcceleratorModifier bits of an X state word: Alt and Meta as the keyboard's modifier map has
/// them.
int yyacmodifiers(unsigned state);

/// The item that a key in a window stands for, in the nearest window up the chain of parents that
/// has a menu; 0 for none, and while a menu is open.
int yyacinterpretkey(KeySym key, int window, unsigned state);

}  // namespace tesserakit
