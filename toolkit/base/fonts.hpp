/// Fonts as Motif knows them, and text drawn with them outside Motif's widgets.
///
/// A font is a render table, so that X fonts and scalable Xft fonts serve alike: widgets take the
/// table as XmNrenderTable, the toolkit's own drawing goes through draw_text.
#pragma once

#include <Xm/Xm.h>

#include <string>
#include <string_view>

namespace tesserakit {

/// Pixels; widths over the printable characters 32 to 126.
struct FontMeasures {
    int ascent = 0;
    int descent = 0;
    int smallest_width = 0;
    int largest_width = 0;
};

struct TextFont {
    XmRenderTable table = nullptr;
    FontMeasures measures;
    int height() const { return measures.ascent + measures.descent; }
};

/// A font as a resource names it.
struct FontName {
    bool scalable = false;  ///< for Xft; else an X font, "-*-..." or an alias such as "fixed"
    std::string family;     ///< the whole name of an X font
    int size = 10;          ///< points, 4 to 200
    std::string style;      ///< "bold", or empty
};
/// Reads "Family-size:style"; size and style may be left out. What stands behind the last dash is
/// the size if it is a number, else it belongs to the family ("DejaVu-Sans").
FontName font_name(const std::string& name);

/// Loads `name`, an Xft name ("Sans-10") or an X font name ("-*-..." or an alias without a size
/// such as "fixed"); a font that can't be had is replaced by "fixed".
TextFont load_font(const std::string& name);

/// Width of `text` in pixels, as draw_text draws it.
int text_width(const TextFont& font, std::string_view text);
/// Draws `text` (UTF-8) with its baseline at y in the foreground of `gc`.
void draw_text(const TextFont& font, Drawable drawable, GC gc, int x, int baseline,
               std::string_view text);

/// Fonts of the run, made at start-up from the X resources dialogFont, symbolFont, menuFont and
/// statusFont of the application class Tess (names for Xft, such as "Sans-10", or X font names).
struct Fonts {
    TextFont dialog;  ///< fields of dialogs; their units come from its measures
    TextFont symbol;  ///< Greek letters of labels; where none is named, a scalable dialog font
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
/// Loads them. Needs the display.
void load_fonts();

}  // namespace tesserakit
