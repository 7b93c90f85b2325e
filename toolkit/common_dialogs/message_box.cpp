#include "toolkit/common_dialogs/message_box.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/common_dialogs/modal_box.hpp"
#include "toolkit/dialogs/post.hpp"

#include <Xm/MessageB.h>

#include <algorithm>
#include <array>

namespace tesserakit {

namespace {

struct Button {
    const char* label = nullptr;  ///< null: the set has fewer buttons
    int number = 0;               ///< that it is known by
};

/// From left to right. Motif's three buttons are reused for every set.
using ButtonSet = std::array<Button, 3>;

constexpr std::array<ButtonSet, 6> button_sets{{
    {{{"OK", 1}}},
    {{{"OK", 1}, {"Cancel", 2}}},
    {{{"Retry", 1}, {"Cancel", 2}}},
    {{{"Yes", 1}, {"No", 2}}},
    {{{"Yes", 1}, {"No", 2}, {"Cancel", 3}}},
    {{{"Abort", 2}, {"Retry", 1}, {"Ignore", 3}}},
}};

constexpr std::array<unsigned char, 3> motif_buttons{XmDIALOG_OK_BUTTON, XmDIALOG_CANCEL_BUTTON,
                                                     XmDIALOG_HELP_BUTTON};

struct State {
    int pressed = -1;
    int on_close = -1;  // the button that closing stands for
};
constinit State state{};

const ButtonSet& set_of(MessageButtons buttons) {
    const auto index = static_cast<std::size_t>(std::clamp<int>(buttons, 0, 5));
    return button_sets[index];
}

int count_of(const ButtonSet& set) {
    return static_cast<int>(std::ranges::count_if(set, [](const Button& b) { return b.label; }));
}

unsigned char motif_type(MessageIcon icon) {
    switch (icon) {
        case MessageInformation:
            return XmDIALOG_INFORMATION;
        case MessageQuestion:
            return XmDIALOG_QUESTION;
        case MessageWarning:
            return XmDIALOG_WARNING;
        default:
            return XmDIALOG_MESSAGE;
    }
}

void yyCDButtonPressCB(Widget, XtPointer number, XtPointer) {
    state.pressed = *static_cast<const int*>(number);
    end_box();
}

void close_box() {
    state.pressed = state.on_close;
    end_box();
}

void closed(Widget, XtPointer, XtPointer) { close_box(); }

void yyCDKeyPressEH(Widget, XEvent*, String*, Cardinal*) { close_box(); }

/// Escape is what closing is. Motif's would be its own cancel button, which is the second of three.
void put_escape(Widget box) {
    static const bool known = [] {
        XtActionsRec action{xt_name("yyCDKeyPressEH"), yyCDKeyPressEH};
        XtAppAddActions(yydisplay.app, &action, 1);
        return true;
    }();
    if (known)
        XtOverrideTranslations(box, XtParseTranslationTable("<Key>osfCancel: yyCDKeyPressEH()"));
}

void put_buttons(Widget box, const ButtonSet& set, int default_button) {
    const int count = count_of(set);
    if (default_button < 1 || default_button > count)
        default_button = set[static_cast<std::size_t>(count - 1)].number;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const Widget button = XmMessageBoxGetChild(box, motif_buttons[i]);
        if (!set[i].label) {
            XtUnmanageChild(button);
            continue;
        }
        const CompoundText label(set[i].label);
        XtVaSetValues(button, XmNlabelString, label.get(), nullptr);
        XtAddCallback(button, XmNactivateCallback, yyCDButtonPressCB,
                      const_cast<int*>(&set[i].number));
        if (set[i].number == default_button)
            XtVaSetValues(box, XmNdefaultButtonType, motif_buttons[i], nullptr);
    }
}

/// Two thirds of the screen leave room for the icon and the frame.
std::string fitting(std::string_view message) {
    const auto measure = [](std::string_view text) { return text_width(wFonts.dialog, text); };
    return broken_to_width(valid_utf8(message), yydisplay.width * 2 / 3, measure);
}

}  // namespace

std::string broken_to_width(std::string_view text, int width,
                            const std::function<int(std::string_view)>& measure) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U; };
    std::string result;
    std::size_t start = 0;
    std::size_t last_break = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t next = at + 1;
        while (next < text.size() && continues(text[next])) ++next;
        if (text[at] == '\n') {
            result += text.substr(start, next - start);
            start = last_break = at = next;
            continue;
        }
        // The first character of a line stands on it however wide it is.
        if (at > start && text[at] != ' ' && measure(text.substr(start, next - start)) > width) {
            const std::size_t end = last_break > start ? last_break : at;
            result += without_trailing_blanks(text.substr(start, end - start));
            result += '\n';
            start = last_break = at = end;
            continue;
        }
        at = next;
        if (text[at - 1] == ' ' || text[at - 1] == '/') last_break = at;
    }
    return result.append(text.substr(start));
}

int yymessagebox2(MessageButtons buttons, MessageIcon icon, int default_button,
                  std::string_view message, std::string_view title) {
    const ButtonSet& set = set_of(buttons);
    ModalBox box(XmCreateMessageDialog, "messageBox", title, closed);
    if (!box.widget()) {
        yyerror(CommonDialogError, "WMessageBox");
        return -1;
    }
    const CompoundText text(fitting(message));
    XtVaSetValues(box.widget(), XmNmessageString, text.get(), XmNdialogType, motif_type(icon),
                  XmNnoResize, True, nullptr);
    put_buttons(box.widget(), set, default_button);
    put_escape(box.widget());
    state.on_close = set[static_cast<std::size_t>(count_of(set) - 1)].number;
    box.run();
    return state.pressed;
}

void wmessagebox(int buttons, int icon, int default_button, std::string_view message,
                 std::string_view title) {
    note_common_exit(yymessagebox2(static_cast<MessageButtons>(buttons),
                                   static_cast<MessageIcon>(icon), default_button, message, title));
}

}  // namespace tesserakit
