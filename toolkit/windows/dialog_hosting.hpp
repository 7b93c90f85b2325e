/// What windows, messages, drawables and the OpenGL target ask of the dialogs.
///
/// The dialogs answer these in dialogs.cpp; nothing else of them is seen below. Slots are 0 to 99.
#pragma once

#include "toolkit/messages/mailbox.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Predecessor of an object in the semi-modal chain.
struct SemiModalLink {
    int object = -1;  ///< window or dialog slot, -1 none
    int type = 0;     ///< 0 none, 1 window, 2 dialog
};

/// Where in the dialogs a widget stands.
struct DialogPlace {
    int slot = -1;            ///< -1: in no dialog
    int identifier = -1;      ///< of that dialog
    int field = 0;            ///< identifier of the field it belongs to, 0 for the dialog itself
    bool user_drawn = false;  ///< its events go to the application as messages
};
/// The innermost dialog that holds `widget` (a page within its tab's dialog); a dialog's shell
/// counts as the dialog. Null is in no dialog.
DialogPlace yyDGplace(Widget widget);

/// The slot of a loaded dialog, -1 if it isn't loaded; the identifier of a slot, -1 for none.
int yyDGslot(int identifier);
int yyDGidentifier(int slot);
/// Slot of the current dialog (wDialog), -1 for none.
int yyDGcurrent();
/// The posting state in the record of a slot, null for a free slot.
PostingState* yyDGposting(int slot);
/// The semi-modal link in the record of a slot, null for a free slot.
SemiModalLink* yyDGsemilink(int slot);
/// The diag widget of a slot, null for a free one.
Widget yyDGwidget(int slot);
/// Makes a slot current without an error; -1 for none. Answers the one that was current.
int yyDGmakecurrent(int slot);
/// The window slot that a dialog fills, -1 for a dialog with a shell of its own or a tab page.
int yyDGwindow(int slot);

// A dialog that fills a window's client area

struct HostedDialog {
    int status = 0;  ///< 0, or -1 not in the resource, -2 unsuitable style, -3 no free slot,
                     ///< -5 loaded already
    int width = 0;   ///< pixels
    int height = 0;
    bool resizable = false;  ///< has a field that grows
};
/// Looks at the resource only.
HostedDialog yyDGhostcheck(int identifier);
/// Loads the dialog and builds it as a child of `parent` (an XmDrawingArea) for window slot
/// `window`, not yet managed; answers its slot or the negative status.
int yyDGhost(int identifier, int window, Widget parent);
/// Puts a hosted dialog at this rectangle of its parent, in pixels, with its fields laid out, and
/// shows it if it isn't.
void yyDGhostplace(int slot, int x, int y, int width, int height);
/// Destroys a dialog's widgets and frees its slot; used when the window that holds it closes.
void yyDGunload(int slot);
/// The dialog's shell (top window of its own) has this size now; true if that is a change.
bool yyDGshellresized(int slot, int width, int height);

// A picture field as drawable and OpenGL target

struct PictureField {
    bool exists = false;   ///< the field exists
    bool picture = false;  ///< and is a Picture
    Widget widget = nullptr;
    int x = 0;  ///< pixels in the dialog
    int y = 0;
    int width = 0;
    int height = 0;
};
PictureField yyDGpicture(int slot, int field);
/// Destroys the field's own widget and makes `widget`, a managed child of the dialog at the
/// field's place, the field's and its picture's widget; the field and its dialog are user-drawn
/// from then on. Later resizing moves it as the field.
void yyDGadopt(int slot, int field, Widget widget);

/// Applies apply_message_mask (messages.hpp) to the user-drawn widgets of all slots.
void yyDGEnableMessage();
/// Ends all dialogs at windowclose.
void yyDGshutdown();
/// Prepares the slots at the first window's opening.
void yyDGInit();

}  // namespace tesserakit
