/// A rectangle on the screen, in a window or a dialog.
#pragma once

namespace tesserakit {

/// Pixels.
struct Box {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Box&, const Box&) = default;
};

}  // namespace tesserakit
