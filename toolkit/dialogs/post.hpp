/// The messages that dialogs raise.
#pragma once

#include "toolkit/dialogs/records.hpp"

#include <optional>

namespace tesserakit {

/// A message of a dialog, its other words -1.
Mail dialog_mail(int type, const DialogRecord& dialog, int value1, int value2);
void post(DialogRecord& dialog, const Mail& mail);
/// FieldChanged with the field itself.
void post_changed(FieldRecord& field);
/// A button of the dialog was the last one pressed in any.
void note_exit(const DialogRecord& dialog);
/// A common dialog has ended by this button.
void note_common_exit(int button);
/// The button of the last common dialog, absent once a dialog's button has been pressed.
std::optional<int> common_exit();
/// Dialog whose button was pressed last, 0 before any.
int last_exit_dialog();

}  // namespace tesserakit
