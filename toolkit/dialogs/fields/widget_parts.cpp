#include "toolkit/dialogs/fields/widget_parts.hpp"

#include "toolkit/base/fonts.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/picture_scale.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/widgets/border.hpp"

#include <Xm/Label.h>
#include <Xm/Xm.h>

#include <algorithm>

namespace tesserakit {
namespace {

constexpr int extended_modal_frame = 0x1;
constexpr int extended_client_edge = 0x200;
constexpr int extended_static_edge = 0x20000;

}  // namespace

Arguments placed(const Box& box) {
    Arguments args;
    args(XmNx, box.x)(XmNy, box.y)(XmNwidth, std::max(1, box.width))(XmNheight,
                                                                     std::max(1, box.height));
    return args;
}

/// As above, with the font of the dialogs.
Arguments placed_text(const Box& box) {
    Arguments args = placed(box);
    args(XmNrenderTable, wFonts.dialog.table);
    return args;
}

int text_margin(int height, int frame) {
    return std::max(0, (height - wFonts.dialog.height()) / 2 - frame);
}

FieldRecord& field_of(XtPointer client) { return *static_cast<FieldRecord*>(client); }

void changed(Widget, XtPointer client, XtPointer) { post_changed(field_of(client)); }

Widget create_border(FieldRecord& field, bool with_line) {
    Arguments args = placed(field.box);
    args(borderNborder, with_line && field.has_style(field_style::border));
    args(borderNclient, (field.extended_style & extended_client_edge) != 0);
    args(borderNstatic, (field.extended_style & extended_static_edge) != 0);
    args(borderNmodal, (field.extended_style & extended_modal_frame) != 0);
    return args.create("border", borderWidgetClass, field.dialog->widget);
}

void load_image(FieldRecord& field, int frame) {
    field.image = yyResourceLoadImage(field.identifier, image_kind::bitmap, true);
    if (field.image.status != 0)
        field.image = yyResourceLoadImage(field.identifier, image_kind::icon, true);
    if (field.image.status != 0)
        field.image.pixmap = 0;
    else
        scale_to_fit(field.image, field.box.width - 2 * frame, field.box.height - 2 * frame);
}

void underline_mnemonic(const FieldRecord& field, Arguments& args) {
    if (field.underlined < 0) return;
    const char letter = field.text[static_cast<std::size_t>(field.underlined)];
    args(XmNmnemonic, static_cast<KeySym>(static_cast<unsigned char>(letter)));
}

std::string label_text(const FieldRecord& field) { return field.text; }

void put_label_text(FieldRecord& field, const std::string& text) {
    field.text = text;
    // A group without a title label has its frame alone.
    if (!XmIsLabel(field.widget)) return;
    const CompoundText label(text);
    XtVaSetValues(field.widget, XmNlabelString, label.get(), nullptr);
}

}  // namespace tesserakit
