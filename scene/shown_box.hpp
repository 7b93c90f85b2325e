/// The part of the box that is shown: all of it, as long as the picture can be drawn.
///
/// A slip of the keyboard (a box of 100 cells for 1.00) asks for millions of objects, and the
/// window would be dead for minutes. So the picture has a bound, counted over all lists together.
/// Beyond it the box is shown about its middle only, cut by whole cells, for all lists alike.
///
/// An object is one sphere of an atom, one arrow of a moment, one stick of a bond or one wire cell.
/// Those of hidden nodes count, for their lists are compiled too; polyhedra, which stand in the
/// first cell only, and the axes do not.
#pragma once

#include "scene/wcfgl_metrix.hpp"

#include <cstddef>

namespace shown_box {

using wcfgl_metrix::Box;

inline constexpr std::size_t most_objects = 262'144;

enum class Count {
    AtMost,  ///< a bound that is found quickly
    Exactly,
};
/// How many objects a list would draw if `box` were the box.
using Counter = double (*)(const Box& box, Count count);
/// For each list once, at the start of the program.
void add_counter(Counter counter);

/// To be called when a list may hold more or fewer objects than before, but for another group,
/// which is seen here.
void contents_changed();

/// The box that the lists are to fill: current_box, or its middle where the whole would hold more
/// than most_objects. Counts first if box, group or contents have changed. Makes the default box if
/// there is none.
const Box& box();

/// How many objects box() holds, in the count above; a picture of few may count some that lie just
/// outside. Never more than most_objects.
std::size_t objects();
/// Up to here a picture is one of few.
inline constexpr std::size_t few_objects = 4096;

/// Another number each time that all lists are to be compiled anew because another part of the same
/// box is shown.
unsigned generation();

/// Asked before each object is compiled. False only where even the one to three cells about the
/// middle hold more than most_objects, for all that come behind these in the order of drawing.
bool take_room();

}  // namespace shown_box
