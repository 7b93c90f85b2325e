/// One function a kind of field: makes the widgets of a record.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

void create_label(FieldRecord& field);
void create_picture(FieldRecord& field);
void create_group(FieldRecord& field);
void create_text(FieldRecord& field);
void create_number(FieldRecord& field);
void create_push_button(FieldRecord& field);
void create_check(FieldRecord& field);
void create_radio(FieldRecord& field);
void create_combo(FieldRecord& field);
void create_list(FieldRecord& field);
void create_tab(FieldRecord& field);
void create_progress(FieldRecord& field);
void create_grid(FieldRecord& field);
void create_trackbar(FieldRecord& field);

}  // namespace tesserakit
