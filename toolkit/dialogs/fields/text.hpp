/// Fields that are typed in: strings, and what numbers have in common with them.
#pragma once

#include "toolkit/base/motif_text.hpp"
#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Callback: the user types.
void typed(Widget, XtPointer client, XtPointer);
Arguments text_arguments(const FieldRecord& field);
/// Text and its state, for kinds whose widget is a text.
std::string typed_text(const FieldRecord& field);
void put_typed_text(FieldRecord& field, const std::string& text);
void set_text_read_only(FieldRecord& field, bool read_only);
/// Selects all of a single line, so that typing replaces it.
void select_text(FieldRecord& field);
/// Makes a text of one or, for strings, several lines.
void create_text(FieldRecord& field);
/// The editing keys, and what they do.
std::string text_keys(const FieldRecord& field);
void edit_by_key(FieldRecord& field, char key, bool forward, const XEvent& event);

}  // namespace tesserakit
