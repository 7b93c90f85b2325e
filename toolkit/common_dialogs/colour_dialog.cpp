#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/dialogs/load.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/tesserakit.hpp"

#include <Xm/Scale.h>
#include <Xm/Text.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tesserakit {

namespace {

constexpr int colour_dialog = 32102;
constexpr int ok_button = 1;
constexpr int cancel_button = 2;
constexpr int swatch = 1001;
// Red, green, blue.
constexpr std::array sliders{1002, 1003, 1004};
constexpr std::array numbers{1008, 1009, 1010};

using Components = std::array<int, 3>;

struct ColourBox {
    Components shown{};
    bool following = false;  // the program itself changes a control
    bool own_cell = false;   // of a colour map that can be written
    Pixel pixel = 0;
    bool pixel_taken = false;
};

void free_pixel(ColourBox& box) {
    if (!std::exchange(box.pixel_taken, false)) return;
    XFreeColors(yydisplay.display, yydisplay.colormap, &box.pixel, 1, 0);
}

/// A cell of a writable colour map is changed in place: each colour on the way would need another.
void take_own_cell(ColourBox& box) {
    const int kind = yydisplay.visual->c_class;
    if (kind != PseudoColor && kind != GrayScale && kind != DirectColor) return;
    box.own_cell = box.pixel_taken = XAllocColorCells(yydisplay.display, yydisplay.colormap, False,
                                                      nullptr, 0, &box.pixel, 1) != 0;
}

void show_swatch(ColourBox& box, Widget widget) {
    XColor colour{};
    colour.red = static_cast<unsigned short>(box.shown[0] << 8);
    colour.green = static_cast<unsigned short>(box.shown[1] << 8);
    colour.blue = static_cast<unsigned short>(box.shown[2] << 8);
    colour.flags = DoRed | DoGreen | DoBlue;
    if (box.own_cell) {
        colour.pixel = box.pixel;
        XStoreColor(yydisplay.display, yydisplay.colormap, &colour);
    } else {
        if (!XAllocColor(yydisplay.display, yydisplay.colormap, &colour)) return;
        free_pixel(box);
        box.pixel = colour.pixel;
        box.pixel_taken = true;
    }
    XtVaSetValues(widget, XmNbackground, box.pixel, nullptr);
}

Widget field_widget(int identifier) {
    FieldRecord* field = current_field(identifier, FieldTypes::all(), "WSelectColour");
    return field ? field->widget : nullptr;
}

/// What slider and number of a component say now: a number on its way may be none yet.
std::optional<int> typed_number(std::size_t i) {
    const std::string text = wdialoggettypedtext(numbers[i]);
    const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.empty() || text.size() > 3 || !std::ranges::all_of(text, is_digit)) return {};
    int value = 0;
    for (const char c : text) value = 10 * value + (c - '0');
    return value <= 255 ? std::optional(value) : std::nullopt;
}

/// The other control of a component follows the one that the user has changed.
void yyCDColourChangeCB(Widget widget, XtPointer closure, XtPointer) {
    ColourBox& box = *static_cast<ColourBox*>(closure);
    if (box.following) return;
    box.following = true;
    for (std::size_t i = 0; i < sliders.size(); ++i) {
        if (widget == field_widget(sliders[i])) {
            wdialoggettrackbar(sliders[i], box.shown[i]);
            wdialogputinteger(numbers[i], box.shown[i]);
        } else if (widget == field_widget(numbers[i])) {
            box.shown[i] = typed_number(i).value_or(box.shown[i]);
            wdialogputtrackbar(sliders[i], box.shown[i]);
        }
    }
    box.following = false;
    show_swatch(box, field_widget(swatch));
}

void yygetrgbdialog(ColourBox& box) {
    for (std::size_t i = 0; i < sliders.size(); ++i) {
        wdialogputtrackbar(sliders[i], box.shown[i]);
        wdialogputinteger(numbers[i], box.shown[i]);
        const Widget slider = field_widget(sliders[i]);
        XtAddCallback(slider, XmNdragCallback, yyCDColourChangeCB, &box);
        XtAddCallback(slider, XmNvalueChangedCallback, yyCDColourChangeCB, &box);
        XtAddCallback(field_widget(numbers[i]), XmNvalueChangedCallback, yyCDColourChangeCB, &box);
    }
    take_own_cell(box);
    show_swatch(box, field_widget(swatch));
}

/// True when OK has ended the dialog, which is current.
bool run_dialog(ColourBox& box) {
    DialogRecord& dialog = dialog_slot(wDialog);
    yygetrgbdialog(box);
    run_modal(dialog, dialog_centred, dialog_centred, sliders[0]);
    const bool ok = dialog.posting.exit_button == ok_button;
    unload(dialog);
    free_pixel(box);
    return ok;
}

}  // namespace

int wrgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

void wrgbsplit(int colour, int* red, int* green, int* blue) {
    if (red) *red = colour % 256;
    if (green) *green = colour / 256 % 256;
    if (blue) *blue = colour / 65536 % 256;
}

void wselectcolour1(int& colour) {
    const int former = wDialog;
    wdialogload(colour_dialog);
    if (yyDGslot(colour_dialog) < 0) {
        note_common_exit(-1);
        return yyerror(CommonDialogError, "WSelectColour");
    }
    ColourBox box;
    wrgbsplit(colour, &box.shown[0], &box.shown[1], &box.shown[2]);
    for (int& component : box.shown) component = std::clamp(component, 0, 255);
    const bool ok = run_dialog(box);
    wDialog = former;
    note_common_exit(ok ? ok_button : cancel_button);
    if (ok) colour = wrgb(box.shown[0], box.shown[1], box.shown[2]);
}

}  // namespace tesserakit
