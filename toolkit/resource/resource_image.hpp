/// Decodes the images of the resource block. No X: resource_pixmap.hpp draws what comes out.
///
/// Two characters make one code. A code below 8192 is a colour, four bits each of red, green and
/// blue from the lowest up and a mark for transparent pixels; one above gives the next colour's
/// run length. Pixels run along the rows from the top left, and nothing marks the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tesserakit {

/// Colours of the block.
inline constexpr int image_background = 0xCCC;  ///< stands for the dialog's background
inline constexpr int image_white = 0xFFF;

struct ImageRun {
    int x = 0, y = 0;  ///< of the first pixel, from 0
    int length = 0;    ///< at least 1, never past the end of the row
    int colour = 0;    ///< 0 to 4095
    bool transparent = false;
};

/// Gives an image's runs one by one until width times height pixels have been told, or until the
/// codes end before that or hold a character that no code has.
class ImageRuns {
public:
    /// `codes` must outlive the reader.
    ImageRuns(std::string_view codes, int width, int height);

    /// A run that would pass the end of its row is cut there, and the next run begins where it
    /// would have ended.
    std::optional<ImageRun> next();

    /// Whether all pixels have been told.
    bool complete() const { return position_ >= pixels_; }

private:
    std::optional<int> next_code();

    std::string_view codes_;
    std::int64_t width_;
    std::int64_t pixels_;
    std::int64_t position_ = 0;
};

/// A whole image in memory.
struct ImagePixels {
    static constexpr std::uint16_t transparent = 0x1000;

    int width = 0, height = 0;
    std::vector<std::uint16_t> colours;  ///< by row from the top; `transparent` where nothing is
};

/// `kind` is one of image_kind. Without such an image the record is empty; pixels missing from a
/// damaged block are transparent.
ImagePixels resource_image_pixels(int identifier, int kind);

}  // namespace tesserakit
