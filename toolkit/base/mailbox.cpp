#include "toolkit/base/mailbox.hpp"

#include <cstddef>
#include <utility>

namespace tesserakit {

constinit Mail wXtMesg{};
constinit Mail wXtMesg2{};
constinit bool bInWMessage = false;
constinit bool bInvalidField = false;

namespace {

using Switches = std::array<bool, message_types + 1>;  // by type; 0 is unused

constexpr Switches default_switches() {
    Switches on{};
    for (const int type : {KeyDown, MenuSelect, PushButton, MouseButDown, ExposeMessage, Resize,
                           CloseRequest, TimerExpired, EditorCommand})
        on[static_cast<std::size_t>(type)] = true;
    return on;
}
constexpr Switches wMessageDefault = default_switches();

constinit Switches wMessageEnabled = wMessageDefault;

bool held_back(const Mail& mail) {
    return bInvalidField && mail.type != Resize && mail.value1 != invalid_field_help_button;
}

}  // namespace

bool message_enabled(int type) {
    return type >= 1 && type <= message_types && wMessageEnabled[static_cast<std::size_t>(type)];
}

void set_message_enabled(int type, bool enabled) {
    if (type >= 1 && type <= message_types)
        wMessageEnabled[static_cast<std::size_t>(type)] = enabled;
}

void load_message_defaults() { wMessageEnabled = wMessageDefault; }

void yyDGSendTesserakitMessage(PostingState* dialog, const Mail& mail) {
    if (held_back(mail)) return;
    if (dialog && mail.type == PushButton) {
        dialog->exit_button = mail.value1;
        dialog->exit_field = mail.value2;
    }
    if (dialog && dialog->suppression > 0) return;
    if (!bInWMessage || !message_enabled(wXtMesg.type)) {
        wXtMesg = mail;
    } else if (message_enabled(mail.type)) {
        // A disabled type could only push out what waits here.
        wXtMesg2 = mail;
    }
}

int pending_type() { return message_enabled(wXtMesg.type) ? wXtMesg.type : 0; }

Mail take_overflow() { return std::exchange(wXtMesg2, {}); }

void clear_mailbox() {
    wXtMesg = {};
    wXtMesg2 = {};
}

}  // namespace tesserakit
