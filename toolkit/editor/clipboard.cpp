#include "toolkit/editor/clipboard.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"

#include <X11/Xatom.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace tesserakit {

namespace {

struct State {
    std::string text;
};
State& state = *new State;  // never destroyed: at exit the display may be gone

Atom atom(const char* name) { return XInternAtom(yydisplay.display, name, False); }

struct Answer {
    Atom type = 0;
    int format = 8;
    const void* data = nullptr;
    std::size_t count = 0;  // of units of the format
};

/// Xt frees what it has sent.
void give(const Answer& answer, Atom* type, XtPointer* value, unsigned long* length, int* format) {
    const std::size_t bytes = answer.format == 32 ? answer.count * sizeof(long)
                                                  : answer.count;  // Xlib's 32 bits are longs
    *value = XtMalloc(static_cast<Cardinal>(std::max<std::size_t>(bytes, 1)));
    std::memcpy(*value, answer.data, bytes);
    *type = answer.type;
    *length = answer.count;
    *format = answer.format;
}

/// The text as an older program takes it, in its own type; false for a target that is none.
bool give_text(XICCEncodingStyle style, Atom* type, XtPointer* value, unsigned long* length,
               int* format) {
    std::string text = to_locale(state.text);
    char* list = text.data();
    XTextProperty property{};
    if (XmbTextListToTextProperty(yydisplay.display, &list, 1, style, &property) < 0) return false;
    give({property.encoding, property.format, property.value, property.nitems}, type, value, length,
         format);
    XFree(property.value);
    return true;
}

Boolean convert(Widget, Atom*, Atom* target, Atom* type, XtPointer* value, unsigned long* length,
                int* format) {
    const Atom utf8 = atom("UTF8_STRING");
    const Atom plain = atom("text/plain;charset=utf-8");
    const Atom targets = atom("TARGETS");
    const Atom compound = atom("COMPOUND_TEXT");
    const Atom any = atom("TEXT");
    if (*target == targets) {
        const std::array offered{targets, utf8, plain, compound, any, Atom{XA_STRING}};
        give({XA_ATOM, 32, offered.data(), offered.size()}, type, value, length, format);
        return True;
    }
    if (*target == utf8 || *target == plain) {
        give({*target, 8, state.text.data(), state.text.size()}, type, value, length, format);
        return True;
    }
    if (*target == compound) return give_text(XCompoundTextStyle, type, value, length, format);
    if (*target == any) return give_text(XStdICCTextStyle, type, value, length, format);
    if (*target == XA_STRING) return give_text(XStringStyle, type, value, length, format);
    return False;
}

void lost(Widget, Atom*) { state.text.clear(); }

}  // namespace

void copy_to_clipboard(std::string text) {
    const Widget owner = yydisplay.root_widget;
    if (!XtIsRealized(owner)) XtRealizeWidget(owner);
    const Time time = XtLastTimestampProcessed(yydisplay.display);
    // The former text is lost with the change of owners, which may be none.
    if (XtOwnSelection(owner, atom("CLIPBOARD"), time, convert, lost, nullptr))
        state.text = std::move(text);
}

}  // namespace tesserakit
