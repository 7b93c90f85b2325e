#include "toolkit/messages/key_codes.hpp"

#include <array>

namespace tesserakit {

namespace {

/// How the keys held change a code.
enum class Held {
    Ignored,
    Fifth,   ///< shift / 5 is added
    Whole,   ///< shift is added
    BackTab  ///< Shift gives the code of a backward tab
};

struct KeyRow {
    unsigned long first;  ///< first keysym
    unsigned long last;   ///< last keysym; codes go up along
    int code;
    Held held;
};

constexpr int back_tab = 274;

// clang-format off
constexpr std::array key_rows{
    KeyRow{0xff08, 0xff08,   8, Held::Ignored},  // BackSpace
    KeyRow{0xff09, 0xff09,   9, Held::BackTab},  // Tab
    KeyRow{0xff89, 0xff89,   9, Held::BackTab},  // KP_Tab
    KeyRow{0xfe20, 0xfe20, 274, Held::Ignored},  // ISO_Left_Tab
    KeyRow{0xff0d, 0xff0d,  13, Held::Ignored},  // Return
    KeyRow{0xff1b, 0xff1b,  27, Held::Ignored},  // Escape
    KeyRow{0xffff, 0xffff, 127, Held::Ignored},  // Delete
    KeyRow{0xff9f, 0xff9f, 127, Held::Ignored},  // KP_Delete
    KeyRow{0xff80, 0xff80,  32, Held::Ignored},  // KP_Space
    KeyRow{0xffbd, 0xffbd,  61, Held::Ignored},  // KP_Equal
    KeyRow{0xff52, 0xff52, 258, Held::Fifth},    // Up
    KeyRow{0xff97, 0xff97, 258, Held::Fifth},    // KP_Up
    KeyRow{0xff54, 0xff54, 259, Held::Fifth},    // Down
    KeyRow{0xff99, 0xff99, 259, Held::Fifth},    // KP_Down
    KeyRow{0xff53, 0xff53, 260, Held::Fifth},    // Right
    KeyRow{0xff98, 0xff98, 260, Held::Fifth},    // KP_Right
    KeyRow{0xff51, 0xff51, 261, Held::Fifth},    // Left
    KeyRow{0xff96, 0xff96, 261, Held::Fifth},    // KP_Left
    KeyRow{0xff55, 0xff55, 262, Held::Ignored},  // Prior
    KeyRow{0xff9a, 0xff9a, 262, Held::Ignored},  // KP_Prior
    KeyRow{0xff56, 0xff56, 263, Held::Ignored},  // Next
    KeyRow{0xff9b, 0xff9b, 263, Held::Ignored},  // KP_Next
    KeyRow{0xff50, 0xff50, 270, Held::Ignored},  // Home
    KeyRow{0xff68, 0xff68, 270, Held::Ignored},  // Find
    KeyRow{0xff95, 0xff95, 270, Held::Ignored},  // KP_Home
    KeyRow{0xff57, 0xff57, 271, Held::Ignored},  // End
    KeyRow{0xff60, 0xff60, 271, Held::Ignored},  // Select
    KeyRow{0xff9c, 0xff9c, 271, Held::Ignored},  // KP_End
    KeyRow{0xff63, 0xff63, 272, Held::Ignored},  // Insert
    KeyRow{0xff9e, 0xff9e, 272, Held::Ignored},  // KP_Insert
    KeyRow{0xff8d, 0xff8d, 296, Held::Ignored},  // KP_Enter
    KeyRow{0xffb0, 0xffb9, 280, Held::Ignored},  // KP_0 to KP_9
    KeyRow{0xffad, 0xffad, 290, Held::Ignored},  // KP_Subtract
    KeyRow{0xffae, 0xffae, 291, Held::Ignored},  // KP_Decimal
    KeyRow{0xffab, 0xffab, 292, Held::Ignored},  // KP_Add
    KeyRow{0xffaf, 0xffaf, 293, Held::Ignored},  // KP_Divide
    KeyRow{0xffaa, 0xffaa, 294, Held::Ignored},  // KP_Multiply
    KeyRow{0xff61, 0xff61, 300, Held::Ignored},  // Print
    KeyRow{0xffbe, 0xffd1, 301, Held::Whole},    // F1 to F20
    KeyRow{0xff91, 0xff94, 301, Held::Whole},    // KP_F1 to KP_F4
    KeyRow{0xff6a, 0xff6a, 315, Held::Whole},    // Help
    KeyRow{0xff67, 0xff67, 316, Held::Whole},    // Menu
    // Editing keys of workstation keyboards.
    KeyRow{0x1000ff00, 0x1000ff00, 273, Held::Ignored},
    KeyRow{0x1000ff73, 0x1000ff73, 273, Held::Ignored},
    KeyRow{0x1000ff72, 0x1000ff72, 272, Held::Ignored},
    KeyRow{0x1000ff74, 0x1000ff74, 274, Held::Ignored},
    KeyRow{0x1000ff75, 0x1000ff75, 274, Held::Ignored},
};
// clang-format on

int with_held(const KeyRow& row, int code, int shift) {
    switch (row.held) {
        case Held::Fifth:
            return code + shift / 5;
        case Held::Whole:
            return code + shift;
        case Held::BackTab:
            return shift == shift_held ? back_tab : code;
        case Held::Ignored:
            break;
    }
    return code;
}

bool raises_nothing(unsigned long keysym) {
    constexpr unsigned long first_modifier = 65505;
    constexpr unsigned long last_modifier = 65518;
    constexpr unsigned long num_lock = 65407;
    constexpr unsigned long scroll_lock = 65300;
    return (keysym >= first_modifier && keysym <= last_modifier) || keysym == num_lock ||
           keysym == scroll_lock;
}

bool character(unsigned long keysym) {
    constexpr unsigned long first_function_key = 0xfe00;
    constexpr unsigned long first_unicode = 0x1000100;
    constexpr unsigned long last_unicode = 0x110ffff;
    return (keysym >= 0x20 && keysym < first_function_key) ||
           (keysym >= first_unicode && keysym <= last_unicode);
}

bool letter(unsigned long keysym) {
    return (keysym >= 'a' && keysym <= 'z') || (keysym >= 'A' && keysym <= 'Z');
}

}  // namespace

int yyinterpretkey(unsigned long keysym, int shift) {
    for (const KeyRow& row : key_rows) {
        if (keysym < row.first || keysym > row.last) continue;
        return with_held(row, row.code + static_cast<int>(keysym - row.first), shift);
    }
    return 0;
}

int yyMSInterpretKey(unsigned long keysym, std::string_view text, bool shift, bool control) {
    if (raises_nothing(keysym)) return 0;
    if (control && letter(keysym) && text.size() == 1 && text[0] >= 1 && text[0] <= 26)
        return text[0];
    if (character(keysym)) return static_cast<int>(keysym);
    return yyinterpretkey(keysym, control ? control_held : shift ? shift_held : 0);
}

}  // namespace tesserakit
