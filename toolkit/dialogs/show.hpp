/// Showing and hiding.
#pragma once

#include "toolkit/dialogs/records.hpp"

namespace tesserakit {

/// Names the shell that dialogs shown from now on stay above, null for the current window's;
/// answers the former one. The shell must stay as long as it is named.
Widget open_dialogs_from(Widget shell);
/// yydialogshow2: at a place in window units of the current window, or dialog_centred; a dialog
/// that is shown comes to the front.
void map_dialog(DialogRecord& dialog, int x, int y, int field, int mode);
/// Shows it and comes back when a button has ended it.
void run_modal(DialogRecord& dialog, int x, int y, int field);
/// A dialog that fills a window is on the screen with it, whatever the mode.
void show_hosted(DialogRecord& dialog, int field);
void show_page(DialogRecord& page);
void hide_dialog_record(DialogRecord& dialog);

}  // namespace tesserakit
