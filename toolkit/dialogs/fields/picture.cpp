#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/widgets/tess.hpp"

namespace tesserakit {
namespace {

void create_picture(FieldRecord& field) {
    load_image(field);
    Arguments args = placed(field.box);
    args(tessNpixmap, field.image.pixmap)(tessNpixmapWidth, field.image.width);
    args(tessNpixmapHeight, field.image.height);
    field.widget = args.create("picture", tessWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
}

}  // namespace

const FieldKind picture_kind{
    .create = create_picture,
};

}  // namespace tesserakit
