/// Positions as people write them: a third has no end in decimals, but it has an end on paper.
///
/// 0.333, 0.6667 or 0.16667 stand for 1/3, 2/3 and 1/6. Taken as they are they lie off the symmetry
/// element that they mean, and the group makes several atoms a few thousandths of a cell apart
/// where one belongs.
#pragma once

#include <string_view>

namespace position_text {

/// A component of a position, a fraction of the cell: `value` is what `text`, one decimal number
/// with or without blanks around it, reads as. When the text is n/3 or n/6, cut or rounded to the
/// three or more decimals written, of either sign and beyond the cell too (-0.333, 1.6667), the
/// nearest float to that fraction; otherwise `value`. The digits count, not the distance: 0.3330
/// and 0.33 are themselves, and so is every number with an exponent.
///
/// For positions only. A cell edge of 3.333 or a distance of 1.667 is what it says.
float component(std::string_view text, float value);

}  // namespace position_text
