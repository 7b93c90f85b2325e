/// Showing and hiding.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// yydialogshow2: at a place in pixels or dialog_centred; a dialog that is shown comes to the
/// front.
void map_dialog(DialogRecord& dialog, int x, int y, int field, int mode);
/// Shows it and comes back when a button has ended it.
void run_modal(DialogRecord& dialog, int x, int y, int field);
/// A dialog that fills a window is on the screen with it, whatever the mode.
void show_hosted(DialogRecord& dialog, int field);
void show_page(DialogRecord& page);
void hide_dialog_record(DialogRecord& dialog);

}  // namespace tesserakit
