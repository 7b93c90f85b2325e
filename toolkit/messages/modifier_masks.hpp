/// Which bits of the modifier state the Alt and Meta keys set: the keyboard's mapping tells.
#pragma once

namespace tesserakit {

extern unsigned AltMask;   ///< of Alt_L and Alt_R among Mod1Mask to Mod5Mask, 0 without such keys
extern unsigned MetaMask;  ///< of Meta_L and Meta_R; often the same bit

/// Reads the server's modifier map: at the start, and whenever the mapping has changed.
void load_modifier_masks();

}  // namespace tesserakit
