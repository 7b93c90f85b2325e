/// The compiled resource block: dialogs, menus, toolbars, images and strings by identifier.
///
/// These routines are all that the toolkit knows of the application's user interface; a program
/// with another catalogue links another block and the same routines. A `check` routine tells
/// sizes so that the caller can allocate, and its `load` routine fills the caller's arrays; an
/// array that is too short is filled as far as it goes. Whatever isn't in the block answers -1
/// in the sizes and leaves the arrays as they are; nothing here fails or stores an error.
///
/// Texts are UTF-8. Offsets that come back count from 0 within the text that comes back with
/// them. Positions and sizes are dialog units, except in images and toolbars: pixels.
#pragma once

#include <span>
#include <string_view>

namespace tesserakit {

/// Type of a field row.
enum class ResourceField {
    Label = 1,
    Picture,
    Group,
    String,
    Integer,
    Real,
    Double,
    Button,
    Check,
    Radio,
    Combo,
    List,
    Tab,
    Progress,
    Grid,
    Trackbar,
    TreeView,
};

/// Masks of the style words. A style word is signed: test it with `(style & mask) != 0`.
namespace dialog_style {
inline constexpr int popup = static_cast<int>(0x80000000U);
inline constexpr int child = 0x40000000;    ///< combined with a window, or page of a tab
inline constexpr int caption = 0x00C00000;  ///< both bits; without them the shell has no frame
inline constexpr int system_menu = 0x00080000;
inline constexpr int resizing_frame = 0x00040000;
inline constexpr int minimise_box = 0x00020000;
inline constexpr int control_parent = 0x00000400;
inline constexpr int modal_frame = 0x00000080;
inline constexpr int three_d = 0x00000004;
}  // namespace dialog_style

namespace field_style {
inline constexpr int child = 0x40000000;
inline constexpr int visible = 0x10000000;
inline constexpr int disabled = 0x08000000;
inline constexpr int border = 0x00800000;
inline constexpr int vertical_scroll = 0x00200000;
inline constexpr int horizontal_scroll = 0x00100000;
inline constexpr int group_start = 0x00020000;
inline constexpr int tab_stop = 0x00010000;
// The low 16 bits, by type of field.
inline constexpr int default_button = 0x0001;  ///< Button
inline constexpr int auto_check = 0x0003;      ///< Check
inline constexpr int group_box = 0x0007;       ///< Group
inline constexpr int auto_radio = 0x0009;      ///< Radio
inline constexpr int picture = 0x1040;         ///< Button, Check, Radio: shows the field's image
inline constexpr int multi_line = 0x0004;      ///< String
inline constexpr int password = 0x0020;        ///< String
inline constexpr int auto_scroll = 0x0080;     ///< String and the numeric fields
inline constexpr int read_only = 0x0800;       ///< String and the numeric fields
inline constexpr int drop_down_list = 0x0003;  ///< Combo: no typing
inline constexpr int notify = 0x0001;          ///< List
inline constexpr int tabs = 0x0200;            ///< Tab
inline constexpr int vertical_track = 0x0002;  ///< Trackbar
inline constexpr int third_spinner = 0x8000;   ///< third style word of a numeric field
}  // namespace field_style

namespace dialog_flag {
inline constexpr int keep_edges = 0x2;  ///< resizing keeps right and bottom edges
}

namespace menu_flag {
inline constexpr int popup = 0x10000;
inline constexpr int separator = 0x1;
inline constexpr int disabled = 0x2;
}  // namespace menu_flag

/// Kinds of image; identifier and kind are a key together.
namespace image_kind {
inline constexpr int bitmap = 1;
inline constexpr int icon = 2;  ///< may have transparent pixels
}  // namespace image_kind

inline constexpr int program_icon = -1;  ///< 32x32, kind icon

// Menus -----------------------------------------------------------------------------------------

/// `text_size` counts all labels with the NUL that closes each.
void yyrcmenucheck(const int& menu, int& item_count, int& text_size);

/// `next` and `child` are rows of the same menu, from 0, or -1; walk the tree by them, not by
/// position. A state of -1 isn't checkable. A separator has no label, whatever its offset: the
/// offset repeats the one of the row behind it.
void yyrcmenuload(const int& menu, std::span<int> identifiers, std::span<int> flags,
                  std::span<int> next, std::span<int> child, std::span<int> label_offsets,
                  std::span<int> states, std::span<char> text);

/// Accelerators and help prompts come from the toolkit's own tables so far; no block has any.
void yyrcaccelcheck(const int& menu, int& count);
void yyrcaccelload(const int& menu, std::span<int> keysyms, std::span<int> items,
                   std::span<int> modifiers);
void yyrchelpcheck(const int& menu, int& count, int& text_size);
void yyrchelpload(const int& menu, std::span<int> items, std::span<int> offsets,
                  std::span<char> text);

// Dialogs and fields ----------------------------------------------------------------------------

void yyrcdialogcheck(const int& dialog, int& field_count, int& title_length);

/// `title` gets title_length characters and is padded with blanks. `resize_field` is 0 in a
/// dialog of fixed size.
void yyrcdialogload(const int& dialog, int& width, int& height, int& style, int& flags,
                    int& resize_field, int& field_count, std::span<char> title);

/// `text_size` counts the texts of all fields of the dialog with the NUL that closes each.
void yyrcfieldcheck(const int& dialog, int& text_size);

/// Fields in the block's order, which is their tab order and stacking order. `types` are values of
/// ResourceField; a text offset is -1 in a field without text. Identifiers are unique within a
/// dialog only.
void yyrcfieldload(const int& dialog, std::span<int> identifiers, std::span<int> types,
                   std::span<int> x, std::span<int> y, std::span<int> width, std::span<int> height,
                   std::span<int> style, std::span<int> extended_style, std::span<int> third_style,
                   std::span<int> text_offsets, std::span<char> text);

/// 1 in a check box or radio button that is set at the start, else 0.
void yyrcfieldcheckbox(const int& dialog, const int& field, int& state);

/// Most characters of a String field, 0 for no limit.
void yyrcfieldlength(const int& dialog, const int& field, int& length);

/// Low above high (1.0 and -1.0) means that every value is good.
void yyrcfieldrange(const int& dialog, const int& field, double& low, double& high);

/// Mnemonic letter, 0 for none.
void yyrcfieldshortcut(const int& dialog, const int& field, int& character);

/// Foreground red, green, blue, then background; 0 to 255, or 256 for the default.
void yyrcfieldcolour(const int& dialog, const int& field, std::span<int, 6> components);

/// Value, minimum, maximum, page step, line step, tick frequency and two reserved; all 0 when
/// the field isn't a trackbar.
void yyrcfieldtrackbar(const int& dialog, const int& field, std::span<int, 8> values);

/// Contents of a combo or list: `text_size` characters without terminators.
void yyrcfieldmenucheck(const int& dialog, const int& field, int& item_count, int& text_size);

/// `selected` counts from 1; 0, -1 and -1000 mean none. `offsets` takes item_count + 1 numbers:
/// an item ends where the next begins.
void yyrcfieldmenuload(const int& dialog, const int& field, int& selected, std::span<int> offsets,
                       std::span<char> text);

/// All 0 when the field isn't a progress bar.
void yyrcfieldprogressbar(const int& dialog, const int& field, int& minimum, int& maximum,
                          int& step);

/// Pages of a tab; `text_size` counts their labels, without terminators.
void yyrcfieldtabcheck(const int& dialog, const int& field, int& page_count, int& text_size);

/// `selected` is the dialog identifier of a page, or 0. `offsets` takes page_count + 1 numbers.
void yyrcfieldtabload(const int& dialog, const int& field, int& selected,
                      std::span<int> page_dialogs, std::span<int> offsets, std::span<char> text);

void yyrcfieldgridcheck(const int& dialog, const int& field, int& column_count);

/// A field of `template_dialog` for each column gives its type and its title.
void yyrcfieldgridload(const int& dialog, const int& field, int& maximum_rows, int& template_dialog,
                       int& row_label_width, std::span<int> column_fields,
                       std::span<int> column_widths);

/// Two words of set-up; both 0 when the field isn't a tree view.
void yyrcfieldtreeview(const int& dialog, const int& field, std::span<int, 2> values);

/// Display format of a numeric field, such as "(f7.2)".
void yyrcfieldformatcheck(const int& dialog, const int& field, int& length);
void yyrcfieldformatload(const int& dialog, const int& field, std::span<char> format);

// Images, toolbars, strings ---------------------------------------------------------------------

void yyrcimagecheck(const int& identifier, const int& kind, int& width, int& height, int& reserved1,
                    int& reserved2);

/// The coded pixels, in place: they stay for the program's life. The view runs to the end of the
/// whole pool, as images have no end mark; resource_image.hpp decodes it. Empty when absent.
void yyrcimageload(const int& identifier, const int& kind, std::string_view& codes);

/// All -1 when absent. The image of the toolbar's identifier holds its buttons side by side.
void yyrctoolbarcheck(const int& toolbar, int& button_count, int& width, int& height);

/// A 0 stands for a gap.
void yyrctoolbarload(const int& toolbar, std::span<int> identifiers);

/// A string with the identifier of a toolbar button is its tooltip.
void yyrcstringcheck(const int& string, int& length);

/// Pads the buffer with blanks.
void yyrcstringload(const int& string, std::span<char> buffer);

/// Does nothing; calling it makes the linker take the block in.
void resource();

}  // namespace tesserakit
