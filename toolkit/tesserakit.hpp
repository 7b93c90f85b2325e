/// The toolkit's public calls: windows, messages, drawables, errors, dialogs.
///
/// Identifiers, integers, reals and text only. The calls act on what is selected: one current
/// window, one dialog, one drawable, one OpenGL target (gl_calls.hpp). None of them fails by its
/// return: a failure leaves things as they were, and its code for infoerror(1).
#pragma once

#include "toolkit/gl_calls.hpp"
#include "toolkit/message_record.hpp"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tesserakit {

// Start and end

/// Opens the display and reads the environment and the initialisation file: `inifile` if it
/// exists, else TESSINIT's, else tesser.ini in the working directory, else in the toolkit's own.
/// Without a display it says so on the standard error and ends the program. Later calls do
/// nothing.
void winitialise(std::string_view inifile = {});

/// Closes all windows and dialogs and frees what they hold; windowopen2 may open a new root.
void windowclose();

/// Waits `milliseconds`, redrawing exposed dialogs. Input waits in the queue.
void ioswait(int milliseconds);

// Errors

/// 1: code of the last error, 0 for none; 2, 3: its details. A read clears what it reads.
int infoerror(int slot);
/// The text of an error code; empty for a code that has none.
std::string_view winfoerrormessage(int code);

// Windows

inline constexpr int window_centred = -999999;

/// Bits of the flags of a window.
enum WindowFlag : int {
    WindowFrameFixed = 3,     ///< frame requests that a fixed size leaves alone; stored only
    WindowFrameSizing = 12,   ///< frame requests that are off when the dialog fixes the size
    WindowInsideParent = 16,  ///< on the parent's client area, position and size in 1/9999 of it
    WindowStatusBar = 32,
    WindowFixedSize = 64,
    WindowHidden = 128,
    WindowOwned = 256  ///< stays above its parent
};

/// What a new window is to be like. Absent sizes are 80 percent of the screen (8000 with
/// WindowInsideParent).
struct WindowRequest {
    int flags = 7;
    int x = window_centred;  ///< pixels on the screen
    int y = window_centred;
    int width = 0;  ///< of the client area, in pixels; below 1: the default
    int height = 0;
    int menu = 0;                   ///< menu identifier, 0 none
    std::array<int, 4> toolbars{};  ///< top, left, right, bottom; 0 none
    int dialog = 0;                 ///< dialog that fills the client area, 0 none
    std::string_view title;
    int colours = 16;  ///< taken, and used by nothing: no colour map is so small any more
};

/// Opens the root window, slot 0. A dialog that can't be shown in it leaves an error (1007 not in
/// the resource, 1045 wrong style, 1088 no room) and an empty window. The dialog becomes current.
void windowopen2(const WindowRequest& request = {});

/// Opens a further window and makes it current; answers its slot, 1 to 50, or a negative code:
/// -1 no free slot, or dialog not in the resource; -2 parent hidden, or dialog of the wrong style;
/// -3 parent carries a dialog, or no room for the dialog; -4 parent not a plain window; -5 no such
/// parent, or dialog loaded already.
int windowopenchild2(const WindowRequest& request = {}, int parent = 0);

/// Closes a window and those inside it. The root window can't be closed by itself (1003).
void windowclosechild(int window);

/// Makes a window current; 1003 if there is none of that slot.
void windowselect(int window);

/// Between units of 0 to 9999 of the current window's client area and its pixels; both round
/// towards zero.
void windowunitstopixels(int x_units, int y_units, int& x_pixels, int& y_pixels);
void windowunitsfrompixels(int x_pixels, int y_pixels, int& x_units, int& y_units);

/// Text of part 1 to 255 of the current window's status bar; one leading tab centres it, two put
/// it to the right. Other parts and windows without a bar: nothing.
void windowoutstatusbar(int part, std::string_view text);

/// Of the current window: 1 slot, 2 width, 3 height, 4 x, 5 y (pixels), 6 type, 7 visible.
int winfowindow(int item);

// Drawables

