/// The selected drawable and its graphics units.
///
/// The graphics area is the whole drawable; its units run from 0 to 1 along both edges, with the
/// origin at the lower left.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

enum class DrawableType { Nothing = 0, Window = 1, Bitmap = 2, Field = 3, Metafile = 4 };

struct SelectedDrawable {
    DrawableType type = DrawableType::Nothing;
    int number = 0;  ///< window slot, bitmap handle, field identifier
    int dialog = 0;  ///< dialog identifier of a field
    int width = 0;   ///< pixels
    int height = 0;
    // How the pixels of its X drawable read; 0 and null while it has none.
    int depth = 0;
    Visual* visual = nullptr;
    Colormap colormap = 0;
};
extern SelectedDrawable drawable;

/// Current size of what is selected (a field may have been resized since), 0 by 0 when it is gone.
void refresh_drawable();
/// The X drawable behind it, 0 when there is none.
Drawable selected_x_drawable();

/// Selects for the length of a scope and puts the former selection back.
class DrawableScope {
public:
    DrawableScope(DrawableType type, int number, int dialog);
    ~DrawableScope();
    DrawableScope(const DrawableScope&) = delete;
    DrawableScope& operator=(const DrawableScope&) = delete;

private:
    SelectedDrawable former_;
};

/// Pixels, y from the bottom edge, to graphics units of the selected drawable.
void yyi2e(int x, int y, float& gx, float& gy);

/// Back to the current window, as after a failed igrselect.
void yygrselectwindow(int window);
void yygrselectnone();
/// A bitmap or a dialog goes away: if it, or a field of it, is the selected drawable, nothing is.
void yygrforgetbitmap(int handle);
void yygrforgetdialog(int identifier);

}  // namespace tesserakit
