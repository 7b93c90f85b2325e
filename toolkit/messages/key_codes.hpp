/// Keysyms to the key codes of KeyDown. No X here: keysyms are plain numbers.
#pragma once

#include <string_view>

namespace tesserakit {

/// What `shift` of yyinterpretkey is.
inline constexpr int shift_held = 20;
inline constexpr int control_held = 40;  ///< goes before shift_held

/// The toolkit's code of a key that is no character: cursor, keypad, function and editing keys;
/// 0 for a key that has none. Shift+Up equals Prior (262), and likewise for the other cursor
/// keys: callers that care look at the modifiers.
int yyinterpretkey(unsigned long keysym, int shift);

/// VALUE1 of KeyDown: the control code that `text` (what X returned for the key) holds, the
/// keysym of a character, or yyinterpretkey. 0 raises no message: modifier and lock keys, and
/// keys without a code.
int yyMSInterpretKey(unsigned long keysym, std::string_view text, bool shift, bool control);

}  // namespace tesserakit
