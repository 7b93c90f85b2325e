/// The connection to the display, the resource values, and what the environment sets.
#pragma once

#include "toolkit/base/fonts.hpp"
#include "toolkit/base/tesser_ini.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// The open display; all null before winitialise. The visual, depth and colour map are the screen's
/// default ones: every widget but an OpenGL one has them.
struct DisplayInfo {
    XtAppContext app = nullptr;
    Display* display = nullptr;
    Screen* screen = nullptr;
    int screen_number = 0;
    Window root = 0;
    int width = 0;  ///< pixels
    int height = 0;
    int depth = 0;
    Visual* visual = nullptr;
    Colormap colormap = 0;
    Widget root_widget = nullptr;  ///< never shown shell, parent of dialogs without a window
    Atom wm_protocols = 0;
    Atom wm_delete_window = 0;
    Atom wm_colormap_windows = 0;
    int reserved_colours = 16;  ///< kept free on an 8-bit display: 16, 32, 64 or 128
};
extern DisplayInfo yydisplay;

/// Colours of everything that the toolkit draws by itself, from the X resource "background" and
/// the shades that Motif derives from it.
struct ColourScheme {
    Pixel background = 0;
    Pixel foreground = 0;
    Pixel top_shadow = 0;
    Pixel bottom_shadow = 0;
    Pixel select = 0;     ///< armed buttons and toggles
    Pixel disabled = 0;   ///< greyed text
    Pixel highlight = 0;  ///< background of the item under the pointer
    Pixel highlight_text = 0;
    Pixel field = 0;  ///< background of text fields and lists
    Pixel tooltip = 0;
    Pixel black = 0;
    Pixel white = 0;
};
extern ColourScheme wSchemeCol;
/// Fills wSchemeCol. Needs the display.
void yycolorschemeinit();

/// Fonts of the run, made at start-up from the X resources dialogFont, symbolFont, menuFont and
/// statusFont of the application class Tess (names for Xft, such as "Sans-10", or X font names).
struct Fonts {
    TextFont dialog;  ///< fields of dialogs; their units come from its measures
    TextFont symbol;  ///< Greek letters of labels in the symbol font
    TextFont menu;
    TextFont status;
    TextFont fixed;  ///< columns line up: text editor
};
extern Fonts wFonts;

/// Horizontal pixels of 4 and vertical pixels of 8 dialog units.
struct DialogUnits {
    int horizontal = 1;
    int vertical = 1;
};
/// Those of the dialog font.
extern DialogUnits dialog_units;
/// From the measures of a font: half of (smallest + largest width) and ascent + descent, each
/// with a tenth added, cut, and at least 1.
DialogUnits dialog_units_of(const FontMeasures& measures);

/// Catches X errors instead of the report to the debug output: while a trap stands, the first
/// error's code is kept. Traps nest.
class ErrorTrap {
public:
    ErrorTrap();
    ~ErrorTrap();
    ErrorTrap(const ErrorTrap&) = delete;
    ErrorTrap& operator=(const ErrorTrap&) = delete;
    /// Waits for the server; code of the first X error since the trap was set, 0 for none.
    int error();

private:
    int former_;
};

/// Sends what is buffered and waits until the connection has something to read, or so long.
void yywaitdisplay(int milliseconds);

}  // namespace tesserakit
