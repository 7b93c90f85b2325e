/// Images of the resource block as pixmaps, and the colours they share.
#pragma once

#include <X11/Xlib.h>

#include <bitset>

namespace tesserakit {

/// Pixel of the dialogs' background, and its inverse (white where that couldn't be allocated).
extern unsigned long pResImgBackground;
extern unsigned long pResImgBackgroundNOT;

/// Prepares the table of 4096 shared colours. Needs the display and wSchemeCol; a second call does
/// nothing. The scheme's colours, black, white and the background are in use from here on, so
/// that no image frees them.
void yyResourceImageInit();

/// The colours that an image holds, by their twelve bits.
using ImageColours = std::bitset<4096>;

struct ResourcePixmap {
    int status = 0;     ///< 0 good, 2 no pixmap, 3 no such image
    Pixmap pixmap = 0;  ///< owned by the caller: XFreePixmap
    int width = 0, height = 0;
    ImageColours colours;
};

/// `kind` is one of image_kind. With `dialog_background` the colour that stands for it is drawn
/// as the dialogs' background; an icon has that background where it is transparent. The pixmap
/// has the screen's depth. An image without pixels, or none of that identifier, has status 3.
ResourcePixmap yyResourceLoadImage(int identifier, int kind, bool dialog_background);

/// Gives back the colours of one image; a colour that no other image uses leaves the colour map.
/// The pixmap stays.
void yyResourceFreeImagePixels(ResourcePixmap& image);

}  // namespace tesserakit
