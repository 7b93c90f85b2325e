/// Text editor windows (weditfile in tesserakit.hpp) for the rooms' joining.
#pragma once

namespace tesserakit {

/// Fills the editors' part of what the message pump asks of windows with contents of their own.
void install_editors();

}  // namespace tesserakit
