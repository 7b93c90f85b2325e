#include "toolkit/windows/save_image.hpp"

#include "common/fatal.hpp"
#include "common/fixed_text.hpp"
#include "common/letter_case.hpp"
#include "common/safe_file.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/image_write/bmp.hpp"
#include "toolkit/image_write/pcx.hpp"
#include "toolkit/image_write/png.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/drawable_copy.hpp"
#include "toolkit/windows/drawables.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/CutPaste.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tesserakit {

namespace {

struct State {
    Pixmap on_clipboard = 0;  // owned; others read it as long as nothing else is copied
};
State& state = *new State;

ImageOutcome failure(int status, int detail = 0) {
    return {status, detail, std::string(winfoerrormessage(status))};
}

// Files

/// The rows of a copy, fetched some at a time: all at once they would take more memory than the
/// file.
class RowReader {
public:
    RowReader(const DrawableCopy& copy, const Box& area)
        : copy_(copy),
          area_(area),
          band_(std::clamp(pixels_at_once / area.width, 1, area.height)) {}

    std::span<const std::uint8_t> row(int y) {
        const auto row_size = static_cast<std::size_t>(area_.width) * 3;
        if (bytes_.empty() || y < first_ || y >= first_ + band_) {
            first_ = y / band_ * band_;
            const int rows = std::min(band_, area_.height - first_);
            bytes_ = copy_.rows(first_, rows);
            failed_ = failed_ || bytes_.empty();
            bytes_.resize(row_size * static_cast<std::size_t>(rows));
        }
        return std::span(bytes_).subspan(static_cast<std::size_t>(y - first_) * row_size, row_size);
    }
    /// Rows that can't be fetched are black.
    bool failed() const { return failed_; }

private:
    static constexpr int pixels_at_once = 1 << 15;

    const DrawableCopy& copy_;
    Box area_;
    int band_;
    int first_ = 0;
    std::vector<std::uint8_t> bytes_;
    bool failed_ = false;
};

ImageOutcome save_file(ImageFormat format, const Box& area, const DrawableCopy& copy,
                       const std::string& path) {
    constexpr int deepest_indexed = 8;
    RowReader reader(copy, area);
    const PictureRows picture{area.width, area.height, drawable.depth <= deepest_indexed,
                              [&reader](int y) { return reader.row(y); }};
    std::string file;
    int compressed = 0;
    fatal::allocate("image file", [&] {
        if (format == ImageFormat::Bmp)
            file = bmp_file(picture);
        else if (format == ImageFormat::Png)
            compressed = png_file(picture, file);
        else
            file = pcx_file(picture, area.x, area.y);
    });
    if (reader.failed()) return failure(ImageNotSaved);
    if (compressed != 0) return failure(CompressionFailed, compressed);

    using Failed = safe_file::Outcome::Failed;
    const safe_file::Outcome saved = safe_file::save(path, file);
    if (saved) return {};
    return {saved.failed == Failed::opening ? FileNotCreated : FileNotWritten, saved.error,
            saved.reason};
}

// Clipboard

/// Tries again while another program holds the clipboard.
bool done(auto&& call) {
    constexpr int most_tries = 100;
    for (int tries = 0; tries < most_tries; ++tries)
        if (const int status = call(); status != ClipboardLocked) return status == ClipboardSuccess;
    return false;
}

bool put_on_clipboard(Pixmap pixmap) {
    const WindowSlot& root = window_slot(0);
    if (!root.open()) return false;
    Display* display = yydisplay.display;
    const Window window = root.shell;
    const XmString label = XmStringCreateLocalized(const_cast<char*>("Bitmap"));
    const Time time = XtLastTimestampProcessed(display);
    long item = 0;
    const bool started = done([&] {
        return XmClipboardStartCopy(display, window, label, time, nullptr, nullptr, &item);
    });
    XmStringFree(label);
    if (!started) return false;
    // 4 bytes for those who paste. Motif keeps such values as longs: given 4 bytes where a long has
    // 8 it ends the program when somebody pastes.
    constexpr unsigned long size = sizeof pixmap;
    const bool copied = done([&] {
        return XmClipboardCopy(display, window, item, const_cast<char*>("PIXMAP"), &pixmap, size, 0,
                               nullptr);
    });
    if (copied && done([&] { return XmClipboardEndCopy(display, window, item); })) return true;
    XmClipboardCancelCopy(display, window, item);
    return false;
}

ImageOutcome save_to_clipboard(DrawableCopy& copy) {
    const Pixmap pixmap = copy.release();
    if (!put_on_clipboard(pixmap)) {
        XFreePixmap(yydisplay.display, pixmap);
        return failure(ClipboardError);
    }
    if (state.on_clipboard != 0) XFreePixmap(yydisplay.display, state.on_clipboard);
    state.on_clipboard = pixmap;
    return {};
}

}  // namespace

ImageFormat image_format(std::string_view name) {
    if (name.empty()) return ImageFormat::Clipboard;
    const std::string capitals = letter_case::in_capitals(name);
    if (capitals.ends_with(".BMP")) return ImageFormat::Bmp;
    return capitals.ends_with(".PNG") ? ImageFormat::Png : ImageFormat::Pcx;
}

ImageOutcome yysaveimage(ImageFormat format, const Box& area, const std::string& path) {
    DrawableCopy copy(area);
    if (!copy) return failure(ImageNotSaved);
    return format == ImageFormat::Clipboard ? save_to_clipboard(copy)
                                            : save_file(format, area, copy, path);
}

void igrsaveimage(std::string_view filename, std::string* reason) {
    refresh_drawable();
    const std::string name(filename.substr(0, trimmed_length(filename)));
    // The graphics area is the whole drawable.
    const ImageOutcome outcome =
        drawable.type == DrawableType::Metafile
            ? failure(MetafileNotSaved)
            : yysaveimage(image_format(name), {0, 0, drawable.width, drawable.height}, name);
    if (outcome.status == 0) return;
    yyerror(outcome.status, "IGrSaveImage", outcome.detail);
    if (reason) *reason = outcome.reason;
}

}  // namespace tesserakit
