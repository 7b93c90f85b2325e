/// What windows, messages, drawables and the OpenGL target ask of the dialogs, which stand above
/// them: a record of functions that the dialogs fill at the start (toolkit/winitialise.cpp). Until
/// then each answers as with no dialog loaded. Slots are 0 to 99.
#pragma once

#include "toolkit/base/mailbox.hpp"

#include <X11/Intrinsic.h>

namespace tesserakit {

inline constexpr int dialog_slots = 100;

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

/// A dialog that is to fill a window's client area.
struct HostedDialog {
    int status = 0;  ///< 0, or -1 not in the resource, -2 unsuitable style, -3 no free slot,
                     ///< -5 loaded already
    int width = 0;   ///< pixels
    int height = 0;
    bool resizable = false;  ///< has a field that grows
};

/// A field as drawable and OpenGL target.
struct PictureField {
    bool exists = false;   ///< the field exists
    bool picture = false;  ///< and is a Picture
    Widget widget = nullptr;
    int x = 0;  ///< pixels in the dialog
    int y = 0;
    int width = 0;
    int height = 0;
};

struct DialogHooks {
    /// The innermost dialog that holds a widget (a page within its tab's dialog); a dialog's shell
    /// counts as the dialog. Null is in no dialog.
    DialogPlace (*place)(Widget) = [](Widget) { return DialogPlace{}; };
    /// Where the focus is, or was last, in the dialog of a slot and the pages of its tabs; without
    /// any, the dialog itself.
    DialogPlace (*focus)(int slot) = [](int) { return DialogPlace{}; };
    /// The slot of a loaded dialog, -1 if it isn't loaded; the identifier of a slot, -1 for none.
    int (*slot)(int identifier) = [](int) { return -1; };
    int (*identifier)(int slot) = [](int) { return -1; };
    /// Slot of the current dialog (wDialog), -1 for none.
    int (*current)() = [] { return -1; };
    /// Makes a slot current without an error; -1 for none. Answers the one that was current.
    int (*make_current)(int slot) = [](int) { return -1; };
    /// The posting state in the record of a slot, the semi-modal link, the diag widget: null for a
    /// free slot.
    PostingState* (*posting)(int slot) = [](int) -> PostingState* { return nullptr; };
    SemiModalLink* (*semi_link)(int slot) = [](int) -> SemiModalLink* { return nullptr; };
    Widget (*widget)(int slot) = [](int) -> Widget { return nullptr; };

    /// Looks at the resource only.
    HostedDialog (*host_check)(int identifier) = [](int) { return HostedDialog{.status = -1}; };
    /// Loads the dialog and builds it as a child of `parent` (an XmDrawingArea) for window slot
    /// `window`, not yet managed; answers its slot or the negative status.
    int (*host)(int identifier, int window, Widget parent) = [](int, int, Widget) { return -1; };
    /// Puts a hosted dialog at this rectangle of its parent, in pixels, with its fields laid out,
    /// and shows it if it isn't.
    void (*host_place)(int slot, int x, int y, int width, int height) = [](int, int, int, int,
                                                                           int) {};
    /// Destroys a dialog's widgets and frees its slot; used when the window that holds it closes.
    void (*unload)(int slot) = [](int) {};
    /// The dialog's shell (top window of its own) has this size now; true if that is a change.
    bool (*shell_resized)(int slot, int width, int height) = [](int, int, int) { return false; };

    PictureField (*picture)(int slot, int field) = [](int, int) { return PictureField{}; };
    /// Destroys the field's own widget and makes `widget`, a managed child of the dialog at the
    /// field's place, the field's and its picture's widget; the field and its dialog are
    /// user-drawn from then on. Later resizing moves it as the field.
    void (*adopt)(int slot, int field, Widget widget) = [](int, int, Widget) {};

    /// Applies apply_message_mask (event_masks.hpp) to the user-drawn widgets of all slots.
    void (*apply_message_masks)() = [] {};
    /// Prepares the slots at the first window's opening; ends all dialogs at windowclose.
    void (*open)() = [] {};
    void (*shut_down)() = [] {};
};
extern DialogHooks dialog_hooks;

}  // namespace tesserakit
