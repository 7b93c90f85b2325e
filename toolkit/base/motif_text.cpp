#include "toolkit/base/motif_text.hpp"

namespace tesserakit {

std::string taken(char* text) {
    std::string result = text ? from_locale(text) : "";
    XtFree(text);
    return result;
}

std::string plain_text(XmString text) {
    return taken(static_cast<char*>(
        XmStringUnparse(text, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL)));
}

Widget Arguments::create(const char* name, WidgetClass type, Widget parent) {
    return XtCreateWidget(xt_name(name), type, parent, args_.data(), count());
}

}  // namespace tesserakit