/// Selects what graphics and winfodrawable act on: 1 window, 2 bitmap, 3 field of the current
/// dialog, 4 metafile. Absent numbers: the current window, bitmap 1, field 0, metafile 1.
/// Anything else selects the current window and leaves error 1019.
void igrselect(int type, std::optional<int> number = {});

/// Of the selected drawable: 1 type, 2 number, 3 dialog (0 if it is no field), 4 width, 5 height
/// in pixels.
int winfodrawable(int item);

/// An off-screen bitmap of width by height pixels: handle 1 to 20, or 0 with error 1020.
int wbitmapcreate(int width, int height);
void wbitmapdestroy(int handle);

/// Saves what the selected drawable shows in a file: BMP or PNG if its name ends with .bmp or .png,
/// in any case, else PCX. An old file of the name stays until the new one is whole. A blank name
/// sends a copy to the clipboard, as format PIXMAP. Errors: 1 the file can't be created, 2 or
/// written (their detail is errno, 0 where the system gave none), 1044 not compressed, 1063 a
/// metafile, 1072 the server gives no picture, 1091 no clipboard. With an error `reason` gets a
/// sentence for the user.
void igrsaveimage(std::string_view filename, std::string* reason = nullptr);

// Messages

/// The next message; waits for it.
void wmessage(int& type, MessageRecord& record);
/// The next message, or NoMessage at once. With NoMessage words 0 to 6 and TIME are -1 and the
/// graphics words keep what they held.
void wmessagepeek(int& type, MessageRecord& record);
/// Waits until the display has something for wmessagepeek, at most `milliseconds`.
void wmessagewait(int milliseconds);
/// Switches a type of message on (1) or off (0).
void wmessageenable(int type, int state);

// Dialogs
//
// A dialog of the resource block stays loaded until it is unloaded; its fields keep what they show
// while it is hidden. All calls but the first two act on the fields of the current dialog: without
// one they leave error 1005, and a field that it doesn't have, or of a type that the call doesn't
// serve, leaves 1006. A put is no change by the user: it raises no message.

/// What a value is set to when its field is empty (error 1010).
inline constexpr int undefined_integer = -999999;
inline constexpr float undefined_real = -999999.0f;
inline constexpr double undefined_double = -999999.0;

inline constexpr int dialog_centred = -1;

/// Modes of wdialogshow. A modal dialog's call returns when a button ends it.
enum DialogMode : int { DialogModal = 1, DialogModeless = 2, DialogSemiModal = 3 };

/// States of a field.
enum FieldState : int {
    FieldDisabled = 0,  ///< greyed
    FieldEnabled = 1,
    FieldReadOnly = 2,
    FieldHidden = 3
};

/// Loads a dialog, unless it is loaded already, and makes it current, together with the pages of
/// its tabs; 1007 when the resource has none of that identifier, or all 100 slots are in use.
void wdialogload(int dialog);
/// Makes a loaded dialog current, and 1008 for any other.
void wdialogselect(int dialog);
/// Shows the current dialog, in front, also a minimised one. x and y are window units (0 to 9999)
/// of the current window's client area, or of the screen without a window. `field` gets the focus,
/// 0 the first that can have it. 1014 for a modeless dialog while a semi-modal object is up (it is
/// shown semi-modal), 1016, 1046, 1047 when its place can't show it.
void wdialogshow(int x = dialog_centred, int y = dialog_centred, int field = 0,
                 int mode = DialogModeless);
/// Hides the current dialog. A page of a tab can't be hidden or unloaded by itself.
void wdialoghide();
/// Frees the current dialog and its pages; no dialog is current then.
void wdialogunload();
void wdialogtitle(std::string_view title);

/// Sets a FieldState; any other state changes nothing.
void wdialogfieldstate(int field, int state);
/// Moves the focus.
void wdialogsetfield(int field);

