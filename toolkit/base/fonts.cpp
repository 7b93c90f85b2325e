#include "toolkit/base/fonts.hpp"

#include "common/number_field.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/x_resources.hpp"

#include <algorithm>
#include <array>
#include <limits>

namespace tesserakit {

constinit Fonts wFonts{};
constinit DialogUnits dialog_units{};

namespace {

constexpr char first_printable = 32;
constexpr char last_printable = 126;

XmRenderTable table_of(Arguments& args) {
    XmRendition rendition = XmRenditionCreate(
        yydisplay.root_widget, xt_name(XmFONTLIST_DEFAULT_TAG), args.data(), args.count());
    XmRenderTable table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_REPLACE);
    XmRenditionFree(rendition);
    return table;
}

XmRenderTable x_font_table(const std::string& name) {
    // A set draws the characters of the locale; a single X font would draw their bytes.
    char** missing = nullptr;
    int missing_count = 0;
    char* filler = nullptr;
    const XFontSet fonts =
        XCreateFontSet(yydisplay.display, name.c_str(), &missing, &missing_count, &filler);
    if (missing) XFreeStringList(missing);
    if (!fonts) return nullptr;
    Arguments args;
    args(XmNfontType, XmFONT_IS_FONTSET);
    args(XmNfont, fonts);
    args(XmNloadModel, XmLOAD_IMMEDIATE);
    return table_of(args);
}

XmRenderTable scalable_table(const FontName& parts) {
    Arguments args;
    args(XmNfontType, XmFONT_IS_XFT);
    args(XmNfontName, parts.family.c_str());
    args(XmNfontSize, parts.size);
    if (!parts.style.empty()) args(XmNfontStyle, parts.style.c_str());
    args(XmNloadModel, XmLOAD_IMMEDIATE);
    return table_of(args);
}

FontMeasures measure(const TextFont& font) {
    const CompoundText all("Ag");
    Dimension width = 0;
    Dimension height = 0;
    XmStringExtent(font.table, all.get(), &width, &height);
    FontMeasures measures;
    measures.ascent = XmStringBaseline(font.table, all.get());
    measures.descent = std::max(0, height - measures.ascent);
    measures.smallest_width = std::numeric_limits<int>::max();
    for (char c = first_printable; c <= last_printable; ++c) {
        const int own = text_width(font, std::string(1, c));
        measures.smallest_width = std::min(measures.smallest_width, own);
        measures.largest_width = std::max(measures.largest_width, own);
    }
    return measures;
}

}  // namespace

FontName font_name(const std::string& name) {
    const std::size_t dash = name.substr(0, name.find(':')).rfind('-');
    // X font names begin with a dash, and their aliases have none.
    if (name.starts_with('-') || dash == std::string::npos) return {.family = name};
    const std::size_t colon = std::min(name.find(':'), name.size());
    const auto size =
        number_field::to_int(std::string_view(name).substr(dash + 1, colon - dash - 1));
    FontName parts{.scalable = true, .family = name.substr(0, size ? dash : colon)};
    if (size) parts.size = std::clamp(*size, 4, 200);
    if (colon < name.size()) parts.style = name.substr(colon + 1);
    return parts;
}

TextFont load_font(const std::string& name) {
    const FontName parts = font_name(name);
    TextFont font;
    font.table = parts.scalable ? scalable_table(parts) : x_font_table(name);
    if (!font.table) font.table = x_font_table("fixed");
    if (!font.table) font.table = scalable_table({.scalable = true, .family = "Sans"});
    if (font.table) font.measures = measure(font);
    return font;
}

int text_width(const TextFont& font, std::string_view value) {
    if (value.empty() || !font.table) return 0;
    return XmStringWidth(font.table, CompoundText(std::string(value)).get());
}

void draw_text(const TextFont& font, Drawable drawable, GC gc, int x, int baseline,
               std::string_view value) {
    if (value.empty() || !font.table) return;
    const CompoundText string{std::string(value)};
    const int top = baseline - XmStringBaseline(font.table, string.get());
    XmStringDraw(yydisplay.display, drawable, font.table, string.get(), gc,
                 static_cast<Position>(x), static_cast<Position>(top),
                 static_cast<Dimension>(XmStringWidth(font.table, string.get())),
                 XmALIGNMENT_BEGINNING, XmSTRING_DIRECTION_L_TO_R, nullptr);
}

DialogUnits dialog_units_of(const FontMeasures& measures) {
    // Tenths in integers: the product with 1.1 would depend on its rounding.
    const int widths = measures.smallest_width + measures.largest_width;
    const int heights = measures.ascent + measures.descent;
    return {std::max(1, widths * 11 / 20), std::max(1, heights * 11 / 10)};
}

void load_fonts() {
    const ResourceValues values = resource_values();
    wFonts.dialog = load_font(values.dialog_font);
    // Where the user names none the Greek letters are as large as the text around them.
    const std::string symbol = values.symbol_font;
    const bool scalable = font_name(values.dialog_font).scalable;
    wFonts.symbol = load_font(!symbol.empty() ? symbol : scalable ? values.dialog_font : "Sans-10");
    wFonts.menu = load_font(values.menu_font);
    wFonts.status = load_font(values.status_font);
    wFonts.fixed = load_font(values.fixed_font);
    dialog_units = dialog_units_of(wFonts.dialog.measures);
}

}  // namespace tesserakit
