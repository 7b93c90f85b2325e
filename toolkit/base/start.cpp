#include "toolkit/base/start.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/base/tesser_ini.hpp"
#include "toolkit/base/x_resources.hpp"

#include <string>

namespace tesserakit {

namespace {

/// Gives every Motif widget the dialog font unless a resource names another.
void default_render_table(const FontName& font) {
    if (!font.scalable) return;
    XrmDatabase ours = nullptr;
    const auto put = [&ours](const std::string& line) { XrmPutLineResource(&ours, line.c_str()); };
    put("*renderTable: dialogRendition");
    put("*dialogRendition.fontType: FONT_IS_XFT");
    put("*dialogRendition.fontName: " + font.family);
    put("*dialogRendition.fontSize: " + std::to_string(font.size));
    if (!font.style.empty()) put("*dialogRendition.fontStyle: " + font.style);
    XrmDatabase database = XtDatabase(yydisplay.display);
    XrmCombineDatabase(ours, &database, False);
}

}  // namespace

void yystart(std::string_view inifile) {
    yygetdisplayinfo();
    yywinitialise(inifile);
    idebuglevel = settings.debug_level;
    load_fonts();
    default_render_table(font_name(resource_values().dialog_font));
}

}  // namespace tesserakit