/// Value of a numeric field: as last put in full precision, or as typed since; 1010 and the
/// undefined value when it is empty or isn't a number.
void wdialoggetinteger(int field, int& value);
void wdialoggetreal(int field, float& value);
void wdialoggetdouble(int field, double& value);
/// What stands in a numeric field now, valid or not, without the blanks around it; empty when there
/// is no such field.
std::string wdialoggettypedtext(int field);
/// Shows a value by `format`, such as "(f7.2)", or else by the field's own, or "(G15.5E2)"; the
/// format stays with the field. 1009 outside the field's range: the field keeps its text.
void wdialogputinteger(int field, int value, std::string_view format = {});
void wdialogputreal(int field, float value, std::string_view format = {});
void wdialogputdouble(int field, double value, std::string_view format = {});
/// Range of an Integer field. A low end not below the high one means that every value is good.
void wdialograngeinteger(int field, int low, int high);
/// Steps of the arrows of a Real spinner: with Control held the arrows take the big one, which is
/// the small one when absent.
void wdialogspinnerstep2(int field, float step, std::optional<float> big_step = {});

/// Text of a String, numeric, Label, Group, Button, Check, Radio or Combo field, without trailing
/// blanks. Text is UTF-8.
void wdialoggetstring(int field, std::string& text);
void wdialoggetstringlength(int field, int& length);
void wdialogputstring(int field, std::string_view text);

void wdialoggetcheckbox(int field, int& state);
/// Any state but 0 sets the box.
void wdialogputcheckbox(int field, int state);
/// `field` is any radio button of a group; the ordinal of the set one counts from 1.
void wdialoggetradiobutton(int field, int& ordinal);
/// Sets one radio button and clears the others of its group.
void wdialogputradiobutton(int field);

/// Option selected in a List or Combo, from 1; 0 for none.
void wdialoggetmenu1(int field, int& option);
/// Text of the selected option, empty for none.
void wdialoggetmenu2(int field, std::string& text);
/// Replaces all options and selects one, 0 for none (1011 for one that isn't there: none).
void wdialogputmenu1(int field, std::span<const std::string> options, int selected = 0);
/// Selects an option, 0 for none; 1011 for one that isn't there.
void wdialogputmenu2(int field, int option);
/// As wdialogputmenu2, but 0 is refused as well.
void wdialogputoption1(int field, int option);

void wdialoggettrackbar(int field, int& value);
void wdialoggettrackbar(int field, int& value, int& minimum, int& maximum);
/// The value is moved into the range. A minimum not below the maximum is refused: 1009.
void wdialogputtrackbar(int field, int value, std::optional<int> minimum = {},
                        std::optional<int> maximum = {});

/// The value is moved into the range of the bar.
void wdialogputprogressbar(int field, int value);
/// 1013 unless minimum is below maximum.
void wdialograngeprogressbar(int field, int minimum, int maximum);

/// Brings the page of a dialog to the front of a Tab; 1012 if the tab doesn't have it.
void wdialogputtab(int field, int dialog);
/// Dialog of the page in front, 0 for none.
void wdialoggettab(int field, int& dialog);

/// Shows `rows` rows, 0 to the capacity; 1018 for 0, which empties the grid, and for more, which
/// shows as many as there can be.
void wgridrows(int field, int rows);
/// Column and row count from 1; 1017 outside the rows shown.
void wgridputcellstring(int field, int column, int row, std::string_view text);
void wgridgetcellstring(int field, int column, int row, std::string& text);
void wgridlabelrow(int field, int row, std::string_view text);

/// 1005 without a dialog. After a common dialog 1 and 4 are its button, until a dialog's is
/// pressed. 1: button that ended the current dialog; 2: field that had the focus last; 3: current
/// dialog; 4: field of the last button message; 5: dialog that a button ended last; 6, 7: position;
/// 8, 9: size, all in pixels; 10: type of the dialog: 0 hidden, else its DialogMode. 0 otherwise.
int winfodialog(int item);

// Common dialogs
//
// Each call returns when the user has finished. The windows below are repaired meanwhile, their
// input is dropped, and no message is raised. winfodialog(1) and (4) tell the button then. A box
// that can't be made leaves error 1004.

