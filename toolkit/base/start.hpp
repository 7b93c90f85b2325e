/// The start of the toolkit, below its rooms.
#pragma once

#include <string_view>

namespace tesserakit {

/// Opens the display, reads the initialisation file and loads the fonts. Without a display the
/// program ends with a message.
void yystart(std::string_view inifile);

}  // namespace tesserakit
