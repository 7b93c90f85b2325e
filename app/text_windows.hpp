/// The windows for text: the edition of the structure file, and the list of the moments.
#pragma once

namespace gemwright {

/// Opens the structure file in an editor, in place: a save there is in the picture with the next
/// reading. With the window open already it comes to the front; the edition of another file ends
/// first, with the question about its changes. Nothing without a file.
void edit_current_file();
/// Shows a file of the list of moments, anew if it has changed; the list of another working
/// directory ends first, in the same way.
void show_moment_list(const char* file);

/// A window has closed itself.
void forget_text_window(int window);
/// Ends both, with the question about their changes; false when one of them is to stay.
bool close_text_windows();

}  // namespace gemwright
