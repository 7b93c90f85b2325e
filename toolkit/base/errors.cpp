#include "toolkit/base/errors.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace tesserakit {

constinit int idebuglevel = 0;
constinit ErrorDisplay error_display = nullptr;

namespace {

struct ErrorText {
    int code;
    std::string_view text;
};

// Ascending by code.
constexpr std::array error_texts{
    ErrorText{FileNotCreated, "Unable to create file"},
    ErrorText{FileNotWritten, "Unable to write file"},
    ErrorText{InvalidMenuItem, "Invalid menu item"},
    ErrorText{MenuNotLoaded, "Unable to load menu from resource"},
    ErrorText{InvalidWindow, "Invalid window handle"},
    ErrorText{CommonDialogError, "General error in common dialog"},
    ErrorText{NoDialogSelected, "No dialog currently selected"},
    ErrorText{InvalidField, "Invalid field identifier"},
    ErrorText{DialogNotInResource, "Dialog not present in resource - unable to load"},
    ErrorText{DialogNotSelectable, "Unable to select specified dialog"},
    ErrorText{ValueOutOfRange, "Attempt to store an out of range dialog field value"},
    ErrorText{ValueUndefined, "Field value undefined"},
    ErrorText{OptionOutOfRange, "Option number out of range or invalid item ID"},
    ErrorText{InvalidTab, "Invalid tab number specified"},
    ErrorText{InvalidProgressRange, "Invalid range specified for progress bar"},
    ErrorText{InvalidDialogMode, "Invalid dialog mode requested"},
    ErrorText{InvalidImage, "Invalid bitmap/icon identifier"},
    ErrorText{ParentHidden, "Unable to display window/dialog. Parent window hidden"},
    ErrorText{CellOutOfRange, "Cell co-ordinates out of range"},
    ErrorText{TooManyRows, "Too many rows for grid field to hold"},
    ErrorText{InvalidDrawable, "Invalid target drawing surface"},
    ErrorText{BitmapNotCreated, "Bitmap creation failed"},
    ErrorText{InvalidBitmap, "Invalid bitmap handle"},
    ErrorText{EditorNeedsChild, "Only child windows can be converted into editors or viewers"},
    ErrorText{InvalidEditorMode, "Invalid editor mode requested"},
    ErrorText{EditorMenuInsideParent, "Editor can't have menu in InsideParent child window"},
    ErrorText{EditorMenuModal, "User menu not supported with modal editor or grid window"},
    ErrorText{EditorNotInitialised, "General problem initializing editor"},
    ErrorText{NotAnEditor, "Current window is not a text editor"},
    ErrorText{OpenGLNotEnabled, "Failed to enable OpenGL graphics"},
    ErrorText{BitmapInViewer, "Cannot destroy bitmap while in use by bitmap viewer"},
    ErrorText{CompressionFailed, "Image compression failed"},
    ErrorText{DialogStyleUnsuitable,
              "Specified dialog has wrong style to be combined with a window"},
    ErrorText{ParentHoldsDialog, "Parent window is combined with a dialog"},
    ErrorText{DialogHoldsWindow, "Current dialog which is combined with a window"},
    ErrorText{MetafileNotSaved, "Cannot save image when drawable is a metafile"},
    ErrorText{ImageNotSaved, "Unable to save image"},
    ErrorText{DialogNotOpened, "Unable to open dialog of window"},
    ErrorText{ClipboardError, "Error accessing the clipboard"},
    ErrorText{SnapshotLow, "X server modal dialog/window pixmap resources are low"},
    ErrorText{SnapshotExhausted, "X server modal dialog/window pixmap resources are exhausted"},
    ErrorText{SubDialogNotHidden, "Cannot hide or unload a sub-dialog"},
    ErrorText{FontNameMissing, "No name given for the system font"},
};
static_assert(std::ranges::is_sorted(error_texts, {}, &ErrorText::code));

constinit std::array<int, 3> stored{};  // code and two details

bool internal_routine(std::string_view name) {
    return name.starts_with("YY") || name.starts_with("yy") || name.starts_with("XX") ||
           name.starts_with("xx");
}

std::string report(int code, std::string_view routine) {
    std::string text{internal_routine(routine) ? "Internal routine: " : "Routine: "};
    text.append(routine).append(": error ").append(std::to_string(code)).append(": ");
    return text.append(winfoerrormessage(code));
}

}  // namespace

void yyerror(int code, std::string_view routine, int detail, int detail2) {
    stored = {code, detail, detail2};
    if (idebuglevel < 1) return;
    const std::string text = report(code, routine);
    std::fprintf(stderr, "%s\n", text.c_str());
    if (idebuglevel > 1 && error_display) error_display(text);
}

int infoerror(int slot) {
    if (slot < 1 || slot > 3) return 0;
    return std::exchange(stored[static_cast<std::size_t>(slot - 1)], 0);
}

std::string_view winfoerrormessage(int code) {
    const auto found = std::ranges::find(error_texts, code, &ErrorText::code);
    return found == error_texts.end() ? std::string_view{} : found->text;
}

}  // namespace tesserakit
