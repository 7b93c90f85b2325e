#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"

#include <Xm/Label.h>

#include <algorithm>

namespace tesserakit {
namespace {

/// Breaks at blanks where a line would be wider than `width`, as far as `lines` allow.
std::string wrapped(const std::string& text, int width, int lines) {
    std::string result;
    std::string line;
    std::string longer;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        const std::string word = text.substr(start, end - start);
        longer = line;
        if (!line.empty()) longer += ' ';
        longer += word;
        if (lines > 1 && !line.empty() && text_width(wFonts.dialog, longer) > width) {
            result += line;
            result += '\n';
            line = word;
            --lines;
        } else {
            line = longer;
        }
        start = end + 1;
    }
    return result + line;
}

bool is_ascii(const std::string& text) {
    return std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
}

bool is_scalable(const TextFont& font) {
    XmRendition rendition = XmRenderTableGetRendition(font.table, xt_name(XmFONTLIST_DEFAULT_TAG));
    if (!rendition) return false;
    XmFontType type = XmFONT_IS_FONT;
    Arg arg{xt_name(XmNfontType), reinterpret_cast<XtArgVal>(&type)};
    XmRenditionRetrieve(rendition, &arg, 1);
    XmRenditionFree(rendition);
    return type == XmFONT_IS_XFT;
}

/// The Greek letters of the angles, where the server's own fonts have none.
std::string in_latin_letters(std::string text) {
    constexpr std::array<std::array<const char*, 2>, 3> letters{
        {{"\u03b1", "al"}, {"\u03b2", "be"}, {"\u03b3", "ga"}}};
    for (const auto& [greek, latin] : letters)
        if (const std::size_t at = text.find(greek); at != std::string::npos)
            text.replace(at, std::string_view(greek).size(), latin);
    return text;
}

int label_alignment(int style) {
    switch (style & 3) {
        case 1:
            return XmALIGNMENT_CENTER;
        case 2:
            return XmALIGNMENT_END;
        default:
            return XmALIGNMENT_BEGINNING;
    }
}

int label_lines(const FieldRecord& field) {
    return std::max(1, field.box.height / std::max(1, wFonts.dialog.height()));
}

int wanted_width(const FieldRecord& field) {
    return label_lines(field) > 1 ? 0 : text_width(wFonts.dialog, field.text) + 1;
}

void create_label(FieldRecord& field) {
    field.position_widget = create_border(field, true);
    const TextFont& font = is_ascii(field.text) ? wFonts.dialog : wFonts.symbol;
    if (!is_ascii(field.text) && !is_scalable(font)) field.text = in_latin_letters(field.text);
    const CompoundText text(wrapped(field.text, field.box.width, label_lines(field)));
    Arguments args;
    args(XmNrenderTable, font.table)(XmNlabelString, text.get())(XmNmarginWidth, 0);
    args(XmNmarginHeight, 0)(XmNrecomputeSize, False)(XmNalignment, label_alignment(field.style));
    underline_mnemonic(field, args);
    field.widget = args.create("label", xmLabelWidgetClass, field.position_widget);
    XtManageChild(field.widget);
}

}  // namespace

const FieldKind label_kind{
    .create = create_label,
    .text = label_text,
    .put_text = put_label_text,
    .wanted_width = wanted_width,
    .marks_mnemonic = true,
};

}  // namespace tesserakit
