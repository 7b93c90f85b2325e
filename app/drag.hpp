/// A drag of the mouse in the picture: turns, zooms or shifts the model.
///
/// Positions are pixels of the picture field, y downward. While a drag lasts the scene is drawn
/// with its coarse primitives.
#pragma once

namespace gemwright {

void begin_drag(int x, int y);
/// One move; nothing unless a drag is under way.
void continue_drag(int x, int y);
/// Also restores the fine primitives when no drag was under way.
void end_drag();

}  // namespace gemwright
