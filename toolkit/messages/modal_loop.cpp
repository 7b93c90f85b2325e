#include "toolkit/messages/modal_loop.hpp"

#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/windows/dialog_hooks.hpp"
#include "toolkit/windows/menu_hooks.hpp"
#include "toolkit/windows/window_slots.hpp"

namespace tesserakit {

namespace {

Widget source_of(const Mail& mail) {
    return mail.value3 == SourceField ? dialog_hooks.widget(dialog_hooks.slot(mail.win))
                                      : window_slot(mail.win).shell_widget;
}

/// The application still has to draw what no snapshot repaired, and to learn a new size. What is
/// told of the loop's own windows ends with them.
bool outlives_loop(const Mail& mail) {
    return (mail.type == ExposeMessage || mail.type == Resize) && !in_modal_stack(source_of(mail));
}

}  // namespace

void yyMSModalMessageLoop(Widget widget, int index) {
    // An open menu has the pointer: no button of the loop's could be pressed.
    if (menu_hooks.active()) menu_hooks.deactivate();
    yyMSModalAddRemove(widget, index, true);
    bModalMessageLoop = true;
    {
        const MailboxScope mailbox;
        while (bModalMessageLoop) {
            const Mail mail = yymessagestep(true);
            if (outlives_loop(mail)) keep(mail);
        }
    }
    yyMSModalAddRemove(widget, index, false);
    // The outer loop goes on: the button has ended the inner one only.
    if (nModalWindows > 0) bModalMessageLoop = true;
}

}  // namespace tesserakit
