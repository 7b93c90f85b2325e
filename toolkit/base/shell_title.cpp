#include "toolkit/base/shell_title.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/locale_text.hpp"

#include <Xm/Xm.h>

#include <string>

namespace tesserakit {

namespace {

void put_property(Widget shell, const char* name, const std::string& text) {
    Display* display = yydisplay.display;
    XChangeProperty(display, XtWindow(shell), XInternAtom(display, name, False),
                    XInternAtom(display, "UTF8_STRING", False), 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
}

}  // namespace

void show_title(Widget shell, std::string_view title) {
    // Motif puts the application's name in place of an empty title.
    const std::string shown{title.empty() ? " " : title};
    // Without an encoding Xt takes the text as the locale's and converts it for other programs.
    const std::string local = to_locale(shown);
    XtVaSetValues(shell, XmNtitle, local.c_str(), XmNiconName, local.c_str(), XmNtitleEncoding,
                  None, XmNiconNameEncoding, None, nullptr);
    // A shell without a window has WM_NAME alone, which serves as well until the title changes.
    if (!XtIsRealized(shell)) return;
    put_property(shell, "_NET_WM_NAME", valid_utf8(shown));
    put_property(shell, "_NET_WM_ICON_NAME", valid_utf8(shown));
}

}  // namespace tesserakit
