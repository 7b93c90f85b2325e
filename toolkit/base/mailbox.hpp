/// The two-slot mailbox between callbacks and the poll. No X here.
///
/// Everything that happens inside event dispatch is posted here; wmessagepeek and wmessage empty
/// it. At most two messages are pending: a callback may post while a translated event already
/// waits in the first slot, and only then is the second slot used. What comes while nothing may be
/// delivered (a menu is open, a modal loop runs) and must not be lost is kept beside the slots.
#pragma once

#include "toolkit/message_record.hpp"

#include <array>
#include <cstdint>

namespace tesserakit {

/// One message before coordinate conversion: positions and extents in pixels.
struct Mail {
    std::int32_t type = 0;  ///< 0: empty
    std::int32_t value1 = 0;
    std::int32_t value2 = 0;
    std::int32_t value3 = 0;
    std::int32_t value4 = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t win = 0;
    std::int32_t time = 0;

    friend bool operator==(const Mail&, const Mail&) = default;
};

/// What a dialog record holds for posting. The dialog raises `suppression` while it changes its
/// own fields, so that the application is told of the user's changes only.
struct PostingState {
    int suppression = 0;  ///< above 0: nothing is posted for this dialog
    int exit_button = 0;  ///< VALUE1 of the dialog's last PushButton
    int exit_field = 0;   ///< VALUE2 of it
};

extern Mail wXtMesg;        ///< the mailbox
extern Mail wXtMesg2;       ///< its overflow, delivered before anything else
extern bool bInWMessage;    ///< inside a dispatch
extern bool bInvalidField;  ///< a numeric field holds a bad value; the dialogs set and clear it

inline constexpr int invalid_field_help_button = 9;  ///< passes while a field is invalid

/// A message of its own for a type; types outside 1 to 16 are never enabled.
bool message_enabled(int type);
void set_message_enabled(int type, bool enabled);
/// All switches as they stand before the first wmessageenable.
void load_message_defaults();

/// Posts `mail`. While a field is invalid only Resize and VALUE1 9 pass. `dialog` may be null (no
/// dialog); a PushButton leaves its button in it even when the dialog is suppressed. Inside a
/// dispatch a first message of an enabled type stays and `mail` takes the overflow slot, in place
/// of what was there; otherwise `mail` takes the first slot.
void yyDGSendTesserakitMessage(PostingState* dialog, const Mail& mail);

/// The first slot's type when it is enabled, else 0.
int pending_type();
/// Takes the overflow message; its type is 0 when there is none.
Mail take_overflow();
/// Empties both slots, and drops what is kept.
void clear_mailbox();

/// Keeps a message for later, behind those that are kept already. An exposure is united with one
/// of the same place to the box around both; of sizes of one window the last stays; what is kept
/// already as it is isn't kept twice.
void keep(const Mail& mail);
/// Takes the oldest message that is kept; its type is 0 when there is none.
Mail take_kept();
bool anything_kept();
/// Drops what is kept of a window that closes.
void drop_kept_of_window(int window);

/// Both slots are empty, and posts are those of a dispatch, while this lives; then the slots are
/// as they were. For a loop inside a dispatch: its messages and those outside don't meet.
class MailboxScope {
public:
    MailboxScope();
    ~MailboxScope();
    MailboxScope(const MailboxScope&) = delete;
    MailboxScope& operator=(const MailboxScope&) = delete;

private:
    Mail first_;
    Mail overflow_;
    bool inside_;
};

}  // namespace tesserakit