/// Buttons of a message box from left to right, with the numbers that they are known by: 1, 2 and
/// 3, but for the last set. Escape and the window manager's close press the last one.
enum MessageButtons : int {
    MessageOk = 0,
    MessageOkCancel = 1,
    MessageRetryCancel = 2,
    MessageYesNo = 3,
    MessageYesNoCancel = 4,
    MessageAbortRetryIgnore = 5  ///< Abort is 2, Retry 1, Ignore 3
};
enum MessageIcon : int {
    MessagePlain = 0,
    MessageInformation = 1,
    MessageQuestion = 2,
    MessageWarning = 3
};
/// Return presses the button of the number `default_button`, the last one if there is none of it.
/// Lines wider than the screen are broken; an empty title shows as a blank.
void wmessagebox(int buttons, int icon, int default_button, std::string_view message,
                 std::string_view title);

/// Bits of the flags of wselectfile2.
enum FileBoxFlag : int {
    FileSaving = 1,         ///< otherwise a file is loaded
    FilePrompting = 2,      ///< asks before a file is overwritten, or a missing one is created
    FileAnyPath = 4,        ///< the directory need not exist
    FileKeepDirectory = 8,  ///< the chosen directory becomes the working directory
    FileDirectory = 16,     ///< a directory is wanted; without effect beside FileSaving
    FileMustExist = 128
};
/// Asks for a file. `filter` is "description|pattern|description|pattern|", empty for all files;
/// `type` the number of the one in use, from 1. `filename` is where it begins: a name, a directory,
/// or both. With OK it is the absolute name, byte for byte as the file system has it and 256 bytes
/// at most, and winfodialog(4) is 1; with Cancel all stays as it was, and winfodialog(4) is 2.
void wselectfile2(std::string_view filter, int flags, std::string& filename,
                  std::string_view title = {}, int* type = nullptr);

/// A colour as one number: red + 256 green + 65536 blue, each 0 to 255.
int wrgb(int red, int green, int blue);
/// Takes it apart; null for what isn't wanted.
void wrgbsplit(int colour, int* red, int* green, int* blue);
/// Lets the user choose a colour, beginning with the one given. With OK, winfodialog(4) is 1; with
/// Cancel the colour stays, and winfodialog(4) is 2. The current dialog stays current.
void wselectcolour1(int& colour);

// Text editor

/// What an editor is to be like. With a modal one the call returns when it has been closed.
struct EditorRequest {
    int mode = DialogModeless;  ///< DialogMode
    int menu = 0;  ///< menu of the resource that stands behind the editor's own, 0 none
    /// 2 file boxes use `filter`, 4 browse only, 256 no New and Open, 512 no Save As, 1024 no
    /// Print, 8192 no Save; 16384 is taken, and used by nothing: the window goes with its editor.
    int flags = 0;
    std::string_view font{};    ///< family; empty: the user's fixed font
    int font_size = 0;          ///< points, 0 the font's own
    int history = -1;           ///< of a command line; taken, and used by nothing: there is none
    std::string_view filter{};  ///< "description|pattern|..."
    bool backup = false;        ///< a saving keeps the old file as NAME.bak
};
/// Makes the current window, a plain child, an editor of a file; an empty name is a new text. What
/// goes wrong with the file is told in a box, and the editor is empty then. The file is kept open
/// until its text is closed. The editor deals with its menu by itself, and closes its window by
/// itself: a CloseRequest tells that it is gone. In a window that is an editor already the file is
/// shown beside its other texts, in front, and loaded anew if it has changed on the disk.
///
/// 1022 no child window, 1024 unknown mode, 1025 a menu inside the parent's client area, 1026 a
/// menu with a modal editor, 1027 a window that carries something else.
void weditfile(std::string_view filename, const EditorRequest& request = {});
/// Closes an editor as its user would, with the question about changes: false when it stays. A
/// window that is no editor has nothing to ask.
bool weditclose(int window);

/// The text of the current window; 1028 unless it is an editor. Lines end with a line feed, or as
/// in the file that was loaded.
void weditputtext1(std::string_view text);
/// The whole text, and what is selected of it (empty for nothing).
void weditgettext1(std::string& text);
void weditgettext2(std::string& text);
/// `length` characters from the one of number `first` on, which counts from 1; fewer at the end.
void weditgettextpart(int first, int length, std::string& text);

}  // namespace tesserakit
