#include "toolkit/messages/modal_loop.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/mailbox.hpp"
#include "toolkit/messages/messages.hpp"
#include "toolkit/messages/modal.hpp"

namespace tesserakit {

void yyMSModalMessageLoop(Widget widget, int index) {
    yyMSModalAddRemove(widget, index, true);
    clear_mailbox();
    bModalMessageLoop = true;
    while (bModalMessageLoop) {
        if (event_waiting()) {
            yyinterpretmessage();
        } else if (bModalMessageLoop) {
            yywaitdisplay(idle_tick_ms);
        }
    }
    yyMSModalAddRemove(widget, index, false);
    // The outer loop goes on: the button has ended the inner one only.
    if (nModalWindows > 0) bModalMessageLoop = true;
}

}  // namespace tesserakit
