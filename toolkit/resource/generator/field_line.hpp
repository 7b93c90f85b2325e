/// A field's line in a dialog of the catalogue.
#pragma once

#include "toolkit/resource/generator/catalogue.hpp"
#include "toolkit/resource/generator/line_words.hpp"

namespace catalogue {

/// Identifier, type, x,y, size, text, and what else the field says of itself, in any order:
///
///     group set disabled hidden        starts a radio group; set, greyed, hidden at the start
///     picture default vertical         shows its image; default button; vertical trackbar
///     readonly multiline password      kinds of text field
///     spin                             numeric field with arrows
///     range LOW HIGH, format "(f7.2)"  numeric field, trackbar (range only)
///     value N, steps LINE PAGE         trackbar
///     length N, key "c"                most characters; mnemonic
///     colour R G B R G B               foreground, background, 256 for the default
///     item "text", selected N          combo, list; for a tab the dialog of its page
///     page DIALOG "label"              tab
///     template DIALOG, rows N, labels WIDTH     grid
///     bar MINIMUM MAXIMUM STEP         progress bar
Field field_of_line(LineWords& words);

}  // namespace catalogue
