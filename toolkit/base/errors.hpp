/// The stored error of the toolkit: calls return nothing, and leave their failure here.
///
/// This is the one list of codes and texts; call sites name a code only.
#pragma once

#include "toolkit/tesserakit.hpp"

#include <string_view>

namespace tesserakit {

enum ErrorCode : int {
    NoError = 0,
    FileNotCreated = 1,
    FileNotWritten = 2,
    InvalidMenuItem = 1001,
    MenuNotLoaded = 1002,
    InvalidWindow = 1003,
    CommonDialogError = 1004,
    NoDialogSelected = 1005,
    InvalidField = 1006,
    DialogNotInResource = 1007,
    DialogNotSelectable = 1008,
    ValueOutOfRange = 1009,
    ValueUndefined = 1010,
    OptionOutOfRange = 1011,
    InvalidTab = 1012,
    InvalidProgressRange = 1013,
    InvalidDialogMode = 1014,
    InvalidImage = 1015,
    ParentHidden = 1016,
    CellOutOfRange = 1017,
    TooManyRows = 1018,
    InvalidDrawable = 1019,
    BitmapNotCreated = 1020,
    InvalidBitmap = 1021,
    EditorNeedsChild = 1022,
    InvalidEditorMode = 1024,
    EditorMenuInsideParent = 1025,
    EditorMenuModal = 1026,
    EditorNotInitialised = 1027,
    NotAnEditor = 1028,
    OpenGLNotEnabled = 1035,
    BitmapInViewer = 1036,
    CompressionFailed = 1044,
    DialogStyleUnsuitable = 1045,
    ParentHoldsDialog = 1046,
    DialogHoldsWindow = 1047,
    MetafileNotSaved = 1063,
    ImageNotSaved = 1072,
    DialogNotOpened = 1088,
    ClipboardError = 1091,
    // Codes of our own, for failures that have a text but no number in common use.
    SnapshotLow = 1101,
    SnapshotExhausted = 1102,
    SubDialogNotHidden = 1103,
    FontNameMissing = 1104
};

/// Stores `code` under the public routine's name ("WDialogPutString") with up to two details,
/// readable as infoerror(2) and infoerror(3). From debug level 1 the text also goes to the
/// standard error, above 1 to the root window's status bar. Names that begin with YY, yy, XX or
/// xx are internal and print as "Internal routine:".
void yyerror(int code, std::string_view routine, int detail = 0, int detail2 = 0);

/// The debug level: TESSDEBUG's first digit, or the initialisation file's.
extern int idebuglevel;

/// Where errors are shown above debug level 1; the windows set it while a root window is open.
using ErrorDisplay = void (*)(std::string_view text);
extern ErrorDisplay error_display;

}  // namespace tesserakit
