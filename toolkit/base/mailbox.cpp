#include "toolkit/base/mailbox.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

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

struct State {
    std::vector<Mail> kept;  // oldest first
};
State& state = *new State;

bool held_back(const Mail& mail) {
    return bInvalidField && mail.type != Resize && mail.value1 != invalid_field_help_button;
}

bool same_source(const Mail& a, const Mail& b) {
    return a.type == b.type && a.win == b.win && a.value3 == b.value3 && a.value4 == b.value4;
}

/// The box around both exposures, in place of the first.
void unite(Mail& kept, const Mail& mail) {
    const int right = std::max(kept.x + kept.value1, mail.x + mail.value1);
    const int bottom = std::max(kept.y + kept.value2, mail.y + mail.value2);
    kept.x = std::min(kept.x, mail.x);
    kept.y = std::min(kept.y, mail.y);
    kept.value1 = right - kept.x;
    kept.value2 = bottom - kept.y;
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
    state.kept.clear();
}

void keep(const Mail& mail) {
    const bool unites = mail.type == ExposeMessage || mail.type == Resize;
    const auto found = std::ranges::find_if(state.kept, [&](const Mail& kept) {
        return unites ? same_source(kept, mail) : kept == mail;
    });
    if (found == state.kept.end()) {
        state.kept.push_back(mail);
    } else if (mail.type == ExposeMessage) {
        unite(*found, mail);
    } else {
        *found = mail;
    }
}

Mail take_kept() {
    if (state.kept.empty()) return {};
    const Mail oldest = state.kept.front();
    state.kept.erase(state.kept.begin());
    return oldest;
}

bool anything_kept() { return !state.kept.empty(); }

void drop_kept_of_window(int window) {
    std::erase_if(state.kept, [window](const Mail& mail) {
        return mail.win == window && mail.value3 == SourceWindow;
    });
}

MailboxScope::MailboxScope()
    : first_(std::exchange(wXtMesg, {})),
      overflow_(std::exchange(wXtMesg2, {})),
      inside_(std::exchange(bInWMessage, true)) {}

MailboxScope::~MailboxScope() {
    wXtMesg = first_;
    wXtMesg2 = overflow_;
    bInWMessage = inside_;
}

}  // namespace tesserakit
