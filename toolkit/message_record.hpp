/// Message types and the record that tells the application what the user did.
#pragma once

#include <bit>
#include <cstdint>

namespace tesserakit {

/// Types of messages. Only NoMessage is always reported; the others have a switch each.
enum MessageType : std::int32_t {
    NoMessage = -1,
    KeyDown = 1,           ///< key in a plain window: VALUE1 key code
    MenuSelect = 2,        ///< menu item, accelerator or toolbar button: VALUE1 item
    PushButton = 3,        ///< dialog button: WIN dialog, VALUE1 button, VALUE2 focus before it
    MouseButDown = 4,      ///< VALUE1 button, VALUE2 modifiers
    MouseButUp = 5,        ///< the same
    MouseMove = 6,         ///< VALUE2 modifiers
    ExposeMessage = 7,     ///< VALUE1, VALUE2 extent of the damage (Expose; X has a macro of that)
    Resize = 8,            ///< VALUE1, VALUE2 new width and height
    CloseRequest = 9,      ///< the window manager's close on a window
    FieldChanged = 10,     ///< VALUE1 field losing the focus or changed, VALUE2 field gaining it
    TabChanged = 11,       ///< VALUE1 tab field, VALUE2 dialog of the new page
    ReservedMessage = 12,  ///< never raised
    TimerExpired = 13,     ///< VALUE1 timer
    EditorCommand = 14,    ///< Return in an editor's command box
    BitmapScrolled = 15,
    MouseButDblClick = 16  ///< a second press of one button within 500 ms
};
inline constexpr int message_types = 16;

/// Bits of VALUE2 of the mouse messages. The order is not that of the X state word.
enum MouseModifier : std::int32_t {
    ModifierControl = 1,
    ModifierShift = 2,
    ModifierButton1 = 4,
    ModifierButton2 = 8,
    ModifierButton3 = 16
};

/// Where a pointer or expose message comes from (VALUE3).
enum MessageSource : std::int32_t { SourceWindow = 0, SourceField = 1, SourceBitmapViewer = 2 };

/// Twelve signed 32-bit words.
struct MessageRecord {
    std::int32_t WIN = 0;     ///< window slot (0 = root); dialog identifier when VALUE3 is 1
    std::int32_t VALUE1 = 0;  ///< by type
    std::int32_t VALUE2 = 0;  ///< by type
    std::int32_t VALUE3 = 0;  ///< MessageSource of a pointer or expose message
    std::int32_t VALUE4 = 0;  ///< field identifier when VALUE3 is 1
    std::int32_t X = 0;       ///< window units (0 to 9999) in a window, pixels in a field; y down
    std::int32_t Y = 0;
    std::int32_t GW = 0;  ///< extent in graphics units, reals held in the word; Expose only
    std::int32_t GH = 0;
    std::int32_t GX = 0;  ///< position in graphics units, reals held in the word; y up
    std::int32_t GY = 0;
    std::int32_t TIME = 0;  ///< X server time in milliseconds, or 0
};
static_assert(sizeof(MessageRecord) == 12 * sizeof(std::int32_t));

/// The real that a graphics word holds, and the word that holds a real.
constexpr float graphics_value(std::int32_t word) { return std::bit_cast<float>(word); }
constexpr std::int32_t graphics_word(float value) { return std::bit_cast<std::int32_t>(value); }

}  // namespace tesserakit
