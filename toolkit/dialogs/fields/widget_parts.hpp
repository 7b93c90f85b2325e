/// What the widgets of several kinds of field have in common.
#pragma once

#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Arguments of a widget at that place in its dialog.
Arguments placed(const Box& box);
/// As above, with the font of the dialogs.
Arguments placed_text(const Box& box);
/// Room above a line of text in a field of that height, within a frame.
int text_margin(int height, int frame);
/// The field that a callback was registered with.
FieldRecord& field_of(XtPointer client);
/// Callback: the user has changed the field.
void changed(Widget, XtPointer client, XtPointer);
/// Lets a label draw a line under the letter that the resource marks.
void underline_mnemonic(const FieldRecord& field, Arguments& args);
/// Text of a field whose widget is a label or button, and a new one.
std::string label_text(const FieldRecord& field);
void put_label_text(FieldRecord& field, const std::string& text);
/// The frame that the style words ask for.
Widget create_border(FieldRecord& field, bool with_line);
/// The picture of the field's identifier, scaled into it inside a frame; no pixmap where there is
/// none.
void load_image(FieldRecord& field, int frame = 0);

}  // namespace tesserakit
